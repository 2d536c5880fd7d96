// quillcast-tag's command line on arbitrary arguments, run in a folder of its own with a few
// files: the input's pieces (cut at 0x00 bytes) are standard input, then the arguments. Pieces
// that could reach outside the folder ("/" or "..") are not tried. Every run ends with status 0
// or 1; a failure it reports is never a crash.
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "catalogue/tagtool/tagtool.h"
#include "fuzz_pieces.h"

namespace {

void Put(const char* name, const std::string& bytes) {
  std::FILE* f = std::fopen(name, "wb");
  if (!f) std::abort();
  std::fwrite(bytes.data(), 1, bytes.size(), f);
  std::fclose(f);
}

void Prepare() {
  static const bool inFolder = [] {
    char name[] = "/tmp/qc_fuzz_tag_args_XXXXXX";
    if (!::mkdtemp(name) || ::chdir(name) != 0) std::abort();
    return true;
  }();
  (void)inFolder;
  std::string tag = "TAG" + std::string(30, 'T') + std::string(94, ' ') + '\x11';
  Put("a.mp3", std::string(300, 'a') + tag);
  Put("short.mp3", "TAG");
  Put("list.txt", "a.mp3\r\nshort.mp3\nmissing.mp3\n");
  Put("noext", std::string(200, 'n'));
  ::mkdir("sub", 0755);
  Put("sub/b.mp3", std::string(128, 'b'));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string all(reinterpret_cast<const char*>(data), size);
  if (all.find('/') != std::string::npos || all.find("..") != std::string::npos) return 0;
  const std::vector<std::string> pieces = Pieces(data, size, 12);
  Prepare();
  std::istringstream in(pieces[0]);
  std::ostringstream out, err;
  const std::vector<std::string> args(pieces.begin() + 1, pieces.end());
  const int status = qc::tagtool::Run(args, in, out, err);
  if (status != 0 && status != 1) std::abort();
  if (status == 1 && err.str().empty()) std::abort();
  return 0;
}
