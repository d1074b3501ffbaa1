// The script runner and its interface.
#include "commands/Script.h"

#include <cstdlib>
#include <sstream>
#include <vector>

#include "commands/Comandi.h"
#include "commands/Puntatore.h"
#include "commands/Tastiera.h"
#include "core/Dialoghi.h"
#include "core/Sessione.h"
#include "core/Testo.h"
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

// A redraw shows its time in the prompt when no command waits; that is no prompt of a
// command, and would make every run print differently.
bool TempoDiRidisegno(std::string_view t) { return !t.empty() && t.find_first_not_of("0123456789.") == std::string_view::npos; }

}  // namespace

void InterfacciaScript::Messaggio(std::string_view testo, std::string_view titolo, Icona icona) {
  out_ << "MESSAGGIO [" << titolo << "] " << UnaRiga(testo) << "\n";
  if (icona == Icona::Critico) ++Errori;
}

Risposta InterfacciaScript::Domanda(std::string_view testo, std::string_view titolo, Bottoni, Icona,
                                    Risposta predefinita) {
  Risposta r = predefinita;
  if (!risposte_.empty()) {
    const std::string a = Minuscolo(Rifila(risposte_.front()));
    risposte_.pop_front();
    if (a == "yes" || a == "si" || a == "sì")
      r = Risposta::Si;
    else if (a == "no")
      r = Risposta::No;
    else if (a == "cancel" || a == "annulla")
      r = Risposta::Annulla;
    else if (a == "ok")
      r = Risposta::Ok;
  }
  static const char* kNomi[] = {"OK", "ANNULLA", "SI", "NO"};
  out_ << "DOMANDA [" << titolo << "] " << UnaRiga(testo) << " -> " << kNomi[static_cast<int>(r)] << "\n";
  return r;
}

std::optional<std::string> InterfacciaScript::ScegliFile(bool, std::string_view titolo, std::string_view,
                                                         std::string_view, std::string_view) {
  std::optional<std::string> r;
  if (!risposte_.empty()) {
    if (!UgualeSenzaCaso(Rifila(risposte_.front()), "cancel")) r = risposte_.front();
    risposte_.pop_front();
  }
  out_ << "FILE [" << titolo << "] -> " << (r ? *r : std::string("(annullato)")) << "\n";
  return r;
}

std::optional<std::string> InterfacciaScript::Imputa(std::string_view testo, std::string_view titolo,
                                                     std::string_view) {
  std::optional<std::string> r;
  if (!risposte_.empty()) {
    if (!UgualeSenzaCaso(Rifila(risposte_.front()), "cancel")) r = risposte_.front();
    risposte_.pop_front();
  }
  out_ << "IMPUTA [" << titolo << "] " << UnaRiga(testo) << " -> " << (r ? *r : std::string("(annullato)")) << "\n";
  return r;
}

void InterfacciaScript::Prompt(std::string_view testo) {
  if (testo.empty() || TempoDiRidisegno(testo)) return;
  out_ << "PROMPT " << UnaRiga(testo) << "\n";
}

void InterfacciaScript::MostraDialogo(const Dialogo& d) {
  out_ << "DIALOGO + " << d.Nome << " [" << d.Titolo << "]" << Campi(d) << "\n";
}

void InterfacciaScript::NascondiDialogo(const Dialogo& d) { out_ << "DIALOGO - " << d.Nome << "\n"; }

void InterfacciaScript::MenuContestuale(std::string_view nome) { out_ << "MENU " << nome << "\n"; }

