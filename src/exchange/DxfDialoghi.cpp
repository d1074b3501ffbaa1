// The dialogs of the DXF import and export. Each check of the legacy forms is a field of
// "1" or "0"; the layers of the import are a field of names joined by "|", a character no
// layer name may hold.
#include "exchange/DxfDialoghi.h"

#include <algorithm>

#include "core/Dialoghi.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "exchange/DxfLettura.h"
#include "exchange/DxfScrittura.h"
#include "exchange/DxfTestiInPunto.h"
#include "store/Salvataggio.h"
#include "store/Undo.h"
#include "view/Zoom.h"

namespace varena {

namespace {

constexpr const char* kTitoloImporta = "Importa Da DXF ";
constexpr const char* kCheckImporta[NumeroCheckDxf] = {
    "Polilinee (POLYLINE)", "Linee     (LINE)",  "Punti     (POINT)",  "Testi     (TEXT)",
    "Cerchi    (CIRCLE)",   "Archi     (ARC)",   "Numera automaticamente i Punti a partire da:",
    "Quota da Elevazione [39]", "Attiva il riconoscimento automatico dei Nomi, Quote,Descrizioni"};

std::string Uno(bool b) { return b ? "1" : "0"; }
bool Acceso(const Dialogo& d, const std::string& campo) { return Val(d.Valore(campo)) != 0; }

std::string Unisci(const std::vector<std::string>& v) {
  std::string r;
  for (const std::string& p : v) r += (r.empty() ? "" : "|") + p;
  return r;
}

// The layers of the file not chosen now become the chosen ones.
void InvertiPiani(Sessione& s) {
  Dialogo* d = TrovaDialogo(s, "FormDaDxf");
  if (!d) return;
  const std::vector<std::string> scelti = Dividi(d->Valore("Piani"), '|');
  std::vector<std::string> altri;
  for (const std::string& p : d->Campo("Piani")->Scelte)
    if (std::find(scelti.begin(), scelti.end(), p) == scelti.end()) altri.push_back(p);
  AggiornaCampo(s, "FormDaDxf", "Piani", Unisci(altri));
}

void CaricaDaDialogo(Sessione& s) {
  Dialogo* d = TrovaDialogo(s, "FormDaDxf");
  if (!d) return;
  OpzioniDxfIn o;
  for (size_t i = 0; i < o.Check.size(); ++i) o.Check[i] = Acceso(*d, "Check" + std::to_string(i));
  o.Piani = Dividi(d->Valore("Piani"), '|');
  if (d->Valore("Piani").empty()) o.Piani = std::vector<std::string>{};
  o.PrimoNome = Rifila(d->Valore("Primo"));
  o.Passo = d->Numero("Passo");
  ScriviCheckDxf(s, o.Check);
  s.RoutineCorrente = "CaricaDXF";
  const auto byte = LeggiByte(PercorsoFileLavoroDxf(s));
  ChiudiDialogo(s, "FormDaDxf");
  if (!byte) return;
  const FileDxfRidotto f = LeggiFileLavoroDxf(*byte);
  // The bar of the desktop follows the passes.
  const EsitoDxfIn e = CaricaEntitaDxf(s, f, o, [&](int64_t fatto, int64_t totale) {
    s.Ui->Progresso(fatto, totale);
    return !s.Ui->Interrotto();
  });
  if (e.Interrotto) {
    s.Ui->Progresso(0, 0);
    return;
  }
  RicostruisciPianiDxf(s);
  if (o.Check[DxfTestiInPunto])
    ApriConvertiAutomatico(s);
  else
    TuttoTutto(s);
  VR_SalvaUndo(s);
}

}  // namespace

void CaricaDXF(Sessione& s) {
  s.RoutineCorrente = "CaricaDXF";
  const auto scelto = s.Ui->ScegliFile(false, kTitoloImporta, "File DXF       (*.DXF)|*.DXF|", "", "");
  if (!scelto || scelto->empty()) return;
  const auto byte = LeggiByte(*scelto);
  std::string errore = "File DXF non trovato";
  std::optional<FileDxfRidotto> f;
  if (byte) f = RiduciDxf(*byte, errore);
  if (!f) {
    s.Ui->Messaggio(errore + ":\n" + *scelto, kTitoloImporta, Icona::Avviso);
    return;
  }
  if (!Protetto(s, [&] {
        NuovaCartella(s.CartellaProgramma + "/temp");
        ScriviByte(PercorsoFileLavoroDxf(s), f->Testo);
      }))
    return;
  const auto check = LeggiCheckDxf(s);
  Dialogo d;
  d.Nome = "FormDaDxf";
  d.Titolo = kTitoloImporta;
  for (size_t i = 0; i < check.size(); ++i)
    d.AggiungiCampo("Check" + std::to_string(i), std::string(kCheckImporta[i]) + " (1/0)", Uno(check[i]));
  d.AggiungiCampo("Primo", "Primo numero :", "1").AggiungiCampo("Passo", "Incremento :", "1");
  const std::vector<std::string> piani = PianiDxf(*f);
  d.AggiungiCampo("Piani", "Piani (separati da |) :", Unisci(piani));
  d.Campo("Piani")->Scelte = piani;
  d.AggiungiBottone("Carica", "Carica", CaricaDaDialogo);
  d.AggiungiBottone("Chiudi", "Chiudi", [](Sessione& x) {
    // The choices are kept whichever way the dialog closes.
    if (const Dialogo* g = TrovaDialogo(x, "FormDaDxf")) {
      std::array<bool, NumeroCheckDxf> c{};
      for (size_t i = 0; i < c.size(); ++i) c[i] = Acceso(*g, "Check" + std::to_string(i));
      ScriviCheckDxf(x, c);
    }
    ChiudiDialogo(x, "FormDaDxf");
  });
  d.AggiungiBottone("Inverti", "Inverti Selezione", InvertiPiani);
  d.AggiungiBottone("Tutti", "Seleziona Tutti", [](Sessione& x) {
    if (Dialogo* g = TrovaDialogo(x, "FormDaDxf")) AggiornaCampo(x, "FormDaDxf", "Piani", Unisci(g->Campo("Piani")->Scelte));
  });
  d.BottoneEsc = "Chiudi";
  ApriDialogo(s, std::move(d));
  if (f->Troncato)
    s.Ui->Messaggio("Il file DXF è incompleto (manca la fine della sezione ENTITIES): "
                    "si caricano le entità lette fino al danno\n" + *scelto,
                    kTitoloImporta, Icona::Avviso);
}

bool ApriConvertiAutomatico(Sessione& s) {
  const OpzioniTestiInPunto o = LeggiOpzioniTestiInPunto(s);
  Dialogo d;
  d.Nome = "FormConvertiAutomatico";
  d.Titolo = "Testo in Punto Automatico";
  d.AggiungiCampo("Nodi", "Piano dei Punti :", o.Nodi)
      .AggiungiCampo("Nomi", "Piano dei Nomi :", o.Nomi)
      .AggiungiCampo("Quote", "Piano delle Quote :", o.Quote)
      .AggiungiCampo("Note", "Piano delle Descrizioni :", o.Note)
      .AggiungiCampo("Check0", "Nomi (1/0)", Uno(o.ConNomi))
      .AggiungiCampo("Check1", "Quote e Descrizioni (1/0)", Uno(o.ConQuoteENote))
      .AggiungiCampo("Check3", "Elimina Linee Senza Punti Estremi (1/0)", Uno(o.EliminaLinee));
  for (const char* c : {"Nodi", "Nomi", "Quote", "Note"})
    d.Campo(c)->Scelte = {"PUNTI", "NOMI", "QUOTE", "DESCRIZIONI", "HP"};
  // The layers the export writes with its standard names.
  d.AggiungiBottone("Standard", "Piani Standard", [](Sessione& x) {
    AggiornaCampo(x, "FormConvertiAutomatico", "Nodi", "PUNTI");
    AggiornaCampo(x, "FormConvertiAutomatico", "Nomi", "NOMI");
    AggiornaCampo(x, "FormConvertiAutomatico", "Quote", "QUOTE");
    AggiornaCampo(x, "FormConvertiAutomatico", "Note", "DESCRIZIONI");
  });
  d.AggiungiBottone("OK", "OK", [](Sessione& x) {
    const Dialogo* g = TrovaDialogo(x, "FormConvertiAutomatico");
    if (!g) return;
    OpzioniTestiInPunto p;
    p.Nodi = g->Valore("Nodi"), p.Nomi = g->Valore("Nomi"), p.Quote = g->Valore("Quote"), p.Note = g->Valore("Note");
    p.ConNomi = Acceso(*g, "Check0"), p.ConQuoteENote = Acceso(*g, "Check1"), p.EliminaLinee = Acceso(*g, "Check3");
    ScriviOpzioniTestiInPunto(x, p);
    ChiudiDialogo(x, "FormConvertiAutomatico");
    ElaboraTestiInPunto(x, p);
    TuttoTutto(x);
    VR_SalvaUndo(x);
  });
  d.AggiungiBottone("Annulla", "Annulla", [](Sessione& x) { ChiudiDialogo(x, "FormConvertiAutomatico"); });
  d.BottoneEsc = "Annulla";
  ApriDialogo(s, std::move(d));
  return true;
}

namespace {

struct CampoEsporta {
  const char* nome;
  const char* etichetta;
  bool OpzioniDxfOut::*campo;
};
constexpr CampoEsporta kCampiEsporta[] = {
    {"CURVE", "Curve Livello", &OpzioniDxfOut::Curve},
    {"DESCRIZIONI-PIANI", "Assegna Descrizione a Piani (Solo Punti)", &OpzioniDxfOut::DescrizioniPiani},
    {"DESCRIZIONI", "Descrizioni (Punto)", &OpzioniDxfOut::Descrizioni},
    {"QUOTE", "Quote (Punto)", &OpzioniDxfOut::Quote},
    {"SIMBOLI", "Simboli (Punto)", &OpzioniDxfOut::Simboli},
    {"NOMI", "Nomi (Punto)", &OpzioniDxfOut::Nomi},
    {"SETUP", "Nomi - Descrizioni - Quote [Coincidenti]", &OpzioniDxfOut::Coincidenti},
    {"PIANI_SEMPLIFICATI",
     "Usa Piani standard per riconoscimento delle entità [ PUNTI - NOMI - QUOTE - DESCRIZIONI - HP - RC - NC - RT ]",
     &OpzioniDxfOut::PianiSemplificati},
    {"PUNTI_PLANIMETRICI", "Escludi la Quota dei Punti Planimetrici", &OpzioniDxfOut::PuntiPlanimetrici},
    {"ESCLUDI_SIMBOLI", "Escludi i Simboli dei Punti", &OpzioniDxfOut::EscludiSimboli},
    {"TRED", "3 D (Tridimensionale)", &OpzioniDxfOut::TreD},
    {"LINEE_SENZA_QUOTA", "Linee senza Quota", &OpzioniDxfOut::LineeSenzaQuota},
    {"ASSEGNA_COLORE", "Assegna Piani Colore (Linee, Cerchi, Archi, Testi)", &OpzioniDxfOut::AssegnaColore},
    {"ASSEGNA_TRATTEGGIO", "Assegna Tratteggio ai Piani (Linee, Cerchi, Archi)", &OpzioniDxfOut::AssegnaTratteggio},
};
constexpr const char* kTesti1[10] = {"Nomi", "Simboli", "Quote", "Descrizioni", "Curve Livello", "Sezioni/Profili",
                                     "Falde Graduate", "Linee, Cerchi, Archi, Testi", "Falde Numerate",
                                     "Altezza caratteri in CAD"};

OpzioniDxfOut OpzioniDaDialogo(const Dialogo& d) {
  OpzioniDxfOut o;
  for (const CampoEsporta& c : kCampiEsporta) o.*c.campo = Acceso(d, c.nome);
  for (size_t k = 0; k < 10; ++k) o.Text1[k] = d.Valore("Text1_" + std::to_string(k));
  o.Font = Rifila(d.Valore("Font")) == "Nessun Font" ? std::string() : Rifila(d.Valore("Font"));
  o.Percorso = static_cast<int>(d.Numero("Percorso"));
  o.Riservato = d.Valore("Riservato");
  o.FileName = d.Valore("FILENAME");
  return o;
}

void EsportaDaDialogo(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, "EsportaDxf");
  if (!d) return;
  OpzioniDxfOut o = OpzioniDaDialogo(*d);
  const std::string proposto = PercorsoProposto(s, o);
  const auto scelto = s.Ui->ScegliFile(true, "Esporta DXF", "File Interscambio(*.DXF)|*.DXF|", Cartella(proposto),
                                       Foglia(proposto));
  if (!scelto || scelto->empty()) return;
  o.FileName = *scelto;
  if (EsisteFile(*scelto) &&
      s.Ui->Domanda("Il File\n" + *scelto + "\nè esistente!\nSostituire con il nuovo?", "File Esistente!!",
                    Bottoni::SiNo, Icona::Domanda, Risposta::No) != Risposta::Si)
    return;
  ScriviOpzioniDxfOut(s, o);
  ChiudiDialogo(s, "EsportaDxf");
  if (!DxfOut(s, o, *scelto)) return;
  if (s.Ui->Domanda("Aprire il file DXF ?", "Apertura file DXF ", Bottoni::SiNo, Icona::Domanda, Risposta::No) ==
      Risposta::Si)
    ApriDxF(s, *scelto);
}

}  // namespace

