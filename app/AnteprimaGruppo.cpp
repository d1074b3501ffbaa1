#include "AnteprimaGruppo.h"

#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPixmap>
#include <memory>

#include "DialogoQt.h"
#include "SuperficieQt.h"
#include "commands/Gruppi.h"
#include "core/CodicePagina.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "view/Ridisegna.h"
#include "view/Rigenera.h"
#include "view/Zoom.h"

namespace varena {

QImage AnteprimaGruppo(const Sessione& s, const std::string& nome, QSize misura) {
  QImage img(misura, QImage::Format_RGB32);
  img.fill(Qt::white);
  const auto file = nome.empty() ? std::nullopt : TrovaFile(PercorsoGruppo(s, nome));
  if (!file) return img;
  // A session of its own: the group pasted at its own base keeps its coordinates, and the
  // job in the window is not touched. The settings and symbols paint it as the job would.
  auto g = std::make_unique<Sessione>();
  g->Imp = s.Imp;
  g->Simboli = s.Simboli;
  g->Tratteggi = s.Tratteggi;
  g->Colori = s.Colori;
  if (LeggiGruppo(*g, Cp1252InUtf8(LeggiByte(*file).value_or("")), 0, 0) <= 0) return img;
  SuperficieQt sup(&img, misura.width(), misura.height(), 96);
  g->Schermo = &sup;
  // Every entity framed, with a margin so that the strokes on the edge show whole.
  InquadraIngombro(g->Vista, IngombroEntita(*g));
  g->Vista.AltezzaVista *= 1.1;
  RigeneraLista(*g);
  Ridisegna(*g);
  g->Schermo = nullptr;
  return img;
}

void AggiungiAnteprimaGruppo(DialogoQt& d, const Sessione& s) {
  auto* anteprima = new QLabel(&d);
  anteprima->setFrameShape(QFrame::Box);
  const QSize misura(240, 160);
  anteprima->setFixedSize(misura + QSize(2, 2));
  auto mostra = [&s, anteprima, misura](const QString& nome) {
    anteprima->setPixmap(QPixmap::fromImage(AnteprimaGruppo(s, nome.trimmed().toStdString(), misura)));
  };
  if (auto* elenco = d.findChild<QListWidget*>()) QObject::connect(elenco, &QListWidget::currentTextChanged, anteprima, mostra);
  if (auto* campo = qobject_cast<QLineEdit*>(d.Campo("Nome"))) {
    QObject::connect(campo, &QLineEdit::textChanged, anteprima, mostra);
    mostra(campo->text());
  }
  if (d.layout()) d.layout()->addWidget(anteprima);
}

}  // namespace varena
