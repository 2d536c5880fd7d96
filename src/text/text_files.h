#pragma once
// Whole-file text routines and list files. They share one file channel: while one of them has a
// file open (a list file stays open while its fields are added and events pumped), another one's
// open fails and that failure is ignored like every other failure inside them.
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qc {

// True for an existing normal file: directories and hidden (dot) files count as missing. A name
// with * or ? matches like the platform's directory search and counts when anything matches.
// An empty path is false. A path holding a NUL raises the bad-file-name failure.
bool FileExists(const std::string& path);

// The file's length in bytes; a file that is missing or has gone raises the file-not-found failure.
std::int64_t FileLength(const std::string& path);

// The file's text without trailing line ends (first CRs, then CR LF pairs); "" when the file is
// missing or cannot be read.
std::string ReadTextFile(const std::string& path);

// As ReadTextFile, but nullopt when FileExists says no: a text box is then left as it is, while
// an existing file that cannot be read empties it.
std::optional<std::string> ReadTextForBox(const std::string& path);

// Writes text followed by CR LF in place of the file: a kill leaves the old file or the new one.
// Failures are ignored.
void SaveTextFile(const std::string& path, const std::string& text);

// Reads the comma-delimited fields of a list file, pumping events after each field and handing
// it to addItem. Nothing happens when the file is missing; failures are ignored.
void LoadListFile(const std::string& path, const std::function<void(const std::string&)>& addItem);
std::vector<std::string> LoadListFile(const std::string& path);

// Writes each item on a line of its own, ended by CR LF, without quoting, in place of the file as
// SaveTextFile does. Failures are ignored.
void SaveListFile(const std::string& path, const std::vector<std::string>& items);

// The field reader of list files: leading blanks and tabs skipped; a field that begins with a
// double quote runs to the next one (quotes dropped); any other field runs to the next comma or
// line end, trailing blanks dropped.
class ListFieldReader {
 public:
  explicit ListFieldReader(std::string_view data) : data_(data) {}
  bool AtEnd() const { return pos_ >= data_.size(); }
  std::string Next();

 private:
  void SkipDelimiter();
  std::string_view data_;
  std::size_t pos_ = 0;
};

}  // namespace qc
