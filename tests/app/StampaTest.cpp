// The plot on a printer: a printer that takes the job gets one page at the scale; one that
// refuses it leaves a message and the plotting mode over. The preview widget paints its model
// where its own zoom puts it, and the keys move it.
#include <gtest/gtest.h>

#include <QImage>
#include <QTextDocument>
#include <QTextEdit>
#include <QKeyEvent>
#include <QFontMetricsF>
#include <QPrinter>
#include <QTest>

#include "DialogoQt.h"
#include "EditorStampe.h"
#include "Stampa.h"
#include "SuperficieQt.h"
#include "WidgetGrafica.h"
#include "core/Dialoghi.h"
#include "core/File.h"
#include "core/InterfacciaRegistrata.h"
#include "core/Sessione.h"
#include "render/Poppler.h"
#include "support/Supporto.h"
#include "view/Rigenera.h"

namespace varena {
namespace {

using prova::Esegui;

// A print service's file printer: an A4 PDF at `file`.
void SuPdf(QPrinter& stampante, const std::string& file) {
  stampante.setOutputFormat(QPrinter::PdfFormat);
  stampante.setOutputFileName(QString::fromStdString(file));
  stampante.setPageSize(QPageSize(QPageSize::A4));
}

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
  SuPdf(presa, p.cartella / "stampa.pdf");
  EXPECT_TRUE(StampaSuStampante(s, presa, 500));
  EXPECT_EQ(s.ModoStampa, 0);
  EXPECT_TRUE(p.ui.Messaggi.empty());
  EXPECT_GT(LunghezzaFile(p.cartella / "stampa.pdf"), 0);

