// The rows of Pregeo's computed `.DAT` taken into the field book.
#include "cadastre/ElaboratoPregeo.h"

#include "cadastre/Libretto.h"
#include "core/Dialoghi.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Undo.h"

namespace varena {

std::vector<RigaElaborato> RigheElaborato(std::string_view testo) {
  std::vector<RigaElaborato> righe;
  for (const std::string& grezza : RigheTesto(testo)) {
    const std::string riga = Rifila(grezza);
    const std::vector<std::string> p = Dividi(riga, '|');
    if (p.size() < 2 || Rifila(p[1]).empty()) continue;
    const int tipo = TipoRiga(riga);
    if (tipo == 6 && IniziaCon(Rifila(p[1]), "<")) {
      continue;  // the extract, book code and enrolment of the file, not notes of the book
    } else if (tipo == 6) {
      // A long note may hold bars of its own: all of it after the type is its text.
      std::string nota = riga.size() >= 41 ? riga.substr(2) : p[1];
      if (riga.size() >= 41 && nota.back() == '|') nota.pop_back();
      righe.push_back({nota, "6|" + nota + "|0.00|0.00|0.00|"});
    } else if (tipo == 8 && p.size() > 3 && Numerico(p[2]) && Numerico(p[3])) {
      const std::string nome = Rifila(p[1]);
      const std::string nord = FormatoMaschera(Val(p[2]), "########0.######");
      const std::string est = FormatoMaschera(Val(p[3]), "########0.######");
      const std::string quota = FormatoMaschera(p.size() > 4 ? Val(p[4]) : 0.0, "#########.000");
      righe.push_back({nome + "\t" + nord + "\t" + est + "\t" + quota,
                       "8|" + nome + "|" + nord + "|" + est + "|" + quota + "|"});
    }
  }
  return righe;
}

std::optional<std::vector<size_t>> RigheScelte(std::string_view testo, size_t quante) {
  std::vector<size_t> scelte;
  if (Rifila(testo).empty()) {
    for (size_t i = 0; i < quante; ++i) scelte.push_back(i);
    return scelte;
  }
  for (const std::string& pezzo : Dividi(testo, ',')) {
    const std::vector<std::string> capi = Dividi(pezzo, '-');
    if (capi.size() > 2 || !Numerico(capi.front()) || !Numerico(capi.back())) return std::nullopt;
    const double da = Val(capi.front()), a = Val(capi.back());
    if (da < 1 || a < da || a > static_cast<double>(quante) || da != static_cast<size_t>(da) ||
        a != static_cast<size_t>(a))
      return std::nullopt;
    for (auto i = static_cast<size_t>(da); i <= static_cast<size_t>(a); ++i) scelte.push_back(i - 1);
  }
  return scelte;
}

namespace {

constexpr const char* kDialogo = "FormImportaElaboraDatPregeo";
constexpr const char* kTitolo = "Elaborazione Pregeo";

void Aggiungi(Sessione& s, const std::vector<RigaElaborato>& righe) {
  const std::string scritto = TrovaDialogo(s, kDialogo)->Valore("Righe");
  const auto scelte = RigheScelte(scritto, righe.size());
  if (!scelte) {
    s.Ui->Messaggio("Righe non valide: " + scritto + "\nIndicare numeri da 1 a " + std::to_string(righe.size()) +
                        ", come 1-3,5.",
                    kTitolo, Icona::Avviso);
    return;
  }
  ChiudiDialogo(s, kDialogo);
  for (size_t i : *scelte) AggiungiRigaLibretto(s, righe[i].Libro);
  SegnaModificato(s, SlotLibretto);
  VR_SalvaUndo(s);
}

}  // namespace

void AzioneImportaElaboraDat(Sessione& s) {
  s.RoutineCorrente = "FormImportaElaboraDatPregeo";
  const auto scelto =
      s.Ui->ScegliFile(false, kTitolo, "Elaborazione Pregeo (*.DAT;*.TXT)|*.DAT;*.TXT", s.Imp.Cartella_Pregeo, "");
  if (!scelto) return;
  const auto trovato = TrovaFile(*scelto);
  std::string testo;
  if (!trovato || !EsisteFile(*trovato) || !Protetto(s, [&] { testo = CaricaFileIntero(*trovato); })) {
    s.Ui->Messaggio("Il file " + *scelto + " NON è stato trovato!", kTitolo, Icona::Avviso);
    return;
  }
  const std::vector<RigaElaborato> righe = RigheElaborato(testo);
  if (righe.empty()) {
    s.Ui->Messaggio("Nessun punto o nota da importare in " + *scelto, kTitolo, Icona::Avviso);
    return;
  }
  std::string elenco;
  for (const RigaElaborato& r : righe) elenco += r.Testo + "\n";  // the grid numbers the rows
  Dialogo d;
  d.Nome = kDialogo;
  d.Titolo = kTitolo;
  d.AggiungiCampo("Righe", "Righe da aggiungere (es. 1-3,5) :");
  d.AggiungiDato("Elenco", "", elenco);
  d.AggiungiBottone("Aggiungi", "Aggiungi", [righe](Sessione& x) { Aggiungi(x, righe); });
  d.AggiungiBottone("Chiudi", "Chiudi", [](Sessione& x) { ChiudiDialogo(x, kDialogo); });
  d.BottoneEsc = "Chiudi";
  ApriDialogo(s, std::move(d));
}

}  // namespace varena
