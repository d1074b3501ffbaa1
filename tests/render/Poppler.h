// What a written PDF holds, read back with poppler's command-line tools (pdfinfo, pdftotext,
// pdftoppm), as a reader other than the program sees it.
#pragma once

#include <cstdio>
#include <string>

#include "core/Testo.h"

namespace varena::prova {

// What a shell command prints.
inline std::string Esegui(const std::string& comando) {
  std::string uscita;
  if (FILE* f = popen(comando.c_str(), "r")) {
    for (int c; (c = std::fgetc(f)) != EOF;) uscita += static_cast<char>(c);
    pclose(f);
  }
  return uscita;
}

// An attribute of a word's box in the XHTML of `pdftotext -bbox`, in millimetres.
inline double MmParola(const std::string& bbox, const std::string& parola, const std::string& nome) {
  const auto riga = bbox.rfind("<word", bbox.find(">" + parola + "<"));
  return Val(bbox.substr(bbox.find(nome + "=\"", riga) + nome.size() + 2)) * 25.4 / 72;
}

}  // namespace varena::prova
