#pragma once
// Golden tables in a suite's data folder: one case a line, "ROUTINE ARG... EXPECTED", its fields
// parted by tabs (a run of tabs is one break, so that columns line up). Blank lines and lines
// that begin with "#" are skipped. In a field \t \r \n \\ \0 and \xHH stand for their bytes, and
// "" alone for the empty text. EXPECTED "error N" means the call raises run-time failure N.
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace qc::test {

using Args = std::vector<std::string>;
using Routine = std::function<std::string(const Args&)>;

// Plays every case of the file through the routine it names and compares what it gives; each
// routine must have at least one case.
void RunCases(const std::string& path, const std::map<std::string, Routine>& routines);

}  // namespace qc::test
