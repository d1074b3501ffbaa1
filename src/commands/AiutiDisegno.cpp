// The helpers of the drawing routines.
#include "commands/AiutiDisegno.h"

#include <cmath>

#include "commands/Comandi.h"
#include "commands/TabellaComandi.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "snap/Vicino.h"
#include "view/Ridisegna.h"

namespace varena {

PuntoXYZ PuntoCorrente(const Sessione& s) { return {s.PuntoCorrenteX, s.PuntoCorrenteY, s.PuntoCorrenteZ}; }
PuntoXYZ PuntoUno(const Sessione& s) { return {s.Punto1X, s.Punto1Y, s.Punto1Z}; }
PuntoXYZ PuntoDue(const Sessione& s) { return {s.Punto2X, s.Punto2Y, s.Punto2Z}; }

PuntoXYZ InizioLinea(const Sessione& s, int32_t riga) {
  const auto k = static_cast<size_t>(riga);
  return {s.LineaX1[k], s.LineaY1[k], s.LineaZ1[k]};
}

PuntoXYZ FineLinea(const Sessione& s, int32_t riga) {
  const auto k = static_cast<size_t>(riga);
  return {s.LineaX2[k], s.LineaY2[k], s.LineaZ2[k]};
}

bool LineaViva(const Sessione& s, int32_t riga) { return EntitaViva(s, SlotLinee, riga); }

bool EntitaViva(const Sessione& s, uint8_t tipo, int32_t riga) {
  // Only the kinds a drawing command picks: lines, circles, arcs and texts.
  return tipo >= SlotLinee && tipo <= SlotTesti && RigaViva(s, tipo, riga);
}

int32_t LineaCliccata(const Sessione& s) {
  const Vicina v = IlPiuVicinoLinea(s, s.PuntoCorrenteX, s.PuntoCorrenteY);
  return LineaViva(s, v.Riga) ? v.Riga : -1;
}

bool CurvaCliccata(const Sessione& s, uint8_t& tipo, int32_t& riga) {
  const RisultatoVicina r = LapiuvicinaBitMap(s, s.PuntoCorrenteX, s.PuntoCorrenteY, PuntoUno(s));
  if (r.VicinaTipo != SlotLinee && r.VicinaTipo != SlotCerchi && r.VicinaTipo != SlotArchi) return false;
  if (!EntitaViva(s, r.VicinaTipo, r.VicinaRiga)) return false;
  tipo = r.VicinaTipo;
  riga = r.VicinaRiga;
  return true;
}

void EvidenziaEntita(Sessione& s, uint8_t tipo, int32_t riga, int16_t stato) {
  ElencoDisegno& l = s.ListaDisegno;
  for (size_t i = 0; i < l.Tipo.size(); ++i)
    if (l.Tipo[i] == tipo && l.Riga[i] == riga) l.Stato[i] = stato;
  Ridisegna(s);
}

void Riprendi(Sessione& s, std::string_view prompt) {
  s.PassoComando = 0;
  s.FaseIncrocio = 0;
  if (prompt.empty()) {
    const auto tabella = TabellaComandi();
    const VoceComando* voce = s.VoceArmata >= 0 && static_cast<size_t>(s.VoceArmata) < tabella.size() &&
                                      tabella[static_cast<size_t>(s.VoceArmata)].Codice == s.ComandoCorrente
                                  ? &tabella[static_cast<size_t>(s.VoceArmata)]
                                  : VocePerCodice(s.ComandoCorrente);
    if (voce) prompt = voce->Prompt;
  }
  MostraPrompt(s, prompt);
}

std::optional<double> ChiediNumero(Sessione& s, std::string_view testo, std::string_view titolo,
                                   std::string_view predefinito) {
  const auto risposta = s.Ui->Imputa(testo, titolo, predefinito);
  if (!risposta) {
    InterrompiComando(s);
    return std::nullopt;
  }
  return Val(VirgolaInPunto(*risposta));
}

double ValoreArmato(const Sessione& s) { return std::fabs(Val(VirgolaInPunto(s.ValoreImputato))); }

size_t Caratteri(std::string_view utf8) {
  size_t n = 0;
  for (unsigned char c : utf8)
    if ((c & 0xC0) != 0x80) ++n;
  return n;
}

}  // namespace varena
