// A tool started with QProcess and waited for in a modal box of its own event loop.
#include "AttesaStrumento.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QVBoxLayout>

namespace varena {

std::optional<int> ProcessiDesktop::Attendi(std::string_view nome, const std::string& programma,
                                            const std::vector<std::string>& argomenti, const std::string& cartella) {
  const std::optional<std::string> percorso = TrovaProgramma(programma);
  if (!percorso) return std::nullopt;
  QProcess processo;
  QStringList argv;
  for (const std::string& a : argomenti) argv << QString::fromStdString(a);
  if (!cartella.empty()) processo.setWorkingDirectory(QString::fromStdString(cartella));
  processo.start(QString::fromStdString(*percorso), argv);
  if (!processo.waitForStarted()) return std::nullopt;

  const QString chi = QString::fromUtf8(nome.data(), static_cast<qsizetype>(nome.size()));
  QDialog attesa(QApplication::activeWindow());
  attesa.setObjectName("AttesaStrumento");
  attesa.setWindowTitle(chi);
  auto* colonna = new QVBoxLayout(&attesa);
  colonna->addWidget(new QLabel("In attesa di " + chi + " ...", &attesa));
  auto* smetti = new QPushButton("Smetti di attendere", &attesa);
  smetti->setObjectName("SmettiDiAttendere");
  colonna->addWidget(smetti);
  QObject::connect(smetti, &QPushButton::clicked, &attesa, &QDialog::reject);
  QObject::connect(&processo, &QProcess::finished, &attesa, &QDialog::accept);
  // A tool that ended before the box could show it is not waited for at all.
  if (processo.state() != QProcess::NotRunning && attesa.exec() != QDialog::Accepted &&
      processo.state() != QProcess::NotRunning) {
    // Nobody will read what it writes from now on: it is stopped rather than left behind.
    processo.kill();
    processo.waitForFinished(2000);
    return kAttesaInterrotta;
  }
  if (processo.exitStatus() == QProcess::CrashExit) return 128;
  return processo.exitCode();
}

}  // namespace varena
