#pragma once
// quillcast-tag's commands on given streams, so that the program's main and the fuzz target run
// the same parser and readers.
#include <iosfwd>
#include <string>
#include <vector>

namespace qc::tagtool {

// Runs one command line (without the program's name); returns the exit status.
int Run(const std::vector<std::string>& args, std::istream& in, std::ostream& out,
        std::ostream& err);

}  // namespace qc::tagtool
