// Choosing a folder of tagged files and filling lstMp3 (one pump per file) in the shown main
// window, against the codec-only loop over the same files; and the peak memory of a catalogue of
// 32,767 entries. The form is shown: a visible list is laid out and painted as files arrive.
#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <time.h>
#include <unistd.h>

#include <QApplication>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "ui/list_box.h"
#include "ui/qt_glue.h"
#include "ui/frmmain.h"
#include "base/prompts.h"
#include "codec/id3v1.h"
#include "catalogue/folder_list.h"

namespace {

namespace fs = std::filesystem;

// The folder chooser always answers with the folder under test.
class FixedFolder : public qc::Prompts {
 public:
  int MsgBox(const std::string&, int, const std::string&) override { return qc::kAnswerOk; }
  std::optional<std::string> InputBox(const std::string&, const std::string&,
                                      const std::string&, int, int) override {
    return std::nullopt;
  }
  std::string BrowseForFolder(const std::string&) override { return folder; }
  std::string folder;
};

class Folder {
 public:
  Folder(const std::string& tag, int files)
      : dir_(fs::temp_directory_path() /
             ("qc_bench_catalogue_" + tag + "_" + std::to_string(::getpid()))) {
    fs::create_directories(dir_);
    std::string block = "TAG";
    for (const char* field : {"A Title", "An Artist", "An Album"}) {
      std::string f = field;
      f.resize(30, ' ');
      block += f;
    }
    block += "1999" + std::string(30, ' ') + '\x11';
    const std::string audio(2048, '\x55');
    for (int i = 0; i < files; ++i) {
      paths_.push_back((dir_ / ("song" + std::to_string(i) + ".mp3")).string());
      std::ofstream(paths_.back(), std::ios::binary) << audio << block;
    }
  }
  ~Folder() {
    std::error_code ec;
    fs::remove_all(dir_, ec);
  }
  std::string path() const { return dir_.string(); }
  const std::vector<std::string>& paths() const { return paths_; }

 private:
  fs::path dir_;
  std::vector<std::string> paths_;
};

// Wall and CPU seconds of one stretch; the CPU time is the figure that load on a shared machine
// does not blur.
struct Seconds {
  double wall = 0;
  double cpu = 0;
  Seconds& operator+=(const Seconds& o) {
    wall += o.wall;
    cpu += o.cpu;
    return *this;
  }
};

double CpuNow() {
  timespec ts{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &ts);
  return static_cast<double>(ts.tv_sec) + static_cast<double>(ts.tv_nsec) / 1e9;
}

template <class F>
Seconds Measure(F&& work) {
  const double cpu0 = CpuNow();
  const auto start = std::chrono::steady_clock::now();
  work();
  return {std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count(),
          CpuNow() - cpu0};
}

struct Window {
  Window() {
    form = std::make_unique<qc::FrmMain>();
    form->show();
    for (int i = 0; i < 20; ++i) QCoreApplication::processEvents();
  }
  Seconds ChooseSeconds(const std::string& folder) {
    form->lstMp3->Clear();
    form->lstPaths->Clear();
    prompts.folder = folder;
    // Until the list shows its last entries.
    return Measure([&] {
      qc::ChooseFolder(*form, prompts);
      form->lstMp3->Flush();
      QCoreApplication::processEvents();
    });
  }
  FixedFolder prompts;
  std::unique_ptr<qc::FrmMain> form;
};

Seconds CodecSeconds(const Folder& f) {
  return Measure([&] {
    std::size_t seen = 0;
    for (const auto& p : f.paths())
      if (qc::HasId3Tag(p)) seen += qc::ReadId3Tag(p).title.size();
    benchmark::DoNotOptimize(seen);
  });
}

long PeakKilobytes() {
  rusage u{};
  getrusage(RUSAGE_SELF, &u);
  return u.ru_maxrss;
}

void BM_ChooseFolderOverCodecRatio(benchmark::State& state) {
  const auto files = static_cast<int>(state.range(0));
  Folder folder(std::to_string(files), files);
  Window w;
  CodecSeconds(folder);  // warm the page cache
  Seconds choose, codec;
  int round = 0;
  for (auto _ : state) {
    if (round++ % 2 == 0) {
      choose += w.ChooseSeconds(folder.path());
      codec += CodecSeconds(folder);
    } else {
      codec += CodecSeconds(folder);
      choose += w.ChooseSeconds(folder.path());
    }
  }
  state.counters["choose_ms"] = choose.wall * 1000 / round;
  state.counters["codec_ms"] = codec.wall * 1000 / round;
  state.counters["ratio"] = choose.wall / codec.wall;
  state.counters["cpu_ratio"] = choose.cpu / codec.cpu;
  state.counters["entries"] = w.form->lstMp3->ListCount();
}

void BM_PeakMemoryOf32767Entries(benchmark::State& state) {
  static Folder folder("32767", 32767);
  Window w;
  const long before = PeakKilobytes();
  for (auto _ : state) w.ChooseSeconds(folder.path());
  state.counters["entries"] = w.form->lstMp3->ListCount();
  state.counters["peak_kB"] = static_cast<double>(PeakKilobytes());
  state.counters["peak_growth_kB"] = static_cast<double>(PeakKilobytes() - before);
}

}  // namespace


BENCHMARK(BM_ChooseFolderOverCodecRatio)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(4)
    ->Arg(2000)
    ->Arg(10000)
    ->Arg(32767);
BENCHMARK(BM_PeakMemoryOf32767Entries)->Unit(benchmark::kMillisecond)->Iterations(1);

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  qc::InstallQtPump();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
