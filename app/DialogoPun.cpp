#include "DialogoPun.h"

#include <algorithm>

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QVBoxLayout>

#include "cadastre/ElencoPunti.h"
#include "exchange/Esportazioni.h"

namespace varena {

bool ChiediOpzioniPun(QWidget* genitore, OpzioniEsportazione& o) {
  QDialog d(genitore);
  d.setWindowTitle("Creazione file PUNTI");
  auto* l = new QVBoxLayout(&d);
  std::vector<QCheckBox*> colonne;
  for (int c = ColonnaNome; c <= ColonnaPiano; ++c) {
    colonne.push_back(new QCheckBox(TitoloColonnaElenco(c), &d));
    colonne.back()->setChecked(std::find(o.Colonne.begin(), o.Colonne.end(), c) != o.Colonne.end());
    l->addWidget(colonne.back());
  }
  auto* separatore = new QComboBox(&d);
  separatore->addItems({"VIRGOLA", "SPAZIO", "TAB", "COLONNE", "PREGEO", "ACCAPO", "ESCAPE"});
  separatore->setCurrentText(QString::fromStdString(o.Separatore));
  l->addWidget(separatore);
  auto* anteponi = new QCheckBox("Anteponi 8|", &d);
  auto* finale = new QCheckBox("Separatore finale", &d);
  anteponi->setChecked(o.Anteponi);
  finale->setChecked(o.SepFinale);
  l->addWidget(anteponi);
  l->addWidget(finale);
  auto* bottoni = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &d);
  QObject::connect(bottoni, &QDialogButtonBox::accepted, &d, &QDialog::accept);
  QObject::connect(bottoni, &QDialogButtonBox::rejected, &d, &QDialog::reject);
  l->addWidget(bottoni);
  if (d.exec() != QDialog::Accepted) return false;
  o.Colonne.clear();
  for (size_t i = 0; i < colonne.size(); ++i)
    if (colonne[i]->isChecked()) o.Colonne.push_back(ColonnaNome + static_cast<int>(i));
  o.Separatore = separatore->currentText().toStdString();
  o.Anteponi = anteponi->isChecked();
  o.SepFinale = finale->isChecked();
  return true;
}

}  // namespace varena
