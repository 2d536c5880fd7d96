#include "text/text_files.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <dirent.h>
#include <fnmatch.h>
#endif
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>

#include "base/failure.h"
#include "base/pump.h"
#include "base/replace_file.h"
#include "text/text.h"

namespace qc {
namespace {

bool IsNormalFile(const std::string& path, const std::string& name) {
  if (name.empty() || name[0] == '.') return false;  // hidden
  struct stat st {};
  return ::stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode);
}

// The one file channel of these routines. An open while it is in use fails as "File already
// open"; a close only closes what this opener opened. Output replaces the file whole at the close.
bool gChannelTaken = false;

class Channel {
 public:
  Channel() = default;
  Channel(const Channel&) = delete;
  Channel& operator=(const Channel&) = delete;
  // Without a close an output is dropped and the file stays as it was.
  ~Channel() { Release(); }

  void OpenInput(const std::string& path) {
    Claim(path);
    std::FILE* f = std::fopen(path.c_str(), "rb");
    if (!f) RaiseFailure(errno == ENOENT ? kFileNotFound : kPathFileAccessError);
    in_ = f;
    gChannelTaken = taken_ = true;
  }
  void OpenOutput(const std::string& path) {
    Claim(path);
    out_ = std::make_unique<FileReplacement>(path);
    gChannelTaken = taken_ = true;
  }
  std::FILE* input() const {
    if (!in_) RaiseFailure(kBadFileNameOrNumber);
    return in_;
  }
  void Write(const std::string& data) {
    if (!out_) RaiseFailure(kBadFileNameOrNumber);
    out_->Write(data);
  }
  void Close() {
    std::unique_ptr<FileReplacement> out = std::move(out_);
    Release();
    if (out) out->Commit();
  }

 private:
  void Claim(const std::string& path) {
    if (gChannelTaken) RaiseFailure(kFileAlreadyOpen);
    if (path.empty() || path.find('\0') != std::string::npos) RaiseFailure(kBadFileNameOrNumber);
  }
  void Release() {
    if (in_) std::fclose(in_);
    in_ = nullptr;
    out_.reset();
    if (taken_) gChannelTaken = taken_ = false;
  }

  std::FILE* in_ = nullptr;
  std::unique_ptr<FileReplacement> out_;
  bool taken_ = false;
};

std::string ReadAll(std::FILE* f) {
  std::string data;
  char buf[8192];
  std::size_t n;
  while ((n = std::fread(buf, 1, sizeof buf, f)) > 0) data.append(buf, n);
  if (std::ferror(f)) RaiseFailure(kPathFileAccessError);
  return data;
}

}  // namespace

