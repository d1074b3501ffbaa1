// The job's layer table.
#include "core/Piani.h"

#include "core/CodicePagina.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/FileTabella.h"
#include "core/Lista.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Slot.h"

namespace varena {

Piano LeggiRigaPiano(const std::string& riga) {
  std::vector<std::string> c = Dividi(riga, '|');
  c.resize(std::max<size_t>(c.size(), 9));
  Piano p;
  p.Nome = Rifila(c[0]);
  if (p.Nome.empty()) p.Nome = "0";
  p.Flag1 = InteroCorto(Val(c[1]));
  p.Colore = InteroLungo(Val(c[2]));
  if (p.Colore < 1) p.Colore = 1;
  p.Tratteggio = InteroLungo(Val(c[3]));
  if (p.Tratteggio < 0) p.Tratteggio = 0;
  p.Spessore = InteroLungo(Val(c[4]));
  if (p.Spessore < 1) p.Spessore = 1;
  p.Font = Rifila(c[5]);
  if (p.Font.empty()) p.Font = "Arial";
  p.Flag6 = InteroCorto(Val(c[6]));
  p.Flag7 = InteroCorto(Val(c[7]));
  p.Flag8 = InteroCorto(Val(c[8]));
  return p;
}

std::string ScriviRigaPiano(const Piano& p) {
  auto n = [](double v) { return FormaSemplice(v); };
  return p.Nome + "|" + n(p.Flag1) + "|" + n(p.Colore) + "|" + n(p.Tratteggio) + "|" + n(p.Spessore) + "|" +
         p.Font + "|" + n(p.Flag6) + "|" + n(p.Flag7) + "|" + n(p.Flag8);
}

void CaricaPiani(Sessione& s) {
  s.RoutineCorrente = "Carica Piani";
  s.Piani.clear();
  const bool fatto = Protetto(s, [&] {
    const std::string percorso = s.NomeLavoro + EstensioneFile(SlotPiani);
    std::vector<std::string> righe;
    if (const auto byte = LeggiByte(percorso)) {
      ControllaTesto(*byte);
      righe = RigheTesto(Cp1252InUtf8(*byte));
    } else {
      righe = {kRigaPianoDefault};
      if (!s.SolaLettura) ScriviTesto(percorso, righe.front() + "\r\n");
    }
    for (const std::string& riga : righe) {
      if (Rifila(riga).empty()) continue;
      if (static_cast<int>(s.Piani.size()) >= kMassimoPiani) throw ErroreVarena(kErroreIndice);
      s.Piani.push_back(LeggiRigaPiano(riga));
    }
  });
  // A member that failed before its first row stands as the default layer, in memory only.
  if (!fatto && s.Piani.empty()) s.Piani.push_back(LeggiRigaPiano(kRigaPianoDefault));
}

std::string PercorsoPianoDefault(const Sessione& s) { return s.CartellaLavoro + "PIANI.INI"; }

void CaricaPiani1(Sessione& s) {
  s.RoutineCorrente = "Carica Piani 1";
  s.PianoCorrente = "0";
  const std::string percorso = PercorsoPianoDefault(s);
  const bool fatto = Protetto(s, [&] {
    LettoreLista in(LeggiOCreaTabella(s, "PIANI.INI", percorso, kTestoPianoDefault));
    if (in.Fine()) return;
    // The string may list several layers, "|"-separated: the first is the current one.
    const std::string primo = Rifila(Dividi(in.LeggiTesto(), '|').front());
    if (!primo.empty()) s.PianoCorrente = primo;
  });
  if (!fatto) MarcaErrato(s, "PIANI.INI", percorso);
}

}  // namespace varena
