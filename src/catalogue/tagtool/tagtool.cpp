#include "catalogue/tagtool/tagtool.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/failure.h"
#include "codec/genres.h"
#include "codec/id3v1.h"
#include "text/text_files.h"

namespace qc::tagtool {
namespace {

constexpr const char* kUsage =
    "usage: quillcast-tag show [-r] [--files-from LIST] FILE...\n"
    "       quillcast-tag write FILE [--title T] [--artist A] [--album B] [--year Y]\n"
    "                                [--comment C] [--genre G]\n"
    "       quillcast-tag genres\n"
    "\n"
    "Reads and writes the ID3v1 tag (the last 128 bytes of an MP3 file) the way quill cast does.\n"
    "\n"
    "show    one JSON object per file and line: path, has_tag, title, artist, album, year,\n"
    "        comment, genre; paths also from standard input (-) or a list file, and the\n"
    "        .mp3 files under folders with -r\n"
    "write   writes a tag over the file's last 128 bytes; fields not given keep what the file\n"
    "        has. Genre names are looked up as the program does: the first genre whose name\n"
    "        contains the text wins (\"Rock\" is written as Classic Rock), unknown gives Blues.\n"
    "        The file loses its read-only mark.\n"
    "genres  the genre table, one \"number<TAB>name\" a line\n"
    "\n"
    "Every command takes --help. Errors go to standard error with exit status 1.\n";

constexpr const char* kShowUsage =
    "usage: quillcast-tag show [-r] [--files-from LIST] FILE...\n"
    "Prints one JSON object per file and line with the keys path, has_tag, title, artist,\n"
    "album, year, comment and genre. Control characters are written as \\u00XX escapes.\n"
    "\n"
    "-                    read paths from standard input, one a line\n"
    "--files-from LIST    read paths from the file LIST, one a line (- for standard input)\n"
    "-r, --recursive      a FOLDER stands for every .mp3 file under it, in name order;\n"
    "                     hidden files and folders are left out\n"
    "--                   every later argument is a FILE\n";

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
void AppendJsonString(std::string& out, std::string_view text) {
  static const char* hex = "0123456789abcdef";
  out += '"';
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
  out += '"';
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

// One JSON line for a tag as the codec reads it.
void AppendJson(std::string& out, const std::string& path, bool hasTag, const qc::Id3Tag& tag) {
  // Appended piece by piece: thousands of lines are built into one buffer.
  out += "{\"path\":";
  AppendJsonString(out, path);
  out += hasTag ? ",\"has_tag\":true" : ",\"has_tag\":false";
  const std::pair<const char*, const std::string*> fields[] = {
      {",\"title\":", &tag.title},     {",\"artist\":", &tag.artist},
      {",\"album\":", &tag.album},     {",\"year\":", &tag.year},
      {",\"comment\":", &tag.comment}, {",\"genre\":", &tag.genre}};
  for (const auto& [key, value] : fields) {
    out += key;
    AppendJsonString(out, *value);
  }
  out += "}\n";
}

// What the codec's HasId3Tag and ReadId3Tag give, from one open and one read: the file is a
// normal, not hidden file (FileExists), at least a block long, and its last 128 bytes are read
// once; has_tag also needs a dot somewhere in the path. `at` is a folder to open relative to
// (AT_FDCWD for the working folder), `name` the path from there.
void ShowOne(std::string& out, const std::string& path, int at, const std::string& name) {
  const std::size_t slash = path.find_last_of('/');
  const std::string_view base =
      slash == std::string::npos ? std::string_view(path) : std::string_view(path).substr(slash + 1);
  // Patterns match like the platform's directory search: the codec's own way.
  if (base.find_first_of("*?") != std::string_view::npos) {
    CheckFile(path);
    const bool hasTag = qc::HasId3Tag(path);
    AppendJson(out, path, hasTag, qc::ReadId3Tag(path));
    return;
  }
  if (base.empty() || base[0] == '.' || path.find('\0') != std::string::npos) {
    throw FileError{path, "no such file"};
  }
  // Not blocking on a pipe or device that turns out not to be a normal file.
  const int fd = ::openat(at, name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  if (fd < 0) {
    struct stat st {};
    const bool exists = ::fstatat(at, name.c_str(), &st, 0) == 0 && S_ISREG(st.st_mode);
    throw FileError{path, exists ? "cannot be opened for reading" : "no such file"};
  }
  struct Closer {
    int fd;
    ~Closer() { ::close(fd); }
  } closer{fd};
  struct stat st {};
  if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) throw FileError{path, "no such file"};
  if (st.st_size < 128) {
    throw FileError{path, "shorter than 128 bytes (" + std::to_string(st.st_size) +
                              "), no room for a tag"};
  }
  qc::TagBlock block{};
  if (::pread(fd, block.data(), block.size(), st.st_size - 128) !=
      static_cast<ssize_t>(block.size())) {
    qc::RaiseFailure(qc::kPathFileAccessError);
  }
  const bool hasTag = path.find('.') != std::string::npos && qc::BlockHasTag(block);
  AppendJson(out, path, hasTag, qc::ParseTagBlock(block));
}

bool IsMp3Name(const std::string& name) {
  if (name.size() < 4) return false;
  std::string ext = name.substr(name.size() - 4);
  std::transform(ext.begin(), ext.end(), ext.begin(), [](unsigned char c) { return std::tolower(c); });
  return ext == ".mp3";
}

// The .mp3 files under a folder, in name order, folders after the files beside them.
class Walker {
 public:
  Walker(std::string& out, std::ostream& outStream, std::ostream& err, int& status)
      : out_(out), outStream_(outStream), err_(err), status_(status) {}

  void Folder(const std::string& path, int at, const std::string& name) {
    const int fd = ::openat(at, name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) {
      Report(path, "folder cannot be read");
      return;
    }
    std::unique_ptr<DIR, int (*)(DIR*)> dir(::fdopendir(fd), ::closedir);
    if (!dir) {
      ::close(fd);
      Report(path, "folder cannot be read");
      return;
    }
    std::vector<std::string> files, folders;
    while (const dirent* e = ::readdir(dir.get())) {
      const std::string entry = e->d_name;
      if (entry.empty() || entry[0] == '.') continue;
      unsigned char type = e->d_type;
      if (type == DT_UNKNOWN || type == DT_LNK) {
        struct stat st {};
        if (::fstatat(fd, entry.c_str(), &st, 0) != 0) continue;
        type = S_ISDIR(st.st_mode) ? DT_DIR : S_ISREG(st.st_mode) ? DT_REG : DT_UNKNOWN;
      }
      if (type == DT_DIR) folders.push_back(entry);
      if (type == DT_REG && IsMp3Name(entry)) files.push_back(entry);
    }
    std::sort(files.begin(), files.end());
    std::sort(folders.begin(), folders.end());
    const std::string prefix = path.empty() || path.back() == '/' ? path : path + "/";
    for (const auto& f : files) File(prefix + f, fd, f);
    for (const auto& f : folders) Folder(prefix + f, fd, f);
  }

  void File(const std::string& path, int at, const std::string& name) {
    try {
      ShowOne(out_, path, at, name);
      if (out_.size() >= 64 * 1024) Flush();
    } catch (const FileError& e) {
      Report(e.path, e.message);
    } catch (const qc::RuntimeFailure& f) {
      Report(path, FailureMessage(f));
    }
  }

  void Flush() {
    outStream_.write(out_.data(), static_cast<std::streamsize>(out_.size()));
    out_.clear();
  }

 private:
  void Report(const std::string& path, const std::string& message) {
    Flush();
    outStream_.flush();
    err_ << "quillcast-tag: " << path << ": " << message << "\n";
    status_ = 1;
  }

  std::string& out_;
  std::ostream& outStream_;
  std::ostream& err_;
  int& status_;
};

// Paths one a line; a Windows line end is taken off, empty lines are skipped.
void ReadPaths(std::istream& in, std::vector<std::string>& into) {
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (!line.empty()) into.push_back(line);
  }
}

int Show(const std::vector<std::string>& args, std::istream& in, std::ostream& out,
         std::ostream& err) {
  if (IsHelp(args)) {
    out << kShowUsage;
    return 0;
  }
  bool recursive = false;
  std::vector<std::string> lists;
  std::vector<std::string> named;  // in order; "-" stands for standard input
  bool optionsEnd = false;
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    if (optionsEnd || a == "-" || a.size() < 2 || a[0] != '-') {
      named.push_back(a);
    } else if (a == "--") {
      optionsEnd = true;
    } else if (a == "-r" || a == "--recursive") {
      recursive = true;
    } else if (a == "--files-from") {
      if (i + 1 >= args.size()) throw UsageError{"option '" + a + "' needs a value"};
      lists.push_back(args[++i]);
    } else if (a.rfind("--files-from=", 0) == 0) {
      lists.push_back(a.substr(13));
    } else {
      throw UsageError{"unknown option '" + a + "'"};
    }
  }
  if (named.empty() && lists.empty()) throw UsageError{"show needs at least one FILE"};

