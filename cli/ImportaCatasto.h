// The cadastral files into a job from the command line: a CXF sheet or a TAF archive read
// into the job, which is then saved. For `varena-cli import --format cxf|taf`.
#pragma once

#include <ostream>
#include <string>

namespace varena::cli {

// `formato` is "cxf" or "taf" (any case). Exit status as the commands': 0 done, 1 job or file
// not found, 2 the file could not be read (the job then stays as it was), 64 another format.
int ImportaCatasto(const std::string& lavoro, const std::string& file, const std::string& formato, std::ostream& out,
                   std::ostream& err);

}  // namespace varena::cli
