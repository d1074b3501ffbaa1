// Paste from an outside CAD's listing, from a spreadsheet, and from the hand-over file.
#include "exchange/Incolla.h"

#include <algorithm>

#include "commands/Costruttori.h"
#include "commands/Modifica.h"
#include "core/CodicePagina.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/FileTabella.h"
#include "core/Lista.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "selection/Selezione.h"
#include "store/TestoLavoro.h"
#include "terrain/Falde.h"

namespace varena {

namespace {

constexpr const char* kTitoloFile = "Incolla da File";

// The lines of a text at CR LF (a lone LF too, as some programs leave them), each with its
// number from 1.
template <class F>
void PerOgniRiga(std::string_view testo, EsitoLettura& e, F&& f) {
  size_t pos = 0;
  while (pos < testo.size()) {
    size_t fine = testo.find('\n', pos);
    if (fine == std::string_view::npos) fine = testo.size();
    std::string_view riga = testo.substr(pos, fine - pos);
    pos = fine + 1;
    if (!riga.empty() && riga.back() == '\r') riga.remove_suffix(1);
    ++e.Righe;
    if (!f(riga)) {
      if (e.RigheDanneggiate.size() < 10) e.RigheDanneggiate.push_back(e.Righe);
      ++e.TotaleDanneggiate;
    }
  }
}

// Bytes that no listing or table holds: what was pasted is not text.
bool Binaria(std::string_view riga) {
  return std::any_of(riga.begin(), riga.end(), [](char c) { return static_cast<unsigned char>(c) < 32 && c != '\t'; });
}

std::string MinuscoloAscii(std::string_view t) {
  std::string m(t);
  for (char& c : m)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return m;
}

// One line of the listing, its words searched without regard to case.
struct RigaListato {
  std::string_view Riga;
  std::string Minuscola;

