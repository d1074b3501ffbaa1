// Groups: each record letter is a kind of row, its fields named from the record table of
// that kind, so that writing, reading and the move to the base point walk one description.
// Sections, which are no record, go in the section member's own form.
#include "commands/Gruppi.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <filesystem>
#include <memory>
#include <tuple>
#include <utility>

#include "core/CodicePagina.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Lista.h"
#include "core/Record.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "sections/FileSezioni.h"
#include "selection/Selezione.h"
#include "store/Undo.h"

namespace varena {

namespace {

using CoppiaXY = std::pair<const char*, const char*>;

// One record letter: the kind it holds, the fields written in their order (none: every
// field of the record but `Ident`), and the pairs of fields that are positions on the sheet.
template <class Tab>
struct Forma {
  char Lettera;
  int Slot;
  const LayoutRecord<Tab>& (*Layout)();
  std::vector<const char*> Campi;
  std::vector<CoppiaXY> Posizioni;
};

const auto& Forme() {
  static const auto forme = std::make_tuple(
      Forma<TabellaPunti>{'P', SlotPunti, LayoutPunti, {}, {{"X", "Y"}}},
      Forma<TabellaLinee>{'L', SlotLinee, LayoutLinee,
                          {"X1", "Y1", "Z1", "X2", "Y2", "Z2", "Colore", "Tratteggio", "Piano"},
                          {{"X1", "Y1"}, {"X2", "Y2"}}},
      Forma<TabellaCerchi>{'C', SlotCerchi, LayoutCerchi, {"X", "Y", "Z", "Raggio", "Colore", "Tratteggio", "Piano"},
                           {{"X", "Y"}}},
      Forma<TabellaArchi>{'A', SlotArchi, LayoutArchi,
                          {"X", "Y", "Z", "Raggio", "Inizio", "Fine", "Colore", "Tratteggio", "Piano"},
                          {{"X", "Y"}}},
      Forma<TabellaTesti>{'T', SlotTesti, LayoutTesti,
                          {"X1", "Y1", "Rotazione", "Altezza", "Colore", "Piano", "Testo", "Font"},
                          {{"X1", "Y1"}}},
      // The labels of a facet stand where they were put: they move with it.
      Forma<TabellaFalde>{'F', SlotFalde, LayoutFalde, {},
                          {{"X1", "Y1"}, {"X2", "Y2"}, {"X3", "Y3"}, {"NumeroX1", "NumeroY1"},
                           {"InvasoX1", "InvasoY1"}, {"InvasoX2", "InvasoY2"}, {"InsSteX1", "InsSteY1"},
                           {"InsRiportoX1", "InsRiportoY1"}, {"InsAreaX1", "InsAreaY1"}}},
      Forma<TabellaBitmap>{'B', SlotBitmap, LayoutBitmap, {}, {{"X", "Y"}}});
  return forme;
}

// The fields of a letter in the order of its records.
template <class Tab>
std::vector<const CampoRecord<Tab>*> CampiDi(const Forma<Tab>& f) {
  std::vector<const CampoRecord<Tab>*> campi;
  const auto& tutti = f.Layout().Campi;
  if (f.Campi.empty()) {
    for (const CampoRecord<Tab>& c : tutti)
      if (!std::holds_alternative<std::monostate>(c.Membro) && std::string_view(c.Nome) != "Ident") campi.push_back(&c);
    return campi;
  }
  for (const char* nome : f.Campi)
    for (const CampoRecord<Tab>& c : tutti)
      if (std::string_view(c.Nome) == nome) campi.push_back(&c);
  return campi;
}

template <class Tab>
Colonna<double>& ColonnaDouble(Tab& tab, const Forma<Tab>& f, const char* nome) {
  for (const CampoRecord<Tab>& c : f.Layout().Campi)
    if (std::string_view(c.Nome) == nome) return tab.*std::get<Colonna<double> Tab::*>(c.Membro);
  throw ErroreVarena(kErroreFormato);
}

template <class Tab>
void ScriviRighe(const Sessione& s, const Forma<Tab>& f, std::string& out) {
  const Tab& tab = s;
  const auto campi = CampiDi(f);
  for (int32_t r = 0; r < s.ContaEntita[static_cast<size_t>(f.Slot)]; ++r) {
    if (!RigaViva(s, f.Slot, r) || StatoDi(s, f.Slot, r) != 1) continue;
    IstruzioneLista riga;
    riga.Testo(std::string(1, f.Lettera));
    for (const CampoRecord<Tab>* c : campi) {
      const ValoreCampo v = ValoreDi(*c, tab, r);
      if (const auto* t = std::get_if<std::string>(&v))
        riga.Testo(*t);
      else if (const auto* d = std::get_if<double>(&v))
        riga.Numero(*d);
      else
        riga.Numero(static_cast<double>(std::get<int64_t>(v)));
    }
    out += riga.Riga();
  }
}

// One item read into one field of row k, converted as the field's type asks.
template <class Tab>
void Assegna(Tab& tab, const CampoRecord<Tab>& c, size_t k, const std::string& testo) {
  std::visit(
      [&](auto membro) {
        using M = decltype(membro);
        if constexpr (!std::is_same_v<M, std::monostate>) {
          auto& colonna = tab.*membro;
          using T = typename std::decay_t<decltype(colonna)>::value_type;
          if constexpr (std::is_same_v<T, std::string>) {
            colonna[k] = c.Rifila ? Rifila(testo) : testo;
          } else if constexpr (std::is_same_v<T, double>) {
            colonna[k] = Val(testo);
          } else if constexpr (std::is_same_v<T, float>) {
            const double v = Val(testo);
            colonna[k] = std::fabs(v) <= FLT_MAX ? static_cast<float>(v) : 0.0f;
          } else if constexpr (std::is_same_v<T, int16_t>) {
            colonna[k] = InteroCorto(Val(testo));
          } else if constexpr (std::is_same_v<T, int32_t>) {
            colonna[k] = InteroLungo(Val(testo));
          } else {
            const double v = Val(testo);
            colonna[k] = static_cast<T>(v > 0 ? (v < 255 ? v : 255) : 0);
          }
        }
      },
      c.Membro);
}

// The rest of a record of letter `f` as a new row. The row is counted only once every
// field was read, so a short line adds nothing.
template <class Tab>
void LeggiRiga(Sessione& s, const Forma<Tab>& f, LettoreLista& in, double dx, double dy) {
  const auto campi = CampiDi(f);
  std::vector<std::string> valori;
  for (size_t i = 0; i < campi.size(); ++i) valori.push_back(in.Elemento());
  PreparaRighe(s, f.Slot, s.ContaEntita[static_cast<size_t>(f.Slot)] + 1);
  Tab& tab = s;
  const auto riga = s.ContaEntita[static_cast<size_t>(f.Slot)];
  const auto k = static_cast<size_t>(riga);
  tab.PerOgniColonna([k](auto& colonna) { colonna[k] = {}; });
  for (size_t i = 0; i < campi.size(); ++i) Assegna(tab, *campi[i], k, valori[i]);
  for (const auto& [x, y] : f.Posizioni) {
    ColonnaDouble(tab, f, x)[k] += dx;
    ColonnaDouble(tab, f, y)[k] += dy;
  }
  if constexpr (std::is_same_v<Tab, TabellaPunti>) {
    // A name already in the job (or in the group) moves on to the next free one.
    const std::string nome = Rifila(s.PuntoNome[k]);
    s.PuntoNome[k] = nome;
    for (int32_t r = 0; r < riga; ++r)
      if (RigaViva(s, SlotPunti, r) && Rifila(s.PuntoNome[static_cast<size_t>(r)]) == nome) {
        s.PuntoNome[k] = ProssimoNomePunto(s, nome, true, "1");
        break;
      }
  }
  s.ContaEntita[static_cast<size_t>(f.Slot)] = riga + 1;
  SegnaRiga(s, f.Slot, riga);
}

// `S`: the letter alone on its line, then the section's block as the section member writes
// it, from its opening mark to its closing one.
void ScriviSezioni(const Sessione& s, std::string& out) {
  std::unique_ptr<Sessione> una;  // the member's writer, one section at a time
  for (int32_t r = 0; r < s.ContaEntita[SlotSezioni]; ++r) {
    if (!RigaViva(s, SlotSezioni, r) || StatoDi(s, SlotSezioni, r) != 1) continue;
    if (!una) una = std::make_unique<Sessione>();
    una->ContaEntita[SlotSezioni] = 0;
    AggiungiSezione(*una, s.SezioneDati[static_cast<size_t>(r)]);
    out += IstruzioneLista().Testo("S").Riga() + TestoSezioni(*una);
  }
}

// The block of an `S` record, from the line after the letter to the closing mark; `k` is
// left on that mark. A block that does not read ends the paste. The sections added.
int64_t LeggiSezione(Sessione& s, const std::vector<std::string>& linee, size_t& k, double dx, double dy) {
  std::string blocco;
  while (++k < linee.size()) {
    blocco += linee[k] + "\r\n";
    LettoreLista in(linee[k]);
    if (!in.Fine() && in.Elemento() == kFineSezione) break;
  }
  std::vector<Sezione> lette = LeggiSezioni(blocco, s.ContaEntita[SlotSezioni]);
  for (Sezione& z : lette) {
    z.OrigineX += dx, z.OrigineY += dy;
    // The plan points it was taken along move with the rest of the drawing.
    for (StazioneSezione& p : z.Stazioni) p.X += dx, p.Y += dy;
    z.Cfg.XInizio += dx, z.Cfg.YInizio += dy, z.Cfg.XFine += dx, z.Cfg.YFine += dy;
    SegnaRiga(s, SlotSezioni, AggiungiSezione(s, std::move(z)));
  }
  return static_cast<int64_t>(lette.size());
}

}  // namespace

std::string CartellaGruppi(const Sessione& s) { return s.CartellaLavoro + "GRUPPI/"; }

std::string PercorsoGruppo(const Sessione& s, std::string_view nome) {
  return CartellaGruppi(s) + std::string(nome) + ".GGG";
}

std::vector<std::string> ElencoGruppi(const Sessione& s) {
  std::vector<std::string> nomi;
  std::error_code e;
  for (const auto& voce : std::filesystem::directory_iterator(CartellaGruppi(s), e)) {
    std::string foglia = voce.path().filename().string();
    if (foglia.size() > 4 && Maiuscolo(foglia.substr(foglia.size() - 4)) == ".GGG")
      nomi.push_back(foglia.substr(0, foglia.size() - 4));
  }
  std::sort(nomi.begin(), nomi.end());
  return nomi;
}

std::string TestoGruppo(const Sessione& s, const PuntoXYZ& base) {
  std::string out = IstruzioneLista().Testo("I").Numero(base.X).Numero(base.Y).Numero(base.Z).Riga();
  std::apply([&](const auto&... f) { (ScriviRighe(s, f, out), ...); }, Forme());
  ScriviSezioni(s, out);
  return out;
}

bool ScriviGruppo(Sessione& s, std::string_view nome, const PuntoXYZ& base) {
  s.RoutineCorrente = "ScriviGruppo";
  return Protetto(s, [&] {
    NuovaCartella(s.CartellaLavoro);  // a run that only reads a job has not made the root
    NuovaCartella(CartellaGruppi(s));
    ScriviTesto(PercorsoPerScrivere(PercorsoGruppo(s, nome)), TestoGruppo(s, base));
  });
}

int64_t LeggiGruppo(Sessione& s, const std::string& testoUtf8, double x, double y) {
  int64_t aggiunte = 0;
  double bx = 0, by = 0;  // a group without its `I` record has its base at the origin
  try {
    const std::vector<std::string> linee = RigheTesto(testoUtf8);
    for (size_t k = 0; k < linee.size(); ++k) {
      LettoreLista in(linee[k]);
      if (in.Fine()) continue;
      const std::string lettera = Maiuscolo(in.Elemento());
      if (lettera == "I") {
        bx = in.LeggiNumero(), by = in.LeggiNumero();
        continue;
      }
      if (lettera == "S") {
        aggiunte += LeggiSezione(s, linee, k, x - bx, y - by);
        continue;
      }
      bool letta = false;
      std::apply(
          [&](const auto&... f) {
            ((!letta && lettera.size() == 1 && lettera[0] == f.Lettera
                  ? (LeggiRiga(s, f, in, x - bx, y - by), letta = true)
                  : false),
             ...);
          },
          Forme());
      if (!letta) break;
      ++aggiunte;
    }
  } catch (const ErroreVarena&) {
    // A record cut short ends the read; what came before it stays in the job.
  }
  return aggiunte;
}

int64_t IncollaGruppo(Sessione& s, std::string_view nome, double x, double y) {
  const std::optional<std::string> file =
      Rifila(nome).empty() ? std::nullopt : TrovaFile(PercorsoGruppo(s, Rifila(nome)));
  if (!file) {
    s.Ui->Messaggio(" Gruppo Non Trovato!", "Gruppo Non Trovato", Icona::Avviso);
    return -1;
  }
  int64_t aggiunte = 0;
  s.RoutineCorrente = "IncollaGruppo";
  Protetto(s, [&] { aggiunte = LeggiGruppo(s, Cp1252InUtf8(LeggiByte(*file).value_or("")), x, y); });
  if (aggiunte > 0) VR_SalvaUndo(s);
  return aggiunte;
}

}  // namespace varena
