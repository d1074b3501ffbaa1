// The rich text of the report models: a model as a word processor saves it, the bytes the
// program writes, broken files, and the models' folder with the save at the editor's close.
#include <gtest/gtest.h>

#include "core/File.h"
#include "output/ModelliStampa.h"
#include "output/TestoRicco.h"
#include "support/Supporto.h"

namespace varena {
namespace {

CorsaRicca C(std::string t, int punti, std::string font = {}, bool g = false, bool c = false) {
  return {std::move(t), g, c, false, punti, std::move(font)};
}

TEST(TestoRicco, ModelloDiUnWordProcessor) {
  const auto t = LeggiRtf(
      "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 Calibri;}{\\f1\\fswiss Arial;}}\r\n"
      "{\\colortbl ;\\red255\\green0\\blue0;}\r\n{\\*\\generator Riched20 10.0;}\\viewkind4\\uc1 \r\n"
      "\\pard\\qc\\b\\f1\\fs32 Relazione\\b0\\par\r\n"
      "\\pard\\fs22 Comune di Sant\\'e8 {\\i Rocca}\\tab Foglio 12\\line Mappale 3\\par\r\n"
      "\\trowd\\cellx1000\\cellx2000\\intbl P1\\cell 100,5\\cell\\row\r\n"
      "{\\pict\\pngblip 89504e47}\\u8470?1 \\{x\\}\\par\r\n}");
  ASSERT_TRUE(t);
  const TestoRicco atteso{{{'c', {C("Relazione", 16, "Arial", true)}},
                           {'l', {C("Comune di Santè ", 11, "Arial"), C("Rocca", 11, "Arial", false, true),
                                  C("\tFoglio 12\nMappale 3", 11, "Arial")}},
                           {'l', {C("P1\t100,5", 11, "Arial")}},
                           {'l', {C("№1 {x}", 11, "Arial")}}}};
  EXPECT_EQ(*t, atteso);
}

TEST(TestoRicco, ByteScrittiERiletti) {
  const TestoRicco t{{{'c', {C("Tè{x}\\", 14, "Arial", true)}},
                      {'l', {C("a\tb\nc", 12), C("€№😀", 10, "", false, true)}}}};
  const std::string rtf = ScriviRtf(t);
  EXPECT_EQ(rtf,
            "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f1 Arial;}}\r\n"
            "\\pard\\qc{\\f1\\fs28\\b T\\'e8\\{x\\}\\\\}\\par\r\n"
            "\\pard\\ql{\\fs24 a\\tab b\\line c}{\\fs20\\i \\'80\\u8470?\\u-10179?\\u-8704?}\\par\r\n}\r\n");
  EXPECT_EQ(LeggiRtf(rtf), t);
}

TEST(TestoRicco, FileRotti) {
  const std::string profondo = "{\\rtf1" + std::string(100000, '{') + "x";
  const struct {
    std::string Byte;
    std::optional<std::string> Testo;  // the text of the one paragraph read; none: not RTF
  } kCasi[] = {
      {"", std::nullopt},
      {"Relazione tecnica", std::nullopt},
      {"{\\rtf1 abc", "abc"},                       // cut short
      {profondo, "x"},                              // braces beyond any nesting
      {"{\\rtf1\\fs99999999999999 x}", "x"},        // a size past every bound (1638 points)
      {"{\\rtf1\\bin999999999 x}", ""},             // raw bytes longer than the file
      {"{\\rtf1 a\\'zq\\u\\u-99999999999?}", "azq?"},  // bad escapes: the stand-in shows
      {"{\\rtf1 }}} a", ""},                        // text after the end
  };
  for (const auto& k : kCasi) {
    const auto t = LeggiRtf(k.Byte);
    ASSERT_EQ(t.has_value(), k.Testo.has_value()) << k.Byte.substr(0, 40);
    if (!t) continue;
    std::string testo;
    for (const ParagrafoRicco& p : t->Paragrafi) testo += p.Corse.empty() ? "" : p.Corse[0].Testo;
    EXPECT_TRUE(k.Byte.find("fs9") == std::string::npos || t->Paragrafi.at(0).Corse.at(0).Punti == 1638);
    EXPECT_EQ(testo, *k.Testo) << k.Byte.substr(0, 40);
  }
}

TEST(ModelliStampa, ElencoModificaESalvataggio) {
  prova::SessioneProva p;
  Sessione& s = p.s;
  const std::string cartella = CartellaModelli(s);
  NuovaCartella(cartella);
  const std::string modello = "{\\rtf1 Verbale\\par}";
  prova::ScriviFileProva(cartella + "/Verbale.RTF", modello);
  prova::ScriviFileProva(cartella + "/appunti.txt", "x");
  prova::ScriviFileProva(cartella + "/Finto.rtf", "non rtf");
  EXPECT_EQ(VR_StampaGeneral(s), (std::vector<std::string>{"Finto.rtf", "Verbale.RTF"}));

  EXPECT_FALSE(VR_StampaGenerale(s, "Finto.rtf"));
  EXPECT_EQ(p.ui.Messaggi.at(0).Testo, "Il modello Finto.rtf non è un testo RTF.");
  EXPECT_FALSE(EsisteFile(PercorsoTempRtf(s)));
  const auto t = VR_StampaGenerale(s, "Verbale.RTF");
  ASSERT_TRUE(t);
  EXPECT_EQ(prova::LeggiFileProva(PercorsoTempRtf(s)), modello);
  TestoRicco nuovo = *t;
  nuovo.Paragrafi[0].Corse[0].Testo = "Verbale firmato";
  EXPECT_TRUE(ChiudiEditorStampe(s, "Verbale.RTF", nuovo, false));  // unchanged: no question
  for (const Risposta r : {Risposta::Annulla, Risposta::No, Risposta::Si}) p.ui.Rispondi(r);
  EXPECT_FALSE(ChiudiEditorStampe(s, "Verbale.RTF", nuovo, true));
  EXPECT_TRUE(ChiudiEditorStampe(s, "Verbale.RTF", nuovo, true));
  EXPECT_EQ(prova::LeggiFileProva(cartella + "/Verbale.RTF"), modello);
  EXPECT_TRUE(ChiudiEditorStampe(s, "Verbale.RTF", nuovo, true));
  ASSERT_EQ(p.ui.Domande.size(), 3u);
  EXPECT_EQ(p.ui.Domande[2].Testo + "|" + p.ui.Domande[2].Titolo, "Salvare Stampa modificata?|Uscita da Editor");
  EXPECT_EQ(prova::LeggiFileProva(cartella + "/Verbale.RTF"), ScriviRtf(nuovo));
  EXPECT_EQ(prova::LeggiFileProva(PercorsoTempRtf(s)), ScriviRtf(nuovo));
}

}  // namespace
}  // namespace varena
