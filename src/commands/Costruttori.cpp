// Lines, circles, arcs, texts, pictures and points appended by the commands.
#include "commands/Costruttori.h"

#include "commands/GeometriaDisegno.h"
#include "commands/Modifica.h"
#include "commands/TabellaDialoghi.h"
#include "core/Dialoghi.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "view/Rigenera.h"

namespace varena {

namespace {

// The row of a line with the drawing defaults, its records not yet made.
int32_t RigaLinea(Sessione& s, const PuntoXYZ& a, const PuntoXYZ& b, std::string_view piano) {
  DimensionaLinee(s);
  const int32_t riga = s.ContaEntita[SlotLinee];
  const auto k = static_cast<size_t>(riga);
  s.LineaIdent[k] = 0;
  s.LineaX1[k] = a.X, s.LineaY1[k] = a.Y, s.LineaZ1[k] = a.Z;
  s.LineaX2[k] = b.X, s.LineaY2[k] = b.Y, s.LineaZ2[k] = b.Z;
  s.LineaColore[k] = s.Imp.Colore_Default;
  s.LineaTratteggio[k] = InteroCorto(s.Imp.Tratteggio_Default);
  s.LineaCongela[k] = 0;
  s.LineaQuotata[k] = 0;
  s.LineaOffsetQuota[k] = 0;
  s.LineaPiano[k] = Rifila(piano);
  s.LineaTronca[k] = 0;
  s.StatoLinea[k] = 0;
  s.ContaEntita[SlotLinee] = riga + 1;
  return riga;
}

}  // namespace

int32_t ScriviLinea(Sessione& s, const PuntoXYZ& a, const PuntoXYZ& b, std::string_view piano) {
  const int32_t riga = RigaLinea(s, a, b, piano);
  RigeneraLineaSingola(s, riga);
  return riga;
}

int32_t ScriviPunto(Sessione& s, std::string_view nome, const PuntoXYZ& p, std::string_view descrizione,
                    std::string_view piano) {
  const std::string n = Rifila(nome);
  const bool stazione = FinisceCon(n, "00");
  const StilePunto& stile =
      s.ConfiguraPunti.Classi[IniziaCon(Maiuscolo(n), "PF") ? ClassePF : stazione ? ClasseStazioni : ClassePunti];
  DimensionaPunti(s);
  const int32_t riga = s.ContaEntita[SlotPunti];
  const auto k = static_cast<size_t>(riga);
  s.PuntoIdent[k] = 0;
  s.PuntoNome[k] = n;
  s.PuntoDescrizione[k] = std::string(descrizione);
  s.PuntoX[k] = p.X, s.PuntoY[k] = p.Y, s.PuntoZ[k] = p.Z;
  s.PuntoDimensioneSimbolo[k] = stile.DimSimbolo;
  s.PuntoDimensioneNome[k] = stile.DimNome;
  s.PuntoColoreSimbolo[k] = stile.ColSimbolo;
  s.PuntoColoreNome[k] = stile.ColNome;
  s.PuntoCongelaSimbolo[k] = s.PuntoCongelaNome[k] = s.PuntoCongelaQuota[k] = 0;
  s.PuntoColoreQuota[k] = stile.ColQuota;
  s.PuntoDimensioneQuota[k] = stile.DimQuota;
  s.PuntoAttendibilita[k] = 0;
  s.PuntoSimbolo[k] = InteroCorto(stile.Simbolo);
  s.PuntoPiano[k] = Rifila(piano);
  s.PuntoSpoX[k] = s.PuntoSpoY[k] = s.PuntoSpoZ[k] = 0;
  s.PuntoColoreDescrizione[k] = stile.ColDescrizione;
  s.PuntoCongelaDescrizione[k] = 0;
  s.PuntoDimensioneDescrizione[k] = stile.DimDescrizione;
  s.PuntoFont[k] = stile.Font;
  s.PuntoErroreOrientamento[k] = 0;
  s.PuntoHPrisma[k] = 0;
  s.StatoPunto[k] = 0;
  s.ContaEntita[SlotPunti] = riga + 1;
  return riga;
}

int32_t ScriviLineaCome(Sessione& s, const PuntoXYZ& a, const PuntoXYZ& b, int32_t modello) {
  const auto m = static_cast<size_t>(modello);
  const std::string piano = s.LineaPiano[m];
  const int32_t riga = RigaLinea(s, a, b, piano);
  const auto k = static_cast<size_t>(riga);
  s.LineaColore[k] = s.LineaColore[m];
  s.LineaTratteggio[k] = s.LineaTratteggio[m];
  s.LineaCongela[k] = s.LineaCongela[m];
  s.LineaQuotata[k] = s.LineaQuotata[m];
  s.LineaOffsetQuota[k] = s.LineaOffsetQuota[m];
  s.LineaTronca[k] = s.LineaTronca[m];
  RigeneraLineaSingola(s, riga);
  return riga;
}

namespace {

int32_t RigaCerchio(Sessione& s, const PuntoXYZ& c, double raggio, std::string_view piano) {
  DimensionaCerchi(s);
  const int32_t riga = s.ContaEntita[SlotCerchi];
  const auto k = static_cast<size_t>(riga);
  s.CerchioIdent[k] = 0;
  s.CerchioX[k] = c.X, s.CerchioY[k] = c.Y, s.CerchioZ[k] = c.Z;
  s.CerchioRaggio[k] = raggio;
  s.CerchioColore[k] = s.Imp.Colore_Default;
  s.CerchioTratteggio[k] = InteroCorto(s.Imp.Tratteggio_Default);
  s.CerchioCongela[k] = 0;
  s.CerchioPiano[k] = Rifila(piano);
  s.StatoCerchio[k] = 0;
  s.ContaEntita[SlotCerchi] = riga + 1;
  return riga;
}

int32_t RigaArco(Sessione& s, const PuntoXYZ& c, double raggio, double inizio, double ampiezza, double z0, double z1,
                 std::string_view piano) {
  DimensionaArchi(s);
  const int32_t riga = s.ContaEntita[SlotArchi];
  const auto k = static_cast<size_t>(riga);
  s.ArcoIdent[k] = 0;
  s.ArcoX[k] = c.X, s.ArcoY[k] = c.Y, s.ArcoZ[k] = c.Z;
  s.ArcoRaggio[k] = raggio;
  s.ArcoInizio[k] = GonPositivo(inizio);
  // A whole turn stays a whole turn; anything else is brought into one turn.
  s.ArcoFine[k] = ampiezza >= 400.0 ? 400.0 : GonPositivo(ampiezza);
  s.ArcoColore[k] = s.Imp.Colore_Default;
  s.ArcoTratteggio[k] = InteroCorto(s.Imp.Tratteggio_Default);
  s.ArcoCongela[k] = 0;
  s.ArcoQuotaInizio[k] = z0;
  s.ArcoQuotaFinale[k] = z1;
  s.ArcoPiano[k] = Rifila(piano);
  s.StatoArco[k] = 0;
  s.ContaEntita[SlotArchi] = riga + 1;
  return riga;
}

}  // namespace

int32_t ScriviCerchio(Sessione& s, const PuntoXYZ& centro, double raggio, std::string_view piano) {
  const int32_t riga = RigaCerchio(s, centro, raggio, piano);
  RigeneraCerchio(s, riga);
  return riga;
}

int32_t ScriviCerchioCome(Sessione& s, const PuntoXYZ& centro, double raggio, int32_t modello) {
  const auto m = static_cast<size_t>(modello);
  const std::string piano = s.CerchioPiano[m];
  const int32_t riga = RigaCerchio(s, centro, raggio, piano);
  const auto k = static_cast<size_t>(riga);
  s.CerchioColore[k] = s.CerchioColore[m];
  s.CerchioTratteggio[k] = s.CerchioTratteggio[m];
  s.CerchioCongela[k] = s.CerchioCongela[m];
  RigeneraCerchio(s, riga);
  return riga;
}

int32_t ScriviArco(Sessione& s, const PuntoXYZ& centro, double raggio, double inizio, double ampiezza, double zInizio,
                   double zFine, std::string_view piano) {
  const int32_t riga = RigaArco(s, centro, raggio, inizio, ampiezza, zInizio, zFine, piano);
  RigeneraArco(s, riga);
  return riga;
}

int32_t ScriviArcoCome(Sessione& s, const PuntoXYZ& centro, double raggio, double inizio, double ampiezza,
                       int32_t modello) {
  const auto m = static_cast<size_t>(modello);
  const std::string piano = s.ArcoPiano[m];
  const int32_t riga =
      RigaArco(s, centro, raggio, inizio, ampiezza, s.ArcoQuotaInizio[m], s.ArcoQuotaFinale[m], piano);
  const auto k = static_cast<size_t>(riga);
  s.ArcoColore[k] = s.ArcoColore[m];
  s.ArcoTratteggio[k] = s.ArcoTratteggio[m];
  s.ArcoCongela[k] = s.ArcoCongela[m];
  RigeneraArco(s, riga);
  return riga;
}

int32_t ScriviTesto(Sessione& s, double x, double y, std::string_view testo, double altezza, double rotazione,
                    int32_t colore, std::string_view font, std::string_view piano) {
  DimensionaTesti(s);
  const int32_t riga = s.ContaEntita[SlotTesti];
  const auto k = static_cast<size_t>(riga);
  s.TestoIdent[k] = 0;
  s.TestoX[k] = x, s.TestoY[k] = y;
  s.TestoRotazione[k] = rotazione;
  s.TestoAltezza[k] = altezza;
  s.TestoRighe[k] = 1;
  s.TestoColore[k] = colore;
  s.TestoCongela[k] = 0;
  s.TestoColonne[k] = 1;
  s.TestoPiano[k] = Rifila(piano);
  // A text without a font would be given one at the next load: it gets it now.
  s.TestoFont[k] = Rifila(font).empty() ? std::string("Arial") : Rifila(font);
  s.TestoTesto[k] = std::string(testo);
  s.StatoTesto[k] = 0;
  s.ContaEntita[SlotTesti] = riga + 1;
  RigeneraTesto(s, riga);
  return riga;
}

int32_t ScriviImmagine(Sessione& s, std::string_view file, double x, double y, double larghezza, double altezza,
                       double scala, std::string_view piano) {
  DimensionaBitmap(s);
  const int32_t riga = s.ContaEntita[SlotBitmap];
  const auto k = static_cast<size_t>(riga);
  s.BitmapIdent[k] = 0;
  s.BitmapNomeFile[k] = std::string(file);
  s.BitmapX[k] = x, s.BitmapY[k] = y;
  s.BitmapLarghezza[k] = larghezza, s.BitmapAltezza[k] = altezza;
  s.BitmapCongela[k] = 0;
  s.BitmapPiano[k] = Rifila(piano);
  s.BitmapZoom[k] = 0;
  s.BitmapScalaLar[k] = s.BitmapScalaAlt[k] = scala;
  s.BitmapRotazione[k] = 0;
  s.StatoBitmap[k] = 0;
  s.ContaEntita[SlotBitmap] = riga + 1;
  RigeneraBitMapSingola(s, riga);
  return riga;
}

void ProponiProssimoNome(Sessione& s, const std::string& nome) {
  const Dialogo* d = TrovaDialogo(s, "NuovoPunto");
  if (!d) return;
  const std::string prossimo = ProssimoNomePunto(s, nome, Rifila(d->Valore("Automatico")) != "0", d->Valore("Passo"));
  AggiornaCampo(s, "NuovoPunto", "Nome", prossimo.empty() ? nome : prossimo);
}

int32_t InserisciPuntoNuovo(Sessione& s, const PuntoXYZ& p) {
  const Dialogo* d = TrovaDialogo(s, "NuovoPunto");
  std::string nome = d ? Rifila(d->Valore("Nome")) : std::string();
  // A point made from measures is never lost for want of a name.
  if (nome.empty()) nome = PrimoNomeProposto(s);
  const int32_t riga =
      ScriviPunto(s, nome, p, d ? d->Valore("Descrizione") : std::string(), d ? d->Valore("Piano") : s.PianoCorrente);
  ProponiProssimoNome(s, nome);
  FineModifica(s, false);
  return riga;
}

}  // namespace varena
