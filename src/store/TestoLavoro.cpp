// Writer and reader of the whole-job text `.XVR`.
#include "store/TestoLavoro.h"

#include <cstring>

#include "core/CodicePagina.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Lista.h"
#include "core/Riparazioni.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "sections/FileSezioni.h"
#include "store/Cfg.h"
#include "store/Inclusi.h"
#include "store/Slot.h"
#include "store/Undo.h"
#include "view/Zoom.h"

namespace varena {

namespace {

// A double quote inside a string would end it early for every reader of list statements.
std::string SenzaVirgolette(std::string_view t) { return Sostituisci(t, "\"", "'"); }

class Istruzione {
 public:
  explicit Istruzione(const char* tag) { l_.Testo(tag); }
  Istruzione& T(std::string_view t) {
    l_.Testo(SenzaVirgolette(t));
    return *this;
  }
  template <class... N>
  Istruzione& N_(N... n) {
    (l_.Numero(static_cast<double>(n)), ...);
    return *this;
  }
  void In(std::string& out) const {
    out += l_.Corpo();
    out += "\r\n";
  }

 private:
  IstruzioneLista l_;
};

}  // namespace

void IstruzionePunto(const Sessione& s, size_t r, const char* tag, std::string& out) {
  Istruzione(tag)
      .T(s.PuntoNome[r])
      .N_(s.PuntoColoreNome[r], s.PuntoCongelaNome[r], s.PuntoDimensioneNome[r])
      .T(s.PuntoDescrizione[r])
      .N_(s.PuntoColoreDescrizione[r], s.PuntoCongelaDescrizione[r], s.PuntoDimensioneDescrizione[r])
      .N_(s.PuntoX[r], s.PuntoY[r], s.PuntoZ[r], s.PuntoSpoX[r], s.PuntoSpoY[r], s.PuntoSpoZ[r])
      .N_(s.PuntoSimbolo[r], s.PuntoColoreSimbolo[r], s.PuntoCongelaSimbolo[r], s.PuntoDimensioneSimbolo[r])
      .N_(s.PuntoColoreQuota[r], s.PuntoCongelaQuota[r], s.PuntoDimensioneQuota[r], s.PuntoAttendibilita[r])
      .T(s.PuntoPiano[r])
      .T(s.PuntoFont[r])
      .N_(s.PuntoErroreOrientamento[r], s.PuntoHPrisma[r])
      .In(out);
}

namespace {

bool Vivo(int16_t ident) { return ident >= 0; }  // the text keeps every row but the erased ones
// ... and those of included drawings, which the job only names.
bool Vivo(int16_t ident, const std::string& piano) { return Vivo(ident) && !PianoIncluso(piano); }

void Punti(const Sessione& s, std::string& out) {
  for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotPunti]); ++r)
    if (Vivo(s.PuntoIdent[r], s.PuntoPiano[r])) IstruzionePunto(s, r, "<PUNTO>", out);
}

void Geometrie(const Sessione& s, std::string& out) {
  for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotLinee]); ++r)
    if (Vivo(s.LineaIdent[r], s.LineaPiano[r]))
      Istruzione("<LINEA>")
          .N_(s.LineaX1[r], s.LineaY1[r], s.LineaZ1[r], s.LineaX2[r], s.LineaY2[r], s.LineaZ2[r])
          .N_(s.LineaColore[r], s.LineaTratteggio[r], s.LineaCongela[r])
          .T(s.LineaPiano[r])
          .N_(s.LineaTronca[r])
          .In(out);
  for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotCerchi]); ++r)
    if (Vivo(s.CerchioIdent[r], s.CerchioPiano[r]))
      Istruzione("<CERCHIO>")
          .N_(s.CerchioX[r], s.CerchioY[r], s.CerchioZ[r], s.CerchioRaggio[r])
          .N_(s.CerchioColore[r], s.CerchioTratteggio[r], s.CerchioCongela[r])
          .T(s.CerchioPiano[r])
          .In(out);
  for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotArchi]); ++r)
    if (Vivo(s.ArcoIdent[r], s.ArcoPiano[r]))
      Istruzione("<ARCO>")
          .N_(s.ArcoX[r], s.ArcoY[r], s.ArcoZ[r], s.ArcoRaggio[r], s.ArcoInizio[r], s.ArcoFine[r])
          .N_(s.ArcoColore[r], s.ArcoTratteggio[r], s.ArcoCongela[r])
          .T(s.ArcoPiano[r])
          .N_(s.ArcoQuotaInizio[r], s.ArcoQuotaFinale[r])
          .In(out);
  for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotTesti]); ++r)
    if (Vivo(s.TestoIdent[r], s.TestoPiano[r]))
      Istruzione("<TESTO>")
          .N_(s.TestoX[r], s.TestoY[r], s.TestoRotazione[r], s.TestoAltezza[r], s.TestoRighe[r])
          .N_(s.TestoColore[r], s.TestoCongela[r], s.TestoColonne[r])
          .T(s.TestoPiano[r])
          .T(s.TestoTesto[r])
          .T(s.TestoFont[r])
          .In(out);
}

