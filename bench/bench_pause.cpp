// CPU time that Pause(1.0) takes on the real clock, as a fraction of the wall time it lasts.
// A spinning wait would be 1.0. Qt's own event loop with the same timer is the floor.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <chrono>
#include <ctime>

#include "ui/qt_glue.h"
#include "base/pump.h"

namespace {

double ProcessCpuSeconds() {
  timespec ts{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &ts);
  return static_cast<double>(ts.tv_sec) + static_cast<double>(ts.tv_nsec) * 1e-9;
}

template <class Wait>
void Measure(benchmark::State& state, Wait wait) {
  double cpu = 0, wall = 0;
  const auto pumps0 = qc::PumpCount();
  for (auto _ : state) {
    const double cpu0 = ProcessCpuSeconds();
    const auto wall0 = std::chrono::steady_clock::now();
    wait();
    wall += std::chrono::duration<double>(std::chrono::steady_clock::now() - wall0).count();
    cpu += ProcessCpuSeconds() - cpu0;
  }
  state.counters["cpu_fraction"] = cpu / wall;
  state.counters["wall_s"] = wall / static_cast<double>(state.iterations());
  state.counters["pumps_per_s"] = static_cast<double>(qc::PumpCount() - pumps0) / wall;
}

void MeasurePause(benchmark::State& state) {
  Measure(state, [] { qc::Pause(1.0); });
}

// The pump with nothing registered.
void BM_PauseBare(benchmark::State& state) {
  qc::SetEventProcessor(nullptr);
  MeasurePause(state);
}

// The pump as the program runs it: Qt's event processing on every pass, with a timer ticking.
void BM_PauseWithQtPump(benchmark::State& state) {
  int argc = 1;
  char name[] = "qc_bench_pause";
  char* argv[] = {name, nullptr};
  QCoreApplication app(argc, argv);
  QTimer tick;
  tick.start(50);
  qc::InstallQtPump();
  MeasurePause(state);
  qc::SetEventProcessor(nullptr);
  qc::SetEventWaiter(nullptr);
}

// The floor under the one above: the same timer in Qt's own event loop, for a second.
void BM_QtLoopAlone(benchmark::State& state) {
  int argc = 1;
  char name[] = "qc_bench_pause";
  char* argv[] = {name, nullptr};
  QCoreApplication app(argc, argv);
  QTimer tick;
  tick.start(50);
  Measure(state, [] {
    QEventLoop loop;
    QTimer::singleShot(1000, &loop, &QEventLoop::quit);
    loop.exec();
  });
}

}  // namespace

BENCHMARK(BM_PauseBare)->Iterations(3)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PauseWithQtPump)->Iterations(3)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_QtLoopAlone)->Iterations(3)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
