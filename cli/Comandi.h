// The commands of varena-cli, callable from the tests with their own streams.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace varena::cli {

// Exit status: 0 done, 1 the job could not be read at all, 2 read but with errors shown,
// 64 wrong usage.
int Esegui(const std::vector<std::string>& argomenti, std::ostream& out, std::ostream& err);

}  // namespace varena::cli
