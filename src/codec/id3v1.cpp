#include "codec/id3v1.h"

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string_view>

#include "base/failure.h"
#include "base/replace_file.h"
#include "base/cp1252.h"
#include "codec/genres.h"
#include "text/text_files.h"

namespace qc {
namespace {

constexpr std::size_t kTitleAt = 3, kArtistAt = 33, kAlbumAt = 63, kYearAt = 93, kCommentAt = 97;
constexpr std::size_t kGenreAt = 127;

std::string Field(const TagBlock& block, std::size_t at, std::size_t width) {
  std::string_view bytes(reinterpret_cast<const char*>(block.data()) + at, width);
  while (!bytes.empty() && bytes.back() == ' ') bytes.remove_suffix(1);
  return Cp1252ToUtf8(bytes);
}

void PutField(TagBlock& block, std::size_t at, std::size_t width, const std::string& text) {
  std::string bytes = Utf8ToCp1252(text);
  bytes.resize(width, ' ');
  std::memcpy(block.data() + at, bytes.data(), width);
}

#ifdef _WIN32
// Bytes as they are (no line-end translation), and no child process inherits the descriptor.
constexpr int kOpenFlags = O_BINARY | O_NOINHERIT;
// Reads and writes at an offset move the descriptor's position, which only these calls use.
ssize_t ReadAt(int fd, void* data, std::size_t size, off_t at) {
  if (::_lseeki64(fd, at, SEEK_SET) != at) return -1;
  return ::_read(fd, data, static_cast<unsigned>(size));
}
ssize_t WriteAt(int fd, const void* data, std::size_t size, off_t at) {
  if (::_lseeki64(fd, at, SEEK_SET) != at) return -1;
  return ::_write(fd, data, static_cast<unsigned>(size));
}
#else
constexpr int kOpenFlags = O_CLOEXEC;
ssize_t ReadAt(int fd, void* data, std::size_t size, off_t at) {
  return ::pread(fd, data, size, at);
}
ssize_t WriteAt(int fd, const void* data, std::size_t size, off_t at) {
  return ::pwrite(fd, data, size, at);
}
#endif

[[noreturn]] void RaiseOpenFailure(int err) {
  RaiseFailure(err == ENOENT || err == ENOTDIR ? kFileNotFound : kPathFileAccessError);
}

// Closes on every way out, so no call leaves a descriptor behind.
class Fd {
 public:
  Fd(const std::string& path, int flags) : fd_(::open(path.c_str(), flags | kOpenFlags)) {
    if (fd_ < 0) RaiseOpenFailure(errno);
  }
  ~Fd() { Close(); }
  void Close() {
    if (fd_ >= 0) ::close(fd_);
    fd_ = -1;
  }
  Fd(const Fd&) = delete;
  Fd& operator=(const Fd&) = delete;
  int get() const { return fd_; }

  // Offset of the block: the file's length less 128. The block's 1-based position must be 1 or
  // more; a shorter file is the platform's bad record number.
  off_t BlockOffset() const {
    struct stat st {};
    if (::fstat(fd_, &st) != 0) RaiseFailure(kPathFileAccessError);
    if (st.st_size - 127 < 1) RaiseFailure(kBadRecordNumber);
    return st.st_size - 128;
  }

 private:
  int fd_;
};

// The first `length` bytes of `from` onto the end of `to`: in the kernel where it can, by reads
// and writes where it cannot.
void CopyBytes(int from, int to, off_t length) {
  off_t at = 0;
#ifndef _WIN32
  while (at < length) {
    const ssize_t n = ::copy_file_range(from, &at, to, nullptr, static_cast<std::size_t>(length - at), 0);
    if (n > 0) continue;
    if (n < 0 && errno == EINTR) continue;
    if (n < 0 && errno != ENOSYS && errno != EXDEV && errno != EINVAL && errno != EOPNOTSUPP) {
      RaiseFailure(kPathFileAccessError);
    }
    break;  // the rest the plain way
  }
#endif
  char buffer[64 * 1024];
  while (at < length) {
    const ssize_t got = ReadAt(from, buffer, static_cast<std::size_t>(std::min<off_t>(sizeof buffer, length - at)), at);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) RaiseFailure(kPathFileAccessError);
    for (ssize_t done = 0; done < got;) {
      const ssize_t put = ::write(to, buffer + done, static_cast<std::size_t>(got - done));
      if (put < 0 && errno == EINTR) continue;
      if (put <= 0) RaiseFailure(kPathFileAccessError);
      done += put;
    }
    at += got;
  }
}

void CheckPath(const std::string& path) {
  if (path.find('\0') != std::string::npos) RaiseFailure(kBadFileNameOrNumber);
}

}  // namespace

