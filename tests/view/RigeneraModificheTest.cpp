// The regeneration after an edit against the whole one: over a random run of edits of every
// kind, snapshots, undos and redos, the list made row by row must be the list made whole,
// record for record, and the indexes kept up to date must find what fresh ones find. An undo
// or redo that reads again only the members that changed must leave the tables a whole load
// leaves.
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <sstream>
#include <tuple>

#include "cadastre/ContornoSette.h"
#include "core/Sessione.h"
#include "sections/FileSezioni.h"
#include "snap/Vicino.h"
#include "store/Carica.h"
#include "store/LavoroProva.h"
#include "store/Undo.h"
#include "support/ProvaComandi.h"
#include "view/Rigenera.h"

namespace varena {
namespace {

// A record of a list as one row of values, its motif's among them.
auto Campi(const ElencoDisegno& l, int64_t i) {
  const auto k = static_cast<size_t>(i);
  const MotivoLinea* m = l.Motivo(i);
  const MotivoLinea n = m ? *m : MotivoLinea{};
  return std::tuple(l.X1[k], l.Y1[k], l.Z1[k], l.X2[k], l.Y2[k], l.Z2[k], +l.Tipo[k], l.Riga[k], l.Colore[k], l.Stato[k],
                    l.Altezza[k], l.Rotazione[k], +l.Primitiva[k], l.Penna[k], l.Tratto[k], l.Spessore[k], l.Testo(i),
                    l.Font(i), l.Piano(i), m != nullptr, n.X1, n.Y2, n.Z2, n.Tratteggio, n.Arco, n.Raggio, n.Ampiezza);
}

// The first record in which two lists differ, in words; empty when they are the same.
std::string Differenza(const ElencoDisegno& a, const ElencoDisegno& b) {
  std::ostringstream o;
  if (a.Conta() != b.Conta()) o << "records: " << a.Conta() << " made row by row, " << b.Conta() << " made whole; ";
  for (int64_t i = 0; i < std::min(a.Conta(), b.Conta()); ++i)
    if (Campi(a, i) != Campi(b, i)) {
      const auto k = static_cast<size_t>(i);
      o << "record " << i << " (kind " << +b.Tipo[k] << ", row " << b.Riga[k] << ") differs";
      break;
    }
  return o.str();
}

// The records whose boxes touch a rectangle, as the grid offers them and the box test keeps.
std::vector<int64_t> NelRiquadro(const Sessione& s, double x0, double y0, double x1, double y1) {
  std::vector<int64_t> c, dentro;
  s.IndiceLista.Cerca(x0, y0, x1, y1, c);
  const ElencoDisegno& l = s.ListaDisegno;
  for (int64_t i : c) {
    const auto k = static_cast<size_t>(i);
    const double r = l.Primitiva[k] == PrimCerchio ? l.Altezza[k] : 0;
    const double a = std::min(l.X1[k], l.X2[k]) - r, b = std::min(l.Y1[k], l.Y2[k]) - r;
    const double cc = (l.Primitiva[k] == PrimCerchio ? l.X1[k] : std::max(l.X1[k], l.X2[k])) + r;
    const double d = (l.Primitiva[k] == PrimCerchio ? l.Y1[k] : std::max(l.Y1[k], l.Y2[k])) + r;
    if (a <= x1 && cc >= x0 && b <= y1 && d >= y0) dentro.push_back(i);
  }
  return dentro;
}

// The first row of a kind in which two sessions' tables differ; -1 when none does.
template <class Tab>
int64_t RigaDiversa(Sessione& a, Sessione& b, int slot) {
  const auto k = static_cast<size_t>(slot);
  if (a.ContaEntita[k] != b.ContaEntita[k]) return std::min(a.ContaEntita[k], b.ContaEntita[k]);
  Tab& ta = a;
  Tab& tb = b;
  int64_t diversa = -1;
  std::vector<const void*> colonne;
  tb.PerOgniColonna([&](const auto& colonna) { colonne.push_back(&colonna); });
  size_t n = 0;
  ta.PerOgniColonna([&](auto& colonna) {
    const auto& altra = *static_cast<const std::remove_reference_t<decltype(colonna)>*>(colonne[n++]);
    for (int64_t r = 0; r < a.ContaEntita[k]; ++r)
      if (!(colonna[static_cast<size_t>(r)] == altra[static_cast<size_t>(r)]) && (diversa < 0 || r < diversa)) diversa = r;
  });
  return diversa;
}

class RigeneraModifiche : public ::testing::Test {
 protected:
  prova::SessioneProva p;
  Sessione& s = p.s;
  std::mt19937 caso{20261123};

