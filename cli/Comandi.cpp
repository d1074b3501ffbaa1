// info and dump: what a job holds, read in place without writing anything.
#include "Comandi.h"

#include <optional>
#include <sstream>

#include "Json.h"
#include "core/Avvio.h"
#include "core/Configura.h"
#include "core/File.h"
#include "core/Record.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Carica.h"
#include "view/Zoom.h"

namespace varena::cli {

namespace {

// What the user would see in boxes goes to the error stream; questions take their default.
class InterfacciaTerminale : public InterfacciaMuta {
 public:
  explicit InterfacciaTerminale(std::ostream& err) : err_(err) {}
  void Messaggio(std::string_view testo, std::string_view titolo, Icona icona) override {
    err_ << titolo << ": " << testo << "\n";
    if (icona == Icona::Critico) ++errori;
  }
  int errori = 0;

 private:
  std::ostream& err_;
};

const char* kUso =
    "uso: varena-cli info LAVORO[.CFG] [--json]\n"
    "     varena-cli dump LAVORO[.CFG] SLOT\n"
    "SLOT: 1 punti, 2 linee, 3 cerchi, 4 archi, 5 testi, 6 falde, 7 Contorno-7,\n"
    "      9 vertici delle curve, 13 immagini\n";

// The job's base path: the name with or without ".CFG", in any letter case.
std::optional<std::string> BaseLavoro(const std::string& argomento) {
  std::string base = NormalizzaPercorso(argomento);
  if (base.size() > 4 && UgualeSenzaCaso(base.substr(base.size() - 4), ".CFG")) base.resize(base.size() - 4);
  if (!EsisteFile(base + ".CFG")) return std::nullopt;
  return base;
}

bool CaricaInLettura(Sessione& s, const std::string& argomento, std::ostream& err) {
  const auto base = BaseLavoro(argomento);
  if (!base) {
    err << "Lavoro non trovato: " << argomento << "\n";
    return false;
  }
  ImpostaCartelle(s);
  s.SolaLettura = true;
  s.NomeOriginale = *base;
  s.NomeLavoro = *base;
  ClearAllTables(s);
  CaricaLavoro(s);
  return true;
}

constexpr int kSlotRiportati[] = {1, 2, 3, 4, 5, 6, 7, 9, 12, 13};

void InfoJson(Sessione& s, std::ostream& out) {
  std::string conta, vivi;
  for (int slot : kSlotRiportati) {
    const std::string chiave = JsonTesto(std::to_string(slot)) + ":";
    conta += (conta.empty() ? "" : ",") + chiave + JsonNumero(int64_t{s.ContaEntita[slot]});
    vivi += (vivi.empty() ? "" : ",") + chiave + JsonNumero(RigheVive(s, slot));
  }
  const auto ingombro = IngombroEntita(s);
  out << "{\"lavoro\":" << JsonTesto(s.NomeOriginale) << ",\"edizione\":" << JsonTesto(s.Edizione)
      << ",\"conta\":{" << conta << "},\"vivi\":{" << vivi << "},\"vista\":[" << JsonNumero(s.Vista.CentroEst)
      << "," << JsonNumero(s.Vista.CentroNord) << "," << JsonNumero(s.Vista.AltezzaVista) << "],\"ingombro\":";
  if (ingombro)
    out << "[" << JsonNumero(ingombro->XMin) << "," << JsonNumero(ingombro->YMin) << "," << JsonNumero(ingombro->XMax)
        << "," << JsonNumero(ingombro->YMax) << "]";
  else
    out << "null";
  out << ",\"libretto\":" << s.LibrettoMisure.size() << ",\"piani\":" << s.Piani.size() << "}\n";
}

void InfoTesto(Sessione& s, std::ostream& out) {
  static const char* nomi[] = {"", "Punti", "Linee", "Cerchi", "Archi", "Testi", "Falde", "Contorno-7", "", "Vertici curve",
                               "", "", "Sezioni", "Immagini"};
  out << "Lavoro: " << s.NomeOriginale << "\n";
  out << "Edizione: " << (s.Edizione.empty() ? "(nessuna)" : s.Edizione) << "\n";
  for (int slot : kSlotRiportati)
    out << nomi[slot] << ": " << RigheVive(s, slot) << " (righe " << s.ContaEntita[slot] << ")\n";
  out << "Libretto: " << s.LibrettoMisure.size() << " righe\n";
  out << "Piani: " << s.Piani.size() << "\n";
  out << "Vista: E " << FormatoMaschera(s.Vista.CentroEst, "#########0.000") << "  N "
      << FormatoMaschera(s.Vista.CentroNord, "#########0.000") << "  altezza "
      << FormatoMaschera(s.Vista.AltezzaVista, "#########0.000") << "\n";
  if (const auto r = IngombroEntita(s))
    out << "Ingombro: E " << FormatoMaschera(r->XMin, "#########0.000") << " .. "
        << FormatoMaschera(r->XMax, "#########0.000") << "  N " << FormatoMaschera(r->YMin, "#########0.000")
        << " .. " << FormatoMaschera(r->YMax, "#########0.000") << "\n";
}

std::string Valore(const ValoreCampo& v) {
  if (const auto* i = std::get_if<int64_t>(&v)) return JsonNumero(*i);
  if (const auto* d = std::get_if<double>(&v)) return JsonNumero(*d);
  return JsonTesto(std::get<std::string>(v));
}

template <class Tab>
void DumpRighe(const Sessione& s, const LayoutRecord<Tab>& layout, std::ostream& out) {
  const Tab& tab = s;
  for (int32_t r = 0; r < s.ContaEntita[layout.Slot]; ++r) {
    std::string riga = "{\"riga\":" + std::to_string(r);
    for (const auto& campo : layout.Campi) {
      if (campo.Membro.index() == 0) continue;  // reserved bytes
      riga += "," + JsonTesto(campo.Nome) + ":" + Valore(ValoreDi(campo, tab, r));
    }
    out << riga << "}\n";
  }
}

void Dump(const Sessione& s, int slot, std::ostream& out) {
  switch (slot) {
    case SlotPunti: DumpRighe(s, LayoutPunti(), out); return;
    case SlotLinee: DumpRighe(s, LayoutLinee(), out); return;
    case SlotCerchi: DumpRighe(s, LayoutCerchi(), out); return;
    case SlotArchi: DumpRighe(s, LayoutArchi(), out); return;
    case SlotTesti: DumpRighe(s, LayoutTesti(), out); return;
    case SlotFalde: DumpRighe(s, LayoutFalde(), out); return;
    case SlotSette: DumpRighe(s, LayoutSette(), out); return;
    case SlotCurve: DumpRighe(s, LayoutCurve(), out); return;
    case SlotBitmap: DumpRighe(s, LayoutBitmap(), out); return;
    default: return;
  }
}

}  // namespace

int Esegui(const std::vector<std::string>& argomenti, std::ostream& out, std::ostream& err) {
  std::vector<std::string> posizionali;
  bool json = false;
  for (const std::string& a : argomenti) {
    if (a == "--json")
      json = true;
    else
      posizionali.push_back(a);
  }
  if (posizionali.empty()) {
    err << kUso;
    return 64;
  }
  const std::string& comando = posizionali[0];
  Sessione s;
  InterfacciaTerminale ui(err);
  s.Ui = &ui;
  if (comando == "info" && posizionali.size() == 2) {
    if (!CaricaInLettura(s, posizionali[1], err)) return 1;
    json ? InfoJson(s, out) : InfoTesto(s, out);
    return ui.errori ? 2 : 0;
  }
  if (comando == "dump" && posizionali.size() == 3) {
    const std::string& testoSlot = posizionali[2];
    const int slot = static_cast<int>(Val(testoSlot));
    const bool valido = !testoSlot.empty() && testoSlot.find_first_not_of("0123456789") == std::string::npos &&
                        (slot == SlotCurve || slot == SlotBitmap || (slot >= SlotPunti && slot <= SlotSette));
    if (!valido) {
      err << "Slot non valido: " << testoSlot << "\n" << kUso;
      return 64;
    }
    if (!CaricaInLettura(s, posizionali[1], err)) return 1;
    Dump(s, slot, out);
    return ui.errori ? 2 : 0;
  }
  err << kUso;
  return 64;
}

}  // namespace varena::cli
