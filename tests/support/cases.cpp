#include "support/cases.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>

#include "base/failure.h"

namespace qc::test {
namespace {

std::string Unescaped(const std::string& field) {
  if (field == "\"\"") return "";
  std::string out;
  for (std::size_t i = 0; i < field.size(); ++i) {
    const char next = i + 1 < field.size() ? field[i + 1] : '\0';
    if (field[i] != '\\' || next == '\0') {
      out += field[i];
    } else if (next == 'x' && i + 3 < field.size()) {
      out += static_cast<char>(std::stoi(field.substr(i + 2, 2), nullptr, 16));
      i += 3;
    } else {
      out += next == 't' ? '\t' : next == 'r' ? '\r' : next == 'n' ? '\n' : next == '0' ? '\0' : next;
      ++i;
    }
  }
  return out;
}

}  // namespace

void RunCases(const std::string& path, const std::map<std::string, Routine>& routines) {
  std::ifstream in(path);
  ASSERT_TRUE(in) << path;
  std::set<std::string> used;
  int number = 0;
  for (std::string line; std::getline(in, line);) {
    ++number;
    if (line.empty() || line[0] == '#') continue;
    Args fields;
    for (std::size_t at = 0; at < line.size();) {
      const std::size_t tab = std::min(line.find('\t', at), line.size());
      if (tab > at) fields.push_back(Unescaped(line.substr(at, tab - at)));
      at = tab + 1;
    }
    SCOPED_TRACE(path + ":" + std::to_string(number));
    const auto routine = routines.find(fields.front());
    if (routine == routines.end() || fields.size() < 2) {
      ADD_FAILURE() << "no such routine, or no expected text: " << line;
      continue;
    }
    used.insert(routine->first);
    std::string outcome;
    try {
      outcome = routine->second(Args(fields.begin() + 1, fields.end() - 1));
    } catch (const RuntimeFailure& f) {
      outcome = "error " + std::to_string(f.number());
    }
    EXPECT_EQ(outcome, fields.back()) << line;
  }
  for (const auto& entry : routines) EXPECT_EQ(used.count(entry.first), 1u) << "no case of " << entry.first;
}

}  // namespace qc::test
