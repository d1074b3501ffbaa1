// The lists through which a job is chosen: the archive of jobs `VRLAVORI.LAV`, the recent
// jobs, the provisional copies left behind, and the inclusion of other drawings.
#pragma once

#include <string>
#include <vector>

namespace varena {

struct Sessione;

// One row of the archive: leaf name, full path with ".CFG", description, date, and whether
// the job is no longer where the row says (the row still shows, marked).
struct VoceArchivio {
  std::string Nome, Percorso, Descrizione, Data;
  bool Mancante = false;
};
// `CaricaGriglia`: quotes removed, ", , , " put in front and the line split at commas, so a
// description holding a comma pushes the date along.
std::vector<VoceArchivio> CaricaGriglia(const Sessione& s);

// The lines of `LavoriRecenti.txt`, the most recent last.
std::vector<std::string> LavoriRecenti(const Sessione& s);
// "Eliminare Lavori Recenti ?? ": on Yes the list is gone. True when it was removed.
bool SvuotaLavoriRecenti(Sessione& s);

// A provisional copy of the working root: its base path and the original it came from, and
// the line the window shows, "provisional - original".
struct LavoroProvvisorio {
  std::string Provvisorio, Originale, Voce;
};
// `Lavori_Aperti`: every `.CFG` of the provisional folder but the undo generations.
std::vector<LavoroProvvisorio> ElencaLavoriAperti(const Sessione& s);
// The window's buttons on the line chosen (blank: "Selezionare una riga!"). Recover: the
// copy becomes the job worked on, with a snapshot. Save: back to its original, then gone.
bool RecuperaLavoroAperto(Sessione& s, const std::string& voce);
bool SalvaLavoroAperto(Sessione& s, const std::string& voce);
// Every file of the provisional folder removed.
void EliminaTuttiProvvisori(Sessione& s);

// "Eliminare definitivamente il Lavoro " + name: on Yes every file of that base name goes.
bool EliminaLavoro(Sessione& s, const std::string& percorsoCfg);

// Opening a file chosen in the open window: a `.CFG` opens the job.
bool ApriLavoroScelto(Sessione& s, const std::string& percorso);

// `IncludiDisegno`: the chosen files, each followed by "|", become `FileAssociati`; a
// snapshot, then the job is reloaded, which reads the included drawings. Refused, with
// nothing changed, when a job chosen is this one or already includes it.
bool IncludiDisegno(Sessione& s, const std::vector<std::string>& percorsi);
// The drawings included, as `FileAssociati` lists them.
std::vector<std::string> DisegniInclusi(const Sessione& s);
// One of them taken out of the list, and the job reloaded without it. False when it was not
// listed.
bool TogliDisegnoIncluso(Sessione& s, const std::string& percorso);

}  // namespace varena
