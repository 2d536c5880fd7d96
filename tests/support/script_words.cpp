#include "support/script_words.h"

#include <algorithm>
#include <filesystem>

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

std::string Quoted(const std::string& text) {
  std::string out = "\"";
  for (char c : text) {
    switch (c) {
      case '\r': out += "\\r"; break;
      case '\n': out += "\\n"; break;
      case '\t': out += "\\t"; break;
      case '\0': out += "\\0"; break;
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      default: out += c;
    }
  }
  return out + "\"";
}

std::vector<std::string> ScenarioNames(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& f : std::filesystem::directory_iterator(folder)) {
    if (f.path().extension() == ".txt") names.push_back(f.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string TestName(std::string name) {
  for (char& c : name) {
    if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
  }
  return name;
}

}  // namespace qc::test
