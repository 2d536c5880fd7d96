// The list-file and tag-file layers on arbitrary file contents: the input is written to a file,
// read as a list file and as a text file, and looked at as an MP3 file's tag. A file shorter
// than a tag block fails as the platform's positioned read does; nothing else may go wrong.
// A tag written over the file reads back the same, and a list saved and read again gives back
// items that hold no delimiter.
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "base/failure.h"
#include "codec/id3v1.h"
#include "text/text_files.h"

namespace {

const std::string& Folder() {
  static const std::string folder = [] {
    char name[] = "/tmp/qc_fuzz_files_XXXXXX";
    if (!::mkdtemp(name)) std::abort();
    return std::string(name);
  }();
  return folder;
}

void Put(const std::string& path, const std::uint8_t* data, std::size_t size) {
  std::FILE* f = std::fopen(path.c_str(), "wb");
  if (!f) std::abort();
  if (size && std::fwrite(data, 1, size, f) != size) std::abort();
  std::fclose(f);
}

bool Plain(const std::string& item) {
  return !item.empty() && item.find_first_of(",\r\n\"") == std::string::npos &&
         item.front() != ' ' && item.front() != '\t' && item.back() != ' ';
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string path = Folder() + "/input.mp3";
  Put(path, data, size);

  const std::vector<std::string> items = qc::LoadListFile(path);
  for (const auto& item : items) {
    if (item.size() > size) std::abort();
  }
  const std::string text = qc::ReadTextFile(path);
  if (text.size() > size) std::abort();

  std::vector<std::string> plain;
  for (const auto& item : items) {
    if (Plain(item)) plain.push_back(item);
  }
  const std::string list = Folder() + "/list.sys";
  qc::SaveListFile(list, plain);
  if (qc::LoadListFile(list) != plain) std::abort();

  try {
    const bool has = qc::HasId3Tag(path);
    const qc::Id3Tag tag = qc::ReadId3Tag(path);
    if (!has && !tag.empty()) std::abort();
    qc::WriteId3Tag(path, tag.title, tag.artist, tag.album, tag.year, tag.comment, tag.genre);
    const qc::Id3Tag back = qc::ReadId3Tag(path);
    if (back.empty() || (has && (back.title != tag.title || back.year != tag.year))) std::abort();
  } catch (const qc::RuntimeFailure& f) {
    if (size >= 128 || f.number() != qc::kBadRecordNumber) std::abort();
  }
  return 0;
}
