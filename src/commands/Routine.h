// The routines that own the steps of a command: each reads `PassoComando`, stores the
// clicked point, sets the next prompt and returns; at its last step it writes what it made,
// takes the undo snapshot and arms the command again.
#pragma once

#include <string>

namespace varena {

struct Sessione;

// Points and names.
void DisegnoEntitaPunto(Sessione& s);  // 1
void subNomeScambio(Sessione& s);      // 23
void subEditNomeSposta(Sessione& s);   // 24
void subCopiaQuota(Sessione& s);       // 320
void subIncollaQuota(Sessione& s);     // 321
void subMarcaVertice(Sessione& s);     // 377: "<PV>"
void subMarcaDirezione(Sessione& s);   // 378: "<PD>"
std::string PromptIncollaQuota(const Sessione& s);

// Lines.
void DisegnoEntitaLinea(Sessione& s);  // 2, 22, 349

// Information.
void subInfoDistanza(Sessione& s);     // 28, 249
void subInfoAngolo(Sessione& s);       // 213

// Images and the sheet.
void subScalaImmagine(Sessione& s);    // 257, 287, 316, 335, 343, 369, 371
void subImmagineInCima(Sessione& s);   // 336
void subOrigineFoglio(Sessione& s);    // 254

// The memory of points: 219 stores the clicked point under a name.
void subMemorizzaPunto(Sessione& s);

}  // namespace varena
