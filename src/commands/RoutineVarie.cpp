// Images given a map scale or brought to the top, the origin of the sheet, and the memory
// of points.
#include <algorithm>

#include "commands/Comandi.h"
#include "commands/Modifica.h"
#include "commands/Routine.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "snap/Vicino.h"
#include "view/Ridisegna.h"
#include "view/Rigenera.h"
#include "view/Zoom.h"

namespace varena {

namespace {

// Metres per pixel of a scan at 300 dots an inch of a map at the code's scale.
double MetriPerPixel(int32_t codice) {
  switch (codice) {
    case 343: return 0.0423333333;
    case 287: return 0.0846666667;
    case 369: return 0.1269999999;
    case 257: return 0.1693333333;
    case 316: return 0.3386666667;
    case 371: return 0.3386666667;
    case 335: return 0.42333333325;
    default: return 0;
  }
}

}  // namespace

void subScalaImmagine(Sessione& s) {
  const Vicina v = IlPiuVicinoBitMap(s, s.PuntoCorrenteX, s.PuntoCorrenteY);
  if (v.Riga < 0 || v.Riga >= s.ContaEntita[SlotBitmap]) return;
  const auto k = static_cast<size_t>(v.Riga);
  s.BitmapScalaLar[k] = s.BitmapScalaAlt[k] = MetriPerPixel(s.ComandoCorrente);
  SegnaModificato(s, SlotBitmap);
  // The whole drawing framed again, with the image at its new size.
  RigeneraLista(s);
  (void)TuttoTutto(s);
  FineModifica(s);
  ArmaComando(s);
}

void subImmagineInCima(Sessione& s) {
  const Vicina v = IlPiuVicinoBitMap(s, s.PuntoCorrenteX, s.PuntoCorrenteY);
  if (v.Riga < 0) return;
  s.ImmagineInCima = v.Riga;
  Ridisegna(s);
  ArmaComando(s);
}

void subOrigineFoglio(Sessione& s) {
  s.OrigineFoglioX = s.PuntoCorrenteX;
  s.OrigineFoglioY = s.PuntoCorrenteY;
  // One click is all it takes; the end of the command redraws.
  InterrompiComando(s);
}

void subMemorizzaPunto(Sessione& s) {
  const std::string proposto = s.PuntoCorrenteNome == "*" ? std::string() : s.PuntoCorrenteNome;
  const auto nome = s.Ui->Imputa("Nome del Punto da memorizzare :", "Memorizza Punto", proposto);
  if (!nome || Rifila(*nome).empty()) return;
  const PuntoMemoria p{Rifila(*nome), s.PuntoCorrenteX, s.PuntoCorrenteY, s.PuntoCorrenteZ};
  auto it = std::find_if(s.MemoPunti.begin(), s.MemoPunti.end(), [&](const PuntoMemoria& m) { return m.Nome == p.Nome; });
  if (it != s.MemoPunti.end())
    *it = p;
  else
    s.MemoPunti.push_back(p);
  if (s.ComandoSospeso == 0) {
    InterrompiComando(s);
    return;
  }
  // The command laid aside goes on where it was.
  s.ComandoCorrente = s.ComandoSospeso;
  s.PassoComando = s.PassoSospeso;
  s.VoceArmata = s.VoceSospesa;
  s.ComandoSospeso = 0;
  s.ModoSnap = SnapLibero;
  s.SnapDaTasto = false;
  MostraPrompt(s, s.PromptSospeso);
}

}  // namespace varena
