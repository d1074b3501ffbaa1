// The snap modes asked by a letter or a tag, and the dialogs in which a snap point is
// typed: coordinates, coordinates relative to the last point, a polar offset, an aperture,
// a memorised point.
#include <cmath>

#include "commands/Comandi.h"
#include "commands/Puntatore.h"
#include "core/Dialoghi.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "survey/Convenzioni.h"
#include "survey/Primitive.h"

namespace varena {

namespace {

// A dialog whose OK gives a point: it closes, then the point is clicked.
template <class Calcola>
void ApriDialogoPunto(Sessione& s, const char* nome, const char* titolo,
                      std::initializer_list<std::pair<const char*, const char*>> campi, Calcola calcola) {
  Dialogo d;
  d.Nome = nome;
  d.Titolo = titolo;
  for (const auto& [campo, etichetta] : campi) d.AggiungiCampo(campo, etichetta);
  const std::string n = nome;
  d.AggiungiBottone("OK", "OK", [n, calcola](Sessione& x) {
    const Dialogo* dd = TrovaDialogo(x, n);
    if (!dd) return;
    const PuntoXYZ p = calcola(x, *dd);
    ChiudiDialogo(x, n);
    ClicDaDialogo(x, p.X, p.Y, p.Z);
  });
  d.AggiungiBottone("Annulla", "Annulla", [n](Sessione& x) {
    ChiudiDialogo(x, n);
    x.ModoSnap = SnapLibero;
    x.SnapDaTasto = false;
  });
  d.BottoneEsc = "Annulla";
  ApriDialogo(s, std::move(d));
}

void ApriSnapNEQ(Sessione& s) {
  ApriDialogoPunto(s, "SnapNEQ", "Coordinate del Punto", {{"Nord", " N :"}, {"Est", " E :"}, {"Quota", " Q :"}},
                   [](Sessione&, const Dialogo& d) { return PuntoXYZ{d.Numero("Est"), d.Numero("Nord"), d.Numero("Quota")}; });
}

void ApriSnapRNEQ(Sessione& s) {
  ApriDialogoPunto(s, "SnapRNEQ", "Coordinate Relative all'Ultimo Punto",
                   {{"Nord", "Delta N :"}, {"Est", "Delta E :"}, {"Quota", "Delta Q :"}},
                   [](Sessione& x, const Dialogo& d) {
                     return PuntoXYZ{x.Punto1X + d.Numero("Est"), x.Punto1Y + d.Numero("Nord"),
                                     x.Punto1Z + d.Numero("Quota")};
                   });
}

void ApriSnapPolare(Sessione& s) {
  ApriDialogoPunto(s, "FormSnapPolare", "Snap Polare",
                   {{"Azimut", "Azimut (gon) :"}, {"Distanza", "Distanza :"}, {"Dislivello", "Dislivello :"}},
                   [](Sessione& x, const Dialogo& d) {
                     PuntoXYZ p = Polare(x.Punto1X, x.Punto1Y, d.Numero("Azimut") * GonToRad, d.Numero("Distanza"));
                     p.Z = x.Punto1Z + d.Numero("Dislivello");
                     return p;
                   });
}

void ApriSnapApertura(Sessione& s) {
  // The aperture is measured at the last point from the direction of the point before it;
  // with no such direction, from North.
  ApriDialogoPunto(s, "FormSnapApertura", "Snap Apertura",
                   {{"Angolo", "Angolo di Apertura (gon) :"}, {"Distanza", "Distanza :"}, {"Dislivello", "Dislivello :"}},
                   [](Sessione& x, const Dialogo& d) {
                     const AzimutEDistanza base = AzimutDistanza(x.Punto1X, x.Punto1Y, x.Punto2X, x.Punto2Y);
                     const double origine = base.Distanza > 0 ? base.Azimut : 0.0;
                     PuntoXYZ p = Polare(x.Punto1X, x.Punto1Y, origine + d.Numero("Angolo") * GonToRad,
                                         d.Numero("Distanza"));
                     p.Z = x.Punto1Z + d.Numero("Dislivello");
                     return p;
                   });
}

void ApriMemoPunti(Sessione& s) {
  Dialogo d;
  d.Nome = "VR_MemoPuntiSnap";
  d.Titolo = "Punti Memorizzati";
  for (const PuntoMemoria& p : s.MemoPunti) {
    const std::string nome = p.Nome;
    d.AggiungiBottone(nome, nome + "  N=" + TestoMetri(p.Y) + " E=" + TestoMetri(p.X), [nome](Sessione& x) {
      for (const PuntoMemoria& m : x.MemoPunti)
        if (m.Nome == nome) {
          const PuntoMemoria scelto = m;
          ChiudiDialogo(x, "VR_MemoPuntiSnap");
          // As a click at free snap on that point.
          x.ModoSnap = SnapLibero;
          x.SnapDaTasto = false;
          ClicDaDialogo(x, scelto.X, scelto.Y, scelto.Z);
          return;
        }
    });
  }
  d.AggiungiBottone("Annulla", "Annulla", [](Sessione& x) {
    ChiudiDialogo(x, "VR_MemoPuntiSnap");
    x.ModoSnap = SnapLibero;
  });
  d.BottoneEsc = "Annulla";
  ApriDialogo(s, std::move(d));
}

void ArmaMemorizzazione(Sessione& s) {
  if (s.ComandoCorrente != 219) {
    s.ComandoSospeso = s.ComandoCorrente;
    s.PassoSospeso = s.PassoComando;
    s.VoceSospesa = s.VoceArmata;
    s.PromptSospeso = s.Prompt;
  }
  s.ComandoCorrente = 219;
  s.VoceArmata = -1;
  ArmaComando(s);
}

}  // namespace

void ImpostaSnap(Sessione& s, int16_t modo) {
  ChiudiSnapPunto(s);
  const bool serveUnPunto =
      modo == SnapPiede || modo == SnapTangente || modo == SnapPolare || modo == SnapApertura || modo == SnapRNEQ;
  if (serveUnPunto && s.PassoComando == 0) modo = SnapLibero;
  if (modo == SnapMemoPunto) {
    ArmaMemorizzazione(s);
    return;
  }
  if (modo == SnapIncrocio && s.ModoSnap != SnapIncrocio) s.FaseIncrocio = 0;
  s.ModoSnap = modo;
  s.SnapDaTasto = modo != SnapLibero;
  switch (modo) {
    case SnapNEQ: ApriSnapNEQ(s); break;
    case SnapRNEQ: ApriSnapRNEQ(s); break;
    case SnapPolare: ApriSnapPolare(s); break;
    case SnapApertura: ApriSnapApertura(s); break;
    case SnapRichiamaMemo: ApriMemoPunti(s); break;
    default: break;
  }
}

}  // namespace varena
