#include "client/window_routines.h"

#include <gtest/gtest.h>

#include <vector>

#include "base/failure.h"
#include "client/vocabulary.h"
#include "sim/sim_client.h"
#include "support/budget.h"

namespace qc {
namespace {

using sim::SimClient;
using sim::SimDesktop;

class WindowRoutinesTest : public ::testing::Test {
 protected:
  test::VirtualTime vt;
  SimDesktop d;

  // Drop-down `position` of the running client's menu bar (built, not traced by the test).
  Hmenu DropDown(const SimClient& c, int position) {
    return d.GetSubMenu(d.GetMenu(c.frame()), position);
  }

  // A bare frame with an MDI area whose document windows carry these captions, front to back.
  Hwnd FrameWithDocuments(const std::vector<std::string>& captions) {
    Hwnd frame = d.NewWindow(0, aol::kFrameClass, aol::kFrameCaption);
    Hwnd mdi = d.NewWindow(frame, aol::kMdiClientUpperClass);
    for (const std::string& caption : captions) d.NewWindow(mdi, aol::kChildClass, caption);
    return frame;
  }
};

TEST_F(WindowRoutinesTest, NoClientGivesThreeZeroAndNoName) {
  EXPECT_EQ(ClientVersion(d), 3);
  EXPECT_EQ(FindMdiClient(d), 0);
  EXPECT_EQ(ClientScreenName(d), "");
  // A stopped client is the same as none.
  SimClient c(d, {.generation = 5, .running = false});
  EXPECT_EQ(ClientVersion(d), 3);
  EXPECT_EQ(ClientScreenName(d), "");
}

TEST_F(WindowRoutinesTest, EachGenerationIsDetectedAndItsScreenNameRead) {
  for (int gen : {2, 3, 4, 5}) {
    SCOPED_TRACE(gen);
    {
      SimClient c(d, {.generation = gen, .screenName = "Ann Lee"});
      EXPECT_EQ(ClientVersion(d), gen);
      EXPECT_EQ(FindMdiClient(d), c.mdi());
      // The welcome window stands behind the channels window.
      EXPECT_NE(d.Children(c.mdi()).front(), c.welcome());
      EXPECT_EQ(ClientScreenName(d), "Ann Lee");
      c.SignOff();
      EXPECT_EQ(ClientScreenName(d), "");
      c.SignOn("Zed");
      EXPECT_EQ(ClientScreenName(d), "Zed");
    }
    EXPECT_EQ(ClientVersion(d), 3);
  }
}

TEST_F(WindowRoutinesTest, VersionTextsAndOddMenus) {
  // Each case edits one client's menu: the fifth drop-down's tenth entry, the seventh's first.
  struct Case {
    int generation;
    const char* tenthOfFifth;  // nullptr: left; "" : the drop-down cut to nine entries
    const char* firstOfSeventh;
    int expected;
  };
  const Case cases[] = {
      {5, "AOL 4.0 and 5.0", nullptr, 5},
      {5, "4.0 first, then 5.0", nullptr, 5},
      {4, "What's new in 4.0", nullptr, 4},
      {5, "What's new in 5.00", nullptr, 5},
      {5, "What's new in 5,0", nullptr, 3},
      {5, "", nullptr, 3},            // short fifth drop-down: the read fails, blanks stay
      {5, "", "&Contents", 2},        // ... and the "&Contents" test decides
      {3, nullptr, "&CONTENTS", 2},   // capitals
      {3, nullptr, "&CONTENTS and Index", 2},
      {3, nullptr, "&contents", 2},
      {3, nullptr, "Contents", 3},    // no ampersand
      {3, nullptr, " &Contents", 3},  // must begin the text
      {3, nullptr, "&Content", 3},
      {2, nullptr, nullptr, 2},
  };
  for (const Case& k : cases) {
    SCOPED_TRACE(std::to_string(k.generation) + " " + (k.tenthOfFifth ? k.tenthOfFifth : "-") +
                 " " + (k.firstOfSeventh ? k.firstOfSeventh : "-"));
    SimClient c(d, {.generation = k.generation});
    if (k.tenthOfFifth) {
      if (*k.tenthOfFifth == '\0') {
        d.TruncateMenu(DropDown(c, 4), 9);
      } else {
        d.SetItemText(DropDown(c, 4), 9, k.tenthOfFifth);
      }
    }
    if (k.firstOfSeventh) d.SetItemText(DropDown(c, 6), 0, k.firstOfSeventh);
    EXPECT_EQ(ClientVersion(d), k.expected);
  }
}

TEST_F(WindowRoutinesTest, MenuBarsWithMissingDropDownsGiveThree) {
  Hwnd frame = FrameWithDocuments({});
  EXPECT_EQ(ClientVersion(d), 3);  // no menu bar at all
  Hmenu bar = d.CreateMenu();
  for (int i = 0; i < 3; ++i) {
    Hmenu sub = d.CreateMenu();
    d.AppendItem(sub, 100 + i, "&Contents 5.0");
    d.AppendSubMenu(bar, "x", sub);
  }
  d.SetMenu(frame, bar);
  EXPECT_EQ(ClientVersion(d), 3);
}

TEST_F(WindowRoutinesTest, VersionReadsMenuTextsByCommandIdWithLength100) {
  SimClient c(d, {.generation = 5});
  d.ClearTrace();
  ClientVersion(d);
  std::vector<std::string> reads;
  for (const auto& e : d.Trace()) {
    if (e.op == "GetMenuStringA") reads.push_back(e.line);
  }
  ASSERT_EQ(reads.size(), 2u);
  EXPECT_NE(reads[0].find(" 100 1"), std::string::npos) << reads[0];
  EXPECT_NE(reads[1].find(" 100 1"), std::string::npos) << reads[1];
}

TEST_F(WindowRoutinesTest, ScreenNameWalk) {
  struct Case {
    std::vector<std::string> captions;  // document windows, front to back
    const char* expected;
  };
  const Case cases[] = {
      {{"Welcome, Bob!"}, "Bob"},
      {{"Welcome, Bob! Mail for you!"}, "Bob"},  // up to the first "!"
      {{"Welcome, !"}, ""},
      {{"Channels", "Buddy Lists", "Welcome, Ann Lee!"}, "Ann Lee"},
      {{"Hi Welcome, Bob!"}, ""},  // must stand at the start
      {{"Hi Welcome, Bob!", "Welcome, Cy!"}, "Cy"},
      {{"Welcome, Ann!", "Welcome, Bob!"}, "Ann"},  // the first that matches
      {{"welcome, Bob!"}, ""},  // case counts
      {{"Welcome,Bob!"}, ""},
      {{"Welcome"}, ""},
      {{}, ""},
  };
  for (const Case& k : cases) {
    SCOPED_TRACE(k.captions.empty() ? "none" : k.captions.front());
    Hwnd frame = FrameWithDocuments(k.captions);
    EXPECT_EQ(ClientScreenName(d), k.expected);
    d.DestroyWindow(frame);
  }
}

TEST_F(WindowRoutinesTest, WindowsOfAnotherClassAreNotWalked) {
  Hwnd frame = FrameWithDocuments({"Channels"});
  Hwnd mdi = d.ChildOfClass(frame, aol::kMdiClientClass);
  d.NewWindow(mdi, aol::kViewClass, "Welcome, Wrong!");
  d.NewWindow(mdi, aol::kChildClass, "Welcome, Right!");
  EXPECT_EQ(ClientScreenName(d), "Right");
}

TEST_F(WindowRoutinesTest, WelcomeCaptionWithoutBangIsAnInvalidArgumentFailure) {
  for (const std::vector<std::string>& captions :
       {std::vector<std::string>{"Welcome, Bob"}, std::vector<std::string>{"Chat", "Welcome, "}}) {
    Hwnd frame = FrameWithDocuments(captions);
    try {
      ClientScreenName(d);
      ADD_FAILURE() << "no failure for " << captions.back();
    } catch (const RuntimeFailure& f) {
      EXPECT_EQ(f.number(), kInvalidArgument);
    }
    d.DestroyWindow(frame);
  }
}

TEST_F(WindowRoutinesTest, ScreenNameInAnotherCodePageComesBackAsItsBytes) {
  // A client on another code page: its bytes pass through the driver untouched, and the program
  // reads them as Windows-1252.
  SimClient c(d, {.generation = 5, .screenName = "\xC8\xE2\xE0\xED"});
  EXPECT_EQ(ClientScreenName(d), "\xC8\xE2\xE0\xED");
  EXPECT_EQ(FromCodePage(ClientScreenName(d)), "\u00C8\u00E2\u00E0\u00ED");
  EXPECT_EQ(LowerCodePage("\xC8" "Ab\x8A"), "\xE8" "ab\x9A");
}

TEST_F(WindowRoutinesTest, CaptionControlTextAndClose) {
  SimClient c(d, {.generation = 5, .screenName = "Al"});
  EXPECT_EQ(WindowCaption(d, c.welcome()), "Welcome, Al!");
  EXPECT_EQ(WindowCaption(d, c.frame()), "America  Online");
  EXPECT_EQ(WindowCaption(d, 0), "");
  // On a document window the control text is the caption.
  EXPECT_EQ(ControlText(d, c.welcome()), "Welcome, Al!");
  d.SetText(c.keywordEdit(), "buddy view");
  EXPECT_EQ(ControlText(d, c.keywordEdit()), "buddy view");
  EXPECT_EQ(ControlText(d, 0), "");

  d.ClearTrace();
  ControlText(d, c.keywordEdit());
  WindowCaption(d, c.welcome());
  CloseWindow(d, c.welcome());
  const std::string frame = "AOL Frame25\"America  Online\"";
  const std::string edit = frame + "/AOL Toolbar/_AOL_Toolbar/_AOL_Combobox/Edit";
  EXPECT_EQ(d.TraceLines(sim::kTraceMessages),
            (std::vector<std::string>{
                "SendMessageA " + edit + " 14 0 &0", "SendMessageA " + edit + " 13 11 buf[10]",
                "PostMessageA " + frame + "/MDIClient/AOL Child\"Welcome, Al!\" 16 0 0"}));
  EXPECT_TRUE(d.Violations().empty());
  Hwnd welcome = c.welcome();
  EXPECT_TRUE(d.Exists(welcome));  // posted: the client closes it on its next turn
  DoEvents();
  EXPECT_FALSE(d.Exists(welcome));
}

}  // namespace
}  // namespace qc
