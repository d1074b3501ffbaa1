// The field book on screen: its rows as the shared grammar splits them, one a line, with the
// row type in the first column. A view only: rows are edited by the office program.
#pragma once

#include <QAbstractTableModel>
#include <QDialog>

#include "cadastre/Libretto.h"

namespace varena {

struct Sessione;

// The rows of `LibrettoMisure` as a table; a row is split when it is shown, so that a book
// of a million rows opens at once.
class ModelloLibretto : public QAbstractTableModel {
  Q_OBJECT
 public:
  explicit ModelloLibretto(const Sessione& s, QObject* genitore = nullptr);
  int rowCount(const QModelIndex& genitore = {}) const override;
  int columnCount(const QModelIndex& genitore = {}) const override;
  QVariant data(const QModelIndex& indice, int ruolo) const override;
  QVariant headerData(int sezione, Qt::Orientation orientamento, int ruolo) const override;

 private:
  // The fields of row `r`, or the text of the error that stops its split.
  const CampiLibretto& Campi(int r) const;
  const Sessione& s_;
  int colonne_ = 1;
  mutable int rigaLetta_ = -1;
  mutable CampiLibretto campi_;
  mutable QString errore_;
};

// "Libretto delle Misure": the table, read-only, beside the preview control that draws what
// the book names.
class FormLibretto : public QDialog {
  Q_OBJECT
 public:
  FormLibretto(Sessione& s, QWidget* genitore);
};

}  // namespace varena
