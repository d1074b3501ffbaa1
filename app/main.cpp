// varena: the desktop program.
#include <QApplication>
#include <QTimer>

#include "FinestraPrincipale.h"
#include "Traduzioni.h"
#include "core/Avvio.h"
#include "core/Sessione.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName("Varena");
  varena::CaricaTraduzioniQt();
  varena::Sessione s;
  varena::FinestraPrincipale finestra(s);
  // --schermata FILE: paint the job, save a picture of the whole window and quit.
  // --script FILE: run a script of actions on the job in the window first.
  QString riga, schermata, script;
  for (int i = 1; i < argc; ++i) {
    const QString a = QString::fromLocal8Bit(argv[i]);
    if (a == "--schermata" && i + 1 < argc) {
      schermata = QString::fromLocal8Bit(argv[++i]);
      continue;
    }
    if (a == "--script" && i + 1 < argc) {
      script = QString::fromLocal8Bit(argv[++i]);
      continue;
    }
    riga += (riga.isEmpty() ? "" : " ") + a;
  }
  varena::VarenaLoad(s, riga.toStdString());
  finestra.PreparaBarre();
  finestra.MostraNomeDelFile();
  finestra.show();
  // The first painting once the window has its size.
  QTimer::singleShot(0, &finestra, [&finestra, schermata, script] {
    finestra.Disegno()->Rigenera();
    if (!script.isEmpty()) finestra.EseguiScript(script);
    if (schermata.isEmpty()) return;
    QTimer::singleShot(200, &finestra, [&finestra, schermata] {
      finestra.grab().save(schermata);
      finestra.EsciSenzaDomande();
    });
  });
  return QApplication::exec();
}
