// Load repairs: defaults for empty fields, deletion of degenerate rows, colour fixes.
#include "core/Riparazioni.h"

#include <cmath>
#include <initializer_list>

#include "core/Tabelle.h"
#include "core/Testo.h"

namespace varena {

int32_t ColoreVecchiaTavolozza(int32_t vecchio) {
  static constexpr int32_t kNuovo[16] = {250, 164, 96, 135, 26, 216, 56, 9, 8, 5, 3, 4, 1, 6, 2, 7};
  return vecchio >= 0 && vecchio < 16 ? kNuovo[vecchio] : 1;
}

namespace {

void RiparaColore(int32_t& colore, bool vr2000) {
  if (colore < 0) colore = 0;
  if (vr2000) colore = ColoreVecchiaTavolozza(colore);
}

// Deletes a live row when one of its values is not finite; true when it did.
bool ScartaNonFinita(int16_t& ident, std::initializer_list<double> valori) {
  if (ident != 0) return false;
  for (double v : valori)
    if (!std::isfinite(v)) {
      ident = -1;
      return true;
    }
  return false;
}

}  // namespace

bool RiparaPunto(TabelleEntita& t, int64_t riga, bool vr2000) {
  const auto r = static_cast<size_t>(riga);
  if (t.PuntoFont[r].empty()) t.PuntoFont[r] = "Courier New";
  for (auto* colonna : {&t.PuntoColoreSimbolo, &t.PuntoColoreNome, &t.PuntoColoreQuota, &t.PuntoColoreDescrizione})
    RiparaColore((*colonna)[r], vr2000);
  // Frozen is 0 or negative; a positive value from an old file means not frozen.
  for (auto* colonna : {&t.PuntoCongelaNome, &t.PuntoCongelaDescrizione, &t.PuntoCongelaSimbolo, &t.PuntoCongelaQuota})
    if ((*colonna)[r] > 0) (*colonna)[r] = 0;
  if (t.PuntoAttendibilita[r] < 1) t.PuntoAttendibilita[r] = 12;
  for (auto* colonna : {&t.PuntoDimensioneNome, &t.PuntoDimensioneSimbolo, &t.PuntoDimensioneDescrizione,
                        &t.PuntoDimensioneQuota})
    if ((*colonna)[r] == 0.0) (*colonna)[r] = 1.0;
  return ScartaNonFinita(t.PuntoIdent[r], {t.PuntoX[r], t.PuntoY[r], t.PuntoZ[r], t.PuntoDimensioneSimbolo[r],
                                           t.PuntoDimensioneNome[r], t.PuntoDimensioneQuota[r],
                                           t.PuntoDimensioneDescrizione[r], t.PuntoSpoX[r], t.PuntoSpoY[r], t.PuntoSpoZ[r]});
}

bool RiparaLinea(TabelleEntita& t, int64_t riga, bool vr2000) {
  const auto r = static_cast<size_t>(riga);
  // Only the plan ends count: a vertical line has nothing to draw on the sheet.
  if (t.LineaX1[r] == t.LineaX2[r] && t.LineaY1[r] == t.LineaY2[r]) t.LineaIdent[r] = -1;
  RiparaColore(t.LineaColore[r], vr2000);
  return ScartaNonFinita(t.LineaIdent[r], {t.LineaX1[r], t.LineaY1[r], t.LineaZ1[r], t.LineaX2[r], t.LineaY2[r],
                                           t.LineaZ2[r], t.LineaTronca[r], t.LineaOffsetQuota[r]});
}

bool RiparaCerchio(TabelleEntita& t, int64_t riga, bool vr2000) {
  const auto r = static_cast<size_t>(riga);
  // The height of a circle has always been read from the East field of the record, while
  // the saver writes the real height at its own offset. Old jobs depend on it: kept.
  t.CerchioZ[r] = t.CerchioX[r];
  if (t.CerchioRaggio[r] < 0.001) t.CerchioIdent[r] = -1;
  RiparaColore(t.CerchioColore[r], vr2000);
  return ScartaNonFinita(t.CerchioIdent[r], {t.CerchioX[r], t.CerchioY[r], t.CerchioRaggio[r]});
}

bool RiparaArco(TabelleEntita& t, int64_t riga, bool vr2000) {
  const auto r = static_cast<size_t>(riga);
  if (t.ArcoRaggio[r] < 0.001 || t.ArcoFine[r] < 0.001) t.ArcoIdent[r] = -1;
  RiparaColore(t.ArcoColore[r], vr2000);
  return ScartaNonFinita(t.ArcoIdent[r], {t.ArcoX[r], t.ArcoY[r], t.ArcoZ[r], t.ArcoRaggio[r], t.ArcoInizio[r],
                                          t.ArcoFine[r], t.ArcoQuotaInizio[r], t.ArcoQuotaFinale[r]});
}

bool RiparaTesto(TabelleEntita& t, int64_t riga, bool vr2000) {
  const auto r = static_cast<size_t>(riga);
  if (t.TestoFont[r].empty()) t.TestoFont[r] = "Arial";
  if (Rifila(t.TestoTesto[r]).empty()) t.TestoIdent[r] = -1;
  RiparaColore(t.TestoColore[r], vr2000);
  return ScartaNonFinita(t.TestoIdent[r], {t.TestoX[r], t.TestoY[r], t.TestoRotazione[r], t.TestoAltezza[r]});
}

bool RiparaFalda(TabelleEntita& t, int64_t riga, bool vr2000) {
  const auto r = static_cast<size_t>(riga);
  RiparaColore(t.FaldaColore[r], vr2000);
  return ScartaNonFinita(t.FaldaIdent[r], {t.FaldaX1[r], t.FaldaY1[r], t.FaldaZ1[r], t.FaldaX2[r], t.FaldaY2[r],
                                           t.FaldaZ2[r], t.FaldaX3[r], t.FaldaY3[r], t.FaldaZ3[r]});
}

bool RiparaBitmap(TabelleEntita& t, int64_t riga) {
  const auto r = static_cast<size_t>(riga);
  return ScartaNonFinita(t.BitmapIdent[r], {t.BitmapX[r], t.BitmapY[r], t.BitmapRotazione[r],
                                            t.BitmapX[r] + t.BitmapLarghezza[r] * t.BitmapScalaLar[r],
                                            t.BitmapY[r] - t.BitmapAltezza[r] * t.BitmapScalaAlt[r]});
}

}  // namespace varena
