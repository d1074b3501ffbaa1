#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <utility>

#include "core/CodicePagina.h"
#include "core/Conversioni.h"
#include "core/Lista.h"
#include "core/Errori.h"
#include "core/Testo.h"

namespace varena {
namespace {

TEST(Val, PrendeIlNumeroInTestaEIgnoraIlResto) {
  const std::pair<const char*, double> casi[] = {
      {"   -3.25abc", -3.25}, {"1,5", 1},  // a comma ends the number
      {"abc", 0},   {"", 0},  {"-.5", -0.5}, {"2.5e-1x", 0.25}, {"+4", 4}, {"-", 0},
      {"12E", 12},  // an exponent without digits is not one
      {"1e999", std::numeric_limits<double>::max()}};
  for (const auto& [testo, atteso] : casi) EXPECT_EQ(Val(testo), atteso) << testo;
}

TEST(ArrotondaPari, MetaVersoIlPari) {
  const std::pair<double, int> casi[] = {{0.5, 0},   {1.5, 2},    {2.5, 2},    {-0.5, 0},
                                         {-1.5, -2}, {-2.5, -2}, {2.4999, 2}, {2.5001, 3}};
  for (const auto& [v, atteso] : casi) EXPECT_EQ(ArrotondaPari(v), atteso) << v;
  EXPECT_EQ(std::make_tuple(ArrotondaPari(std::nan("")), InteroCorto(40000.0), InteroCorto(-1e12)), std::make_tuple(0, 32767, -32768));
}

TEST(InteroSaturato, TroncaESiFermaAgliEstremi) {
  const double inf = std::numeric_limits<double>::infinity(), nan = std::nan("");
  const std::pair<double, int> interi[] = {{2.9, 2}, {-2.9, -2}, {inf, 2147483647}, {-inf, -2147483647 - 1}, {nan, 0}};
  for (const auto& [v, atteso] : interi) EXPECT_EQ(InteroSaturato<int>(v), atteso) << v;
  EXPECT_EQ(InteroSaturato<int>(nan, -1), -1);
  EXPECT_EQ(std::make_tuple(InteroSaturato<int16_t>(1e300), InteroSaturato<uint8_t>(300.0), InteroSaturato<uint8_t>(-1.0)),
            std::make_tuple(32767, 255, 0));
  // 2^63 is the first double past the largest 64-bit integer; the one before it fits.
  EXPECT_EQ(InteroSaturato<int64_t>(9223372036854775808.0), 9223372036854775807LL);
  EXPECT_EQ(InteroSaturato<int64_t>(9223372036854774784.0), 9223372036854774784LL);
  EXPECT_EQ(InteroSaturato<int64_t>(-9223372036854775808.0), -9223372036854775807LL - 1);
  EXPECT_EQ(InteroSaturato<uint64_t>(1e20), 18446744073709551615ULL);
  EXPECT_EQ(ArrotondaPari(-inf), -9223372036854775807LL - 1);
}

TEST(FormatoMaschera, CasiDellaTabellaDeiNumeri) {
  struct Caso {
    double v;
    const char* maschera;
    const char* atteso;
  };
  const Caso casi[] = {
      {1.5, "##########0.000", "1.500"},  {1, "#########0.##0", "1.0"},        {1.5, "#########0.##0", "1.50"},
      {1.23456, "#########0.##0", "1.235"}, {1.2, "###0.###0", "1.20"},        {1.23, "#########0.##0", "1.230"},
      {2.5, "#########0.", "3."},         {12.3456, "00000000.##0", "00000012.346"},
      {-12.5, "#########0.000", "-12.500"}, {1234567.891, "#########0.000", "1234567.891"},
      {123456789012.0, "###0", "123456789012"},  // a wider value still prints whole
      {0.0005, "0.000", "0.001"},                 // half away from zero
      {-0.0005, "0.000", "-0.001"},
      {2.675, "0.00", "2.68"},                    // in decimal, as the surveyor reads it
      {-0.0001, "0.000", "0.000"},                // no minus on a zero
      {9.9996, "0.000", "10.000"},        {0.25, "#.##", ".25"},
  };
  for (const Caso& c : casi) EXPECT_EQ(FormatoMaschera(c.v, c.maschera), c.atteso) << c.v << " " << c.maschera;
}

TEST(FormeDeiNumeri, SempliceEStampaSenzaLocale) {
  // 0.1 + 0.2 to 15 significant digits, not 17.
  EXPECT_EQ(FormaSemplice(1.5) + "|" + FormaSemplice(0.1 + 0.2) + "|" + FormaSemplice(1725320.0) + "|" +
                FormaSemplice(5031210.123456789) + "|" + FormaSemplice(-0.0),
            "1.5|0.3|1725320|5031210.12345679|0");
  EXPECT_EQ(FormaStampa(5) + "|" + FormaStampa(-5), " 5 |-5 ");
  // A locale with a decimal comma changes nothing that reaches a file.
  if (std::setlocale(LC_NUMERIC, "it_IT.UTF-8") || std::setlocale(LC_NUMERIC, "de_DE.UTF-8")) {
    EXPECT_EQ(std::make_tuple(FormaSemplice(1.5), FormatoMaschera(1.5, "0.000"), Val("2.5")), std::make_tuple("1.5", "1.500", 2.5));
    std::setlocale(LC_NUMERIC, "C");
  }
  EXPECT_EQ(VirgolaInPunto("12,345"), "12.345");
}

TEST(TestiELettere, RifilaMaiuscoloEDividi) {
  EXPECT_EQ(Rifila("  a b \t") + "|" + RifilaDestra("  a  "), "a b|  a");
  EXPECT_EQ(Maiuscolo("città perché") + "|" + Minuscolo("CITTÀ"), "CITTÀ PERCHÉ|città");
  EXPECT_EQ(std::make_pair(UgualeSenzaCaso("però", "PERÒ"), UgualeSenzaCaso("a", "b")), std::make_pair(true, false));
  EXPECT_EQ(Dividi("1|2||", '|'), (std::vector<std::string>{"1", "2", "", ""}));
  EXPECT_EQ(Sostituisci("a\"b\"", "\"", " "), "a b ");
}

TEST(CodicePagina, OgniByteTornaUguale) {
  std::string tutti;
  for (int b = 0; b < 256; ++b) tutti.push_back(static_cast<char>(b));
  EXPECT_EQ(Utf8InCp1252(Cp1252InUtf8(tutti)), tutti);
  EXPECT_EQ(Cp1252InUtf8("\xE8\x80\x9C"), "è€œ");
  // What the code page lacks becomes "?", and a broken sequence too.
  EXPECT_EQ(Utf8InCp1252("Si è verificato|€ ∑|\xC3"), "Si \xE8 verificato|\x80 ?|?");
}

TEST(Lista, ScrittoreDelleIstruzioni) {
  EXPECT_EQ(IstruzioneLista().Testo("").Numero(0).Riga(), "\"\",0\r\n");
  EXPECT_EQ(IstruzioneLista().Numero(1725320.5).Numero(-1.25).Testo("Città").Riga(), "1725320.5,-1.25,\"Città\"\r\n");
}

TEST(Lista, LettoreAFlussoDiElementi) {
  // The same values split over lines or joined on one read the same.
  for (const char* testo : {"\"A\",1.5,-2\r\n\"B, C\",7\r\n", "\"A\"\r\n1.5\r\n-2,\"B, C\"\r\n7"}) {
    LettoreLista in(testo);
    EXPECT_EQ(in.LeggiTesto(), "A");
    EXPECT_EQ(in.LeggiNumero(), 1.5);
    EXPECT_EQ(in.LeggiI16(), -2);
    EXPECT_EQ(in.LeggiTesto(), "B, C");
    EXPECT_EQ(in.LeggiI32(), 7);
    EXPECT_TRUE(in.Fine());
    EXPECT_THROW(in.Elemento(), ErroreVarena);
  }
}

TEST(Lista, CasiLimiteDelLettore) {
  LettoreLista in("\"ab\"xyz,  12  ,\r\n\r\n\"senza fine");
  EXPECT_EQ(in.LeggiTesto(), "ab");  // what follows a closing quote is dropped
  EXPECT_EQ(in.LeggiTesto(), "12");
  EXPECT_EQ(in.LeggiTesto(), "");    // a comma then the line end: an empty item
  EXPECT_EQ(in.LeggiTesto(), "senza fine");
  EXPECT_TRUE(in.Fine());
  try {
    in.Elemento();
    FAIL();
  } catch (const ErroreVarena& e) {
    EXPECT_STREQ(e.what(), "Input past end of file");
  }
  LettoreLista numeri("3.7,40000,-1,300");
  EXPECT_EQ(numeri.LeggiI16(), 4);
  EXPECT_EQ(numeri.LeggiI16(), 32767);
  EXPECT_EQ(numeri.LeggiU8(), 0);
  EXPECT_EQ(numeri.LeggiU8(), 255);
  LettoreLista righe("prima riga, con virgola\r\nseconda");
  EXPECT_EQ(righe.LeggiRiga(), "prima riga, con virgola");
  EXPECT_EQ(righe.LeggiRiga(), "seconda");
}

}  // namespace
}  // namespace varena
