#include "cadastre/ComandiEstratto.h"

#include "cadastre/Estratto.h"
#include "commands/Azioni.h"
#include "commands/Comandi.h"
#include "commands/Costruttori.h"
#include "core/Dialoghi.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Undo.h"
#include "view/Ridisegna.h"
#include "view/Rigenera.h"

namespace varena {

namespace {

void NonAssociato(Sessione& s) { s.Ui->Messaggio("Estratto non Associato", "Estratto di Mappa", Icona::Nessuna); }

// The extract made again from its text with the settings now in force, and shown. The
// settings are the job's: its next save writes them.
void Rigenera(Sessione& s) {
  SegnaModificato(s, SlotCfg);
  RiGeneraEDM(s);
  RigeneraModifiche(s);
  Ridisegna(s);
}

void Congela(Sessione& s, int16_t valore) {
  if (!EstrattoAssociato(s)) {
    AzioneEstrattoNonAssociato(s);
    return;
  }
  s.EstrattoCongelato = valore;
  // A raster that was not found stays frozen: there is nothing to show.
  s.EstrattoImmagineCongelata = valore == 0 && s.PercorsoImmagineEstratto.empty() ? int16_t{1} : valore;
  Rigenera(s);
}

}  // namespace

// The file `da` into the folder of extracts under its own name, unless it is already there.
// False, with a word, when another file of that name stands there.
bool NellaCartella(Sessione& s, const std::string& da) {
  const std::string a = PercorsoEstratti(s, Foglia(da));
  if (const auto c = TrovaFile(a)) {
    if (StessoFile(*c, da) || LeggiByte(*c) == LeggiByte(da)) return true;
    s.Ui->Messaggio("Nella cartella degli estratti esiste già un file di nome " + Foglia(*c), "Associa Estratto",
                    Icona::Avviso);
    return false;
  }
  NuovaCartella(Cartella(Cartella(a)));
  NuovaCartella(Cartella(a));
  CopiaFile(da, a);
  return true;
}

bool EstrattoAssociato(const Sessione& s) { return !Rifila(s.FileEstratto).empty() && !s.TestoEstratto.empty(); }

void AzioneAssociaEstratto(Sessione& s) {
  const auto scelto = s.Ui->ScegliFile(false, "Associa Estratto", "Estratti di mappa (*.EMP)|*.EMP",
                                       s.Imp.Cartella_Estratti, "");
  if (!scelto || Rifila(*scelto).empty()) return;
  s.RoutineCorrente = "AssociaEstratto";
  bool fatto = false;
  Protetto(s, [&] {
    const std::string emp = *scelto;
    if (!EsisteFile(emp) || !NellaCartella(s, emp)) return;
    // The raster of the same name beside it, when there is one.
    const std::string foglia = Foglia(emp);
    const std::string base = Cartella(emp) + "/" + foglia.substr(0, std::min(foglia.rfind('.'), foglia.size()));
    const auto png = TrovaFile(base + ".PNG");
    if (png && !NellaCartella(s, *png)) return;
    // The job carries its own copy, the members <job>.EMP and <job>.PNG that travel with it.
    if (!s.SolaLettura && !s.NomeLavoro.empty()) {
      CopiaFile(emp, s.NomeLavoro + ".EMP");
      if (png) CopiaFile(*png, s.NomeLavoro + ".PNG");
    }
    s.FileEstratto = Maiuscolo(Foglia(emp));
    s.FileImmagineEstratto.clear();
    s.EstrattoCongelato = s.EstrattoImmagineCongelata = 0;
    fatto = true;
  });
  if (!fatto) return;
  CaricaEMP(s);
  CaricaPNG(s);
  SegnaModificato(s, SlotCfg);
  RiGeneraEDM(s);
  VR_SalvaUndo(s);
}

void AzioneCongelaEstratto(Sessione& s) { Congela(s, 1); }
void AzioneScongelaEstratto(Sessione& s) { Congela(s, 0); }

void AzioneColoreEstratto(Sessione& s) {
  if (!EstrattoAssociato(s)) {
    AzioneEstrattoNonAssociato(s);
    return;
  }
  const auto valore = s.Ui->Imputa("Colore dell'estratto (1-255) :", "Colore Estratto", std::to_string(s.ColoreEstratto));
  if (!valore) return;
  const double pen = Val(VirgolaInPunto(*valore));
  if (!(pen >= 1 && pen <= 255)) {
    s.Ui->Messaggio("Colore non valido: " + Rifila(*valore), "Colore Estratto", Icona::Avviso);
    return;
  }
  s.ColoreEstratto = InteroLungo(pen);
  Rigenera(s);
}

void AzioneEsplodiEstratto(Sessione& s) {
  if (!EstrattoAssociato(s) || s.EstrattoCongelato == 1) {
    NonAssociato(s);
    return;
  }
  // The lines and texts become the job's own, on the extract's layer, with its pens; the
  // surface's styles are the line types 1 (plain), 2 (dashed) and 3 (dotted). The frame of
  // the raster stays the raster's.
  const size_t cornice = s.EstrattoImmagineCongelata == 1 ? 0 : 4;
  const std::vector<ElementoEstratto> elementi = s.ElementiEstratto;
  for (size_t k = 0; k + cornice < elementi.size(); ++k) {
    const ElementoEstratto& e = elementi[k];
    if (e.Primitiva == PrimTesto) {
      ScriviTesto(s, e.X1, e.Y1, e.Testo, e.Altezza, e.Rotazione, e.Penna, e.Font, "ESTRATTO");
    } else if (e.Primitiva == PrimCerchio) {
      const auto r = static_cast<size_t>(ScriviCerchio(s, {e.X1, e.Y1, 0}, e.Altezza, "ESTRATTO"));
      s.CerchioColore[r] = e.Penna, s.CerchioTratteggio[r] = 1;
    } else {
      const auto r = static_cast<size_t>(ScriviLinea(s, {e.X1, e.Y1, 0}, {e.X2, e.Y2, 0}, "ESTRATTO"));
      s.LineaColore[r] = e.Penna, s.LineaTratteggio[r] = static_cast<int16_t>(e.Tratto + 1);
    }
  }
  // What is now drawn as entities is no longer drawn as the extract.
  s.EstrattoCongelato = 1;
  SegnaModificato(s, SlotCfg);
  RiGeneraEDM(s);
  VR_SalvaUndo(s);
}

bool ApriSpostaInquadramento(Sessione& s) {
  if (!EstrattoAssociato(s)) {
    NonAssociato(s);
    return false;
  }
  Dialogo d;
  d.Nome = "SpostaInquadramento";
  d.Titolo = "Inquadramento - Sposta il Disegno";
  // The steps offered are those of Setup Inquadramento.
  d.AggiungiCampo("Text1", "Passo :", FormatoMaschera(s.Calcoli.PassoSpostamentoInquadramento, "#########0.0##"))
      .AggiungiCampo("Text2", "Angolo (gon) :", FormatoMaschera(s.Calcoli.PassoAngoloInquadramento, "###0.####"));
  // Each button: East and North steps of the move, or the sense of the turn.
  struct Mossa {
    const char* Nome;
    const char* Etichetta;
    int Est, Nord, Giro;
  };
  static constexpr Mossa kMosse[] = {
      {"Nord", "Nord", 0, 1, 0},        {"Sud", "Sud", 0, -1, 0},          {"Ovest", "Ovest", -1, 0, 0},
      {"Est", "Est", 1, 0, 0},          {"NordEst", "Nord-Est", 1, 1, 0},  {"NordOvest", "Nord-Ovest", -1, 1, 0},
      {"SudEst", "Sud-Est", 1, -1, 0},  {"SudOvest", "Sud-Ovest", -1, -1, 0},
      {"RuotaOraria", "Ruota", 0, 0, 1}, {"RuotaAntioraria", "Ruota Indietro", 0, 0, -1},
  };
  for (const Mossa& m : kMosse)
    d.AggiungiBottone(m.Nome, m.Etichetta, [m](Sessione& x) {
      const Dialogo* f = TrovaDialogo(x, "SpostaInquadramento");
      if (!f) return;
      const double passo = Val(VirgolaInPunto(f->Valore("Text1")));
      const double angolo = Val(VirgolaInPunto(f->Valore("Text2")));
      SpostaEstratto(x, m.Est * passo, m.Nord * passo, m.Giro * angolo, x.Vista.CentroEst, x.Vista.CentroNord);
      SegnaModificato(x, SlotCfg);
      RigeneraModifiche(x);
      Ridisegna(x);
    });
  d.AggiungiBottone("Chiudi", "Chiudi", [](Sessione& x) {
    ChiudiDialogo(x, "SpostaInquadramento");
    InterrompiComando(x);
    VR_SalvaUndo(x);
  });
  d.BottoneEsc = "Chiudi";
  d.DiLavoro = true;
  ApriDialogo(s, std::move(d));
  return true;
}

void AzioneConfiguraEstratto(Sessione& s) {
  if (!EstrattoAssociato(s)) {
    AzioneEstrattoNonAssociato(s);
    return;
  }
  Dialogo d;
  d.Nome = "FormConfiguraEstratto";
  d.Titolo = "Configura Estratto";
  d.AggiungiDato("Nome", "", "Estratto : " + Rifila(s.FileEstratto))
      .AggiungiCampo("Congelato", "Estratto Congelato", s.EstrattoCongelato == 1 ? "1" : "0")
      .AggiungiCampo("ImmagineCongelata", "Immagine Congelata", s.EstrattoImmagineCongelata == 1 ? "1" : "0")
      .AggiungiDato("OrigineX", "Origine X :", FormatoMaschera(s.OrigineEstrattoX, "#####.##"))
      .AggiungiDato("OrigineY", "Origine Y :", FormatoMaschera(s.OrigineEstrattoY, "#####.##"))
      .AggiungiDato("Scala", "Scala :", FormatoMaschera(s.ScalaEstratto, "#####"));
  d.AggiungiBottone("OK", "OK", [](Sessione& x) {
    const Dialogo* f = TrovaDialogo(x, "FormConfiguraEstratto");
    if (!f) return;
    x.EstrattoCongelato = f->Numero("Congelato") != 0 ? 1 : 0;
    x.EstrattoImmagineCongelata = f->Numero("ImmagineCongelata") != 0 || x.PercorsoImmagineEstratto.empty() ? 1 : 0;
    ChiudiDialogo(x, "FormConfiguraEstratto");
    Rigenera(x);
  });
  d.AggiungiBottone("Annulla", "Annulla", [](Sessione& x) { ChiudiDialogo(x, "FormConfiguraEstratto"); });
  d.BottoneEsc = "Annulla";
  ApriDialogo(s, std::move(d));
}

}  // namespace varena
