// What the golden scripts do not show: how the menu texts are matched, the buddy list's text
// search, and the driver's waits against a client that never gives them what they wait for.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "client/buddy_list.h"
#include "client/client_commands.h"
#include "client/ghost.h"
#include "client/instant_message.h"
#include "client/vocabulary.h"
#include "client/write_mail.h"
#include "sim/sim_client.h"
#include "sim/sim_im.h"
#include "sim/sim_mail.h"
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

// Waits never give up: against a client that never completes what they wait for, each keeps
// pumping until the budget runs out, and nothing it sends breaks the message table.
TEST_F(ScenarioTest, WaitsKeepPumpingWhenTheClientNeverAnswers) {
  struct Case {
    const char* what;
    std::function<void(SimClient&)> arrange;
    std::function<void()> run;
  };
  const Case cases[] = {
      {"a Write Mail window that is never complete",
       [](SimClient&) {},
       [this] { SendFileMail50(d, "a@aol.com", "s", "b", "C:\\x.mp3", true); }},
      {"a modal window the user left open",
       [](SimClient& c) { c.OpenTopLevel(aol::kModalClass, "Download Manager", c.frame()); },
       [this] { SendFileMail40(d, "a@aol.com", "s", "b", "C:\\x.mp3", true); }},
      {"a path the dialog never takes",
       [](SimClient&) {},
       [this] { SendFileMail50(d, "a@aol.com", "s", "b", "C:\\gone.mp3", false); }},
      {"a message window that never comes",
       [](SimClient& c) { c.OnKeywordPrefix(aol::kImKeywordPrefix, [](const std::string&) {}); },
       [this] { SendInstantMessage(d, "jo", "x"); }},
      {"a privacy page that never comes",
       [](SimClient& c) { c.OnKeyword(aol::kKeywordBuddy, [](const std::string&) {}); },
       [this] { GhostOnNew(d); }},
  };
  for (const Case& k : cases) {
    SCOPED_TRACE(k.what);
    sim::ClientOptions options{.generation = 5, .noise = true};
    if (std::string(k.what).find("never complete") != std::string::npos) {
      options.lastDelay = 1e9;
    }
    if (std::string(k.what).find("modal") != std::string::npos) options.generation = 4;
    SimClient client(d, options);
    sim::SimMail mail(client);
    sim::SimIm im(client);
    k.arrange(client);
    d.SetTraceLimit(0);
    const std::uint64_t before = PumpCount();
    {
      test::PumpBudget budget(5000);
      EXPECT_THROW(k.run(), test::BudgetExhausted);
    }
    EXPECT_GT(PumpCount() - before, 5000u);
    EXPECT_TRUE(d.Violations().empty()) << d.Violations().front();
    EXPECT_TRUE(mail.Outgoing().empty());
  }
}

}  // namespace
}  // namespace qc
