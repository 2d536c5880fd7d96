// What the golden scripts do not show: how the menu texts are matched, the buddy list's text
// search and the glyph's frame.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "client/buddy_list.h"
#include "client/client_commands.h"
#include "client/vocabulary.h"
#include "sim/sim_client.h"
#include "support/budget.h"
#include "support/cases.h"

namespace qc {
namespace {

using sim::SimClient;
using Lines = std::vector<std::string>;

class ScenarioTest : public ::testing::Test {
 protected:
  test::VirtualTime vt;
  sim::SimDesktop d;
};

// data/main_menu.txt: the entry RunMainMenu runs for a text.
TEST_F(ScenarioTest, RunMainMenuRunsTheFirstEntryHoldingTheText) {
  test::RunCases(QC_TEST_DATA_DIR "/main_menu.txt", {{"RunMainMenu", [&](const test::Args& a) {
                   SimClient c(d, {.generation = std::stoi(a[0])});
                   RunMainMenu(d, a[1]);
                   std::string runs;
                   for (const std::string& entry : c.EventDetails(sim::kEventMenuItem)) runs += entry;
                   return runs;
                 }}});
}

TEST_F(ScenarioTest, BuddyListIsFoundByAnyTextHoldingTheMark) {
  SimClient client(d, {.generation = 3});
  EXPECT_EQ(FindBuddyList(d), 0);
  const Hwnd list = client.OpenDocument("someone's Buddy List Setup");
  client.OpenDocument("Buddy list");  // in front, but no "'s Buddy List"
  EXPECT_EQ(FindBuddyList(d), list);
}

TEST_F(ScenarioTest, GlyphIsClosedOnlyUnderTheFrameWithTheTwoBlankCaption) {
  SimClient c(d, {.generation = 5});
  const Hwnd glyph = c.glyph();
  d.SetText(c.frame(), "America Online");  // one blank: not the frame it looks for
  KillGlyph(d);
  DoEvents();
  EXPECT_TRUE(d.Exists(glyph));
  // Without a modal window, KillModal looks once and returns.
  d.ClearTrace();
  KillModal(d);
  EXPECT_EQ(d.TraceLines(), Lines{"FindWindowA \"_AOL_Modal\" * -> 0"});
}

}  // namespace
}  // namespace qc
