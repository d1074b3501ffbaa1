// The small text exports.
#include "exchange/Esportazioni.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "cadastre/CodiciPunto.h"
#include "cadastre/ElencoPunti.h"
#include "commands/TabellaDialoghi.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Lista.h"
#include "core/Sessione.h"
#include "core/Testo.h"

namespace varena {

namespace {

constexpr DescrizioneEsportazione kFormati[] = {
    {FormatoEsportazione::Xyz, "xyz", "Esporta XYZ", "Esporta XYZ(*.XYZ)|*.XYZ|", ".XYZ", false},
    {FormatoEsportazione::Csv, "csv", "Esporta CSV", "Esporta CSV(*.CSV)|*.CSV|", ".CSV", false},
    {FormatoEsportazione::Raw, "raw", "Esporta RAW", "Esporta RAW(*.RAW)|*.RAW|", ".RAW", false},
    {FormatoEsportazione::CsvDisegno, "csv-disegno", "Esporta CSV", "Esporta CSV(*.CSV)|*.CSV|", ".CSV", false},
    {FormatoEsportazione::Scr, "scr", "Esporta SCR", "Esporta SCR(*.SCR)|*.SCR|", ".SCR", false},
    {FormatoEsportazione::Pun, "pun", "Creazione file PUNTI",
     "File Coordinate CSV (*.CSV)|*.CSV|File Coordinate PUN (*.PUN)|*.PUN|File Libretto Misure (*.DAT)|*.DAT|"
     "File Coordinate TXT (*.TXT)|*.TXT|",
     ".PUN", true},
    {FormatoEsportazione::Gsi, "gsi", "GeneraLeicaGSI", "File Coordinate GSI (*.GSI)|*.GSI|", ".GSI", true},
    {FormatoEsportazione::GsiTcr705, "gsi-tcr705", "GeneraLeicaGSITCR705",
     "File Coordinate GSI (*.GSI)|*.GSI|", ".GSI", true},
    {FormatoEsportazione::Ril, "ril", "Creazione file RIL", "File Coordinate RIL (*.RIL)|*.RIL|", ".RIL", true},
};

constexpr const char* kFine = "\r\n";

const DescrizioneEsportazione& Descrizione(FormatoEsportazione f) {
  for (const DescrizioneEsportazione& d : kFormati)
    if (d.Formato == f) return d;
  return kFormati[0];
}

// The right `n` characters of `riempimento` + `testo`, as a fixed-width field is cut.
std::string Destra(const std::string& riempimento, const std::string& testo, size_t n) {
  const std::string t = riempimento + testo;
  return t.size() > n ? t.substr(t.size() - n) : t;
}

// The menu's point formats: one line a chosen live point. In CSV and RAW the bar is the
// field break, written only after every comma of the values has become a point.
std::string PuntiMenu(const Sessione& s, FormatoEsportazione f, const std::vector<int32_t>& righe, int decimali) {
  const std::string m = MascheraEsportazione(decimali);
  std::string t;
  for (const int32_t r : righe) {
    const auto k = static_cast<size_t>(r);
    if (r < 0 || r >= s.ContaEntita[SlotPunti] || !IdentVivo(s.PuntoIdent[k])) continue;
    const std::string x = FormatoMaschera(s.PuntoX[k], m), y = FormatoMaschera(s.PuntoY[k], m);
    const std::string z = FormatoMaschera(s.PuntoZ[k], m);
    std::string riga;
    if (f == FormatoEsportazione::Xyz) riga = x + " " + y + " " + z;
    else if (f == FormatoEsportazione::Csv) riga = s.PuntoNome[k] + "|" + y + "|" + x + "|" + z + "|" + s.PuntoDescrizione[k];
    else riga = s.PuntoNome[k] + "|" + x + "|" + y + "|" + z + "|" + s.PuntoDescrizione[k];
    riga = Sostituisci(riga, ",", ".");
    if (f != FormatoEsportazione::Xyz) riga = Sostituisci(riga, "|", ",");
    t += riga + kFine;
  }
  return t;
}

// The separator of the PUN dialog as it is printed; "ACCAPO" ends the line.
std::string Separatore(const std::string& nome) {
  if (nome == "VIRGOLA") return ",";
  if (nome == "SPAZIO" || nome == "COLONNE") return " ";
  if (nome == "TAB") return "\t";
  if (nome == "PREGEO") return "|";
  if (nome == "ACCAPO") return kFine;
  if (nome == "ESCAPE") return "\x1B";
  return {};
}

std::string Pun(const Sessione& s, const std::vector<int32_t>& righe, const OpzioniEsportazione& o) {
  const std::string sep = Separatore(o.Separatore);
  std::string t;
  for (size_t i = 0; i < righe.size(); ++i) {
    if (o.Anteponi) t += "8|";
    for (const int c : o.Colonne) {
      std::string v = CellaElencoPunti(s, righe, i, c);
      if (c == ColonnaNome || c == ColonnaDescrizione) v = PulisciCodici(v);
      if (o.Separatore == "COLONNE") v = Destra(std::string(14, ' '), v, 13);
      t += v + sep;
    }
    if (o.SepFinale) t += sep;
    t += kFine;
  }
  return t;
}

// A coordinate of the list as a GSI word: sign and digits, the decimal mark dropped.
std::string ParolaGsi(const std::string& cella, const char* maschera, bool tcr705) {
  std::string v = FormatoMaschera(Val(cella), maschera);
  if (v.empty() || v[0] != '-') v = "+" + v;
  if (tcr705) return Sostituisci(Sostituisci(v, ".", ""), ",", "");
  return v.substr(0, 14) + (v.size() > 15 ? v.substr(15) : "");
}

std::string Gsi(const Sessione& s, const std::vector<int32_t>& righe, bool tcr705) {
  const char* maschera = tcr705 ? "00000.000" : "0000000000000.000";
  std::string t;
  for (size_t i = 0; i < righe.size(); ++i) {
    const std::string nome = Destra("00000000", CellaElencoPunti(s, righe, i, ColonnaNome), 8);
    t += (tcr705 ? "11" : "*11") + FormatoMaschera(static_cast<double>(i + 1), "0000") +
         (tcr705 ? "+" : "+00000000") + nome;
    t += " 81..10" + ParolaGsi(CellaElencoPunti(s, righe, i, ColonnaEst), maschera, tcr705);
    t += " 82..10" + ParolaGsi(CellaElencoPunti(s, righe, i, ColonnaNord), maschera, tcr705);
    t += " 83..10" + ParolaGsi(CellaElencoPunti(s, righe, i, ColonnaQuota), maschera, tcr705);
    if (!tcr705) t += " 71....+00000001 ";
    t += kFine;
  }
  return t;
}

std::string RigaRil(const std::string& nome, const std::string& descrizione, const std::string& nord,
                    const std::string& est) {
  return "5=" + nome + kFine + "4=" + descrizione + kFine + "37=" + Sostituisci(nord, ",", ".") + kFine + "38=" +
         Sostituisci(est, ",", ".") + kFine;
}

std::string RilElenco(const Sessione& s, const std::vector<int32_t>& righe) {
  std::string t;
  for (size_t i = 0; i < righe.size(); ++i)
    t += RigaRil(CellaElencoPunti(s, righe, i, ColonnaNome), CellaElencoPunti(s, righe, i, ColonnaDescrizione),
                 CellaElencoPunti(s, righe, i, ColonnaNord), CellaElencoPunti(s, righe, i, ColonnaEst));
  return t;
}

// The header of a kind in the whole-drawing CSV: its word alone, then the column names.
template <size_t N>
std::string Intestazione(const char* parola, const char* const (&colonne)[N]) {
  IstruzioneLista l;
  for (const char* c : colonne) l.Testo(c);
  return std::string(parola) + kFine + l.Riga();
}

std::string PuntiDisegno(const Sessione& s) {
  std::string t =
      "PUNTO,Ident,Nome,Colore Nome,Congela Nome,Dimensione Nome,Descrizione,"
      "Colore Descrizione, Congela Descrizione, Dimensione Descrizione, "
      "X1,Y1,Z1,Spostamento X,Spostamento Y,Spostamento Z,"
      "Simbolo,Colore Simbolo,Congela Simbolo,Dimensione Simbolo,"
      "Colore Quota,Congela Quota,Dimensione Quota,"
      "Attendibilità, Piano, Font,"
      "Errore Orientamento,HPrisma/HStazione";
  t += kFine;
  auto n = [](double v) { return FormaSemplice(v); };
  for (size_t k = 0; k < static_cast<size_t>(s.ContaEntita[SlotPunti]); ++k) {
    if (!IdentVivo(s.PuntoIdent[k])) continue;
    const std::string campi[] = {
        n(s.PuntoIdent[k]), s.PuntoNome[k], n(s.PuntoColoreNome[k]), n(s.PuntoCongelaNome[k]),
        n(s.PuntoDimensioneNome[k]), s.PuntoDescrizione[k], n(s.PuntoColoreDescrizione[k]),
        n(s.PuntoCongelaDescrizione[k]), n(s.PuntoDimensioneDescrizione[k]), n(s.PuntoX[k]), n(s.PuntoY[k]),
        n(s.PuntoZ[k]), n(s.PuntoSpoX[k]), n(s.PuntoSpoY[k]), n(s.PuntoSpoZ[k]), n(s.PuntoSimbolo[k]),
        n(s.PuntoColoreSimbolo[k]), n(s.PuntoCongelaSimbolo[k]), n(s.PuntoDimensioneSimbolo[k]),
        n(s.PuntoColoreQuota[k]), n(s.PuntoCongelaQuota[k]), n(s.PuntoDimensioneQuota[k]),
        n(s.PuntoAttendibilita[k]), s.PuntoPiano[k], s.PuntoFont[k], n(s.PuntoErroreOrientamento[k]),
        n(s.PuntoHPrisma[k])};
    std::string riga = campi[0];
    for (size_t c = 1; c < std::size(campi); ++c) riga += "|" + campi[c];
    t += Sostituisci(Sostituisci(riga, ",", "."), "|", ",") + kFine;
  }
  return t;
}

// Every live row of a slot through `riga`, which fills the statement of row k.
template <class F>
std::string Righe(const Sessione& s, int slot, const Colonna<int16_t>& ident, F&& riga) {
  std::string t;
  for (size_t k = 0; k < static_cast<size_t>(s.ContaEntita[static_cast<size_t>(slot)]); ++k) {
    if (!IdentVivo(ident[k])) continue;
    IstruzioneLista l;
    riga(l, k);
    t += l.Riga();
  }
  return t;
}

std::string CsvDisegno(const Sessione& s) {
  std::string t = PuntiDisegno(s);
  t += std::string("LINEA,IDent,X1,Y1,Z1,X2,Y2,Z2,Colore,Tratteggio,Congela,Piano,Tronca") + kFine;
  t += Righe(s, SlotLinee, s.LineaIdent, [&](IstruzioneLista& l, size_t k) {
    l.Numero(s.LineaIdent[k]).Numero(s.LineaX1[k]).Numero(s.LineaY1[k]).Numero(s.LineaZ1[k]);
    l.Numero(s.LineaX2[k]).Numero(s.LineaY2[k]).Numero(s.LineaZ2[k]).Numero(s.LineaColore[k]);
    l.Numero(s.LineaTratteggio[k]).Numero(s.LineaCongela[k]).Testo(s.LineaPiano[k]).Numero(s.LineaTronca[k]);
  });
  // Circles and arcs are never truncated: their column is there for the same layout as lines.
  static constexpr const char* kCerchio[] = {"IDent",      "X1",      "Y1",    "Z1",    "Raggio", "Colore",
                                             "Tratteggio", "Congela", "Piano", "Tronca"};
  t += Intestazione("CERCHIO", kCerchio);
  t += Righe(s, SlotCerchi, s.CerchioIdent, [&](IstruzioneLista& l, size_t k) {
    l.Numero(s.CerchioIdent[k]).Numero(s.CerchioX[k]).Numero(s.CerchioY[k]).Numero(s.CerchioZ[k]);
    l.Numero(s.CerchioRaggio[k]).Numero(s.CerchioColore[k]).Numero(s.CerchioTratteggio[k]);
    l.Numero(s.CerchioCongela[k]).Testo(s.CerchioPiano[k]).Numero(0);
  });
  static constexpr const char* kArco[] = {"IDent",  "X1",         "Y1",      "Z1",    "Raggio",
                                          "Inizio", "Fine",       "Colore",  "Tratteggio",
                                          "Congela", "Piano",     "Tronca",  "Quota Inizio", "Quota Finale"};
  t += Intestazione("ARCO", kArco);
  t += Righe(s, SlotArchi, s.ArcoIdent, [&](IstruzioneLista& l, size_t k) {
    l.Numero(s.ArcoIdent[k]).Numero(s.ArcoX[k]).Numero(s.ArcoY[k]).Numero(s.ArcoZ[k]).Numero(s.ArcoRaggio[k]);
    l.Numero(s.ArcoInizio[k]).Numero(s.ArcoFine[k]).Numero(s.ArcoColore[k]).Numero(s.ArcoTratteggio[k]);
    l.Numero(s.ArcoCongela[k]).Testo(s.ArcoPiano[k]).Numero(0).Numero(s.ArcoQuotaInizio[k]);
    l.Numero(s.ArcoQuotaFinale[k]);
  });
  static constexpr const char* kTesto[] = {"IDent",  "X1",      "Y1",    "Rotazione", "Altezza", "Righe", "Colore",
                                           "Congela", "Colonne", "Piano", "Font",      "Testo"};
  t += Intestazione("TESTO", kTesto);
  t += Righe(s, SlotTesti, s.TestoIdent, [&](IstruzioneLista& l, size_t k) {
    l.Numero(s.TestoIdent[k]).Numero(s.TestoX[k]).Numero(s.TestoY[k]).Numero(s.TestoRotazione[k]);
    l.Numero(s.TestoAltezza[k]).Numero(s.TestoRighe[k]).Numero(s.TestoColore[k]).Numero(s.TestoCongela[k]);
    l.Numero(s.TestoColonne[k]).Testo(s.TestoPiano[k]).Testo(s.TestoFont[k]).Testo(s.TestoTesto[k]);
  });
  static constexpr const char* kFalda[] = {
      "IDent",       "X1",           "Y1",        "Z1",        "X2",         "Y2",
      "Z2",          "X3",           "Y3",        "Z3",        "Colore",     "Congela",
      "AreaDiBase",  "Volume Sterrro", "Volume Riporto", "Piano", "NumeroX1", "NumeroY1",
      "InvasoX1",    "InvasoY1",     "InvasoX2",  "InvasoY2",  "InsSteX1",   "InsSteY1",
      "InsRiportoX1", "InsRiportoY1", "InsAreaX1", "InsAreaY1"};
  t += Intestazione("FALDA", kFalda);
  t += Righe(s, SlotFalde, s.FaldaIdent, [&](IstruzioneLista& l, size_t k) {
    l.Numero(s.FaldaIdent[k]);
    for (const Colonna<double>* c : {&s.FaldaX1, &s.FaldaY1, &s.FaldaZ1, &s.FaldaX2, &s.FaldaY2, &s.FaldaZ2,
                                     &s.FaldaX3, &s.FaldaY3, &s.FaldaZ3})
      l.Numero((*c)[k]);
    l.Numero(s.FaldaColore[k]).Numero(s.FaldaCongela[k]).Numero(s.FaldaAreaDiBase[k]);
    l.Numero(s.FaldaVolumeSterro[k]).Numero(s.FaldaVolumeRiporto[k]).Testo(s.FaldaPiano[k]);
    for (const Colonna<double>* c : {&s.FaldaNumeroX1, &s.FaldaNumeroY1, &s.FaldaInvasoX1, &s.FaldaInvasoY1,
                                     &s.FaldaInvasoX2, &s.FaldaInvasoY2, &s.FaldaInsSteX1, &s.FaldaInsSteY1,
                                     &s.FaldaInsRiportoX1, &s.FaldaInsRiportoY1, &s.FaldaInsAreaX1,
                                     &s.FaldaInsAreaY1})
      l.Numero((*c)[k]);
  });
  static constexpr const char* kSette[] = {"IDent", "Contorno", "Commento", "Particella", "Colore", "Tratteggio"};
  t += Intestazione("CONTORNO7", kSette);
  t += Righe(s, SlotSette, s.SetteIdent, [&](IstruzioneLista& l, size_t k) {
    l.Numero(s.SetteIdent[k]).Testo(s.SetteContorno[k]).Testo(s.SetteCommento[k]).Testo(s.SetteParticella[k]);
    l.Numero(s.SetteColore[k]).Numero(s.SetteTratteggio[k]);
  });
  return t;
}

// The drawing as commands of an outside CAD, one answer a line, an empty line where the
// command wants Enter to end. Angles there run in degrees anticlockwise from East.
std::string Script(const Sessione& s) {
  constexpr const char* m = "###########0.0#######";
  auto p = [&](double x, double y) { return FormatoMaschera(x, m) + "!" + FormatoMaschera(y, m); };
  auto p3 = [&](double x, double y, double z) { return p(x, y) + "!" + FormatoMaschera(z, m); };
  auto gradi = [&](double gon) { return FormatoMaschera(gon * 0.9, m); };
  std::string t;
  auto riga = [&](const std::string& r) { t += r + kFine; };
  riga("-LAYER NUOVO LINEE_TRIANGOLO C VERDE LINEE_TRIANGOLO");
  riga("");
  riga("-LAYER NUOVO LINEE_SCHEMA C ROSSO LINEE_SCHEMA");
  riga("");
  riga("-LAYER NUOVO LINEE_ESTRATTO C GIALLO LINEE_ESTRATTO");
  riga("");
  riga("-LAYER CORRENTE LINEE_TRIANGOLO");
  for (size_t k = 0; k < static_cast<size_t>(s.ContaEntita[SlotPunti]); ++k)
    if (IdentVivo(s.PuntoIdent[k])) riga("_point " + p3(s.PuntoX[k], s.PuntoY[k], s.PuntoZ[k]));
  for (size_t k = 0; k < static_cast<size_t>(s.ContaEntita[SlotLinee]); ++k)
    if (IdentVivo(s.LineaIdent[k]))
      riga("_line " + p3(s.LineaX1[k], s.LineaY1[k], s.LineaZ1[k]) + " " +
           p3(s.LineaX2[k], s.LineaY2[k], s.LineaZ2[k]) + " ");
  for (size_t k = 0; k < static_cast<size_t>(s.ContaEntita[SlotCerchi]); ++k)
    if (IdentVivo(s.CerchioIdent[k]))
      riga("_circle " + p(s.CerchioX[k], s.CerchioY[k]) + " " + FormatoMaschera(s.CerchioRaggio[k], m));
  for (size_t k = 0; k < static_cast<size_t>(s.ContaEntita[SlotArchi]); ++k) {
    if (!IdentVivo(s.ArcoIdent[k])) continue;
    // Clockwise from the start azimuth here is anticlockwise from the far end there.
    const double a = (100 - (s.ArcoInizio[k] + s.ArcoFine[k])) * M_PI / 200;
    const double r = s.ArcoRaggio[k];
    riga("_arc _c " + p(s.ArcoX[k], s.ArcoY[k]) + " " + p(s.ArcoX[k] + r * std::cos(a), s.ArcoY[k] + r * std::sin(a)) +
         " _a " + gradi(s.ArcoFine[k]));
  }
  for (size_t k = 0; k < static_cast<size_t>(s.ContaEntita[SlotTesti]); ++k)
    if (IdentVivo(s.TestoIdent[k]))
      riga("_text " + p(s.TestoX[k], s.TestoY[k]) + " " + FormatoMaschera(s.TestoAltezza[k], m) + " " +
           gradi(s.TestoRotazione[k]) + " " + s.TestoTesto[k]);
  riga("_zoom E");
  // "!" held the coordinate separator while any comma of a number or a text became a point.
  return Sostituisci(Sostituisci(t, ",", "."), "!", ",");
}

// The format of the point export waiting for its selection, by session: the selection
// dialog can be closed and opened again (a window, Esc) before its OK, and the format
// must outlive it.
std::map<const Sessione*, FormatoEsportazione>& EsportazioniInAttesa() {
  static std::map<const Sessione*, FormatoEsportazione> inAttesa;
  return inAttesa;
}

void ScegliEScrivi(Sessione& s, FormatoEsportazione f, const std::vector<int32_t>& righe) {
  const DescrizioneEsportazione& d = Descrizione(f);
  const std::optional<std::string> file =
      s.Ui->ScegliFile(true, d.Titolo, d.Filtro, Cartella(s.NomeOriginale), Foglia(s.NomeOriginale) + d.Estensione);
  if (!file || Rifila(*file).empty()) return;
  ScriviEsportazione(s, f, *file, righe, {.Decimali = DecimaliEsportazione(s)});
}

// The menu's point formats choose their points first.
void ChiediPunti(Sessione& s, FormatoEsportazione f) {
  EsportazioniInAttesa()[&s] = f;
  s.AzionePuntiInAttesa = kAzioneEsportaPunti;
  ApriDialogoDiTabella(s, "SelezPunti");
}

}  // namespace

std::span<const DescrizioneEsportazione> FormatiEsportazione() { return kFormati; }

const DescrizioneEsportazione* TrovaFormatoEsportazione(std::string_view parola) {
  for (const DescrizioneEsportazione& d : kFormati)
    if (parola == d.Parola) return &d;
  return nullptr;
}

// The statement of block B after the associated files, read as 0 from a file without it.
constexpr size_t kDecimaliB = B_FileAssociati + 1;
// Past fifteen a double has no digit left to show.
constexpr int kMassimiDecimali = 15;

int DecimaliEsportazione(const Sessione& s) {
  return std::clamp(InteroLungo(s.Cfg.VB(kDecimaliB, 0).Numero), 0, kMassimiDecimali);
}

void ImpostaDecimaliEsportazione(Sessione& s, int decimali) {
  decimali = std::clamp(decimali, 0, kMassimiDecimali);
  if (decimali == DecimaliEsportazione(s)) return;
  s.Cfg.VB(kDecimaliB, 0).Numero = decimali;
  SegnaModificato(s, SlotCfg);
}

std::string MascheraEsportazione(int decimali) {
  decimali = std::min(decimali, kMassimiDecimali);
  return "#############0" + (decimali > 0 ? "." + std::string(static_cast<size_t>(decimali), '0') : ".000");
}

std::string TestoEsportazione(const Sessione& s, FormatoEsportazione f, const std::vector<int32_t>& righe,
                              const OpzioniEsportazione& o) {
  switch (f) {
    case FormatoEsportazione::Xyz:
    case FormatoEsportazione::Csv:
    case FormatoEsportazione::Raw: return PuntiMenu(s, f, righe, o.Decimali);
    case FormatoEsportazione::Pun: return Pun(s, righe, o);
    case FormatoEsportazione::Gsi: return Gsi(s, righe, false);
    case FormatoEsportazione::GsiTcr705: return Gsi(s, righe, true);
    case FormatoEsportazione::Ril: return RilElenco(s, righe);
    case FormatoEsportazione::Scr: return Script(s);
    case FormatoEsportazione::CsvDisegno: return CsvDisegno(s);
  }
  return {};
}

std::string TestoNpl(const Sessione& s, const std::vector<int32_t>& righe) {
  std::string t;
  for (size_t i = 0; i < righe.size(); ++i) {
    t += CellaElencoPunti(s, righe, i, ColonnaNome) + ",";
    for (const int c : {ColonnaNord, ColonnaEst, ColonnaQuota})
      t += FormatoMaschera(Val(CellaElencoPunti(s, righe, i, c)), "0.00") + ",";
    t += kFine;
  }
  return t;
}

std::string TestoRilDisegno(const Sessione& s) {
  std::string t;
  for (size_t k = 0; k < static_cast<size_t>(s.ContaEntita[SlotPunti]); ++k) {
    if (!IdentVivo(s.PuntoIdent[k]) || s.PuntoCongelaNome[k] != 0) continue;
    t += RigaRil(s.PuntoNome[k], s.PuntoDescrizione[k], FormaSemplice(s.PuntoY[k]), FormaSemplice(s.PuntoX[k]));
    t += "39=" + FormaSemplice(s.PuntoZ[k]) + kFine;
  }
  return t;
}

bool ScriviEsportazione(Sessione& s, FormatoEsportazione f, const std::string& percorso,
                        const std::vector<int32_t>& righe, const OpzioniEsportazione& o) {
  const DescrizioneEsportazione& d = Descrizione(f);
  s.RoutineCorrente = d.Titolo;
  if (!Protetto(s, [&] { ScriviTesto(percorso, TestoEsportazione(s, f, righe, o)); })) return false;
  std::string testo = percorso + " Correttamente creato!";
  if (f == FormatoEsportazione::Pun || f == FormatoEsportazione::Ril) testo = percorso + " Creato correttamente!";
  if (f == FormatoEsportazione::Gsi) testo = "File 'GSI' Generato!";
  if (f == FormatoEsportazione::GsiTcr705) testo = "File 'GSI x TCR705' Generato!";
  s.Ui->Messaggio(testo, d.Titolo, Icona::Nessuna);
  return true;
}

void OuXYZ(Sessione& s) { ChiediPunti(s, FormatoEsportazione::Xyz); }
void OuCSV1(Sessione& s) { ChiediPunti(s, FormatoEsportazione::Csv); }
void OuRAW(Sessione& s) { ChiediPunti(s, FormatoEsportazione::Raw); }
void EsportaCsvDisegno(Sessione& s) { ScegliEScrivi(s, FormatoEsportazione::CsvDisegno, {}); }
void EsportaScript(Sessione& s) { ScegliEScrivi(s, FormatoEsportazione::Scr, {}); }

void EsportaPuntiScelti(Sessione& s, const std::vector<int32_t>& righe) {
  const auto i = EsportazioniInAttesa().find(&s);
  if (i == EsportazioniInAttesa().end()) return;
  const FormatoEsportazione f = i->second;
  EsportazioniInAttesa().erase(i);
  ScegliEScrivi(s, f, righe);
}

void EsportaElencoPunti(Sessione& s, FormatoEsportazione f, const std::vector<int32_t>& righe,
                        const OpzioniEsportazione& o) {
  const DescrizioneEsportazione& d = Descrizione(f);
  const bool gsi = f == FormatoEsportazione::Gsi || f == FormatoEsportazione::GsiTcr705;
  const std::optional<std::string> file = s.Ui->ScegliFile(true, d.Titolo, d.Filtro, {}, gsi ? "Leica.GSI" : "");
  if (file && !Rifila(*file).empty()) ScriviEsportazione(s, f, *file, righe, o);
}

namespace {
constexpr const char* kSezionePun = "GENERAPUNTIPUN";
}  // namespace

OpzioniEsportazione OpzioniPunSalvate(Sessione& s) {
  OpzioniEsportazione o;
  auto acceso = [&](const std::string& chiave, bool predefinito) {
    return Val(LeggiImpostazioneUtente(s, kSezionePun, chiave, predefinito ? "1" : "0")) != 0;
  };
  o.Colonne.clear();
  for (int c = ColonnaNome; c <= ColonnaPiano; ++c)
    if (acceso("GRID" + std::to_string(c), c <= ColonnaDescrizione)) o.Colonne.push_back(c);
  o.Separatore = Maiuscolo(LeggiImpostazioneUtente(s, kSezionePun, "SEPARATORE", o.Separatore));
  o.Anteponi = acceso("ANTEPONI", false);
  o.SepFinale = acceso("SEPFINALE", false);
  return o;
}

void SalvaOpzioniPun(Sessione& s, const OpzioniEsportazione& o) {
  auto scrivi = [&](const std::string& chiave, bool acceso) {
    ScriviImpostazioneUtente(s, kSezionePun, chiave, acceso ? "1" : "0");
  };
  for (int c = ColonnaNome; c <= ColonnaPiano; ++c)
    scrivi("GRID" + std::to_string(c), std::find(o.Colonne.begin(), o.Colonne.end(), c) != o.Colonne.end());
  ScriviImpostazioneUtente(s, kSezionePun, "SEPARATORE", o.Separatore);
  scrivi("ANTEPONI", o.Anteponi);
  scrivi("SEPFINALE", o.SepFinale);
}

void GeneraPuntiRilDisegno(Sessione& s) {
  const std::optional<std::string> file = s.Ui->ScegliFile(true, "Creazione file RIL",
                                                           Descrizione(FormatoEsportazione::Ril).Filtro,
                                                           Cartella(s.NomeOriginale), "");
  if (!file || Rifila(*file).empty()) return;
  s.RoutineCorrente = "GeneraPuntiRil";
  if (Protetto(s, [&] { ScriviTesto(*file, TestoRilDisegno(s)); }))
    s.Ui->Messaggio(*file + " Creato correttamente!", "Creazione file RIL", Icona::Nessuna);
}

}  // namespace varena
