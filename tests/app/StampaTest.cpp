// The plot on a printer: a printer that takes the job gets one page at the scale; one that
// refuses it leaves a message and the plotting mode over.
#include <gtest/gtest.h>

#include <QPrinter>

#include "Stampa.h"
#include "core/File.h"
#include "core/InterfacciaRegistrata.h"
#include "core/Sessione.h"
#include "support/Supporto.h"
#include "view/Rigenera.h"

namespace varena {
namespace {

TEST(Stampa, StampanteCheAccettaOCheRifiuta) {
  prova::SessioneProva p;
  Sessione& s = p.s;
  s.Ui = &p.ui;
  DimensionaLinee(s);
  s.LineaX2[0] = 50, s.LineaColore[0] = 1, s.LineaPiano[0] = "0";
  s.ContaEntita[SlotLinee] = 1;
  RigeneraLista(s);
  s.Vista.CentroEst = 0, s.Vista.CentroNord = 0;

  // A print service's file printer stands for one that takes the job.
  QPrinter presa(QPrinter::HighResolution);
  presa.setOutputFormat(QPrinter::PdfFormat);
  presa.setOutputFileName(QString::fromStdString(p.cartella / "stampa.pdf"));
  presa.setPageSize(QPageSize(QPageSize::A4));
  EXPECT_TRUE(StampaSuStampante(s, presa, 500));
  EXPECT_EQ(s.ModoStampa, 0);
  EXPECT_TRUE(p.ui.Messaggi.empty());
  EXPECT_GT(LunghezzaFile(p.cartella / "stampa.pdf"), 0);

  // One whose output cannot be opened refuses it.
  QPrinter rifiuta(QPrinter::HighResolution);
  rifiuta.setOutputFormat(QPrinter::PdfFormat);
  rifiuta.setOutputFileName(QString::fromStdString(p.cartella / "manca/stampa.pdf"));
  EXPECT_FALSE(StampaSuStampante(s, rifiuta, 500));
  EXPECT_EQ(s.ModoStampa, 0);
  ASSERT_EQ(p.ui.Messaggi.size(), 1u);
  EXPECT_EQ(p.ui.Messaggi[0].Testo, "La stampante ha rifiutato il lavoro: nulla e' stato stampato.");
  EXPECT_EQ(p.ui.Messaggi[0].Titolo, "Stampa");
}

}  // namespace
}  // namespace varena
