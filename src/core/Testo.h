// Text helpers shared by every file and every dialog: number reading and printing,
// masks, rounding, trimming and the letter case of the legacy code page.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace varena {

// The leading number of a text, as the legacy `Val`: blanks before it are skipped, a sign,
// digits, a point and an exponent are taken, anything else (a comma first of all) ends it.
// A text with no number reads 0.
double Val(std::string_view testo);

// Half to even, as the legacy conversion of a double to an integer.
int64_t ArrotondaPari(double x);
// The same, saturated into the range of the target integer so that garbage never overflows.
int16_t InteroCorto(double x);
int32_t InteroLungo(double x);

// A number through a digit picture: `#` a digit shown only if significant, `0` always shown,
// `.` the decimal point. Decimals round half away from zero, in decimal.
std::string FormatoMaschera(double valore, std::string_view maschera);

// Plain form: no blanks, at most 15 significant digits, a point as decimal mark.
std::string FormaSemplice(double valore);
// Print form: a blank (or the minus) before, a blank after, as " 5 ".
std::string FormaStampa(double valore);

// Before any number is read from what the user typed, a comma becomes a point.
std::string VirgolaInPunto(std::string_view testo);

std::string Rifila(std::string_view testo);          // blanks cut on both sides
std::string RifilaDestra(std::string_view testo);
std::string RifilaSinistra(std::string_view testo);
std::string Maiuscolo(std::string_view utf8);         // letters of the code page included
std::string Minuscolo(std::string_view utf8);
bool UgualeSenzaCaso(std::string_view a, std::string_view b);
bool IniziaCon(std::string_view testo, std::string_view prefisso);
bool FinisceCon(std::string_view testo, std::string_view suffisso);
std::string Sostituisci(std::string_view testo, std::string_view cosa, std::string_view con);
// Split at every separator; n separators give n + 1 pieces.
std::vector<std::string> Dividi(std::string_view testo, char separatore);

}  // namespace varena
