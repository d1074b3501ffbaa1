// The series of points (linear, aligned, circular, rectangular) and the picture placed on
// the sheet.
#include <cmath>
#include <vector>

#include "commands/AiutiDisegno.h"
#include "commands/Comandi.h"
#include "commands/Costruttori.h"
#include "commands/DialoghiDisegno.h"
#include "commands/GeometriaDisegno.h"
#include "commands/Modifica.h"
#include "commands/Puntatore.h"
#include "commands/Routine.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "survey/Convenzioni.h"

namespace varena {

namespace {

// A series puts no point where a live one already stands, within a millimetre.
bool PostoOccupato(const Sessione& s, const PuntoXYZ& p) {
  for (int32_t r = 0; r < s.ContaEntita[SlotPunti]; ++r) {
    const auto k = static_cast<size_t>(r);
    if (IdentVivo(s.PuntoIdent[k]) && Distanza2D(p.X, p.Y, s.PuntoX[k], s.PuntoY[k]) < 0.001) return true;
  }
  return false;
}

// The points of a series, named on from the last live point ("1" on a job without any), in
// the current layer; one snapshot for all. False when none was written.
bool ScriviSerie(Sessione& s, const std::vector<PuntoXYZ>& posti) {
  std::string ultimo = "0";
  for (int32_t r = s.ContaEntita[SlotPunti] - 1; r >= 0; --r)
    if (IdentVivo(s.PuntoIdent[static_cast<size_t>(r)])) {
      ultimo = Rifila(s.PuntoNome[static_cast<size_t>(r)]);
      break;
    }
  bool scritto = false;
  for (const PuntoXYZ& p : posti) {
    if (PostoOccupato(s, p)) continue;
    std::string nome = ProssimoNomePunto(s, ultimo, true, "1");
    if (nome.empty()) nome = ProssimoNomePunto(s, "0", true, "1");
    ScriviPunto(s, nome, p, "", s.PianoCorrente);
    ultimo = nome;
    scritto = true;
  }
  if (!scritto) return false;
  // The points are painted from their table: a repaint shows them.
  FineModifica(s, false);
  return true;
}

// The first click of a two-click series.
bool SecondoPunto(Sessione& s, const char* prompt) {
  if (s.PassoComando != 0) return true;
  SpostaPunti(s);
  s.PassoComando = 1;
  MostraPrompt(s, prompt);
  return false;
}

int32_t Quanti(double valore) { return InteroLungo(valore); }

}  // namespace

void subSerieLineare(Sessione& s) {
  if (!SecondoPunto(s, "Serie Lineare - Secondo Punto:")) return;
  LeggiParametriSerie(s);
  const int32_t n = Quanti(s.Imp.Numero_Punti);
  const double passo = s.Imp.Distanza;
  const AzimutEDistanza ad = AzimutDistanza(PuntoUno(s), PuntoCorrente(s));
  if (n <= 0 || passo == 0 || ad.Distanza == 0) return;
  std::vector<PuntoXYZ> posti;
  for (int32_t i = 0; i < n; ++i) {
    PuntoXYZ p = Polare(s.Punto1X, s.Punto1Y, ad.Azimut, passo * i);
    p.Z = s.Punto1Z;
    posti.push_back(p);
  }
  if (ScriviSerie(s, posti)) ArmaComando(s);
}

void subSerieAllineata(Sessione& s) {
  if (!SecondoPunto(s, "Serie Allineata - Secondo Punto:")) return;
  LeggiParametriSerie(s);
  const int32_t n = Quanti(s.Imp.Numero_Punti);
  const PuntoXYZ a = PuntoUno(s), b = PuntoCorrente(s);
  if (n <= 0 || Distanza2D(a.X, a.Y, b.X, b.Y) == 0) return;
  // From the first click to the second, both ends included; the heights run evenly between.
  std::vector<PuntoXYZ> posti;
  for (int32_t i = 0; i < n; ++i) {
    const double t = n == 1 ? 0.0 : static_cast<double>(i) / (n - 1);
    posti.push_back({a.X + (b.X - a.X) * t, a.Y + (b.Y - a.Y) * t, a.Z + (b.Z - a.Z) * t});
  }
  if (ScriviSerie(s, posti)) ArmaComando(s);
}

void subSerieCircolare(Sessione& s) {
  switch (s.PassoComando) {
    case 0:
      SpostaPunti(s);
      s.PassoComando = 1;
      MostraPrompt(s, "Serie Circolare - Punto Inizio");
      return;
    case 1:
      if (Distanza2D(s.Punto1X, s.Punto1Y, s.PuntoCorrenteX, s.PuntoCorrenteY) == 0) return;
      SpostaPunti(s);
      s.PassoComando = 2;
      MostraPrompt(s, "Serie Circolare - Punto Per Angolo");
      return;
    default: break;
  }
  LeggiParametriSerie(s);
  const int32_t n = Quanti(s.Imp.Numero_Punti);
  const PuntoXYZ centro = PuntoDue(s), inizio = PuntoUno(s);
  if (n <= 0) return;
  const AzimutEDistanza ai = AzimutDistanza(centro, inizio);
  const double ampiezza = GonPositivo(AzimutDistanza(centro, PuntoCorrente(s)).Azimut * RadToGon - ai.Azimut * RadToGon);
  // From the start to the angle's direction, both included; on the start's own direction,
  // the whole turn shared out.
  const double passo = ampiezza == 0 ? 400.0 / n : n == 1 ? 0.0 : ampiezza / (n - 1);
  std::vector<PuntoXYZ> posti;
  for (int32_t i = 0; i < n; ++i) {
    PuntoXYZ p = Polare(centro.X, centro.Y, ai.Azimut + passo * i * GonToRad, ai.Distanza);
    p.Z = inizio.Z;
    posti.push_back(p);
  }
  if (ScriviSerie(s, posti)) ArmaComando(s);
}

void subSerieRettangolare(Sessione& s) {
  if (!SecondoPunto(s, "Serie Rettangolare - Punto Orientamento")) return;
  LeggiParametriSerie(s);
  const int32_t righe = Quanti(s.Imp.Numero_Righe), colonne = Quanti(s.Imp.Numero_Colonne);
  const double passo = s.Imp.Distanza;
  const AzimutEDistanza ad = AzimutDistanza(PuntoUno(s), PuntoCorrente(s));
  if (righe <= 0 || colonne <= 0 || passo == 0 || ad.Distanza == 0) return;
  // Columns along the orientation, rows to its left: an eastward orientation grows north.
  const double ux = std::sin(ad.Azimut), uy = std::cos(ad.Azimut);
  std::vector<PuntoXYZ> posti;
  for (int32_t r = 0; r < righe; ++r)
    for (int32_t c = 0; c < colonne; ++c)
      posti.push_back({s.Punto1X + passo * (c * ux - r * uy), s.Punto1Y + passo * (c * uy + r * ux), s.Punto1Z});
  if (ScriviSerie(s, posti)) ArmaComando(s);
}

void subDisegnaBitMap(Sessione& s) {
  const ImmagineScelta im = ImmagineCorrente(s);
  if (Rifila(im.File).empty() || !(im.Larghezza > 0) || !(im.Altezza > 0) || !(im.Scala > 0)) return;
  ScriviImmagine(s, im.File, s.PuntoCorrenteX, s.PuntoCorrenteY, im.Larghezza, im.Altezza, im.Scala,
                 s.PianoCorrente);
  FineModifica(s, false);
  Riprendi(s);
}

}  // namespace varena
