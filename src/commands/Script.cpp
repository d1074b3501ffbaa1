// The script runner and its interface.
#include "commands/Script.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <sstream>
#include <vector>

#include "commands/Comandi.h"
#include "commands/Puntatore.h"
#include "commands/TabellaComandi.h"
#include "commands/TabellaDialoghi.h"
#include "commands/Tastiera.h"
#include "core/Dialoghi.h"
#include "core/Record.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "snap/Vicino.h"
#include "store/Salvataggio.h"
#include "view/Ridisegna.h"

namespace varena {

namespace {

std::string UnaRiga(std::string_view testo) {
  std::string r;
  for (size_t i = 0; i < testo.size(); ++i) {
    if (testo[i] == '\r') continue;
    if (testo[i] == '\n')
      r += " | ";
    else
      r += testo[i];
  }
  return r;
}

std::string Campi(const Dialogo& d) {
  std::string r;
  for (const CampoDialogo& c : d.Campi) r += " " + c.Nome + "=\"" + UnaRiga(c.Testo) + "\"";
  std::string b;
  for (const BottoneDialogo& x : d.Bottoni) b += (b.empty() ? "" : ", ") + x.Nome;
  return r + (b.empty() ? "" : " (" + b + ")");
}

}  // namespace

std::optional<std::string> InterfacciaScript::Risposta_() {
  if (risposte_.empty()) return std::nullopt;
  std::string r = std::move(risposte_.front());
  risposte_.pop_front();
  return r;
}

void InterfacciaScript::RichiestaSenzaRisposta(std::string_view tipo, std::string_view testo) {
  if (Rigoroso && SenzaRisposta.empty()) SenzaRisposta = std::string(tipo) + " senza risposta: " + UnaRiga(testo);
}

void InterfacciaScript::Messaggio(std::string_view testo, std::string_view titolo, Icona icona) {
  ++Mostrati;
  UltimoMessaggio = UnaRiga(testo);
  out_ << "MESSAGGIO [" << titolo << "] " << UltimoMessaggio << "\n";
  if (icona == Icona::Critico) ++Errori;
}

Risposta InterfacciaScript::Domanda(std::string_view testo, std::string_view titolo, Bottoni, Icona,
                                    Risposta predefinita) {
  ++Mostrati;
  Risposta r = predefinita;
  if (const auto risposta = Risposta_()) {
    const std::string a = Minuscolo(Rifila(*risposta));
    if (a == "yes" || a == "si" || a == "sì")
      r = Risposta::Si;
    else if (a == "no")
      r = Risposta::No;
    else if (a == "cancel" || a == "annulla")
      r = Risposta::Annulla;
    else if (a == "ok")
      r = Risposta::Ok;
  } else {
    RichiestaSenzaRisposta("domanda", testo);
  }
  static const char* kNomi[] = {"OK", "ANNULLA", "SI", "NO"};
  out_ << "DOMANDA [" << titolo << "] " << UnaRiga(testo) << " -> " << kNomi[static_cast<int>(r)] << "\n";
  return r;
}

std::optional<std::string> InterfacciaScript::ScegliFile(bool, std::string_view titolo, std::string_view,
                                                         std::string_view, std::string_view) {
  ++Mostrati;
  std::optional<std::string> r = std::exchange(file_, std::nullopt);
  if (!r) r = Risposta_();
  if (!r) RichiestaSenzaRisposta("scelta di file", titolo);
  if (r && UgualeSenzaCaso(Rifila(*r), "cancel")) r.reset();
  out_ << "FILE [" << titolo << "] -> " << (r ? *r : std::string("(annullato)")) << "\n";
  return r;
}

std::optional<std::string> InterfacciaScript::Imputa(std::string_view testo, std::string_view titolo,
                                                     std::string_view) {
  ++Mostrati;
  std::optional<std::string> r = Risposta_();
  if (!r) RichiestaSenzaRisposta("richiesta di un valore", testo);
  if (r && UgualeSenzaCaso(Rifila(*r), "cancel")) r.reset();
  out_ << "IMPUTA [" << titolo << "] " << UnaRiga(testo) << " -> " << (r ? *r : std::string("(annullato)")) << "\n";
  return r;
}

void InterfacciaScript::Prompt(std::string_view testo) {
  UltimoPrompt = UnaRiga(testo);
  if (testo.empty()) return;
  out_ << "PROMPT " << UltimoPrompt << "\n";
}

void InterfacciaScript::MostraDialogo(const Dialogo& d) {
  ++Mostrati;
  out_ << "DIALOGO + " << d.Nome << " [" << d.Titolo << "]" << Campi(d) << "\n";
}

void InterfacciaScript::AggiornaDialogo(const Dialogo&) { ++Mostrati; }

void InterfacciaScript::NascondiDialogo(const Dialogo& d) {
  ++Mostrati;
  out_ << "DIALOGO - " << d.Nome << "\n";
}

void InterfacciaScript::MenuContestuale(std::string_view nome) {
  ++Mostrati;
  out_ << "MENU " << nome << "\n";
}

namespace {

// The whole word as a number, and a finite one: "nan" and "inf" are words the reading of
// numbers knows, but no place, size or row.
bool Numero(const std::string& t, double& v) {
  if (t.empty()) return false;
  char* fine = nullptr;
  v = std::strtod(t.c_str(), &fine);
  return fine && *fine == '\0' && std::isfinite(v);
}

bool Bottone(const std::string& t, int& b) {
  const std::string n = Minuscolo(t);
  if (n == "left" || n == "1") b = BottoneSinistro;
  else if (n == "right" || n == "2") b = BottoneDestro;
  else if (n == "middle" || n == "4") b = BottoneCentrale;
  else return false;
  return true;
}

bool LeggiTasto(std::string nome, EventoTasto& e) {
  nome = Maiuscolo(nome);
  if (IniziaCon(nome, "CTRL+") && nome.size() > 5) {
    e.Ctrl = true;
    nome = nome.substr(5);
  }
  static const struct {
    const char* Nome;
    Tasto T;
  } kNomi[] = {
      {"ESC", Tasto::Esc},       {"ENTER", Tasto::Invio},    {"DELETE", Tasto::Canc},     {"INSERT", Tasto::Ins},
      {"HOME", Tasto::Inizio},   {"END", Tasto::Fine},       {"PAGEUP", Tasto::PagSu},    {"PAGEDOWN", Tasto::PagGiu},
      {"UP", Tasto::Su},         {"DOWN", Tasto::Giu},       {"LEFT", Tasto::Sinistra},   {"RIGHT", Tasto::Destra},
      {"SPACE", Tasto::Spazio},  {"NUM+", Tasto::NumPiu},    {"NUM-", Tasto::NumMeno},    {"NUM/", Tasto::NumDiviso},
      {"F1", Tasto::F1},         {"F2", Tasto::F2},          {"F3", Tasto::F3},           {"F4", Tasto::F4},
      {"F5", Tasto::F5},         {"F6", Tasto::F6},          {"F7", Tasto::F7},           {"F8", Tasto::F8},
      {"F9", Tasto::F9},         {"F10", Tasto::F10},        {"F11", Tasto::F11},         {"F12", Tasto::F12},
  };
  for (const auto& k : kNomi)
    if (nome == k.Nome) {
      e.T = k.T;
      return true;
    }
  if (nome.size() == 1) {
    e.T = Tasto::Carattere;
    e.Carattere = nome[0];
    return true;
  }
  return false;
}

// The dialog and the name of "<dialog>.<name>", or of a bare name.
std::pair<std::string, std::string> Destinazione(const std::string& t) {
  const auto punto = t.find('.');
  if (punto == std::string::npos) return {std::string(), t};
  return {t.substr(0, punto), t.substr(punto + 1)};
}

// The field a script names: of the dialog named, or of the most recently opened dialog that
// has one of that name, as FIELD finds it.
const CampoDialogo* CampoAperto(const Sessione& s, const std::string& dialogo, const std::string& campo) {
  for (auto d = s.Dialoghi.rbegin(); d != s.Dialoghi.rend(); ++d) {
    if (!dialogo.empty() && !UgualeSenzaCaso((*d)->Nome, dialogo)) continue;
    if (const CampoDialogo* c = (*d)->Campo(campo)) return c;
    if (!dialogo.empty()) return nullptr;
  }
  return nullptr;
}

// What a left click may change when the command takes it. Equal before and after: the
// command dropped the click. The snap mode a key set is left out, since the click ends it
// whether the command took the point or not.
struct Impronta {
  int32_t Comando;
  int16_t Passo;
  uint8_t Fase;
  int16_t SottoFase, FaseIncrocio, PuntoInDialogo, ModoZoom;
  uint8_t PrimoPuntoZoom;
  std::string Prompt;
  uint64_t Mostrati, Modifiche, Selezionati;
  std::array<int32_t, NumeroSlot> Conta;
  std::array<double, 6> Numeri;  // the view and the last point stored
  int32_t Punto1Indice;
  bool operator==(const Impronta&) const = default;
};

uint64_t Selezionati(const Sessione& s) {
  uint64_t n = 0;
  auto somma = [&](const Colonna<uint8_t>& stato, int slot) {
    const auto righe = std::min(stato.size(), static_cast<size_t>(std::max(s.ContaEntita[static_cast<size_t>(slot)], 0)));
    for (size_t r = 0; r < righe; ++r) n += stato[r];
  };
  somma(s.StatoPunto, SlotPunti), somma(s.StatoLinea, SlotLinee), somma(s.StatoCerchio, SlotCerchi);
  somma(s.StatoArco, SlotArchi), somma(s.StatoTesto, SlotTesti), somma(s.StatoFalda, SlotFalde);
  somma(s.StatoCurva, SlotCurve), somma(s.StatoSezione, SlotSezioni), somma(s.StatoBitmap, SlotBitmap);
  return n;
}

Impronta ImprontaDi(const Sessione& s, const InterfacciaScript& ui) {
  return {s.ComandoCorrente,
          s.PassoComando,
          s.FaseSelezione,
          s.SottoFaseSelezione,
          s.FaseIncrocio,
          s.PuntoInDialogo,
          s.Vista.ModoZoom,
          s.Vista.PrimoPuntoZoom,
          ui.UltimoPrompt,
          ui.Mostrati,
          s.Modifiche,
          Selezionati(s),
          s.ContaEntita,
          {s.Vista.CentroEst, s.Vista.CentroNord, s.Vista.AltezzaVista, s.Punto1X, s.Punto1Y, s.Punto1Z},
          s.Punto1Indice};
}

std::string Scritto(const ValoreCampo& v) {
  if (const auto* i = std::get_if<int64_t>(&v)) return std::to_string(*i);
  if (const auto* d = std::get_if<double>(&v)) return FormaSemplice(*d);
  return std::get<std::string>(v);
}

// Numbers agree to 1e-9, relative beyond 1; texts exactly, blanks at the ends aside.
bool Concorda(const ValoreCampo& v, const std::string& atteso) {
  if (const auto* testo = std::get_if<std::string>(&v)) return Rifila(*testo) == atteso;
  double numero = 0;
  if (!Numero(atteso, numero)) return false;
  const double valore = std::holds_alternative<double>(v) ? std::get<double>(v) : static_cast<double>(std::get<int64_t>(v));
  return std::fabs(valore - numero) <= 1e-9 * std::max(1.0, std::fabs(numero));
}

// A kind or a row: a whole number that an integer holds.
bool Intero(const std::string& t, int32_t& n) {
  double v = 0;
  if (!Numero(t, v) || v != std::floor(v) || std::fabs(v) > 2147483647.0) return false;
  n = static_cast<int32_t>(v);
  return true;
}

// Words 1 on of "EXPECT riga <slot> <row> <field> <value>", the slot and the row already read.
// The field's name may have blanks ("Colore Simbolo"): the longest run of words that names a
// field is the name, the rest the value. No value: the row holds it.
std::optional<std::string> VerificaRiga(const Sessione& s, int32_t slot, int32_t riga,
                                        const std::vector<std::string>& arg) {
  std::vector<std::pair<std::string, ValoreCampo>> campi;
  PerOgniCampo(s, slot, riga, [&](std::string_view nome, const ValoreCampo& v) { campi.emplace_back(nome, v); });
  if (campi.empty()) return "la riga " + arg[2] + " del tipo " + arg[1] + " non esiste";
  const ValoreCampo* trovato = nullptr;
  size_t parole = 0;
  for (const auto& [nome, valore] : campi) {
    std::string scritto;
    for (size_t k = 3; k < arg.size(); ++k) {
      scritto += (k > 3 ? " " : "") + arg[k];
      if (k - 2 > parole && UgualeSenzaCaso(scritto, nome)) trovato = &valore, parole = k - 2;
    }
  }
  if (!trovato) return "campo sconosciuto: " + arg[3];
  std::string atteso;
  for (size_t k = 3 + parole; k < arg.size(); ++k) atteso += (atteso.empty() ? "" : " ") + arg[k];
  if (Concorda(*trovato, atteso)) return std::nullopt;
  return "atteso " + atteso + ", trovato " + Scritto(*trovato);
}

// One script being run: the session, its interface, the line being read.
class Esecuzione {
 public:
  Esecuzione(Sessione& s, InterfacciaScript& ui, std::ostream& out, const OpzioniScript& o)
      : s_(s), ui_(ui), out_(out), opzioni_(o) {}

