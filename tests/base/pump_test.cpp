#include <gtest/gtest.h>

#include <ctime>
#include <optional>

#include "base/failure.h"
#include "base/pump.h"
#include "support/budget.h"

namespace qc {
namespace {

using test::BudgetExhausted;
using test::PumpBudget;
using test::VirtualTime;

TEST(Pause, WaitsTheGivenTimeWhilePumpingHandlers) {
  VirtualTime vt;
  int ran = 0;
  PumpHookId id = AddPumpHook([&] { ++ran; });
  Pause(0);
  Pause(-1);
  Pause(std::string("abc"));
  EXPECT_EQ(ran, 0);
  double start = vt.clock().Now();
  Pause(std::string("0.5"));
  EXPECT_GE(vt.clock().Now() - start, 0.5 - 1e-3);
  EXPECT_LT(vt.clock().Now() - start, 0.52);
  EXPECT_GT(ran, 10);
  RemovePumpHook(id);
}

TEST(Pause, MidnightWrapKeepsTheWaitGoing) {
  // Half a second before midnight, a wait of one second: the timer falls back to 0, the
  // difference turns negative, and the wait is still going a whole day later.
  VirtualTime vt(86400.0 - 0.5, 600);
  double start = vt.clock().Now();
  {
    PumpBudget budget(200);
    EXPECT_THROW(Pause(1.0), BudgetExhausted);
  }
  EXPECT_GT(vt.clock().Now() - start, 86400.0);
  // A wait that starts after midnight is an ordinary one again.
  vt.clock().SetMaxStep(0.01);
  vt.clock().Advance(3600);
  double restart = vt.clock().Now();
  Pause(1.0);
  EXPECT_NEAR(vt.clock().Now() - restart, 1.0, 0.02);
}

// Waits sleep between pumps, on either clock: a hook's announced work ends the idling when it is
// due, not later, and a pause ends on time.
TEST(Waits, SleepUntilAHookHasWorkOrTheirTimeIsUp) {
  struct Case {
    const char* name;
    bool virtualClock;
    bool pause;  // Pause(seconds) rather than wait passes until the work is done
    double seconds, late;  // how long it may run over, the timer being single precision
  };
  for (const Case& c : {Case{"pause, virtual", true, true, 1.0, 0.01}, Case{"pause, real", false, true, 0.1, 0.03},
                        Case{"passes, virtual", true, false, 0, 0}, Case{"passes, real", false, false, 0, 0}}) {
    SCOPED_TRACE(c.name);
    VirtualClock virtualClock(12 * 3600.0, 10.0);  // steps as long as the wait allows
    std::optional<ScopedClock> scoped;
    if (c.virtualClock) scoped.emplace(virtualClock);
    Clock& clock = CurrentClock();
    const double due = clock.Now() + 0.05;
    double doneAt = 0;
    PumpHookId id = AddPumpHook(
        [&] {
          if (doneAt == 0 && clock.Now() >= due) doneAt = clock.Now();
        },
        [&] { return doneAt == 0 ? due : kNoWork; });
    const double start = clock.Now();
    const auto pumps0 = PumpCount();
    const std::clock_t cpu0 = std::clock();
    if (c.pause) {
      Pause(c.seconds);
      EXPECT_GE(clock.Now() - start, c.seconds - 0.01);
      EXPECT_LT(clock.Now() - start, c.seconds + c.late);
    } else {
      PumpBudget budget(100);
      while (doneAt == 0) WaitEvents();
    }
    RemovePumpHook(id);
    EXPECT_GE(doneAt - start, 0.05);
    EXPECT_LT(doneAt - start, 0.05 + (c.virtualClock ? 1e-9 : 0.02));
    // A spinning wait would pump thousands of times, or use all the processor's time.
    EXPECT_LT(PumpCount() - pumps0, c.virtualClock ? 5u : 12u);
    if (!c.virtualClock) {
      EXPECT_LT(double(std::clock() - cpu0) / CLOCKS_PER_SEC, 0.2 * (clock.Now() - start));
    }
  }
}

TEST(WaitEvents, WithNoWorkAnnouncedAPassIsOneIdlePass) {
  // A re-press wait counts its passes: a thousand of them last a second of virtual time, also
  // when the clock could step further.
  {
    VirtualTime vt(12 * 3600.0, 10.0);
    const double start = vt.clock().Now();
    for (int i = 0; i < 1000; ++i) WaitEvents();
    EXPECT_NEAR(vt.clock().Now() - start, 1000 * kIdlePassSeconds, 1e-6);
  }
  // On the real clock the passes neither spin nor sleep on.
  const double wall0 = CurrentClock().Now();
  for (int i = 0; i < 20; ++i) WaitEvents();
  const double wall = CurrentClock().Now() - wall0;
  EXPECT_GE(wall, 20 * kIdlePassSeconds);
  EXPECT_LT(wall, 0.5);
}

TEST(DoEvents, HooksMayRemoveThemselves) {
  int a = 0;
  PumpHookId id = 0;
  id = AddPumpHook([&] {
    ++a;
    RemovePumpHook(id);
  });
  DoEvents();
  DoEvents();
  EXPECT_EQ(a, 1);
}

TEST(SkipOnFailure, SwallowsRunTimeFailuresOnly) {
  SkipOnFailure([] { RaiseFailure(kFileNotFound); });
  EXPECT_THROW(SkipOnFailure([] { throw std::logic_error("bug"); }), std::logic_error);
}

}  // namespace
}  // namespace qc
