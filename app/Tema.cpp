#include "Tema.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>

namespace varena {

namespace {

QPalette PaletteScuraDiVarena() {
  QPalette p;
  const QColor fondo(45, 45, 48), base(30, 30, 32), testo(222, 222, 222), spento(128, 128, 128);
  p.setColor(QPalette::Window, fondo);
  p.setColor(QPalette::WindowText, testo);
  p.setColor(QPalette::Base, base);
  p.setColor(QPalette::AlternateBase, fondo);
  p.setColor(QPalette::ToolTipBase, QColor(60, 60, 64));
  p.setColor(QPalette::ToolTipText, testo);
  p.setColor(QPalette::PlaceholderText, spento);
  p.setColor(QPalette::Text, testo);
  p.setColor(QPalette::Button, QColor(58, 58, 62));
  p.setColor(QPalette::ButtonText, testo);
  p.setColor(QPalette::BrightText, Qt::white);
  p.setColor(QPalette::Light, QColor(80, 80, 84));
  p.setColor(QPalette::Midlight, QColor(66, 66, 70));
  p.setColor(QPalette::Mid, QColor(40, 40, 42));
  p.setColor(QPalette::Dark, QColor(22, 22, 24));
  p.setColor(QPalette::Shadow, Qt::black);
  p.setColor(QPalette::Highlight, QColor(232, 89, 12));
  p.setColor(QPalette::HighlightedText, Qt::white);
  p.setColor(QPalette::Link, QColor(255, 146, 80));
  for (auto ruolo : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    p.setColor(QPalette::Disabled, ruolo, spento);
  return p;
}

}  // namespace

Tema TemaDaNome(const QString& nome) {
  const QString n = nome.trimmed().toLower();
  if (n == "chiaro") return Tema::Chiaro;
  if (n == "scuro") return Tema::Scuro;
  return Tema::Sistema;
}

QString NomeTema(Tema t) {
  switch (t) {
    case Tema::Chiaro: return "chiaro";
    case Tema::Scuro: return "scuro";
    case Tema::Sistema: break;
  }
  return "sistema";
}

void ApplicaTema(Tema t) {
  // Fusion draws every control from the palette, so that both themes look whole.
  static const QString stileDelSistema = QApplication::style()->name();
  static const QPalette paletteDelSistema = QApplication::palette();
  switch (t) {
    case Tema::Scuro:
      QApplication::setStyle(QStyleFactory::create("Fusion"));
      QApplication::setPalette(PaletteScuraDiVarena());
      break;
    case Tema::Chiaro:
      QApplication::setStyle(QStyleFactory::create("Fusion"));
      QApplication::setPalette(QApplication::style()->standardPalette());
      break;
    case Tema::Sistema:
      QApplication::setStyle(QStyleFactory::create(stileDelSistema));
      QApplication::setPalette(paletteDelSistema);
      break;
  }
}

bool PaletteScura() {
  const QPalette p = QApplication::palette();
  return p.color(QPalette::Window).lightness() < p.color(QPalette::WindowText).lightness();
}

}  // namespace varena
