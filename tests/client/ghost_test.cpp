// Ghost mode on each generation: exactly the controls of the tables are set, the page is saved,
// the box pressed and the buddy lists closed.
#include "client/ghost.h"

#include <gtest/gtest.h>

#include <optional>
#include <utility>
#include <vector>

#include "client/buddy_list.h"
#include "client/vocabulary.h"
#include "sim/sim_client.h"
#include "sim/sim_im.h"
#include "support/budget.h"

namespace qc {
namespace {

using Writes = std::vector<std::pair<int, int>>;

struct GhostCase {
  int generation;
  bool on;
  Writes writes;
};

class GhostTest : public ::testing::TestWithParam<GhostCase> {};

TEST_P(GhostTest, SetsExactlyTheTablesControlsAndClosesUp) {
  const GhostCase& c = GetParam();
  test::VirtualTime vt;
  sim::SimDesktop d;
  sim::SimClient client(d, {.generation = c.generation});
  sim::SimIm im(client);
  {
    test::PumpBudget budget(20000);
    const bool isNew = c.generation >= 4;
    if (isNew) {
      c.on ? GhostOnNew(d) : GhostOffNew(d);
    } else {
      c.on ? GhostOnOld(d) : GhostOffOld(d);
    }
    for (int i = 0; i < 100; ++i) WaitEvents();  // the posted close
  }
  EXPECT_EQ(im.PrivacyWrites(), c.writes);
  const bool isNew = c.generation >= 4;
  EXPECT_TRUE(client.HasEvent(sim::kEventKeyword, isNew ? "Buddy" : "Buddylist"));
  // The list's 5th icon: pressed twice on the old clients, once on the new.
  int presses = 0;
  for (const auto& t : d.Trace()) {
    if (t.op == "PostMessageA" && t.message == aol::kWmLButtonDown &&
        t.line.find("AOL Child/_AOL_Icon#5 ") != std::string::npos) {
      ++presses;
    }
  }
  EXPECT_EQ(presses, isNew ? 1 : 2);
  ASSERT_EQ(im.Saves().size(), 1u);
  EXPECT_TRUE(im.BuddyWindows().empty());
  EXPECT_EQ(im.Privacy(), 0);  // closed by the OK box
  EXPECT_EQ(d.FindWindowA(aol::kDialogClass, aol::kAolDialogCaption), 0);
  const auto states = im.Saves().back();
  for (const auto& [n, state] : c.writes) EXPECT_EQ(states[static_cast<std::size_t>(n - 1)], state);
}

const Writes kOldOn = {{1, 0}, {2, 0}, {3, 0}, {4, 0}, {5, -1}, {6, 0}, {7, -1}};
const Writes kOldOff = {{1, -1}, {2, 0}, {3, 0}, {4, 0}, {5, 0}, {6, -1}, {7, 0}};

INSTANTIATE_TEST_SUITE_P(Generations, GhostTest,
                         ::testing::Values(GhostCase{2, true, kOldOn}, GhostCase{2, false, kOldOff},
                                           GhostCase{3, true, kOldOn}, GhostCase{3, false, kOldOff},
                                           GhostCase{4, true, {{5, -1}, {7, -1}}},
                                           GhostCase{4, false, {{1, -1}}},
                                           GhostCase{5, true, {{5, -1}, {7, -1}}},
                                           GhostCase{5, false, {{1, -1}}}));

TEST(Ghost, NewRouteLeavesUntouchedBoxesAlone) {
  test::VirtualTime vt;
  sim::SimDesktop d;
  sim::SimClient client(d, {.generation = 5});
  sim::SimIm im(client);
  test::PumpBudget budget(40000);
  GhostOnNew(d);
  GhostOffNew(d);
  const auto states = im.PrivacyStates();
  // A fresh page each time: the second run touched only the first box.
  EXPECT_EQ(states[0], -1);
  for (std::size_t i = 1; i < states.size(); ++i) EXPECT_EQ(states[i], std::nullopt) << i;
}

TEST(Ghost, BothBuddyListsOpenAreBothClosed) {
  test::VirtualTime vt;
  sim::SimDesktop d;
  sim::SimClient client(d, {.generation = 5});
  sim::SimIm im(client);
  im.SetBuddyCaption(sim::BuddyCaption::kBoth);
  {
    test::PumpBudget budget(20000);
    GhostOnNew(d);
    for (int i = 0; i < 100; ++i) WaitEvents();
  }
  EXPECT_TRUE(im.BuddyWindows().empty());
  int closes = 0;
  for (const auto& t : d.Trace()) {
    if (t.op == "PostMessageA" && t.message == aol::kWmClose) ++closes;
  }
  EXPECT_EQ(closes, 2);
}

TEST(Ghost, OnlyThePluralListIsFoundByTheNewRoute) {
  test::VirtualTime vt;
  sim::SimDesktop d;
  sim::SimClient client(d, {.generation = 4});
  sim::SimIm im(client);
  im.SetBuddyCaption(sim::BuddyCaption::kLists);
  {
    test::PumpBudget budget(20000);
    GhostOffNew(d);
    for (int i = 0; i < 100; ++i) WaitEvents();
  }
  EXPECT_EQ(im.PrivacyWrites(), (Writes{{1, -1}}));
  EXPECT_TRUE(im.BuddyWindows().empty());
}

TEST(BuddyList, FoundByAnyTextHoldingTheMark) {
  test::VirtualTime vt;
  sim::SimDesktop d;
  sim::SimClient client(d, {.generation = 3});
  EXPECT_EQ(FindBuddyList(d), 0);
  const Hwnd list = client.OpenDocument("someone's Buddy List Setup");
  client.OpenDocument("Buddy list");  // in front, but no "'s Buddy List"
  EXPECT_EQ(FindBuddyList(d), list);
}

}  // namespace
}  // namespace qc
