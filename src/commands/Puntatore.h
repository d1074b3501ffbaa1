// The pointer machine: the button event, the move event and the step routine `Disegno`.
// The desktop forwards its events here as they come, in view coordinates (metres from the
// view centre, North up); a script does the same. Nothing here waits: each call returns
// once the click or the move has done its work.
#pragma once

#include <string>

namespace varena {

struct Sessione;

// The buttons as the events give them.
enum BottoneMouse : int { BottoneSinistro = 1, BottoneDestro = 2, BottoneCentrale = 4 };

// `Picture1_MouseDown`. The middle button starts a drag; the right button leaves a zoom
// mode or a snap before it ends or repeats a command; the left button resolves the snap
// and hands the point to the command.
void MouseDown(Sessione& s, int bottone, int shift, double xv, double yv);
// `Picture1_MouseMove`: the pan of a drag; the read-out, the snap label, the point
// tooltip, the guides of a zoom and the rubber band of the command.
void MouseMove(Sessione& s, int bottone, int shift, double xv, double yv);
// The release of a button: the end of a drag.
void MouseUp(Sessione& s, int bottone, int shift, double xv, double yv);

// The step routine: a zoom waiting for its point takes the click; the new-point dialog in
// its pick mode takes the nearest point's name; otherwise the command's routine runs.
void Disegno(Sessione& s);

// The routines' first move at each click: the clicked point becomes `Punto1`, with its
// name and row, and the older points shift down to `Punto2` and `Punto3`.
void SpostaPunti(Sessione& s);

// A point given by a dialog (typed coordinates, a polar offset, a memorised point) as if
// clicked with a snap: the one-click snap goes back to free and the command takes it.
void ClicDaDialogo(Sessione& s, double x, double y, double z, const std::string& nome = "*", int indice = -1);

}  // namespace varena
