#pragma once
// The words of a line of a scenario file: split at blanks; a quoted text keeps its blanks, and in
// it \r \n \t \" \\ stand for themselves and \xNN for the Windows-1252 character NN (one the file
// would not show, such as the no-break blank).
#include <string>
#include <vector>

namespace qc::test {

std::vector<std::string> ScriptWords(const std::string& line);


// A text in quotes, with \r \n \t \0 \" and \\ written out, for outcome lines.
std::string Quoted(const std::string& text);

// The names of the .txt files in a folder, sorted: one scenario each.
std::vector<std::string> ScenarioNames(const std::string& folder);

// A scenario's name as a test's name: letters and digits, the rest as '_'.
std::string TestName(std::string name);

}  // namespace qc::test
