#pragma once
// The one pump and the one clock.
//
// Everything runs on one thread. Waits pump pending events so that handlers keep running inside
// them. The platform (Qt in the program) registers how its events are processed; cooperative parts
// such as the simulated client register hooks that run after it on every pass.
#include <cstdint>
#include <functional>
#include <string>

namespace qc {

// Processes pending platform events once, then runs every pump hook once. Never blocks.
void DoEvents();

// A pump pass of a wait loop: DoEvents, then lets the clock rest briefly so that a loop that
// only looks for a window does not burn a core. Under a virtual clock, time moves on instead.
void WaitEvents();

void SetEventProcessor(std::function<void()> processPlatformEvents);

using PumpHookId = int;
PumpHookId AddPumpHook(std::function<void()> hook);
void RemovePumpHook(PumpHookId id);

// Number of DoEvents calls so far (also those made through WaitEvents and Pause).
std::uint64_t PumpCount();

class Clock {
 public:
  virtual ~Clock() = default;
  // Seconds since midnight, single precision like the system timer; falls back to 0 at midnight.
  virtual float Timer() = 0;
  // Seconds since an arbitrary origin, never wrapping (for the simulator's delays).
  virtual double Now() = 0;
  // Called between pump passes of a wait that still has `upTo` seconds to go.
  // A real clock idles the thread for a short while; a virtual clock advances.
  virtual void Rest(double upTo) = 0;
};

// The clock in force. Defaults to the real clock.
Clock& CurrentClock();
// Installs a clock (nullptr restores the real clock). Not owned.
void SetClock(Clock* clock);

class RealClock : public Clock {
 public:
  float Timer() override;
  double Now() override;
  void Rest(double upTo) override;
};

// Advances only when waits rest, by at most `maxStep` seconds a pass; starts at `timeOfDay`.
class VirtualClock : public Clock {
 public:
  explicit VirtualClock(double timeOfDay = 12 * 3600.0, double maxStep = 0.01)
      : now_(timeOfDay), maxStep_(maxStep) {}
  float Timer() override;
  double Now() override { return now_; }
  void Rest(double upTo) override;
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
