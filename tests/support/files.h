#pragma once
// Qt-free helpers shared by every suite: a private temporary folder, whole-file bytes, raw tag
// blocks, the number of the run-time failure a call raises and table files of test data.
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace qc::test {

// A fresh folder, removed with everything in it at the end of the scope.
class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;
  const std::string& path() const { return path_; }
  std::string operator/(const std::string& name) const { return path_ + "/" + name; }
  // Writes the bytes to the name in the folder (folders on the way made) and gives its path.
  std::string Make(const std::string& name, const std::string& bytes) const;

 private:
  std::string path_;
};

std::string ReadBytes(const std::string& path);
// Creates the folders on the way.
void WriteBytes(const std::string& path, const std::string& bytes);
// A file of `bytes` bytes, all zero, without writing them one by one.
void WriteSized(const std::string& path, std::int64_t bytes);

// A raw tag block; pad fills the fields (blank or NUL).
std::string TagBytes(const std::string& title, const std::string& artist = "",
                     const std::string& album = "", const std::string& year = "",
                     const std::string& comment = "", unsigned char genre = 0, char pad = ' ');

// The failure number `f` raises, 0 when it returns.
int FailureNumberOf(const std::function<void()>& f);

// One line of a table file split at its blanks, with the text after " |" kept whole.
struct TableRow {
  std::vector<std::string> words;
  std::optional<std::string> text;
};
// The rows of a table file; blank lines and lines that begin with '#' are left out.
std::vector<TableRow> ReadTable(const std::string& path);

}  // namespace qc::test
