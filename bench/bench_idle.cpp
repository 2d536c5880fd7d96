// CPU time of the program standing idle: quill cast started on its embedded simulated client
// (offscreen, with the client viewer), left alone for a while once started up, as a fraction of
// the wall time.
#include <benchmark/benchmark.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

extern char** environ;

namespace {

namespace fs = std::filesystem;

// CPU time of all threads of a process, in seconds, from the scheduler's nanosecond counts.
double CpuSeconds(pid_t pid) {
  const fs::path tasks = "/proc/" + std::to_string(pid) + "/task";
  std::error_code ec;
  double total = 0;
  bool any = false;
  for (const auto& task : fs::directory_iterator(tasks, ec)) {
    std::ifstream in(task.path() / "schedstat");
    double ns = 0;
    if (in >> ns) {
      total += ns / 1e9;
      any = true;
    }
  }
  return any ? total : -1;
}

void BM_IdleProgram(benchmark::State& state) {
  const fs::path dir = fs::temp_directory_path() / ("qc_bench_idle_" + std::to_string(::getpid()));
  fs::create_directories(dir / "home");
  std::vector<std::string> env = {"QT_QPA_PLATFORM=offscreen", "TMPDIR=" + dir.string(),
                                  "XDG_CONFIG_HOME=" + (dir / "config").string(),
                                  "QUILLCAST_HOME=" + (dir / "home").string(),
                                  "QC_SIM_SCREEN_NAME=BenchUser", "HOME=" + dir.string()};
  std::vector<char*> envp;
  for (auto& e : env) envp.push_back(e.data());
  envp.push_back(nullptr);
  std::string bin = QC_QUILLCAST_BIN;
  char* argv[] = {bin.data(), nullptr};
  const double seconds = 10;
  for (auto _ : state) {
    pid_t pid = 0;
    if (::posix_spawn(&pid, bin.c_str(), nullptr, nullptr, argv, envp.data()) != 0) {
      state.SkipWithError("cannot start the program");
      break;
    }
    std::this_thread::sleep_for(std::chrono::seconds(3));  // start-up: splash, slide, greeting
    const double cpu0 = CpuSeconds(pid);
    const auto t0 = std::chrono::steady_clock::now();
    std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
    const double cpu = CpuSeconds(pid) - cpu0;
    const double wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
    ::kill(pid, SIGKILL);
    ::waitpid(pid, nullptr, 0);
    if (cpu0 < 0) {
      state.SkipWithError("the program ended at start-up");
      break;
    }
    state.SetIterationTime(wall);
    state.counters["cpu_fraction"] = cpu / wall;
    state.counters["cpu_s"] = cpu;
  }
  std::error_code ec;
  fs::remove_all(dir, ec);
}

}  // namespace

BENCHMARK(BM_IdleProgram)->Iterations(1)->UseManualTime()->Unit(benchmark::kSecond);
BENCHMARK_MAIN();