void FaldeESette(const Sessione& s, std::string& out) {
  for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotFalde]); ++r)
    if (Vivo(s.FaldaIdent[r]))
      Istruzione("<FALDA>")
          .N_(s.FaldaX1[r], s.FaldaY1[r], s.FaldaZ1[r], s.FaldaX2[r], s.FaldaY2[r], s.FaldaZ2[r])
          .N_(s.FaldaX3[r], s.FaldaY3[r], s.FaldaZ3[r], s.FaldaColore[r], s.FaldaCongela[r])
          .N_(s.FaldaAreaDiBase[r], s.FaldaVolumeSterro[r], s.FaldaVolumeRiporto[r])
          .T(s.FaldaPiano[r])
          .N_(s.FaldaNumeroX1[r], s.FaldaNumeroY1[r], s.FaldaInvasoX1[r], s.FaldaInvasoY1[r])
          .N_(s.FaldaInvasoX2[r], s.FaldaInvasoY2[r], s.FaldaInsSteX1[r], s.FaldaInsSteY1[r])
          .N_(s.FaldaInsRiportoX1[r], s.FaldaInsRiportoY1[r], s.FaldaInsAreaX1[r], s.FaldaInsAreaY1[r])
          .In(out);
  for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotSette]); ++r)
    if (Vivo(s.SetteIdent[r]))
      Istruzione("<CONTORNO7>")
          .T(s.SetteContorno[r])
          .T(s.SetteCommento[r])
          .T(s.SetteParticella[r])
          .N_(s.SetteColore[r], s.SetteTratteggio[r])
          .In(out);
}

void Sezioni(const Sessione& s, std::string& out) {
  out += IstruzioneLista().Testo("<SEZIONE>").Riga();
  for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotSezioni]); ++r) {
    if (!Vivo(s.SezioneIdent[r])) continue;
    const Sezione& z = s.SezioneDati[r];
    out += TestoConfigurazione(z.Cfg);
    out += IstruzioneLista().Testo(SenzaVirgolette(z.IndiceSezione)).Numero(z.OrigineX).Numero(z.OrigineY).Riga();
    out += IstruzioneLista().Numero(static_cast<double>(z.Stazioni.size())).Riga();
    for (const StazioneSezione& p : z.Stazioni)
      out += IstruzioneLista()
                 .Testo(SenzaVirgolette(p.Nome))
                 .Numero(p.X)
                 .Numero(p.Y)
                 .Numero(p.QuotaTerreno)
                 .Numero(p.QuotaProgetto)
                 .Riga();
  }
}

// The small text members as the save leaves them, line by line without their quotes.
void MembriTesto(const Sessione& s, std::string& out) {
  const FileLavoro membri = ElencaFileLavoro(s.NomeLavoro);
  const std::pair<int, const char*> quali[] = {
      {Slot126, "<126>"}, {SlotCel, "<CEL>"}, {SlotEstratto, "<EMP>"}, {SlotSmp, "<SMP>"}};
  for (const auto& [slot, tag] : quali) {
    const std::string& m = membri.Membro[static_cast<size_t>(slot)];
    if (m.empty()) continue;
    for (const std::string& riga : RigheFile(m))
      out += IstruzioneLista().Testo(tag).Testo(Sostituisci(riga, "\"", "")).Riga();
  }
}

