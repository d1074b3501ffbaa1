// The area division as a command: the contour traced by clicks and closed by the right
// button, then `FormDivisioneAree` over the drawing. In the two-point mode two clicks give
// the direction of the cut and every later click (or step) the point it passes through; in
// the rotation mode the first click is the pivot and every later one the point the cut turns
// to.
#include <string>

#include "commands/Campitura.h"
#include "commands/Comandi.h"
#include "commands/Costruttori.h"
#include "commands/Modifica.h"
#include "core/Dialoghi.h"
#include "core/Errori.h"
#include "core/Porte.h"
#include "core/Sessione.h"
#include "survey/DialoghiCalcoli.h"
#include "survey/DivisioneAree.h"
#include "view/Elastico.h"

namespace varena {

namespace {

constexpr const char* kDialogo = "FormDivisioneAree";
constexpr const char* kTitolo2P = "Divisione Aree 2 Punti";
constexpr const char* kTitoloRotazione = "Divisione Aree P. Rotazione";
constexpr const char* kSposta = "Divisione Aree - Punto per la Linea di Divisione :";

std::string Area(double v) { return FormatoRilievo(v, "############0.##0"); }

StatoDivisione& Stato(Sessione& s) { return s.Calcoli.Divisione; }

bool LineaPronta(const StatoDivisione& d) { return d.Punti >= (d.Rotazione ? 2 : 3); }

// The cut through the moved point, and the three areas and its ends into the dialog.
void Aggiorna(Sessione& s) {
  StatoDivisione& d = Stato(s);
  d.Taglia();
  AggiornaCampo(s, kDialogo, "AreaParte", Area(d.AreaParte));
  AggiornaCampo(s, kDialogo, "Differenza", Area(d.AreaTotale - d.AreaParte));
  AggiornaCampo(s, kDialogo, "Taglio",
                "\tNord\tEst\nA\t" + TestoMetri(d.A.Y) + "\t" + TestoMetri(d.A.X) + "\nB\t" + TestoMetri(d.B.Y) +
                    "\t" + TestoMetri(d.B.X));
  // The cut stands over the drawing while the user steps it and reads the areas.
  MostraLinea(s, s.Elastico.Linea, d.A.X, d.A.Y, d.B.X, d.B.Y);
}

void Passo(Sessione& s, double dx, double dy) {
  const Dialogo* dlg = TrovaDialogo(s, kDialogo);
  if (!dlg) return;
  const double passo = dlg->Numero("Passo");
  if (!(passo > 0)) {
    s.Ui->Messaggio("Inserire un valore per spostamento!", "Spostamento impossibie", Icona::Avviso);
    return;
  }
  StatoDivisione& d = Stato(s);
  if (!LineaPronta(d)) {
    s.Ui->Messaggio("Indicare prima la linea di divisione!", dlg->Titolo, Icona::Avviso);
    return;
  }
  d.P.X += dx * passo;
  d.P.Y += dy * passo;
  Aggiorna(s);
}

// Whether there is a cut for the buttons to insert; said when there is none.
bool TaglioDaInserire(Sessione& s) {
  const StatoDivisione& d = Stato(s);
  if (LineaPronta(d) && d.AreaParte > 0) return true;
  s.Ui->Messaggio("La linea non taglia il contorno!", d.Rotazione ? kTitoloRotazione : kTitolo2P, Icona::Avviso);
  return false;
}

void InserisciPunti(Sessione& s) {
  if (!TaglioDaInserire(s)) return;
  const StatoDivisione d = Stato(s);
  InserisciPuntoNuovo(s, d.A);
  InserisciPuntoNuovo(s, d.B);
}

void InserisciLinea(Sessione& s) {
  if (!TaglioDaInserire(s)) return;
  const StatoDivisione& d = Stato(s);
  ScriviLinea(s, d.A, d.B, s.PianoCorrente);
  FineModifica(s);
}

}  // namespace

bool ApriFormDivisioneAree(Sessione& s) {
  StatoDivisione& st = Stato(s);
  st = {};
  st.Rotazione = s.ComandoCorrente == kCodiceDivisioneRotazione;
  const SpezzataTemporanea& c = s.SpezzataTemporanea;
  for (size_t i = 0; i < c.Conta(); ++i) st.Vertici.push_back({c.X[i], c.Y[i], i < c.Z.size() ? c.Z[i] : 0});
  if (const auto ap = AreaPerimetro(st.Vertici)) st.AreaTotale = ap->Area;
  Dialogo d;
  d.Nome = kDialogo;
  d.Titolo = st.Rotazione ? kTitoloRotazione : kTitolo2P;
  d.DiLavoro = true;
  d.AggiungiCampo("Passo", "Spostamento (m) :", "1");
  d.AggiungiDato("AreaTotale", "Area Totale : ", Area(st.AreaTotale))
      .AggiungiDato("AreaParte", "Area Parte : ", Area(0))
      .AggiungiDato("Differenza", "Differenza : ", Area(st.AreaTotale))
      .AggiungiDato("Taglio", "", "");
  BottoneCalcolo(d, "NordPiu", "Nord +", [](Sessione& x) { Passo(x, 0, 1); });
  BottoneCalcolo(d, "NordMeno", "Nord -", [](Sessione& x) { Passo(x, 0, -1); });
  BottoneCalcolo(d, "EstMeno", "Est -", [](Sessione& x) { Passo(x, -1, 0); });
  BottoneCalcolo(d, "EstPiu", "Est +", [](Sessione& x) { Passo(x, 1, 0); });
  BottoneChiudi(d, 0);
  BottoneCalcolo(d, "Punti", "Punti", InserisciPunti);
  BottoneCalcolo(d, "Linea", "Linea", InserisciLinea);
  ApriDialogo(s, std::move(d));
  st.Punti = 1;  // the contour
  MostraPrompt(s, st.Rotazione ? "Divisione Aree - Punto di Rotazione :" : "Divisione Aree - Primo Punto Direzione :");
  return true;
}

void subDivisioneAree(Sessione& s) {
  if (!DialogoAperto(s, kDialogo)) {
    subSelezionaContorno(s);
    return;
  }
  StatoDivisione& d = Stato(s);
  const PuntoXYZ q{s.PuntoCorrenteX, s.PuntoCorrenteY, s.PuntoCorrenteZ};
  if (d.Rotazione && d.Punti == 1) {
    d.Perno = q;
  } else if (!d.Rotazione && d.Punti == 1) {
    d.Primo = q;
    ++d.Punti;
    MostraPrompt(s, "Divisione Aree - Secondo Punto Direzione :");
    return;
  } else if (!d.Rotazione && d.Punti == 2) {
    d.Azimut = AzimutDistanza(d.Primo, q).Azimut;
    d.P = d.Primo;
  } else {
    d.P = q;
  }
  if (d.Punti < 3) ++d.Punti;
  MostraPrompt(s, kSposta);
  if (LineaPronta(d)) Aggiorna(s);
}

}  // namespace varena