bool BlockHasTag(const TagBlock& block) {
  return block[0] == 'T' && block[1] == 'A' && block[2] == 'G';
}

Id3Tag ParseTagBlock(const TagBlock& block) {
  if (!BlockHasTag(block)) return {};
  Id3Tag tag;
  tag.title = Field(block, kTitleAt, 30);
  tag.artist = Field(block, kArtistAt, 30);
  tag.album = Field(block, kAlbumAt, 30);
  tag.year = Field(block, kYearAt, 4);
  tag.comment = Field(block, kCommentAt, 30);
  tag.genre = GenreNameOf(block[kGenreAt]);
  return tag;
}

TagBlock RenderTagBlock(const std::string& title, const std::string& artist,
                        const std::string& album, const std::string& year,
                        const std::string& comment, const std::string& genre) {
  TagBlock block{};
  block[0] = 'T';
  block[1] = 'A';
  block[2] = 'G';
  PutField(block, kTitleAt, 30, title);
  PutField(block, kArtistAt, 30, artist);
  PutField(block, kAlbumAt, 30, album);
  PutField(block, kYearAt, 4, year);
  PutField(block, kCommentAt, 30, comment);
  block[kGenreAt] = static_cast<std::uint8_t>(GenreNumberOf(genre));
  return block;
}

TagBlock ReadTagBlock(const std::string& path) {
  CheckPath(path);
  Fd fd(path, O_RDONLY);
  off_t at = fd.BlockOffset();
  TagBlock block{};
  ssize_t got = ReadAt(fd.get(), block.data(), block.size(), at);
  if (got != static_cast<ssize_t>(block.size())) RaiseFailure(kPathFileAccessError);
  return block;
}

bool HasId3Tag(const std::string& path) {
  if (!FileExists(path)) return false;
  if (path.find('.') == std::string::npos) return false;
  return BlockHasTag(ReadTagBlock(path));
}

Id3Tag ReadId3Tag(const std::string& path) {
  if (!FileExists(path)) return {};
  return ParseTagBlock(ReadTagBlock(path));
}

void WriteId3Tag(const std::string& path, const std::string& title, const std::string& artist,
                 const std::string& album, const std::string& year, const std::string& comment,
                 const std::string& genre) {
  if (!FileExists(path)) return;
  TagBlock block = RenderTagBlock(title, artist, album, year, comment, genre);
  // A normal file: the read-only mark goes, and stays gone.
  struct stat st {};
  if (::stat(path.c_str(), &st) != 0) RaiseOpenFailure(errno);
  if ((st.st_mode & S_IWUSR) == 0 && ::chmod(path.c_str(), (st.st_mode & 07777) | S_IWUSR) != 0) {
    RaiseFailure(kPathFileAccessError);
  }
  // Opened for writing, as a file without rights or locked must still fail here.
  Fd fd(path, O_RDWR);
  const off_t at = fd.BlockOffset();
  // The new file is built beside the old one and takes its place whole, so that a kill in the
  // midst leaves the old tag or the new one.
  FileReplacement out(path, /*addWrite=*/true, /*truncate=*/false);
  const std::string_view bytes(reinterpret_cast<const char*>(block.data()), block.size());
  if (out.inPlace()) {
    if (WriteAt(out.fd(), bytes.data(), bytes.size(), at) != static_cast<ssize_t>(bytes.size())) {
      RaiseFailure(kPathFileAccessError);
    }
  } else {
    CopyBytes(fd.get(), out.fd(), at);
    out.Write(bytes);
  }
  // Closed first: Windows does not replace a file that is open.
  fd.Close();
  out.Commit();
}

}  // namespace qc
