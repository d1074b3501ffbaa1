// The page layout of the sections. The file is the user's to edit by hand, so its reader takes
// what it can and says what it left; the layout itself is a plain walk over the frames.
#include "sections/ImpaginaSezioni.h"

#include <algorithm>
#include <cmath>

#include "commands/Comandi.h"
#include "commands/Costruttori.h"
#include "commands/Modifica.h"
#include "core/CodicePagina.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/FileTabella.h"
#include "core/Sessione.h"
#include "core/Testo.h"

namespace varena {

namespace {

constexpr const char* kTitolo = "Impagina Sezioni";
// The layer of the page borders: the command's own, cleared at each run.
constexpr const char* kPianoFogli = "FOGLI_SEZIONI";
// A metre of paper is more than any plotter takes.
constexpr double kMassimoMm = 1000;

struct Chiave {
  const char* Nome;
  double Impaginazione::*Reale;
  int Impaginazione::*Intero;
  double Minimo, Massimo;
};

constexpr Chiave kChiavi[] = {
    {"Larghezza", &Impaginazione::Larghezza, nullptr, 1, kMassimoMm},
    {"Altezza", &Impaginazione::Altezza, nullptr, 1, kMassimoMm},
    {"MargineSinistro", &Impaginazione::MargineSinistro, nullptr, 0, kMassimoMm},
    {"MargineDestro", &Impaginazione::MargineDestro, nullptr, 0, kMassimoMm},
    {"MargineAlto", &Impaginazione::MargineAlto, nullptr, 0, kMassimoMm},
    {"MargineBasso", &Impaginazione::MargineBasso, nullptr, 0, kMassimoMm},
    {"SpaziaturaOrizzontale", &Impaginazione::SpaziaturaOrizzontale, nullptr, 0, kMassimoMm},
    {"SpaziaturaVerticale", &Impaginazione::SpaziaturaVerticale, nullptr, 0, kMassimoMm},
    {"DistanzaFogli", &Impaginazione::DistanzaFogli, nullptr, 0, kMassimoMm},
    {"Colonne", nullptr, &Impaginazione::Colonne, 0, 1000},
    {"Righe", nullptr, &Impaginazione::Righe, 0, 1000},
    {"Scala", &Impaginazione::Scala, nullptr, 0, 1e6},
    {"DisegnaFogli", nullptr, &Impaginazione::DisegnaFogli, 0, 1},
};

// Whether `testo` is a value of `k`, and then its place in `p`.
bool Assegna(Impaginazione& p, const Chiave& k, const std::string& testo) {
  const std::string t = Sostituisci(Rifila(testo), ",", ".");
  if (!EUnNumero(t)) return false;
  const double v = Val(t);
  if (!(v >= k.Minimo && v <= k.Massimo)) return false;
  if (k.Intero) {
    if (v != std::floor(v)) return false;
    p.*k.Intero = static_cast<int>(v);
  } else {
    p.*k.Reale = v;
  }
  return true;
}

}  // namespace

ImpaginazioneLetta LeggiImpaginazione(std::string_view testo) {
  ImpaginazioneLetta l;
  Impaginazione& p = l.Pagina;
  for (const std::string& riga : RigheTesto(testo)) {
    const std::string r = Rifila(riga);
    const auto uguale = r.find('=');
    if (r.empty() || r[0] == ';' || r[0] == '[' || uguale == std::string::npos) continue;
    const std::string nome = Rifila(r.substr(0, uguale));
    for (const Chiave& k : kChiavi)
      if (UgualeSenzaCaso(nome, k.Nome) && !Assegna(p, k, r.substr(uguale + 1))) l.Scartati.push_back(k.Nome);
  }
  // The margins must leave some paper to draw on; if not, the page is the default one.
  const Impaginazione d;
  if (p.MargineSinistro + p.MargineDestro >= p.Larghezza || p.MargineAlto + p.MargineBasso >= p.Altezza) {
    p.Larghezza = d.Larghezza, p.Altezza = d.Altezza;
    p.MargineSinistro = d.MargineSinistro, p.MargineDestro = d.MargineDestro;
    p.MargineAlto = d.MargineAlto, p.MargineBasso = d.MargineBasso;
    l.Scartati.push_back("Margini");
  }
  return l;
}

std::string TestoImpaginazione(const Impaginazione& p) {
  std::string t = "[ImpaginaSezioni]\r\n";
  for (const Chiave& k : kChiavi)
    t += std::string(k.Nome) + "=" + FormaSemplice(k.Intero ? p.*k.Intero : p.*k.Reale) + "\r\n";
  return t;
}

std::vector<Posto> Impagina(const Impaginazione& p, double m, const std::vector<Riquadro>& riquadri, double x0,
                            double y0) {
  const double passoFoglio = (p.Larghezza + p.DistanzaFogli) * m;
  const double sinistra = p.MargineSinistro * m, destra = (p.Larghezza - p.MargineDestro) * m;
  const double alto = -p.MargineAlto * m, basso = -(p.Altezza - p.MargineBasso) * m;
  // A frame that fits to the last thousandth of a millimetre fits.
  const double tolleranza = 1e-6 * m;
  std::vector<Posto> posti;
  int foglio = 0, colonna = 0, riga = 0;
  double x = sinistra, y = alto, altezzaRiga = 0;
  for (const Riquadro& q : riquadri) {
    if (colonna > 0 && (x + q.Larghezza > destra + tolleranza || (p.Colonne > 0 && colonna >= p.Colonne))) {
      y -= altezzaRiga + p.SpaziaturaVerticale * m;
      x = sinistra, colonna = 0, altezzaRiga = 0, ++riga;
    }
    if (riga > 0 && colonna == 0 && (y - q.Altezza < basso - tolleranza || (p.Righe > 0 && riga >= p.Righe))) {
      y = alto, riga = 0, ++foglio;
    }
    posti.push_back({foglio, x0 + foglio * passoFoglio + x, y0 + y});
    x += q.Larghezza + p.SpaziaturaOrizzontale * m;
    altezzaRiga = std::max(altezzaRiga, q.Altezza);
    ++colonna;
  }
  return posti;
}

std::string PercorsoImpaginazione(const Sessione& s) { return FileProgramma(s, "ImpaginaSezioni.ini"); }

namespace {

// The layout of the file; the defaults, written there for the user to edit, when it is
// absent.
ImpaginazioneLetta CaricaImpaginazione(Sessione& s) {
  s.RoutineCorrente = "Carica ImpaginaSezioni";
  ImpaginazioneLetta l;
  Protetto(s, [&] {
    const std::string percorso = PercorsoImpaginazione(s);
    if (const auto byte = LeggiByte(percorso)) {
      l = LeggiImpaginazione(Cp1252InUtf8(*byte));
    } else if (ScriveNelProgramma(s)) {
      ScriviTesto(percorso, TestoImpaginazione(l.Pagina));
    }
  });
  return l;
}

// The borders of pages 0 to `ultimo`, on the command's layer, in place of those of a run
// before.
void DisegnaFogli(Sessione& s, const Impaginazione& p, double m, int ultimo, double x0, double y0) {
  for (int32_t r = 0; r < s.ContaEntita[SlotLinee]; ++r)
    if (RigaViva(s, SlotLinee, r) && Rifila(s.LineaPiano[static_cast<size_t>(r)]) == kPianoFogli) {
      s.LineaIdent[static_cast<size_t>(r)] = -1;
      SegnaRiga(s, SlotLinee, r);
    }
  for (int k = 0; k <= ultimo; ++k) {
    const double a = x0 + k * (p.Larghezza + p.DistanzaFogli) * m, b = a + p.Larghezza * m;
    const double alto = y0, basso = y0 - p.Altezza * m;
    const PuntoXYZ angoli[] = {{a, alto, 0}, {b, alto, 0}, {b, basso, 0}, {a, basso, 0}};
    for (int i = 0; i < 4; ++i) ScriviLinea(s, angoli[i], angoli[(i + 1) % 4], kPianoFogli);
  }
}

}  // namespace

void subImpaginaSezioni(Sessione& s) {
  const double x0 = s.PuntoCorrenteX, y0 = s.PuntoCorrenteY;
  InterrompiComando(s);
  if (RigheVive(s, SlotSezioni) == 0) {
    s.Ui->Messaggio("Sezioni assenti!!", "Impossibile continuare", Icona::Avviso);
    return;
  }
  const ImpaginazioneLetta letta = CaricaImpaginazione(s);
  if (!letta.Scartati.empty()) {
    std::string nomi;
    for (const std::string& n : letta.Scartati) nomi += (nomi.empty() ? "" : ", ") + n;
    s.Ui->Messaggio("ImpaginaSezioni.ini: valori non validi (" + nomi + "), usati i predefiniti.", kTitolo,
                    Icona::Avviso);
  }
  const Impaginazione& p = letta.Pagina;
  // The sections on the sheet, by the frames their last drawing left: one not drawn has none.
  std::vector<int32_t> righe;
  std::vector<Riquadro> riquadri;
  for (int32_t k = 0; k < s.ContaEntita[SlotSezioni]; ++k) {
    const auto r = static_cast<size_t>(k);
    const double l = s.SezioneBoxX2[r] - s.SezioneBoxX1[r], h = s.SezioneBoxY2[r] - s.SezioneBoxY1[r];
    if (!IdentVivo(s.SezioneIdent[r]) || s.SezioneDati[r].Cfg.Congela < 0 || !(l > 0 && h > 0)) continue;
    righe.push_back(k);
    riquadri.push_back({l, h});
  }
  if (righe.empty()) return;
  const double scala = p.Scala > 0 ? p.Scala : s.SezioneDati[static_cast<size_t>(righe[0])].Cfg.ScalaLunghezze;
  // A scale past any the file accepts is a section's own mistake: the pages take 1:200.
  const double m = scala > 0 && scala <= 1e6 ? scala / 1000 : 0.2;
  const std::vector<Posto> posti = Impagina(p, m, riquadri, x0, y0);
  int ultimo = 0;
  for (size_t i = 0; i < righe.size(); ++i) {
    const auto r = static_cast<size_t>(righe[i]);
    Sezione& z = s.SezioneDati[r];
    const double ox = z.OrigineX + posti[i].X - s.SezioneBoxX1[r], oy = z.OrigineY + posti[i].Y - s.SezioneBoxY2[r];
    if (!std::isfinite(ox) || !std::isfinite(oy)) continue;
    z.OrigineX = ox, z.OrigineY = oy;
    ultimo = std::max(ultimo, posti[i].Foglio);
    SegnaRiga(s, SlotSezioni, righe[i]);
  }
  if (p.DisegnaFogli == 1) DisegnaFogli(s, p, m, ultimo, x0, y0);
  FineModifica(s);
}

}  // namespace varena
