// The view: which rectangle of the sheet the drawing surface shows.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace varena {

struct StatoVista {
  double CentroEst = 50;
  double CentroNord = 50;
  double AltezzaVista = 100;  // metres; every zoom works on this one number
  double RapportoVista = 1.7;  // surface width / height
  double BordoSinistro = 0, BordoBasso = 0, BordoDestro = 0, BordoAlto = 0;
  double PassoTesto = 0;
  double SogliaSimbolo = 0;
  std::array<double, 3> MemoVista{};
  double IngombroEst = 50, IngombroNord = 50, IngombroAltezza = 100;
  int16_t ModoZoom = 0;
  uint8_t PrimoPuntoZoom = 0;
  std::string PromptSalvato;
  // One row per finished redraw: centre and height, for the previous-view key.
  std::vector<std::array<double, 3>> Storia;
};

}  // namespace varena
