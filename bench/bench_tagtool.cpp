// quillcast-tag show over 10,000 small files against the floor of the work: a plain C reader doing
// one open, one 128-byte pread at the known offset and one close per file (and the same with an
// fstat for the size, as a reader that does not know it must), and against TagLib reading the
// ID3v1 tag only. The tool runs in-process with its output discarded; the figures are the ratios.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <sstream>
#include <streambuf>
#include <string>
#include <vector>

#include "catalogue/tagtool/tagtool.h"
#include "tag_corpus.h"

#ifdef QC_HAVE_TAGLIB
#include <taglib/id3v1tag.h>
#include <taglib/tfile.h>
#endif

namespace {

constexpr int kFiles = qc::bench::TagCorpus::kFiles;
constexpr off_t kAudio = qc::bench::TagCorpus::kAudioBytes;

const qc::bench::TagCorpus& Files() {
  static qc::bench::TagCorpus corpus("qc_bench_tagtool");
  return corpus;
}

class Discard : public std::streambuf {
 protected:
  int overflow(int c) override { return c; }
  std::streamsize xsputn(const char*, std::streamsize n) override { return n; }
};

std::size_t ToolPass() {
  Discard sink;
  std::ostream out(&sink), err(&sink);
  std::istringstream in(Files().list());
  return static_cast<std::size_t>(qc::tagtool::Run({"show", "-"}, in, out, err) == 0);
}

std::size_t PlainPass(bool withFstat) {
  std::size_t seen = 0;
  char block[128];
  for (const auto& p : Files().paths()) {
    const int fd = ::open(p.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) continue;
    off_t at = kAudio;
    struct stat st {};
    if (withFstat && ::fstat(fd, &st) == 0) at = st.st_size - 128;
    if (::pread(fd, block, sizeof block, at) == 128) seen += block[0] == 'T';
    ::close(fd);
  }
  return seen;
}
std::size_t PlainKnownOffset() { return PlainPass(false); }
std::size_t PlainWithFstat() { return PlainPass(true); }

#ifdef QC_HAVE_TAGLIB
// A TagLib file that reads nothing but its ID3v1 tag.
class Id3v1File : public TagLib::File {
 public:
  explicit Id3v1File(const char* path) : TagLib::File(path), tag_(this, length() - 128) {}
  TagLib::Tag* tag() const override { return const_cast<TagLib::ID3v1::Tag*>(&tag_); }
  TagLib::AudioProperties* audioProperties() const override { return nullptr; }
  bool save() override { return false; }

 private:
  TagLib::ID3v1::Tag tag_;
};

std::size_t TagLibPass() {
  std::size_t seen = 0;
  for (const auto& p : Files().paths()) {
    Id3v1File f(p.c_str());
    seen += f.tag()->title().size();
  }
  return seen;
}
#endif

double Seconds(std::size_t (*pass)()) {
  const auto start = std::chrono::steady_clock::now();
  benchmark::DoNotOptimize(pass());
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// All passes in each iteration, in rotating order, so that they see the same cache state.
void BM_TagToolShowRatios(benchmark::State& state) {
  Files();
  PlainWithFstat();  // warm the page cache
  std::vector<std::pair<const char*, std::size_t (*)()>> passes = {
      {"tool", ToolPass}, {"plain", PlainKnownOffset}, {"plain_fstat", PlainWithFstat}};
#ifdef QC_HAVE_TAGLIB
  passes.push_back({"taglib", TagLibPass});
#endif
  std::vector<double> total(passes.size(), 0.0);
  int round = 0;
  for (auto _ : state) {
    for (std::size_t k = 0; k < passes.size(); ++k) {
      const std::size_t i = (k + static_cast<std::size_t>(round)) % passes.size();
      total[i] += Seconds(passes[i].second);
    }
    ++round;
  }
  for (std::size_t i = 0; i < passes.size(); ++i) {
    state.counters[std::string(passes[i].first) + "_ms"] = total[i] * 1000 / round;
  }
  state.counters["tool_per_plain"] = total[0] / total[1];
  state.counters["tool_per_plain_fstat"] = total[0] / total[2];
#ifdef QC_HAVE_TAGLIB
  state.counters["tool_per_taglib"] = total[0] / total[3];
#else
  state.counters["taglib_missing"] = 1;
#endif
}

}  // namespace

BENCHMARK(BM_TagToolShowRatios)->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK_MAIN();
