// The point list in a dock: a table view over the job's live points that reads each cell
// from the tables when the view asks for it, sorts by any column, selects many rows, runs
// the list's operations on them, and keeps its selection on the drawing.
#pragma once

#include <QAbstractTableModel>
#include <QTableView>
#include <QWidget>
#include <vector>

namespace varena {

struct Sessione;
struct OperazioneElenco;

// The rows of the list as table row numbers: the only thing kept; the values are the job's.
class ModelloPunti : public QAbstractTableModel {
  Q_OBJECT
 public:
  explicit ModelloPunti(const Sessione& s, QObject* genitore = nullptr);
  int rowCount(const QModelIndex& genitore = {}) const override;
  int columnCount(const QModelIndex& genitore = {}) const override;
  QVariant data(const QModelIndex& indice, int ruolo) const override;
  QVariant headerData(int sezione, Qt::Orientation orientamento, int ruolo) const override;
  void sort(int colonna, Qt::SortOrder ordine) override;
  // The live points read again, in the order of the last sort.
  void Ricarica();
  // Only the points `tieni` says yes to: the fill by class.
  template <class F>
  void Filtra(F&& tieni) {
    beginResetModel();
    std::vector<int32_t> r;
    for (int32_t k : righe_)
      if (tieni(k)) r.push_back(k);
    righe_.swap(r);
    endResetModel();
  }
  const std::vector<int32_t>& Righe() const { return righe_; }

 private:
  const Sessione& s_;
  std::vector<int32_t> righe_;
  int colonna_ = -1;
  bool crescente_ = true;
};

class PannelloPunti : public QWidget {
  Q_OBJECT
 public:
  PannelloPunti(Sessione& s, QWidget* genitore = nullptr);
  void Aggiorna();
  QTableView* Vista() const { return vista_; }
  ModelloPunti* Modello() const { return modello_; }
  // The table rows selected, in the order of the list.
  std::vector<int32_t> Selezionate() const;
  void Esegui(const OperazioneElenco& op);
  void Centra();

 signals:
  // The job or its selection changed through the list: the window shows it.
  void Cambiato();

 private:
  void Menu(const QPoint& dove);
  void SelezioneCambiata();
  void DoppioClic(const QModelIndex& indice);

  Sessione& s_;
  ModelloPunti* modello_;
  QTableView* vista_;
};

}  // namespace varena