  // One whose output cannot be opened refuses it.
  QPrinter rifiuta(QPrinter::HighResolution);
  SuPdf(rifiuta, p.cartella / "manca/stampa.pdf");
  EXPECT_FALSE(StampaSuStampante(s, rifiuta, 500));
  EXPECT_EQ(s.ModoStampa, 0);
  ASSERT_EQ(p.ui.Messaggi.size(), 1u);
  EXPECT_EQ(p.ui.Messaggi[0].Titolo + "|" + p.ui.Messaggi[0].Testo,
            "Stampa|La stampante ha rifiutato il lavoro: nulla e' stato stampato.");
}

// A report: the editor's document holds the model as read, its PDF holds its words, a PDF
// that cannot be written leaves nothing behind, and the close waits for the answer.
TEST(Stampa, RelazioneInPdfEdEditor) {
  prova::SessioneProva p;
  const TestoRicco t{{{'c', {{"Relazione", true, false, false, 16, "Arial"}}},
                      {'r', {{"Foglio 12\nMappale 3 ", false, false, false, 11, ""}, {"Rocca", false, true, true, 11, ""}}}}};
  QTextDocument d;
  InDocumento(t, d);
  EXPECT_EQ(DaDocumento(d), t);

  const std::string pdf = p.cartella / "relazione.pdf";
  ASSERT_TRUE(RelazionePdf(p.s, d, pdf));
  const std::string testo = Esegui("pdftotext '" + pdf + "' -");
  EXPECT_NE(testo.find("Relazione"), std::string::npos) << testo;
  EXPECT_NE(testo.find("Mappale 3 Rocca"), std::string::npos) << testo;
  EXPECT_FALSE(EsisteFile(pdf + kSuffissoTemporaneo));
  EXPECT_FALSE(RelazionePdf(p.s, d, p.cartella / "manca/relazione.pdf"));
  EXPECT_EQ(p.ui.Messaggi.at(0).Testo, "Impossibile scrivere il file " + (p.cartella / "manca/relazione.pdf"));

  EditorStampe e(p.s, "Verbale.rtf", t);
  e.show();
  e.Testo()->append("Aggiunta");
  p.ui.Rispondi(Risposta::Annulla);
  e.reject();
  EXPECT_TRUE(e.isVisible() && p.ui.Domande.size() == 1);  // a changed text asked, and kept open
}

// The dialog of the map extract shows the extract in its preview, and shows it anew when the
// program changes the dialog.
TEST(WidgetGrafica, NelDialogoDellEstratto) {
  prova::SessioneProva p;
  p.s.TestoEstratto = "8|A|100|200|\r\n8|B|100|210|\r\n7|2|A|B|\r\n";
  Dialogo d;
  d.Nome = "FormConfiguraEstratto";
  DialogoQt q(p.s, d, [] {}, nullptr);
  auto* w = q.findChild<WidgetGrafica*>("Anteprima");
  ASSERT_NE(w, nullptr);
  EXPECT_EQ(std::make_pair(w->Modello().Punti().size(), w->Modello().Linee().size()), std::make_pair(size_t{2}, size_t{1}));
  p.s.TestoEstratto += "8|C|120|210|\r\n";
  q.Aggiorna(d);
  EXPECT_EQ(w->Modello().Punti().size(), 3u);
  d.Nome = "Altro";
  EXPECT_EQ(DialogoQt(p.s, d, [] {}, nullptr).findChild<WidgetGrafica*>(), nullptr);
}

TEST(WidgetGrafica, DisegnaEZoomProprio) {
  prova::SessioneProva p;
  WidgetGrafica w(p.s);
  w.resize(400, 200);
  Grafica& g = w.Modello();
  g.VR_AggiungiPuntoGraf(0, 0, "A", "NC", 1);
  g.VR_AggiungiPuntoGraf(100, 0, "B", "NP", 1);
  g.VR_AggiungiLineaGraf("A", "B");
  // The first layout fits the content to the widget, twice as wide as high: 100 m across
  // in 50 m of height, and a tenth more.
  w.grab();
  EXPECT_DOUBLE_EQ(g.Altezza, 55);
  w.Vista(50, 0, 100);
  // Two pixels a metre around the middle: the line runs along row 100 from x 100 to 300.
  EXPECT_EQ(w.Pixel(0, 0), QPointF(100, 100));
  QImage img = w.grab().toImage();
  EXPECT_EQ(img.pixelColor(200, 100).red(), 255);
  EXPECT_LT(img.pixelColor(200, 100).green(), 200);  // red, or half of it on the pixel edge
  EXPECT_EQ(img.pixelColor(200, 60), QColor(Qt::white));
  QTest::keyClick(&w, Qt::Key_Right);
  EXPECT_DOUBLE_EQ(g.CentroEst, 50 + 100 * 2.0 / 4);
  QTest::keyClick(&w, Qt::Key_Home);
  EXPECT_DOUBLE_EQ(g.CentroEst, 50);
  // Printed, the view of 200 x 100 m fits an upright A4 at 1:952.38: A and B, 100 m apart,
  // stand 105 mm (297.6 points) apart on the sheet.
  w.Vista(50, 0, 100);
  QPrinter pdf(QPrinter::HighResolution);
  const std::string file = p.cartella / "anteprima.pdf";
  SuPdf(pdf, file);
  ASSERT_TRUE(w.VR_Stampa(pdf));
  const std::string bbox = Esegui("pdftotext -bbox '" + file + "' -");
  ASSERT_TRUE(bbox.find(">A<") != std::string::npos && bbox.find(">B<") != std::string::npos) << bbox;
  EXPECT_NEAR(prova::MmParola(bbox, "B", "xMin") - prova::MmParola(bbox, "A", "xMin"), 105, 0.1) << bbox;
  // With "NUOVOPUNTO" armed a click at pixel (300, 80) adds the point there.
  w.Vista(50, 0, 100);
  g.TagMouse = "NUOVOPUNTO";
  QTest::mouseClick(&w, Qt::LeftButton, {}, QPoint(300, 80));
  ASSERT_EQ(g.Punti().size(), 3u);
  // 100 pixels right of the middle and 20 up, 2 a metre.
  EXPECT_EQ(QPointF(g.Punti()[2].Est, g.Punti()[2].Nord), QPointF(100, 10));
  // A long name at the right edge: the fit makes room for it, so that its last letter is
  // inside the control (it was cut off when only the points were fitted).
  g.VR_AggiungiPuntoGraf(100, 0, "CONFINE-NORD-EST-1234", "NP", 1);
  QTest::keyClick(&w, Qt::Key_Home);
  QFont f(FamigliaCarattere(Grafica::FontDidascalia("P", "T")));
  f.setPixelSize(12);
  const double fine = w.Pixel(100, 0).x() + 4 + QFontMetricsF(f).horizontalAdvance("CONFINE-NORD-EST-1234");
  EXPECT_TRUE(fine <= 400 && fine > 300) << fine;
  EXPECT_LT(w.Pixel(0, 0).x(), 200);
}

}  // namespace
}  // namespace varena
