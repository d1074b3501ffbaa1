// Dispatch of the outside formats to their importers.
#include "exchange/Importatori.h"

#include "cadastre/Pregeo.h"
#include "commands/Azioni.h"
#include "commands/Modifica.h"
#include "core/Porte.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "exchange/CxfLettura.h"
#include "exchange/ImportaPunti.h"
#include "exchange/TafLettura.h"

namespace varena {

std::optional<TipoImportazione> TipoDaEstensione(std::string_view estensione) {
  const std::string e = Maiuscolo(estensione);
  if (e == "TAF") return TipoImportazione::TAF;
  if (e == "CXF") return TipoImportazione::CXF;
  if (e == "DAT") return TipoImportazione::DAT;
  if (e == "GSI") return TipoImportazione::GSI;
  if (e == "CSV") return TipoImportazione::CSV;
  return std::nullopt;
}

const char* NomeTipo(TipoImportazione tipo) {
  switch (tipo) {
    case TipoImportazione::TAF: return "TAF";
    case TipoImportazione::CXF: return "CXF";
    case TipoImportazione::DAT: return "DAT";
    case TipoImportazione::GSI: return "GSI";
    case TipoImportazione::CSV: return "CSV";
  }
  return "";
}

bool ImportaFile(Sessione& s, TipoImportazione tipo, const std::string& percorso) {
  if (tipo == TipoImportazione::GSI) return ImportaPuntiAvvio(s, FormatoPunti::Gsi, percorso);
  if (tipo == TipoImportazione::CSV) return ImportaPuntiAvvio(s, FormatoPunti::Csv, percorso);
  bool ok = false;
  if (tipo == TipoImportazione::TAF) ok = ImportaTaf(s, percorso);
  if (tipo == TipoImportazione::CXF) ok = ImportaCxf(s, percorso);
  if (tipo == TipoImportazione::DAT) {
    // A proposal handed over by the cadastral program: its sides drawn, as the menu's "Carica DAT".
    ok = CaricaDATconNomefile(s, percorso);
    if (!ok) s.Ui->Messaggio("Il file " + percorso + " NON è stato trovato!", "Carica DAT", Icona::Avviso);
  }
  if (!ok) return false;
  FineModifica(s);
  AzioneZoomTutto(s);
  return true;
}

void AzioneCaricaCxf(Sessione& s) {
  const auto f = s.Ui->ScegliFile(false, "Importa CXF", "File CXF mappa (*.CXF)|*.CXF|", "", "");
  if (f && !f->empty()) ImportaFile(s, TipoImportazione::CXF, *f);
}

void AzioneCaricaTaf(Sessione& s) {
  const auto f = s.Ui->ScegliFile(false, "Importa TAF", "File TAF (PF)  (*.TAF)|*.TAF|", "", "");
  if (f && !f->empty()) ImportaFile(s, TipoImportazione::TAF, *f);
}

}  // namespace varena
