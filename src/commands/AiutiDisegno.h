// What the drawing routines share: the points of the clicks, the entity under a click, the
// highlight of a picked entity, and the way a command starts its next figure.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "survey/Primitive.h"

namespace varena {

struct Sessione;

PuntoXYZ PuntoCorrente(const Sessione& s);
PuntoXYZ PuntoUno(const Sessione& s);
PuntoXYZ PuntoDue(const Sessione& s);

// The two ends of line `riga` as its row holds them.
PuntoXYZ InizioLinea(const Sessione& s, int32_t riga);
PuntoXYZ FineLinea(const Sessione& s, int32_t riga);
bool LineaViva(const Sessione& s, int32_t riga);
bool EntitaViva(const Sessione& s, uint8_t tipo, int32_t riga);

// The live line nearest to the click, or -1.
int32_t LineaCliccata(const Sessione& s);
// The line, circle or arc nearest to the click; false when the nearest entity is of another
// kind, which the routines ignore.
bool CurvaCliccata(const Sessione& s, uint8_t& tipo, int32_t& riga);

// The records of an entity shown highlighted (1) or plain (0), then the repaint.
void EvidenziaEntita(Sessione& s, uint8_t tipo, int32_t riga, int16_t stato);

// The next figure of a command whose dialog or value was asked at arming: step 0 and the
// first prompt (or `prompt`), without asking again.
void Riprendi(Sessione& s, std::string_view prompt = {});

// A number asked with the value prompt, `predefinito` offered. No value when cancelled: the
// command has ended.
std::optional<double> ChiediNumero(Sessione& s, std::string_view testo, std::string_view titolo,
                                   std::string_view predefinito = {});

// The value typed at arming, as a length: its absolute value.
double ValoreArmato(const Sessione& s);

// The number of characters of a text kept in UTF-8.
size_t Caratteri(std::string_view utf8);

}  // namespace varena
