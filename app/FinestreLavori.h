// The windows through which a job is chosen: the open window with the archive of jobs
// (`FormApri`), the recent jobs (`formRiapriDisegno`), and the provisional copies left
// behind (`Lavori_Aperti`). They show what the core lists and call the core on each button.
#pragma once

#include <QDialog>
#include <QListWidget>
#include <QTableWidget>

namespace varena {

struct Sessione;

// `FormApri`: the archive's grid, a folder tree and a list of "*.CFG" files. Returns the
// path of the job chosen, or empty.
class FormApri : public QDialog {
  Q_OBJECT
 public:
  FormApri(Sessione& s, QWidget* genitore);
  QString Scelto() const { return scelto_; }

 private:
  void Scegli(const QString& percorso);
  Sessione& s_;
  QTableWidget* griglia_;
  QString scelto_;
};

// `formRiapriDisegno`: the recent jobs, the most recent first.
class FormRiapriDisegno : public QDialog {
  Q_OBJECT
 public:
  FormRiapriDisegno(Sessione& s, QWidget* genitore);
  QString Scelto() const { return scelto_; }

 private:
  QListWidget* elenco_;
  QString scelto_;
};

// `Lavori_Aperti`: the provisional copies with their originals and the five buttons.
class FormLavoriAperti : public QDialog {
  Q_OBJECT
 public:
  FormLavoriAperti(Sessione& s, QWidget* genitore);
  // True when the session now holds a recovered job to show.
  bool Recuperato() const { return recuperato_; }

 private:
  void Riempi();
  QString Voce() const;
  Sessione& s_;
  QListWidget* elenco_;
  bool recuperato_ = false;
};

}  // namespace varena
