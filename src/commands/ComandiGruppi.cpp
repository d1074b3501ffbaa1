// The group and symbol commands, between the dialog, the clicks and the selection.
#include "commands/ComandiGruppi.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "commands/Comandi.h"
#include "commands/Gruppi.h"
#include "core/Dialoghi.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/SimboliUtente.h"
#include "core/Testo.h"
#include "selection/Selezione.h"

namespace varena {

namespace {

constexpr const char* kDialogo = "GestioneGruppi";

std::string Elenco(const Sessione& s) {
  std::string elenco;
  for (const std::string& nome : ElencoGruppi(s)) elenco += nome + "\n";
  return elenco;
}

// The name in the box; none, with a message, when it cannot be a file of the library: a
// separator would reach outside the folder.
std::optional<std::string> NomeScelto(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, kDialogo);
  std::string nome = d ? Rifila(d->Valore("Nome")) : std::string();
  if (nome.find_first_of("/\\:") == std::string::npos) return nome;
  s.Ui->Messaggio("Nome del Gruppo non valido", "Gruppi", Icona::Avviso);
  return std::nullopt;
}

// The dialog hands over to the pointer: the command of `codice` on the group `nome`.
void ArmaSuGruppo(Sessione& s, const std::string& nome, int32_t codice) {
  s.NomeGruppo = nome;
  ChiudiDialogo(s, kDialogo);
  InterrompiComando(s);
  s.ComandoCorrente = codice;
  s.VoceArmata = -1;
  ArmaComando(s);
}

void Nuovo(Sessione& s) {
  const auto scelto = NomeScelto(s);
  if (!scelto || scelto->empty()) return;
  const std::string& nome = *scelto;
  if (TrovaFile(PercorsoGruppo(s, nome)) &&
      s.Ui->Domanda("Gruppo " + nome + " Esistente!\nSovrascrivere?", "Gruppo Esistente!", Bottoni::SiNo,
                    Icona::Domanda, Risposta::No) != Risposta::Si)
    return;
  ArmaSuGruppo(s, nome, 259);
}

void Elimina(Sessione& s) {
  const auto nome = NomeScelto(s);
  const auto file = !nome || nome->empty() ? std::nullopt : TrovaFile(PercorsoGruppo(s, *nome));
  if (!file) return;
  if (s.Ui->Domanda("Eliminare il Gruppo " + *nome + "?", "Elimina Gruppo", Bottoni::SiNo, Icona::Domanda,
                    Risposta::No) != Risposta::Si)
    return;
  std::error_code e;
  std::filesystem::remove(*file, e);
  AggiornaCampo(s, kDialogo, "GRUPPI", Elenco(s));
  AggiornaCampo(s, kDialogo, "Nome", "");
}

// The first symbol number the table does not use.
int SimboloLibero(const Sessione& s) {
  int n = 1;
  for (int usato : s.Simboli.Numeri()) n = std::max(n, usato + 1);
  return n;
}

constexpr const char* kMenuSimboli = "MenuSimboli";

// The user's symbols by their point code, then the bases the program draws by itself.
std::string ElencoSimboli(const Sessione& s) {
  std::string elenco;
  for (int n : s.Simboli.Numeri()) elenco += std::to_string(-n) + "\n";
  for (int codice : {0, 2, 3, 4, 5}) elenco += std::to_string(codice) + "\n";
  return elenco;
}

// The code in the box becomes the current symbol; false, with a message, when it is none.
bool SimboloScelto(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, kMenuSimboli);
  const std::string testo = d ? Rifila(d->Valore("Simbolo")) : std::string();
  const double n = Val(testo);
  if (testo.empty() || n != std::floor(n) || n < -32768 || n > 32767) {
    s.Ui->Messaggio("Simbolo non valido", "Selezione Simbolo", Icona::Avviso);
    return false;
  }
  s.SimboloCorrente = static_cast<int16_t>(n);
  return true;
}

// A user symbol of the list taken out of the table, after a question; the program's own
// symbols are not in it.
void EliminaSimboloScelto(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, kMenuSimboli);
  const int numero = d ? -static_cast<int>(std::lround(d->Numero("Simbolo"))) : 0;
  if (numero < 1 || s.Simboli.Simbolo(numero).empty()) return;
  if (s.Ui->Domanda("Eliminare il Simbolo " + std::to_string(-numero) + "?", "Elimina Simbolo", Bottoni::SiNo,
                    Icona::Domanda, Risposta::No) != Risposta::Si)
    return;
  if (EliminaSimbolo(s, numero)) AggiornaCampo(s, kMenuSimboli, "SIMBOLI", ElencoSimboli(s));
}

}  // namespace

