// `Sezioni` and `EditaPunti`. Each field of the layout is one row of a table that knows how
// to show it and how to read it back, so that the dialog, its files and its test share one
// list.
#include "sections/DialoghiSezioni.h"

#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "commands/AiutiDisegno.h"
#include "commands/Comandi.h"
#include "core/Dialoghi.h"
#include "core/Errori.h"
#include "core/ImpostazioniUtente.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "sections/ComandiSezioni.h"
#include "sections/FileSezioni.h"
#include "snap/Vicino.h"

namespace varena {

namespace {

constexpr const char* kSezioni = "Sezioni";
constexpr const char* kEditaPunti = "EditaPunti";
constexpr const char* kFiltro = "Configurazione Sezioni (*.INI)|*.INI|";

template <class T>
std::string Mostra(const T& v) {
  if constexpr (std::is_same_v<T, std::string>)
    return v;
  else if constexpr (std::is_floating_point_v<T>)
    return FormaSemplice(v);
  else
    return std::to_string(v);
}

// What the user typed, a comma read as a point.
template <class T>
void Prendi(T& v, const std::string& t) {
  if constexpr (std::is_same_v<T, std::string>)
    v = Rifila(t);
  else if constexpr (std::is_floating_point_v<T>)
    v = Val(VirgolaInPunto(t));
  else if constexpr (sizeof(T) == 2)
    v = InteroCorto(Val(VirgolaInPunto(t)));
  else
    v = InteroLungo(Val(VirgolaInPunto(t)));
}

// The options of the dialog that are the user's settings, not the section's: a switch each.
// They share one row of the table; their labels tell them apart.
struct Opzione {
  const char* Campo;
  const char* Etichetta;
  const char* Chiave;
};
constexpr Opzione kOpzioni[] = {{"Opzioni_Valore", "Rinumera Punti", kRinumeraPunti},
                                {"Opzioni_Valore2", "Genera Punti", kGeneraPunti},
                                {"Opzioni_Disegna", "Genera Linee", kGeneraLinee}};

struct CampoSezione {
  std::string Nome, Etichetta;
  std::function<std::string(const Sezione&)> Leggi;
  std::function<void(Sezione&, const std::string&)> Scrivi;
};

// A field reached from the section through a chain of members.
template <class Via>
CampoSezione Campo(std::string nome, std::string etichetta, Via via) {
  return {std::move(nome), std::move(etichetta), [via](const Sezione& z) { return Mostra(via(const_cast<Sezione&>(z))); },
          [via](Sezione& z, const std::string& t) { Prendi(via(z), t); }};
}

template <class T>
CampoSezione Di(std::string nome, std::string etichetta, T ConfigurazioneSezione::*m) {
  return Campo(std::move(nome), std::move(etichetta), [m](Sezione& z) -> T& { return z.Cfg.*m; });
}

template <class G, class T>
CampoSezione Di(std::string nome, std::string etichetta, G ConfigurazioneSezione::*g, T G::*m) {
  return Campo(std::move(nome), std::move(etichetta), [g, m](Sezione& z) -> T& { return z.Cfg.*g.*m; });
}

// The values of one group, as many as it has in the file. Fields are named row and
// column, "Gruppo_Valore", so that the form lays them out as a table: a row a group.
void Gruppo(std::vector<CampoSezione>& c, const std::string& nome, const std::string& titolo,
            GruppoSezione ConfigurazioneSezione::*g, bool riga) {
  using GS = GruppoSezione;
  c.push_back(Di(nome + "_Disegna", titolo + " - Disegna", g, &GS::Disegna));
  if (riga) c.push_back(Di(nome + "_Fincatura", titolo + " - Altezza Fincatura", g, &GS::AltezzaFincatura));
  c.push_back(Di(nome + "_Testo", titolo + " - Altezza Testo", g, &GS::AltezzaTesto));
  c.push_back(Di(nome + "_Colore", titolo + " - Colore", g, &GS::Colore));
  if (!riga) return;
  c.push_back(Di(nome + "_Titolo", titolo + " - Titolo", g, &GS::Titolo));
  c.push_back(Di(nome + "_Verticale", titolo + " - Orientamento Verticale", g, &GS::OrientamentoVerticale));
}

void Blocco(std::vector<CampoSezione>& c, const std::string& nome, const std::string& titolo,
            BloccoCornice ConfigurazioneSezione::*b) {
  c.push_back(Di(nome + "_Disegna", titolo + " - Disegna", b, &BloccoCornice::Disegna));
  c.push_back(Di(nome + "_Testo", titolo + " - Altezza Testo", b, &BloccoCornice::AltezzaTesto));
  c.push_back(Di(nome + "_Colore", titolo + " - Colore", b, &BloccoCornice::Colore));
}

// The fields of the section itself, not of its layout.
bool DellaSezione(const std::string& nome) { return nome.starts_with("Sezione_"); }

const std::vector<CampoSezione>& CampiSezione() {
  using C = ConfigurazioneSezione;
  using GS = GruppoSezione;
  static const std::vector<CampoSezione> campi = [] {
    std::vector<CampoSezione> c;
    c.push_back(Campo("Sezione_Titolo", "Indice Sezione", [](Sezione& z) -> std::string& { return z.IndiceSezione; }));
    c.push_back(Campo("Sezione_Valore", "Origine X", [](Sezione& z) -> double& { return z.OrigineX; }));
    c.push_back(Campo("Sezione_Valore2", "Origine Y", [](Sezione& z) -> double& { return z.OrigineY; }));
    c.push_back(Di("Scale_Valore", "Scale Sezioni - Lunghezze 1:", &C::ScalaLunghezze));
    c.push_back(Di("Scale_Valore2", "Scale Sezioni - Altezze 1:", &C::ScalaAltezze));
    c.push_back(Di("Piani_Titolo", "Nome Base dei Piani", &C::NomeBase));
    c.push_back(Di("Terreno_Testo", "Profilo del Terreno - Altezza Testo", &C::Terreno, &GS::AltezzaTesto));
    c.push_back(Di("Terreno_Colore", "Profilo del Terreno - Colore", &C::Terreno, &GS::Colore));
    c.push_back(Di("QuoteRosse_Disegna", "Quote Rosse", &C::QuoteRosse));
    c.push_back(Di("QuoteRosse_Colore", "Quote Rosse - Colore", &C::ColoreQuoteRosse));
    c.push_back(Di("Verticali_Disegna", "Linee Verticali - Disegna", &C::Verticali, &GS::Disegna));
    c.push_back(Di("Verticali_Colore", "Linee Verticali - Colore", &C::Verticali, &GS::Colore));
    c.push_back(Di("QuotaRif_Colore", "Linea Quota Riferimento - Colore", &C::ColoreQuotaRiferimento));
    c.push_back(Di("QuotaRif_Valore", "Quota Riferimento", &C::QuotaRiferimento));
    c.push_back(Di("Progetto_Disegna", "Profilo di Progetto - Disegna", &C::ProfiloProgetto));
    c.push_back(Di("Progetto_Colore", "Profilo di Progetto - Colore", &C::ColoreProgetto));
    c.push_back(Di("Progetto_Valore", "Disegna Quotatura", &C::DisegnaQuotatura));
    c.push_back(Di("Progetto_Valore2", "Testo Sterro/Riporto", &C::TestoSterroRiporto));
    c.push_back(Di("Box_Disegna", "Blocco Descrizioni", &C::BloccoDescrizioni));
    c.push_back(Di("Box_Valore", "Larghezza Box", &C::LarghezzaBox));
    Gruppo(c, "NomiPunti", "Nomi Punti", &C::NomiPunti, true);
    c.push_back(Di("NomiPunti_Valore", "Usa Nomi Punti Ordinati", &C::NomiPuntiOrdinati));
    Gruppo(c, "QuoteTerreno", "Quote Terreno", &C::QuoteTerreno, true);
    Gruppo(c, "QuoteProgetto", "Quote Progetto", &C::QuoteProgetto, true);
    Gruppo(c, "Progressive", "Distanze Progressive", &C::DistanzeProgressive, true);
    c.push_back(Di("Progressive_Valore", "Origine Quotatura", &C::OrigineQuotatura));
    Gruppo(c, "Parziali", "Distanze Parziali", &C::DistanzeParziali, true);
    c.push_back(Di("Parziali_Valore", "Distanze Parziali - Decimali", &C::DecimaliParziali));
    Gruppo(c, "Inclinate", "Distanze Inclinate / Pendenza", &C::DistanzeInclinate, true);
    c.push_back(Di("Inclinate_Valore", "Mostra Pendenza", &C::MostraPendenza));
    c.push_back(Di("Inclinate_Valore2", "Visualizza Pendenza in Percentuale", &C::PendenzaPercentuale));
    c.push_back(Di("Invaso_Disegna", "Linea Quota Di Invaso - Disegna", &C::LineaInvaso, &GS::Disegna));
    c.push_back(Di("Invaso_Colore", "Linea Quota Di Invaso - Colore", &C::LineaInvaso, &GS::Colore));
    c.push_back(Di("Invaso_Valore", "Quota Di Invaso", &C::QuotaInvaso));
    Blocco(c, "NomeSezione", "Nome/Numero Sezione", &C::NomeSezione);
    c.push_back(Di("NomeSezione_Valore", "Centra Nome Sezione", &C::CentraNomeSezione));
    Blocco(c, "NumeroSezione", "Sezione N°", &C::NumeroSezione);
    Blocco(c, "DistPrecedente", "Distanza Da Precedente", &C::DistanzaPrecedente);
    Blocco(c, "BloccoQuota", "Quota Riferimento", &C::BloccoQuotaRiferimento);
    return c;
  }();
  return campi;
}

// The fields of the dialog written into `z`, over what it holds.
Sezione DalDialogo(const Dialogo& d, Sezione z) {
  for (const CampoSezione& c : CampiSezione())
    if (d.Campo(c.Nome)) c.Scrivi(z, d.Valore(c.Nome));
  return z;
}

// A layout read from a file shown in the dialog; the section's own values stay as typed.
void NelDialogo(Sessione& s, const ConfigurazioneSezione& cfg) {
  Sezione z;
  z.Cfg = cfg;
  for (const CampoSezione& c : CampiSezione())
    if (!DellaSezione(c.Nome)) AggiornaCampo(s, kSezioni, c.Nome, c.Leggi(z));
}

// A button of a dialog: its work protected, on the dialog still open.
template <class Fai>
std::function<void(Sessione&)> Azione(const char* nome, Fai fai) {
  return [nome, fai](Sessione& x) {
    x.RoutineCorrente = nome;
    Protetto(x, [&] {
      if (const Dialogo* d = TrovaDialogo(x, nome)) fai(x, *d);
    });
  };
}

void SalvaConNome(Sessione& s, const Dialogo& d) {
  const auto scelto = s.Ui->ScegliFile(true, "Salva Configurazione", kFiltro, "", "");
  if (!scelto || !SalvaConfigurazione(s, *scelto, DalDialogo(d, {}).Cfg)) return;
  s.Ui->Messaggio("La configurazione \n" + *scelto + "\n è stata salvata su disco con successo.", "Sezioni",
                  Icona::Informazione);
}

void CaricaDaFile(Sessione& s, const std::string& percorso, const char* conferma) {
  s.UltimoErrore.clear();
  const ConfigurazioneSezione c = CaricaConfigurazione(s, percorso);
  if (!s.UltimoErrore.empty()) return;
  NelDialogo(s, c);
  if (conferma) s.Ui->Messaggio(conferma, "Sezioni", Icona::Informazione);
}

// --- EditaPunti ---------------------------------------------------------------------------

// The section being edited and the station shown, between the presses of the dialog.
struct Modifica {
  int32_t Riga;
  Sezione Z;
  size_t Corrente = 0;
};

constexpr const char* kCampiStazione[] = {"Nome", "X", "Y", "QuotaTerreno", "QuotaProgetto"};

void MostraStazione(Sessione& s, const Modifica& m) {
  const StazioneSezione& p = m.Z.Stazioni[m.Corrente];
  const std::string valori[] = {p.Nome, FormaSemplice(p.X), FormaSemplice(p.Y), FormaSemplice(p.QuotaTerreno),
                                FormaSemplice(p.QuotaProgetto)};
  for (size_t i = 0; i < std::size(kCampiStazione); ++i) AggiornaCampo(s, kEditaPunti, kCampiStazione[i], valori[i]);
  AggiornaCampo(s, kEditaPunti, "Punto",
                std::to_string(m.Corrente + 1) + " / " + std::to_string(m.Z.Stazioni.size()));
}

void LeggiStazione(const Dialogo& d, Modifica& m) {
  StazioneSezione& p = m.Z.Stazioni[m.Corrente];
  p.Nome = Rifila(d.Valore("Nome"));
  Prendi(p.X, d.Valore("X"));
  Prendi(p.Y, d.Valore("Y"));
  Prendi(p.QuotaTerreno, d.Valore("QuotaTerreno"));
  Prendi(p.QuotaProgetto, d.Valore("QuotaProgetto"));
}

// A press that first keeps what was typed for the station shown.
template <class Fai>
std::function<void(Sessione&)> SuStazione(std::shared_ptr<Modifica> m, Fai fai) {
  return Azione(kEditaPunti, [m, fai](Sessione& x, const Dialogo& d) {
    LeggiStazione(d, *m);
    fai(x, *m);
    if (DialogoAperto(x, kEditaPunti)) MostraStazione(x, *m);
  });
}

}  // namespace

void ApriDialogoSezioni(Sessione& s, int32_t riga) {
  if (!RigaViva(s, SlotSezioni, riga)) return;
  const Sezione& z = s.SezioneDati[static_cast<size_t>(riga)];
  Dialogo d;
  d.Nome = kSezioni;
  d.Titolo = "Configura Sezioni / Profili";
  d.DiLavoro = true;
  for (const CampoSezione& c : CampiSezione()) d.AggiungiCampo(c.Nome, c.Etichetta, c.Leggi(z));
  for (const Opzione& o : kOpzioni) d.AggiungiCampo(o.Campo, o.Etichetta, ImpostazioneSezioni(s, o.Chiave) ? "1" : "0");
  d.AggiungiBottone("OK", "OK", Azione(kSezioni, [riga](Sessione& x, const Dialogo& dd) {
                      for (const Opzione& o : kOpzioni)
                        ScriviImpostazioneUtente(x, "SEZIONI", o.Chiave, Rifila(dd.Valore(o.Campo)) == "1" ? "1" : "0");
                      if (!RigaViva(x, SlotSezioni, riga)) return;
                      Sezione nuova = DalDialogo(dd, ScompattaSezione(x, riga));
                      ChiudiDialogo(x, kSezioni);
                      CompattaSezione(x, riga, std::move(nuova));
                    }));
  d.AggiungiBottone("SalvaDefault", "Salva Default", Azione(kSezioni, [](Sessione& x, const Dialogo& dd) {
                      if (SalvaConfigurazione(x, PercorsoConfigurazioneDefault(x), DalDialogo(dd, {}).Cfg))
                        x.Ui->Messaggio("La configurazione di default è stata salvata su disco.", "Sezioni",
                                        Icona::Informazione);
                    }));
  d.AggiungiBottone("CaricaDefault", "Carica Default", Azione(kSezioni, [](Sessione& x, const Dialogo&) {
                      CaricaDaFile(x, PercorsoConfigurazioneDefault(x),
                                   "La configurazione di default è stata caricata con successo.");
                    }));
  d.AggiungiBottone("CaricaConfigurazione", "Carica Configurazione", Azione(kSezioni, [](Sessione& x, const Dialogo&) {
                      const auto scelto = x.Ui->ScegliFile(false, "Carica Configurazione", kFiltro, "", "");
                      if (scelto) CaricaDaFile(x, *scelto, nullptr);
                    }));
  d.AggiungiBottone("mnuSalvaConfigurazioneConNome", "Salva Configurazione con Nome", Azione(kSezioni, SalvaConNome));
  d.AggiungiBottone("Annulla", "Annulla", [](Sessione& x) { ChiudiDialogo(x, kSezioni); });
  d.BottoneEsc = "Annulla";
  ApriDialogo(s, std::move(d));
}

void ApriEditaPunti(Sessione& s, int32_t riga) {
  if (!RigaViva(s, SlotSezioni, riga) || s.SezioneDati[static_cast<size_t>(riga)].Stazioni.empty()) return;
  auto m = std::make_shared<Modifica>(Modifica{riga, ScompattaSezione(s, riga)});
  Dialogo d;
  d.Nome = kEditaPunti;
  d.Titolo = "Punti Sezione " + m->Z.IndiceSezione;
  // It holds a row number: whatever may reload the tables (another command, an undo)
  // closes it first.
  d.DiLavoro = true;
  d.AggiungiDato("Punto", "Punto", "");
  d.AggiungiCampo("Nome", "Nome");
  d.AggiungiCampo("X", "Est");
  d.AggiungiCampo("Y", "Nord");
  d.AggiungiCampo("QuotaTerreno", "Quota Terreno");
  d.AggiungiCampo("QuotaProgetto", "Quota Progetto");
  d.AggiungiBottone("Precedente", "<", SuStazione(m, [](Sessione&, Modifica& x) {
                      if (x.Corrente > 0) --x.Corrente;
                    }));
  d.AggiungiBottone("Successivo", ">", SuStazione(m, [](Sessione&, Modifica& x) {
                      if (x.Corrente + 1 < x.Z.Stazioni.size()) ++x.Corrente;
                    }));
  // A new station after the one shown, a copy of it to be corrected.
  d.AggiungiBottone("Inserisci", "Inserisci", SuStazione(m, [](Sessione& x, Modifica& e) {
                      if (e.Z.Stazioni.size() >= static_cast<size_t>(kMassimoPuntiSezione)) {
                        x.Ui->Messaggio("Una sezione ha al massimo 500 punti!", "Impossibile continuare", Icona::Avviso);
                        return;
                      }
                      const StazioneSezione copia = e.Z.Stazioni[e.Corrente];
                      e.Z.Stazioni.insert(e.Z.Stazioni.begin() + static_cast<std::ptrdiff_t>(++e.Corrente), copia);
                    }));
  // A section keeps at least two stations, or it would no longer be drawn.
  d.AggiungiBottone("Elimina", "Elimina", SuStazione(m, [](Sessione&, Modifica& e) {
                      if (e.Z.Stazioni.size() <= 2) return;
                      e.Z.Stazioni.erase(e.Z.Stazioni.begin() + static_cast<std::ptrdiff_t>(e.Corrente));
                      if (e.Corrente == e.Z.Stazioni.size()) --e.Corrente;
                    }));
  d.AggiungiBottone("OK", "OK", SuStazione(m, [](Sessione& x, Modifica& e) {
                      ChiudiDialogo(x, kEditaPunti);
                      if (RigaViva(x, SlotSezioni, e.Riga)) CompattaSezione(x, e.Riga, e.Z);
                    }));
  d.AggiungiBottone("Annulla", "Annulla", [](Sessione& x) { ChiudiDialogo(x, kEditaPunti); });
  d.BottoneEsc = "Annulla";
  ApriDialogo(s, std::move(d));
  MostraStazione(s, *m);
}

void subConfiguraSezione(Sessione& s) {
  const int32_t riga = SezioneCliccata(s);
  if (riga >= 0) ApriDialogoSezioni(s, riga);
}

void subEditaPuntiSezione(Sessione& s) {
  const int32_t riga = SezioneCliccata(s);
  if (riga >= 0) ApriEditaPunti(s, riga);
}

}  // namespace varena
