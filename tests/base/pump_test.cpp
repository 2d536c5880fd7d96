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

TEST(Pause, ZeroOrNegativeReturnsWithoutPumping) {
  VirtualTime vt;
  auto before = PumpCount();
  Pause(0);
  Pause(-1);
  Pause(std::string("abc"));
  EXPECT_EQ(PumpCount(), before);
}

TEST(Pause, WaitsTheGivenTimeWhilePumpingHandlers) {
  VirtualTime vt;
  int ran = 0;
  PumpHookId id = AddPumpHook([&] { ++ran; });
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

TEST(Pause, RealClockSleepsToTheDeadlineInAFewPasses) {
  std::clock_t cpu0 = std::clock();
  const auto pumps0 = PumpCount();
  auto wall0 = CurrentClock().Now();
  Pause(0.2);
  double wall = CurrentClock().Now() - wall0;
  double cpu = double(std::clock() - cpu0) / CLOCKS_PER_SEC;
  EXPECT_GE(wall, 0.19);
  EXPECT_LT(wall, 0.3);
  EXPECT_LT(cpu, wall * 0.2);  // a spinning wait would use all of it
  // One long sleep, and a few short ones where the single-precision timer lags.
  EXPECT_LT(PumpCount() - pumps0, 10u);
}

// A hook's announced work ends the idling of every kind of wait when it is due, not later.
TEST(Waits, WakeWhenAHookHasWork) {
  struct Case {
    const char* name;
    bool virtualClock;
    bool pause;  // Pause(1.0) rather than wait passes until the work is done
  };
  for (const Case& c : {Case{"pause, virtual", true, true}, Case{"pause, real", false, true},
                        Case{"passes, virtual", true, false}, Case{"passes, real", false, false}}) {
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
    if (c.pause) {
      Pause(c.virtualClock ? 1.0 : 0.1);
    } else {
      PumpBudget budget(100);
      while (doneAt == 0) WaitEvents();
    }
    RemovePumpHook(id);
    EXPECT_GE(doneAt - start, 0.05);
    EXPECT_LT(doneAt - start, 0.05 + (c.virtualClock ? 1e-9 : 0.02));
    EXPECT_LT(PumpCount() - pumps0, c.virtualClock ? 5u : 12u);
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
  int after = 0;
  SkipOnFailure([] { RaiseFailure(kFileNotFound); });
  ++after;
  EXPECT_EQ(after, 1);
  EXPECT_THROW(SkipOnFailure([] { throw std::logic_error("bug"); }), std::logic_error);
  try {
    RaiseFailure(kInvalidArgument);
  } catch (const RuntimeFailure& f) {
    EXPECT_EQ(f.number(), 5);
    EXPECT_EQ(f.text(), "Invalid procedure call or argument");
  }
}

}  // namespace
}  // namespace qc
