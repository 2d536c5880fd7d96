#include "sim/sim_client.h"

#include <gtest/gtest.h>

#include "client/vocabulary.h"
#include "support/budget.h"

namespace qc::sim {
namespace {

using test::PumpBudget;
using test::VirtualTime;

// Pumps as a wait loop does until `done` holds, under a budget.
template <class Done>
void PumpUntil(Done done, int passes = 2000) {
  PumpBudget budget(static_cast<std::uint64_t>(passes));
  while (!done()) WaitEvents();
}

void Click(SimDesktop& d, Hwnd h) {
  d.PostMessageA(h, aol::kWmLButtonDown, 0, LParam());
  d.PostMessageA(h, aol::kWmLButtonUp, 0, LParam());
}

void Key(SimDesktop& d, Hwnd h, std::int32_t key) {
  d.PostMessageA(h, aol::kWmKeyDown, key, LParam());
  d.PostMessageA(h, aol::kWmKeyUp, key, LParam());
}

class SimClientTest : public ::testing::Test {
 protected:
  VirtualTime vt;
  SimDesktop d;
};

TEST_F(SimClientTest, TreeOfEachGeneration) {
  for (int gen : {2, 3, 4, 5}) {
    SCOPED_TRACE(gen);
    SimClient c(d, {.generation = gen, .screenName = "Ann Lee"});
    EXPECT_EQ(d.FindWindowA("AOL Frame25", "America  Online"), c.frame());
    EXPECT_EQ(d.FindWindowExA(c.frame(), 0, "MDICLIENT", std::nullopt), c.mdi());
    Hwnd host = d.FindWindowExA(c.frame(), 0, "AOL Toolbar", std::nullopt);
    EXPECT_EQ(d.FindWindowExA(host, 0, "_AOL_Toolbar", std::nullopt), c.toolbar());
    EXPECT_NE(c.glyph(), 0);
    EXPECT_NE(c.ToolbarIcon(3), 0);
    EXPECT_EQ(c.keywordEdit() != 0, gen >= 4);
    // The welcome window stands behind another document window.
    auto docs = d.Children(c.mdi());
    ASSERT_EQ(docs.size(), 2u);
    EXPECT_EQ(d.TextOf(docs[1]), "Welcome, Ann Lee!");
    EXPECT_EQ(c.welcome(), docs[1]);
    // Menu texts the program runs, where the generation has them.
    EXPECT_NE(c.CommandId("Keyword..."), -1);
    EXPECT_NE(c.CommandId("&About America Online"), -1);
    EXPECT_NE(c.CommandId("Send An Instant Message"), -1);
    EXPECT_EQ(c.CommandId("&Compose Mail") != -1, gen <= 3);
    EXPECT_EQ(c.CommandId("Read &Outgoing Flashmail") != -1, gen != 2);
  }
  // All windows of the client go when it quits.
  EXPECT_TRUE(d.Children(0).empty());
}

TEST_F(SimClientTest, SignedOffAndAbsentClients) {
  SimClient c5(d, {.generation = 5, .signedOn = false});
  EXPECT_EQ(d.TextOf(d.Children(c5.mdi()).at(0)), "Sign On");
  EXPECT_EQ(c5.welcome(), 0);
  c5.SignOn("Bo");
  EXPECT_EQ(d.TextOf(c5.welcome()), "Welcome, Bo!");
  c5.SignOff();
  EXPECT_EQ(c5.welcome(), 0);
  c5.Quit();
  SimClient c3(d, {.generation = 3, .signedOn = false});
  EXPECT_EQ(d.TextOf(d.Children(c3.mdi()).at(0)), "Welcome");
  c3.Quit();
  SimClient absent(d, {.running = false});
  EXPECT_FALSE(absent.Running());
  EXPECT_EQ(d.FindWindowA("AOL Frame25", std::nullopt), 0);
  absent.Start();
  EXPECT_TRUE(absent.Running());
}

TEST_F(SimClientTest, MainMenuCommandRunsItsReactionOnALaterPump) {
  SimClient c(d, {.generation = 3});
  d.SendMessageA(c.frame(), aol::kWmCommand, c.CommandId("Read &Outgoing Flashmail"), LParam());
  EXPECT_TRUE(c.HasEvent(kEventMenuItem, "Read &Outgoing Flashmail"));
  EXPECT_EQ(c.Document(kOutgoingListCaption), 0);
  PumpUntil([&] { return c.Document(kOutgoingListCaption) != 0; });
  EXPECT_GE(vt.clock().Now(), 12 * 3600.0 + c.reactionDelay());
  EXPECT_TRUE(c.HasEvent(kEventOutgoingMail, kOutgoingListCaption));
  // Unknown ids do nothing.
  d.SendMessageA(c.frame(), aol::kWmCommand, 9, LParam());
  EXPECT_EQ(c.Events().size(), 2u);
}

TEST_F(SimClientTest, KeywordBoxRunsWhatWasTypedOnEnter) {
  SimClient c(d, {.generation = 5});
  std::string got;
  c.OnKeyword("Buddy", [&](const std::string& k) { got = k; });
  d.SendMessageA(c.keywordEdit(), aol::kWmSetText, 0, LParam::Text("bUDDY"));
  d.SendMessageA(c.keywordEdit(), aol::kWmChar, 32, LParam());
  EXPECT_EQ(d.TextOf(c.keywordEdit()), "bUDDY ");
  d.SendMessageA(c.keywordEdit(), aol::kWmChar, 13, LParam());
  EXPECT_EQ(d.TextOf(c.keywordEdit()), "");
  EXPECT_EQ(c.EventDetails(kEventKeyword), (std::vector<std::string>{"bUDDY"}));
  PumpUntil([&] { return !got.empty(); });
  EXPECT_EQ(got, "bUDDY");
  // A blank line runs nothing.
  d.SendMessageA(c.keywordEdit(), aol::kWmChar, 32, LParam());
  d.SendMessageA(c.keywordEdit(), aol::kWmChar, 13, LParam());
  EXPECT_EQ(c.EventDetails(kEventKeyword).size(), 1u);
}

TEST_F(SimClientTest, KeywordPrefixesTakeTheLongestMatch) {
  SimClient c(d, {.generation = 4});
  std::vector<std::string> got;
  c.OnKeywordPrefix("aol://", [&](const std::string& k) { got.push_back("short " + k); });
  c.OnKeywordPrefix("aol://9293:", [&](const std::string& k) { got.push_back("long " + k); });
  c.RunKeyword("AOL://9293:$im_on");
  c.RunKeyword("aol://1:x");
  c.RunKeyword("nothing here");
  PumpUntil([&] { return got.size() == 2; });
  EXPECT_EQ(got, (std::vector<std::string>{"long AOL://9293:$im_on", "short aol://1:x"}));
}

TEST_F(SimClientTest, BuiltInImKeywordOpensAMessageWindowForTheRecipient) {
  SimClient c(d, {.generation = 5});
  c.RunKeyword("aol://9293:$im_off");
  PumpUntil([&] { return c.Document("Send Instant Message") != 0; });
  Hwnd w = c.Document("Send Instant Message");
  EXPECT_EQ(d.TextOf(d.ChildOfClass(w, "_AOL_Edit")), "$im_off");
  EXPECT_NE(d.ChildOfClass(w, "_AOL_Icon", 9), 0);
  EXPECT_NE(d.ChildOfClass(w, "RICHCNTL"), 0);
}

TEST_F(SimClientTest, KeywordWindowRunsItsKeywordWhenItsIconIsClicked) {
  SimClient c(d, {.generation = 3});
  c.RunCommand("Keyword...");
  PumpUntil([&] { return c.Document("Keyword") != 0; });
  Hwnd w = c.Document("Keyword");
  d.SendMessageA(d.ChildOfClass(w, "_AOL_Edit"), aol::kWmSetText, 0, LParam::Text("Buddylist"));
  Click(d, d.ChildOfClass(w, "_AOL_Icon"));
  PumpUntil([&] { return !d.Exists(w); });
  EXPECT_EQ(c.EventDetails(kEventKeyword), (std::vector<std::string>{"Buddylist"}));
}

TEST_F(SimClientTest, AboutBoxIsAModalClosedByItsFirstIcon) {
  SimClient c(d, {.generation = 5});
  c.RunCommand("&About America Online");
  PumpUntil([&] { return d.FindWindowA("_AOL_MODAL", std::nullopt) != 0; });
  Hwnd box = d.FindWindowA("_AOL_Modal", std::nullopt);
  Click(d, d.ChildOfClass(box, "_AOL_Icon", 2));
  for (int i = 0; i < 20; ++i) WaitEvents();
  EXPECT_TRUE(d.Exists(box));
  Click(d, d.ChildOfClass(box, "_AOL_Icon"));
  PumpUntil([&] { return !d.Exists(box); });
}

TEST_F(SimClientTest, ToolbarPopupWalksToTheOutgoingMail) {
  struct Case {
    int gen;
    std::vector<std::int32_t> keys;
  };
  std::vector<std::int32_t> fifteenDowns(15, aol::kKeyDown);
  fifteenDowns.push_back(aol::kKeyEnter);
  for (const Case& k : {Case{5, fifteenDowns}, Case{4, {38, 39, 40, 13}}}) {
    SCOPED_TRACE(k.gen);
    SimClient c(d, {.generation = k.gen});
    Click(d, c.ToolbarIcon(3));
    PumpUntil([&] { return d.FindWindowA("#32768", std::nullopt) != 0; });
    Hwnd popup = d.FindWindowA("#32768", std::nullopt);
    EXPECT_EQ(d.IsWindowVisible(popup), 1);
    for (std::int32_t key : k.keys) Key(d, popup, key);
    PumpUntil([&] { return c.Document(kOutgoingListCaption) != 0; });
    EXPECT_FALSE(d.Exists(popup));
    EXPECT_EQ(c.EventDetails(kEventPopupEntry),
              (std::vector<std::string>{kPopupOutgoingEntry}));
  }
}

TEST_F(SimClientTest, PopupWrapsAndEnterWithNothingChosenJustCloses) {
  SimClient c(d, {.generation = 5});
  c.OpenToolbarPopup();
  Hwnd popup = d.FindWindowA("#32768", std::nullopt);
  Key(d, popup, aol::kKeyUp);    // the last entry
  Key(d, popup, aol::kKeyDown);  // wraps to the first
  Key(d, popup, aol::kKeyEnter);
  DoEvents();
  EXPECT_EQ(c.EventDetails(kEventPopupEntry), (std::vector<std::string>{"&Mail Center"}));
  c.OpenToolbarPopup();
  popup = d.FindWindowA("#32768", std::nullopt);
  Key(d, popup, aol::kKeyEnter);
  DoEvents();
  EXPECT_FALSE(d.Exists(popup));
  EXPECT_EQ(c.EventDetails(kEventPopupEntry).size(), 1u);
}

TEST_F(SimClientTest, FaultsIgnoredClickSlowReactionForeignPopup) {
  SimClient c(d, {.generation = 5});
  c.IgnoreClicks(1);
  Click(d, c.ToolbarIcon(3));
  for (int i = 0; i < 200; ++i) WaitEvents();
  EXPECT_EQ(d.FindWindowA("#32768", std::nullopt), 0);
  EXPECT_TRUE(c.HasEvent(kEventClickIgnored, "toolbar icon 3"));

  c.SetSlow("toolbar icon 3", 1.0);
  Click(d, c.ToolbarIcon(3));
  double clicked = vt.clock().Now();
  PumpUntil([&] { return d.FindWindowA("#32768", std::nullopt) != 0; }, 3000);
  EXPECT_GE(vt.clock().Now() - clicked, 1.05);

  Hwnd foreign = c.ShowForeignPopup();
  EXPECT_EQ(d.FindWindowA("#32768", std::nullopt), foreign);
  Key(d, foreign, aol::kKeyDown);
  Key(d, foreign, aol::kKeyEnter);
  DoEvents();
  EXPECT_EQ(c.EventDetails(kEventForeignKey), (std::vector<std::string>{"40", "13"}));
  EXPECT_FALSE(d.Exists(foreign));
  // A release without a press is no click.
  d.PostMessageA(c.ToolbarIcon(5), aol::kWmLButtonUp, 0, LParam());
  DoEvents();
  EXPECT_FALSE(c.HasEvent(kEventClick, "toolbar icon 5"));
}

TEST_F(SimClientTest, ReactionsOfAClientThatQuitAreDropped) {
  SimClient c(d, {.generation = 5});
  bool ran = false;
  c.Later("x", [&] { ran = true; });
  c.Quit();
  for (int i = 0; i < 100; ++i) WaitEvents();
  EXPECT_FALSE(ran);
}

TEST_F(SimClientTest, ExtensionsBuildWindowsWithClicksAndDialogs) {
  SimClient c(d, {.generation = 5});
  // A mail module replaces the Write Mail reaction of toolbar icon 2.
  c.OnToolbarIcon(2, [&] {
    Hwnd w = c.OpenDocument("Write Mail");
    Hwnd send = c.AddControls(w, "_AOL_Icon", 17);
    c.OnClick(send, "send later", [&c, w] {
      c.Log("mail queued", c.desktop().TextOf(w));
      c.ShowDialog("America Online", "Your mail has been queued.", {"OK"},
                   [&c](const std::string& b) { c.Log("dialog", b); });
    });
  });
  Click(d, c.ToolbarIcon(2));
  PumpUntil([&] { return c.Document("Write Mail") != 0; });
  Hwnd w = c.Document("Write Mail");
  Click(d, d.ChildOfClass(w, "_AOL_Icon", 17));
  PumpUntil([&] { return d.FindWindowA("#32770", "America Online") != 0; });
  Hwnd box = d.FindWindowA("#32770", "America Online");
  Hwnd ok = d.FindWindowExA(box, 0, "Button", "OK");
  std::int32_t zero = 0;
  d.SendMessageA(ok, aol::kWmKeyDown, 32, LParam::Word(zero));
  d.SendMessageA(ok, aol::kWmKeyUp, 32, LParam::Word(zero));
  PumpUntil([&] { return !d.Exists(box); });
  EXPECT_EQ(c.EventsText(),
            "click: toolbar icon 2\n"
            "toolbar icon: 2\n"
            "click: send later\n"
            "mail queued: Write Mail\n"
            "dialog: OK\n");
}

}  // namespace
}  // namespace qc::sim
