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

// The drawing commands: lines.
void subDisegnoPerpenDa(Sessione& s);       // 175
void subLineaProietta(Sessione& s);         // 176
void subLineaLunghezza(Sessione& s);        // 177
void subDisegnoLineaEstremo(Sessione& s);   // 178
void subDisegnoLineaAllunga(Sessione& s);   // 179
void subDisegnoPercorso(Sessione& s);       // 180
void subRettangolo(Sessione& s);            // 183
void subSquadrato(Sessione& s);             // 301
void subDisegnoOrtogonali(Sessione& s);     // 302
void subDisegnoAsseLinea(Sessione& s);      // 315
void subDisegnoParallela(Sessione& s);      // 136
void subParallelaPerPunto(Sessione& s);     // 305
void subVerificaParallele(Sessione& s);     // 226
void subArcoRaccordo(Sessione& s);          // 209

// The drawing commands: circles and arcs.
void subDisegnoCerchioTrePunti(Sessione& s);        // 132
void subDisegnoCerchioCentroTangente(Sessione& s);  // 133
void subDisegnoCerchioCentroRaggio(Sessione& s);    // 134
void subDisegnoArcoTrePunti(Sessione& s);           // 135
void subArcoDuePunti(Sessione& s);                  // 137
void subDisegnoCerchioDiametro(Sessione& s);        // 145
void subDisegnoCerchioInscritto(Sessione& s);       // 181
void subArcoInCerchio(Sessione& s);                 // 182

// The drawing commands: series of points, texts, the callout, pictures.
void subSerieLineare(Sessione& s);          // 184
void subSerieAllineata(Sessione& s);        // 185
void subSerieCircolare(Sessione& s);        // 186
void subSerieRettangolare(Sessione& s);     // 187
void subDisegnoTesto(Sessione& s);          // 701
void subDisegnoTestoDaFile(Sessione& s);    // 197
void subTestodistanza(Sessione& s);         // 198
void subQuotaturaProgressiva(Sessione& s);  // 199
void subIncollaDaAppunti(Sessione& s);      // 207
void subTestoAllinea(Sessione& s);          // 220
void subDisegnaFumetto(Sessione& s);        // 337
void subDisegnaBitMap(Sessione& s);         // 202

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
