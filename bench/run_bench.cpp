// A 50-file tagging run on generation 5 against a simulated client that answers at once, on the
// real clock. The run is made of waits; what it may add on top of them is its own work. Reports
// the wall time against the sum of the pauses the run asks for (measured by the same run under a
// clock that jumps each pause in one step) and the CPU time against the wall time.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <QApplication>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "ui/qt_glue.h"
#include "ui/services.h"
#include "ui/settings_store.h"
#include "ui/frmmain.h"
#include "ui/frmmenu.h"
#include "run/stats.h"
#include "run/tagging_run.h"
#include "base/prompts.h"
#include "base/pump.h"
#include "codec/id3v1.h"
#include "client/window_system.h"
#include "sim/sim_client.h"
#include "sim/sim_desktop.h"
#include "sim/sim_mail.h"

namespace {

namespace fs = std::filesystem;

constexpr int kFiles = 50;

class SilentPrompts : public qc::Prompts {
 public:
  int MsgBox(const std::string&, int, const std::string&) override { return qc::kAnswerOk; }
  std::optional<std::string> InputBox(const std::string&, const std::string&,
                                      const std::string&, int, int) override {
    return std::nullopt;
  }
  std::string BrowseForFolder(const std::string&) override { return ""; }
};

// Advances by exactly what a pause still has to go, and not at all for the rest of a wait-loop
// pass, so that its elapsed time is the sum of the pauses.
class PauseSumClock : public qc::Clock {
 public:
  float Timer() override { return static_cast<float>(now_); }
  double Now() override { return now_; }
  void IdleUntil(double until) override {
    if (until - now_ != qc::kIdlePassSeconds) now_ = until;
  }
  double now_ = 1.0;  // near midnight the single-precision timer is finest
};

double CpuSeconds() {
  timespec ts{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &ts);
  return static_cast<double>(ts.tv_sec) + static_cast<double>(ts.tv_nsec) / 1e9;
}

class Bench {
 public:
  Bench() : dir_(fs::temp_directory_path() / ("qc_bench_run_" + std::to_string(::getpid()))) {
    fs::create_directories(dir_ / "app");
    setenv("QUILLCAST_HOME", (dir_ / "app").c_str(), 1);
    for (int i = 0; i < kFiles; ++i) {
      const std::string path = (dir_ / ("song" + std::to_string(i) + ".mp3")).string();
      std::ofstream(path, std::ios::binary) << std::string(200000, '\x55');
      qc::WriteId3Tag(path, "Title " + std::to_string(i), "Artist", "Album", "1999", "", "Blues");
      paths_.push_back(path);
    }
  }
  ~Bench() {
    std::error_code ec;
    fs::remove_all(dir_, ec);
  }

  // One whole run on fresh forms and a fresh client.
  void Run() {
    qc::FrmMain frm;
    qc::FrmMenu menu;
    for (const char* item : qc::kOptionItems) menu.setCheck(item, false);
    menu.setCheck("sendlater", true);
    qc::ConnectStats(frm, menu, services_);
    qc::sim::SimClient client(desktop_, qc::sim::ClientOptions{.reactionDelay = 0});
    auto mail = std::make_unique<qc::sim::SimMail>(client);
    for (int i = 0; i < 20; ++i) qc::DoEvents();
    for (std::size_t i = 0; i < paths_.size(); ++i) {
      frm.lstUp->AddItem("song");
      frm.lstPathSelect->AddItem(paths_[i]);
      frm.lstSubj->AddItem("subject " + std::to_string(i));
    }
    qc::TaggingRun(frm, menu, services_);
    queued_ = mail->Outgoing().size();
  }
  std::size_t queued() const { return queued_; }

 private:
  fs::path dir_;
  SilentPrompts prompts_;
  qc::sim::SimDesktop desktop_;
  qc::SettingsStore settings_{(dir_ / "settings").string()};
  const qc::Services services_ = qc::PlatformServices(desktop_, prompts_, settings_);
  std::vector<std::string> paths_;
  std::size_t queued_ = 0;
};

void BM_TaggingRun50(benchmark::State& state) {
  Bench bench;
  PauseSumClock sum;
  {
    qc::ScopedClock scoped(sum);
    bench.Run();
  }
  const double pauses = sum.now_ - 1.0;
  double wall = 0;
  double cpu = 0;
  for (auto _ : state) {
    const double cpu0 = CpuSeconds();
    const auto t0 = std::chrono::steady_clock::now();
    bench.Run();
    wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
    cpu = CpuSeconds() - cpu0;
    state.SetIterationTime(wall);
  }
  if (bench.queued() != kFiles) state.SkipWithError("not every file was queued");
  state.counters["pauses_s"] = pauses;
  state.counters["wall_s"] = wall;
  state.counters["wall_per_pauses"] = wall / pauses;
  state.counters["cpu_per_wall"] = cpu / wall;
}
BENCHMARK(BM_TaggingRun50)->Iterations(1)->UseManualTime()->Unit(benchmark::kSecond);

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  qc::InstallQtPump();  // as the program pumps and idles
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