  // Lists first, in the order given, then the paths of the command line.
  std::vector<std::string> paths;
  bool stdinTaken = false;
  auto readList = [&](const std::string& list) {
    if (list == "-") {
      if (!stdinTaken) ReadPaths(in, paths);
      stdinTaken = true;
      return;
    }
    std::ifstream file(list);
    if (!file) throw FileError{list, "list cannot be read"};
    ReadPaths(file, paths);
  };
  for (const auto& list : lists) readList(list);
  for (const auto& a : named) {
    if (a == "-" && !optionsEnd) {
      readList("-");
    } else {
      paths.push_back(a);
    }
  }

  int status = 0;
  std::string buffer;
  Walker walker(buffer, out, err, status);
  for (const auto& path : paths) {
    if (recursive) {
      struct stat st {};
      if (::stat(path.c_str(), &st) == 0 && S_ISDIR(st.st_mode)) {
        walker.Folder(path, AT_FDCWD, path);
        continue;
      }
    }
    walker.File(path, AT_FDCWD, path);
  }
  walker.Flush();
  return status;
}

int Write(const std::vector<std::string>& args, std::ostream& out) {
  if (IsHelp(args)) {
    out << kWriteUsage;
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

int Genres(const std::vector<std::string>& args, std::ostream& out) {
  if (IsHelp(args)) {
    out << kGenresUsage;
    return 0;
  }
  if (!args.empty()) throw UsageError{"genres takes no arguments"};
  for (int g = 0; g < qc::kGenreCount; ++g) {
    out << g << '\t' << qc::GenreNameOf(static_cast<unsigned>(g)) << '\n';
  }
  return 0;
}

}  // namespace

int Run(const std::vector<std::string>& all, std::istream& in, std::ostream& out,
        std::ostream& err) {
  if (all.empty()) {
    err << kUsage;
    return 1;
  }
  const std::string& command = all[0];
  const std::vector<std::string> rest(all.begin() + 1, all.end());
  try {
    if (command == "--help" || command == "-h" || command == "help") {
      out << kUsage;
      return 0;
    }
    if (command == "show") return Show(rest, in, out, err);
    if (command == "write") return Write(rest, out);
    if (command == "genres") return Genres(rest, out);
    throw UsageError{"unknown command '" + command + "'"};
  } catch (const UsageError& e) {
    err << "quillcast-tag: " << e.message << "\n"
        << "try 'quillcast-tag --help'\n";
  } catch (const FileError& e) {
    err << "quillcast-tag: " << e.path << ": " << e.message << "\n";
  } catch (const qc::RuntimeFailure& f) {
    err << "quillcast-tag: " << (rest.empty() ? command : rest[0]) << ": " << FailureMessage(f)
        << "\n";
  }
  return 1;
}

}  // namespace qc::tagtool