  bool Ha(std::string_view parola) const { return Minuscola.find(parola) != std::string::npos; }
  // The number read at `scarto` characters from where `parola` begins. An absent word counts
  // from the start of the line, as the listing's reader always did, so that it reads
  // whatever stands at that column.
  double Valore(std::string_view parola, size_t scarto) const {
    const size_t p = Minuscola.find(parola);
    const size_t da = (p == std::string::npos ? 0 : p + 1) + scarto - 1;
    return da < Riga.size() ? Val(Riga.substr(da)) : 0;
  }
  PuntoXYZ Coordinate() const { return {Valore("x=", 2), Valore("y=", 2), Valore("z=", 2)}; }
  std::string Dopo(std::string_view parola, size_t scarto) const {
    const size_t da = Minuscola.find(parola) + scarto;
    return da < Riga.size() ? Rifila(Riga.substr(da)) : std::string();
  }
};

int GenereTestata(std::string_view riga) {
  const std::string r = Rifila(riga);
  const std::string testa = Rifila(std::string_view(r).substr(0, 7));
  if (testa == "PUNTO") return 1;
  if (testa == "LINEA" || testa == "LINE") return 2;
  if (testa == "CERCHIO" || testa == "CIRCLE") return 3;
  if (testa == "ARCO" || testa == "ARC") return 4;
  if (testa == "TESTO" || testa == "TEXT") return 5;
  return 0;
}

// The entity being read across the lines of the listing: the values stay from one head to
// the next, so that an entity whose closing line is missing lends them to the following one.
struct StatoListato {
  int Genere = 0;
  EntitaIncollata E;
};

void LeggiRigaListato(StatoListato& st, const RigaListato& l, std::vector<EntitaIncollata>& out) {
  EntitaIncollata& e = st.E;
  auto aggiungi = [&](char g) {
    e.Genere = g;
    out.push_back(e);
  };
  const bool al = l.Ha("al punto") || l.Ha("a punto") || l.Ha("to point");
  switch (st.Genere) {
    case 1:
      if (al) {
        e.A = l.Coordinate();
        e.Nome.clear();
        e.Descrizione = "DaCad";
        aggiungi('P');
      }
      break;
    case 2:
      if (l.Ha("da punto") || l.Ha("dal punto") || l.Ha("from point")) e.A = l.Coordinate();
      if (al && !l.Ha("dal punto") && !l.Ha("da punto")) {
        e.B = l.Coordinate();
        aggiungi('L');
      }
      break;
    case 3:
    case 4:
      if (l.Ha("centro punto") || l.Ha("center point")) e.A = l.Coordinate();
      if (l.Ha("raggio")) e.Raggio = l.Valore("raggio", 6);
      if (l.Ha("radius")) e.Raggio = l.Valore("radius", 6);
      if (st.Genere == 3 && (l.Ha("circonferenza") || l.Ha("circumference"))) aggiungi('C');
      if (st.Genere == 4) {
        if (l.Ha("iniziale angolo")) e.Inizio = l.Valore("iniziale angolo", 16);
        // The end angle's line reads at the start angle's column and into the start angle:
        // the amplitude stays as the previous arc left it.
        if (l.Ha("finale angolo")) e.Inizio = l.Valore("iniziale angolo", 16);
        if (l.Ha("lunghezza")) aggiungi('A');
      }
      break;
    case 5:
      if (l.Ha("iniziale punto") || l.Ha("start point")) e.A = l.Coordinate();
      if (l.Ha("altezza")) e.Altezza = l.Valore("altezza", 8);
      if (l.Ha("height")) e.Altezza = l.Valore("height", 7);
      if (l.Ha("testo")) e.Testo = l.Dopo("testo", 6);
      if (l.Ha("text")) e.Testo = l.Dopo("text", 5);
      if (l.Ha("rotazione angolo") || l.Ha("rotation angle")) {
        e.Rotazione = l.Ha("rotazione angolo") ? l.Valore("rotazione angolo", 17) : l.Valore("rotation angle", 15);
        aggiungi('T');
      }
      break;
    default: break;
  }
}

// The point of a spreadsheet row, or nothing when its coordinates are not numbers.
bool RigaTabella(std::string_view riga, bool prima, std::vector<EntitaIncollata>& out) {
  // Short rows still give every field; a table copied as text may come with semicolons.
  const char sep = riga.find('\t') == std::string_view::npos && riga.find(';') != std::string_view::npos ? ';' : '\t';
  std::vector<std::string> f = Dividi(std::string(riga) + std::string(5, sep), sep);
  auto numero = [&](size_t i) { return VirgolaInPunto(Rifila(f[i])); };
  if (!prima && (!EUnNumero(numero(1)) || !EUnNumero(numero(2)))) return false;
  EntitaIncollata e;
  e.Nome = Rifila(f[0]);
  e.A = {Val(numero(1)), Val(numero(2)), Val(numero(3))};
  e.Descrizione = Rifila(f[4]);
  out.push_back(std::move(e));
  return true;
}

// The items of each kind of the hand-over file after its coordinates, kept as text for the
// rows they describe.
EntitaIncollata StatementoCopia(LettoreLista& l, char lettera) {
  EntitaIncollata e;
  e.Genere = lettera;
  auto n = [&] { return l.LeggiNumero(); };
  auto attributi = [&](int quanti) {
    for (int i = 0; i < quanti; ++i) e.Attributi.push_back(l.Elemento());
  };
  switch (lettera) {
    case 'L':
      e.A = {n(), n(), n()};
      e.B = {n(), n(), n()};
      attributi(5);  // colour, line type, frozen, layer, truncation
      break;
    case 'C':
      e.A = {n(), n(), n()};
      e.Raggio = n();
      attributi(4);  // colour, line type, frozen, layer
      break;
    case 'A':
      e.A = {n(), n(), n()};
      e.Raggio = n(), e.Inizio = n(), e.Ampiezza = n();
      attributi(4);
      e.ZInizio = n(), e.ZFine = n();
      break;
    case 'T':
      e.A.X = n(), e.A.Y = n(), e.Rotazione = n(), e.Altezza = n();
      attributi(4);  // rows, colour, frozen, columns
      l.Elemento();  // the layer: the current one takes its place
      e.Attributi.push_back(l.Elemento());  // font
      e.Testo = l.Elemento();
      break;
    case 'F':
      attributi(27);  // the three vertices, colour, frozen, area, volumes, layer, label places
      break;
    case 'P':
      e.Nome = l.Elemento();
      attributi(3);  // colour, frozen, size of the name
      e.Descrizione = Rifila(l.Elemento());
      attributi(3);  // of the description
      e.A = {n(), n(), n()};
      attributi(15);  // offsets, symbol, height label, reliability, layer, font, orientation, prism
      break;
    default: break;
  }
  return e;
}

double Attributo(const EntitaIncollata& e, size_t i, double altrimenti) {
  return i < e.Attributi.size() ? Val(e.Attributi[i]) : altrimenti;
}

// The copy file's own attributes of a point, over those its class gave it.
void AttributiPunto(Sessione& s, size_t k, const EntitaIncollata& e) {
  if (e.Attributi.size() < 21) return;
  auto v = [&](size_t i) { return Val(e.Attributi[i]); };
  s.PuntoColoreNome[k] = InteroLungo(v(0)), s.PuntoCongelaNome[k] = InteroCorto(v(1));
  s.PuntoDimensioneNome[k] = v(2);
  s.PuntoColoreDescrizione[k] = InteroLungo(v(3)), s.PuntoCongelaDescrizione[k] = InteroCorto(v(4));
  s.PuntoDimensioneDescrizione[k] = v(5);
  s.PuntoSpoX[k] = v(6), s.PuntoSpoY[k] = v(7), s.PuntoSpoZ[k] = v(8);
  s.PuntoSimbolo[k] = InteroCorto(v(9)), s.PuntoColoreSimbolo[k] = InteroLungo(v(10));
  s.PuntoCongelaSimbolo[k] = InteroCorto(v(11)), s.PuntoDimensioneSimbolo[k] = v(12);
  s.PuntoColoreQuota[k] = InteroLungo(v(13)), s.PuntoCongelaQuota[k] = InteroCorto(v(14));
  s.PuntoDimensioneQuota[k] = v(15), s.PuntoAttendibilita[k] = InteroCorto(v(16));
  s.PuntoFont[k] = e.Attributi[18];
  s.PuntoErroreOrientamento[k] = v(19), s.PuntoHPrisma[k] = static_cast<float>(v(20));
}

// Facets have no builder of their own: the row takes the copy file's fields as they stand.
void AggiungiFalda(Sessione& s, const EntitaIncollata& e, std::optional<int32_t> colore) {
  DimensionaFalde(s);
  const auto k = static_cast<size_t>(s.ContaEntita[SlotFalde]++);
  auto v = [&](size_t i) { return Val(e.Attributi[i]); };
  s.FaldaIdent[k] = 0;
  Colonna<double>* vertici[] = {&s.FaldaX1, &s.FaldaY1, &s.FaldaZ1, &s.FaldaX2, &s.FaldaY2,
                                &s.FaldaZ2, &s.FaldaX3, &s.FaldaY3, &s.FaldaZ3};
  for (size_t i = 0; i < 9; ++i) (*vertici[i])[k] = v(i);
  s.FaldaColore[k] = colore.value_or(InteroLungo(v(9)));
  s.FaldaCongela[k] = InteroCorto(v(10));
  s.FaldaAreaDiBase[k] = v(11), s.FaldaVolumeSterro[k] = v(12), s.FaldaVolumeRiporto[k] = v(13);
  s.FaldaPiano[k] = s.PianoCorrente;
  Colonna<double>* posti[] = {&s.FaldaNumeroX1,     &s.FaldaNumeroY1,     &s.FaldaInvasoX1, &s.FaldaInvasoY1,
                              &s.FaldaInvasoX2,     &s.FaldaInvasoY2,     &s.FaldaInsSteX1, &s.FaldaInsSteY1,
                              &s.FaldaInsRiportoX1, &s.FaldaInsRiportoY1, &s.FaldaInsAreaX1, &s.FaldaInsAreaY1};
  for (size_t i = 0; i < 12; ++i) (*posti[i])[k] = v(15 + i);
}

void AggiungiUna(Sessione& s, const EntitaIncollata& e, std::optional<int32_t> colore) {
  const std::string& piano = s.PianoCorrente;
  const int32_t c = colore.value_or(InteroLungo(Attributo(e, 0, s.Imp.Colore_Default)));
  const auto tratto = InteroCorto(Attributo(e, 1, s.Imp.Tratteggio_Default));
  const auto congela = InteroCorto(Attributo(e, 2, 0));
  switch (e.Genere) {
    case 'P': {
      const auto k = static_cast<size_t>(ScriviPunto(s, e.Nome, e.A, e.Descrizione, piano));
      AttributiPunto(s, k, e);
      if (colore) s.PuntoColoreSimbolo[k] = s.PuntoColoreNome[k] = *colore;
      break;
    }
    case 'L': {
      const auto k = static_cast<size_t>(ScriviLinea(s, e.A, e.B, piano));
      s.LineaColore[k] = c, s.LineaTratteggio[k] = tratto, s.LineaCongela[k] = congela;
      s.LineaTronca[k] = Attributo(e, 4, 0);
      break;
    }
    case 'C': {
      const auto k = static_cast<size_t>(ScriviCerchio(s, e.A, e.Raggio, piano));
      s.CerchioColore[k] = c, s.CerchioTratteggio[k] = tratto, s.CerchioCongela[k] = congela;
      break;
    }
    case 'A': {
      const auto k = static_cast<size_t>(ScriviArco(s, e.A, e.Raggio, e.Inizio, e.Ampiezza, e.ZInizio, e.ZFine, piano));
      s.ArcoColore[k] = c, s.ArcoTratteggio[k] = tratto, s.ArcoCongela[k] = congela;
      break;
    }
    case 'T': {
      // The copy file's text items: rows, colour, frozen, columns, font.
      const int32_t ct = colore.value_or(InteroLungo(Attributo(e, 1, s.Imp.Colore_Default)));
      const std::string font = e.Attributi.size() > 4 ? e.Attributi[4] : "Arial";
      const auto k = static_cast<size_t>(ScriviTesto(s, e.A.X, e.A.Y, e.Testo, e.Altezza, e.Rotazione, ct, font, piano));
      s.TestoRighe[k] = Attributo(e, 0, 1), s.TestoCongela[k] = InteroCorto(Attributo(e, 2, 0));
      s.TestoColonne[k] = Attributo(e, 3, 1);
      break;
    }
    case 'F': AggiungiFalda(s, e, colore); break;
    default: break;
  }
}

// The colour of every row when the user wants one alone; none: each keeps its own.
std::optional<int32_t> ColoreUnico(Sessione& s) {
  if (s.Ui->Domanda("Assegnare un solo Colore ?", kTitoloFile, Bottoni::SiNo, Icona::Domanda, Risposta::No) !=
      Risposta::Si)
    return std::nullopt;
  const std::optional<std::string> c =
      s.Ui->Imputa("Colore :", kTitoloFile, std::to_string(s.Imp.Colore_Default));
  if (!c) return std::nullopt;
  return InteroLungo(Val(*c));
}

// The rows appended, and the lines left out named to the user.
void Concludi(Sessione& s, const EsitoIncolla& e, std::optional<int32_t> colore, std::string_view titolo) {
  AggiungiIncollate(s, e.Entita, colore);
  if (e.Lettura.TotaleDanneggiate > 0) s.Ui->Messaggio(DescriviRigheDanneggiate(e.Lettura), titolo, Icona::Avviso);
}

}  // namespace

EsitoIncolla LeggiListatoCad(std::string_view testo) {
  EsitoIncolla e;
  StatoListato st;
  PerOgniRiga(testo, e.Lettura, [&](std::string_view riga) {
    if (Binaria(riga)) return false;
    if (riga.empty() || riga.substr(0, std::min<size_t>(7, riga.size())) == "Premere") return true;
    if (const int g = GenereTestata(riga)) st.Genere = g;
    LeggiRigaListato(st, RigaListato{riga, MinuscoloAscii(riga)}, e.Entita);
    return true;
  });
  return e;
}

EsitoIncolla LeggiTabellaIncollata(std::string_view testo) {
  EsitoIncolla e;
  bool prima = true;
  PerOgniRiga(testo, e.Lettura, [&](std::string_view riga) {
    if (Rifila(riga).empty()) return true;
    if (Binaria(std::string(riga))) return false;
    const bool letta = RigaTabella(riga, prima, e.Entita);
    prima = false;
    return letta;
  });
  return e;
}

EsitoIncolla LeggiCopiaInFile(std::string_view testo) {
  EsitoIncolla e;
  PerOgniRiga(testo, e.Lettura, [&](std::string_view riga) {
    if (Rifila(riga).empty()) return true;
    try {
      LettoreLista l{std::string(riga)};
      std::string lettera = Rifila(l.Elemento());
      // The preview control hands over its points and lines under the whole-job text's tags,
      // whose items are those of "P" and "L".
      if (lettera == "<PUNTO>" || lettera == "<LINEA>") lettera = lettera.substr(1, 1);
      if (lettera.size() != 1 || std::string_view("LCATFP").find(lettera[0]) == std::string_view::npos) return true;
      e.Entita.push_back(StatementoCopia(l, lettera[0]));
      return true;
    } catch (const std::exception&) {
      return false;
    }
  });
  return e;
}

int64_t AggiungiIncollate(Sessione& s, const std::vector<EntitaIncollata>& entita, std::optional<int32_t> colore) {
  bool falde = false;
  for (const EntitaIncollata& e : entita) {
    AggiungiUna(s, e, colore);
    falde = falde || e.Genere == 'F';
  }
  if (falde) AggiornaFalde(s);
  if (!entita.empty()) {
    for (const int slot : {SlotPunti, SlotLinee, SlotCerchi, SlotArchi, SlotTesti, SlotFalde}) SegnaModificato(s, slot);
    FineModifica(s);
  }
  return static_cast<int64_t>(entita.size());
}

std::string TestoCopiaInFile(const Sessione& s) {
  std::string out;
  auto righe = [&](int slot, auto scrivi) {
    for (int32_t r = 0; r < s.ContaEntita[static_cast<size_t>(slot)]; ++r)
      if (RigaViva(s, slot, r) && StatoDi(s, slot, r) == 1) {
        IstruzioneLista l;
        scrivi(l, static_cast<size_t>(r));
        out += l.Riga();
      }
  };
  auto numeri = [](IstruzioneLista& l, std::initializer_list<double> v) {
    for (double x : v) l.Numero(x);
  };
  for (int32_t r = 0; r < s.ContaEntita[SlotPunti]; ++r)
    if (RigaViva(s, SlotPunti, r) && StatoDi(s, SlotPunti, r) == 1) IstruzionePunto(s, static_cast<size_t>(r), "P", out);
  righe(SlotLinee, [&](IstruzioneLista& l, size_t k) {
    numeri(l.Testo("L"), {s.LineaX1[k], s.LineaY1[k], s.LineaZ1[k], s.LineaX2[k], s.LineaY2[k], s.LineaZ2[k],
                          double(s.LineaColore[k]), double(s.LineaTratteggio[k]), double(s.LineaCongela[k])});
    l.Testo(s.LineaPiano[k]).Numero(s.LineaTronca[k]);
  });
  righe(SlotCerchi, [&](IstruzioneLista& l, size_t k) {
    numeri(l.Testo("C"), {s.CerchioX[k], s.CerchioY[k], s.CerchioZ[k], s.CerchioRaggio[k], double(s.CerchioColore[k]),
                          double(s.CerchioTratteggio[k]), double(s.CerchioCongela[k])});
    l.Testo(s.CerchioPiano[k]);
  });
  righe(SlotArchi, [&](IstruzioneLista& l, size_t k) {
    numeri(l.Testo("A"), {s.ArcoX[k], s.ArcoY[k], s.ArcoZ[k], s.ArcoRaggio[k], s.ArcoInizio[k], s.ArcoFine[k],
                          double(s.ArcoColore[k]), double(s.ArcoTratteggio[k]), double(s.ArcoCongela[k])});
    numeri(l.Testo(s.ArcoPiano[k]), {s.ArcoQuotaInizio[k], s.ArcoQuotaFinale[k]});
  });
  righe(SlotTesti, [&](IstruzioneLista& l, size_t k) {
    numeri(l.Testo("T"), {s.TestoX[k], s.TestoY[k], s.TestoRotazione[k], s.TestoAltezza[k], s.TestoRighe[k],
                          double(s.TestoColore[k]), double(s.TestoCongela[k]), s.TestoColonne[k]});
    l.Testo(s.TestoPiano[k]).Testo(s.TestoFont[k]).Testo(s.TestoTesto[k]);
  });
  righe(SlotFalde, [&](IstruzioneLista& l, size_t k) {
    numeri(l.Testo("F"), {s.FaldaX1[k], s.FaldaY1[k], s.FaldaZ1[k], s.FaldaX2[k], s.FaldaY2[k], s.FaldaZ2[k],
                          s.FaldaX3[k], s.FaldaY3[k], s.FaldaZ3[k], double(s.FaldaColore[k]), double(s.FaldaCongela[k]),
                          s.FaldaAreaDiBase[k], s.FaldaVolumeSterro[k], s.FaldaVolumeRiporto[k]});
    numeri(l.Testo(s.FaldaPiano[k]),
           {s.FaldaNumeroX1[k], s.FaldaNumeroY1[k], s.FaldaInvasoX1[k], s.FaldaInvasoY1[k], s.FaldaInvasoX2[k],
            s.FaldaInvasoY2[k], s.FaldaInsSteX1[k], s.FaldaInsSteY1[k], s.FaldaInsRiportoX1[k],
            s.FaldaInsRiportoY1[k], s.FaldaInsAreaX1[k], s.FaldaInsAreaY1[k]});
  });
  return out;
}

bool CopiaInFile(Sessione& s) {
  s.RoutineCorrente = "CopiaInFile";
  const std::string percorso = PercorsoCopiaInFile(s);
  const std::string testo = TestoCopiaInFile(s);
  return Protetto(s, [&] {
    NuovaCartella(Cartella(percorso));
    ScriviTesto(percorso, testo);
  });
}

std::string PercorsoCopiaInFile(const Sessione& s) { return s.CartellaLavoro + "temp/CopiaInFile.TXT"; }

void DaCad(Sessione& s) {
  s.RoutineCorrente = "DaCad";
  EliminaFile(s.CartellaLavoro + "DaCad.ini");
  const std::string testo = s.Clip->Leggi();
  if (s.Ui->Domanda("Importare Disegno da Cad?", "Importa Comandi da CAD", Bottoni::SiNo, Icona::Domanda,
                    Risposta::Si) != Risposta::Si)
    return;
  const std::optional<int32_t> colore = ColoreUnico(s);
  Concludi(s, LeggiListatoCad(testo), colore, "Importa Comandi da CAD");
}

void IncollaDaTabella(Sessione& s) {
  s.RoutineCorrente = "incollapuntidaexcel";
  const std::string testo = s.Clip->Leggi();
  if (s.Ui->Domanda("Importare Disegno da Tabella?", "Importa Disegno da Tabella", Bottoni::SiNo, Icona::Domanda,
                    Risposta::Si) != Risposta::Si)
    return;
  Concludi(s, LeggiTabellaIncollata(testo), std::nullopt, "Importa Disegno da Tabella");
}

bool IncollaDaFile(Sessione& s, const std::string& file) {
  s.RoutineCorrente = "IncollaDaFile";
  const std::string percorso = file.empty() ? PercorsoCopiaInFile(s) : file;
  std::optional<std::string> byte;
  if (!Protetto(s, [&] { byte = LeggiByte(percorso); })) return false;
  if (!byte) {
    s.Ui->Messaggio(percorso + " Non è stato trovato!", kTitoloFile, Icona::Avviso);
    return false;
  }
  const std::optional<int32_t> colore = ColoreUnico(s);
  Concludi(s, LeggiCopiaInFile(Cp1252InUtf8(*byte)), colore, kTitoloFile);
  return true;
}

void AzioneIncollaDaFile(Sessione& s) {
  if (IncollaDaFile(s)) s.Ui->Messaggio("Incolla Eseguito!", kTitoloFile, Icona::Nessuna);
}

}  // namespace varena
