#include "base/pump.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <ctime>
#include <map>
#include <thread>
#include <vector>

#include "base/numbers.h"

namespace qc {
namespace {

std::function<void()>& EventProcessor() {
  static std::function<void()> f;
  return f;
}

std::function<void(double)>& EventWaiter() {
  static std::function<void(double)> f;
  return f;
}

struct Hook {
  std::function<void()> run;
  std::function<double()> nextWork;
};
struct Hooks {
  std::map<PumpHookId, Hook> byId;
  PumpHookId next = 1;
};
Hooks& TheHooks() {
  static Hooks h;
  return h;
}

constexpr double kShortestEventWait = 0.002;

std::uint64_t gPumpCount = 0;
Clock* gClock = nullptr;

RealClock& TheRealClock() {
  static RealClock c;
  return c;
}

void Idle(Clock& clock, double until) {
  if (until > clock.Now()) clock.IdleUntil(until);
}

}  // namespace

void DoEvents() {
  ++gPumpCount;
  if (auto& f = EventProcessor()) f();
  // Hooks may add or remove hooks while running: walk a snapshot of the ids.
  std::vector<PumpHookId> ids;
  ids.reserve(TheHooks().byId.size());
  for (auto& [id, hook] : TheHooks().byId) ids.push_back(id);
  for (PumpHookId id : ids) {
    auto it = TheHooks().byId.find(id);
    if (it == TheHooks().byId.end()) continue;
    auto hook = it->second.run;  // a copy: the hook may remove itself
    hook();
  }
}

void WaitEvents() {
  DoEvents();
  Clock& clock = CurrentClock();
  const double work = NextHookWork();
  Idle(clock, work == kNoWork ? clock.Now() + kIdlePassSeconds : work);
}

void SetEventProcessor(std::function<void()> processPlatformEvents) {
  EventProcessor() = std::move(processPlatformEvents);
}

void SetEventWaiter(std::function<void(double)> waitForEvents) {
  EventWaiter() = std::move(waitForEvents);
}

PumpHookId AddPumpHook(std::function<void()> hook, std::function<double()> nextWork) {
  PumpHookId id = TheHooks().next++;
  TheHooks().byId.emplace(id, Hook{std::move(hook), std::move(nextWork)});
  return id;
}

double NextHookWork() {
  double earliest = kNoWork;
  for (auto& [id, hook] : TheHooks().byId) {
    if (hook.nextWork) earliest = std::min(earliest, hook.nextWork());
  }
  return earliest;
}

void RemovePumpHook(PumpHookId id) { TheHooks().byId.erase(id); }

std::uint64_t PumpCount() { return gPumpCount; }

Clock& CurrentClock() { return gClock ? *gClock : TheRealClock(); }
void SetClock(Clock* clock) { gClock = clock; }

float RealClock::Timer() {
  using namespace std::chrono;
  auto now = system_clock::now();
  std::time_t t = system_clock::to_time_t(now);
  std::tm local{};
#ifdef _WIN32
  localtime_s(&local, &t);
#else
  localtime_r(&t, &local);
#endif
  auto sub = duration_cast<duration<double>>(now - system_clock::from_time_t(t)).count();
  return static_cast<float>(local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec + sub);
}

double RealClock::Now() {
  using namespace std::chrono;
  return duration_cast<duration<double>>(steady_clock::now().time_since_epoch()).count();
}

void RealClock::IdleUntil(double until) {
  const double left = until - Now();
  if (left <= 0) return;
  // The event loop's timers count whole milliseconds: a shorter idle is a plain sleep, which
  // keeps the end of a pause on time and delays an event by less than that.
  if (auto& wait = EventWaiter(); wait && left >= kShortestEventWait) {
    wait(left);
  } else {
    std::this_thread::sleep_for(std::chrono::duration<double>(left));
  }
}

float VirtualClock::Timer() { return static_cast<float>(std::fmod(now_, 86400.0)); }

void VirtualClock::IdleUntil(double until) {
  if (until > now_) now_ = std::min(until, now_ + maxStep_);
}

void Pause(double seconds) {
  Clock& clock = CurrentClock();
  const float start = clock.Timer();
  for (;;) {
    float elapsed = clock.Timer() - start;
    if (!(elapsed < seconds)) return;
    DoEvents();
    // After a midnight wrap the difference is negative until the start time comes round again.
    const double left = seconds - elapsed;
    Idle(clock, std::min(clock.Now() + left, NextHookWork()));
  }
}

void Pause(const std::string& seconds) {
  // The text is read afresh on every pass in the original; it cannot change under us here.
  Pause(LeadingNumber(seconds));
}

}  // namespace qc
