#pragma once
// The one pump and the one clock.
//
// Everything runs on one thread. Waits pump pending events so that handlers keep running inside
// them, and between pumps they sleep on the event loop until the next event, the next work a pump
// hook announces, or their own deadline. The platform (Qt in the program) registers how its events
// are processed and waited for; cooperative parts such as the simulated client register hooks
// that run after it on every pass.
#include <cstdint>
#include <functional>
#include <limits>
#include <string>

namespace qc {

// Processes pending platform events once, then runs every pump hook once. Never blocks.
void DoEvents();

// One pass of a wait loop: DoEvents, then idles on the event loop until a platform event comes or
// a pump hook has work. When no hook announces any, the pass ends after kIdlePassSeconds, so a
// loop that counts its passes (the re-press waits) still comes to its count. Under a virtual
// clock, time moves on instead.
void WaitEvents();
inline constexpr double kIdlePassSeconds = 0.001;

void SetEventProcessor(std::function<void()> processPlatformEvents);
// Blocks until a platform event has been handled or `seconds` have gone by. Without one, idling
// is a plain sleep.
void SetEventWaiter(std::function<void(double seconds)> waitForEvents);

// When a pump hook next has work, on the scale of Clock::Now(): kWorkNow for the next pump,
// kNoWork for nothing until something else happens. A hook that looks at another process's
// windows, which change without telling us, says "again in N ms" as Now() + N / 1000.
inline constexpr double kWorkNow = -std::numeric_limits<double>::infinity();
inline constexpr double kNoWork = std::numeric_limits<double>::infinity();

using PumpHookId = int;
// A hook without nextWork never wakes a wait.
PumpHookId AddPumpHook(std::function<void()> hook, std::function<double()> nextWork = {});
void RemovePumpHook(PumpHookId id);
// The earliest work of any hook.
double NextHookWork();

// Number of DoEvents calls so far (also those made through WaitEvents and Pause).
std::uint64_t PumpCount();

class Clock {
 public:
  virtual ~Clock() = default;
  // Seconds since midnight, single precision like the system timer; falls back to 0 at midnight.
  virtual float Timer() = 0;
  // Seconds since an arbitrary origin, never wrapping (for deadlines and the simulator's delays).
  virtual double Now() = 0;
  // Between pump passes: idles until Now() reaches `until` or a platform event has been handled.
  // A virtual clock moves on instead, by at most its step.
  virtual void IdleUntil(double until) = 0;
};

// The clock in force. Defaults to the real clock.
Clock& CurrentClock();
// Installs a clock (nullptr restores the real clock). Not owned.
void SetClock(Clock* clock);

class RealClock : public Clock {
 public:
  float Timer() override;
  double Now() override;
  void IdleUntil(double until) override;
};

// Advances only when waits idle, by at most `maxStep` seconds a pass; starts at `timeOfDay`.
class VirtualClock : public Clock {
 public:
  explicit VirtualClock(double timeOfDay = 12 * 3600.0, double maxStep = 0.01)
      : now_(timeOfDay), maxStep_(maxStep) {}
  float Timer() override;
  double Now() override { return now_; }
  void IdleUntil(double until) override;
  void Advance(double seconds) { now_ += seconds; }
  void SetMaxStep(double s) { maxStep_ = s; }

 private:
  double now_;
  double maxStep_;
};

// Installs a clock for the lifetime of the object.
class ScopedClock {
 public:
  explicit ScopedClock(Clock& c) { SetClock(&c); }
  ~ScopedClock() { SetClock(nullptr); }
  ScopedClock(const ScopedClock&) = delete;
  ScopedClock& operator=(const ScopedClock&) = delete;
};

// Waits the given seconds (fractions included) while pumping; a text is read with LeadingNumber.
// Zero or negative returns at once without pumping. The midnight wrap is not handled: a wait that
// spans midnight lasts until the same time of day comes round again.
void Pause(double seconds);
void Pause(const std::string& seconds);

}  // namespace qc