std::string Intestazione(const Sessione& s) {
  const std::time_t t = s.Orologio();
  std::tm tm{};
  localtime_r(&t, &tm);
  char quando[64];
  std::snprintf(quando, sizeof quando, "%02d/%02d/%04d 2020 %02d:%02d:%02d", tm.tm_mday, tm.tm_mon + 1,
                tm.tm_year + 1900, tm.tm_hour, tm.tm_min, tm.tm_sec);
  return IstruzioneLista().Testo("<Copright>").Testo("<Varena 2000 - Copright Ilario Boschetti>").Testo(quando).Riga();
}

}  // namespace

std::string TestoTuttoIla7(Sessione& s) {
  s.RoutineCorrente = "SalvaTuttoIla7";
  std::string out = Intestazione(s);
  out += IstruzioneLista().Testo("<CFG>").Riga();
  out += ScriviBloccoA(s.Cfg.A) + ScriviBloccoB(s.Cfg.B);
  s.RoutineCorrente = "SalvaTuttoIla71";
  out.reserve(out.size() + static_cast<size_t>(s.ContaEntita[SlotPunti]) * 200);
  Punti(s, out);
  Geometrie(s, out);
  FaldeESette(s, out);
  s.RoutineCorrente = "Inizio Libretto";
  for (const std::string& riga : s.LibrettoMisure)
    out += IstruzioneLista().Testo("<LIBRETTO>").Testo(SenzaVirgolette(riga)).Riga();
  s.RoutineCorrente = "SalvaTuttoIla72";
  Sezioni(s, out);
  MembriTesto(s, out);
  out += IstruzioneLista().Testo("<CURVELIVELLO>").Numero(s.ContaEntita[SlotCurve]).Riga();
  for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotCurve]); ++r)
    out += IstruzioneLista().Numero(s.CurvaFlag[r]).Numero(s.CurvaX[r]).Numero(s.CurvaY[r]).Riga();
  s.RoutineCorrente = "SalvaTuttoIla7 Fine";
  return out;
}

void SalvaTuttoIla7(Sessione& s) {
  const std::string byte = Utf8InCp1252(TestoTuttoIla7(s));
  const std::string percorso = s.NomeLavoro + EstensioneFile(SlotXvr);
  const auto ora = LeggiByte(percorso);
  if (ora && *ora == byte) return;
  ScriviByte(percorso, byte);
}