  void SetUp() override {
    const std::string base = s.CartellaLavoro + "LAVORI/ROSSI";
    std::filesystem::create_directories(s.CartellaLavoro + "LAVORI");
    prova::PreparaLavoro(base, 40, 30);
    s.NomeOriginale = base;
    s.Tratteggi.Stili[2].Elementi = {2, 3, -3};
    s.Tratteggi.Stili[3].Elementi = {3, 1, -0.5, 0};
    s.Imp.MostraIngombroDisegno = 1;
    VR_ApriLavoro(s);
    // Survey structures, drawn from the points they name: a point moved moves them.
    std::string tutti = "|";
    for (int k = 101; k <= 140; ++k) tutti += std::to_string(k) + "|";
    subAggiungiSetteSingolo(s, tutti, "FABBRICATO", "245|||5031004|1725040", 1, 1);
    subAggiungiSetteSingolo(s, "|101|120|125|130|", "SQUADRO", "*V*", 8, 3);
    subAggiungiSetteSingolo(s, "|110|111|112|", "SEZIONE", "", 1, 1);
    RigeneraLista(s);
  }
  double Caso(double a, double b) { return std::uniform_real_distribution<double>(a, b)(caso); }
  int Intero(int n) { return std::uniform_int_distribution<int>(0, n - 1)(caso); }
  double X() { return Caso(1724900, 1725500); }
  double Y() { return Caso(5030900, 5031100); }

  void NuovaLinea() {
    const double x1 = X(), y1 = Y(), x2 = X(), y2 = Y();
    const auto r = static_cast<size_t>(prova::MettiLinea(s, x1, y1, x2, y2));
    s.LineaColore[r] = Intero(12), s.LineaTratteggio[r] = static_cast<int16_t>(Intero(4));
    s.LineaQuotata[r] = static_cast<int16_t>(Intero(2)), s.LineaOffsetQuota[r] = 2;
    s.LineaTronca[r] = Intero(3) == 0 ? 1.5 : 0;
    s.LineaPiano[r] = Intero(2) ? "RECINZ" : "";
  }
  void NuovoCerchio() {
    const double x = X(), y = Y(), raggio = Caso(0.5, 30);
    const auto r = static_cast<size_t>(prova::MettiCerchio(s, x, y, raggio));
    s.CerchioColore[r] = Intero(12), s.CerchioTratteggio[r] = static_cast<int16_t>(Intero(4));
    s.CerchioPiano[r] = "VERDE";
  }
  void NuovoArco() {
    const double x = X(), y = Y(), raggio = Caso(0.5, 30), inizio = Caso(0, 400), ampiezza = Caso(1, 300);
    const auto r = static_cast<size_t>(prova::MettiArco(s, x, y, raggio, inizio, ampiezza));
    s.ArcoColore[r] = Intero(12), s.ArcoTratteggio[r] = static_cast<int16_t>(Intero(4));
    s.ArcoPiano[r] = "STRADA";
  }
  void NuovoTesto() {
    const double x = X(), y = Y(), rotazione = Caso(0, 400);
    const auto r = static_cast<size_t>(prova::MettiTesto(s, x, y, std::string(static_cast<size_t>(1 + Intero(12)), 'A')));
    s.TestoAltezza[r] = 2, s.TestoRotazione[r] = rotazione, s.TestoFont[r] = "Arial";
    s.TestoColore[r] = Intero(12), s.TestoPiano[r] = "TESTI";
  }
  void NuovaImmagine() {
    const double x = X(), y = Y();
    const auto r = static_cast<size_t>(prova::MettiImmagine(s, x, y, 100, 50, 0.1));
    s.BitmapNomeFile[r] = "FOTO.PNG", s.BitmapPiano[r] = "FOTO";
  }

  void NuovaSezione() {
    Sezione z;
    z.Cfg = ConfigurazioneIniziale();
    z.OrigineX = X(), z.OrigineY = Y();
    z.Cfg.QuotaRiferimento = 100;
    for (int k = 0, n = 1 + Intero(8); k < n; ++k) z.Stazioni.push_back({"S", Caso(0, 50), Caso(0, 50), Caso(95, 110), Caso(95, 110)});
    AggiungiSezione(s, z);
  }

