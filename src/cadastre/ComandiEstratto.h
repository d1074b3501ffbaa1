// The menu of the map extract: freeze, thaw, colour, explode, and the dialog that shows its
// settings. Each says so when the job has no extract.
#pragma once

namespace varena {

struct Sessione;

// An extract is associated when the job names one and its text was found.
bool EstrattoAssociato(const Sessione& s);

// ASSOCIA_ESTRATTO: an `.EMP` chosen by the user, brought with its `.PNG` into the folder of
// extracts when it stands elsewhere, becomes the job's extract, unfrozen.
void AzioneAssociaEstratto(Sessione& s);
void AzioneCongelaEstratto(Sessione& s);    // CONGELA_ESTRATTO
void AzioneScongelaEstratto(Sessione& s);   // SCONGELA_ESTRATTO
void AzioneColoreEstratto(Sessione& s);     // COLORE_ESTRATTO
void AzioneEsplodiEstratto(Sessione& s);    // ESPLODI_ESTRATTO
void AzioneConfiguraEstratto(Sessione& s);  // CONFIGURA_ESTRATTO: `FormConfiguraEstratto`
// The dialog of ESTRATTO_INQUADRAMENTO: moves by the step `Text1` to the four winds and
// between them, turns about the view's centre by `Text2` gon either way. False, with a word,
// when there is no extract.
bool ApriSpostaInquadramento(Sessione& s);

}  // namespace varena
