// The common error path: each routine that does input or output records its name in
// `RoutineCorrente` and runs under one catch-all that shows the "Rilevato errore" box.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace varena {

struct Sessione;

// A failure of input or output, with the text the user reads in the error box.
class ErroreVarena : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The texts of the legacy run-time errors that the box reports.
inline constexpr const char* kErroreFineFile = "Input past end of file";
inline constexpr const char* kErroreFileNonTrovato = "File not found";
inline constexpr const char* kErrorePercorso = "Path not found";
inline constexpr const char* kErrorePermesso = "Permission denied";
inline constexpr const char* kErroreIndice = "Subscript out of range";
inline constexpr const char* kErroreMemoria = "Out of memory";
inline constexpr const char* kErroreTipo = "Type mismatch";
inline constexpr const char* kErroreFormato = "Invalid file format";
inline constexpr const char* kErroreNomeFile = "Bad file name or number";

// The body of the box, as the user reads it.
std::string TestoErroreComune(std::string_view descrizione, std::string_view routine);
void MostraErroreComune(Sessione& s, std::string_view descrizione);

// Runs `f` under the common error path; false when it failed. The routine's state stays as
// far as it got, as the legacy handler leaves it.
template <class F>
bool Protetto(Sessione& s, F&& f) {
  try {
    f();
    return true;
  } catch (const std::bad_alloc&) {
    MostraErroreComune(s, kErroreMemoria);
  } catch (const std::exception& e) {
    MostraErroreComune(s, e.what());
  } catch (...) {
    MostraErroreComune(s, "?");
  }
  return false;
}

}  // namespace varena
