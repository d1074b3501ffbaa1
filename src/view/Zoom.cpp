// Extent computation and the zoom to everything.
#include "view/Zoom.h"

#include <algorithm>
#include <cmath>

#include "core/Sessione.h"

namespace varena {

namespace {

struct Box {
  bool vuoto = true;
  Rettangolo r{};
  void Aggiungi(double x, double y) {
    if (!std::isfinite(x) || !std::isfinite(y)) return;
    if (vuoto) {
      r = {x, y, x, y};
      vuoto = false;
      return;
    }
    r.XMin = std::min(r.XMin, x);
    r.YMin = std::min(r.YMin, y);
    r.XMax = std::max(r.XMax, x);
    r.YMax = std::max(r.YMax, y);
  }
  std::optional<Rettangolo> Risultato() const { return vuoto ? std::nullopt : std::optional<Rettangolo>(r); }
};

size_t N(const Sessione& s, int slot) { return static_cast<size_t>(std::max(s.ContaEntita[slot], 0)); }

void ArcoEstremi(const Sessione& s, size_t i, Box& b) {
  // Azimuths run clockwise from North: the start and the start plus the central angle.
  const double a0 = s.ArcoInizio[i], a1 = s.ArcoInizio[i] + s.ArcoFine[i];
  b.Aggiungi(s.ArcoX[i] + s.ArcoRaggio[i] * std::sin(a0), s.ArcoY[i] + s.ArcoRaggio[i] * std::cos(a0));
  b.Aggiungi(s.ArcoX[i] + s.ArcoRaggio[i] * std::sin(a1), s.ArcoY[i] + s.ArcoRaggio[i] * std::cos(a1));
}

}  // namespace

std::optional<Rettangolo> IngombroDisegno(const Sessione& s) {
  Box b;
  for (size_t i = 0; i < N(s, SlotPunti); ++i)
    if (s.PuntoIdent[i] == 0 && s.PuntoCongelaSimbolo[i] == 0) b.Aggiungi(s.PuntoX[i], s.PuntoY[i]);
  for (size_t i = 0; i < N(s, SlotCerchi); ++i) {
    if (s.CerchioIdent[i] != 0) continue;
    b.Aggiungi(s.CerchioX[i] - s.CerchioRaggio[i], s.CerchioY[i] - s.CerchioRaggio[i]);
    b.Aggiungi(s.CerchioX[i] + s.CerchioRaggio[i], s.CerchioY[i] + s.CerchioRaggio[i]);
  }
  for (size_t i = 0; i < N(s, SlotArchi); ++i)
    if (s.ArcoIdent[i] == 0) ArcoEstremi(s, i, b);
  for (size_t i = 0; i < N(s, SlotTesti); ++i)
    if (s.TestoIdent[i] == 0) b.Aggiungi(s.TestoX[i], s.TestoY[i]);
  return b.Risultato();
}

std::optional<Rettangolo> IngombroEntita(const Sessione& s) {
  Box b;
  for (size_t i = 0; i < N(s, SlotPunti); ++i)
    if (s.PuntoIdent[i] == 0) b.Aggiungi(s.PuntoX[i], s.PuntoY[i]);
  for (size_t i = 0; i < N(s, SlotLinee); ++i)
    if (s.LineaIdent[i] == 0) {
      b.Aggiungi(s.LineaX1[i], s.LineaY1[i]);
      b.Aggiungi(s.LineaX2[i], s.LineaY2[i]);
    }
  for (size_t i = 0; i < N(s, SlotCerchi); ++i) {
    if (s.CerchioIdent[i] != 0) continue;
    b.Aggiungi(s.CerchioX[i] - s.CerchioRaggio[i], s.CerchioY[i] - s.CerchioRaggio[i]);
    b.Aggiungi(s.CerchioX[i] + s.CerchioRaggio[i], s.CerchioY[i] + s.CerchioRaggio[i]);
  }
  for (size_t i = 0; i < N(s, SlotArchi); ++i)
    if (s.ArcoIdent[i] == 0) ArcoEstremi(s, i, b);
  for (size_t i = 0; i < N(s, SlotTesti); ++i)
    if (s.TestoIdent[i] == 0) b.Aggiungi(s.TestoX[i], s.TestoY[i]);
  for (size_t i = 0; i < N(s, SlotFalde); ++i)
    if (s.FaldaIdent[i] == 0) {
      b.Aggiungi(s.FaldaX1[i], s.FaldaY1[i]);
      b.Aggiungi(s.FaldaX2[i], s.FaldaY2[i]);
      b.Aggiungi(s.FaldaX3[i], s.FaldaY3[i]);
    }
  return b.Risultato();
}

void TuttoTutto(Sessione& s) {
  StatoVista& v = s.Vista;
  if (const auto r = IngombroDisegno(s)) {
    v.IngombroEst = (r->XMin + r->XMax) / 2;
    v.IngombroNord = (r->YMin + r->YMax) / 2;
    v.IngombroAltezza = std::max(r->XMax - r->XMin, r->YMax - r->YMin);
  } else {
    v.IngombroEst = v.IngombroNord = 50;
    v.IngombroAltezza = 100;
  }
  v.CentroEst = v.IngombroEst;
  v.CentroNord = v.IngombroNord;
  v.AltezzaVista = v.IngombroAltezza;
}

}  // namespace varena
