// The window routines' reads, which the golden scripts leave out: the client's generation and
// screen name, how the menu texts are matched, the buddy list's text search and the glyph's frame.
#include "client/window_routines.h"

#include <gtest/gtest.h>

#include <vector>

#include "client/buddy_list.h"
#include "client/chat_room.h"
#include "client/client_commands.h"
#include "client/vocabulary.h"
#include "sim/sim_chat.h"
#include "sim/sim_client.h"
#include "support/budget.h"
#include "support/cases.h"

namespace qc {
namespace {

using sim::SimClient;
using sim::SimDesktop;
using Lines = std::vector<std::string>;

class WindowRoutinesTest : public ::testing::Test {
 protected:
  test::VirtualTime vt;
  SimDesktop d;

  // Drop-down `position` of the running client's menu bar (built, not traced by the test).
  Hmenu DropDown(const SimClient& c, int position) {
    return d.GetSubMenu(d.GetMenu(c.frame()), position);
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
    SimClient c(d, {.generation = gen, .screenName = "Ann Lee"});
    d.ClearTrace();
    EXPECT_EQ(ClientVersion(d), gen);
    // Menu texts are read by command id into 100 characters.
    for (const std::string& read : d.TraceLines(static_cast<unsigned>(sim::TraceKind::kMenu))) {
      EXPECT_TRUE(read.rfind("GetMenuStringA", 0) != 0 || read.find(" 100 1 -> ") != std::string::npos)
          << read;
    }
    EXPECT_EQ(FindMdiClient(d), c.mdi());
    // The welcome window stands behind the channels window.
    EXPECT_NE(d.Children(c.mdi()).front(), c.welcome());
    EXPECT_EQ(ClientScreenName(d), "Ann Lee");
    c.SignOff();
    EXPECT_EQ(ClientScreenName(d), "");
    c.SignOn("Zed");
    EXPECT_EQ(ClientScreenName(d), "Zed");
  }
}

// data/window_routines.txt: the generation of clients with odd menus, the screen name of odd
// document windows, the transfer window's texts, the entry RunMainMenu runs for a text.
TEST_F(WindowRoutinesTest, GoldenCases) {
  using test::Args;
  test::RunCases(
      QC_TEST_DATA_DIR "/window_routines.txt",
      {{"Version",
        [&](const Args& a) {
          SimClient c(d, {.generation = std::stoi(a[0])});
          if (a[1] == "cut") d.TruncateMenu(DropDown(c, 4), 9);
          if (a[1] != "cut" && a[1] != "-") d.SetItemText(DropDown(c, 4), 9, a[1]);
          if (a[2] != "-") d.SetItemText(DropDown(c, 6), 0, a[2]);
          return std::to_string(ClientVersion(d));
        }},
       {"ScreenName", [](const Args& a) {
          SimDesktop bare;
          const Hwnd frame = bare.NewWindow(0, aol::kFrameClass, aol::kFrameCaption);
          const Hwnd mdi = bare.NewWindow(frame, aol::kMdiClientUpperClass);
          for (const std::string& caption : a) {
            const bool view = caption.rfind("view:", 0) == 0;
            bare.NewWindow(mdi, view ? aol::kViewClass : aol::kChildClass, caption.substr(view ? 5 : 0));
          }
          return ClientScreenName(bare);
        }},
       {"TransferStatus", [&](const Args& a) {
          SimClient c(d, {.generation = 5});
          sim::SimChat chat(c);
          if (a[0] != "-") chat.SetTransferTexts(a[0], a[1], a[2]);
          const TransferStatus s = ReadTransferStatus(d);
          return s.percent + " | " + s.amount + " | " + s.file;
        }},
       {"RunMainMenu", [&](const Args& a) {
          SimClient c(d, {.generation = std::stoi(a[0])});
          RunMainMenu(d, a[1]);
          std::string runs;
          for (const std::string& entry : c.EventDetails(sim::kEventMenuItem)) runs += entry;
          return runs;
        }}});
}

TEST_F(WindowRoutinesTest, ScreenNameInAnotherCodePageComesBackAsItsBytes) {
  // A client on another code page: its bytes pass through the driver untouched, and the program
  // reads them as Windows-1252.
  SimClient c(d, {.generation = 5, .screenName = "\xC8\xE2\xE0\xED"});
  EXPECT_EQ(ClientScreenName(d), "\xC8\xE2\xE0\xED");
  EXPECT_EQ(FromCodePage(ClientScreenName(d)), "\u00C8\u00E2\u00E0\u00ED");
  EXPECT_EQ(LowerCodePage("\xC8" "Ab\x8A"), "\xE8" "ab\x9A");
}

TEST_F(WindowRoutinesTest, BuddyListIsFoundByAnyTextHoldingTheMark) {
  SimClient client(d, {.generation = 3});
  EXPECT_EQ(FindBuddyList(d), 0);
  const Hwnd list = client.OpenDocument("someone's Buddy List Setup");
  client.OpenDocument("Buddy list");  // in front, but no "'s Buddy List"
  EXPECT_EQ(FindBuddyList(d), list);
}

TEST_F(WindowRoutinesTest, GlyphIsClosedOnlyUnderTheFrameWithTheTwoBlankCaption) {
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
