// The session object and the clearing of a job.
#include "core/Sessione.h"

#include "core/Salvaini.h"
#include "core/Testo.h"

namespace varena {

Sessione::Sessione() : Ui(&uiMuta_), Clip(&clipInterni_) { AzzeraTabelle(*this); }

std::string FileProgramma(const Sessione& s, std::string_view nome) {
  return s.CartellaProgramma + "/" + std::string(nome);
}

bool ScriveNelProgramma(const Sessione& s) { return !s.SolaLettura && !s.CartellaProgramma.empty(); }

void ClearAllTables(Sessione& s) {
  AzzeraTabelle(s);
  s.LibrettoMisure.clear();
  static_cast<StatoLibretto&>(s) = {};
  static_cast<StatoEstratto&>(s) = {};
  s.Testo126.clear();
  s.TestoCel.clear();
  s.MembriConservati.clear();
  s.MembroGuasto.fill(false);
  s.ListaDisegno.Svuota();
  s.IndiceLista.Svuota();
  s.IndicePunti.Svuota();
  s.Vicinanza = {};
  s.Rigenerazione = {};
  s.ImmagineInCima = -1;
}

void MostraPrompt(Sessione& s, std::string_view testo) {
  s.Prompt = std::string(testo);
  s.Ui->Prompt(testo);
}

void AzzeraTabelleLavoro(Sessione& s) {
  ScriviSalvaini(s);
  ClearAllTables(s);
}

void AggiungiRigaLibretto(Sessione& s, const std::string& riga) {
  s.LibrettoMisure.push_back(Rifila(riga));
  s.ContaEntita[SlotLibretto] = static_cast<int32_t>(s.LibrettoMisure.size());
}

}  // namespace varena
