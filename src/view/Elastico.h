// What the pointer machine paints over the drawing while a command or a zoom waits: the
// rubber bands, the guides of a window, the cross hair, the mark of the snap candidate, and
// the temporary polyline of a command. The exclusive-or shapes remember whether they are on
// screen and with which parameters, so that painting them again with the same parameters
// takes them off exactly; a redraw clears the surface and paints again those still shown.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace varena {

struct Sessione;
class Superficie;

// World coordinates; they are turned into view coordinates when painted, and every change
// of the view passes through a redraw, so what is on screen always matches the view.
struct FormaLinea {
  bool Visibile = false;
  double X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;
};
struct FormaCerchio {
  bool Visibile = false;
  double X = 0, Y = 0, Raggio = 0;
};
// From azimuth `Inizio` clockwise through `Ampiezza`, both in radians.
struct FormaArco {
  bool Visibile = false;
  double X = 0, Y = 0, Raggio = 0, Inizio = 0, Ampiezza = 0;
};
// Four guide lines between two corners; dashed for a selection window drawn right to left.
struct FormaRiquadro {
  bool Visibile = false;
  double X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;
  bool Tratteggiato = false;
};
// A small square around a point, of a size on screen and not in metres.
struct FormaMarca {
  bool Visibile = false;
  double X = 0, Y = 0, Lato = 0;
};

struct Elastico {
  FormaLinea Linea;
  FormaCerchio Cerchio;
  FormaArco Arco;
  FormaLinea GuidaLinea;       // the base line of a zoom move
  FormaRiquadro Guida;         // a window or the zoom box
  FormaLinea MirinoOrizzontale, MirinoVerticale;  // the full cross hair of pointer style 2
  FormaMarca Marca;            // the candidate point of the snap
};

struct SpezzataTemporanea {
  std::vector<double> X, Y;
  // Beside each vertex, the height and the name of the point it was taken on ("*" for none).
  std::vector<double> Z;
  std::vector<std::string> Nome;
  std::size_t Conta() const { return X.size(); }
  void Aggiungi(double x, double y, double z, std::string nome) {
    X.push_back(x);
    Y.push_back(y);
    Z.resize(X.size() - 1);
    Nome.resize(X.size() - 1);
    Z.push_back(z);
    Nome.push_back(std::move(nome));
  }
  void Svuota() {
    X.clear();
    Y.clear();
    Z.clear();
    Nome.clear();
  }
};

// Each call takes the old shape off (when shown) and paints the new one; the state changes
// also without a surface, so that a headless run knows what would be on screen.
void MostraLinea(Sessione& s, FormaLinea& f, double x1, double y1, double x2, double y2);
void MostraCerchio(Sessione& s, double x, double y, double raggio);
void MostraArco(Sessione& s, double x, double y, double raggio, double inizio, double ampiezza);
void MostraRiquadro(Sessione& s, double x1, double y1, double x2, double y2, bool tratteggiato);
void MostraMarca(Sessione& s, double x, double y, double lato);

void NascondiLinea(Sessione& s, FormaLinea& f);
void NascondiCerchio(Sessione& s);
void NascondiArco(Sessione& s);
void NascondiRiquadro(Sessione& s);
void NascondiMarca(Sessione& s);
// The rubber bands only: line, circle and arc.
void NascondiElastici(Sessione& s);
// Every shape of the pointer machine.
void NascondiGuide(Sessione& s);

// After a redraw has cleared `sup`: the temporary polyline (in the background colour, then
// dotted in the highlight colour) and every exclusive-or shape still shown.
void RidipingiElastico(Sessione& s, Superficie& sup);
// The temporary polyline alone, painted over what is on screen.
void DipingiSpezzata(Sessione& s);

}  // namespace varena
