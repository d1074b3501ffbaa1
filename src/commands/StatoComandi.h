// The state of the interaction: the armed command and its step, the snap mode, the points
// of the clicks, and what the pointer machine shows beside the drawing. A command is a
// number and a step in this state, never a loop: a tag may arrive between two clicks and
// reset it at any moment.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "commands/StatoDisegno.h"
#include "snap/RisultatoVicina.h"
#include "survey/CostruzionePunti.h"
#include "survey/StatoCalcoli.h"

namespace varena {

// The values of `ModoSnap`.
enum ModoSnapValore : int16_t {
  SnapNodo = 1,
  SnapPiede = 2,
  SnapNEQ = 3,
  SnapVicino = 4,
  SnapFine = 5,
  SnapCentro = 6,
  SnapQuadrante = 7,
  SnapTangente = 8,
  SnapIncrocio = 9,
  SnapTesto = 10,
  SnapPolare = 11,
  SnapApertura = 12,
  SnapMedio = 13,
  SnapDistanza = 14,
  SnapRNEQ = 15,
  SnapLibero = 16,
  SnapMemoPunto = 18,
  SnapRichiamaMemo = 19,
};

// A point kept by name for a later click (`VR_MemoPuntiSnap`).
struct PuntoMemoria {
  std::string Nome;
  double X = 0, Y = 0, Z = 0;
};

// The label over the drawing beside a point under the pointer.
struct SuggerimentoPunto {
  bool Visibile = false;
  double X = 0, Y = 0;              // world position of its top left corner
  std::vector<std::string> Righe;   // name, height, description as shown
  bool Cornice = false, Trasparente = false;
};

struct StatoComandi {
  std::string ComandoTag;        // the tag being run, in upper case
  int32_t UltimoComando = 0;     // the code of the last command ended, for repeat
  int16_t UltimoSnap = SnapLibero;
  int16_t ModoSnap = SnapLibero;
  // The mode was asked by a key or a tag: it lasts one click. A mode set by the command
  // itself at arming stays.
  bool SnapDaTasto = false;
  int16_t PassoComando = 0;
  uint8_t FaseSelezione = 0;
  int16_t SottoFaseSelezione = 0;
  int16_t ZoomFatto = 0, SnapFatto = 0;
  int16_t Ortogonale = 0;        // -1 on, 0 off
  bool SoloPunti = false;        // the job forces every click onto a point
  int32_t AzionePuntiInAttesa = 0;  // the pending action of `SelezPunti`; 0 none
  int16_t PuntoInDialogo = 0;    // 1: a click writes the nearest point's name into `NuovoPunto`
  bool Trascinamento = false;    // the middle button is held: moves pan the view

  // The point of this click, after the snap.
  double PuntoCorrenteX = 0, PuntoCorrenteY = 0, PuntoCorrenteZ = 0;
  std::string PuntoCorrenteNome = "*";
  int32_t PuntoCorrenteIndice = -1;
  uint8_t TipoEntita = 0;        // kind of the entity the snap took, 0 none
  int32_t RigaEntita = -1;
  // The command's points: `Punto1` the last stored, `Punto2` the one before, `Punto3` one more.
  double Punto1X = 0, Punto1Y = 0, Punto1Z = 0;
  double Punto2X = 0, Punto2Y = 0, Punto2Z = 0;
  double Punto3X = 0, Punto3Y = 0, Punto3Z = 0;
  int32_t Punto1Indice = -1;     // the point row `Punto1` came from, -1 for none
  int32_t TestoInAttesa = -1;    // the text picked by "Testo in Punto", waiting for its point
  std::string Punto1Nome = "*";
  PuntoXYZ UltimoPuntoCalcolato; // the last point a geometric snap produced

  // The general search as the last pointer move left it, for the foot snap, and where the
  // pointer was.
  RisultatoVicina UltimaVicina;
  bool UltimaVicinaValida = false;
  double UltimaVicinaX = 0, UltimaVicinaY = 0;

  // The intersection snap: 0 waits for the first entity, 1 for the second.
  int16_t FaseIncrocio = 0;
  RisultatoVicina PrimaEntitaIncrocio;

  std::vector<PuntoMemoria> MemoPunti;
  // A command laid aside while a point is being memorised, resumed afterwards.
  int32_t ComandoSospeso = 0;
  int16_t PassoSospeso = 0;
  int32_t VoceSospesa = -1;
  std::string PromptSospeso;

  // Values the commands carry from click to click.
  std::string ValoreImputato;    // the answer to the value prompt asked at arming
  double QuotaCopiata = 0;       // commands 320, 321
  std::string NomeCopiato;
  double OrigineFoglioX = 0, OrigineFoglioY = 0;  // command 254
  // The base clicked for the group being saved (259, then 265); its name is `NomeGruppo`.
  double BaseGruppoX = 0, BaseGruppoY = 0, BaseGruppoZ = 0;
  SchedaCostruzione Costruzione; // the known points of a point construction and its result
  StatoCalcoli Calcoli;          // the area division, the staking out, the eccentric station
  bool AnteprimaFoglio = false;
  StatoDisegno ValoriDisegno;    // the drawing commands' picks and dialog choices

  // The row of the command table that armed the command, so that a re-arming opens what the
  // same tag opened; -1 none.
  int32_t VoceArmata = -1;
  int32_t UltimaVoce = -1;       // that of the last command ended, for its repeat

  // What the pointer machine shows beside the drawing, for the desktop to put on screen.
  std::string LetturaCoordinate;  // "N=... E=..." and the view height
  std::string LetturaSegmento;    // "[D]=... < Az=..." while a segment is drawn
  std::string EtichettaSnap;      // the name of the snap mode beside the pointer
  SuggerimentoPunto Suggerimento;
  int16_t FormaPuntatore = 3;     // as `Puntatore`: 0 cross, 1 arrow, 2 cross hair, 3 small cross
  // Coordinates of the read-out: 1 the pointer, 2 the last point, 0 the view origin.
  int16_t VisualizzaCoordinate = 1;
};

}  // namespace varena
