// The `.LXC` of the drawing and the hand-off of the field book from the drawing.
#include "cadastre/LibrettoDaDisegno.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>

#include "cadastre/Libretto.h"
#include "cadastre/Pregeo.h"
#include "core/Dialoghi.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "selection/Selezione.h"
#include "store/Undo.h"

namespace varena {

namespace {

// A single prints with the digits it holds: a prism of 1.6 is "1.6", not the double's tail.
std::string Singola(float v) {
  if (!std::isfinite(v)) return "0";
  char buf[32];
  return std::string(buf, std::to_chars(buf, buf + sizeof buf, v).ptr);
}

std::string Etichetta(const std::string& particella) {
  const std::vector<std::string> f = Dividi(particella.empty() ? "||||" : particella, '|');
  return f[0] + "_" + (f.size() > 1 ? f[1] : "") + "_" + (f.size() > 2 ? f[2] : "");
}

}  // namespace

std::vector<std::string> RigheLXC(const Sessione& s) {
  std::vector<std::string> righe;
  const auto N = [](double v) { return FormaSemplice(v); };
  for (int32_t k = 0; k < s.ContaEntita[SlotPunti]; ++k) {
    const auto r = static_cast<size_t>(k);
    if (!IdentVivo(s.PuntoIdent[r])) continue;
    righe.push_back(RecordConVirgole("P|" + s.PuntoNome[r] + "|" + N(s.PuntoX[r]) + "|" + N(s.PuntoY[r]) + "|" +
                                     N(s.PuntoZ[r]) + "|" + s.PuntoDescrizione[r] + "|" + Singola(s.PuntoHPrisma[r])));
  }
  for (int32_t k = 0; k < s.ContaEntita[SlotLinee]; ++k) {
    const auto r = static_cast<size_t>(k);
    if (!IdentVivo(s.LineaIdent[r]) || s.LineaCongela[r] != 0) continue;
    righe.push_back(RecordConVirgole("L|" + N(s.LineaX1[r]) + "|" + N(s.LineaY1[r]) + "|" + N(s.LineaZ1[r]) + "|" +
                                     N(s.LineaX2[r]) + "|" + N(s.LineaY2[r]) + "|" + N(s.LineaZ2[r])));
  }
  // The contours go as they are: their vertex lists keep their bars.
  for (int32_t k = 0; k < s.ContaEntita[SlotSette]; ++k) {
    const auto r = static_cast<size_t>(k);
    if (!IdentVivo(s.SetteIdent[r]) || s.SetteCommento[r].empty()) continue;
    righe.push_back("7," + s.SetteContorno[r] + "," + s.SetteCommento[r] + "," + Etichetta(s.SetteParticella[r]));
  }
  return righe;
}

std::optional<std::string> SalvaGraficaxLibretto(Sessione& s) {
  s.RoutineCorrente = "Crea LXC";
  if (!SalvaTestoLibretto(s)) return std::nullopt;
  s.RoutineCorrente = "SalvaGraficaxLibretto1";
  std::string testo;
  for (const std::string& riga : RigheLXC(s)) testo += riga + "\r\n";
  const std::string percorso = s.NomeLavoro + ".LXC";
  s.RoutineCorrente = "SalvaGraficaxLibretto2";
  if (!Protetto(s, [&] { ScriviTesto(percorso, testo); })) return std::nullopt;
  return percorso;
}

namespace {

bool DescrizioniNumeriche(const Sessione& s) {
  for (int32_t k = 0; k < s.ContaEntita[SlotPunti]; ++k) {
    const auto r = static_cast<size_t>(k);
    if (IdentVivo(s.PuntoIdent[r]) && Numerico(s.PuntoDescrizione[r])) return true;
  }
  return false;
}

}  // namespace

void AzioneLibrettoDaDisegno(Sessione& s) {
  if (DescrizioniNumeriche(s) &&
      s.Ui->Domanda("Vi sono alcune Descrizioni dei Punti Numeriche, continuare ugualmente?", "Descrizioni Numeriche",
                    Bottoni::SiNo, Icona::Domanda, Risposta::No) != Risposta::Si)
    return;
  const auto lxc = SalvaGraficaxLibretto(s);
  if (!lxc) return;
  if (!LancioSondaIII(s, *lxc + "|LIBRETTO_DA_DISEGNO")) return;
  if (CaricaLibrettoDaSondaIII(s)) RicaricaLibretto(s);
}

// --- The lines tied to points ------------------------------------------------------------

namespace {

constexpr double kTolleranzaEstremo = 0.005;

// The live points, shown and named, by cells of the tolerance's size: the point at an end
// is looked for only in the nine cells about it, so that a large drawing is not scanned
// once a line.
class PuntiPerCella {
 public:
  explicit PuntiPerCella(const Sessione& s) : s_(s) {
    for (int32_t k = 0; k < s.ContaEntita[SlotPunti]; ++k) {
      const auto r = static_cast<size_t>(k);
      if (!IdentVivo(s.PuntoIdent[r]) || Congelato(s, SlotPunti, r) || Rifila(s.PuntoNome[r]).empty()) continue;
      const auto c = Cella(s.PuntoX[r], s.PuntoY[r]);
      if (c) celle_[*c].push_back(k);
    }
  }

  // The first such point in drawing order within the tolerance of (x, y); -1 when none.
  int32_t Estremo(double x, double y) const {
    const auto c = Cella(x, y);
    if (!c) return -1;
    int32_t primo = -1;
    for (int64_t i = -1; i <= 1; ++i)
      for (int64_t j = -1; j <= 1; ++j) {
        const auto it = celle_.find({c->first + i, c->second + j});
        if (it == celle_.end()) continue;
        for (int32_t k : it->second) {
          const auto r = static_cast<size_t>(k);
          if ((primo < 0 || k < primo) && std::hypot(s_.PuntoX[r] - x, s_.PuntoY[r] - y) < kTolleranzaEstremo)
            primo = k;
        }
      }
    return primo;
  }

