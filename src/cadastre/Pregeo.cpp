// The hand-offs to Pregeo and the sibling tools, and the files they leave for us.
#include "cadastre/Pregeo.h"

#include <map>

#include "cadastre/ContornoSette.h"
#include "cadastre/Estratto.h"
#include "cadastre/Libretto.h"
#include "cadastre/LibrettoDisegno.h"
#include "commands/Comandi.h"
#include "commands/Costruttori.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Porte.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "selection/Selezione.h"
#include "store/Carica.h"
#include "store/Provvisorio.h"
#include "store/Salvataggio.h"
#include "store/Undo.h"
#include "view/Rigenera.h"
#include "view/Zoom.h"

namespace varena {

namespace {

constexpr const char* kTitoloStrumenti = "Strumenti esterni";

const std::string* ComandoStrumento(const Sessione& s, std::string_view strumento) {
  const std::pair<const char*, const std::string Impostazioni::*> righe[] = {
      {kSondaIII, &Impostazioni::Strumento_SondaIII},       {kOmnia, &Impostazioni::Strumento_ZN_Omnia},
      {kOmniaMappa, &Impostazioni::Strumento_ZN_SuiteMappa}, {kSuiteLibretti, &Impostazioni::Strumento_ZN_SuiteLibretti},
      {kEstratti, &Impostazioni::Strumento_ZN_Estratti},    {kPregeo, &Impostazioni::Strumento_Pregeo},
      {kCalcoloGPS, &Impostazioni::Strumento_CalcoloGPS},
  };
  for (const auto& [nome, campo] : righe)
    if (strumento == nome) return &(s.Imp.*campo);
  return nullptr;
}

// The words of a command line: blanks part them, double quotes keep them together.
std::vector<std::string> Parole(std::string_view riga) {
  std::vector<std::string> parole;
  std::string parola;
  bool tra = false, aperta = false;
  for (char c : riga) {
    if (c == '"') {
      tra = !tra, aperta = true;
    } else if ((c == ' ' || c == '\t') && !tra) {
      if (aperta) parole.push_back(parola);
      parola.clear(), aperta = false;
    } else {
      parola += c, aperta = true;
    }
  }
  if (aperta) parole.push_back(parola);
  return parole;
}

}  // namespace

std::vector<std::string> RigaStrumento(const Sessione& s, std::string_view strumento, const std::string& argomento) {
  const std::string* comando = ComandoStrumento(s, strumento);
  std::vector<std::string> parole = Parole(comando ? *comando : std::string());
  if (parole.empty()) return parole;
  bool messo = false;
  for (size_t i = 1; i < parole.size(); ++i)
    if (parole[i].find("%1") != std::string::npos) parole[i] = Sostituisci(parole[i], "%1", argomento), messo = true;
  if (!messo && !argomento.empty()) parole.push_back(argomento);
  return parole;
}

bool LanciaStrumento(Sessione& s, std::string_view strumento, const std::string& argomento) {
  const std::string nome(strumento);
  std::vector<std::string> parole = RigaStrumento(s, strumento, argomento);
  if (parole.empty()) {
    s.Ui->Messaggio("Strumento non configurato: " + nome + "\nIndicarne il comando in Configura.ini, sezione Strumenti.",
                    kTitoloStrumenti, Icona::Avviso);
    return false;
  }
  const std::string programma = parole.front();
  parole.erase(parole.begin());
  std::optional<int> esito;
  if (s.Proc) esito = s.Proc->Attendi(nome, programma, parole, s.CartellaProgramma);
  if (!esito) {
    s.Ui->Messaggio("Strumento non trovato: " + nome + " (" + programma + ")", kTitoloStrumenti, Icona::Avviso);
    return false;
  }
  if (*esito == kAttesaInterrotta) {
    s.Ui->Messaggio("Attesa interrotta: " + nome + "\nIl lavoro resta com'era.", kTitoloStrumenti, Icona::Avviso);
    return false;
  }
  if (*esito != 0) {
    s.Ui->Messaggio(nome + " è terminato con errore " + std::to_string(*esito) + "\nIl lavoro resta com'era.",
                    kTitoloStrumenti, Icona::Avviso);
    return false;
  }
  return true;
}

std::string FileSuite(const Sessione& s, std::string_view nome) { return s.CartellaDocumenti + "/" + std::string(nome); }

bool SalvaTestoLibretto(Sessione& s) {
  s.RoutineCorrente = "sALVA lIBRETTO 1";
  // The extract's row goes at the end of the file, the one in memory left where it is: a
  // tool that fails must find the book as it was.
  std::string testo;
  for (const std::string& riga : s.LibrettoMisure)
    if (riga.find("6|<EST>") == std::string::npos) testo += riga + "\r\n";
  testo += "6|<EST>" + s.FileEstratto + "|\r\n";
  return Protetto(s, [&] { ScriviTesto(s.NomeLavoro + ".TXT", testo); });
}

bool CaricaLibrettoDaFile(Sessione& s, const std::string& percorso) {
  s.RoutineCorrente = "CaricaLibrettoDaSondaIII";
  const auto trovato = TrovaFile(percorso);
  if (!trovato || !EsisteFile(*trovato)) return false;
  std::vector<std::string> righe;
  if (!Protetto(s, [&] { righe = RigheFile(*trovato); })) return false;
  s.LibrettoMisure.clear();
  s.ContaEntita[SlotLibretto] = 0;
  for (const std::string& riga : righe) {
    if (riga.find("6|<EST>") != std::string::npos)
      s.FileEstratto = ValoreRigaSei(riga);
    else if (riga.find("6|<COD>") != std::string::npos)
      s.CodiceLibretto = ValoreRigaSei(riga);
    else if (riga.find("6|<ISC>") != std::string::npos)
      s.CodiceIscrizione = ValoreRigaSei(riga);
    else
      AggiungiRigaLibretto(s, riga);
  }
  SegnaModificato(s, SlotLibretto);
  return true;
}

bool CaricaLibrettoDaSondaIII(Sessione& s) { return CaricaLibrettoDaFile(s, s.NomeLavoro + ".TXT"); }

bool CaricaLibrettoDaCopiaInFile(Sessione& s) {
  return CaricaLibrettoDaFile(s, FileSuite(s, "VR2000/Temp/LIBRETTO.DAT"));
}

bool LancioSondaIII(Sessione& s, const std::string& argomento) {
  if (!SalvaTestoLibretto(s)) return false;
  const bool fatto = LanciaStrumento(s, kSondaIII, argomento);
  s.RoutineCorrente = "Shellwhite 3";
  return fatto;
}

namespace {

// The book changed under the drawing: a generation of its own, and the drawing again.
void DopoLibretto(Sessione& s) {
  VR_SalvaUndo(s);
  Rigenerazione1(s);
}

// The book manager on the job's book: the name of the `.TXT` to the suite's default file.
bool ApriGestoreLibretti(Sessione& s) {
  if (!SalvaTestoLibretto(s)) return false;
  if (!Protetto(s, [&] {
        NuovaCartella(Cartella(Cartella(FileLibrettoPredefinito(s))));
        NuovaCartella(Cartella(FileLibrettoPredefinito(s)));
        ScriviTesto(FileLibrettoPredefinito(s), s.NomeLavoro + ".TXT\r\n");
      }))
    return false;
  return LanciaStrumento(s, kSuiteLibretti, s.NomeLavoro + ".TXT");
}

}  // namespace

void RicaricaLibretto(Sessione& s) {
  if (RigaStrumento(s, kSuiteLibretti, "").empty()) {
    DopoLibretto(s);
    return;
  }
  if (ApriGestoreLibretti(s)) CaricaLibrettoDaSondaIII(s);
  DopoLibretto(s);
}

void AzioneLibrettoMisure(Sessione& s) {
  if (!VR_SalvaUndo(s)) return;
  if (ApriGestoreLibretti(s) && CaricaLibrettoDaSondaIII(s)) DopoLibretto(s);
}

// --- The proposal of Pregeo --------------------------------------------------------------

namespace {

struct LettoreProposta {
  std::map<std::string, std::pair<double, double>> nomi;  // X, Y
  std::vector<LineaProposta> linee;
  std::string ultimo;  // the point a continuation row goes on from
  int32_t penna = 0;
  int16_t tratteggio = 0;

