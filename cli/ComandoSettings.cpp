// settings: the environment settings in force and where each table and setting file was
// read from, as the program finds them at start. Nothing is written or removed: a table
// that is missing stands at its defaults and is reported as absent.
#include <string>

#include "Comandi.h"
#include "Json.h"
#include "Terminale.h"
#include "core/Avvio.h"
#include "core/Configura.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"

namespace varena::cli {

namespace {

struct Conteggio {
  const char* Nome;
  int64_t Valore;
};

std::vector<Conteggio> Conteggi(const Sessione& s) {
  return {{"colori", s.Colori.NumeroColori},
          {"spessori", s.Spessori.Letti},
          {"tratteggi", s.Tratteggi.NumeroTratteggi},
          {"codici", static_cast<int64_t>(s.Codici.Righe.size())},
          {"note", static_cast<int64_t>(s.Note.Note.size())},
          {"comuni", s.Comuni.NumeroComuni()},
          {"colonneToolbar", s.Toolbar.NumeroColonne}};
}

void SettingsJson(const Sessione& s, std::ostream& out) {
  const auto& voci = TabellaConfigura();
  out << "{\"cartellaLavoro\":" << JsonTesto(s.CartellaLavoro)
      << ",\"cartellaProgramma\":" << JsonTesto(s.CartellaProgramma) << ",\"impostazioni\":{";
  for (size_t i = 0; i < voci.size(); ++i) {
    const std::string v = ValoreConfigura(s, i);
    out << (i ? "," : "") << JsonTesto(voci[i].Chiave) << ":"
        << (voci[i].Tipo == 's' ? JsonTesto(v) : JsonNumero(Val(v)));
  }
  out << "},\"file\":[";
  for (size_t i = 0; i < s.FileRiferimento.size(); ++i) {
    const OrigineFile& o = s.FileRiferimento[i];
    out << (i ? "," : "") << "{\"nome\":" << JsonTesto(o.Nome) << ",\"percorso\":" << JsonTesto(o.Percorso)
        << ",\"stato\":" << JsonTesto(NomeStato(o.Stato)) << "}";
  }
  out << "],\"tabelle\":{";
  bool primo = true;
  for (const Conteggio& c : Conteggi(s)) {
    out << (primo ? "" : ",") << JsonTesto(c.Nome) << ":" << JsonNumero(c.Valore);
    primo = false;
  }
  out << "},\"pianoCorrente\":" << JsonTesto(s.PianoCorrente) << ",\"paginazione\":{\"attiva\":"
      << (s.Paginato.Attiva() ? "true" : "false") << ",\"colonne\":" << JsonTesto(s.Paginato.Colonne)
      << ",\"righe\":" << JsonTesto(s.Paginato.Righe) << "}}\n";
}

void SettingsTesto(const Sessione& s, std::ostream& out) {
  out << "Cartella di lavoro: " << s.CartellaLavoro << "\n";
  out << "Cartella del programma: " << s.CartellaProgramma << "\n";
  out << "\nImpostazioni in vigore (Configura.ini):\n";
  // The lines exactly as the settings writer would put them in the file.
  for (const std::string& riga : RigheTesto(TestoConfigura(s))) out << "  " << riga << "\n";
  out << "\nFile letti:\n";
  for (const OrigineFile& o : s.FileRiferimento) {
    std::string nome = o.Nome;
    nome.resize(std::max<size_t>(nome.size(), 22), ' ');
    std::string stato = NomeStato(o.Stato);
    stato.resize(std::max<size_t>(stato.size(), 8), ' ');
    out << "  " << nome << " " << stato << " " << o.Percorso << "\n";
  }
  out << "\nTabelle:\n";
  for (const Conteggio& c : Conteggi(s)) out << "  " << c.Nome << ": " << c.Valore << "\n";
  out << "  piano corrente: " << s.PianoCorrente << "\n";
  out << "  paginazione: "
      << (s.Paginato.Attiva() ? "attiva, " + s.Paginato.Colonne + " x " + s.Paginato.Righe : std::string("no"))
      << "\n";
}

int ComandoSettings(const Argomenti& a, std::ostream& out, std::ostream& err) {
  if (!a.Posizionali.empty() || (!a.Opzioni.empty() && !(a.Opzioni.size() == 1 && a.Ha("--json")))) {
    err << "uso: varena-cli settings [--json]\n";
    return 64;
  }
  Sessione s;
  InterfacciaTerminale ui(err);
  s.Ui = &ui;
  s.SolaLettura = true;
  AvviaSessione(s);
  LeggiStampaPaginato(s);
  a.Ha("--json") ? SettingsJson(s, out) : SettingsTesto(s, out);
  return ui.Errori ? 2 : 0;
}

const RegistraComando kSettings("settings", "settings [--json]", ComandoSettings);

}  // namespace

}  // namespace varena::cli
