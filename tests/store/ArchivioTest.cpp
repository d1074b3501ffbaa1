// The job archive: the bytes of its headers as the ZIP layout has them, the archive a save
// leaves, and the damaged or hostile archives an opening refuses, changing nothing.
#include <gtest/gtest.h>
#include <utime.h>
#include <zlib.h>

#include "commands/Comandi.h"
#include "core/Avvio.h"
#include "core/Configura.h"
#include "core/Dialoghi.h"
#include "core/File.h"
#include "core/Testo.h"
#include "store/Provvisorio.h"
#include "store/Archivio.h"
#include "store/LavoroProva.h"
#include "store/Salvataggio.h"

namespace varena {
namespace {

namespace fs = std::filesystem;

uint32_t U(const std::string& b, size_t k, int n) {
  uint32_t v = 0;
  for (int i = n - 1; i >= 0; --i) v = v << 8 | static_cast<unsigned char>(b.at(k + static_cast<size_t>(i)));
  return v;
}

std::string Inflate(const std::string& dati, size_t lunghezza) {
  std::string out(lunghezza + 1, '\0');
  z_stream z{};
  inflateInit2(&z, -15);
  z.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(dati.data()));
  z.avail_in = static_cast<uInt>(dati.size());
  z.next_out = reinterpret_cast<Bytef*>(out.data());
  z.avail_out = static_cast<uInt>(out.size());
  EXPECT_EQ(inflate(&z, Z_FINISH), Z_STREAM_END);
  out.resize(z.total_out);
  inflateEnd(&z);
  return out;
}

TEST(Archivio, IntestazioniComeLeVuoleIlFormato) {
  prova::SessioneProva p;
  const std::string base = p.Lavoro("ROSSI");
  // 21 November 2026, 10:30:14 local: date 21 + 32*11 + 512*46, time 14/2 + 32*30 + 2048*10.
  const std::time_t quando = prova::OrologioFisso() - 1;
  const std::string cfg(5u << 20, 'A');  // more than one piece of the parallel deflate
  const std::pair<const char*, std::string> membri[] = {{".LLL", "123456789"}, {".TES", ""}, {".CFG", cfg}};
  for (const auto& [est, byte] : membri) {
    prova::ScriviFileProva(base + est, byte);
    const utimbuf t{quando, quando};
    ::utime((base + est).c_str(), &t);
  }
  ScriviArchivioLavoro(base, "BIANCHI", base + ".VRZ");
  const std::string zip = prova::LeggiFileProva(base + ".VRZ");
  // The empty texts are left out; the points, then the settings, in the order of the slots.
  struct Atteso {
    std::string Nome, Byte;
    uint32_t Crc;
  };
  const Atteso attesi[] = {{"BIANCHI.LLL", "123456789", 0xCBF43926}, {"BIANCHI.CFG", cfg, 0}};
  size_t k = 0;
  std::vector<size_t> posizioni;
  for (const Atteso& a : attesi) {
    posizioni.push_back(k);
    EXPECT_EQ(U(zip, k, 4), 0x04034B50u);
    EXPECT_EQ(U(zip, k + 4, 2), 20u);
    EXPECT_EQ(U(zip, k + 6, 2), 2u);
    EXPECT_EQ(U(zip, k + 8, 2), 8u);
    EXPECT_EQ(U(zip, k + 10, 2), 21447u);
    EXPECT_EQ(U(zip, k + 12, 2), 23925u);
    if (a.Crc) {
      EXPECT_EQ(U(zip, k + 14, 4), a.Crc);
    }
    EXPECT_EQ(U(zip, k + 14, 4), crc32(0, reinterpret_cast<const Bytef*>(a.Byte.data()), static_cast<uInt>(a.Byte.size())));
    const uint32_t compressa = U(zip, k + 18, 4);
    EXPECT_EQ(U(zip, k + 22, 4), a.Byte.size());
    EXPECT_EQ(U(zip, k + 26, 2), a.Nome.size());
    EXPECT_EQ(U(zip, k + 28, 2), 0u);
    EXPECT_EQ(zip.substr(k + 30, a.Nome.size()), a.Nome);
    // Raw deflate, with no zlib wrapper around it.
    EXPECT_EQ(Inflate(zip.substr(k + 30 + a.Nome.size(), compressa), a.Byte.size()), a.Byte);
    k += 30 + a.Nome.size() + compressa;
  }
  const size_t centrale = k;
  for (size_t m = 0; m < 2; ++m) {
    const size_t l = posizioni[m];
    EXPECT_EQ(U(zip, k, 4), 0x02014B50u);
    for (auto [off, v] : {std::pair{4, 20u}, {6, 20u}, {8, 2u}, {10, 8u}, {30, 0u}, {32, 0u}, {34, 0u}, {36, 0u}})
      EXPECT_EQ(U(zip, k + off, 2), v) << off;
    EXPECT_EQ(zip.substr(k + 12, 16), zip.substr(l + 10, 16));  // time, date, CRC, sizes
    EXPECT_EQ(zip.substr(k + 28, 2), zip.substr(l + 26, 2));
    EXPECT_EQ(U(zip, k + 38, 4), 32u);
    EXPECT_EQ(U(zip, k + 42, 4), l);
    EXPECT_EQ(zip.substr(k + 46, attesi[m].Nome.size()), attesi[m].Nome);
    k += 46 + attesi[m].Nome.size();
  }
  EXPECT_EQ(zip.substr(k), std::string("PK\x05\x06\0\0\0\0\x02\0\x02\0", 12) + std::string(1, char(k - centrale)) +
                               std::string(3, '\0') + zip.substr(k + 16, 4) + std::string(2, '\0'));
  EXPECT_EQ(U(zip, k + 16, 4), centrale);
}

TEST(Archivio, OgniSalvataggioLoRifaELaCopiaPrecedenteVaInVrk) {
  prova::SessioneProva p;
  Sessione& s = p.s;
  const std::string base = p.Lavoro("ROSSI");
  prova::PreparaLavoro(base, 20, 5);
  s.NomeOriginale = base;
  VR_ApriLavoro(s);
  s.Imp.SalvaUnaCopiaZip = 1;
  ASSERT_TRUE(Salva(s));
  const std::string primo = prova::LeggiFileProva(base + ".VRZ");
  s.PuntoX[0] = 1;
  SegnaModificato(s, SlotPunti);
  ASSERT_TRUE(Salva(s));
  EXPECT_EQ(prova::LeggiFileProva(base + ".VRK"), primo);
  std::map<std::string, std::string> nelloZip;
  for (const MembroArchivio& m : LeggiArchivio(prova::LeggiFileProva(base + ".VRZ"))) nelloZip["." + Dividi(m.Nome, '.')[1]] = m.Byte;
  auto membri = prova::MembriDi(base);
  membri.erase(".VRZ");
  EXPECT_EQ(nelloZip, membri);
  EliminaProvviso(s);
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
