// The routines on points: a new point, the swap and the move of names, heights copied
// and pasted, the vertex and direction marks.
#include <cmath>

#include "cadastre/CodiciPunto.h"
#include "commands/Comandi.h"
#include "commands/Costruttori.h"
#include "commands/Modifica.h"
#include "commands/Puntatore.h"
#include "commands/Routine.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "survey/Primitive.h"

namespace varena {

namespace {

constexpr const char* kPromptNuovoPunto = "Indicare la posizione del nuovo punto";

// The live point within a millimetre of (x, y), or -1.
int32_t PuntoEsistente(const Sessione& s, double x, double y) {
  for (int32_t r = 0; r < s.ContaEntita[SlotPunti]; ++r) {
    const auto k = static_cast<size_t>(r);
    if (IdentVivo(s.PuntoIdent[k]) && Distanza2D(x, y, s.PuntoX[k], s.PuntoY[k]) < 0.001) return r;
  }
  return -1;
}

std::string Quota(double z) { return Rifila(FormatoMaschera(z, "#########0.000")); }

// A point of the tables under the click, or nothing: the routines on points do not advance.
bool SuUnPunto(const Sessione& s) {
  return s.PuntoCorrenteIndice >= 0 && s.PuntoCorrenteIndice < s.ContaEntita[SlotPunti];
}

void Marca(Sessione& s, std::string_view marca) {
  if (!SuUnPunto(s)) return;
  std::string& d = s.PuntoDescrizione[static_cast<size_t>(s.PuntoCorrenteIndice)];
  d = MettiCodice(d, marca);
  SegnaModificato(s, SlotPunti);
  FineModifica(s, false);
  ArmaComando(s);
}

}  // namespace

void DisegnoEntitaPunto(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, "NuovoPunto");
  const std::string nome = d ? Rifila(d->Valore("Nome")) : std::string();
  if (nome.empty()) return;
  const int32_t esistente = PuntoEsistente(s, s.PuntoCorrenteX, s.PuntoCorrenteY);
  if (esistente >= 0) {
    const std::string vecchio = Rifila(s.PuntoNome[static_cast<size_t>(esistente)]);
    const std::string testo = "Punto Esistente [ " + vecchio + " ]?\nnella posizione indicata! (0.001 mm)\n"
                              "Cambiare il Nome al Punto Esistente";
    if (s.Ui->Domanda(testo, "Punto Esistente", Bottoni::SiNo, Icona::Domanda, Risposta::No) == Risposta::Si) {
      s.PuntoNome[static_cast<size_t>(esistente)] = nome;
      SegnaModificato(s, SlotPunti);
      ProponiProssimoNome(s, nome);
      FineModifica(s, false);
    }
    return;
  }
  const PuntoXYZ p{s.PuntoCorrenteX, s.PuntoCorrenteY, s.PuntoCorrenteZ};
  const int32_t riga = ScriviPunto(s, nome, p, d->Valore("Descrizione"), d->Valore("Piano"));
  s.PuntoCorrenteNome = nome;
  s.PuntoCorrenteIndice = riga;
  SpostaPunti(s);
  s.PassoComando = 1;
  ProponiProssimoNome(s, nome);
  const Dialogo* dopo = TrovaDialogo(s, "NuovoPunto");
  MostraPrompt(s, (dopo ? Rifila(dopo->Valore("Nome")) : nome) + " - " + kPromptNuovoPunto);
  FineModifica(s, false);
}

void subNomeScambio(Sessione& s) {
  if (!SuUnPunto(s)) return;
  if (s.PassoComando == 0) {
    SpostaPunti(s);
    s.PassoComando = 1;
    MostraPrompt(s, "Nome Scambio - " + s.Punto1Nome + " - Secondo Punto:");
    return;
  }
  const int32_t a = s.Punto1Indice, b = s.PuntoCorrenteIndice;
  if (a == b || a < 0 || a >= s.ContaEntita[SlotPunti]) return;
  std::string& nomeA = s.PuntoNome[static_cast<size_t>(a)];
  std::string& nomeB = s.PuntoNome[static_cast<size_t>(b)];
  // Through a name no point can bear, so that the two never hold the same name.
  const std::string primo = nomeA;
  nomeA = "|IL_A_NO|";
  nomeA = nomeB;
  nomeB = primo;
  SegnaModificato(s, SlotPunti);
  FineModifica(s, false);
  ArmaComando(s);
}

void subEditNomeSposta(Sessione& s) {
  if (s.PassoComando == 0) {
    if (!SuUnPunto(s)) return;
    SpostaPunti(s);
    s.PassoComando = 1;
    MostraPrompt(s, "Nome Sposta - Indica Punto : " + s.Punto1Nome + " - Nuova Posizione:");
    // The new place of the name is wherever the user clicks.
    s.ModoSnap = SnapLibero;
    s.SnapDaTasto = false;
    return;
  }
  const int32_t r = s.Punto1Indice;
  if (r < 0 || r >= s.ContaEntita[SlotPunti]) return;
  const auto k = static_cast<size_t>(r);
  s.PuntoSpoX[k] = s.PuntoCorrenteX - s.PuntoX[k];
  s.PuntoSpoY[k] = s.PuntoCorrenteY - s.PuntoY[k];
  SegnaModificato(s, SlotPunti);
  // A regeneration: the point's place in the grid of the searches follows its label.
  FineModifica(s, true);
  ArmaComando(s);
}

void subCopiaQuota(Sessione& s) {
  if (!SuUnPunto(s)) return;
  const auto k = static_cast<size_t>(s.PuntoCorrenteIndice);
  s.QuotaCopiata = s.PuntoZ[k];
  s.NomeCopiato = Rifila(s.PuntoNome[k]);
  s.ComandoCorrente = 321;
  s.VoceArmata = -1;
  ArmaComando(s);
}

std::string PromptIncollaQuota(const Sessione& s) {
  return "Quota del Punto " + s.NomeCopiato + " Copiata = " + Quota(s.QuotaCopiata);
}

void subIncollaQuota(Sessione& s) {
  if (!SuUnPunto(s)) return;
  s.PuntoZ[static_cast<size_t>(s.PuntoCorrenteIndice)] = s.QuotaCopiata;
  SegnaModificato(s, SlotPunti);
  FineModifica(s, false);
  ArmaComando(s);
}

void subMarcaVertice(Sessione& s) { Marca(s, kCodiceVertice); }
void subMarcaDirezione(Sessione& s) { Marca(s, kCodiceDirezione); }

}  // namespace varena
