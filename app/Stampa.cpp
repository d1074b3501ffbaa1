#include "Stampa.h"

#include <QInputDialog>
#include <QPageLayout>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <cmath>

#include "Plotter.h"
#include "core/AltreImpostazioni.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "output/FlussoStampa.h"

namespace varena {

void StampanteRifiuta(Sessione& s) {
  s.Ui->Messaggio("La stampante ha rifiutato il lavoro: nulla e' stato stampato.", "Stampa", Icona::Critico);
}

bool StampaSuStampante(Sessione& s, QPrinter& stampante, double scala) {
  const QSizeF mm = stampante.pageLayout().fullRect(QPageLayout::Millimeter).size();
  OpzioniPlot o;
  o.Scala = scala;
  o.Foglio = {stampante.pageLayout().pageSize().name().toStdString(), mm.width(), mm.height()};
  o.Colori = s.Colori;
  // The printer's sheet at the scale, around the centre of the view.
  const double pl = mm.width() * scala / 1000, pa = mm.height() * scala / 1000;
  const FinestraStampa f{s.Vista.CentroEst - pl / 2, s.Vista.CentroNord - pa / 2, s.Vista.CentroEst + pl / 2,
                         s.Vista.CentroNord + pa / 2};
  stampante.setFullPage(true);
  QPainter painter;
  bool rifiutata = false;
  LeggiStampaPaginato(s);
  s.ModoStampa = 5;
  StampaPaginata(s, f, [&](const std::string& flusso) {
    const auto testo = LeggiByte(flusso);
    if (!testo) return false;
    if (!painter.isActive()) {
      if (!painter.begin(&stampante)) return !(rifiutata = true);
    } else if (!stampante.newPage()) {
      return !(rifiutata = true);
    }
    DisegnaPaginaFlusso(painter, LeggiFlussoStampa(*testo), o, stampante.resolution());
    return true;
  });
  if (painter.isActive() && !painter.end()) rifiutata = true;
  s.ModoStampa = 0;
  if (rifiutata) StampanteRifiuta(s);
  return !rifiutata;
}

void StampaConDialogo(QWidget* padre, Sessione& s) {
  QPrinter stampante(QPrinter::HighResolution);
  QPrintDialog dialogo(&stampante, padre);
  dialogo.setWindowTitle("Stampa");
  if (dialogo.exec() != QDialog::Accepted) return;
  const QStringList scale = {"100", "200", "250", "500", "1000", "2000", "5000", "10000"};
  bool ok = false;
  const QString scelta = QInputDialog::getItem(padre, "Stampa", "Scala = 1:", scale, 4, true, &ok);
  if (!ok) return;
  const double scala = Val(VirgolaInPunto(scelta.toStdString()));
  if (!std::isfinite(scala) || scala <= 0 || scala > 1e7) {
    s.Ui->Messaggio("Scala non valida: " + scelta.toStdString(), "Stampa", Icona::Avviso);
    return;
  }
  StampaSuStampante(s, stampante, scala);
}

}  // namespace varena
