// Dispatch of the outside formats to their importers.
#include "exchange/Importatori.h"

#include "core/Sessione.h"
#include "core/Testo.h"
#include "exchange/ImportaPunti.h"

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
  // A kind whose reader is not built in: say so plainly and leave the job untouched.
  s.Ui->Messaggio("Lettura dei file " + std::string(NomeTipo(tipo)) + " non disponibile in questa versione:\n" +
                      percorso,
                  "Importazione", Icona::Avviso);
  return false;
}

}  // namespace varena
