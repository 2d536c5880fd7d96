#include "base/pump.h"

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

struct Hooks {
  std::map<PumpHookId, std::function<void()>> byId;
  PumpHookId next = 1;
};
Hooks& TheHooks() {
  static Hooks h;
  return h;
}

std::uint64_t gPumpCount = 0;
Clock* gClock = nullptr;

RealClock& TheRealClock() {
  static RealClock c;
  return c;
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
    auto hook = it->second;  // a copy: the hook may remove itself
    hook();
  }
}

void WaitEvents() {
  DoEvents();
  CurrentClock().Rest(0.001);
}

void SetEventProcessor(std::function<void()> processPlatformEvents) {
  EventProcessor() = std::move(processPlatformEvents);
}

PumpHookId AddPumpHook(std::function<void()> hook) {
  PumpHookId id = TheHooks().next++;
  TheHooks().byId.emplace(id, std::move(hook));
  return id;
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
  localtime_r(&t, &local);
  auto sub = duration_cast<duration<double>>(now - system_clock::from_time_t(t)).count();
  return static_cast<float>(local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec + sub);
}

double RealClock::Now() {
  using namespace std::chrono;
  return duration_cast<duration<double>>(steady_clock::now().time_since_epoch()).count();
}

void RealClock::Rest(double upTo) {
  // Short naps keep handlers within a couple of milliseconds while the core stays idle.
  double nap = std::min(std::max(upTo, 0.0), 0.002);
  if (nap > 0) std::this_thread::sleep_for(std::chrono::duration<double>(nap));
}

float VirtualClock::Timer() { return static_cast<float>(std::fmod(now_, 86400.0)); }

void VirtualClock::Rest(double upTo) {
  double step = std::min(std::max(upTo, 0.0), maxStep_);
  if (step <= 0) step = std::min(maxStep_, 0.001);
  now_ += step;
}

void Pause(double seconds) {
  Clock& clock = CurrentClock();
  const float start = clock.Timer();
  for (;;) {
    float elapsed = clock.Timer() - start;
    if (!(elapsed < seconds)) return;
    DoEvents();
    // After a midnight wrap the difference is negative until the start time comes round again.
    double left = seconds - elapsed;
    clock.Rest(left);
  }
}

void Pause(const std::string& seconds) {
  // The text is read afresh on every pass in the original; it cannot change under us here.
  Pause(LeadingNumber(seconds));
}

}  // namespace qc
