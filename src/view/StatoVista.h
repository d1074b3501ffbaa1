// The view: which rectangle of the sheet the drawing surface shows, and the state of the
// zoom that the pointer drives.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace varena {

// What `ModoZoom` holds while a zoom waits for the pointer.
enum ModoZoomAttivo : int16_t {
  ZoomNessuno = 0,
  ZoomFinestra = 1,
  ZoomSposta = 2,
  ZoomCentro = 3,
  ZoomRiquadro = 4,
};

struct StatoVista {
  double CentroEst = 50;
  double CentroNord = 50;
  double AltezzaVista = 100;  // metres; every zoom works on this one number
  double RapportoVista = 1.7;  // surface width / height
  double BordoSinistro = 0, BordoBasso = 0, BordoDestro = 0, BordoAlto = 0;
  double PassoTesto = 0;
  double SogliaSimbolo = 0;
  std::array<double, 3> MemoVista{};  // centre East, centre North, height
  double IngombroEst = 50, IngombroNord = 50, IngombroAltezza = 100;
  int16_t ModoZoom = ZoomNessuno;
  uint8_t PrimoPuntoZoom = 0;  // 0, or 255 once the first point of a window or move is in
  std::string PromptSalvato;
  // One row per finished redraw: centre and height, for the previous-view key.
  std::vector<std::array<double, 3>> Storia;
  // Centre and height of the picture last painted on the screen: the desktop program shows
  // that picture moved and scaled while a drag or the wheel runs ahead of the next redraw.
  std::array<double, 3> SulloSchermo{};

  // The first corner of a window, or the base point of a move, in metres. The command's
  // own points are never borrowed for it, so a zoom inside a command leaves them alone.
  double PrimoZoomEst = 0, PrimoZoomNord = 0;
  // The move's guide line from the base point to the pointer is on screen.
  bool GuidaSpostamento = false;
  // The middle-button drag: where the button went down, in view coordinates, and the
  // centre at that moment.
  double TrascinaX = 0, TrascinaY = 0, TrascinaCentroEst = 0, TrascinaCentroNord = 0;
  // The last pointer position in metres, for the centre-on-pointer key and the guides.
  double PuntatoreEst = 0, PuntatoreNord = 0;
  // The seconds the last redraw took, for the status bar, and how many redraws there have
  // been: before the first there is no time to show.
  double TempoRidisegno = 0;
  uint64_t Ridisegni = 0;
};

}  // namespace varena