  // One edit, as the commands make them: the rows changed marked, or the slot.
  void Modifica() {
    const int slot = std::array{SlotLinee, SlotLinee, SlotCerchi, SlotArchi, SlotTesti, SlotBitmap, SlotPunti,
                                SlotSezioni}[Intero(8)];
    const int32_t n = s.ContaEntita[static_cast<size_t>(slot)];
    const auto r = static_cast<size_t>(n > 0 ? Intero(n) : 0);
    switch (n == 0 ? 0 : Intero(6)) {
      case 0:
        switch (slot) {
          case SlotLinee:
            NuovaLinea();
            // A command that draws one line shows it at once, at the end of the list.
            if (Intero(2)) RigeneraLineaSingola(s, s.ContaEntita[SlotLinee] - 1);
            break;
          case SlotCerchi: NuovoCerchio(); break;
          case SlotArchi: NuovoArco(); break;
          case SlotTesti: NuovoTesto(); break;
          case SlotBitmap: NuovaImmagine(); break;
          case SlotSezioni: NuovaSezione(); break;
          default: break;
        }
        return;
      case 1:  // moved
        if (slot == SlotLinee) s.LineaX2[r] = X();
        if (slot == SlotCerchi) s.CerchioY[r] = Y();
        if (slot == SlotArchi) s.ArcoRaggio[r] = Caso(0.5, 40);
        if (slot == SlotTesti) s.TestoTesto[r] = std::string(static_cast<size_t>(Intero(9)), 'B');
        if (slot == SlotBitmap) s.BitmapX[r] = X();
        if (slot == SlotPunti) s.PuntoX[r] = X(), s.PuntoSpoY[r] = Caso(-2, 2);
        if (slot == SlotSezioni) s.SezioneDati[r].Stazioni.front().QuotaTerreno = Caso(90, 120);
        break;
      case 2:  // deleted
        if (slot == SlotLinee) s.LineaIdent[r] = -1;
        if (slot == SlotCerchi) s.CerchioIdent[r] = -1;
        if (slot == SlotArchi) s.ArcoIdent[r] = -1;
        if (slot == SlotTesti) s.TestoIdent[r] = -1;
        if (slot == SlotBitmap) s.BitmapIdent[r] = -1;
        if (slot == SlotSezioni) s.SezioneIdent[r] = -1;
        break;
      case 3:  // frozen or thawed, or a new line type that changes the number of records
        if (slot == SlotLinee) s.LineaTratteggio[r] = static_cast<int16_t>(Intero(4));
        if (slot == SlotCerchi) s.CerchioCongela[r] = static_cast<int16_t>(1 - s.CerchioCongela[r]);
        if (slot == SlotArchi) s.ArcoTratteggio[r] = static_cast<int16_t>(Intero(4));
        if (slot == SlotTesti) s.TestoCongela[r] = static_cast<int16_t>(1 - s.TestoCongela[r]);
        if (slot == SlotSezioni) s.SezioneDati[r].Cfg.Congela = static_cast<int16_t>(-1 - s.SezioneDati[r].Cfg.Congela);
        break;
      case 4:  // a whole kind changed at once, as a command that does not say which rows
        if (slot == SlotLinee)
          for (int32_t k = 0; k < n; ++k) s.LineaColore[static_cast<size_t>(k)] = Intero(12);
        SegnaModificato(s, slot);
        return;
      case 5:  // selected: the byte changes, no row is marked
        if (slot == SlotLinee) s.StatoLinea[r] = static_cast<uint8_t>(1 - s.StatoLinea[r]);
        if (slot == SlotArchi) s.StatoArco[r] = static_cast<uint8_t>(1 - s.StatoArco[r]);
        if (slot == SlotSezioni) s.StatoSezione[r] = static_cast<uint8_t>(1 - s.StatoSezione[r]);
        return;
    }
    SegnaRiga(s, slot, static_cast<int64_t>(r));
  }