bool ApriMenuSimboli(Sessione& s) {
  s.RoutineCorrente = "GESTIONE_SIMBOLI";
  Dialogo d;
  d.Nome = kMenuSimboli;
  d.Titolo = "Selezione Simbolo";
  d.AggiungiCampo("Simbolo", "Simbolo :", std::to_string(s.SimboloCorrente))
      .AggiungiCampo("SIMBOLI", "", ElencoSimboli(s));
  // The first button is the one a double click in the list presses.
  d.AggiungiBottone("Scegli", "Scegli", [](Sessione& x) { SimboloScelto(x); });
  d.AggiungiBottone("Incolla", "Incolla Simbolo ", [](Sessione& x) {
    if (!SimboloScelto(x)) return;
    ChiudiDialogo(x, kMenuSimboli);
    EseguiTag(x, "INCOLLA_SIMBOLO");
  });
  d.AggiungiBottone("Elimina", "Elimina", EliminaSimboloScelto);
  d.AggiungiBottone("Chiudi", "Chiudi", [](Sessione& x) { ChiudiDialogo(x, kMenuSimboli); });
  d.BottoneEsc = "Chiudi";
  ApriDialogo(s, std::move(d));
  return true;
}

bool ApriGestioneGruppi(Sessione& s) {
  Dialogo d;
  d.Nome = kDialogo;
  d.Titolo = "Gruppi";
  // The group last used, or the first of the library, stands chosen.
  const std::vector<std::string> gruppi = ElencoGruppi(s);
  const std::string nome = s.NomeGruppo.empty() && !gruppi.empty() ? gruppi.front() : s.NomeGruppo;
  d.AggiungiCampo("Nome", "Nome :", nome).AggiungiCampo("GRUPPI", "", Elenco(s));
  d.AggiungiBottone("Nuovo", "Nuovo", Nuovo);
  d.AggiungiBottone("Incolla", "Incolla", [](Sessione& x) {
    // An empty or missing name is said at the click, as the command finds the file there.
    if (const auto nome = NomeScelto(x)) ArmaSuGruppo(x, *nome, 260);
  });
  d.AggiungiBottone("Elimina", "Elimina", Elimina);
  d.AggiungiBottone("Chiudi", "Chiudi", [](Sessione& x) { ChiudiDialogo(x, kDialogo); });
  d.BottoneEsc = "Chiudi";
  ApriDialogo(s, std::move(d));
  return true;
}

void subNuovoGruppo(Sessione& s) {
  // Armed by its tag alone, it has no name to save under: the dialog asks for one.
  if (s.NomeGruppo.empty()) {
    InterrompiComando(s);
    ApriGestioneGruppi(s);
    return;
  }
  s.BaseGruppoX = s.PuntoCorrenteX, s.BaseGruppoY = s.PuntoCorrenteY, s.BaseGruppoZ = s.PuntoCorrenteZ;
  s.ComandoCorrente = 265;
  s.VoceArmata = -1;
  ArmaComando(s);
}

void SalvaGruppoSelezionato(Sessione& s) {
  ScriviGruppo(s, s.NomeGruppo, {s.BaseGruppoX, s.BaseGruppoY, s.BaseGruppoZ});
  InterrompiComando(s);
}

void subIncollaGruppo(Sessione& s) {
  if (IncollaGruppo(s, s.NomeGruppo, s.PuntoCorrenteX, s.PuntoCorrenteY) < 0) InterrompiComando(s);
}

void subNuovoSimbolo(Sessione& s) {
  if (!s.SelezioneConfermata) return;
  if (const auto v = s.Ui->Imputa("Numero del Simbolo :", "Simbolo Nuovo", std::to_string(SimboloLibero(s)))) {
    const double n = Val(Rifila(*v));
    if (n >= 1 && n <= 32767 && n == std::floor(n))
      NuovoSimbolo(s, {s.PuntoCorrenteX, s.PuntoCorrenteY, s.PuntoCorrenteZ}, static_cast<int>(n));
    else
      s.Ui->Messaggio("Numero non valido", "Simbolo Nuovo", Icona::Avviso);
  }
  InterrompiComando(s);
}

}  // namespace varena
