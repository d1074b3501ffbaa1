#include "LavoroSintetico.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <filesystem>

#include "core/Sessione.h"
#include "store/Salva.h"
#include "store/Slot.h"

namespace varena {

void RiempiLavoroSintetico(Sessione& s, const MisureLavoro& m) {
  ClearAllTables(s);
  // A square grid of Gauss-Boaga coordinates, 2.5 m apart, with a little noise.
  const auto lato = [](int64_t n) { return std::max<int64_t>(1, static_cast<int64_t>(std::ceil(std::sqrt(static_cast<double>(n))))); };
  const int64_t lp = lato(m.Punti), ll = lato(m.Linee);
  PreparaRighe(s, SlotPunti, m.Punti);
  for (int64_t i = 0; i < m.Punti; ++i) {
    const auto r = static_cast<size_t>(i);
    s.PuntoIdent[r] = 0;
    s.PuntoNome[r] = i % 1000 == 0 ? "PF" + std::to_string(i / 1000 % 100) + "/0010/G693" : std::to_string(100 + i);
    s.PuntoDescrizione[r] = i % 7 == 0 ? "SPIGOLO FABBRICATO" : "";
    s.PuntoX[r] = 1725000.0 + static_cast<double>(i % lp) * 2.5 + std::sin(static_cast<double>(i)) * 0.3;
    s.PuntoY[r] = 5030000.0 + static_cast<double>(i / lp) * 2.5;
    s.PuntoZ[r] = 14.0 + std::cos(static_cast<double>(i) * 0.01);
    s.PuntoDimensioneSimbolo[r] = -1.0;
    s.PuntoDimensioneNome[r] = s.PuntoDimensioneQuota[r] = s.PuntoDimensioneDescrizione[r] = m.DimensioneEtichette;
    s.PuntoColoreSimbolo[r] = 24;
    s.PuntoColoreNome[r] = 10;
    s.PuntoAttendibilita[r] = 12;
    s.PuntoSimbolo[r] = 35;
    s.PuntoPiano[r] = "PUNTI";
    s.PuntoFont[r] = "Arial";
    s.PuntoHPrisma[r] = 1.5f;
  }
  s.ContaEntita[SlotPunti] = static_cast<int32_t>(m.Punti);
  PreparaRighe(s, SlotLinee, m.Linee);
  for (int64_t i = 0; i < m.Linee; ++i) {
    const auto r = static_cast<size_t>(i);
    s.LineaIdent[r] = 0;
    s.LineaX1[r] = 1725000.0 + static_cast<double>(i % ll) * 2.5;
    s.LineaY1[r] = 5030000.0 + static_cast<double>(i / ll) * 2.5;
    s.LineaX2[r] = s.LineaX1[r] + 2.5;
    s.LineaY2[r] = s.LineaY1[r] + (i % 3 == 0 ? 2.5 : 0.0);
    s.LineaZ1[r] = 14.0;
    s.LineaZ2[r] = 14.2;
    s.LineaColore[r] = static_cast<int32_t>(1 + i % 9);
    s.LineaTratteggio[r] = static_cast<int16_t>(i % 4);
    s.LineaPiano[r] = i % 2 ? "FABBRIC" : "RECINZ";
  }
  s.ContaEntita[SlotLinee] = static_cast<int32_t>(m.Linee);
  PreparaRighe(s, SlotTesti, m.Testi);
  for (int64_t i = 0; i < m.Testi; ++i) {
    const auto r = static_cast<size_t>(i);
    s.TestoIdent[r] = 0;
    s.TestoX[r] = 1725000.0 + static_cast<double>(i % (lp / 10 + 1)) * 25.0;
    s.TestoY[r] = 5030000.0 + static_cast<double>(i / (lp / 10 + 1)) * 25.0;
    s.TestoAltezza[r] = 1.5;
    s.TestoColore[r] = 1;
    s.TestoPiano[r] = "TESTI";
    s.TestoFont[r] = "Arial";
    s.TestoTesto[r] = "Particella " + std::to_string(i);
  }
  s.ContaEntita[SlotTesti] = static_cast<int32_t>(m.Testi);
  PreparaRighe(s, SlotFalde, m.Falde);
  for (int64_t i = 0; i < m.Falde; ++i) {
    const auto r = static_cast<size_t>(i);
    const double x = 1725000.0 + static_cast<double>(i % lp) * 2.5, y = 5030000.0 + static_cast<double>(i / lp) * 2.5;
    s.FaldaIdent[r] = 0;
    s.FaldaX1[r] = x;
    s.FaldaY1[r] = y;
    s.FaldaX2[r] = x + 2.5;
    s.FaldaY2[r] = y;
    s.FaldaX3[r] = x;
    s.FaldaY3[r] = y + 2.5;
    s.FaldaZ1[r] = s.FaldaZ2[r] = s.FaldaZ3[r] = 14.0;
    s.FaldaColore[r] = 3;
    s.FaldaPiano[r] = "FALDE";
  }
  s.ContaEntita[SlotFalde] = static_cast<int32_t>(m.Falde);
  PreparaRighe(s, SlotArchi, m.Archi);
  for (int64_t i = 0; i < m.Archi; ++i) {
    const auto r = static_cast<size_t>(i);
    s.ArcoIdent[r] = 0;
    s.ArcoX[r] = 1725000.0 + static_cast<double>(i % (lp / 25 + 1)) * 62.5;
    s.ArcoY[r] = 5030000.0 + static_cast<double>(i / (lp / 25 + 1)) * 62.5;
    s.ArcoRaggio[r] = 5.0 + static_cast<double>(i % 7) * 3.0;
    s.ArcoInizio[r] = static_cast<double>(i % 400);
    s.ArcoFine[r] = 50.0 + static_cast<double>(i % 250);
    s.ArcoColore[r] = 4;
    s.ArcoTratteggio[r] = static_cast<int16_t>(i % 3);
    s.ArcoPiano[r] = "STRADA";
  }
  s.ContaEntita[SlotArchi] = static_cast<int32_t>(m.Archi);
  s.Vista.CentroEst = 1726250;
  s.Vista.CentroNord = 5031250;
  s.Vista.AltezzaVista = 2500;
}

int64_t ScriviLavoroSintetico(const std::string& base, const MisureLavoro& m) {
  Sessione s;
  RiempiLavoroSintetico(s, m);
  std::filesystem::create_directories(std::filesystem::path(base).parent_path());
  s.NomeLavoro = s.NomeOriginale = base;
  SalvaTutto(s);
  int64_t totale = 0;
  for (int slot = 0; slot < NumeroSlot; ++slot) {
    std::error_code ec;
    const auto n = std::filesystem::file_size(base + EstensioneFile(slot), ec);
    if (!ec && EstensioneFile(slot)[0] != '\0') totale += static_cast<int64_t>(n);
  }
  return totale;
}

std::string PreparaLavoroSintetico(Sessione& s, const std::string& nome, const MisureLavoro& misure, int64_t* byte) {
  const auto radice = std::filesystem::temp_directory_path() / nome;
  std::filesystem::remove_all(radice);
  s.CartellaDocumenti = radice.string();
  s.CartellaLavoro = s.CartellaDocumenti + "/VR2000/";
  std::filesystem::create_directories(s.CartellaLavoro + "PROVVISO");
  const std::string base = s.CartellaLavoro + "LAVORI/SINTETICO";
  const int64_t scritti = ScriviLavoroSintetico(base, misure);
  if (byte) *byte = scritti;
  return base;
}

bool ModoRapido(int argc, char** argv) {
  for (int i = 1; i < argc; ++i)
    if (std::strcmp(argv[i], "--rapido") == 0) return true;
  return false;
}

void InizializzaBenchmark(int argc, char** argv) {
  std::vector<char*> argomenti;
  for (int i = 0; i < argc; ++i)
    // The options of a benchmark's own (--rapido, --punti=N, --falde=FILE) are not the library's.
    if (std::strcmp(argv[i], "--rapido") != 0 && std::strncmp(argv[i], "--punti=", 8) != 0 &&
        std::strncmp(argv[i], "--falde=", 8) != 0)
      argomenti.push_back(argv[i]);
  int n = static_cast<int>(argomenti.size());
  benchmark::Initialize(&n, argomenti.data());
}

}  // namespace varena
