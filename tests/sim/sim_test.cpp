// The desktop's own rules, the ones a wrong driver would slip past if they broke: captions
// matched exactly, hops, visibility, text room, menus, posted messages and tasks kept for a later
// turn, modal windows and the message table. Trace format and lookups are checked by every golden
// script of the client tests.
//
// Then the simulated client's own strictness, which a careless driver would otherwise get away
// with: what counts as a click, when sent and posted input is taken, windows built in stages, busy
// spells and the noise windows. Its tree is exercised by every golden script, its modal windows
// by the driver scenarios.
#include "sim/sim_desktop.h"

#include <gtest/gtest.h>

#include "client/vocabulary.h"
#include "sim/sim_client.h"
#include "sim/sim_im.h"
#include "sim/sim_mail.h"
#include "support/budget.h"

namespace qc::sim {
namespace {

using test::PumpBudget;
using test::VirtualTime;
using Lines = std::vector<std::string>;

class SimDesktopTest : public ::testing::Test {
 protected:
  void Settle(int passes = 100) {
    for (int i = 0; i < passes; ++i) WaitEvents();
  }
  void Post(Hwnd h, std::uint32_t message) { d.PostMessageA(h, message, 0, LParam()); }

  VirtualTime vt;
  SimDesktop d;
  std::int32_t zero = 0;  // the zero word of the messages that take one
};
using SimClientTest = SimDesktopTest;

// Classes match without regard to case (the drivers of every golden script rely on it), captions
// exactly, and an empty caption is a caption to match, not an absent one.
TEST_F(SimDesktopTest, CaptionsMatchExactly) {
  Hwnd frame = d.NewWindow(0, "AOL Frame25", "America  Online");
  Hwnd mdi = d.NewWindow(frame, "MDIClient");
  EXPECT_EQ(d.FindWindowA(std::nullopt, "America  Online"), frame);
  EXPECT_EQ(d.FindWindowA("AOL Frame25", "America Online"), 0);
  EXPECT_EQ(d.FindWindowA("AOL Frame25", "america  online"), 0);
  EXPECT_EQ(d.FindWindowExA(frame, 0, "MDIClient", ""), mdi);
  EXPECT_EQ(d.FindWindowA("AOL Frame25", ""), 0);
}

// A hop goes on right behind childAfter (a driver whose hop went wrong would hang in its wait
// rather than fail); a hop from a window that is no child of the parent finds nothing, and so
// does one under a parent that has gone.
TEST_F(SimDesktopTest, HopsGoOnBehindChildAfterAndStopAtStrangers) {
  Hwnd bar = d.NewWindow(0, "_AOL_Toolbar");
  Hwnd i1 = d.NewWindow(bar, "_AOL_Icon");
  Hwnd i2 = d.NewWindow(bar, "_AOL_Icon");
  EXPECT_EQ(d.FindWindowExA(bar, i1, "_AOL_Icon", std::nullopt), i2);
  EXPECT_EQ(d.FindWindowExA(bar, i2, "_AOL_Icon", std::nullopt), 0);
  EXPECT_EQ(d.FindWindowExA(bar, bar, "_AOL_Icon", std::nullopt), 0);
  EXPECT_EQ(d.FindWindowExA(0, 0, "_aol_toolbar", std::nullopt), bar);
  EXPECT_EQ(d.FindWindowExA(0, 0, "_AOL_Icon", std::nullopt), 0);
  d.DestroyWindow(bar);
  EXPECT_EQ(d.FindWindowExA(bar, 0, "_AOL_Icon", std::nullopt), 0);
}

TEST_F(SimDesktopTest, VisibilityFollowsAncestors) {
  Hwnd top = d.NewWindow(0, "AOL Frame25");
  Hwnd child = d.NewWindow(top, "AOL Child");
  EXPECT_EQ(d.IsWindowVisible(child), 1);
  EXPECT_EQ(d.ShowWindow(top, 0), 1);
  EXPECT_EQ(d.IsWindowVisible(child), 0);
  EXPECT_EQ(d.ShowWindow(top, 5), 0);
  EXPECT_EQ(d.IsWindowVisible(child), 1);
  EXPECT_EQ(d.IsWindowVisible(0), 0);
  EXPECT_EQ(d.ShowWindow(0, 0), 0);
}

TEST_F(SimDesktopTest, TextMessagesAndCaptionReads) {
  Hwnd w = d.NewWindow(0, "AOL Child", "Welcome, Bob!");
  // Room for maxCount - 1 characters and the NUL.
  std::string small(10, '.');
  EXPECT_EQ(d.GetWindowTextA(w, small, 5), 4);
  EXPECT_EQ(small, std::string("Welc\0.....", 10));

  EXPECT_EQ(d.SendMessageA(w, aol::kWmGetTextLength, 0, LParam::Word(zero)), 13);
  std::string out(13, '\0');
  EXPECT_EQ(d.SendMessageA(w, aol::kWmGetText, 14, LParam::Buffer(out)), 13);
  EXPECT_EQ(out, "Welcome, Bob!");
  // Text is taken up to the first NUL; the empty text empties.
  d.SendMessageA(w, aol::kWmSetText, 0, LParam::Text(std::string("ab\0cd", 5)));
  EXPECT_EQ(d.TextOf(w), "ab");
  d.SendMessageA(w, aol::kWmSetText, 0, LParam::Text(""));
  EXPECT_EQ(d.TextOf(w), "");
  // Messages to nothing give 0.
  EXPECT_EQ(d.SendMessageA(0, aol::kWmGetTextLength, 0, LParam::Word(zero)), 0);
  EXPECT_EQ(d.GetWindowTextLengthA(0), 0);
  EXPECT_TRUE(d.Violations().empty());
  // A length past the buffer and its NUL would write past its end.
  std::string four(4, '\0');
  d.SendMessageA(w, aol::kWmGetText, 6, LParam::Buffer(four));
  EXPECT_EQ(d.Violations(), std::vector<std::string>{"WM_GETTEXT of 6 into buf[4] AOL Child\"\""});
}

TEST_F(SimDesktopTest, MenusByPositionAndCommand) {
  Hwnd frame = d.NewWindow(0, "AOL Frame25");
  Hmenu bar = d.CreateMenu();
  Hmenu file = d.CreateMenu();
  d.AppendItem(file, 101, "&Open");
  d.AppendSeparator(file);
  Hmenu more = d.CreateMenu();
  d.AppendItem(more, 201, "Deep entry");
  d.AppendSubMenu(file, "&More", more);
  d.AppendSubMenu(bar, "&File", file);
  d.SetMenu(frame, bar);

  EXPECT_EQ(d.GetMenu(frame), bar);
  EXPECT_EQ(d.GetMenuItemCount(bar), 1);
  EXPECT_EQ(d.GetSubMenu(bar, 0), file);
  EXPECT_EQ(d.GetSubMenu(bar, 1), 0);
  EXPECT_EQ(d.GetMenuItemID(file, 0), 101);
  EXPECT_EQ(d.GetMenuItemID(file, 1), 0);    // separator
  EXPECT_EQ(d.GetMenuItemID(file, 2), -1);   // opens a drop-down
  EXPECT_EQ(d.GetMenuItemID(file, 3), -1);   // past the end

  std::string text(100, ' ');
  EXPECT_EQ(d.GetMenuStringA(file, 101, text, 100, 1), 5);
  EXPECT_EQ(text, "&Open" + std::string(1, '\0') + std::string(94, ' '));
  // By command drop-downs are searched too; by position an entry's own text, drop-downs included.
  std::string deep(100, ' '), byPosition(100, ' ');
  EXPECT_EQ(d.GetMenuStringA(bar, 201, deep, 100, 1), 10);
  EXPECT_EQ(deep.substr(0, 11), std::string("Deep entry\0", 11));
  EXPECT_EQ(d.GetMenuStringA(file, 2, byPosition, 100, 0x400), 5);
  EXPECT_EQ(byPosition.substr(0, 6), std::string("&More\0", 6));
  // Not found: 0 and the buffer as it was.
  std::string blank(100, ' ');
  EXPECT_EQ(d.GetMenuStringA(file, -1, blank, 100, 1), 0);
  EXPECT_EQ(blank, std::string(100, ' '));
}

TEST_F(SimDesktopTest, PostedMessagesWaitForAPumpSentOnesAreHandledAtOnce) {
  Hwnd w = d.NewWindow(0, "_AOL_Icon");
  std::vector<std::string> got;
  d.SetHandler(w, [&](const SimMessage& m) -> std::optional<std::int32_t> {
    got.push_back((m.posted ? "p" : "s") + std::to_string(m.message));
    if (m.message == 513 && m.posted) d.PostMessageA(w, 600, 0, LParam());
    return 7;
  });
  EXPECT_EQ(d.PostMessageA(w, 513, 0, LParam()), 1);
  EXPECT_EQ(d.PostMessageA(w, 514, 0, LParam()), 1);
  EXPECT_TRUE(got.empty());
  EXPECT_EQ(d.SendMessageA(w, 256, 32, LParam()), 7);
  EXPECT_EQ(got, (std::vector<std::string>{"s256"}));
  DoEvents();
  // What a handler posts waits for the next pump.
  EXPECT_EQ(got, (std::vector<std::string>{"s256", "p513", "p514"}));
  DoEvents();
  EXPECT_EQ(got.back(), "p600");
  EXPECT_EQ(d.PendingMessages(), 0u);
  // Posting to a window that is gone fails; queued messages of a destroyed window are dropped.
  d.PostMessageA(w, 16, 0, LParam());
  d.DestroyWindow(w);
  EXPECT_EQ(d.PendingMessages(), 0u);
  EXPECT_EQ(d.PostMessageA(w, 16, 0, LParam()), 0);
}

TEST_F(SimDesktopTest, TasksRunOnALaterPumpOnceTheirTimeHasCome) {
  std::vector<int> ran;
  d.Schedule(0, [&] { ran.push_back(1); });
  d.Schedule(0.05, [&] { ran.push_back(3); });
  d.Schedule(0.01, [&] { ran.push_back(2); });
  EXPECT_TRUE(ran.empty());
  DoEvents();
  EXPECT_EQ(ran, (std::vector<int>{1}));
  vt.clock().Advance(0.02);
  DoEvents();
  EXPECT_EQ(ran, (std::vector<int>{1, 2}));
  PumpBudget budget(1000);
  while (ran.size() < 3) WaitEvents();
  EXPECT_GE(vt.clock().Now(), 12 * 3600.0 + 0.05);
  // A task scheduled by a task waits for the next pump even with no delay.
  d.Schedule(0, [&] { d.Schedule(0, [&] { ran.push_back(5); }); ran.push_back(4); });
  DoEvents();
  EXPECT_EQ(ran.back(), 4);
  DoEvents();
  EXPECT_EQ(ran.back(), 5);
}

TEST_F(SimDesktopTest, TellsWaitsWhenItNextHasWork) {
  const double now = vt.clock().Now();
  EXPECT_EQ(d.NextWork(), kNoWork);
  d.Schedule(0.5, [] {});
  d.Schedule(0.2, [] {});
  EXPECT_DOUBLE_EQ(d.NextWork(), now + 0.2);
  Hwnd w = d.NewWindow(0, "x");
  d.PostMessageA(w, aol::kWmClose, 0, LParam());
  EXPECT_EQ(d.NextWork(), kWorkNow);  // the posted message goes on the next pump
  EXPECT_EQ(NextHookWork(), kWorkNow);
  // Inside its own turn it has nothing to give a wait that a task starts.
  double inside = 0;
  d.Schedule(0, [&] { inside = d.NextWork(); });
  vt.clock().Advance(1);
  DoEvents();
  DoEvents();
  EXPECT_EQ(inside, kNoWork);
  EXPECT_EQ(d.NextWork(), kNoWork);
}

TEST_F(SimDesktopTest, AProgramThatNeverPumpsStillLetsTheOtherProcessRun) {
  Hwnd modal = d.NewWindow(0, "_AOL_Modal");
  d.SetSliceEvery(10);
  int closes = 0;
  while (Hwnd m = d.FindWindowA("_AOL_Modal", std::nullopt)) {
    d.PostMessageA(m, aol::kWmClose, 0, LParam());
    ASSERT_LT(++closes, 100);
  }
  EXPECT_FALSE(d.Exists(modal));
  EXPECT_GT(closes, 1);
}

TEST_F(SimDesktopTest, ShowStatesTopmostWindowsAndModality) {
  Hwnd frame = d.NewWindow(0, "AOL Frame25");
  Hwnd icon = d.NewWindow(frame, "_AOL_Icon");
  Hwnd box = d.NewWindow(0, "#32770", "Save As");
  d.SetTopmost(box);
  Hwnd modal = d.NewWindow(0, "_AOL_Modal", "Attachments");
  // New windows come in front, but behind the one that stays on top.
  EXPECT_EQ(d.Children(0), (std::vector<Hwnd>{box, modal, frame}));
  // Hidden, minimised (and shown), restored.
  struct Step {
    std::int32_t command;
    bool visible;
    bool minimised;
  };
  for (const Step& s : {Step{0, false, false}, Step{6, true, true}, Step{0, false, true},
                        Step{9, true, false}, Step{2, true, true}, Step{5, true, true},
                        Step{1, true, false}}) {
    d.ShowWindow(modal, s.command);
    EXPECT_EQ(d.Visible(modal), s.visible) << s.command;
    EXPECT_EQ(d.Minimised(modal), s.minimised) << s.command;
  }
  // An open modal window refuses input to its owner's windows, not other messages.
  d.SetModal(modal, frame);
  std::vector<std::string> refused;
  d.SetRefusalListener([&](const SimMessage& m, const std::string& why) {
    refused.push_back(std::to_string(m.message) + " " + why);
  });
  d.SendMessageA(icon, 513, 0, LParam());
  d.SendMessageA(icon, 12, 0, LParam::Text("t"));
  d.ShowWindow(modal, 6);  // minimised, it blocks nothing
  d.SendMessageA(icon, 514, 0, LParam());
  EXPECT_EQ(refused, (std::vector<std::string>{"513 blocked by a modal window"}));
  EXPECT_EQ(d.TextOf(icon), "t");
  // The parameters the message table does not allow: a posted click with a word, a sent one
  // with 0, a length read without a zero word.
  d.PostMessageA(icon, 513, 0, LParam::Word(zero));
  d.SendMessageA(icon, 14, 0, LParam());
  EXPECT_EQ(d.Violations().size(), 4u);
}

TEST_F(SimClientTest, AClickIsAPressAndAReleaseOnOneControlTakenWhenTheReleaseArrives) {
  SimClient c(d, {.generation = 5});
  const Hwnd icon3 = c.ToolbarIcon(3);
  Post(icon3, aol::kWmLButtonUp);  // a release alone
  Post(c.ToolbarIcon(4), aol::kWmLButtonDown);
  Post(icon3, aol::kWmLButtonUp);  // released on another control
  Settle();
  EXPECT_TRUE(c.Events().empty());
  // Posted: taken on the next pump. Sent: inside the send.
  Post(icon3, aol::kWmLButtonDown);
  Post(icon3, aol::kWmLButtonUp);
  EXPECT_TRUE(c.Events().empty());
  DoEvents();
  EXPECT_EQ(c.EventDetails(kEventClick), Lines{"toolbar icon 3"});
  d.SendMessageA(icon3, aol::kWmLButtonDown, 0, LParam::Word(zero));
  d.SendMessageA(icon3, aol::kWmLButtonUp, 0, LParam::Word(zero));
  EXPECT_EQ(c.EventDetails(kEventClick).size(), 2u);
}

TEST_F(SimClientTest, WindowsComeInStagesAndTextTypedBeforeTheLastIsLost) {
  SimClient c(d, {.generation = 5, .lastDelay = 1.0, .lastPart = "combo"});
  SimMail mail(c);
  Post(c.ToolbarIcon(2), aol::kWmLButtonDown);
  Post(c.ToolbarIcon(2), aol::kWmLButtonUp);
  PumpBudget budget(2000);
  while (d.ChildOfClass(c.Document("Write Mail"), aol::kIconClass, 17) == 0) WaitEvents();
  const Hwnd w = c.Document("Write Mail");
  EXPECT_NE(d.ChildOfClass(w, aol::kAolEditClass, 3), 0);
  EXPECT_EQ(d.ChildOfClass(w, aol::kComboboxClass), 0);
  d.SendMessageA(d.ChildOfClass(w, aol::kAolEditClass), aol::kWmSetText, 0, LParam::Text("a"));
  while (d.ChildOfClass(w, aol::kComboboxClass) == 0) WaitEvents();
  EXPECT_EQ(mail.Fields(w).to, "");
}

TEST_F(SimClientTest, ABusyClientRefusesInput) {
  SimClient c(d, {.generation = 5});
  SimIm im(c);
  c.RunKeyword("Buddy");
  PumpBudget budget(3000);
  while (d.ChildOfClass(c.Document("Brindle Rose's Buddy List"), aol::kIconClass, 5) == 0) {
    WaitEvents();
  }
  const Hwnd icon5 = d.ChildOfClass(c.Document("Brindle Rose's Buddy List"), aol::kIconClass, 5);
  Post(icon5, aol::kWmLButtonDown);
  Post(icon5, aol::kWmLButtonUp);
  DoEvents();
  EXPECT_EQ(c.EventDetails(kEventRefused).size(), 2u);
  EXPECT_EQ(c.EventDetails(kEventRefused)[0].rfind("busy 513 ", 0), 0u);
  Settle(400);  // the busy spell is over
  c.ClearEvents();
  Post(icon5, aol::kWmLButtonDown);
  Post(icon5, aol::kWmLButtonUp);
  DoEvents();
  EXPECT_EQ(c.EventDetails(kEventClick), Lines{"Privacy Preferences"});
}

TEST_F(SimClientTest, NoiseStandsInFrontOfTheClientsWindows) {
  SimClient c(d, {.generation = 5, .noise = true});
  EXPECT_EQ(d.TextOf(d.FindWindowA("#32770", std::nullopt)), "Save As");
  const Hwnd opened = c.OpenDocument("Keyword");
  EXPECT_EQ(d.TextOf(d.Children(c.mdi()).front()), "Instant Message From: Pat");
  EXPECT_EQ(d.FindWindowExA(c.mdi(), 0, "AOL Child", "Keyword"), opened);
  c.ShowDialog("America Online", "", {"OK"});
  EXPECT_EQ(d.TextOf(d.FindWindowA("#32770", std::nullopt)), "Save As");
}

TEST_F(SimClientTest, ReactionsOfAClientThatQuitAreDropped) {
  SimClient c(d, {.generation = 5});
  bool ran = false;
  c.Later("x", [&] { ran = true; });
  c.Quit();
  Settle();
  EXPECT_FALSE(ran);
  EXPECT_TRUE(d.Children(0).empty());  // all its windows went with it
}

}  // namespace
}  // namespace qc::sim
