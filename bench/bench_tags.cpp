// Reading the tags of 10,000 small files as the catalogue does (HasId3Tag, then ReadId3Tag)
// against a plain C loop doing the same opens and 128-byte reads. The ratio is the figure.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include "codec/id3v1.h"
#include "tag_corpus.h"

namespace {

constexpr int kFiles = qc::bench::TagCorpus::kFiles;

const qc::bench::TagCorpus& Files() {
  static qc::bench::TagCorpus corpus("qc_bench_tags");
  return corpus;
}

std::size_t CodecPass() {
  std::size_t seen = 0;
  for (const auto& p : Files().paths()) {
    if (qc::HasId3Tag(p)) seen += qc::ReadId3Tag(p).title.size();
  }
  return seen;
}

// Two opens and two 128-byte reads per file, like the codec's two calls.
std::size_t PlainPass() {
  std::size_t seen = 0;
  char block[128];
  for (const auto& p : Files().paths()) {
    for (int call = 0; call < 2; ++call) {
      std::FILE* f = std::fopen(p.c_str(), "rb");
      if (!f) continue;
      if (std::fseek(f, -128, SEEK_END) == 0 && std::fread(block, 1, 128, f) == 128) {
        seen += block[0] == 'T';
      }
      std::fclose(f);
    }
  }
  return seen;
}

double Seconds(std::size_t (*pass)()) {
  const auto start = std::chrono::steady_clock::now();
  benchmark::DoNotOptimize(pass());
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void BM_CodecHasThenRead(benchmark::State& state) {
  Files();
  for (auto _ : state) benchmark::DoNotOptimize(CodecPass());
  state.counters["files"] = kFiles;
}

void BM_PlainCOpenRead(benchmark::State& state) {
  Files();
  for (auto _ : state) benchmark::DoNotOptimize(PlainPass());
  state.counters["files"] = kFiles;
}

// Both passes in each iteration, in alternating order, so that both see the same cache state.
void BM_CodecOverPlainRatio(benchmark::State& state) {
  Files();
  PlainPass();  // warm the page cache
  double codec = 0, plain = 0;
  int round = 0;
  for (auto _ : state) {
    if (round++ % 2 == 0) {
      codec += Seconds(CodecPass);
      plain += Seconds(PlainPass);
    } else {
      plain += Seconds(PlainPass);
      codec += Seconds(CodecPass);
    }
  }
  state.counters["codec_ms"] = codec * 1000 / round;
  state.counters["plain_ms"] = plain * 1000 / round;
  state.counters["ratio"] = codec / plain;
}

}  // namespace

BENCHMARK(BM_CodecHasThenRead)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainCOpenRead)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CodecOverPlainRatio)->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK_MAIN();
