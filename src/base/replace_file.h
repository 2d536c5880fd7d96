#pragma once
// Writing a file so that a kill or a crash at any moment leaves either the old file or the new one,
// never a short one: the bytes go into a temporary file beside it (a hidden name in the same
// folder), which is flushed to disk and then renamed over the path.
//
// Where the folder refuses a new file but the file itself may be written, it is written in place,
// as it always was: the save still happens, only without that guarantee.
#include <string>
#include <string_view>

namespace qc {

class FileReplacement {
 public:
  // Ready to write. An existing file keeps its permission bits; `addWrite` also gives its owner
  // write permission. Raises the path/file-access failure (file-not-found for a missing folder)
  // when neither way is open. In place, `truncate` empties the file first.
  explicit FileReplacement(const std::string& path, bool addWrite = false, bool truncate = true);
  // Without Commit the temporary goes and the file stays as it was.
  ~FileReplacement();
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;

  // True when writing in place: the descriptor is the file itself.
  bool inPlace() const { return inPlace_; }
  int fd() const { return fd_; }
  // Buffered; raises the path/file-access failure when the data cannot be written.
  void Write(std::string_view bytes);
  // Flushes to disk and puts the new file in place of the old; raises the path/file-access
  // failure when that fails or an earlier write failed, and the old file then stays.
  void Commit();

 private:
  void Flush();
  std::string target_;
  std::string temporary_;
  std::string buffer_;
  int fd_ = -1;
  bool inPlace_ = false;
  bool committed_ = false;
  bool failed_ = false;
};

}  // namespace qc
