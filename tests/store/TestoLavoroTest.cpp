// The whole-job text written at a save, statement by statement, and read back with the
// point statement one place off, as the older readers of the format take it.
#include <gtest/gtest.h>

#include "core/CodicePagina.h"
#include "core/File.h"
#include "store/LavoroProva.h"
#include "store/Provvisorio.h"
#include "store/Salvataggio.h"
#include "store/TestoLavoro.h"

namespace varena {
namespace {

std::vector<std::string> Righe(const std::string& percorso) { return RigheTesto(Cp1252InUtf8(prova::LeggiFileProva(percorso))); }

TEST(TestoLavoro, IlSalvataggioLoScriveELImportazioneSpostaICampiDelPunto) {
  prova::SessioneProva p;
  Sessione& s = p.s;
  const std::string base = p.Lavoro("ROSSI");
  prova::PreparaLavoro(base, 1, 1);
  s.NomeOriginale = base;
  VR_ApriLavoro(s);
  const size_t r = 0;
  s.PuntoNome[r] = "7", s.PuntoColoreNome[r] = 3, s.PuntoCongelaNome[r] = 0, s.PuntoDimensioneNome[r] = 1.5;
  s.PuntoDescrizione[r] = "SPIGOLO \"N\"", s.PuntoColoreDescrizione[r] = 4, s.PuntoCongelaDescrizione[r] = -1;
  s.PuntoDimensioneDescrizione[r] = 1.25, s.PuntoX[r] = 1725000.5, s.PuntoY[r] = 5031465.25, s.PuntoZ[r] = 14.75;
  s.PuntoSpoX[r] = 0.5, s.PuntoSpoY[r] = -0.25, s.PuntoSpoZ[r] = 0, s.PuntoSimbolo[r] = 2;
  s.PuntoColoreSimbolo[r] = 5, s.PuntoCongelaSimbolo[r] = 0, s.PuntoDimensioneSimbolo[r] = 0.75;
  s.PuntoColoreQuota[r] = 6, s.PuntoCongelaQuota[r] = 0, s.PuntoDimensioneQuota[r] = 1, s.PuntoAttendibilita[r] = 1;
  s.PuntoPiano[r] = "PUNTI", s.PuntoFont[r] = "Arial", s.PuntoErroreOrientamento[r] = 0.01, s.PuntoHPrisma[r] = 1.5f;
  SegnaModificato(s, SlotPunti);
  PreparaRighe(s, SlotLinee, 3);
  s.ContaEntita[SlotLinee] = 3;
  for (size_t k = 0; k < 3; ++k) {
    s.LineaIdent[k] = std::array<int16_t, 3>{0, -1, 2}[k];  // erased rows go, any other stays
    s.LineaX1[k] = 10, s.LineaY1[k] = 20, s.LineaZ1[k] = 1, s.LineaX2[k] = 30 + k, s.LineaY2[k] = 40, s.LineaZ2[k] = 2;
    s.LineaColore[k] = 5, s.LineaTratteggio[k] = 2, s.LineaCongela[k] = 0, s.LineaPiano[k] = "RECINZ";
    s.LineaTronca[k] = 0.25;
  }
  SegnaModificato(s, SlotLinee);
  s.ContaEntita[SlotTesti] = 0;
  SegnaModificato(s, SlotTesti);
  s.LibrettoMisure = {"7|\"A\"|"};
  SegnaModificato(s, SlotLibretto);
  ASSERT_TRUE(Salva(s));
  ASSERT_TRUE(Salva(s));  // the second save keeps the first text as the backup

  const std::vector<std::string> xvr = Righe(base + ".XVR");
  const std::vector<std::string> cfg = Righe(base + ".CFG");
  ASSERT_GT(xvr.size(), cfg.size() + 1);
  EXPECT_EQ(xvr[0], R"("<Copright>","<Varena 2000 - Copright Ilario Boschetti>","21/11/2026 2020 10:30:15")");
  EXPECT_EQ(xvr[1], R"("<CFG>")");
  // Block A and B as the job's own settings member has them, without its edition tag.
  EXPECT_EQ(std::vector<std::string>(xvr.begin() + 2, xvr.begin() + 1 + static_cast<long>(cfg.size())),
            std::vector<std::string>(cfg.begin() + 1, cfg.end()));
  const std::vector<std::string> attese = {
      R"("<PUNTO>","7",3,0,1.5,"SPIGOLO 'N'",4,-1,1.25,1725000.5,5031465.25,14.75,0.5,-0.25,0,2,5,0,0.75,6,0,1,1,"PUNTI","Arial",0.01,1.5)",
      R"("<LINEA>",10,20,1,30,40,2,5,2,0,"RECINZ",0.25)",
      R"("<LINEA>",10,20,1,32,40,2,5,2,0,"RECINZ",0.25)",
      R"("<LIBRETTO>","7|'A'|")",
      R"("<SEZIONE>")",
      R"("<CURVELIVELLO>",0)",
  };
  EXPECT_EQ(std::vector<std::string>(xvr.begin() + 1 + static_cast<long>(cfg.size()), xvr.end()), attese);
  EXPECT_EQ(prova::LeggiFileProva(base + ".XVK"), prova::LeggiFileProva(base + ".XVR"));

  // Read back: the lines as written, the point shifted one field and with no name.
  prova::SessioneProva q;
  AggiungiRigaLibretto(q.s, "0|21112026|");
  EXPECT_EQ(LeggiTuttoIla7(q.s, Cp1252InUtf8(prova::LeggiFileProva(base + ".XVR"))), 3);
  EXPECT_TRUE(q.s.LibrettoMisure.empty());
  ASSERT_EQ(q.s.ContaEntita[SlotPunti], 1);
  const Sessione& t = q.s;
  EXPECT_EQ(t.PuntoNome[0], "");
  EXPECT_EQ(std::make_tuple(t.PuntoColoreNome[0], t.PuntoCongelaNome[0], t.PuntoDimensioneNome[0]),
            std::make_tuple(7, int16_t{3}, 0.0));
  EXPECT_EQ(t.PuntoDescrizione[0], "1.5");
  EXPECT_EQ(std::make_tuple(t.PuntoColoreDescrizione[0], t.PuntoCongelaDescrizione[0], t.PuntoDimensioneDescrizione[0]),
            std::make_tuple(0, int16_t{4}, -1.0));
  EXPECT_EQ(std::make_tuple(t.PuntoX[0], t.PuntoY[0], t.PuntoZ[0]), std::make_tuple(1.25, 1725000.5, 5031465.25));
  EXPECT_EQ(std::make_tuple(t.PuntoSpoX[0], t.PuntoSpoY[0], t.PuntoSpoZ[0]), std::make_tuple(14.75, 0.5, -0.25));
  EXPECT_EQ(std::make_tuple(t.PuntoSimbolo[0], t.PuntoColoreSimbolo[0], t.PuntoCongelaSimbolo[0]),
            std::make_tuple(int16_t{0}, 2, int16_t{5}));
  EXPECT_EQ(std::make_tuple(t.PuntoDimensioneSimbolo[0], t.PuntoColoreQuota[0], t.PuntoCongelaQuota[0]),
            std::make_tuple(0.0, 1, int16_t{6}));  // 0.75 read as a whole number
  EXPECT_EQ(std::make_tuple(t.PuntoDimensioneQuota[0], t.PuntoAttendibilita[0], t.PuntoPiano[0], t.PuntoFont[0]),
            std::make_tuple(0.0, int16_t{1}, std::string("1"), std::string("PUNTI")));
  EXPECT_EQ(std::make_tuple(t.PuntoErroreOrientamento[0], t.PuntoHPrisma[0]), std::make_tuple(0.0, 0.01f));
  ASSERT_EQ(t.ContaEntita[SlotLinee], 2);
  EXPECT_EQ(std::make_tuple(t.LineaX1[1], t.LineaY1[1], t.LineaZ1[1], t.LineaX2[1], t.LineaY2[1], t.LineaZ2[1]),
            std::make_tuple(10.0, 20.0, 1.0, 32.0, 40.0, 2.0));
  EXPECT_EQ(std::make_tuple(t.LineaColore[1], t.LineaTratteggio[1], t.LineaCongela[1], t.LineaPiano[1], t.LineaTronca[1]),
            std::make_tuple(5, int16_t{2}, int16_t{0}, std::string("RECINZ"), 0.25));
  EliminaProvviso(s);
}

}  // namespace
}  // namespace varena
