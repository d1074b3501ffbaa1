// The dialogs of the drawing commands.
#include "commands/DialoghiDisegno.h"

#include <initializer_list>

#include "commands/AiutiDisegno.h"
#include "commands/Campitura.h"
#include "commands/Comandi.h"
#include "core/Configura.h"
#include "core/Dialoghi.h"
#include "core/Errori.h"
#include "core/File.h"
#include "commands/TabellaDialoghi.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "survey/Convenzioni.h"
#include "survey/DialoghiCalcoli.h"
#include "view/DimensioniImmagine.h"

namespace varena {

namespace {

bool Tra(int32_t codice, std::initializer_list<int32_t> codici) {
  for (int32_t c : codici)
    if (c == codice) return true;
  return false;
}

// The codes that draw with the text properties: cancelling the dialog ends them.
bool CodiceDiTesto(int32_t codice) { return Tra(codice, {701, 197, 198, 199, 207, 337}); }

// The settings the hatch and the series keep in `Configura.ini`, written when confirmed.
void SalvaConfigura(Sessione& s) {
  if (s.CartellaLavoro.empty()) return;
  s.RoutineCorrente = "ConfiguraScrivi";
  Protetto(s, [&] { ConfiguraScrivi(s); });
}

// A dialog of OK and Annulla: OK takes the fields and closes it; Annulla closes it and, in
// the commands `chiude` names, ends the command.
void BottoniConferma(Dialogo& d, void (*prendi)(Sessione&), bool (*chiude)(int32_t)) {
  const std::string nome = d.Nome;
  d.AggiungiBottone("OK", "OK", [nome, prendi](Sessione& x) {
    prendi(x);
    ChiudiDialogo(x, nome);
  });
  d.AggiungiBottone("Annulla", "Annulla", [nome, chiude](Sessione& x) {
    ChiudiDialogo(x, nome);
    if (chiude(x.ComandoCorrente)) InterrompiComando(x);
  });
  d.BottoneEsc = "Annulla";
}

std::string Numero(double v) { return FormaSemplice(v); }

// The size of a picture from its file, written into the dialog; a message when the file is
// not a picture this program can read.
bool MisuraImmagine(Sessione& s, const std::string& file) {
  s.RoutineCorrente = "FormSelezionaImmagine";
  std::optional<DimensioniPixel> d;
  if (!Protetto(s, [&] {
        if (const auto byte = LeggiByte(file)) d = DimensioniImmagine(*byte);
      }))
    return false;
  if (!d) {
    s.Ui->Messaggio("Immagine non riconosciuta:\n" + file, "Inserisci Immagine", Icona::Avviso);
    return false;
  }
  AggiornaCampo(s, "FormSelezionaImmagine", "Larghezza", std::to_string(d->Larghezza));
  AggiornaCampo(s, "FormSelezionaImmagine", "Altezza", std::to_string(d->Altezza));
  return true;
}

}  // namespace

ProprietaTestoScelte ProprietaTestoCorrenti(Sessione& s) {
  ProprietaTestoScelte& p = s.ValoriDisegno.Testo;
  if (const Dialogo* d = TrovaDialogo(s, "ProprietaTesto")) {
    p.Testo = d->Valore("Testo");
    p.Altezza = d->Numero("Altezza");
    p.Angolo = d->Numero("Angolo");
    p.Colore = InteroLungo(d->Numero("Colore"));
    p.Font = Rifila(d->Valore("Font"));
    p.Scelte = true;
  } else if (!p.Scelte) {
    p.Altezza = s.Imp.AltezzaTestoDefault;
    p.Angolo = s.Imp.AngoloTestoDefault;
    p.Colore = s.Imp.ColoreTestoDefault;
    p.Font = s.Imp.FontTestoDefault;
  }
  return p;
}

bool ApriProprietaTesto(Sessione& s) {
  ChiudiDialogo(s, "ProprietaTesto");
  const ProprietaTestoScelte p = ProprietaTestoCorrenti(s);
  Dialogo d;
  d.Nome = "ProprietaTesto";
  d.Titolo = "Proprietà Testo";
  d.AggiungiCampo("Testo", "Testo :", p.Testo)
      .AggiungiCampo("Altezza", "Altezza :", Numero(p.Altezza))
      .AggiungiCampo("Angolo", "Angolo (gon) :", Numero(p.Angolo))
      .AggiungiCampo("Colore", "Colore :", std::to_string(p.Colore))
      .AggiungiCampo("Font", "Carattere :", p.Font);
  BottoniConferma(d, [](Sessione& x) { ProprietaTestoCorrenti(x); }, CodiceDiTesto);
  ApriDialogo(s, std::move(d));
  return true;
}

ImmagineScelta ImmagineCorrente(Sessione& s) {
  ImmagineScelta& im = s.ValoriDisegno.Immagine;
  const Dialogo* d = TrovaDialogo(s, "FormSelezionaImmagine");
  if (!d) return im;
  im.File = Rifila(d->Valore("File"));
  im.Larghezza = d->Numero("Larghezza");
  im.Altezza = d->Numero("Altezza");
  im.Scala = d->Numero("Scala");
  // A file named by hand, without the browse button: its size is read now.
  if (!im.File.empty() && (!(im.Larghezza > 0) || !(im.Altezza > 0)) && MisuraImmagine(s, im.File)) {
    d = TrovaDialogo(s, "FormSelezionaImmagine");
    im.Larghezza = d->Numero("Larghezza");
    im.Altezza = d->Numero("Altezza");
  }
  return im;
}

bool ApriFormSelezionaImmagine(Sessione& s) {
  const ImmagineScelta im = s.ValoriDisegno.Immagine;
  Dialogo d;
  d.Nome = "FormSelezionaImmagine";
  d.Titolo = "Seleziona Immagine";
  d.AggiungiCampo("File", "Nome File :", im.File)
      .AggiungiCampo("Larghezza", "Larghezza (pixel) :", im.Larghezza > 0 ? Numero(im.Larghezza) : "")
      .AggiungiCampo("Altezza", "Altezza (pixel) :", im.Altezza > 0 ? Numero(im.Altezza) : "")
      .AggiungiCampo("Scala", "Scala (metri per pixel) :", Numero(im.Scala));
  d.AggiungiBottone("Sfoglia", "Sfoglia ...", [](Sessione& x) {
    const Dialogo* dd = TrovaDialogo(x, "FormSelezionaImmagine");
    const auto file = x.Ui->ScegliFile(
        false, "Seleziona Immagine",
        "Immagini (*.BMP;*.JPG;*.GIF;*.PNG)|*.BMP;*.JPG;*.GIF;*.PNG|Tutti i file (*.*)|*.*", x.CartellaLavoro,
        dd ? dd->Valore("File") : std::string());
    if (!file) return;
    AggiornaCampo(x, "FormSelezionaImmagine", "File", *file);
    MisuraImmagine(x, *file);
  });
  BottoniConferma(d, [](Sessione& x) { ImmagineCorrente(x); }, [](int32_t c) { return c == 202; });
  ApriDialogo(s, std::move(d));
  return true;
}

void LeggiParametriCampitura(Sessione& s) {
  if (const Dialogo* d = TrovaDialogo(s, "Imputa2"); d && d->Campo("Distanza_Campitura")) {
    s.Imp.Angolo_Campitura = d->Numero("Angolo_Campitura");
    s.Imp.Distanza_Campitura = d->Numero("Distanza_Campitura");
  }
}

bool ApriImputa2(Sessione& s) {
  if (s.ComandoCorrente != 196) return true;
  Dialogo d;
  d.Nome = "Imputa2";
  d.Titolo = "Campitura";
  d.AggiungiCampo("Angolo_Campitura", "Angolo Campitura (gon) :", Numero(s.Imp.Angolo_Campitura))
      .AggiungiCampo("Distanza_Campitura", "Distanza Campitura (m) :", Numero(s.Imp.Distanza_Campitura));
  d.AggiungiBottone("OK", "OK", [](Sessione& x) {
    LeggiParametriCampitura(x);
    ChiudiDialogo(x, "Imputa2");
    SalvaConfigura(x);
    // No spacing, no hatch: the command ends.
    if (x.Imp.Distanza_Campitura == 0 && x.ComandoCorrente == 196) InterrompiComando(x);
  });
  d.AggiungiBottone("Annulla", "Annulla", [](Sessione& x) {
    ChiudiDialogo(x, "Imputa2");
    if (x.ComandoCorrente == 196) InterrompiComando(x);
  });
  d.BottoneEsc = "Annulla";
  ApriDialogo(s, std::move(d));
  return true;
}

void LeggiParametriSerie(Sessione& s) {
  if (const Dialogo* d = TrovaDialogo(s, "ParametriSerie")) {
    s.Imp.Numero_Punti = d->Numero("Numero_Punti");
    s.Imp.Distanza = d->Numero("Distanza");
    s.Imp.Numero_Righe = d->Numero("Numero_Righe");
    s.Imp.Numero_Colonne = d->Numero("Numero_Colonne");
  }
}

bool ApriParametriSerie(Sessione& s) {
  Dialogo d;
  d.Nome = "ParametriSerie";
  d.Titolo = "Parametri Serie";
  d.AggiungiCampo("Numero_Punti", "Numero Punti :", Numero(s.Imp.Numero_Punti))
      .AggiungiCampo("Distanza", "Distanza :", Numero(s.Imp.Distanza))
      .AggiungiCampo("Numero_Righe", "Numero Righe :", Numero(s.Imp.Numero_Righe))
      .AggiungiCampo("Numero_Colonne", "Numero Colonne :", Numero(s.Imp.Numero_Colonne));
  BottoniConferma(
      d,
      [](Sessione& x) {
        LeggiParametriSerie(x);
        SalvaConfigura(x);
      },
      [](int32_t c) { return c >= 184 && c <= 187; });
  ApriDialogo(s, std::move(d));
  return true;
}

bool ApriFormSelezionaContorno(Sessione& s) {
  const bool campitura = s.ComandoCorrente == 196;
  if (campitura) subCalcolaSelezione(s);
  const SpezzataTemporanea& c = s.SpezzataTemporanea;
  std::string tabella = "Progr\tNome\tNord\tEst\tQuota";
  for (size_t i = 0; i < c.Conta(); ++i) {
    tabella += "\n" + std::to_string(i + 1) + "\t" + (i < c.Nome.size() ? c.Nome[i] : std::string("*")) + "\t" +
               TestoMetri(c.Y[i]) + "\t" + TestoMetri(c.X[i]) + "\t" + TestoMetri(i < c.Z.size() ? c.Z[i] : 0.0);
  }
  Dialogo d;
  d.Nome = "FormSelezionaContorno";
  d.Titolo = "Seleziona Contorno";
  d.AggiungiCampo("Contorno", "", tabella);
  d.AggiungiBottone("Chiudi", "Chiudi", [](Sessione& x) { ChiudiDialogo(x, "FormSelezionaContorno"); });
  d.BottoneEsc = "Chiudi";
  ApriDialogo(s, std::move(d));
  // The contour of an area division: the division's own dialog takes over from here.
  if (s.ComandoCorrente == kCodiceDivisione2Punti || s.ComandoCorrente == kCodiceDivisioneRotazione)
    ApriDialogoDiTabella(s, "FormDivisioneAree");
  if (campitura) {
    // The next clicks trace another contour.
    s.SpezzataTemporanea.Svuota();
    Riprendi(s);
  }
  return true;
}

}  // namespace varena
