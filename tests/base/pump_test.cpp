#include <gtest/gtest.h>

#include <ctime>

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

TEST(Pause, RealClockDoesNotSpin) {
  std::clock_t cpu0 = std::clock();
  auto wall0 = CurrentClock().Now();
  Pause(0.2);
  double wall = CurrentClock().Now() - wall0;
  double cpu = double(std::clock() - cpu0) / CLOCKS_PER_SEC;
  EXPECT_GE(wall, 0.19);
  EXPECT_LT(cpu, wall * 0.5);  // a spinning wait would use all of it
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
