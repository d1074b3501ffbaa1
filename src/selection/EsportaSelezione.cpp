// The selection to script lines.
#include "selection/EsportaSelezione.h"

#include <algorithm>

#include "core/Sessione.h"
#include "core/Testo.h"

namespace varena {

namespace {

std::string M(double v, const char* maschera) { return FormatoMaschera(v, maschera); }

}  // namespace

std::string EsportaSelezione(const Sessione& s) {
  // "!" stands for the separator until the end, so that a decimal comma of the locale or a
  // comma in a name can be told apart from it.
  constexpr const char* kPunto = "###########0.0#######";
  constexpr const char* kNome = "##########0.0####";
  std::string t;
  auto righe = [](const auto& stato, int32_t conta) { return std::min<size_t>(stato.size(), static_cast<size_t>(std::max(conta, 0))); };
  for (size_t r = 0; r < righe(s.StatoPunto, s.ContaEntita[SlotPunti]); ++r) {
    if (s.StatoPunto[r] != 1 || !IdentVivo(s.PuntoIdent[r])) continue;
    t += "_point " + M(s.PuntoX[r], kPunto) + "!" + M(s.PuntoY[r], kPunto) + "!" + M(s.PuntoZ[r], kPunto) + "\r";
    const double h = s.PuntoDimensioneNome[r];
    t += "_text " + M(s.PuntoX[r] + s.PuntoSpoX[r] + h, kNome) + "!" + M(s.PuntoY[r] + s.PuntoSpoY[r], kNome) + " " +
         M(h, kNome) + " 0 " + Rifila(s.PuntoNome[r]) + "\r";
  }
  for (size_t r = 0; r < righe(s.StatoLinea, s.ContaEntita[SlotLinee]); ++r) {
    if (s.StatoLinea[r] != 1 || !IdentVivo(s.LineaIdent[r])) continue;
    constexpr const char* kPrimo = "###########0.0######";
    constexpr const char* kSecondo = "##########0.0######";
    // The blank after the second end closes the command, as Enter would.
    t += "_line " + M(s.LineaX1[r], kPrimo) + "!" + M(s.LineaY1[r], kPrimo) + "!" + M(s.LineaZ1[r], kPrimo) + " " +
         M(s.LineaX2[r], kSecondo) + "!" + M(s.LineaY2[r], kSecondo) + "!" + M(s.LineaZ2[r], kSecondo) + " \r";
  }
  for (size_t r = 0; r < righe(s.StatoCerchio, s.ContaEntita[SlotCerchi]); ++r) {
    if (s.StatoCerchio[r] != 1 || !IdentVivo(s.CerchioIdent[r])) continue;
    constexpr const char* kCerchio = "##########0.0#######";
    t += "_circle " + M(s.CerchioX[r], kCerchio) + "!" + M(s.CerchioY[r], kCerchio) + " " +
         M(s.CerchioRaggio[r], kCerchio) + "\r";
  }
  return Sostituisci(Sostituisci(t, ",", "."), "!", ",");
}

}  // namespace varena
