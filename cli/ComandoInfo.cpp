// info and dump: what a job holds, read in place without writing anything.
#include <sstream>
#include <string>

#include "Comandi.h"
#include "Json.h"
#include "Terminale.h"
#include "core/Record.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "sections/DisegnoSezioni.h"
#include "view/Zoom.h"

namespace varena::cli {

namespace {

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
  static const char* nomi[] = {"",      "Punti",  "Linee", "Cerchi", "Archi",   "Testi",   "Falde",
                               "Contorno-7", "", "Vertici curve", "", "", "Sezioni", "Immagini"};
  auto m = [](double v) { return FormatoMaschera(v, "#########0.000"); };
  out << "Lavoro: " << s.NomeOriginale << "\n";
  out << "Edizione: " << (s.Edizione.empty() ? "(nessuna)" : s.Edizione) << "\n";
  for (int slot : kSlotRiportati)
    out << nomi[slot] << ": " << RigheVive(s, slot) << " (righe " << s.ContaEntita[slot] << ")\n";
  out << "Libretto: " << s.LibrettoMisure.size() << " righe\n";
  out << "Piani: " << s.Piani.size() << "\n";
  out << "Vista: E " << m(s.Vista.CentroEst) << "  N " << m(s.Vista.CentroNord) << "  altezza "
      << m(s.Vista.AltezzaVista) << "\n";
  if (const auto r = IngombroEntita(s))
    out << "Ingombro: E " << m(r->XMin) << " .. " << m(r->XMax) << "  N " << m(r->YMin) << " .. " << m(r->YMax)
        << "\n";
}

std::string Valore(const ValoreCampo& v) {
  if (const auto* i = std::get_if<int64_t>(&v)) return JsonNumero(*i);
  if (const auto* d = std::get_if<double>(&v)) return JsonNumero(*d);
  return JsonTesto(std::get<std::string>(v));
}

// False for a slot that has no rows to list.
bool Dump(const Sessione& s, int slot, std::ostream& out) {
  if (!SlotConCampi(slot)) return false;
  for (int32_t r = 0; r < s.ContaEntita[slot]; ++r) {
    std::string riga = "{\"riga\":" + std::to_string(r);
    PerOgniCampo(s, slot, r, [&](std::string_view nome, const ValoreCampo& v) {
      riga += "," + JsonTesto(nome) + ":" + Valore(v);
    });
    out << riga << "}\n";
  }
  return true;
}

int ComandoInfo(const Argomenti& a, std::ostream& out, std::ostream& err) {
  if (a.Posizionali.size() != 1) {
    err << "uso: varena-cli info LAVORO[.CFG] [--json]\n";
    return 64;
  }
  Sessione s;
  InterfacciaTerminale ui(err);
  s.Ui = &ui;
  if (!CaricaInLettura(s, a.Posizionali[0], err)) return 1;
  // A section stands on the sheet where its drawing puts it: its frame is measured by
  // drawing it.
  for (int32_t k = 0; k < s.ContaEntita[SlotSezioni]; ++k) RigeneraSezione(s, k);
  a.Ha("--json") ? InfoJson(s, out) : InfoTesto(s, out);
  return ui.Errori ? 2 : 0;
}

int ComandoDump(const Argomenti& a, std::ostream& out, std::ostream& err) {
  const char* uso =
      "uso: varena-cli dump LAVORO[.CFG] SLOT\n"
      "SLOT: 1 punti, 2 linee, 3 cerchi, 4 archi, 5 testi, 6 falde, 7 Contorno-7,\n"
      "      9 vertici delle curve, 13 immagini\n";
  if (a.Posizionali.size() != 2) {
    err << uso;
    return 64;
  }
  const std::string& testoSlot = a.Posizionali[1];
  Sessione s;
  const bool numero = !testoSlot.empty() && testoSlot.size() < 4 &&
                      testoSlot.find_first_not_of("0123456789") == std::string::npos;
  const int slot = numero ? std::stoi(testoSlot) : -1;
  std::ostringstream prova;
  if (!Dump(s, slot, prova)) {
    err << "Slot non valido: " << testoSlot << "\n" << uso;
    return 64;
  }
  InterfacciaTerminale ui(err);
  s.Ui = &ui;
  if (!CaricaInLettura(s, a.Posizionali[0], err)) return 1;
  Dump(s, slot, out);
  return ui.Errori ? 2 : 0;
}

const RegistraComando kInfo("info", "info LAVORO[.CFG] [--json]", ComandoInfo);
const RegistraComando kDump("dump", "dump LAVORO[.CFG] SLOT", ComandoDump);

}  // namespace

}  // namespace varena::cli
