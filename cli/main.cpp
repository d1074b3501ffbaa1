// varena-cli: batch access to the core.
#include <cstdio>
#include <iostream>
#include <string>
#include <vector>

#include "Comandi.h"

int main(int argc, char** argv) {
  std::vector<std::string> argomenti(argv + 1, argv + argc);
  return varena::cli::Esegui(argomenti, std::cout, std::cerr);
}
