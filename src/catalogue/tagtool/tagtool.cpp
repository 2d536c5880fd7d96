// quillcast-tag: the program's ID3v1 codec on the command line, for users who script.
#include <cstdio>
#include <iostream>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/failure.h"
#include "catalogue/codec/genres.h"
#include "catalogue/codec/id3v1.h"
#include "mail/text/text_files.h"

namespace {

constexpr const char* kUsage =
    "usage: quillcast-tag show FILE...\n"
    "       quillcast-tag write FILE [--title T] [--artist A] [--album B] [--year Y]\n"
    "                                [--comment C] [--genre G]\n"
    "       quillcast-tag genres\n"
    "\n"
    "Reads and writes the ID3v1 tag (the last 128 bytes of an MP3 file) the way quill cast does.\n"
    "\n"
    "show    one JSON object per file and line: path, has_tag, title, artist, album, year,\n"
    "        comment, genre\n"
    "write   writes a tag over the file's last 128 bytes; fields not given keep what the file\n"
    "        has. Genre names are looked up as the program does: the first genre whose name\n"
    "        contains the text wins (\"Rock\" is written as Classic Rock), unknown gives Blues.\n"
    "        The file loses its read-only mark.\n"
    "genres  the genre table, one \"number<TAB>name\" a line\n"
    "\n"
    "Every command takes --help. Errors go to standard error with exit status 1.\n";

constexpr const char* kShowUsage =
    "usage: quillcast-tag show FILE...\n"
    "Prints one JSON object per file and line with the keys path, has_tag, title, artist,\n"
    "album, year, comment and genre. Control characters are written as \\u00XX escapes.\n";

constexpr const char* kWriteUsage =
    "usage: quillcast-tag write FILE [--title T] [--artist A] [--album B] [--year Y]\n"
    "                                [--comment C] [--genre G]\n"
    "Fields not given keep what the file's tag holds. Texts are cut to 30 characters (the\n"
    "year to 4); the genre name is looked up as quill cast does, unknown names give Blues.\n";

constexpr const char* kGenresUsage =
    "usage: quillcast-tag genres\n"
    "Prints the genre table, one \"number<TAB>name\" a line, 0 to 147.\n";

struct UsageError {
  std::string message;
};

struct FileError {
  std::string path;
  std::string message;
};

// Escapes for a JSON string: quote, backslash, and every control character (C0, DEL and the C1
// range that unassigned Windows-1252 bytes read as) as \u00XX.
std::string JsonString(std::string_view text) {
  static const char* hex = "0123456789abcdef";
  std::string out = "\"";
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto c = static_cast<unsigned char>(text[i]);
    unsigned code = 0x100;  // not a control character
    if (c < 0x20 || c == 0x7F) {
      code = c;
    } else if (c == 0xC2 && i + 1 < text.size()) {
      const auto next = static_cast<unsigned char>(text[i + 1]);
      if (next >= 0x80 && next <= 0x9F) {
        code = next;
        ++i;
      }
    }
    if (code < 0x100) {
      out += "\\u00";
      out += hex[code >> 4];
      out += hex[code & 0xF];
    } else if (c == '"') {
      out += "\\\"";
    } else if (c == '\\') {
      out += "\\\\";
    } else {
      out += static_cast<char>(c);
    }
  }
  return out + "\"";
}

bool IsHelp(const std::vector<std::string>& args) {
  for (const auto& a : args) {
    if (a == "--help" || a == "-h") return true;
  }
  return false;
}

// A file the codec can work on: it exists as a normal file and holds a whole tag block.
void CheckFile(const std::string& path) {
  bool exists = false;
  try {
    exists = qc::FileExists(path);
  } catch (const qc::RuntimeFailure&) {
  }
  if (!exists) throw FileError{path, "no such file"};
  // The codec's own test comes first; the size check below is for a clearer message.
  std::FILE* f = std::fopen(path.c_str(), "rb");
  if (!f) throw FileError{path, "cannot be opened for reading"};
  std::fseek(f, 0, SEEK_END);
  const long size = std::ftell(f);
  std::fclose(f);
  if (size >= 0 && size < 128) {
    throw FileError{path,
                    "shorter than 128 bytes (" + std::to_string(size) + "), no room for a tag"};
  }
}

std::string FailureMessage(const qc::RuntimeFailure& failure) {
  return failure.text() + " (run-time error " + std::to_string(failure.number()) + ")";
}

