// The drawing commands of texts: a text at each click, the distance between two points,
// progressive dimensions from an origin, the lines of the clipboard or of a file, a text
// turned along two points, and the callout.
#include <cmath>

#include "commands/AiutiDisegno.h"
#include "commands/Comandi.h"
#include "commands/Costruttori.h"
#include "commands/DialoghiDisegno.h"
#include "commands/GeometriaDisegno.h"
#include "commands/Modifica.h"
#include "commands/Puntatore.h"
#include "commands/Routine.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "snap/Vicino.h"
#include "survey/Convenzioni.h"

namespace varena {

namespace {

// The properties of the next text, or nothing when they give no visible text.
bool Proprieta(Sessione& s, ProprietaTestoScelte& p, bool serveTesto) {
  p = ProprietaTestoCorrenti(s);
  return p.Altezza > 0 && (!serveTesto || !Rifila(p.Testo).empty());
}

// One text for each line, each a text height lower than the one before, down the way the
// text is turned. Blank lines keep their place. False when nothing was written.
bool ScriviRighe(Sessione& s, const std::vector<std::string>& righe, double x, double y) {
  ProprietaTestoScelte p;
  if (!Proprieta(s, p, false)) return false;
  const double a = p.Angolo * GonToRad;
  bool scritto = false;
  for (size_t i = 0; i < righe.size(); ++i) {
    if (Rifila(righe[i]).empty()) continue;
    const double giu = p.Altezza * static_cast<double>(i);
    ScriviTesto(s, x + giu * std::sin(a), y - giu * std::cos(a), righe[i], p.Altezza, p.Angolo, p.Colore, p.Font,
                s.PianoCorrente);
    scritto = true;
  }
  return scritto;
}

}  // namespace

void subDisegnoTesto(Sessione& s) {
  ProprietaTestoScelte p;
  if (!Proprieta(s, p, true)) return;
  ScriviTesto(s, s.PuntoCorrenteX, s.PuntoCorrenteY, p.Testo, p.Altezza, p.Angolo, p.Colore, p.Font,
              s.PianoCorrente);
  FineModifica(s, false);
  Riprendi(s);
}

void subTestodistanza(Sessione& s) {
  if (s.PassoComando == 0) {
    SpostaPunti(s);
    s.PassoComando = 1;
    MostraPrompt(s, "Testo Distanza - Al Punto :");
    return;
  }
  const AzimutEDistanza ad = AzimutDistanza(PuntoUno(s), PuntoCorrente(s));
  ProprietaTestoScelte p;
  if (ad.Distanza == 0 || !Proprieta(s, p, false)) return;
  ScriviTesto(s, (s.Punto1X + s.PuntoCorrenteX) / 2, (s.Punto1Y + s.PuntoCorrenteY) / 2,
              Rifila(FormatoMaschera(ad.Distanza, "########0")), p.Altezza, RotazioneLungo(ad.Azimut), p.Colore,
              p.Font, s.PianoCorrente);
  FineModifica(s, false);
  Riprendi(s);
}

void subQuotaturaProgressiva(Sessione& s) {
  if (s.PassoComando == 0) {
    // The origin stays `Punto1` for every dimension that follows.
    SpostaPunti(s);
    s.PassoComando = 1;
    MostraPrompt(s, "Quotatura Progressiva - Al Punto :");
    return;
  }
  const AzimutEDistanza ad = AzimutDistanza(PuntoUno(s), PuntoCorrente(s));
  ProprietaTestoScelte p;
  if (ad.Distanza == 0 || !Proprieta(s, p, false)) return;
  ScriviTesto(s, s.PuntoCorrenteX, s.PuntoCorrenteY, Rifila(FormatoMaschera(ad.Distanza, "#########0.00")), p.Altezza,
              RotazioneLungo(ad.Azimut), p.Colore, p.Font, s.PianoCorrente);
  FineModifica(s, false);
  MostraPrompt(s, "Quotatura Progressiva - Al Punto :");
}

void subIncollaDaAppunti(Sessione& s) {
  const std::string testo = s.Clip->Leggi();
  if (Rifila(testo).empty()) return;
  const double x = s.PuntoCorrenteX, y = s.PuntoCorrenteY;
  s.RoutineCorrente = "subIncollaDaAppunti";
  // What was pasted is kept beside the settings, for the next session to find.
  if (!s.CartellaLavoro.empty() && !Protetto(s, [&] { ScriviTesto(s.CartellaLavoro + "Appunti.ini", testo); }))
    return;
  if (!ScriviRighe(s, RigheTesto(testo), x, y)) return;
  FineModifica(s, false);
  Riprendi(s);
}

void subDisegnoTestoDaFile(Sessione& s) {
  const double x = s.PuntoCorrenteX, y = s.PuntoCorrenteY;
  const auto file = s.Ui->ScegliFile(false, "Testo da File", "File Di Testo (*.TXT)|*.TXT|Tutti i file (*.*)|*.*",
                                     s.CartellaLavoro, "");
  if (!file) {
    InterrompiComando(s);
    return;
  }
  s.RoutineCorrente = "subDisegnoTestoDaFile";
  std::vector<std::string> righe;
  if (!Protetto(s, [&] { righe = RigheFile(*file); })) return;
  if (!ScriviRighe(s, righe, x, y)) return;
  FineModifica(s, false);
  Riprendi(s);
}

void subTestoAllinea(Sessione& s) {
  StatoDisegno& v = s.ValoriDisegno;
  switch (s.PassoComando) {
    case 0: {
      const Vicina t = IlPiuVicinoTesto(s, s.PuntoCorrenteX, s.PuntoCorrenteY);
      if (!EntitaViva(s, SlotTesti, t.Riga)) return;
      v.RigaScelta = t.Riga;
      s.PassoComando = 1;
      MostraPrompt(s, "Allinea Testo - Primo Punto:");
      return;
    }
    case 1:
      SpostaPunti(s);
      s.PassoComando = 2;
      MostraPrompt(s, "Allinea Testo - Secondo Punto:");
      return;
    default: {
      const AzimutEDistanza ad = AzimutDistanza(PuntoUno(s), PuntoCorrente(s));
      if (ad.Distanza == 0 || !EntitaViva(s, SlotTesti, v.RigaScelta)) return;
      s.TestoRotazione[static_cast<size_t>(v.RigaScelta)] = RotazioneLungo(ad.Azimut);
      SegnaModificato(s, SlotTesti);
      FineModifica(s);
      ArmaComando(s);
      return;
    }
  }
}

void subDisegnaFumetto(Sessione& s) {
  ProprietaTestoScelte p;
  if (!Proprieta(s, p, true)) return;
  // The bubble stands up and to the right of the point it speaks of, a tail down to it. Its
  // size follows the text: about six tenths of the height for each character.
  const double h = p.Altezza, margine = h / 2;
  const double larghezza = 0.6 * h * static_cast<double>(Caratteri(p.Testo)) + 2 * margine;
  const double sinistra = 2 * h, basso = 2 * h, destra = sinistra + larghezza, alto = basso + h + 2 * margine;
  const double a = p.Angolo * GonToRad, ca = std::cos(a), sa = std::sin(a);
  const PuntoXYZ punta = PuntoCorrente(s);
  // From the bubble's own axes (along the text, and up from it) to the sheet.
  auto foglio = [&](double u, double w) { return PuntoXYZ{punta.X + u * ca - w * sa, punta.Y + u * sa + w * ca, punta.Z}; };
  const PuntoXYZ contorno[] = {foglio(sinistra + 2 * margine, basso), foglio(destra, basso), foglio(destra, alto),
                               foglio(sinistra, alto), foglio(sinistra, basso), foglio(sinistra + margine, basso)};
  for (size_t i = 0; i + 1 < std::size(contorno); ++i) ScriviLinea(s, contorno[i], contorno[i + 1], s.PianoCorrente);
  ScriviLinea(s, contorno[5], punta, s.PianoCorrente);
  ScriviLinea(s, punta, contorno[0], s.PianoCorrente);
  const PuntoXYZ piede = foglio(sinistra + margine, basso + margine);
  ScriviTesto(s, piede.X, piede.Y, p.Testo, h, p.Angolo, p.Colore, p.Font, s.PianoCorrente);
  FineModifica(s, false);
  Riprendi(s);
}

}  // namespace varena