  // The tables after an undo or redo against those a whole load of the same provisional
  // copy gives.
  void ConfrontaTabelle(const std::string& passo) {
    prova::SessioneProva q;
    q.s.NomeLavoro = s.NomeLavoro;
    q.s.NomeOriginale = s.NomeOriginale;
    CaricaLavoro(q.s);
    EXPECT_EQ(RigaDiversa<TabellaPunti>(s, q.s, SlotPunti), -1) << passo;
    EXPECT_EQ(RigaDiversa<TabellaLinee>(s, q.s, SlotLinee), -1) << passo;
    EXPECT_EQ(RigaDiversa<TabellaCerchi>(s, q.s, SlotCerchi), -1) << passo;
    EXPECT_EQ(RigaDiversa<TabellaArchi>(s, q.s, SlotArchi), -1) << passo;
    EXPECT_EQ(RigaDiversa<TabellaTesti>(s, q.s, SlotTesti), -1) << passo;
    EXPECT_EQ(RigaDiversa<TabellaBitmap>(s, q.s, SlotBitmap), -1) << passo;
    // A section's frame is the box its last drawing gave it.
    RigeneraLista(q.s);
    EXPECT_EQ(RigaDiversa<TabellaSezioni>(s, q.s, SlotSezioni), -1) << passo;
    EXPECT_EQ(s.LibrettoMisure, q.s.LibrettoMisure) << passo;
  }

  // The list and indexes as the regeneration after the edits left them, against those a
  // whole regeneration makes; then they are put back, so that the next step goes on from
  // what the edits made.
  void Confronta(const std::string& passo) {
    const ElencoDisegno righe = s.ListaDisegno;
    const StatoRigenerazione stato = s.Rigenerazione;
    const IndiceGriglia lista = s.IndiceLista, punti = s.IndicePunti;
    const IndiciVicinanza vicinanza = s.Vicinanza;
    std::vector<std::vector<int64_t>> trovati;
    std::vector<int64_t> vicine;
    const std::array<double, 4> riquadri[] = {{1725000, 5030950, 1725100, 5031050}, {1724800, 5030800, 1725600, 5031200}};
    for (const auto& q : riquadri) trovati.push_back(NelRiquadro(s, q[0], q[1], q[2], q[3]));
    // The nearest line, through the tree of lines.
    for (int k = 0; k < 3; ++k) vicine.push_back(IlPiuVicinoLinea(s, 1725000 + 150 * k, 5031000 + 20 * k).RigaLista);

    RigeneraLista(s);
    ASSERT_EQ(Differenza(righe, s.ListaDisegno), "") << passo;
    for (size_t k = 0; k < std::size(riquadri); ++k) {
      const auto& q = riquadri[k];
      EXPECT_EQ(trovati[k], NelRiquadro(s, q[0], q[1], q[2], q[3])) << passo;
    }
    for (int k = 0; k < 3; ++k)
      EXPECT_EQ(vicine[static_cast<size_t>(k)], IlPiuVicinoLinea(s, 1725000 + 150 * k, 5031000 + 20 * k).RigaLista) << passo;

    s.ListaDisegno = righe;
    s.Rigenerazione = stato;
    s.IndiceLista = lista, s.IndicePunti = punti, s.Vicinanza = vicinanza;
  }
};

TEST_F(RigeneraModifiche, LaListaFattaRigaPerRigaELaListaFattaTutta) {
  for (int k = 0; k < 6; ++k) NuovoCerchio(), NuovoArco(), NuovoTesto(), NuovaLinea();
  NuovaImmagine();
  NuovaSezione();
  ASSERT_TRUE(VR_SalvaUndo(s));
  Confronta("dopo le prime righe");
  int undo = 0, redo = 0, snapshot = 0, parziali = 0;
  for (int passo = 0; passo < 400; ++passo) {
    const int cosa = Intero(10);
    const std::string nome = "passo " + std::to_string(passo);
    if (cosa < 6) {
      Modifica();
      continue;
    }
    if (cosa < 8) {
      ASSERT_TRUE(VR_SalvaUndo(s));
      ++snapshot;
    } else {
      // A table whose member the restore kept is the very table it was: its columns stay.
      const double* punti = s.PuntoX.data();
      if (!(cosa == 8 ? VR_UNDO(s) : VR_REDO(s))) continue;
      ++(cosa == 8 ? undo : redo);
      parziali += s.PuntoX.data() == punti;
      ConfrontaTabelle(nome);
    }
    Confronta(nome);
    if (HasFatalFailure()) return;
  }
  // The run went through each of them many times.
  EXPECT_GT(snapshot, 40);
  EXPECT_GT(undo, 10);
  EXPECT_GT(redo, 5);
  EXPECT_GT(parziali, 5);
  EXPECT_TRUE(p.ui.Messaggi.empty());
}

}  // namespace
}  // namespace varena
