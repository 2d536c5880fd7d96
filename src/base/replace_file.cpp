#include "base/replace_file.h"

#ifdef _WIN32
#include <windows.h>
#include <io.h>
#include <process.h>
#else
#include <unistd.h>
#endif
#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>

#include "base/failure.h"

namespace qc {
namespace {

constexpr std::size_t kBufferBytes = 64 * 1024;

#ifdef _WIN32
// Bytes as they are (no line-end translation), and no child process inherits the descriptor.
constexpr int kOpenFlags = O_BINARY | O_NOINHERIT;
constexpr char kSeparators[] = "\\/";

// The platform keeps a link's name when the file is replaced: the path is used as given.
std::string ResolvedPath(const std::string& path) { return path; }
int SyncToDisk(int fd) {
  return ::FlushFileBuffers(reinterpret_cast<HANDLE>(::_get_osfhandle(fd))) ? 0 : -1;
}
// A read-only file is not replaced: the save fails as a write to it would.
int ReplaceWith(const std::string& from, const std::string& to) {
  return ::MoveFileExA(from.c_str(), to.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)
             ? 0
             : -1;
}
#else
constexpr int kOpenFlags = O_CLOEXEC;
constexpr char kSeparators[] = "/";

// Through a link the file it names is replaced, and the link stays a link.
std::string ResolvedPath(const std::string& path) {
  std::string resolved = path;
  if (char* real = ::realpath(path.c_str(), nullptr)) {
    resolved = real;
    std::free(real);
  }
  return resolved;
}
int SyncToDisk(int fd) { return ::fsync(fd); }
int ReplaceWith(const std::string& from, const std::string& to) {
  return ::rename(from.c_str(), to.c_str());
}
#endif

[[noreturn]] void RaiseFor(int err) {
  RaiseFailure(err == ENOENT || err == ENOTDIR ? kFileNotFound : kPathFileAccessError);
}

// Errors of a folder that takes no new file, while the file itself may still be writable.
bool FolderRefuses(int err) { return err == EACCES || err == EPERM || err == EROFS; }

}  // namespace

FileReplacement::FileReplacement(const std::string& path, bool addWrite, bool truncate)
    : target_(path) {
  if (path.empty() || path.find('\0') != std::string::npos) RaiseFailure(kBadFileNameOrNumber);
  target_ = ResolvedPath(path);
  struct stat st {};
  const bool exists = ::stat(target_.c_str(), &st) == 0;
  mode_t mode = exists ? (st.st_mode & 07777) : 0;
  if (exists && addWrite) mode |= S_IWUSR;

  const std::size_t slash = target_.find_last_of(kSeparators);
  const std::string folder = slash == std::string::npos ? "" : target_.substr(0, slash + 1);
  const std::string name = slash == std::string::npos ? target_ : target_.substr(slash + 1);
  // A hidden name: the catalogue and FileExists never see a temporary left by a kill.
  int err = 0;
  for (int attempt = 0; attempt < 100 && fd_ < 0; ++attempt) {
    temporary_ = folder + "." + name + "." + std::to_string(::getpid()) + "-" +
                 std::to_string(attempt) + ".tmp";
    fd_ = ::open(temporary_.c_str(), O_WRONLY | O_CREAT | O_EXCL | kOpenFlags, 0666);
    err = fd_ < 0 ? errno : 0;
    if (fd_ < 0 && err != EEXIST) break;
  }
  if (fd_ >= 0) {
#ifdef _WIN32
    (void)mode;  // no bits to carry over but the read-only mark, which would refuse the rename
#else
    if (exists && ::fchmod(fd_, mode) != 0) {
      // Not ours to change (another owner's file): keep the temporary's own bits.
    }
#endif
    return;
  }
  temporary_.clear();
  if (!FolderRefuses(err)) RaiseFor(err);
  inPlace_ = true;
  fd_ = ::open(target_.c_str(), O_WRONLY | kOpenFlags | (truncate ? O_CREAT | O_TRUNC : 0), 0666);
  if (fd_ < 0) RaiseFor(errno);
}

FileReplacement::~FileReplacement() {
  if (fd_ >= 0) ::close(fd_);
  if (!committed_ && !temporary_.empty()) ::unlink(temporary_.c_str());
}

void FileReplacement::Write(std::string_view bytes) {
  if (fd_ < 0) RaiseFailure(kPathFileAccessError);
  buffer_.append(bytes);
  if (buffer_.size() >= kBufferBytes) Flush();
}

void FileReplacement::Flush() {
  std::size_t done = 0;
  while (done < buffer_.size()) {
    const ssize_t n = ::write(fd_, buffer_.data() + done, buffer_.size() - done);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) {
      failed_ = true;
      RaiseFailure(kPathFileAccessError);
    }
    done += static_cast<std::size_t>(n);
  }
  buffer_.clear();
}

void FileReplacement::Commit() {
  // A file with a hole where a write failed would be a short one: the old file stays instead.
  if (fd_ < 0 || committed_ || failed_) RaiseFailure(kPathFileAccessError);
  Flush();
  // On disk before the name points at it: after a power cut the name holds old or new data.
  if (!inPlace_ && SyncToDisk(fd_) != 0) RaiseFailure(kPathFileAccessError);
  const int fd = fd_;
  fd_ = -1;
  if (::close(fd) != 0) RaiseFailure(kPathFileAccessError);
  if (!inPlace_ && ReplaceWith(temporary_, target_) != 0) {
    RaiseFailure(kPathFileAccessError);
  }
  committed_ = true;
}

}  // namespace qc
