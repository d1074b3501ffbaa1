// Records of every kind built by hand with a value of its own in every field, and a small
// job written once by the savers, shared by the tests of loading, saving and undo.
#pragma once
#include <gtest/gtest.h>

#include <string>

#include "core/Sessione.h"
#include "store/Carica.h"
#include "store/Salva.h"
#include "support/Supporto.h"

namespace varena::prova {

inline std::string RecordPunto(const std::string& nome, double x) {
  Record r(256);
  r.I16(0, 0).Car(2, 40, nome).Car(42, 40, "SPIGOLO \xE8").F64(82, x).F64(90, 5031465.33).F64(98, 14.82);
  r.F64(106, 2.5).F64(114, 1.25).I16(122, 4464).I16(124, 10).I16(126, -1).I16(128, 0).I16(130, -2);
  r.I16(132, 32).F64(134, 0.75).I16(142, 3).Car(144, 2, "").I16(146, 66).Car(148, 8, "PUNTI").Car(156, 2, "");
  r.F64(158, 0.3).F64(166, -0.4).F64(174, 0.6).I16(182, 60).I16(184, -1).F64(186, 1.75);
  r.Car(194, 30, "Times New Roman").Car(224, 8, "").F64(232, 0.0123).F32(240, 1.55f).Car(244, 12, "");
  return r.Byte();
}

inline std::string RecordLinea(double x1 = 10, double x2 = 30, const std::string& piano = "RECINZ") {
  Record l(128);
  l.I16(0, 0).F64(2, x1).F64(10, 20).F64(18, 1).F64(26, x2).F64(34, 40).F64(42, 2).I16(50, 5).I16(52, 2).I16(54, -1);
  return l.I16(56, 1).F32(58, 0.5f).Car(62, 22, "").Car(84, 8, piano).F64(92, 0.25).Car(100, 28, "").Byte();
}

inline std::string RecordCerchio(double z) {
  Record c(128);
  c.I16(0, 0).F64(2, 100.5).F64(10, 200.5).F64(18, z).F64(26, 3).Car(34, 16, "").I16(50, 3).I16(52, 1);
  return c.I16(54, -1).Car(56, 28, "").Car(84, 8, "VERDE").Car(92, 36, "").Byte();
}

inline std::string RecordArco() {
  Record a(128);
  a.I16(0, 0).F64(2, 5).F64(10, 6).F64(18, 7).F64(26, 10).F64(34, 3.14159).F64(42, 1.5).I16(50, 8).I16(52, 1);
  a.I16(54, -1).Car(56, 4, "").F64(60, 14.1).F64(68, 14.2).Car(76, 8, "").Car(84, 8, "STRADA");
  return a.Car(92, 36, "").Byte();
}

inline std::string RecordTesto(const std::string& testo = "STRADA COMUNALE") {
  Record t(256);
  t.I16(0, 0).F64(2, 1.5).F64(10, 2.5).F64(18, 100).F64(26, 1.8).F64(42, 2).I16(50, 4).Car(52, 2, "");
  t.I16(54, -1).F64(56, 3).Car(64, 20, "").Car(84, 8, "TESTI").Car(92, 23, "Arial").Car(115, 132, testo);
  return t.Car(247, 9, "").Byte();
}

inline std::string RecordFalda() {
  Record f(256);
  f.I16(0, 0).F64(2, 1).F64(10, 2).F64(18, 3).F64(26, 4).F64(34, 5).F64(42, 6).I16(50, 9).F64(52, 7).F64(60, 8);
  f.F64(68, 9).I16(76, -1).Car(78, 6, "").F64(84, 10).F64(92, 11).F64(100, 12).Car(108, 8, "FALDE");
  for (int k = 0; k < 12; ++k) f.F64(116 + 8 * static_cast<size_t>(k), 13 + k);
  return f.Car(212, 44, "").Byte();
}

// A session whose job "LAV" lies in its temporary folder, with its members written and read
// by hand.
class ProvaMembri : public ::testing::Test {
 protected:
  SessioneProva p;
  Sessione& s = p.s;
  void SetUp() override { s.NomeLavoro = p.Lavoro("LAV"); }
  void Scrivi(const char* est, const std::string& byte) { ScriviFileProva(s.NomeLavoro + est, byte); }
  std::string File(const std::string& est) const { return LeggiFileProva(s.NomeLavoro + est); }
};

// The boxes shown so far, each as "title: text".
inline std::vector<std::string> Detti(const InterfacciaRegistrata& ui) {
  std::vector<std::string> d;
  for (const auto& m : ui.Messaggi) d.push_back(m.Titolo + ": " + m.Testo);
  return d;
}

inline std::string Vertice(uint8_t flag, double x) { return Record(17).U8(0, flag).F64(1, x).F64(9, -3).Byte(); }

// A job of `punti` points 10 m apart from East 1725000 and `linee` lines joining them,
// one text, a view of height 80 and one line of field book, written by the savers.
inline void PreparaLavoro(const std::string& base, int punti, int linee) {
  Sessione s;
  s.NomeLavoro = base;
  PreparaRighe(s, SlotPunti, punti);
  PreparaRighe(s, SlotLinee, linee);
  PreparaRighe(s, SlotTesti, 1);
  s.ContaEntita[SlotPunti] = punti, s.ContaEntita[SlotLinee] = linee, s.ContaEntita[SlotTesti] = 1;
  for (int k = 0; k < punti; ++k) {
    const auto r = static_cast<size_t>(k);
    const double x = 1725000 + 10.0 * k;
    s.PuntoNome[r] = std::to_string(101 + k), s.PuntoX[r] = x, s.PuntoY[r] = 5031000, s.PuntoPiano[r] = "PUNTI";
    s.PuntoFont[r] = "Arial";
    if (k < linee) s.LineaX1[r] = x, s.LineaX2[r] = x + 10, s.LineaY1[r] = s.LineaY2[r] = 5031000;
    if (k < linee) s.LineaPiano[r] = "RECINZ";
  }
  s.TestoTesto[0] = "NOTA", s.TestoFont[0] = "Arial";
  s.Vista.CentroEst = 1725020, s.Vista.CentroNord = 5031000, s.Vista.AltezzaVista = 80;
  s.Piani = {Piano{}};
  AggiungiRigaLibretto(s, "0|21112026|1|G693|0010|1|COGNOME NOME|GEOMETRA|PADOVA|");
  ASSERT_TRUE(SalvaTutto(s));
}

}  // namespace varena::prova
