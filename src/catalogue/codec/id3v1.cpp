#include "catalogue/codec/id3v1.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string_view>

#include "base/failure.h"
#include "base/cp1252.h"
#include "catalogue/codec/genres.h"
#include "mail/text/text_files.h"

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

[[noreturn]] void RaiseOpenFailure(int err) {
  RaiseFailure(err == ENOENT || err == ENOTDIR ? kFileNotFound : kPathFileAccessError);
}

// Closes on every way out, so no call leaves a descriptor behind.
class Fd {
 public:
  Fd(const std::string& path, int flags) : fd_(::open(path.c_str(), flags | O_CLOEXEC)) {
    if (fd_ < 0) RaiseOpenFailure(errno);
  }
  ~Fd() { ::close(fd_); }
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
  ssize_t got = ::pread(fd.get(), block.data(), block.size(), at);
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
  Fd fd(path, O_RDWR);
  off_t at = fd.BlockOffset();
  ssize_t put = ::pwrite(fd.get(), block.data(), block.size(), at);
  if (put != static_cast<ssize_t>(block.size())) RaiseFailure(kPathFileAccessError);
}

}  // namespace qc
