// varena: the desktop program.
#include <QApplication>
#include <QPixmap>
#include <QScreen>
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
  // --tema chiaro|scuro: the look of the window for this run.
  // --dimensioni WxH: the window's size, at the top left corner of the screen.
  QString riga, schermata, script, tema, dimensioni;
  for (int i = 1; i < argc; ++i) {
    const QString a = QString::fromLocal8Bit(argv[i]);
    if (a == "--schermata" && i + 1 < argc) {
      schermata = QString::fromLocal8Bit(argv[++i]);
      continue;
    }
    if (a == "--dimensioni" && i + 1 < argc) {
      dimensioni = QString::fromLocal8Bit(argv[++i]);
      continue;
    }
    if (a == "--tema" && i + 1 < argc) {
      tema = QString::fromLocal8Bit(argv[++i]);
      continue;
    }
    if (a == "--script" && i + 1 < argc) {
      script = QString::fromLocal8Bit(argv[++i]);
      continue;
    }
    riga += (riga.isEmpty() ? "" : " ") + a;
  }
  varena::VarenaLoad(s, riga.toStdString());
  if (const QStringList wh = dimensioni.split('x'); wh.size() == 2 && wh[0].toInt() > 0 && wh[1].toInt() > 0)
    finestra.setGeometry(0, 0, wh[0].toInt(), wh[1].toInt());
  finestra.PreparaBarre();
  // A theme asked on the command line holds for this run only.
  if (!tema.isEmpty()) finestra.ImpostaTema(varena::TemaDaNome(tema), false);
  finestra.MostraNomeDelFile();
  finestra.show();
  // The first painting once the window has its size.
  QTimer::singleShot(0, &finestra, [&finestra, schermata, script] {
    finestra.Disegno()->Rigenera();
    if (!script.isEmpty()) finestra.EseguiScript(script);
    if (schermata.isEmpty()) return;
    QTimer::singleShot(200, &finestra, [&finestra, schermata] {
      // The screen where the window stands, so that the dialogs beside it are in the
      // picture too; a platform that cannot read its screen gives the window alone.
      QPixmap foto;
      if (QScreen* schermo = finestra.screen()) {
        const QRect r = finestra.frameGeometry();
        foto = schermo->grabWindow(0, r.x(), r.y(), r.width(), r.height());
      }
      if (foto.isNull()) foto = finestra.grab();
      foto.save(schermata);
      finestra.EsciSenzaDomande();
    });
  });
  return QApplication::exec();
}
