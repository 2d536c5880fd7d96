#include "client/client_commands.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "client/vocabulary.h"
#include "sim/sim_client.h"
#include "support/budget.h"

namespace qc {
namespace {

using sim::SimClient;
using sim::SimDesktop;
using test::BudgetExhausted;
using test::PumpBudget;
using Lines = std::vector<std::string>;

const std::string kIcon3 = "AOL Frame25/AOL Toolbar/_AOL_Toolbar/_AOL_Icon#3";

Lines Posted(const std::string& target, std::int32_t key) {
  return {"PostMessageA " + target + " 256 " + std::to_string(key) + " 0",
          "PostMessageA " + target + " 257 " + std::to_string(key) + " 0"};
}

Lines PostedClick(const std::string& target) {
  return {"PostMessageA " + target + " 513 0 0", "PostMessageA " + target + " 514 0 0"};
}

Lines operator+(Lines a, const Lines& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

std::size_t CountLines(const Lines& lines, const std::string& line) {
  return static_cast<std::size_t>(std::count(lines.begin(), lines.end(), line));
}

class ClientCommandsTest : public ::testing::Test {
 protected:
  test::VirtualTime vt;
  SimDesktop d;

  template <class Done>
  void PumpUntil(Done done, std::uint64_t passes = 3000) {
    PumpBudget budget(passes);
    while (!done()) WaitEvents();
  }
  // Lets the client finish what it was asked to do.
  void Settle() {
    for (int i = 0; i < 100; ++i) WaitEvents();
  }
  std::string MenuCommand(const SimClient& c, const std::string& entry) {
    return "SendMessageA AOL Frame25 273 " + std::to_string(c.CommandId(entry)) + " 0";
  }
};

// ---------------------------------------------------------------- RunMainMenu

TEST_F(ClientCommandsTest, RunMainMenuMatchesPartsCaseBlindFirstEntryWins) {
  struct Case {
    int generation;
    const char* text;
    const char* runs;  // nullptr: nothing
  };
  const Case cases[] = {
      {5, "Keyword...", "Keyword..."},
      {3, "KEYWORD...", "Keyword..."},
      {2, "keyword...", "Keyword..."},
      {4, "Keyword", "Keyword..."},
      {4, "read &outgoing", "Read &Outgoing Flashmail"},
      {5, "re", "Read &Mail"},  // the first entry, left to right and top to bottom
      {3, "re", "&Directory of Services"},
      {3, "Compose Mail", "&Compose Mail"},
      {3, "&compose", "&Compose Mail"},
      {5, "&About America Online", "&About America Online"},
      {3, "Read &Outgoing Flashmail", "Read &Outgoing Flashmail"},
      {3, "Read Outgoing", nullptr},  // the client's ampersands are part of the text
      {2, "Read &Outgoing Flashmail", nullptr},
      {5, "&Compose Mail", nullptr},
      {5, "Send An Instant Message", "Send An Instant Message"},
      {5, "&Mail", "Read &Mail"},  // drop-down titles are not entries
  };
  for (const Case& k : cases) {
    SCOPED_TRACE(std::to_string(k.generation) + " " + k.text);
    SimClient c(d, {.generation = k.generation});
    d.ClearTrace();
    RunMainMenu(d, k.text);
    const Lines sent = d.TraceLines(sim::kTraceMessages);
    if (k.runs) {
      EXPECT_EQ(sent, Lines{MenuCommand(c, k.runs)});
      EXPECT_EQ(c.EventDetails(sim::kEventMenuItem), Lines{k.runs});
    } else {
      EXPECT_TRUE(sent.empty());
      EXPECT_TRUE(c.Events().empty());
    }
  }
}

TEST_F(ClientCommandsTest, RunMainMenuReadsEntriesLikeTheVersionTest) {
  SimClient c(d, {.generation = 3});
  d.ClearTrace();
  RunMainMenu(d, "&File");  // no entry holds it: every entry is read once
  std::size_t reads = 0;
  for (const auto& e : d.Trace()) {
    if (e.op != "GetMenuStringA") continue;
    ++reads;
    EXPECT_NE(e.line.find(" 100 1"), std::string::npos) << e.line;
  }
  EXPECT_GT(reads, 40u);
  // Without a client nothing happens.
  c.Quit();
  RunMainMenu(d, "Keyword...");
  EXPECT_TRUE(d.TraceLines(sim::kTraceMessages).empty());
}

// ---------------------------------------------------------------- RunToolbarMenu

TEST_F(ClientCommandsTest, RunToolbarMenuOpensOutgoingMailOnGeneration5) {
  SimClient c(d, {.generation = 5});
  d.MoveCursorByUser({321, 123});
  d.ClearTrace();
  {
    PumpBudget budget(3000);
    RunToolbarMenu(d, 3, 15);
  }
  EXPECT_EQ(d.Cursor(), (Point{321, 123}));
  Lines expected = PostedClick(kIcon3);
  for (int i = 0; i < 15; ++i) expected = expected + Posted("#32768", aol::kKeyDown);
  expected = expected + Posted("#32768", aol::kKeyEnter);
  EXPECT_EQ(d.TraceLines(sim::kTraceMessages), expected);
  // The pointer is parked by screen size in twips (clamped), then put back.
  Lines cursor;
  for (const std::string& l : d.TraceLines(static_cast<unsigned>(sim::TraceKind::kCursor))) {
    if (l.rfind("GetCursorPos", 0) == 0 || l.rfind("SetCursorPos", 0) == 0) cursor.push_back(l);
  }
  ASSERT_EQ(cursor.size(), 3u);
  EXPECT_EQ(cursor[1], "SetCursorPos 15360,11520 -> 1023,767");
  EXPECT_EQ(cursor[2], "SetCursorPos 321,123 -> 321,123");

  PumpUntil([&] { return c.Document(sim::kOutgoingListCaption) != 0; });
  EXPECT_EQ(c.EventDetails(sim::kEventPopupEntry), Lines{sim::kPopupOutgoingEntry});
  EXPECT_TRUE(c.HasEvent(sim::kEventOutgoingMail, sim::kOutgoingListCaption));
}

TEST_F(ClientCommandsTest, PointerReturnsEvenWhenTheUserMovedItDuringTheWait) {
  for (int gen : {4, 5}) {
    SCOPED_TRACE(gen);
    SimClient c(d, {.generation = gen});
    c.SetSlow("toolbar icon 3", 1.0);
    d.MoveCursorByUser({200, 300});
    c.Later("user", [&] { d.MoveCursorByUser({7, 7}); });
    {
      PumpBudget budget(3000);
      if (gen == 5) {
        RunToolbarMenu(d, 3, 15);
      } else {
        OpenOutgoingMail40(d);
      }
    }
    EXPECT_EQ(d.Cursor(), (Point{200, 300}));
  }
}

TEST_F(ClientCommandsTest, RunToolbarMenuPumpsAfterEachHop) {
  SimClient c(d, {.generation = 5});
  const std::uint64_t before = PumpCount();
  // A popup already open is found on the first look.
  c.OpenToolbarPopup();
  PumpBudget budget(100);
  RunToolbarMenu(d, 6, 1);
  // Six hops, the pump after the click, one pass of the wait, the pumps before the Downs and
  // before Enter.
  EXPECT_EQ(PumpCount() - before, 6u + 1u + 1u + 2u);
}

TEST_F(ClientCommandsTest, RunToolbarMenuWithNoDownsSendsOnlyEnter) {
  SimClient c(d, {.generation = 5});
  d.ClearTrace();
  {
    PumpBudget budget(3000);
    RunToolbarMenu(d, 3, 0);
  }
  EXPECT_EQ(d.TraceLines(sim::kTraceMessages),
            PostedClick(kIcon3) + Posted("#32768", aol::kKeyEnter));
  Settle();
  // Enter with nothing chosen just closes the client's popup.
  EXPECT_EQ(d.FindWindowA("#32768", std::nullopt), 0);
  EXPECT_TRUE(c.EventDetails(sim::kEventPopupEntry).empty());
}

TEST_F(ClientCommandsTest, RunToolbarMenuKeysGoToAForeignPopup) {
  SimClient c(d, {.generation = 5});
  c.SetSlow("toolbar icon 3", 5.0);  // the client's own popup would come much later
  Hwnd foreign = c.ShowForeignPopup();
  {
    PumpBudget budget(3000);
    RunToolbarMenu(d, 3, 2);
  }
  Settle();
  EXPECT_EQ(c.EventDetails(sim::kEventForeignKey), (Lines{"40", "40", "13"}));
  EXPECT_FALSE(d.Exists(foreign));
  EXPECT_TRUE(c.EventDetails(sim::kEventPopupEntry).empty());
}

TEST_F(ClientCommandsTest, RunToolbarMenuPressesAgainEvery1000Passes) {
  SimClient c(d, {.generation = 5});
  c.IgnoreClicks(1);
  d.ClearTrace();
  {
    PumpBudget budget(5000);
    RunToolbarMenu(d, 3, 15);
  }
  const Lines sent = d.TraceLines(sim::kTraceMessages);
  EXPECT_EQ(CountLines(sent, "PostMessageA " + kIcon3 + " 513 0 0"), 2u);
  EXPECT_EQ(c.EventDetails(sim::kEventClickIgnored), Lines{"toolbar icon 3"});
  PumpUntil([&] { return c.Document(sim::kOutgoingListCaption) != 0; });
  // The second press came only after 1000 passes of looking for the popup.
  std::size_t looks = 0;
  int presses = 0;
  for (const auto& e : d.Trace()) {
    if (e.message == aol::kWmLButtonDown && e.window == c.ToolbarIcon(3) && ++presses == 2) break;
    if (e.op == "FindWindowA" && e.line.find("#32768") != std::string::npos) ++looks;
  }
  EXPECT_EQ(looks, 1000u);
}

TEST_F(ClientCommandsTest, RunToolbarMenuNeverGivesUpAndKeepsThePointerInTheCorner) {
  SimClient c(d, {.generation = 3});  // its third icon opens no popup
  d.MoveCursorByUser({5, 5});
  d.ClearTrace();
  EXPECT_THROW(
      {
        PumpBudget budget(3504);
        RunToolbarMenu(d, 3, 1);
      },
      BudgetExhausted);
  EXPECT_EQ(CountLines(d.TraceLines(sim::kTraceMessages), "PostMessageA " + kIcon3 + " 513 0 0"),
            4u);
  EXPECT_EQ(d.Cursor(), (Point{1023, 767}));
}

// ---------------------------------------------------------------- OpenOutgoingMail40

TEST_F(ClientCommandsTest, OpenOutgoingMail40WalksUpRightDownEnter) {
  SimClient c(d, {.generation = 4});
  d.MoveCursorByUser({40, 50});
  d.ClearTrace();
  const std::uint64_t before = PumpCount();
  double start = vt.clock().Now();
  {
    PumpBudget budget(3000);
    OpenOutgoingMail40(d);
  }
  EXPECT_GE(vt.clock().Now() - start, 0.1 + c.reactionDelay());
  EXPECT_GT(PumpCount() - before, 1u);
  EXPECT_EQ(d.TraceLines(sim::kTraceMessages),
            PostedClick(kIcon3) + Posted("#32768", aol::kKeyUp) + Posted("#32768", aol::kKeyRight) +
                Posted("#32768", aol::kKeyDown) + Posted("#32768", aol::kKeyEnter));
  EXPECT_EQ(d.Cursor(), (Point{40, 50}));
  PumpUntil([&] { return c.Document(sim::kOutgoingListCaption) != 0; });
  EXPECT_EQ(c.EventDetails(sim::kEventPopupEntry), Lines{sim::kPopupOutgoingEntry});
}

TEST_F(ClientCommandsTest, OpenOutgoingMail40DoesNotPressAgain) {
  SimClient c(d, {.generation = 4});
  c.IgnoreClicks(1);
  d.ClearTrace();
  EXPECT_THROW(
      {
        PumpBudget budget(4000);
        OpenOutgoingMail40(d);
      },
      BudgetExhausted);
  EXPECT_EQ(CountLines(d.TraceLines(sim::kTraceMessages), "PostMessageA " + kIcon3 + " 513 0 0"),
            1u);
  EXPECT_EQ(d.Cursor(), (Point{1023, 767}));
}

// ---------------------------------------------------------------- keywords

TEST_F(ClientCommandsTest, KeywordToolbarEmptiesFillsAndTypesBlankEnterWithoutPumping) {
  for (int gen : {4, 5}) {
    SCOPED_TRACE(gen);
    SimClient c(d, {.generation = gen});
    d.SetText(c.keywordEdit(), "left over");
    d.ClearTrace();
    const std::uint64_t before = PumpCount();
    KeywordToolbar(d, "aol://9293:Bob Lee");
    EXPECT_EQ(PumpCount(), before);
    const std::string edit = "SendMessageA AOL Frame25/AOL Toolbar/_AOL_Toolbar/_AOL_Combobox/Edit";
    EXPECT_EQ(d.TraceLines(sim::kTraceMessages),
              (Lines{edit + " 12 0 \"\"", edit + " 12 0 \"aol://9293:Bob Lee\"",
                     edit + " 258 32 0", edit + " 258 13 0"}));
    EXPECT_EQ(c.EventDetails(sim::kEventKeyword), Lines{"aol://9293:Bob Lee"});
    PumpUntil([&] { return c.Document(aol::kSendImCaption) != 0; });
  }
}

TEST_F(ClientCommandsTest, KeywordWindowRunsTheKeywordFromTheMenuWindow) {
  for (int gen : {2, 3}) {
    SCOPED_TRACE(gen);
    SimClient c(d, {.generation = gen});
    c.SetSlow(aol::kMenuKeyword, 2.0);  // the window is slow to come
    d.ClearTrace();
    {
      PumpBudget budget(3000);
      KeywordWindow(d, "Buddy");
    }
    const std::string window = "AOL Frame25/MDIClient/AOL Child";
    const Lines expected = Lines{MenuCommand(c, aol::kMenuKeyword),
                                 "SendMessageA " + window + "/_AOL_Edit 12 0 \"Buddy\""} +
                           PostedClick(window + "/_AOL_Icon");
    EXPECT_EQ(d.TraceLines(sim::kTraceMessages), expected);
    Settle();
    EXPECT_EQ(c.EventDetails(sim::kEventKeyword), Lines{"Buddy"});
    EXPECT_EQ(c.Document(aol::kKeywordCaption), 0);
  }
}

TEST_F(ClientCommandsTest, KeywordWindowWaitsForEver) {
  SimClient c(d, {.generation = 3});
  c.OnMenuItem(aol::kMenuKeyword, nullptr);  // a client that opens no Keyword window
  EXPECT_THROW(
      {
        PumpBudget budget(500);
        KeywordWindow(d, "Buddy");
      },
      BudgetExhausted);
}

// ---------------------------------------------------------------- kill commands

TEST_F(ClientCommandsTest, KillGlyphOnlyOnTheFrameWithTheTwoBlankCaption) {
  for (int gen : {2, 3, 4}) {
    SimClient old(d, {.generation = gen});
    Hwnd glyph = old.glyph();
    KillGlyph(d);
    DoEvents();
    EXPECT_FALSE(d.Exists(glyph)) << gen;
  }
  SimClient c(d, {.generation = 5});
  Hwnd glyph = c.glyph();
  d.SetText(c.frame(), "America Online");  // one blank: not the frame it looks for
  KillGlyph(d);
  DoEvents();
  EXPECT_TRUE(d.Exists(glyph));
  d.SetText(c.frame(), aol::kFrameCaption);
  d.ClearTrace();
  KillGlyph(d);
  EXPECT_EQ(d.TraceLines(sim::kTraceMessages),
            Lines{"PostMessageA AOL Frame25/AOL Toolbar/_AOL_Toolbar/_AOL_Glyph 16 0 0"});
  DoEvents();
  EXPECT_FALSE(d.Exists(glyph));
  // No glyph: nothing is posted.
  d.ClearTrace();
  KillGlyph(d);
  EXPECT_TRUE(d.TraceLines(sim::kTraceMessages).empty());
}

TEST_F(ClientCommandsTest, KillModalClosesEveryModalWithoutPumping) {
  SimClient c(d, {.generation = 5});
  d.ClearTrace();
  KillModal(d);  // none: one look and back
  EXPECT_EQ(d.TraceLines(), Lines{"FindWindowA \"_AOL_Modal\" * -> 0"});

  c.OpenTopLevel(aol::kModalUpperClass, "");
  c.OpenTopLevel(aol::kModalClass, aol::kAttachmentsCaption);
  d.ClearTrace();
  const std::uint64_t before = PumpCount();
  KillModal(d);
  EXPECT_EQ(PumpCount(), before);
  EXPECT_EQ(d.FindWindowA(aol::kModalClass, std::nullopt), 0);
  // The close is posted; until the client takes its turn the same window is closed again.
  const Lines sent = d.TraceLines(sim::kTraceMessages);
  EXPECT_GT(sent.size(), 2u);
  for (const std::string& l : sent) EXPECT_EQ(l.substr(l.size() - 7), " 16 0 0") << l;
}

TEST_F(ClientCommandsTest, KillWaitOpensTheAboutBoxAndClosesItByItsFirstIcon) {
  for (int gen : {2, 3, 4, 5}) {
    SCOPED_TRACE(gen);
    SimClient c(d, {.generation = gen});
    c.SetSlow(aol::kMenuAbout, 1.0);
    d.ClearTrace();
    {
      PumpBudget budget(3000);
      KillWait(d);
    }
    const Lines expected = Lines{MenuCommand(c, aol::kMenuAbout)} + PostedClick("_AOL_Modal/_AOL_Icon");
    EXPECT_EQ(d.TraceLines(sim::kTraceMessages), expected);
    PumpUntil([&] { return d.FindWindowA(aol::kModalClass, std::nullopt) == 0; });
    EXPECT_TRUE(c.HasEvent(sim::kEventAboutBox, ""));
    EXPECT_TRUE(c.HasEvent(sim::kEventClick, "about box close"));
  }
  // No about box ever: it waits for ever.
  SimClient c(d, {.generation = 5});
  c.OnMenuItem(aol::kMenuAbout, nullptr);
  EXPECT_THROW(
      {
        PumpBudget budget(500);
        KillWait(d);
      },
      BudgetExhausted);
}

// ---------------------------------------------------------------- DismissOkBox

TEST_F(ClientCommandsTest, DismissOkBoxWaitsAndPressesOkWithSentSpace) {
  SimClient c(d, {.generation = 5});
  std::string pressed;
  c.Later("box", [&] {
    c.ShowDialog(aol::kAolDialogCaption, "You are now invisible.", {"OK"},
                 [&](const std::string& b) { pressed = b; });
  });
  d.ClearTrace();
  {
    PumpBudget budget(3000);
    DismissOkBox(d);
  }
  EXPECT_EQ(d.TraceLines(sim::kTraceMessages),
            (Lines{"SendMessageA #32770/Button 256 32 &0", "SendMessageA #32770/Button 257 32 &0"}));
  PumpUntil([&] { return !pressed.empty(); });
  EXPECT_EQ(pressed, "OK");
  EXPECT_EQ(d.FindWindowA(aol::kDialogClass, std::nullopt), 0);
}

TEST_F(ClientCommandsTest, DismissOkBoxIgnoresOtherBoxes) {
  SimClient c(d, {.generation = 5});
  c.ShowDialog("America  Online", "two blanks", {"OK"});
  c.ShowDialog(aol::kAolDialogCaption, "no OK", {"&Yes", "&No"});
  EXPECT_THROW(
      {
        PumpBudget budget(300);
        DismissOkBox(d);
      },
      BudgetExhausted);
  EXPECT_TRUE(d.TraceLines(sim::kTraceMessages).empty());
}

}  // namespace
}  // namespace qc
