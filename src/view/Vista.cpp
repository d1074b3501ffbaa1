// The view transform and the view set-up of each redraw.
#include "view/Vista.h"

#include "core/Sessione.h"
#include "core/Testo.h"

namespace varena {

PuntoVista InVista(const StatoVista& v, double est, double nord) {
  const double xv = est - v.CentroEst;
  const double yv = nord - v.CentroNord;
  return {static_cast<float>(xv), static_cast<float>(yv)};
}

PuntoMondo InMondo(const StatoVista& v, double xv, double yv) { return {xv + v.CentroEst, yv + v.CentroNord}; }

void Rigenera1(Sessione& s) {
  StatoVista& v = s.Vista;
  // The text step follows the height asked for, before the height is corrected.
  v.PassoTesto = v.AltezzaVista / 400;
  // Written so that a height that is not a number becomes one metre as well.
  if (!(v.AltezzaVista > 1.0)) v.AltezzaVista = 1.0;

  v.RapportoVista = 1.6;
  if (s.Schermo != nullptr) {
    const double larghezza = s.Schermo->LarghezzaMm(), altezza = s.Schermo->AltezzaMm();
    if (larghezza > 0 && altezza > 0) v.RapportoVista = larghezza / altezza;
  }

  v.BordoSinistro = -v.RapportoVista * v.AltezzaVista / 2;
  v.BordoBasso = -v.AltezzaVista / 2;
  v.BordoDestro = v.RapportoVista * v.AltezzaVista / 2;
  v.BordoAlto = v.AltezzaVista / 2;

  // The scale is set at every redraw, whatever the proportions: a square surface has its
  // left edge equal to its bottom one, and a fresh surface has no earlier scale to keep.
  if (s.Schermo == nullptr || s.Schermo->Minimizzata()) return;
  s.Schermo->ScalaUtente(v.BordoSinistro, v.BordoAlto, v.RapportoVista * v.AltezzaVista, -v.AltezzaVista);
}

void AggiungiStoriaVista(StatoVista& v) { v.Storia.push_back({v.CentroEst, v.CentroNord, v.AltezzaVista}); }

void AggiornaIngombroAltezza(StatoVista& v) {
  if (v.IngombroAltezza < 1 || v.IngombroAltezza == 0 || v.IngombroAltezza < v.AltezzaVista)
    v.IngombroAltezza = v.AltezzaVista;
}

}  // namespace varena