  EsitoScript Esegui(std::istream& script) {
    std::string riga;
    ui_.Rigoroso = opzioni_.Rigoroso;
    ui_.SenzaRisposta.clear();
    while (std::getline(script, riga)) {
      ++numero_;
      const std::string r = Rifila(Sostituisci(riga, "\r", ""));
      if (r.empty() || r[0] == '#') continue;
      out_ << "> " << r << "\n";
      esito_ = {};
      Azione(r);
      if (esito_.Codice == 0 && !ui_.SenzaRisposta.empty()) Ferma(1, std::exchange(ui_.SenzaRisposta, {}));
      if (esito_.Codice != 0) return esito_;
    }
    return {};
  }

 private:
  void Ferma(int codice, std::string errore) { esito_ = {codice, numero_, std::move(errore)}; }

  void Azione(const std::string& r) {
    std::istringstream parole(r);
    std::string azione;
    parole >> azione;
    azione = Maiuscolo(azione);
    resto_.clear();  // a line of one word leaves the stream at its end: nothing is read
    std::getline(parole, resto_);
    resto_ = Rifila(resto_);
    arg_.clear();
    std::istringstream a(resto_);
    for (std::string p; a >> p;) arg_.push_back(p);

    if (azione == "TAG") {
      if (arg_.size() != 1) return Ferma(64, "TAG vuole un nome");
      EseguiTag(s_, arg_[0]);
    } else if (azione == "CLICK") {
      Click();
    } else if (azione == "MOVE") {
      const char* uso = "MOVE vuole est e nord, o @punto";
      double est = 0, nord = 0;
      const auto dopo = Posizione(0, est, nord, uso);
      if (!dopo) return;
      if (*dopo != arg_.size()) return Ferma(64, uso);
      MouseMove(s_, 0, 0, est - s_.Vista.CentroEst, nord - s_.Vista.CentroNord);
    } else if (azione == "KEY") {
      EventoTasto e;
      if (arg_.size() != 1 || !LeggiTasto(arg_[0], e)) return Ferma(64, "tasto non riconosciuto");
      TastoGiu(s_, e);
    } else if (azione == "TYPE") {
      InvioCasella(s_, resto_);
    } else if (azione == "ANSWER") {
      if (resto_.empty()) return Ferma(64, "ANSWER vuole una risposta");
      ui_.Accoda(resto_);
    } else if (azione == "FIELD" || azione == "PASTE") {
      if (arg_.empty()) return Ferma(64, azione + " vuole un campo");
      const auto [dialogo, campo] = Destinazione(arg_[0]);
      std::string testo = Rifila(resto_.substr(arg_[0].size()));
      const bool scritto = azione == "FIELD" ? ScriviCampo(s_, dialogo, campo, std::move(testo))
                                             : IncollaCampo(s_, dialogo, campo, std::move(testo));
      if (!scritto) return Ferma(2, "nessun dialogo aperto con il campo " + arg_[0]);
    } else if (azione == "PRESS") {
      if (arg_.size() != 1) return Ferma(64, "PRESS vuole un bottone");
      const auto [dialogo, bottone] = Destinazione(arg_[0]);
      if (!PremiBottone(s_, dialogo, bottone)) return Ferma(2, "nessun dialogo aperto con il bottone " + arg_[0]);
    } else if (azione == "VIEW") {
      double est = 0, nord = 0, altezza = 0;
      if (arg_.size() != 3 || !Numero(arg_[0], est) || !Numero(arg_[1], nord) || !Numero(arg_[2], altezza) ||
          !(altezza > 0))
        return Ferma(64, "VIEW vuole est, nord e un'altezza");
      s_.Vista.CentroEst = est;
      s_.Vista.CentroNord = nord;
      s_.Vista.AltezzaVista = altezza;
      Ridisegna(s_);
    } else if (azione == "SAVE") {
      if (!arg_.empty()) return Ferma(64, "SAVE non vuole altro");
      if (!(opzioni_.Salva ? opzioni_.Salva(s_) : Salva(s_))) return Ferma(2, "lavoro non salvato");
    } else if (azione == "SAVEAS") {
      if (resto_.empty()) return Ferma(64, "SAVEAS vuole un percorso");
      ui_.FileSuccessivo(resto_);
      if (!VR_SalvaConNome(s_)) return Ferma(2, "lavoro non salvato come " + resto_);
    } else if (azione == "EXPECT") {
      Verifica();
    } else {
      return Ferma(64, "azione sconosciuta: " + azione);
    }
  }

