// The serial transfer to the instrument.
#include "TrasferimentoStrumento.h"

#include <QApplication>
#include <QInputDialog>
#include <QMessageBox>
#include <QProgressDialog>
#include <QSerialPort>
#include <QSerialPortInfo>

#include "core/CodicePagina.h"
#include "core/Sessione.h"
#include "exchange/Esportazioni.h"

namespace varena {

namespace {

constexpr const char* kTitolo = "Trasferimento su NIKON NPL 332";
// At 4800 baud a piece of 64 bytes takes about 0.13 s: the bar moves and a stop is heard soon.
constexpr qint64 kPezzo = 64;
// A device that takes nothing for this long is not there.
constexpr int kAttesaMs = 5000;

}  // namespace

QStringList PorteSeriali() {
  QStringList nomi;
  for (const QSerialPortInfo& p : QSerialPortInfo::availablePorts()) nomi << p.portName();
  return nomi;
}

QString InviaSuPortaSeriale(const QString& porta, const QByteArray& dati,
                            const std::function<bool(qint64, qint64)>& avanzamento) {
  QSerialPort p;
  p.setPortName(porta);
  if (!p.open(QIODevice::WriteOnly)) return QStringLiteral("Porta %1 non disponibile: %2").arg(porta, p.errorString());
  p.setBaudRate(QSerialPort::Baud4800);
  p.setParity(QSerialPort::NoParity);
  p.setDataBits(QSerialPort::Data8);
  p.setStopBits(QSerialPort::OneStop);
  p.setFlowControl(QSerialPort::NoFlowControl);
  for (qint64 fatto = 0; fatto < dati.size();) {
    const qint64 n = p.write(dati.constData() + fatto, std::min(kPezzo, dati.size() - fatto));
    if (n < 0 || (p.bytesToWrite() > 0 && !p.waitForBytesWritten(kAttesaMs)))
      return QStringLiteral("Lo strumento sulla porta %1 non risponde: %2").arg(porta, p.errorString());
    fatto += n;
    if (avanzamento && !avanzamento(fatto, dati.size())) return QStringLiteral("Trasferimento interrotto");
  }
  p.close();
  return {};
}

void TrasferisciNpl(QWidget* genitore, Sessione& s, const std::vector<int32_t>& righe) {
  if (QMessageBox::question(genitore, kTitolo, "Premi OK per trasferire!", QMessageBox::Ok | QMessageBox::Cancel) !=
      QMessageBox::Ok)
    return;
  const QStringList porte = PorteSeriali();
  if (porte.isEmpty()) {
    QMessageBox::warning(genitore, kTitolo, "Nessuna porta seriale presente");
    return;
  }
  bool ok = false;
  const QString porta = QInputDialog::getItem(genitore, kTitolo, "Porta :", porte, 0, false, &ok);
  if (!ok) return;
  const QByteArray dati = QByteArray::fromStdString(Utf8InCp1252(TestoNpl(s, righe)));
  QProgressDialog barra(kTitolo, "Annulla", 0, static_cast<int>(dati.size()), genitore);
  barra.setWindowModality(Qt::WindowModal);
  const QString errore = InviaSuPortaSeriale(porta, dati, [&](qint64 fatto, qint64) {
    barra.setValue(static_cast<int>(fatto));
    QApplication::processEvents();
    return !barra.wasCanceled();
  });
  barra.reset();
  if (!errore.isEmpty()) QMessageBox::warning(genitore, kTitolo, errore);
}

}  // namespace varena
