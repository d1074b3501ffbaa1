// Checks shared by the tests of commands: several coordinates compared at once, the ends of
// a row, a job opened from its files, the records of one kind in the display list, points
// and lines put in by the row, the printout from a given line on.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "store/Carica.h"
#include "support/ProvaComandi.h"

namespace varena::prova {

using Valori = std::vector<double>;

// Each value within `tolleranza` of the one expected; the message names the first that is not.
inline ::testing::AssertionResult Vicini(const Valori& fatti, const Valori& attesi, double tolleranza = 1e-9) {
  if (fatti.size() != attesi.size()) return ::testing::AssertionFailure() << fatti.size() << " values";
  for (size_t i = 0; i < fatti.size(); ++i)
    if (!(std::fabs(fatti[i] - attesi[i]) <= tolleranza))
      return ::testing::AssertionFailure() << "value " << i << " is " << fatti[i] << ", not " << attesi[i];
  return ::testing::AssertionSuccess();
}

// The plan ends of a line row: x1, y1, x2, y2.
inline Valori Estremi(const Sessione& s, size_t k) { return {s.LineaX1[k], s.LineaY1[k], s.LineaX2[k], s.LineaY2[k]}; }
// The plan ends of every line row, in order.
inline std::vector<Valori> TuttiGliEstremi(const Sessione& s) {
  std::vector<Valori> v;
  for (size_t k = 0; k < static_cast<size_t>(s.ContaEntita[SlotLinee]); ++k) v.push_back(Estremi(s, k));
  return v;
}

// An azimuth in gon from North clockwise, worked out apart from the program's own formula.
inline double Gon(double dx, double dy) {
  const double a = std::atan2(dx, dy) * 200 / M_PI;
  return a < 0 ? a + 400 : a;
}

// "ROSSI" in the temporary folder, its `.LLL` holding `punti`, opened as the program opens a job.
inline void ApriLavoro(Banco& b, const std::string& vista, const std::string& punti) {
  const std::string base = b.cartella / "ROSSI";
  ScriviFileProva(base + ".CFG", CfgManuale("VR2020", vista));
  ScriviFileProva(base + ".LLL", punti);
  b.s.NomeOriginale = base;
  VR_ApriLavoro(b.s);
}

// How many records of the display list are of that kind (only the highlighted ones if asked).
inline int64_t InLista(const Sessione& s, int tipo, bool evidenziati = false) {
  int64_t n = 0;
  for (int64_t i = 0; i < s.ListaDisegno.Conta(); ++i) {
    const auto k = static_cast<size_t>(i);
    n += s.ListaDisegno.Tipo[k] == tipo && (!evidenziati || s.ListaDisegno.Stato[k] != 0);
  }
  return n;
}

// Points (name, x, y, z) and lines (x1, y1, x2, y2) with the plain defaults, in order.
struct PuntoDato {
  const char* Nome;
  double X, Y, Z = 0;
};
inline void MettiPunti(Sessione& s, std::initializer_list<PuntoDato> punti) {
  for (const PuntoDato& p : punti) MettiPunto(s, p.Nome, p.X, p.Y, p.Z);
}
inline void MettiLinee(Sessione& s, std::initializer_list<Valori> linee) {
  for (const Valori& l : linee) MettiLinea(s, l.at(0), l.at(1), l.at(2), l.at(3));
}

// The printout from the first line that begins with `da` (all of it when none does).
inline std::string Da(const std::string& uscita, const std::string& da) {
  const size_t k = uscita.find(da);
  return k == std::string::npos ? uscita : uscita.substr(k);
}
// Runs the lines of `attesa` that begin with "> " as the script and checks that it prints
// `attesa` itself: each line of the script is written once, where it stands in the printout.
inline ::testing::AssertionResult Stampa(Banco& b, const std::string& attesa) {
  std::string script;
  for (size_t i = 0; i < attesa.size();) {
    const size_t fine = attesa.find('\n', i);
    if (attesa.compare(i, 2, "> ") == 0) script += attesa.substr(i + 2, fine - i - 1);
    i = fine == std::string::npos ? attesa.size() : fine + 1;
  }
  const std::string uscita = b.Script(script);
  if (uscita == attesa) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << "printed:\n" << uscita;
}
// A bench for each case: the session `s`, its script and its printout at hand.
struct BancoProva : ::testing::Test, Banco {
  ::testing::AssertionResult Stampa(const std::string& attesa) { return prova::Stampa(*this, attesa); }
};
// `parte` is somewhere in the printout; the message shows the whole of it.
inline ::testing::AssertionResult Contiene(const std::string& uscita, const std::string& parte) {
  if (uscita.find(parte) != std::string::npos) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << "no \"" << parte << "\" in:\n" << uscita;
}

}  // namespace varena::prova
