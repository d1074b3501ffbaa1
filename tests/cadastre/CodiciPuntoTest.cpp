// The point tags: the free text, the tags alone in the editor's order, the pairs that
// exclude each other.
#include <gtest/gtest.h>

#include "cadastre/CodiciPunto.h"

namespace varena {
namespace {

TEST(CodiciPunto, PulisciCodiciLasciaIlTestoLibero) {
  EXPECT_EQ(PulisciCodici("<P!><00><EL><PV><PD><8Q><8P><8=>[P.A.]*V**S*"), "");
  EXPECT_EQ(PulisciCodici("<PV> Muro *S*di cinta [P.A.] "), "Muro di cinta");
  // "<PD>" goes before "<PV>": a "<P" + "<PD>" + "V>" leaves a "<PV>" that is then removed.
  EXPECT_EQ(PulisciCodici("a<P<PD>V>b"), "ab");
}

TEST(CodiciPunto, SoloCodiciNellOrdineDellEditor) {
  EXPECT_EQ(SoloCodici("[P.A.]casa<8Q><EL><PD><P!>"), "<P!><PD><EL><8Q>[P.A.]");
  EXPECT_EQ(SoloCodici("spigolo"), "");
  EXPECT_EQ(ConCodici("<8=>x<00>", "nuovo"), "<00><8=>nuovo");
}

TEST(CodiciPunto, LeCoppieSiEscludono) {
  EXPECT_EQ(MettiCodice("casa<PV>", kCodiceDirezione), "<PD>casa");
  EXPECT_EQ(MettiCodice("<8P>x<8P>", kCodiceRiga8Uguale), "<8=>x");
  EXPECT_EQ(MettiCodice("<P!>x", kCodiceRiga8Quota), "<8Q><P!>x");
  EXPECT_EQ(MettiCodice("<00>x", kCodiceSoloDirezione), "<00>x");
  EXPECT_EQ(TogliCodice("[P.A.]a[P.A.]", kCodiceAusiliario), "a");
  EXPECT_TRUE(HaCodice("x<EL>", kCodiceEscluso));
  EXPECT_FALSE(HaCodice("x<E L>", kCodiceEscluso));
}

}  // namespace
}  // namespace varena