namespace {

// The reader's fields: quotes gone, then every comma splits, inside a string too.
struct Campi {
  std::vector<std::string> v;
  const std::string& operator[](size_t k) const {
    static const std::string vuoto;
    return k < v.size() ? v[k] : vuoto;
  }
  double D(size_t k) const { return Val((*this)[k]); }
  int16_t I(size_t k) const { return InteroCorto(D(k)); }
  int32_t L(size_t k) const { return InteroLungo(D(k)); }
};

// The point statement is read one place early, as if the name were not there: every field
// lands on the one before it, and the name is never taken from the file.
void AggiungiPunto(Sessione& s, const Campi& c) {
  DimensionaPunti(s);
  const auto k = static_cast<size_t>(s.ContaEntita[SlotPunti]);
  s.PuntoIdent[k] = 0;
  s.PuntoNome[k].clear();
  s.PuntoColoreNome[k] = c.L(1), s.PuntoCongelaNome[k] = c.I(2), s.PuntoDimensioneNome[k] = c.D(3);
  s.PuntoDescrizione[k] = Rifila(c[4]);
  s.PuntoColoreDescrizione[k] = c.L(5), s.PuntoCongelaDescrizione[k] = c.I(6);
  s.PuntoDimensioneDescrizione[k] = c.D(7);
  s.PuntoX[k] = c.D(8), s.PuntoY[k] = c.D(9), s.PuntoZ[k] = c.D(10);
  s.PuntoSpoX[k] = c.D(11), s.PuntoSpoY[k] = c.D(12), s.PuntoSpoZ[k] = c.D(13);
  s.PuntoSimbolo[k] = c.I(14), s.PuntoColoreSimbolo[k] = c.L(15), s.PuntoCongelaSimbolo[k] = c.I(16);
  s.PuntoDimensioneSimbolo[k] = c.D(17);
  s.PuntoColoreQuota[k] = c.L(18), s.PuntoCongelaQuota[k] = c.I(19), s.PuntoDimensioneQuota[k] = c.D(20);
  s.PuntoAttendibilita[k] = c.I(21);
  s.PuntoPiano[k] = c[22];
  s.PuntoFont[k] = c[23];
  s.PuntoErroreOrientamento[k] = c.D(24);
  s.PuntoHPrisma[k] = static_cast<float>(c.D(25));
  s.StatoPunto[k] = 0;
  ++s.ContaEntita[SlotPunti];
  // What a text can hold that no drawing can (a size past any screen, no font) is set right
  // as at the reading of the job's own members.
  RiparaPunto(s, static_cast<int64_t>(k), false);
}

void AggiungiLinea(Sessione& s, const Campi& c) {
  DimensionaLinee(s);
  const auto k = static_cast<size_t>(s.ContaEntita[SlotLinee]);
  s.LineaIdent[k] = 0;
  s.LineaX1[k] = c.D(1), s.LineaY1[k] = c.D(2), s.LineaZ1[k] = c.D(3);
  s.LineaX2[k] = c.D(4), s.LineaY2[k] = c.D(5), s.LineaZ2[k] = c.D(6);
  s.LineaColore[k] = c.L(7), s.LineaTratteggio[k] = c.I(8), s.LineaCongela[k] = c.I(9);
  s.LineaQuotata[k] = 0, s.LineaOffsetQuota[k] = 0;
  s.LineaPiano[k] = c[10];
  s.LineaTronca[k] = c.D(11);
  s.StatoLinea[k] = 0;
  ++s.ContaEntita[SlotLinee];
  RiparaLinea(s, static_cast<int64_t>(k), false);
}

}  // namespace

int64_t LeggiTuttoIla7(Sessione& s, std::string_view testoUtf8) {
  s.LibrettoMisure.clear();
  s.ContaEntita[SlotLibretto] = 0;
  SegnaModificato(s, SlotLibretto);
  int64_t aggiunte = 0;
  Campi c;
  for (const std::string& riga : RigheTesto(testoUtf8)) {
    c.v = Dividi(Rifila(Sostituisci(riga, "\"", "")), ',');
    if (c[0] == "<PUNTO>") {
      AggiungiPunto(s, c);
      SegnaModificato(s, SlotPunti);
    } else if (c[0] == "<LINEA>") {
      AggiungiLinea(s, c);
      SegnaModificato(s, SlotLinee);
    } else {
      continue;
    }
    ++aggiunte;
  }
  return aggiunte;
}

bool CaricaTuttoILA7(Sessione& s, const std::string& percorso) {
  s.RoutineCorrente = "CaricaTuttoILA7";
  int64_t aggiunte = 0;
  const bool letto = Protetto(s, [&] {
    const auto byte = LeggiByte(percorso);
    if (!byte) throw ErroreVarena(kErroreFileNonTrovato);
    aggiunte = LeggiTuttoIla7(s, Cp1252InUtf8(*byte));
  });
  if (!letto) return false;
  if (aggiunte == 0) s.Ui->Messaggio("Nessun punto o linea letto:\n" + percorso, kTitoloImportaXvr, Icona::Avviso);
  if (!VR_SalvaUndo(s)) return false;
  (void)TuttoTutto(s);
  return aggiunte > 0;
}

void AzioneImportaXvr(Sessione& s) {
  const auto scelto = s.Ui->ScegliFile(false, kTitoloImportaXvr, "File XVR (*.XVR)|*.XVR|", Cartella(s.NomeOriginale),
                                       Foglia(s.NomeOriginale) + EstensioneFile(SlotXvr));
  if (!scelto || scelto->empty()) return;
  CaricaTuttoILA7(s, *scelto);
}

}  // namespace varena