  const std::pair<double, double>* Trova(const std::string& nome) const {
    auto it = nomi.find(nome);
    if (it == nomi.end()) it = nomi.find("*" + nome);
    return it == nomi.end() ? nullptr : &it->second;
  }

  void Lato(const std::string& a, const std::string& b, const std::string& piano) {
    const auto* pa = Trova(a);
    const auto* pb = Trova(b);
    if (!pa || !pb) return;
    linee.push_back({pa->first, pa->second, pb->first, pb->second, piano, penna, tratteggio});
  }

  // The code fields after the last vertex give the pen and the line type; a side of no
  // letter is new and continuous.
  void Codice(const std::vector<std::string>& p, size_t da) {
    int stile = 1;
    penna = 250;
    for (size_t i = da; i < p.size(); ++i) CodiceLinea(p[i], penna, stile);
    tratteggio = static_cast<int16_t>(stile);
  }

  void Riga(const std::string& riga, const std::string& piano) {
    const std::vector<std::string> p = Dividi(riga, '|');
    if (p.size() < 2) return;
    const size_t alto = p.size() - 1;  // the upper bound of the split
    if (Val(p[1]) <= 0) {
      for (size_t i = 2; i + 2 <= alto; ++i) {
        Lato(ultimo, p[i], piano);
        ultimo = p[i];
      }
      return;
    }
    if (alto < 6) return;
    Codice(p, alto - 4);
    for (size_t i = 2; i + 6 <= alto; ++i) Lato(p[i], p[i + 1], piano);
    ultimo = p[alto - 5];
  }
};

}  // namespace

std::vector<LineaProposta> LeggiProposta(std::string_view testo) {
  const std::vector<std::string> righe = RigheTesto(testo);
  LettoreProposta l;
  for (const std::string& r : righe) {
    if (!IniziaCon(r, "8|") || r.find('/') != std::string::npos) continue;
    const std::vector<std::string> p = Dividi(r, '|');
    if (p.size() > 3) l.nomi.try_emplace(p[1], Val(p[3]), Val(p[2]));
  }
  std::vector<std::string> estratto, proposta;
  std::vector<std::string>* lista = nullptr;
  for (const std::string& r : righe) {
    if (IniziaCon(r, "6|ESTRATTO DI MAPPA AGGIORNATO|")) {
      lista = &proposta;
    } else if (IniziaCon(r, "6|ESTRATTO DI MAPPA|")) {
      lista = &estratto;
    } else if (lista && IniziaCon(r, "7|")) {
      // Rows of the updated map that hold an "L" are not sides of it.
      if (lista == &proposta && r.find('L') != std::string::npos) continue;
      lista->push_back(r);
    }
  }
  for (const std::string& r : estratto) l.Riga(r, "ESTRATTO");
  for (const std::string& r : proposta) l.Riga(r, "PROPOSTA");
  return std::move(l.linee);
}

bool CaricaDATconNomefile(Sessione& s, const std::string& percorso) {
  s.RoutineCorrente = "CaricaDATconNomefile";
  const auto trovato = TrovaFile(percorso);
  if (!trovato || !EsisteFile(*trovato)) return false;
  std::string testo;
  if (!Protetto(s, [&] { testo = CaricaFileIntero(*trovato); })) return false;
  for (const LineaProposta& l : LeggiProposta(testo)) {
    const int32_t r = ScriviLinea(s, {l.X1, l.Y1, 0}, {l.X2, l.Y2, 0}, l.Piano);
    s.LineaColore[static_cast<size_t>(r)] = l.Penna;
    s.LineaTratteggio[static_cast<size_t>(r)] = l.Tratteggio;
  }
  SegnaModificato(s, SlotLinee);
  EseguiSeguito(s, TuttoTutto(s));
  return true;
}

void AzioneCaricaDAT(Sessione& s) {
  const auto scelto = s.Ui->ScegliFile(false, "Carica DAT", "Proposta da File DAT e TXT (*.DAT;*.TXT)|*.DAT;*.TXT",
                                       s.Imp.Cartella_Pregeo, "");
  if (!scelto) return;
  if (!CaricaDATconNomefile(s, *scelto))
    s.Ui->Messaggio("Il file " + *scelto + " NON è stato trovato!", "Carica DAT", Icona::Avviso);
  else
    VR_SalvaUndo(s);
}

namespace {

// The job the imports of Pregeo fill: the default new job, empty. False when the user kept
// the job in hand.
bool NuovoLavoroPregeo(Sessione& s) {
  if (!Rifila(s.NomeLavoro).empty() && !ChiusuraLavoro(s, false)) return false;
  AzzeraTabelleLavoro(s);
  s.NomeOriginale = NomeLavoroNuovo(s);
  ImpostaNomeProvvisorio(s);
  return true;
}

// The computed points of the hub: "name|Est|Nord|Quota|description|" a row.
void LeggiPuntiElaborati(Sessione& s, const std::string& percorso) {
  for (const std::string& riga : RigheFile(percorso)) {
    const std::vector<std::string> p = Dividi(VirgolaInPunto(riga), '|');
    if (p.size() < 3 || Rifila(p[0]).empty()) continue;
    ScriviPunto(s, p[0], {Val(p[1]), Val(p[2]), p.size() > 3 ? Val(p[3]) : 0.0}, p.size() > 4 ? Rifila(p[4]) : "",
                s.PianoCorrente);
  }
  SegnaModificato(s, SlotPunti);
}

}  // namespace

void AzioneDaPregeo(Sessione& s) {
  s.RoutineCorrente = "dapregeo";
  const std::string libretto = FileSuite(s, "ZN_Suite/Temp/ESPORTA_LIBRETTO.TXT");
  const std::string punti = FileSuite(s, "ZN_Suite/Temp/ESPORTA_PUNTI_ELABORATI.TXT");
  if (RigaStrumento(s, kOmnia, "").empty()) {
    LanciaStrumento(s, kOmnia, "");  // says so, the job left as it was
    return;
  }
  if (!NuovoLavoroPregeo(s)) return;
  EliminaFile(libretto);
  EliminaFile(punti);
  const bool fatto = LanciaStrumento(s, kOmnia, "");
  if (fatto && EsisteFile(libretto) && EsisteFile(punti)) {
    Protetto(s, [&] {
      LeggiPuntiElaborati(s, punti);
      NuovaCartella(Cartella(FileSuite(s, "VR2000/Temp/LIBRETTO.DAT")));
      CopiaFile(libretto, FileSuite(s, "VR2000/Temp/LIBRETTO.DAT"));
    });
    CaricaLibrettoDaCopiaInFile(s);
    DescrizioniDaLibrettoMisure(s);
    AssumeTuttoDaTXT(s);
    EseguiSeguito(s, TuttoTutto(s));
  } else if (fatto) {
    s.Ui->Messaggio("Nessun dato caricato!", "Importa da Pregeo", Icona::Avviso);
  }
  VR_SalvaUndo(s);
  Rigenerazione1(s);
}

void AzionePropostaDaPregeo(Sessione& s) {
  s.RoutineCorrente = "proposta_dapregeo";
  const std::string proposta = FileSuite(s, "ZN_Suite/Temp/ESPORTA_PROPOSTA.TXT");
  if (RigaStrumento(s, kOmniaMappa, "").empty()) {
    LanciaStrumento(s, kOmniaMappa, "");
    return;
  }
  if (!NuovoLavoroPregeo(s)) return;
  EliminaFile(proposta);
  if (LanciaStrumento(s, kOmniaMappa, "") && !CaricaDATconNomefile(s, proposta))
    s.Ui->Messaggio("Il file " + proposta + " NON è stato trovato!", "Proposta da Pregeo", Icona::Avviso);
  VR_SalvaUndo(s);
  Rigenerazione1(s);
}

void AzioneLanciaEstratto(Sessione& s) {
  s.RoutineCorrente = "Lanciaestratto";
  const std::string associato = FileSuite(s, "ZN_Suite/TEMP/ESTRATTOASSOCIATO.txt");
  if (!LanciaStrumento(s, kEstratti, "")) return;
  const auto trovato = TrovaFile(associato);
  if (!trovato || !EsisteFile(*trovato)) return;
  const std::vector<std::string> righe = RigheFile(*trovato);
  if (righe.empty() || Rifila(righe[0]).empty()) return;
  const std::string nome = Maiuscolo(Rifila(righe[0]));
  s.FileEstratto = Sostituisci(nome, ".PNG", ".EMP");
  s.FileImmagineEstratto = Sostituisci(nome, ".EMP", ".PNG");
  AggiornaRigaEstratto(s);
  VR_SalvaUndo(s);
  CaricaEstratto(s);
  Rigenerazione1(s);
}

void AzionePregeo(Sessione& s) {
  if (SalvaTestoLibretto(s)) LanciaStrumento(s, kPregeo, s.NomeLavoro + ".TXT");
}

void AzioneModulistica(Sessione& s) {
  const auto scelto = s.Ui->ScegliFile(false, "Importa Modulistica PDF", "Modulistica PDF (*.PDF)|*.PDF", "", "");
  if (!scelto) {
    s.Ui->Messaggio("Nessuna Modulistica selezionata!", "Modulistica PDF", Icona::Avviso);
    return;
  }
  const std::string cartella = s.Imp.Cartella_Fiducial + "/modulistica";
  if (Protetto(s, [&] {
        NuovaCartella(s.Imp.Cartella_Fiducial);
        NuovaCartella(cartella);
        CopiaFile(*scelto, cartella + "/" + Foglia(*scelto));
      }))
    s.Ui->Messaggio("Copia Effettuata!", "Modulistica PDF", Icona::Informazione);
}

int32_t TabellaElaborazione(Sessione& s, std::string_view testo) {
  const double altezza = s.Imp.AltezzaTestoDefault > 0 ? s.Imp.AltezzaTestoDefault : 1.0;
  const double x = s.Vista.CentroEst - s.Vista.AltezzaVista * s.Vista.RapportoVista / 2;
  double y = s.Vista.CentroNord + s.Vista.AltezzaVista / 2 - altezza;
  int32_t fatti = 0;
  for (const std::string& grezza : RigheTesto(testo)) {
    std::string riga;
    for (char c : Rifila(grezza))
      if (c != ' ' || riga.empty() || riga.back() != ' ') riga += c;
    if (riga.empty()) continue;
    ScriviTesto(s, x, y, riga, altezza, 0, s.Imp.ColoreTestoDefault, s.Imp.FontTestoDefault, "Tabella");
    y -= altezza * 1.5, ++fatti;
  }
  SegnaModificato(s, SlotTesti);
  return fatti;
}

void AzioneElaborazionePregeo(Sessione& s) {
  if (s.Ui->Domanda("Importare Elaborazione Pregeo?", "Elaborazione Pregeo", Bottoni::SiNo, Icona::Domanda,
                    Risposta::No) != Risposta::Si || !s.Clip)
    return;
  if (TabellaElaborazione(s, s.Clip->Leggi()) > 0) VR_SalvaUndo(s);
}

// --- The local computation of the GPS tool ------------------------------------------------

std::string RecordConVirgole(std::string_view conBarre) {
  return Sostituisci(Sostituisci(conBarre, ",", "."), "|", ",");
}

std::string AllineaADestra(std::string testo, size_t larghezza) {
  if (testo.size() < larghezza) testo.insert(0, larghezza - testo.size(), ' ');
  return testo.substr(testo.size() - larghezza);
}

std::vector<std::string> RigheCalcoloLocale(const Sessione& s, const std::vector<int32_t>& punti) {
  constexpr const char* maschera = "#############0.000######";
  std::vector<std::string> righe;
  for (int32_t p : punti) {
    const size_t r = static_cast<size_t>(p);
    righe.push_back(RecordConVirgole(s.PuntoNome[r] + "|" + FormatoMaschera(s.PuntoX[r], maschera) + "|" +
                                     FormatoMaschera(s.PuntoY[r], maschera) + "|" +
                                     FormatoMaschera(s.PuntoZ[r], maschera) + "|0|0|0"));
  }
  return righe;
}

void AzioneCalcoloGPS(Sessione& s) {
  s.RoutineCorrente = "FormGPS";
  // The points picked; with none picked, every point the drawing shows.
  std::vector<int32_t> punti, visibili;
  for (int32_t r = 0; r < s.ContaEntita[SlotPunti]; ++r) {
    const size_t i = static_cast<size_t>(r);
    if (s.PuntoIdent[i] != 0) continue;
    if (s.StatoPunto[i] == 1) punti.push_back(r);
    if (!Congelato(s, SlotPunti, i)) visibili.push_back(r);
  }
  if (punti.empty()) punti = visibili;
  if (punti.empty()) {
    s.Ui->Messaggio("Nessun punto da calcolare!", "Calcolo GPS", Icona::Avviso);
    return;
  }
  const std::string percorso = FileSuite(s, "ZN_Suite/Temp/calcololocale.csv");
  std::string testo;
  for (const std::string& riga : RigheCalcoloLocale(s, punti)) testo += riga + "\r\n";
  if (Protetto(s, [&] {
        NuovaCartella(Cartella(Cartella(percorso)));
        NuovaCartella(Cartella(percorso));
        ScriviTesto(percorso, testo);
      }))
    LanciaStrumento(s, kCalcoloGPS, percorso);
}

}  // namespace varena