bool FileExists(const std::string& path) {
  if (path.empty()) return false;
  if (path.find('\0') != std::string::npos) RaiseFailure(kBadFileNameOrNumber);
#ifdef _WIN32
  std::size_t slash = path.find_last_of("\\/");
#else
  std::size_t slash = path.find_last_of('/');
#endif
  std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
  if (name.find_first_of("*?") == std::string::npos) return IsNormalFile(path, name);

  std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
  if (name == "*.*") name = "*";  // the platform's "everything"
#ifdef _WIN32
  WIN32_FIND_DATAA found;
  HANDLE search = ::FindFirstFileA(path.c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return false;
  bool any = false;
  do {
    any = IsNormalFile(folder + found.cFileName, found.cFileName);
  } while (!any && ::FindNextFileA(search, &found));
  ::FindClose(search);
  return any;
#else
  std::unique_ptr<DIR, int (*)(DIR*)> dir(::opendir(folder.c_str()), ::closedir);
  if (!dir) return false;
  while (dirent* e = ::readdir(dir.get())) {
    if (::fnmatch(name.c_str(), e->d_name, FNM_PERIOD) == 0 &&
        IsNormalFile(folder + e->d_name, e->d_name)) {
      return true;
    }
  }
  return false;
#endif
}

std::int64_t FileLength(const std::string& path) {
  std::error_code ec;
  const auto size = std::filesystem::file_size(path, ec);
  if (ec) RaiseFailure(kFileNotFound);
  return static_cast<std::int64_t>(size);
}

std::optional<std::string> ReadTextForBox(const std::string& path) {
  if (!FileExists(path)) return std::nullopt;
  std::string text;
  {
    Channel ch;
    SkipOnFailure([&] { ch.OpenInput(path); });
    SkipOnFailure([&] { text = ReadAll(ch.input()); });
    SkipOnFailure([&] { ch.Close(); });
  }
  // CRs first, then CR LF pairs: "x\r\r\n" keeps one CR.
  text = TrimTrailing(text, "\r");
  text = TrimTrailing(text, "\r\n");
  return text;
}

std::string ReadTextFile(const std::string& path) { return ReadTextForBox(path).value_or(""); }

void SaveTextFile(const std::string& path, const std::string& text) {
  Channel ch;
  SkipOnFailure([&] { ch.OpenOutput(path); });
  SkipOnFailure([&] { ch.Write(text + "\r\n"); });
  SkipOnFailure([&] { ch.Close(); });
}

void LoadListFile(const std::string& path,
                  const std::function<void(const std::string&)>& addItem) {
  bool exists = false;
  SkipOnFailure([&] { exists = FileExists(path); });
  if (!exists) return;
  Channel ch;
  std::string data;
  SkipOnFailure([&] { ch.OpenInput(path); });
  SkipOnFailure([&] { data = ReadAll(ch.input()); });
  // The channel stays taken while fields are handed out and events pumped.
  ListFieldReader reader(data);
  while (!reader.AtEnd()) {
    std::string field = reader.Next();
    DoEvents();
    SkipOnFailure([&] { addItem(field); });
  }
  SkipOnFailure([&] { ch.Close(); });
}

std::vector<std::string> LoadListFile(const std::string& path) {
  std::vector<std::string> items;
  LoadListFile(path, [&](const std::string& s) { items.push_back(s); });
  return items;
}

void SaveListFile(const std::string& path, const std::vector<std::string>& items) {
  Channel ch;
  SkipOnFailure([&] { ch.OpenOutput(path); });
  for (const auto& item : items) {
    SkipOnFailure([&] { ch.Write(item + "\r\n"); });
  }
  SkipOnFailure([&] { ch.Close(); });
}

std::string ListFieldReader::Next() {
  const std::size_t n = data_.size();
  while (pos_ < n && (data_[pos_] == ' ' || data_[pos_] == '\t')) ++pos_;
  std::string field;
  if (pos_ < n && data_[pos_] == '"') {
    std::size_t close = data_.find('"', pos_ + 1);
    std::size_t end = close == std::string_view::npos ? n : close;
    field.assign(data_.substr(pos_ + 1, end - pos_ - 1));
    pos_ = close == std::string_view::npos ? n : close + 1;
    // Whatever follows the closing quote up to the delimiter is dropped.
    while (pos_ < n && data_[pos_] != ',' && data_[pos_] != '\r' && data_[pos_] != '\n') ++pos_;
  } else {
    std::size_t end = pos_;
    while (end < n && data_[end] != ',' && data_[end] != '\r' && data_[end] != '\n') ++end;
    field.assign(data_.substr(pos_, end - pos_));
    while (!field.empty() && field.back() == ' ') field.pop_back();
    pos_ = end;
  }
  SkipDelimiter();
  return field;
}

void ListFieldReader::SkipDelimiter() {
  const std::size_t n = data_.size();
  if (pos_ >= n) return;
  if (data_[pos_] == ',') {
    ++pos_;
  } else if (data_[pos_] == '\r') {
    ++pos_;
    if (pos_ < n && data_[pos_] == '\n') ++pos_;
  } else if (data_[pos_] == '\n') {
    ++pos_;
  }
}

}  // namespace qc
