// The serial transfer against a pair of pseudo-terminals joined by socat, one end standing
// for the instrument: what it receives must be the file, byte for byte.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QThread>

#include "TrasferimentoStrumento.h"
#include "support/Supporto.h"

namespace varena {
namespace {

TEST(Trasferimento, LoStrumentoRiceveIlFile) {
  prova::CartellaTemporanea t;
  const QString strumento = QString::fromStdString(t / "strumento"), porta = QString::fromStdString(t / "porta");
  QProcess socat;
  socat.start("socat", {"pty,raw,echo=0,link=" + porta, "pty,raw,echo=0,link=" + strumento});
  if (!socat.waitForStarted(5000)) GTEST_SKIP() << "socat non si avvia: " << socat.errorString().toStdString();
  QElapsedTimer orologio;
  orologio.start();
  while (!(QFileInfo::exists(porta) && QFileInfo::exists(strumento)) && orologio.elapsed() < 5000) QThread::msleep(20);
  const int fd = ::open(strumento.toLocal8Bit().constData(), O_RDONLY | O_NOCTTY | O_NONBLOCK);
  ASSERT_GE(fd, 0) << "socat non ha creato i terminali";
  const QByteArray file =
      QByteArray::fromStdString(prova::LeggiFileProva(VARENA_SORGENTI "/tests/data/esportazioni/RILIEVO.GSI"));
  EXPECT_EQ(InviaSuPortaSeriale(porta, file).toStdString(), "");
  QByteArray ricevuti;
  orologio.restart();
  while (ricevuti.size() < file.size() && orologio.elapsed() < 10000) {
    char buf[512];
    const ssize_t n = ::read(fd, buf, sizeof buf);
    if (n > 0) ricevuti.append(buf, n);
    else QThread::msleep(10);
  }
  ::close(fd);
  socat.terminate();
  socat.waitForFinished(3000);
  EXPECT_EQ(ricevuti, file);
}

TEST(Trasferimento, PortaAssenteDettaAllUtente) {
  EXPECT_TRUE(InviaSuPortaSeriale("/dev/nessuna-porta", "x").startsWith("Porta /dev/nessuna-porta non disponibile: "));
}

}  // namespace
}  // namespace varena
