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

  // Read back: the lines as written, the point one field early and with no name; the job's
  // text then says what came in (0.75 read as a whole number gives 1), after the repairs of a
  // load: a positive freeze flag is 0, a size 0 is 1.
  prova::SessioneProva q;
  AggiungiRigaLibretto(q.s, "0|21112026|");
  EXPECT_EQ(LeggiTuttoIla7(q.s, Cp1252InUtf8(prova::LeggiFileProva(base + ".XVR"))), 3);
  const std::string letto = TestoTuttoIla7(q.s);
  EXPECT_EQ(letto.substr(letto.find("\"<PUNTO>\"")),
            "\"<PUNTO>\",\"\",7,0,1,\"1.5\",0,0,-1,1.25,1725000.5,5031465.25,14.75,0.5,-0.25,0,2,0,1,1,0,1,1,\"1\","
            "\"PUNTI\",0,0.00999999977648258\r\n" +
                attese[1] + "\r\n" + attese[2] + "\r\n" + attese[4] + "\r\n" + attese[5] + "\r\n");
  EliminaProvviso(s);
}

}  // namespace
}  // namespace varena
