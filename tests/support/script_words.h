#pragma once
// The words of a line of a scenario file: split at blanks; a quoted text keeps its blanks, and in
// it \r \n \t \" \\ stand for themselves and \xNN for the Windows-1252 character NN (one the file
// would not show, such as the no-break blank).
#include <string>
#include <vector>

namespace qc::test {

std::vector<std::string> ScriptWords(const std::string& line);

}  // namespace qc::test
