// Exclusive-or painting of the pointer machine's shapes.
#include "view/Elastico.h"

#include <cmath>

#include "core/Sessione.h"
#include "survey/Convenzioni.h"
#include "view/Rigenera.h"

namespace varena {

namespace {

Superficie* Schermo(Sessione& s) { return s.Schermo && !s.Schermo->Minimizzata() ? s.Schermo : nullptr; }

float Vx(const Sessione& s, double x) { return static_cast<float>(x - s.Vista.CentroEst); }
float Vy(const Sessione& s, double y) { return static_cast<float>(y - s.Vista.CentroNord); }

// Every shape goes through here: exclusive or in the highlight colour, so that the same
// call twice leaves the surface as it was.
template <class Dipingi>
void Xor(Superficie& sup, bool tratteggiato, Dipingi dipingi) {
  sup.Modo(ModoPenna::Esclusivo);
  sup.Stile(tratteggiato ? StilePenna::Punteggiato : StilePenna::Continuo);
  sup.ColorePenna(kColoreEvidenza);
  dipingi();
  sup.Modo(ModoPenna::Copia);
  sup.Stile(StilePenna::Continuo);
}

void Dipingi(Sessione& s, Superficie& sup, const FormaLinea& f) {
  Xor(sup, false, [&] { sup.Linea(Vx(s, f.X1), Vy(s, f.Y1), Vx(s, f.X2), Vy(s, f.Y2), kColoreEvidenza); });
}

void Dipingi(Sessione& s, Superficie& sup, const FormaCerchio& f) {
  Xor(sup, false, [&] { sup.Cerchio(Vx(s, f.X), Vy(s, f.Y), static_cast<float>(f.Raggio), kColoreEvidenza); });
}

void Dipingi(Sessione& s, Superficie& sup, const FormaArco& f) {
  // Azimuths run clockwise from North, the surface counter-clockwise from East.
  const double fine = PiGreco / 2 - f.Inizio;
  const double inizio = fine - f.Ampiezza;
  Xor(sup, false, [&] {
    sup.Arco(Vx(s, f.X), Vy(s, f.Y), static_cast<float>(f.Raggio), static_cast<float>(inizio),
             static_cast<float>(fine), kColoreEvidenza);
  });
}

void Dipingi(Sessione& s, Superficie& sup, const FormaRiquadro& f) {
  const float x1 = Vx(s, f.X1), y1 = Vy(s, f.Y1), x2 = Vx(s, f.X2), y2 = Vy(s, f.Y2);
  Xor(sup, f.Tratteggiato, [&] {
    sup.Linea(x1, y1, x2, y1, kColoreEvidenza);
    sup.Linea(x2, y1, x2, y2, kColoreEvidenza);
    sup.Linea(x2, y2, x1, y2, kColoreEvidenza);
    sup.Linea(x1, y2, x1, y1, kColoreEvidenza);
  });
}

void Dipingi(Sessione& s, Superficie& sup, const FormaMarca& f) {
  const float h = static_cast<float>(f.Lato / 2);
  const float x = Vx(s, f.X), y = Vy(s, f.Y);
  Xor(sup, false, [&] { sup.Riquadro(x - h, y - h, x + h, y + h, kColoreEvidenza, false); });
}

// Takes the shape off the screen when shown, changes it, and paints it again.
template <class Forma, class Cambia>
void Sostituisci(Sessione& s, Forma& f, Cambia cambia) {
  Superficie* sup = Schermo(s);
  if (f.Visibile && sup) Dipingi(s, *sup, f);
  cambia(f);
  f.Visibile = true;
  if (sup) Dipingi(s, *sup, f);
}

template <class Forma>
void Togli(Sessione& s, Forma& f) {
  if (!f.Visibile) return;
  if (Superficie* sup = Schermo(s)) Dipingi(s, *sup, f);
  f.Visibile = false;
}

}  // namespace

void MostraLinea(Sessione& s, FormaLinea& f, double x1, double y1, double x2, double y2) {
  Sostituisci(s, f, [&](FormaLinea& l) { l.X1 = x1, l.Y1 = y1, l.X2 = x2, l.Y2 = y2; });
}

void MostraCerchio(Sessione& s, double x, double y, double raggio) {
  Sostituisci(s, s.Elastico.Cerchio, [&](FormaCerchio& c) { c.X = x, c.Y = y, c.Raggio = raggio; });
}

void MostraArco(Sessione& s, double x, double y, double raggio, double inizio, double ampiezza) {
  Sostituisci(s, s.Elastico.Arco, [&](FormaArco& a) {
    a.X = x, a.Y = y, a.Raggio = raggio, a.Inizio = inizio, a.Ampiezza = ampiezza;
  });
}

void MostraRiquadro(Sessione& s, double x1, double y1, double x2, double y2, bool tratteggiato) {
  Sostituisci(s, s.Elastico.Guida, [&](FormaRiquadro& r) {
    r.X1 = x1, r.Y1 = y1, r.X2 = x2, r.Y2 = y2, r.Tratteggiato = tratteggiato;
  });
}

void MostraMarca(Sessione& s, double x, double y, double lato) {
  Sostituisci(s, s.Elastico.Marca, [&](FormaMarca& m) { m.X = x, m.Y = y, m.Lato = lato; });
}

void NascondiLinea(Sessione& s, FormaLinea& f) { Togli(s, f); }
void NascondiCerchio(Sessione& s) { Togli(s, s.Elastico.Cerchio); }
void NascondiArco(Sessione& s) { Togli(s, s.Elastico.Arco); }
void NascondiRiquadro(Sessione& s) { Togli(s, s.Elastico.Guida); }
void NascondiMarca(Sessione& s) { Togli(s, s.Elastico.Marca); }

void NascondiElastici(Sessione& s) {
  Togli(s, s.Elastico.Linea);
  Togli(s, s.Elastico.Cerchio);
  Togli(s, s.Elastico.Arco);
}

void NascondiGuide(Sessione& s) {
  NascondiElastici(s);
  Togli(s, s.Elastico.GuidaLinea);
  Togli(s, s.Elastico.Guida);
  Togli(s, s.Elastico.MirinoOrizzontale);
  Togli(s, s.Elastico.MirinoVerticale);
  Togli(s, s.Elastico.Marca);
}

namespace {

void DipingiSpezzataSu(Sessione& s, Superficie& sup) {
  const SpezzataTemporanea& p = s.SpezzataTemporanea;
  if (p.Conta() < 2) return;
  ColoreRGB fondo = 0;
  ColoreDaIndice(s, s.Imp.Colore_Fondo_Default, fondo);
  sup.Modo(ModoPenna::Copia);
  for (size_t i = 1; i < p.Conta(); ++i)
    sup.Linea(Vx(s, p.X[i - 1]), Vy(s, p.Y[i - 1]), Vx(s, p.X[i]), Vy(s, p.Y[i]), fondo);
  sup.Stile(StilePenna::Punteggiato);
  for (size_t i = 1; i < p.Conta(); ++i)
    sup.Linea(Vx(s, p.X[i - 1]), Vy(s, p.Y[i - 1]), Vx(s, p.X[i]), Vy(s, p.Y[i]), kColoreEvidenza);
  sup.Stile(StilePenna::Continuo);
}

}  // namespace

void DipingiSpezzata(Sessione& s) {
  if (Superficie* sup = Schermo(s)) DipingiSpezzataSu(s, *sup);
}

void RidipingiElastico(Sessione& s, Superficie& sup) {
  DipingiSpezzataSu(s, sup);
  Elastico& e = s.Elastico;
  if (e.Linea.Visibile) Dipingi(s, sup, e.Linea);
  if (e.Cerchio.Visibile) Dipingi(s, sup, e.Cerchio);
  if (e.Arco.Visibile) Dipingi(s, sup, e.Arco);
  if (e.GuidaLinea.Visibile) Dipingi(s, sup, e.GuidaLinea);
  if (e.Guida.Visibile) Dipingi(s, sup, e.Guida);
  if (e.MirinoOrizzontale.Visibile) Dipingi(s, sup, e.MirinoOrizzontale);
  if (e.MirinoVerticale.Visibile) Dipingi(s, sup, e.MirinoVerticale);
  if (e.Marca.Visibile) Dipingi(s, sup, e.Marca);
}

}  // namespace varena