std::string PercorsoProposto(const Sessione& s, const OpzioniDxfOut& o) {
  if (o.Percorso == 4) return s.Imp.Cartella_Default + "/" + Foglia(s.NomeOriginale) + ".DXF";
  if (o.Percorso == 5) return o.FileName;
  if (o.Percorso == 3 && LavoroNuovo(s)) {
    const std::vector<std::string> righe = RigheFile(s.CartellaLavoro + "Lavoro/default");
    if (!righe.empty() && !Rifila(righe[0]).empty()) return Sostituisci(Maiuscolo(Rifila(righe[0])), ".ZRL", ".DXF");
  }
  return s.NomeOriginale + ".DXF";
}

std::vector<std::string> ElencoFont(Sessione& s) {
  const std::string file = s.CartellaProgramma + "/elencofont.ini";
  std::vector<std::string> font;
  for (const std::string& r : RigheFile(file))
    if (!Rifila(r).empty()) font.push_back(Rifila(r));
  if (!font.empty() || EsisteFile(file)) return font;
  font = s.Ui->FontDiSistema();
  std::string t;
  for (const std::string& f : font) t += f + "\r\n";
  if (!font.empty() && !s.SolaLettura) ScriviTesto(file, t);
  return font;
}

bool ApriEsportaDxf(Sessione& s) {
  const OpzioniDxfOut o = LeggiOpzioniDxfOut(s);
  Dialogo d;
  d.Nome = "EsportaDxf";
  d.Titolo = "Esporta DXF";
  for (const CampoEsporta& c : kCampiEsporta) d.AggiungiCampo(c.nome, std::string(c.etichetta) + " (1/0)", Uno(o.*c.campo));
  d.AggiungiCampo("Font", "Font :", o.Font.empty() ? std::string("Nessun Font") : o.Font);
  d.Campo("Font")->Scelte = ElencoFont(s);
  d.Campo("Font")->Scelte.insert(d.Campo("Font")->Scelte.begin(), "Nessun Font");
  for (size_t k = 0; k < 10; ++k) d.AggiungiCampo("Text1_" + std::to_string(k), std::string(kTesti1[k]) + " :", o.Text1[k]);
  d.AggiungiCampo("Percorso",
                  "Percorso (3 Usa Percorso Origine, 4 Usa Cartella Default, 5 Usa Ultimo Indirizzo) :",
                  std::to_string(o.Percorso));
  // Kept as read, for the file written back.
  d.AggiungiDato("Riservato", "", o.Riservato).AggiungiDato("FILENAME", "Ultimo file :", o.FileName);
  d.AggiungiBottone("OK", "OK", EsportaDaDialogo);
  d.AggiungiBottone("Annulla", "Annulla", [](Sessione& x) { ChiudiDialogo(x, "EsportaDxf"); });
  d.BottoneEsc = "Annulla";
  ApriDialogo(s, std::move(d));
  return true;
}

}  // namespace varena
