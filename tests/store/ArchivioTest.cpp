// The job archive: its bytes as the ZIP layout has them, the setting that makes every save
// write it, and the damaged or hostile archives an opening refuses, changing nothing.
#include <gtest/gtest.h>
#include <utime.h>

#include "commands/Comandi.h"
#include "core/Avvio.h"
#include "core/Configura.h"
#include "core/Dialoghi.h"
#include "core/File.h"
#include "store/Provvisorio.h"
#include "store/Archivio.h"
#include "store/LavoroProva.h"

namespace varena {
namespace {

std::string Le(uint64_t v, int n) {
  std::string b;
  for (int i = 0; i < n; ++i) b.push_back(static_cast<char>(v >> (8 * i)));
  return b;
}

TEST(Archivio, ByteComeLiVuoleIlFormato) {
  prova::SessioneProva p;
  const std::string base = p.Lavoro("ROSSI");
  // 21 November 2026, 10:30:14 local: date 21 + 32*11 + 512*46, time 14/2 + 32*30 + 2048*10.
  const std::time_t quando = prova::OrologioFisso() - 1;
  const std::string cfg(5u << 20, 'A');  // more than one piece of the parallel deflate
  for (const auto& [est, byte] : {std::pair{".LLL", std::string("123456789")}, {".TES", ""}, {".CFG", cfg}}) {
    prova::ScriviFileProva(base + est, byte);
    const utimbuf t{quando, quando};
    ::utime((base + est).c_str(), &t);
  }
  ScriviArchivioLavoro(base, "BIANCHI", base + ".VRZ");
  const std::string zip = prova::LeggiFileProva(base + ".VRZ");
  // The empty texts left out; the points, then the settings, in the order of the slots. The
  // CRC-32 of "123456789" is the check value of the polynomial; that of 5 MB of "A" was given
  // by Python's zlib.crc32.
  const std::string l1 = zip.substr(41, zip.find("PK\x03\x04", 30) - 41);
  const size_t k2 = 41 + l1.size();
  const std::string l2 = zip.substr(k2 + 41, zip.find("PK\x01\x02") - k2 - 41);
  const std::string comune = Le(20, 2) + Le(2, 2) + Le(8, 2) + Le(21447, 2) + Le(23925, 2);
  const std::string testa1 = comune + Le(0xCBF43926, 4) + Le(uint32_t(l1.size()), 4) + Le(9, 4) + Le(11, 2);
  const std::string testa2 = comune + Le(0x2514C2C9, 4) + Le(uint32_t(l2.size()), 4) + Le(5u << 20, 4) + Le(11, 2);
  const std::string centrale = "PK\x01\x02" + Le(20, 2) + testa1 + Le(0, 8) + Le(32, 4) + Le(0, 4) + "BIANCHI.LLL" +
                               "PK\x01\x02" + Le(20, 2) + testa2 + Le(0, 8) + Le(32, 4) + Le(uint32_t(k2), 4) +
                               "BIANCHI.CFG";
  EXPECT_EQ(zip, "PK\x03\x04" + testa1 + Le(0, 2) + "BIANCHI.LLL" + l1 + "PK\x03\x04" + testa2 + Le(0, 2) +
                     "BIANCHI.CFG" + l2 + centrale + "PK\x05\x06" + Le(0, 4) + Le(2, 2) + Le(2, 2) +
                     Le(uint32_t(centrale.size()), 4) + Le(uint32_t(k2 + 41 + l2.size()), 4) + Le(0, 2));
  // Raw deflate, with no zlib wrapper around it, as libzip reads it back.
  const auto membri = LeggiArchivio(zip);
  ASSERT_EQ(membri.size(), 2u);
  EXPECT_EQ(std::make_pair(membri[0].Byte, membri[1].Byte == cfg), std::make_pair(std::string("123456789"), true));
}

TEST(Archivio, LImpostazioneSiCambiaNelDialogoDelleImpostazioni) {
  prova::SessioneProva p;
  p.s.ComandoTag = "edit_configura_tutto";
  Esegui_Comando_TAG(p.s);
  ASSERT_TRUE(ScriviCampo(p.s, "FormConfiguraTutto", "SalvaUnaCopiaZip", "1"));
  ASSERT_TRUE(PremiBottone(p.s, "FormConfiguraTutto", "OK"));
  EXPECT_EQ(p.s.Imp.SalvaUnaCopiaZip, 1);
  EXPECT_FALSE(DialogoAperto(p.s, "FormConfiguraTutto"));
  EXPECT_NE(prova::LeggiFileProva(PercorsoConfigura(p.s)).find("Configurazione_Ambiente,SalvaUnaCopiaZip,1\r\n"),
            std::string::npos);
}

// An archive of two members built by the writer, then damaged by hand.
TEST(Archivio, GuastoSiRifiutaConUnMessaggioENullaCambia) {
  prova::SessioneProva p;
  const std::string base = p.Lavoro("ROSSI");
  prova::ScriviFileProva(base + ".LLL", prova::RecordPunto("1", 1725000));
  prova::ScriviFileProva(base + ".CFG", "\"VR2020\"\r\n");
  ScriviArchivioLavoro(base, "CONFINE", base + ".ZIP");
  std::string zip = prova::LeggiFileProva(base + ".ZIP");
  const size_t centrale = zip.find("PK\x01\x02");
  // The first member's name, in its local header and in the central directory.
  const auto rinomina = [centrale](std::string nome) {
    return [centrale, nome](std::string& z) { z.replace(30, 11, nome), z.replace(centrale + 46, 11, nome); };
  };
  const auto metti = [](size_t k, const char (&byte)[5]) {
    return [k, &byte](std::string& z) { z.replace(k, 4, byte, 4); };
  };
  struct Caso {
    const char* Nome;
    std::vector<std::function<void(std::string&)>> Guasti;
    std::string Motivo;
  };
  const Caso casi[] = {
      {"troncato", {[](std::string& z) { z.resize(z.size() / 2); }}, "Not a zip archive"},
      {"spazzatura", {[](std::string& z) { z = std::string(300, 'x'); }}, "Not a zip archive"},
      {"crc", {[&](std::string& z) { z[14] ^= 1, z[centrale + 16] ^= 1; }}, "CRC error"},
      {"4 GB", {metti(22, "\0\0\0\xF0"), metti(centrale + 24, "\0\0\0\xF0")}, "i membri si espandono oltre 3 GB"},
      {"..", {rinomina("../ROSSI.LL")}, "il nome ../ROSSI.LL esce dalla cartella del Lavoro"},
      {"assoluto", {rinomina("/tmp/ROSSIL")}, "il nome /tmp/ROSSIL è un percorso assoluto"},
      {"collegamento", {[&](std::string& z) { z[centrale + 5] = 3; }, metti(centrale + 38, "\0\0\xFF\xA1")},
       "il membro CONFINE.LLL è un collegamento"},
  };
  const std::string buono = zip;
  for (const Caso& c : casi) {
    zip = buono;
    for (const auto& g : c.Guasti) g(zip);
    prova::ScriviFileProva(p.Lavoro("CONFINE.VRZ"), zip);
    const auto prima = prova::NomiIn(p.cartella.Percorso());
    p.s.NomeOriginale = "PRIMA";
    p.ui.Messaggi.clear();
    EXPECT_FALSE(Esplodi_VRZ(p.s, p.Lavoro("CONFINE.VRZ"))) << c.Nome;
    ASSERT_EQ(p.ui.Messaggi.size(), 1u) << c.Nome;
    EXPECT_EQ(p.ui.Messaggi[0].Titolo, kTitoloArchivio);
    EXPECT_EQ(p.ui.Messaggi[0].Testo, "L'archivio " + p.Lavoro("CONFINE.VRZ") + " non si può aprire: " + c.Motivo +
                                          ".\nNulla è stato cambiato.")
        << c.Nome;
    EXPECT_EQ(p.s.NomeOriginale, "PRIMA");
    EXPECT_EQ(prova::NomiIn(p.cartella.Percorso()), prima) << c.Nome;
    EXPECT_TRUE(prova::NomiIn(p.s.CartellaLavoro + "PROVVISO").empty()) << c.Nome;
  }
  // Unharmed, given on the command line, it opens as the job it holds, named after it.
  prova::ScriviFileProva(p.Lavoro("confine.vrz"), buono);
  ApriLavoroIniziale(p.s, p.Lavoro("confine.vrz"));
  EXPECT_EQ(p.s.NomeOriginale, p.Lavoro("confine"));
  EXPECT_EQ(p.s.ContaEntita[SlotPunti], 1);
  EXPECT_EQ(p.s.PuntoX[0], 1725000);
  EliminaProvviso(p.s);
}

}  // namespace
}  // namespace varena
