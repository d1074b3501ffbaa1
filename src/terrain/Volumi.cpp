// Totals and report of the volumes: sums over the facet table, and a dialog that shows them.
#include "terrain/Volumi.h"

#include "commands/Modifica.h"
#include "core/Dialoghi.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "terrain/Falde.h"
#include "terrain/Triangolazione.h"

namespace varena {

TotaliVolumi SommaVolumi(const Sessione& s) {
  TotaliVolumi t;
  for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotFalde]); ++r) {
    if (!IdentVivo(s.FaldaIdent[r])) continue;
    ++t.Falde;
    t.Area += s.FaldaAreaDiBase[r], t.Sterro += s.FaldaVolumeSterro[r], t.Riporto += s.FaldaVolumeRiporto[r];
  }
  return t;
}

namespace {

constexpr const char* kMillimetro = "#########0.000";

std::string RigaCsv(const std::string& primo, double area, double sterro, double riporto) {
  return primo + "," + FormatoMaschera(area, kMillimetro) + "," + FormatoMaschera(sterro, kMillimetro) + "," +
         FormatoMaschera(riporto, kMillimetro) + "\r\n";
}

constexpr const char* kDialogo = "VolumiFalde";

void MostraTotali(Sessione& s) {
  const TotaliVolumi t = SommaVolumi(s);
  AggiornaCampo(s, kDialogo, "Falde", std::to_string(t.Falde));
  AggiornaCampo(s, kDialogo, "Area", FormatoMaschera(t.Area, "#########0.00"));
  AggiornaCampo(s, kDialogo, "Sterro", FormatoMaschera(t.Sterro, "#########0.00"));
  AggiornaCampo(s, kDialogo, "Riporto", FormatoMaschera(t.Riporto, "#########0.00"));
}

void Ricalcola(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, kDialogo);
  if (!d) return;
  s.QuotaRiferimento = d->Numero("QuotaRiferimento");
  AggiornaFalde(s);
  MostraTotali(s);
  // The labels of the facets show the new values.
  FineModifica(s);
}

void SalvaCsv(Sessione& s) {
  const std::string proposto = s.NomeOriginale + "_volumi.csv";
  const auto scelto =
      s.Ui->ScegliFile(true, "Salva Volumi", "File CSV(*.CSV)|*.CSV|", Cartella(proposto), Foglia(proposto));
  if (!scelto || scelto->empty()) return;
  s.RoutineCorrente = "SalvaVolumi";
  if (Protetto(s, [&] { ScriviTesto(*scelto, CsvVolumi(s)); }))
    s.Ui->Messaggio(*scelto + "\nCorrettamente creato!", "Salva Volumi", Icona::Informazione);
}

}  // namespace

std::string CsvVolumi(const Sessione& s) {
  std::string testo = "Falda,Area,Sterro,Riporto\r\n";
  for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotFalde]); ++r) {
    if (!IdentVivo(s.FaldaIdent[r])) continue;
    testo += RigaCsv(std::to_string(r + 1), s.FaldaAreaDiBase[r], s.FaldaVolumeSterro[r], s.FaldaVolumeRiporto[r]);
  }
  const TotaliVolumi t = SommaVolumi(s);
  return testo + RigaCsv("Totale", t.Area, t.Sterro, t.Riporto);
}

bool ApriVolumiFalde(Sessione& s) {
  if (!FaldeAttive(s)) return false;
  Dialogo d;
  d.Nome = kDialogo;
  d.Titolo = "Volumi";
  d.AggiungiCampo("QuotaRiferimento", "Quota di riferimento :", FormaSemplice(s.QuotaRiferimento));
  d.AggiungiDato("Falde", "Falde :", "").AggiungiDato("Area", "Area (m2) :", "");
  d.AggiungiDato("Sterro", "Sterro (m3) :", "").AggiungiDato("Riporto", "Riporto (m3) :", "");
  d.AggiungiBottone("Ricalcola", "Ricalcola", Ricalcola);
  d.AggiungiBottone("SalvaCsv", "Salva CSV", SalvaCsv);
  d.AggiungiBottone("Chiudi", "Chiudi", [](Sessione& x) { ChiudiDialogo(x, kDialogo); });
  d.BottoneEsc = "Chiudi";
  ApriDialogo(s, std::move(d));
  MostraTotali(s);
  return true;
}

}  // namespace varena
