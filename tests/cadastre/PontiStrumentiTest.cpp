// The GPS tool's file, the monograph call and Pregeo's municipalities: expected by hand.
#include <gtest/gtest.h>

#include <filesystem>

#include "cadastre/Libretto.h"
#include "cadastre/Pregeo.h"
#include "commands/RoutineModifica.h"
#include "core/Dialoghi.h"
#include "core/ProcessiSistema.h"
#include "support/ProvaComandi.h"

namespace varena {
namespace {

TEST(PontiStrumenti, CalcoloGpsEMonografia) {
  prova::Banco b;
  prova::ApriLavoroVuoto(b);
  ProcessiSistema sistema;
  b.s.Proc = &sistema;
  const std::string copia = b.cartella / "copia";  // what the stand-in tools were handed
  b.s.Imp.Strumento_CalcoloGPS = "cp %1 " + copia;
  b.s.Imp.Strumento_SondaIII = "/bin/sh -c \"echo $0 > " + copia + "\" %1";
  prova::MettiPunto(b.s, "101", 10.5, 20.25, 3);
  prova::MettiPunto(b.s, "A,1", -5.5, 0.0004, 1234.123456789);
  prova::MettiPunto(b.s, "5 B", 1, 2, 3);
  b.s.StatoPunto[0] = b.s.StatoPunto[1] = 1;  // only the picked points go
  AzioneCalcoloGPS(b.s);
  EXPECT_EQ(prova::LeggiFileProva(copia), "101,10.500,20.250,3.000,0,0,0\r\nA.1,-5.500,0.0004,1234.123456789,0,0,0\r\n");
  subEditaEntita(b.s, SlotPunti, 2);
  ASSERT_TRUE(PremiBottone(b.s, "formEditaPunto", "MONOGRAFIE"));
  EXPECT_EQ(prova::LeggiFileProva(copia), "5 B |MONOGRAFIE|\n");
}

// Pregeo's table before "comunt.dat"; a line of no name is no row; the file's code page.
TEST(PontiStrumenti, ComuniDaProsigle) {
  prova::Banco b;
  b.s.Imp.Cartella_Pregeo = b.s.Imp.Cartella_Archivio_Pregeo = b.cartella / "pregeo";
  std::filesystem::create_directories(b.cartella / "pregeo/exe");
  prova::ScriviFileProva(b.cartella / "pregeo/exe/PROSIGLE", "X999\r\nA001;PADOVA\r\nG693\t CITT\xC0 DI PADOVA \r\n");
  prova::ScriviFileProva(b.cartella / "pregeo/comunt.dat", "G693 ALTRO@BB0001BOLOGNA@B");
  for (const auto& [codice, nome] : {std::pair{"G693", "CITTÀ DI PADOVA"}, {"B0001", "BOLOGNA"}, {"X999", ""}}) {
    b.s.LibrettoMisure = {std::string("0|01012020|1|") + codice + "|0010|1|COGNOME NOME|GEOMETRA|PADOVA|"};
    DatiDaRigaZero(b.s);
    EXPECT_EQ(b.s.RigaZero.NomeComune, nome) << codice;
  }
}

}  // namespace
}  // namespace varena