  // The point of words `da` on, "<east> <north>" or "@<name>", and the first word after it;
  // none when it cannot be read, or names no point (the script then stops).
  std::optional<size_t> Posizione(size_t da, double& est, double& nord, const char* uso) {
    if (arg_.size() > da && IniziaCon(arg_[da], "@")) {
      const int32_t r = IlPiuVicinoPerNome(s_, arg_[da].substr(1));
      if (r < 0) {
        Ferma(2, "punto non trovato: " + arg_[da].substr(1));
        return std::nullopt;
      }
      est = s_.PuntoX[static_cast<size_t>(r)];
      nord = s_.PuntoY[static_cast<size_t>(r)];
      return da + 1;
    }
    if (arg_.size() >= da + 2 && Numero(arg_[da], est) && Numero(arg_[da + 1], nord)) return da + 2;
    Ferma(64, uso);
    return std::nullopt;
  }

  void Click() {
    const char* uso = "CLICK vuole un bottone, est e nord (o @punto) e al più shift";
    int bottone = 0;
    if (arg_.empty() || !Bottone(arg_[0], bottone)) return Ferma(64, uso);
    double est = 0, nord = 0;
    const auto dopo = Posizione(1, est, nord, uso);
    if (!dopo) return;
    if (arg_.size() > *dopo + 1 || (arg_.size() == *dopo + 1 && Minuscolo(arg_[*dopo]) != "shift"))
      return Ferma(64, uso);
    const int shift = arg_.size() == *dopo + 1 ? 1 : 0;
    const Impronta prima = ImprontaDi(s_, ui_);
    // As a hand does: the pointer gets there, the button goes down and comes up.
    MouseMove(s_, 0, shift, est - s_.Vista.CentroEst, nord - s_.Vista.CentroNord);
    MouseDown(s_, bottone, shift, est - s_.Vista.CentroEst, nord - s_.Vista.CentroNord);
    MouseUp(s_, bottone, shift, est - s_.Vista.CentroEst, nord - s_.Vista.CentroNord);
    if (opzioni_.Rigoroso && bottone == BottoneSinistro && ImprontaDi(s_, ui_) == prima)
      Ferma(1, "il clic non ha avuto effetto");
  }

