#include "AnteprimaGruppo.h"

#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPixmap>
#include <cmath>
#include <functional>
#include <memory>

#include "DialogoQt.h"
#include "SuperficieQt.h"
#include "commands/Costruttori.h"
#include "commands/Gruppi.h"
#include "core/CodicePagina.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "view/Ridisegna.h"
#include "view/Rigenera.h"
#include "view/Zoom.h"

namespace varena {

namespace {

// A session of its own, which the thumbnail fills: the job in the window is not touched. The
// settings and symbols paint it as the job would.
std::unique_ptr<Sessione> SessionePerAnteprima(const Sessione& s) {
  auto g = std::make_unique<Sessione>();
  g->Imp = s.Imp;
  g->Simboli = s.Simboli;
  g->Tratteggi = s.Tratteggi;
  g->Colori = s.Colori;
  return g;
}

// What the session holds painted as the drawing paints it, about the extent given, with a
// margin so that the strokes on the edge show whole.
void Dipingi(Sessione& g, QImage& img, const std::optional<Rettangolo>& ingombro) {
  SuperficieQt sup(&img, img.width(), img.height(), 96);
  g.Schermo = &sup;
  InquadraIngombro(g.Vista, ingombro);
  g.Vista.AltezzaVista *= 1.1;
  RigeneraLista(g);
  Ridisegna(g);
  g.Schermo = nullptr;
}

QImage Bianca(QSize misura) {
  QImage img(misura, QImage::Format_RGB32);
  img.fill(Qt::white);
  return img;
}

// A thumbnail under the fields of a dialog, following the text of `campo` and the choice
// in the dialog's list.
void AggiungiAnteprima(DialogoQt& d, const char* campo, std::function<QImage(const std::string&)> disegna) {
  auto* anteprima = new QLabel(&d);
  anteprima->setFrameShape(QFrame::Box);
  anteprima->setFixedSize(kMisuraAnteprima + QSize(2, 2));
  auto mostra = [anteprima, disegna](const QString& nome) {
    anteprima->setPixmap(QPixmap::fromImage(disegna(nome.trimmed().toStdString())));
  };
  if (auto* elenco = d.findChild<QListWidget*>()) QObject::connect(elenco, &QListWidget::currentTextChanged, anteprima, mostra);
  if (auto* casella = qobject_cast<QLineEdit*>(d.Campo(campo))) {
    QObject::connect(casella, &QLineEdit::textChanged, anteprima, mostra);
    mostra(casella->text());
  }
  if (d.layout()) d.layout()->addWidget(anteprima);
}

}  // namespace

QImage AnteprimaGruppo(const Sessione& s, const std::string& nome, QSize misura) {
  QImage img = Bianca(misura);
  const auto file = nome.empty() ? std::nullopt : TrovaFile(PercorsoGruppo(s, nome));
  if (!file) return img;
  // The group pasted at its own base keeps its coordinates.
  auto g = SessionePerAnteprima(s);
  if (LeggiGruppo(*g, Cp1252InUtf8(LeggiByte(*file).value_or("")), 0, 0) <= 0) return img;
  Dipingi(*g, img, IngombroEntita(*g));
  return img;
}

QImage AnteprimaSimbolo(const Sessione& s, const std::string& codice, QSize misura) {
  QImage img = Bianca(misura);
  const std::string testo = Rifila(codice);
  const double n = Val(testo);
  if (testo.empty() || n != std::floor(n) || n < -32768 || n > 32767) return img;
  // One point at the origin carrying the symbol alone, its size a share of the view's
  // height, so that it fills the frame whatever its kind: a user symbol reaches out to its
  // size, the program's own to half of it.
  auto g = SessionePerAnteprima(s);
  const auto r = static_cast<size_t>(ScriviPunto(*g, "", {0, 0, 0}, "", "0"));
  g->PuntoSimbolo[r] = static_cast<int16_t>(n);
  g->PuntoDimensioneSimbolo[r] = -45;
  g->PuntoCongelaSimbolo[r] = 0;
  g->PuntoCongelaNome[r] = g->PuntoCongelaQuota[r] = g->PuntoCongelaDescrizione[r] = 1;
  Dipingi(*g, img, Rettangolo{-0.5, -0.5, 0.5, 0.5});
  return img;
}

void AggiungiAnteprimaGruppo(DialogoQt& d, const Sessione& s) {
  AggiungiAnteprima(d, "Nome", [&s](const std::string& nome) { return AnteprimaGruppo(s, nome, kMisuraAnteprima); });
}

void AggiungiAnteprimaSimbolo(DialogoQt& d, const Sessione& s) {
  AggiungiAnteprima(d, "Simbolo",
                    [&s](const std::string& codice) { return AnteprimaSimbolo(s, codice, kMisuraAnteprima); });
}

}  // namespace varena
