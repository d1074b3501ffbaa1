// The files of the program's own folder: found under it, and never written at the root of the
// file system by a session that has no such folder.
#include <gtest/gtest.h>

#include <filesystem>

#include "cadastre/Estratto.h"
#include "exchange/DxfLettura.h"
#include "sections/ComandiSezioni.h"
#include "support/Supporto.h"

namespace varena {
namespace {

using prova::Esiste;
using prova::ScriviFileProva;

TEST(CartellaProgramma, FileCercatiSottoLaCartella) {
  prova::SessioneProva p;
  Sessione& s = p.s;
  AzioneSalvaDefaultSezioni(s);
  EXPECT_TRUE(Esiste(s.CartellaProgramma + "/glainalploz.ini"));

  // The association appended to the extract comes from temp/ inside the program folder.
  s.Imp.Cartella_Estratti = p.cartella / "estratti";
  std::filesystem::create_directories(s.Imp.Cartella_Estratti);
  ScriviFileProva(s.Imp.Cartella_Estratti + "/F1.EMP", "A\r\n");
  std::filesystem::create_directories(s.CartellaProgramma + "/temp");
  ScriviFileProva(s.CartellaProgramma + "/temp/Associa.EMP", "B\r\n");
  s.FileEstratto = "F1.EMP";
  CaricaEMP(s);
  EXPECT_EQ(s.TestoEstratto, "A\r\nB\r\n");
}

TEST(CartellaProgramma, SessioneSenzaCartellaNonScriveAllaRadice) {
  prova::CartellaTemporanea dir;
  ScriviFileProva(dir / "a.dxf", "0\nSECTION\n2\nENTITIES\n0\nPOINT\n8\nMURI\n10\n1\n20\n2\n30\n0\n0\nENDSEC\n0\nEOF\n");
  std::filesystem::remove("/PIANI.INI");
  std::filesystem::remove_all("/temp/PROVVISO.DXF");
  Sessione s;
  OpzioniDxfIn o;
  o.Check[DxfPunti] = true;
  ASSERT_TRUE(ImportaDxf(s, dir / "a.dxf", o));
  EXPECT_EQ(s.ContaEntita[SlotPunti], 1);
  EXPECT_FALSE(Esiste("/PIANI.INI"));
  EXPECT_FALSE(Esiste("/temp/PROVVISO.DXF"));
}

}  // namespace
}  // namespace varena
