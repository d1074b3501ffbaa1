// The `.LXC` of the drawing and the hand-off of the field book from the drawing.
#include "cadastre/LibrettoDaDisegno.h"

#include <charconv>
#include <cmath>

#include "cadastre/Libretto.h"
#include "cadastre/Pregeo.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"

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

void AzioneInfoMisurate(Sessione& s) {
  const auto lxc = SalvaGraficaxLibretto(s);
  if (lxc) LancioSondaIII(s, s.NomeLavoro + "|INFO_MISURATE|");
}

}  // namespace varena
