// A fixture for the tests of tables and setting files: a session over a temporary working
// root and program folder, and the check of the common error box.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "support/Supporto.h"

namespace varena::prova {

class ProvaTabelle : public ::testing::Test {
 protected:
  SessioneProva p;
  Sessione& s = p.s;
  std::string Lavoro(const std::string& nome) { return s.CartellaLavoro + nome; }
  std::string Programma(const std::string& nome) { return s.CartellaProgramma + "/" + nome; }
  // The last box shown must be the common error box of `routine` for `errore`.
  void AttesoErrore(const std::string& routine, const std::string& errore) {
    ASSERT_FALSE(p.ui.Messaggi.empty());
    const auto& m = p.ui.Messaggi.back();
    EXPECT_EQ(m.Titolo, "Rilevato errore");
    EXPECT_NE(m.Testo.find(errore), std::string::npos) << m.Testo;
    EXPECT_NE(m.Testo.find("Nella Routine " + routine), std::string::npos) << m.Testo;
  }
};

}  // namespace varena::prova