 private:
  // No cell for a coordinate that is not a number or beyond the integers of a cell.
  static std::optional<std::pair<int64_t, int64_t>> Cella(double x, double y) {
    const double cx = std::floor(x / kTolleranzaEstremo), cy = std::floor(y / kTolleranzaEstremo);
    if (!(std::fabs(cx) < 1e15 && std::fabs(cy) < 1e15)) return std::nullopt;
    return std::pair{static_cast<int64_t>(cx), static_cast<int64_t>(cy)};
  }

  const Sessione& s_;
  std::map<std::pair<int64_t, int64_t>, std::vector<int32_t>> celle_;
};

}  // namespace

EstremiLinee LineePuntiEstremi(const Sessione& s, int codice) {
  EstremiLinee e;
  const PuntiPerCella punti(s);
  for (int32_t k = 0; k < s.ContaEntita[SlotLinee]; ++k) {
    const auto r = static_cast<size_t>(k);
    if (!IdentVivo(s.LineaIdent[r])) continue;
    const int32_t a = punti.Estremo(s.LineaX1[r], s.LineaY1[r]);
    const int32_t b = a < 0 ? -1 : punti.Estremo(s.LineaX2[r], s.LineaY2[r]);
    if (b < 0) continue;
    const std::string& na = s.PuntoNome[static_cast<size_t>(a)];
    const std::string& nb = s.PuntoNome[static_cast<size_t>(b)];
    // A station is named as the program names them everywhere: ending in "00".
    for (const std::string* n : {&na, &nb})
      if (FinisceCon(Rifila(*n), "00") && std::find(e.Stazioni.begin(), e.Stazioni.end(), *n) == e.Stazioni.end())
        e.Stazioni.push_back(*n);
    if (codice == kCodiceMisurate) {
      e.Righe.push_back(na + " - " + nb);
      continue;
    }
    const double d = std::hypot(s.PuntoX[static_cast<size_t>(b)] - s.PuntoX[static_cast<size_t>(a)],
                                s.PuntoY[static_cast<size_t>(b)] - s.PuntoY[static_cast<size_t>(a)]);
    e.Righe.push_back(AllineaADestra(na, 15) + AllineaADestra(nb, 15) + " : " + FormatoMaschera(d, "######0.##0"));
  }
  return e;
}

namespace {

constexpr const char* kDialogoEstremi = "LineePuntiEstremi";

// "OK": the list goes at the end of the job's text, one generation of its own.
void CopiaNelTesto(Sessione& s) {
  Dialogo* d = TrovaDialogo(s, kDialogoEstremi);
  if (!d) return;
  std::string testo = d->Valore("Elenco");
  ChiudiDialogo(s, kDialogoEstremi);
  if (testo.empty()) return;
  for (size_t i = 0; (i = testo.find('\n', i)) != std::string::npos; i += 2) testo.insert(i, "\r");
  s.Testo126 += testo + "\r\n";
  SegnaModificato(s, Slot126);
  VR_SalvaUndo(s);
}

void ApriEstremi(Sessione& s, int codice, const EstremiLinee& e) {
  Dialogo d;
  d.Nome = kDialogoEstremi;
  d.Titolo = "Libretto da Disegno";
  if (codice == kCodiceMisurate) {
    // A click in the list of stations writes the one picked into the field above it.
    std::string stazioni;
    for (const std::string& n : e.Stazioni) stazioni += n + "\n";
    d.AggiungiCampo("Stazione", "Stazione :", e.Stazioni.front());
    d.AggiungiCampo("Stazioni", "", stazioni);
    d.AggiungiBottone("Misurate", "Misurate dalla Stazione", [](Sessione& x) {
      const std::string stazione = Rifila(TrovaDialogo(x, kDialogoEstremi)->Valore("Stazione"));
      if (!stazione.empty() && SalvaGraficaxLibretto(x)) LancioSondaIII(x, stazione + "|" + "|MISURATE_DA1_PF");
    });
  } else {
    d.AggiungiBottone("Misurate", "Info Misurate", [](Sessione& x) {
      if (SalvaGraficaxLibretto(x)) LancioSondaIII(x, x.NomeLavoro + "|INFO_MISURATE|");
    });
  }
  std::string righe;
  for (const std::string& r : e.Righe) righe += (righe.empty() ? "" : "\n") + r;
  d.AggiungiDato("Elenco", "Linee tra Punti :", righe);
  d.AggiungiBottone("OK", "OK", CopiaNelTesto);
  d.AggiungiBottone("Annulla", "Annulla", [](Sessione& x) { ChiudiDialogo(x, kDialogoEstremi); });
  d.BottoneEsc = "Annulla";
  ApriDialogo(s, std::move(d));
}

}  // namespace

void AzioneInfoMisurate(Sessione& s) { ApriEstremi(s, 0, LineePuntiEstremi(s, 0)); }

void AzioneMisurateDaStazione(Sessione& s) {
  const EstremiLinee e = LineePuntiEstremi(s, kCodiceMisurate);
  if (e.Stazioni.empty()) {
    s.Ui->Messaggio("Non è stata trovata nessuna Stazione nel Disegno!", "Libretto da Disegno", Icona::Avviso);
    return;
  }
  ApriEstremi(s, kCodiceMisurate, e);
}

}  // namespace varena
