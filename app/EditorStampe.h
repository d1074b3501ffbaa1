// Report printing in the desktop: the list of the models, the rich-text editor of one, and
// its print on a printer or into a PDF.
#pragma once

#include <QDialog>
#include <string>

#include "output/TestoRicco.h"

class QPrinter;
class QTextDocument;
class QTextEdit;

namespace varena {

struct Sessione;

// The rich text of the models into a document of the editor and back.
void InDocumento(const TestoRicco& t, QTextDocument& d);
TestoRicco DaDocumento(const QTextDocument& d);

// The report on a printer of the system's print service. False, with the message of the
// plot's refusal, when the printer refused it.
bool StampaRelazione(Sessione& s, const QTextDocument& d, QPrinter& stampante);
// The report as a PDF at `percorso`, written beside it and renamed into place.
bool RelazionePdf(Sessione& s, const QTextDocument& d, const std::string& percorso);

// `VR_StampaGenerale` in the desktop: the model in "TEMP.rtf" in a rich-text box, the
// question of the save at its close.
class EditorStampe : public QDialog {
 public:
  EditorStampe(Sessione& s, std::string nome, const TestoRicco& t, QWidget* padre = nullptr);
  QTextEdit* Testo() const { return testo_; }

 protected:
  void done(int r) override;

 private:
  Sessione& s_;
  std::string nome_;
  QTextEdit* testo_;
};

// `VR_StampaGeneral` in the desktop: the models of "MODELLI_STAMPA", one opened by a double
// click or by "Modifica".
void MostraModelliStampa(QWidget* padre, Sessione& s);

}  // namespace varena
