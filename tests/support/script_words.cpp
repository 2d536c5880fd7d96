#include "support/script_words.h"

#include "base/cp1252.h"

namespace qc::test {

std::vector<std::string> ScriptWords(const std::string& line) {
  std::vector<std::string> out;
  std::size_t i = 0;
  while (i < line.size()) {
    if (line[i] == ' ') {
      ++i;
      continue;
    }
    std::string w;
    if (line[i] == '"') {
      for (++i; i < line.size() && line[i] != '"'; ++i) {
        const char next = i + 1 < line.size() ? line[i + 1] : '\0';
        if (line[i] == '\\' && next == 'x' && i + 3 < line.size()) {
          const char byte = static_cast<char>(std::stoi(line.substr(i + 2, 2), nullptr, 16));
          w += Cp1252ToUtf8(std::string(1, byte));
          i += 3;
        } else if (line[i] == '\\' && std::string("rnt\"\\").find(next) != std::string::npos) {
          ++i;
          w += next == 'r' ? '\r' : next == 'n' ? '\n' : next == 't' ? '\t' : next;
        } else {
          w += line[i];
        }
      }
      ++i;
    } else {
      for (; i < line.size() && line[i] != ' '; ++i) w += line[i];
    }
    out.push_back(w);
  }
  return out;
}

}  // namespace qc::test
