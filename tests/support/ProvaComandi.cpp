#include "support/ProvaComandi.h"

#include "store/Carica.h"
#include "store/Undo.h"
#include "view/Rigenera.h"

namespace varena::prova {

namespace {
// A row added at the end of the table of `slot`, its columns grown first.
size_t NuovaRiga(Sessione& s, int slot, void (*dimensiona)(TabelleEntita&)) {
  dimensiona(s);
  return static_cast<size_t>(s.ContaEntita[slot]++);
}
}  // namespace

int32_t MettiPunto(Sessione& s, const std::string& nome, double x, double y, double z) {
  const size_t k = NuovaRiga(s, SlotPunti, DimensionaPunti);
  s.PuntoIdent[k] = 0, s.PuntoNome[k] = nome, s.PuntoX[k] = x, s.PuntoY[k] = y, s.PuntoZ[k] = z;
  s.PuntoDimensioneSimbolo[k] = s.PuntoDimensioneNome[k] = s.PuntoDimensioneQuota[k] = s.PuntoDimensioneDescrizione[k] = 1;
  s.PuntoColoreSimbolo[k] = s.PuntoColoreNome[k] = s.PuntoColoreQuota[k] = s.PuntoColoreDescrizione[k] = 1;
  s.PuntoPiano[k] = "0", s.PuntoFont[k] = "Arial";
  return static_cast<int32_t>(k);
}

int32_t MettiLinea(Sessione& s, double x1, double y1, double x2, double y2, double z1, double z2) {
  const size_t k = NuovaRiga(s, SlotLinee, DimensionaLinee);
  s.LineaIdent[k] = 0, s.LineaX1[k] = x1, s.LineaY1[k] = y1, s.LineaZ1[k] = z1;
  s.LineaX2[k] = x2, s.LineaY2[k] = y2, s.LineaZ2[k] = z2;
  s.LineaColore[k] = s.LineaTratteggio[k] = 1, s.LineaPiano[k] = "0";
  return static_cast<int32_t>(k);
}

int32_t MettiCerchio(Sessione& s, double x, double y, double raggio, double z) {
  const size_t k = NuovaRiga(s, SlotCerchi, DimensionaCerchi);
  s.CerchioIdent[k] = 0, s.CerchioX[k] = x, s.CerchioY[k] = y, s.CerchioZ[k] = z, s.CerchioRaggio[k] = raggio;
  s.CerchioColore[k] = s.CerchioTratteggio[k] = 1, s.CerchioPiano[k] = "0";
  return static_cast<int32_t>(k);
}

int32_t MettiArco(Sessione& s, double x, double y, double raggio, double inizio, double ampiezza, double z0,
                  double z1) {
  const size_t k = NuovaRiga(s, SlotArchi, DimensionaArchi);
  s.ArcoIdent[k] = 0, s.ArcoX[k] = x, s.ArcoY[k] = y, s.ArcoRaggio[k] = raggio;
  s.ArcoInizio[k] = inizio, s.ArcoFine[k] = ampiezza, s.ArcoQuotaInizio[k] = z0, s.ArcoQuotaFinale[k] = z1;
  s.ArcoColore[k] = s.ArcoTratteggio[k] = 1, s.ArcoPiano[k] = "0";
  return static_cast<int32_t>(k);
}

int32_t MettiTesto(Sessione& s, double x, double y, const std::string& testo) {
  const size_t k = NuovaRiga(s, SlotTesti, DimensionaTesti);
  s.TestoIdent[k] = 0, s.TestoX[k] = x, s.TestoY[k] = y, s.TestoAltezza[k] = 1, s.TestoColore[k] = 1;
  s.TestoTesto[k] = testo, s.TestoPiano[k] = "0";
  return static_cast<int32_t>(k);
}

int32_t MettiImmagine(Sessione& s, double x, double y, double larghezza, double altezza, double scala) {
  const size_t k = NuovaRiga(s, SlotBitmap, DimensionaBitmap);
  s.BitmapIdent[k] = 0, s.BitmapNomeFile[k] = "FOGLIO.PNG", s.BitmapX[k] = x, s.BitmapY[k] = y;
  s.BitmapLarghezza[k] = larghezza, s.BitmapAltezza[k] = altezza, s.BitmapScalaLar[k] = s.BitmapScalaAlt[k] = scala;
  s.BitmapPiano[k] = "0";
  return static_cast<int32_t>(k);
}

int64_t MettiRecordLista(Sessione& s, uint8_t tipo, int32_t riga, double x1, double y1, double x2, double y2) {
  RecordDisegno r;
  r.Tipo = tipo, r.Riga = riga, r.X1 = x1, r.Y1 = y1, r.X2 = x2, r.Y2 = y2, r.Colore = 1;
  return s.ListaDisegno.Aggiungi(r);
}

Banco::Banco() {
  PreparaSessione(s, ui, cartella);
  // The right button repeats, as most users have it; a test that wants the menu says so.
  s.Imp.MenuMouse = 0;
}

void Banco::Pronto(double est, double nord, double altezza) {
  s.Vista.CentroEst = est, s.Vista.CentroNord = nord, s.Vista.AltezzaVista = altezza;
  RigeneraLista(s);
}

std::string Banco::Script(const std::string& testo) {
  uscita.str("");
  std::istringstream in(testo);
  UltimoEsito = EseguiScript(s, ui, in, uscita, Opzioni);
  return uscita.str();
}

void ApriLavoroVuoto(Banco& b) {
  const std::string base = b.cartella / "ROSSI";
  ScriviFileProva(base + ".CFG", CfgManuale("VR2020", "0,0,100"));
  b.s.NomeOriginale = base;
  VR_ApriLavoro(b.s);
}

int64_t PassoUndo(const Sessione& s) {
  const auto d = LeggiDiario(s);
  return d ? d->Passo : -1;
}

}  // namespace varena::prova
