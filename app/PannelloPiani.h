// The layers of the job in a panel: the current one, each one's visibility (a hidden layer
// is frozen: neither drawn nor found), colour and count of entities. Every change goes to
// the core as a change of the job, with its undo step.
#pragma once

#include <QTableWidget>
#include <QWidget>

namespace varena {

struct Sessione;

class PannelloPiani : public QWidget {
  Q_OBJECT
 public:
  enum Colonna { ColCorrente, ColNome, ColVisibile, ColColore, ColEntita, NumeroColonne };
  PannelloPiani(Sessione& s, QWidget* genitore = nullptr);
  // Fills the rows again from the job.
  void Aggiorna();
  QTableWidget* Tabella() const { return tabella_; }
  // The colour of a layer, as the colour menu of its row sets it.
  void CambiaColore(int riga, int colore);

 signals:
  // The job changed through the panel: the window shows it.
  void Cambiato();

 private:
  void Cliccato(int riga, int colonna);
  void Spuntato(QTableWidgetItem* voce);
  QString NomeRiga(int riga) const;

  Sessione& s_;
  QTableWidget* tabella_;
};

}  // namespace varena