  void Verifica() {
    if (arg_.empty()) return Ferma(64, "EXPECT vuole prompt, messaggio, campo o riga");
    const std::string cosa = Minuscolo(arg_[0]);
    const std::string atteso = Rifila(resto_.substr(arg_[0].size()));
    std::string errore;
    if (cosa == "prompt") {
      if (ui_.UltimoPrompt != atteso) errore = "prompt \"" + ui_.UltimoPrompt + "\"";
    } else if (cosa == "messaggio") {
      if (ui_.UltimoMessaggio != atteso) errore = "messaggio \"" + ui_.UltimoMessaggio + "\"";
    } else if (cosa == "campo") {
      if (arg_.size() < 2) return Ferma(64, "EXPECT campo vuole un campo");
      const auto [dialogo, nome] = Destinazione(arg_[1]);
      const std::string testo = Rifila(atteso.substr(arg_[1].size()));
      const CampoDialogo* c = CampoAperto(s_, dialogo, nome);
      if (!c)
        errore = "nessun dialogo aperto con il campo " + arg_[1];
      else if (UnaRiga(c->Testo) != testo)
        errore = arg_[1] + "=\"" + UnaRiga(c->Testo) + "\"";
    } else if (cosa == "riga") {
      int32_t slot = 0, riga = 0;
      if (arg_.size() < 4 || !Intero(arg_[1], slot) || !Intero(arg_[2], riga))
        return Ferma(64, "EXPECT riga vuole un tipo, una riga, un campo e un valore");
      errore = VerificaRiga(s_, slot, riga, arg_).value_or("");
    } else {
      return Ferma(64, "EXPECT vuole prompt, messaggio, campo o riga");
    }
    if (!errore.empty()) Ferma(1, "EXPECT " + cosa + ": " + errore);
  }