int Show(const std::vector<std::string>& args) {
  if (IsHelp(args)) {
    std::cout << kShowUsage;
    return 0;
  }
  for (const auto& a : args) {
    if (a.size() > 1 && a[0] == '-' && a != "--") throw UsageError{"unknown option '" + a + "'"};
  }
  std::vector<std::string> files;
  bool optionsEnd = false;
  for (const auto& a : args) {
    if (a == "--" && !optionsEnd) {
      optionsEnd = true;
      continue;
    }
    files.push_back(a);
  }
  if (files.empty()) throw UsageError{"show needs at least one FILE"};
  int status = 0;
  for (const auto& path : files) {
    try {
      CheckFile(path);
      const bool hasTag = qc::HasId3Tag(path);
      const qc::Id3Tag tag = qc::ReadId3Tag(path);
      std::cout << "{\"path\":" << JsonString(path)
                << ",\"has_tag\":" << (hasTag ? "true" : "false")
                << ",\"title\":" << JsonString(tag.title)
                << ",\"artist\":" << JsonString(tag.artist)
                << ",\"album\":" << JsonString(tag.album) << ",\"year\":" << JsonString(tag.year)
                << ",\"comment\":" << JsonString(tag.comment)
                << ",\"genre\":" << JsonString(tag.genre) << "}\n";
    } catch (const FileError& e) {
      std::cout.flush();
      std::cerr << "quillcast-tag: " << e.path << ": " << e.message << "\n";
      status = 1;
    } catch (const qc::RuntimeFailure& f) {
      std::cout.flush();
      std::cerr << "quillcast-tag: " << path << ": " << FailureMessage(f) << "\n";
      status = 1;
    }
  }
  return status;
}

int Write(const std::vector<std::string>& args) {
  if (IsHelp(args)) {
    std::cout << kWriteUsage;
    return 0;
  }
  static const char* const kFields[] = {"title", "artist", "album", "year", "comment", "genre"};
  std::map<std::string, std::string> given;
  std::vector<std::string> files;
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    if (a.rfind("--", 0) != 0 || a == "--") {
      files.push_back(a);
      continue;
    }
    std::string name = a.substr(2), value;
    bool hasValue = false;
    if (auto eq = name.find('='); eq != std::string::npos) {
      value = name.substr(eq + 1);
      name.resize(eq);
      hasValue = true;
    }
    bool known = false;
    for (const char* f : kFields) known = known || name == f;
    if (!known) throw UsageError{"unknown option '" + a + "'"};
    if (!hasValue) {
      if (i + 1 >= args.size()) throw UsageError{"option '" + a + "' needs a value"};
      value = args[++i];
    }
    given[name] = value;
  }
  if (files.size() != 1) throw UsageError{"write takes exactly one FILE"};
  const std::string& path = files[0];
  CheckFile(path);
  qc::Id3Tag tag = qc::ReadId3Tag(path);
  auto take = [&](const char* name, std::string& field) {
    if (auto it = given.find(name); it != given.end()) field = it->second;
  };
  take("title", tag.title);
  take("artist", tag.artist);
  take("album", tag.album);
  take("year", tag.year);
  take("comment", tag.comment);
  take("genre", tag.genre);
  qc::WriteId3Tag(path, tag.title, tag.artist, tag.album, tag.year, tag.comment, tag.genre);
  return 0;
}

int Genres(const std::vector<std::string>& args) {
  if (IsHelp(args)) {
    std::cout << kGenresUsage;
    return 0;
  }
  if (!args.empty()) throw UsageError{"genres takes no arguments"};
  for (int g = 0; g < qc::kGenreCount; ++g) {
    std::cout << g << '\t' << qc::GenreNameOf(static_cast<unsigned>(g)) << '\n';
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> all(argv + 1, argv + argc);
  if (all.empty()) {
    std::cerr << kUsage;
    return 1;
  }
  const std::string& command = all[0];
  const std::vector<std::string> rest(all.begin() + 1, all.end());
  try {
    if (command == "--help" || command == "-h" || command == "help") {
      std::cout << kUsage;
      return 0;
    }
    if (command == "show") return Show(rest);
    if (command == "write") return Write(rest);
    if (command == "genres") return Genres(rest);
    throw UsageError{"unknown command '" + command + "'"};
  } catch (const UsageError& e) {
    std::cerr << "quillcast-tag: " << e.message << "\n"
              << "try 'quillcast-tag --help'\n";
  } catch (const FileError& e) {
    std::cerr << "quillcast-tag: " << e.path << ": " << e.message << "\n";
  } catch (const qc::RuntimeFailure& f) {
    std::cerr << "quillcast-tag: " << (rest.empty() ? command : rest[0]) << ": "
              << FailureMessage(f) << "\n";
  }
  return 1;
}
