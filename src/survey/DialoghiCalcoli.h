// The dialogs of the office computations: the triangle solver, the resection, the area
// division, the staking-out table and the eccentric station. Their rows in the dialog table
// point here.
#pragma once

namespace varena {

struct Dialogo;
struct Sessione;

// A button of a computation form: its action runs as the form's routine, an error in it a
// message that leaves the form open.
void BottoneCalcolo(Dialogo& d, const char* nome, const char* etichetta, void (*azione)(Sessione&));
// "Chiudi", also pressed by Esc: closes the form and ends its command when that command is the
// one in progress (`codice` 0: whatever command is in progress).
void BottoneChiudi(Dialogo& d, int codice);

bool ApriTriangoli(Sessione& s);
bool ApriCalcoloPothenot(Sessione& s);

// The two modes of the area division: a cut that translates, one that turns about a pivot.
inline constexpr int kCodiceDivisione2Punti = 193;
inline constexpr int kCodiceDivisioneRotazione = 203;
bool ApriFormDivisioneAree(Sessione& s);
// The clicks of the area division: the contour, then the points of the cut (193, 203).
void subDivisioneAree(Sessione& s);

bool ApriFormTracciamento(Sessione& s);
// The clicks of the staking out: station, orientation, then the points to stake (290).
void subTracciamento(Sessione& s);

bool ApriFormFuoricentro(Sessione& s);
// The clicks of the eccentric station: the centre, then the orientation points (212).
void subFuoriCentro(Sessione& s);

// The clicks of the resection: the three known points (211).
void subCalcolaPothenot(Sessione& s);

// The clicks of `Inquadra su 2 PF`: the two fiducial points of the survey (440).
void subInquadraSuPF(Sessione& s);
// `Inquadra su n PF`: every PF of the drawing found in the archive, the fit and its residuals.
bool ApriInquadraPF(Sessione& s);
// `Setup Inquadramento`: the steps of the moves of the extract's framing.
bool ApriSetupInquadramento(Sessione& s);

}  // namespace varena
