#include "EditorStampe.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>
#include <QVBoxLayout>
#include <cmath>

#include "Stampa.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "output/ModelliStampa.h"

namespace varena {

namespace {

// A line break inside a paragraph is "\n" in the model and the line separator in the editor,
// where "\n" would start a new paragraph.
QString InEditor(const std::string& t) { return QString::fromStdString(t).replace('\n', QChar::LineSeparator); }
std::string DaEditor(QString t) { return t.replace(QChar::LineSeparator, '\n').toStdString(); }

char Allineamento(Qt::Alignment a) {
  if (a & Qt::AlignHCenter) return 'c';
  if (a & Qt::AlignRight) return 'r';
  if (a & Qt::AlignJustify) return 'j';
  return 'l';
}

Qt::Alignment Allineamento(char a) {
  return a == 'c' ? Qt::AlignHCenter : a == 'r' ? Qt::AlignRight : a == 'j' ? Qt::AlignJustify : Qt::AlignLeft;
}

CorsaRicca Corsa(const QTextCharFormat& f) {
  CorsaRicca c;
  c.Grassetto = f.fontWeight() >= QFont::Bold, c.Corsivo = f.fontItalic(), c.Sottolineato = f.fontUnderline();
  if (f.fontPointSize() > 0) c.Punti = static_cast<int>(std::lround(f.fontPointSize()));
  const QStringList famiglie = f.fontFamilies().toStringList();
  if (!famiglie.isEmpty()) c.Font = famiglie.front().toStdString();
  return c;
}

}  // namespace

void InDocumento(const TestoRicco& t, QTextDocument& d) {
  d.clear();
  QTextCursor c(&d);
  for (size_t i = 0; i < t.Paragrafi.size(); ++i) {
    const ParagrafoRicco& p = t.Paragrafi[i];
    if (i > 0) c.insertBlock();
    QTextBlockFormat b = c.blockFormat();
    b.setAlignment(Allineamento(p.Allineamento));
    c.setBlockFormat(b);
    for (const CorsaRicca& r : p.Corse) {
      QTextCharFormat f;
      f.setFontWeight(r.Grassetto ? QFont::Bold : QFont::Normal);
      f.setFontItalic(r.Corsivo);
      f.setFontUnderline(r.Sottolineato);
      f.setFontPointSize(r.Punti);
      if (!r.Font.empty()) f.setFontFamilies(QStringList{QString::fromStdString(r.Font)});
      c.insertText(InEditor(r.Testo), f);
    }
  }
  d.setModified(false);
}

TestoRicco DaDocumento(const QTextDocument& d) {
  TestoRicco t;
  for (QTextBlock b = d.begin(); b.isValid(); b = b.next()) {
    ParagrafoRicco p;
    p.Allineamento = Allineamento(b.blockFormat().alignment());
    for (auto it = b.begin(); !it.atEnd(); ++it) {
      CorsaRicca c = Corsa(it.fragment().charFormat());
      c.Testo = DaEditor(it.fragment().text());
      if (!p.Corse.empty() && p.Corse.back().StessoAspetto(c)) {
        p.Corse.back().Testo += c.Testo;
      } else if (!c.Testo.empty()) {
        p.Corse.push_back(std::move(c));
      }
    }
    t.Paragrafi.push_back(std::move(p));
  }
  return t;
}

bool StampaRelazione(Sessione& s, const QTextDocument& d, QPrinter& stampante) {
  d.print(&stampante);
  if (stampante.printerState() != QPrinter::Error) return true;
  StampanteRifiuta(s);
  return false;
}

bool RelazionePdf(Sessione& s, const QTextDocument& d, const std::string& percorso) {
  s.RoutineCorrente = "VR_StampaGenerale";
  const std::string accanto = percorso + kSuffissoTemporaneo;
  EliminaFileEsatto(accanto);
  {
    QPrinter pdf(QPrinter::HighResolution);
    pdf.setOutputFormat(QPrinter::PdfFormat);
    pdf.setOutputFileName(QString::fromStdString(accanto));
    pdf.setPageSize(QPageSize(QPageSize::A4));
    d.print(&pdf);
  }  // the PDF is complete only once its printer is gone
  if (LunghezzaFile(accanto) <= 0) {
    s.Ui->Messaggio("Impossibile scrivere il file " + percorso, "Stampa", Icona::Critico);
    return false;
  }
  return Protetto(s, [&] { RinominaFileEsatto(accanto, percorso); });
}

EditorStampe::EditorStampe(Sessione& s, std::string nome, const TestoRicco& t, QWidget* padre)
    : QDialog(padre), s_(s), nome_(std::move(nome)), testo_(new QTextEdit(this)) {
  setWindowTitle("Edit Stampe");
  resize(760, 820);
  auto* colonna = new QVBoxLayout(this);
  colonna->addWidget(new QLabel(QString::fromStdString("Stampe : " + nome_), this));
  auto* riga = new QHBoxLayout;
  auto stile = [&](const QString& testo, const QString& tip, auto applica) {
    auto* b = new QPushButton(testo, this);
    b->setToolTip(tip);
    connect(b, &QPushButton::clicked, this, [this, applica] {
      QTextCharFormat f;
      applica(f, testo_->currentCharFormat());
      testo_->mergeCurrentCharFormat(f);
      testo_->setFocus();
    });
    riga->addWidget(b);
  };
  stile("G", "Grassetto", [](QTextCharFormat& f, const QTextCharFormat& ora) {
    f.setFontWeight(ora.fontWeight() >= QFont::Bold ? QFont::Normal : QFont::Bold);
  });
  stile("C", "Corsivo", [](QTextCharFormat& f, const QTextCharFormat& ora) { f.setFontItalic(!ora.fontItalic()); });
  stile("S", "Sottolineato", [](QTextCharFormat& f, const QTextCharFormat& ora) { f.setFontUnderline(!ora.fontUnderline()); });
  riga->addStretch();
  auto* stampa = new QPushButton("Stampa...", this);
  auto* pdf = new QPushButton("PDF...", this);
  auto* chiudi = new QPushButton("Chiudi", this);
  riga->addWidget(stampa);
  riga->addWidget(pdf);
  riga->addWidget(chiudi);
  colonna->addLayout(riga);
  colonna->addWidget(testo_);
  testo_->setAcceptRichText(true);
  InDocumento(t, *testo_->document());
  connect(chiudi, &QPushButton::clicked, this, &QDialog::reject);
  connect(stampa, &QPushButton::clicked, this, [this] {
    QPrinter stampante(QPrinter::HighResolution);
    QPrintDialog dialogo(&stampante, this);
    dialogo.setWindowTitle("Stampa");
    if (dialogo.exec() == QDialog::Accepted) StampaRelazione(s_, *testo_->document(), stampante);
  });
  connect(pdf, &QPushButton::clicked, this, [this] {
    const std::string base = nome_.substr(0, nome_.rfind('.'));
    const auto file = s_.Ui->ScegliFile(true, "Salva PDF", "PDF (*.pdf)|*.pdf|", s_.CartellaLavoro, base + ".pdf");
    if (file) RelazionePdf(s_, *testo_->document(), *file);
  });
}

void EditorStampe::done(int r) {
  if (!ChiudiEditorStampe(s_, nome_, DaDocumento(*testo_->document()), testo_->document()->isModified())) return;
  QDialog::done(r);
}

void MostraModelliStampa(QWidget* padre, Sessione& s) {
  QDialog d(padre);
  d.setWindowTitle("Stampe");
  auto* colonna = new QVBoxLayout(&d);
  auto* elenco = new QListWidget(&d);
  for (const std::string& nome : VR_StampaGeneral(s)) elenco->addItem(QString::fromStdString(nome));
  colonna->addWidget(new QLabel(elenco->count() ? "Modelli di stampa:"
                                                : QString::fromStdString("Nessun modello in " + CartellaModelli(s)),
                                &d));
  colonna->addWidget(elenco);
  auto* bottoni = new QDialogButtonBox(&d);
  QPushButton* modifica = bottoni->addButton("Modifica", QDialogButtonBox::AcceptRole);
  bottoni->addButton("Chiudi", QDialogButtonBox::RejectRole);
  colonna->addWidget(bottoni);
  auto apri = [&] {
    if (!elenco->currentItem()) return;
    const std::string nome = elenco->currentItem()->text().toStdString();
    if (const auto t = VR_StampaGenerale(s, nome)) EditorStampe(s, nome, *t, &d).exec();
  };
  QObject::connect(modifica, &QPushButton::clicked, &d, apri);
  QObject::connect(elenco, &QListWidget::itemDoubleClicked, &d, apri);
  QObject::connect(bottoni, &QDialogButtonBox::rejected, &d, &QDialog::reject);
  d.exec();
}

}  // namespace varena
