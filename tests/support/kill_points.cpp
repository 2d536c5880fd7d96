#include "support/kill_points.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <random>
#include <thread>

namespace qc::test {
namespace {

pid_t Start(const std::function<void()>& work) {
  const pid_t pid = ::fork();
  if (pid == 0) {
    work();
    ::_exit(0);
  }
  return pid;
}

}  // namespace

KillCounts KillAtRandomPoints(int kills, const std::function<void()>& work,
                              const std::function<void(bool killed)>& check) {
  using Clock = std::chrono::steady_clock;
  // The quickest of three whole runs: the first one also warms the caches.
  double whole = 1e9;
  int status = 0;
  for (int i = 0; i < 3; ++i) {
    const auto t0 = Clock::now();
    ::waitpid(Start(work), &status, 0);
    whole = std::min(whole, std::chrono::duration<double>(Clock::now() - t0).count());
    check(false);
  }

  const unsigned seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> at(0.0, whole);
  KillCounts counts;
  for (int round = 0; round < kills * 5 && counts.killed < kills; ++round) {
    const pid_t pid = Start(work);
    std::this_thread::sleep_for(std::chrono::duration<double>(at(random)));
    ::kill(pid, SIGKILL);
    ::waitpid(pid, &status, 0);
    const bool killed = WIFSIGNALED(status);
    (killed ? counts.killed : counts.finished)++;
    check(killed);
  }
  return counts;
}

}  // namespace qc::test
