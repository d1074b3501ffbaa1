// The point constructions as commands: the clicks that pick the known points, the dialogs
// that take the field measures, and the first button of each dialog, which computes the
// point and inserts it through the new-point dialog. The geometry is in
// `survey/CostruzionePunti.h`; the dialogs keep their measures as plain fields, so that a
// script fills them and presses their buttons as the user would.
#pragma once

#include <initializer_list>
#include <string>

namespace varena {

struct Sessione;

// The routines of the codes, one click at a time.
void subPuntoPiede(Sessione& s);          // 26: two points of a line, the point to project
void subPuntoApertura(Sessione& s);       // 158: origin, orientation
void subPuntoMedio(Sessione& s);          // 159
void subPuntoBilatera(Sessione& s);       // 160
void subPuntoSquadro(Sessione& s);        // 161: origin, orientation
void subPuntoIncrocio(Sessione& s);       // 164: two lines of two points each
void subPolariCartesiane(Sessione& s);    // 169: the origin
void subPuntoIrraggiamento(Sessione& s);  // 170: station, orientation
void subPuntoTangente(Sessione& s);       // 171: the point, then an entity by the tangent snap
void subPuntoInAvanti(Sessione& s);       // 172
void subStazioneLibera(Sessione& s);      // 332: the two known points
void subIntersecaDirezione(Sessione& s);  // 372: two points of a line, the station
void subPuntoDistanza(Sessione& s);       // 601

// A click of a construction: it becomes the known point of its step (`Sessione::Costruzione`).
// A click while the command's dialog is up starts again from the first point. True once the
// `quanti`-th has come; otherwise the prompt of the next one is shown.
bool Raccogli(Sessione& s, int quanti, const char* dialogo, std::initializer_list<const char*> prompt);
// The last click taken: the dialog of the measures opens.
void ApriMisure(Sessione& s, const char* dialogo);
// The dialog's work is done: it closes and the command waits for its first point again.
void Ricomincia(Sessione& s, const char* dialogo);

// The irradiation's first prompt names the free station just computed, which it offers.
std::string PromptIrraggiamento(const Sessione& s);

// The first button of each dialog: compute, insert, and leave the dialog up or start again.
void ConfermaPuntoBilatera(Sessione& s);
void ConfermaStazioneLibera(Sessione& s);
void ConfermaPuntoPiede(Sessione& s);
void ConfermaPuntoApertura(Sessione& s);
void ConfermaPuntoSquadro(Sessione& s);
void ConfermaIrraggiamento(Sessione& s);
void ConfermaPuntoInAvanti(Sessione& s);
void ConfermaPolariCartesiane(Sessione& s);
void ConfermaIntersecaDirezione(Sessione& s);
void ConfermaPuntoDistanza(Sessione& s);

// The dialogs, built from the points the clicks took (`Sessione::Costruzione`), for the
// dialog table.
bool ApriPuntoBilatera(Sessione& s);
bool ApriStazioneLibera(Sessione& s);
bool ApriPuntoPiede(Sessione& s);
bool ApriPuntoApertura(Sessione& s);
bool ApriPuntoSquadro(Sessione& s);
bool ApriIrraggiamento(Sessione& s);
bool ApriPuntoInAvanti(Sessione& s);
bool ApriPolariCartesiane(Sessione& s);
bool ApriIntersecaDirezione(Sessione& s);
bool ApriPuntoDistanza(Sessione& s);

}  // namespace varena
