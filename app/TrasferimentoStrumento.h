// The transfer of the point list to a NIKON NPL 332 over a serial line at 4800,N,8,1: the
// port chosen among those the system lists, a progress bar that can stop it. The line has no
// handshake: what is sent is not acknowledged.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

class QWidget;

namespace varena {

struct Sessione;

// The serial ports the system lists, by the name the user reads.
QStringList PorteSeriali();

// `dati` written to `porta` (a name the system lists, or a device path) at 4800 baud, no
// parity, 8 bits, 1 stop bit, a piece at a time. `avanzamento` hears the bytes sent and the
// total; false stops the transfer. An empty answer: all sent; else what went wrong, for the user.
QString InviaSuPortaSeriale(const QString& porta, const QByteArray& dati,
                            const std::function<bool(qint64, qint64)>& avanzamento = {});

// The menu item "NPL" of the point list: the rows in its order, after the question.
void TrasferisciNpl(QWidget* genitore, Sessione& s, const std::vector<int32_t>& righe);

}  // namespace varena
