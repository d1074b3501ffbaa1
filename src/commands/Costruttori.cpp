// Lines and points appended by the commands.
#include "commands/Costruttori.h"

#include "commands/Modifica.h"
#include "commands/TabellaDialoghi.h"
#include "core/Dialoghi.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "view/Rigenera.h"

namespace varena {

int32_t ScriviLinea(Sessione& s, const PuntoXYZ& a, const PuntoXYZ& b, std::string_view piano) {
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
