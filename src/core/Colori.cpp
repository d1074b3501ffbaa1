// Loading of the colour and thickness tables.
#include "core/Colori.h"

#include <algorithm>

#include "core/File.h"
#include "core/FileTabella.h"
#include "core/Testo.h"

namespace varena {

namespace {

int Componente(double v) { return static_cast<int>(std::clamp<int64_t>(ArrotondaPari(v), 0, 255)); }

void LeggiColori(const std::string& testo, TabellaColori& t) {
  for (const std::string& riga : RigheTesto(testo)) {
    if (Rifila(riga).empty()) continue;
    if (t.NumeroColori >= kMassimoColori) throw ErroreVarena(kErroreIndice);
    const std::vector<double> n = NumeriRiga(riga, ',');
    if (n.size() < 3) throw ErroreVarena(kErroreTipo);
    const auto i = static_cast<size_t>(t.NumeroColori + 1);
    t.Colore[i] = ImpaccaRGB(Componente(n[0]), Componente(n[1]), Componente(n[2]));
    t.Quarto[i] = n.size() > 3 ? InteroLungo(n[3]) : 0;
    ++t.NumeroColori;
  }
}

void LeggiSpessori(const std::string& testo, TabellaSpessori& t) {
  for (const std::string& riga : RigheTesto(testo)) {
    if (Rifila(riga).empty()) continue;
    if (t.Letti >= kMassimoSpessori) break;
    const std::vector<double> n = NumeriRiga(riga, ',');
    if (n.empty()) throw ErroreVarena(kErroreTipo);
    t.Spessore[static_cast<size_t>(++t.Letti)] = static_cast<float>(n[0]);
  }
}

}  // namespace

std::string PercorsoColori(const Sessione& s) { return s.CartellaProgramma + "/COLORI.ini"; }
std::string PercorsoSpessori(const Sessione& s) { return s.CartellaLavoro + "SPESSORI1.ini"; }

void CaricaColori(Sessione& s, const std::string& percorso) {
  CaricaTabellaTesto(s, "CaricaColori", "COLORI.ini", percorso, kTestoColori, s.Colori, LeggiColori,
                     [](const TabellaColori& t) { return t.NumeroColori == 0; });
}

void CaricaSpessori(Sessione& s, const std::string& percorso) {
  s.RoutineCorrente = "CaricaSpessori";
  s.Spessori = TabellaSpessori{};
  const bool fatto = Protetto(s, [&] {
    const auto testo = LeggiTestoImpostazioni(s, "SPESSORI1.ini", percorso);
    if (!testo) return;
    TabellaSpessori nuova;
    try {
      LeggiSpessori(*testo, nuova);
    } catch (...) {
      s.Spessori = nuova;  // the entries before the bad line, the rest at 1.0
      throw;
    }
    s.Spessori = nuova;
  });
  if (!fatto) MarcaErrato(s, "SPESSORI1.ini", percorso);
}

}  // namespace varena