  Sessione& s_;
  InterfacciaScript& ui_;
  std::ostream& out_;
  const OpzioniScript& opzioni_;
  int numero_ = 0;
  EsitoScript esito_;
  std::string resto_;
  std::vector<std::string> arg_;
};

}  // namespace

EsitoScript EseguiScript(Sessione& s, InterfacciaScript& ui, std::istream& script, std::ostream& out,
                         const OpzioniScript& opzioni) {
  return Esecuzione(s, ui, out, opzioni).Esegui(script);
}

namespace {

// The dialog of that name as a script meets it, opened on a session of its own: by its
// builder on a job just opened, else by a tag that opens it (a dialog that belongs to its
// command opens only with it). None for one that opens only after a choice.
const Dialogo* DialogoDiEsempio(Sessione& s, const SchedaDialogo& scheda) {
  auto aperto = [&]() -> const Dialogo* {
    for (const auto& d : s.Dialoghi)
      if (UgualeSenzaCaso(d->Nome, scheda.Nome)) return d.get();
    return nullptr;
  };
  scheda.Apri(s);
  if (const Dialogo* d = aperto()) return d;
  for (const VoceComando& voce : TabellaComandi())
    if (UgualeSenzaCaso(voce.Dialogo, scheda.Nome)) {
      EseguiTag(s, voce.Tag);
      if (const Dialogo* d = aperto()) return d;
    }
  return nullptr;
}

}  // namespace

void ElencaDialoghi(std::ostream& out) {
  for (const SchedaDialogo& scheda : TabellaDialoghi()) {
    Sessione s;
    const Dialogo* d = DialogoDiEsempio(s, scheda);
    if (!d) {
      out << scheda.Nome << " (si apre solo dopo una scelta)\n";
      continue;
    }
    out << d->Nome << " [" << d->Titolo << "]\n";
    for (const CampoDialogo& c : d->Campi)
      out << "  " << (c.SoloLettura ? "dato " : "campo ") << c.Nome << " \"" << c.Etichetta << "\"\n";
    for (const BottoneDialogo& b : d->Bottoni) out << "  bottone " << b.Nome << " \"" << b.Etichetta << "\"\n";
  }
}

}  // namespace varena