namespace {

bool Numero(const std::string& t, double& v) {
  if (t.empty()) return false;
  char* fine = nullptr;
  v = std::strtod(t.c_str(), &fine);
  return fine && *fine == '\0';
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

}  // namespace

EsitoScript EseguiScript(Sessione& s, InterfacciaScript& ui, std::istream& script, std::ostream& out,
                         const std::function<bool(Sessione&)>& salva) {
  std::string riga;
  int numero = 0;
  auto ferma = [&](int codice, std::string errore) { return EsitoScript{codice, numero, std::move(errore)}; };
  while (std::getline(script, riga)) {
    ++numero;
    const std::string r = Rifila(Sostituisci(riga, "\r", ""));
    if (r.empty() || r[0] == '#') continue;
    out << "> " << r << "\n";
    std::istringstream parole(r);
    std::string azione;
    parole >> azione;
    azione = Maiuscolo(azione);
    std::string resto;
    std::getline(parole, resto);
    resto = Rifila(resto);
    std::vector<std::string> arg;
    {
      std::istringstream a(resto);
      for (std::string p; a >> p;) arg.push_back(p);
    }
    auto punto = [&](size_t da, double& est, double& nord) {
      return arg.size() > da + 1 && Numero(arg[da], est) && Numero(arg[da + 1], nord);
    };
    if (azione == "TAG") {
      if (arg.size() != 1) return ferma(64, "TAG vuole un nome");
      EseguiTag(s, arg[0]);
    } else if (azione == "CLICK") {
      int bottone = 0;
      double est = 0, nord = 0;
      if (arg.size() < 3 || arg.size() > 4 || !Bottone(arg[0], bottone) || !punto(1, est, nord) ||
          (arg.size() == 4 && Minuscolo(arg[3]) != "shift"))
        return ferma(64, "CLICK vuole un bottone, est, nord e al più shift");
      const int shift = arg.size() == 4 ? 1 : 0;
      // As a hand does: the pointer gets there, the button goes down and comes up.
      MouseMove(s, 0, shift, est - s.Vista.CentroEst, nord - s.Vista.CentroNord);
      MouseDown(s, bottone, shift, est - s.Vista.CentroEst, nord - s.Vista.CentroNord);
      MouseUp(s, bottone, shift, est - s.Vista.CentroEst, nord - s.Vista.CentroNord);
    } else if (azione == "MOVE") {
      double est = 0, nord = 0;
      if (arg.size() != 2 || !punto(0, est, nord)) return ferma(64, "MOVE vuole est e nord");
      MouseMove(s, 0, 0, est - s.Vista.CentroEst, nord - s.Vista.CentroNord);
    } else if (azione == "KEY") {
      EventoTasto e;
      if (arg.size() != 1 || !LeggiTasto(arg[0], e)) return ferma(64, "tasto non riconosciuto");
      TastoGiu(s, e);
    } else if (azione == "TYPE") {
      InvioCasella(s, resto);
    } else if (azione == "ANSWER") {
      if (resto.empty()) return ferma(64, "ANSWER vuole una risposta");
      ui.Accoda(resto);
    } else if (azione == "FIELD" || azione == "PASTE") {
      if (arg.empty()) return ferma(64, azione + " vuole un campo");
      const auto [dialogo, campo] = Destinazione(arg[0]);
      std::string testo = Rifila(resto.substr(arg[0].size()));
      const bool scritto = azione == "FIELD" ? ScriviCampo(s, dialogo, campo, std::move(testo))
                                             : IncollaCampo(s, dialogo, campo, std::move(testo));
      if (!scritto) return ferma(2, "nessun dialogo aperto con il campo " + arg[0]);
    } else if (azione == "PRESS") {
      if (arg.size() != 1) return ferma(64, "PRESS vuole un bottone");
      const auto [dialogo, bottone] = Destinazione(arg[0]);
      if (!PremiBottone(s, dialogo, bottone)) return ferma(2, "nessun dialogo aperto con il bottone " + arg[0]);
    } else if (azione == "VIEW") {
      double est = 0, nord = 0, altezza = 0;
      if (arg.size() != 3 || !punto(0, est, nord) || !Numero(arg[2], altezza) || !(altezza > 0))
        return ferma(64, "VIEW vuole est, nord e un'altezza");
      s.Vista.CentroEst = est;
      s.Vista.CentroNord = nord;
      s.Vista.AltezzaVista = altezza;
      Ridisegna(s);
    } else if (azione == "SAVE") {
      if (!(salva ? salva(s) : Salva(s))) return ferma(2, "lavoro non salvato");
    } else {
      return ferma(64, "azione sconosciuta: " + azione);
    }
  }
  return {};
}

}  // namespace varena
