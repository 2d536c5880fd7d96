// Chat announcements as they reach the simulated room, the sender's cut, tail and restore, the
// room search, the transfer status extraction, upchat mode and the menu wiring.
#include <gtest/gtest.h>

#include <QAction>
#include <string>
#include <vector>

#include "app/chat.h"
#include "app/forms/frmmain.h"
#include "app/forms/frmmenu.h"
#include "app/upchat.h"
#include "base/failure.h"
#include "base/prompts.h"
#include "sim/sim_chat.h"
#include "sim/sim_client.h"
#include "sim/sim_im.h"
#include "support/budget.h"
#include "support/scripted_prompts.h"

namespace qc {
namespace {

using sim::RoomForm;
using sim::RoomInput;
using Lines = std::vector<std::string>;

// As the room holds them: Windows-1252 bytes, written out one by one.
const std::string kLine1 = "\xA0\xA0\x8B\xA1! quill cast : v.qc23e : brindle";
const std::string kLine3 = "\xA0\xA0\xA0\xA0`\xB7\x96\x9B \xF3mbreval\xE8 productions";
const std::string kLine2Head = "\xA0\xA0\x8B!\xA1";
const std::string kMenuHead = "\xA0\xA0\x8B\xA1";
const std::string kTail = "</b></i></u><font face=arial>";

class ChatTest : public ::testing::Test {
 protected:
  ChatTest() { SetWindowSystem(&d); }
  ~ChatTest() override { SetWindowSystem(nullptr); }

  Lines MessagesTo(Hwnd window, std::uint32_t message) {
    Lines out;
    for (const auto& t : d.Trace()) {
      if (t.window == window && t.message == message && t.op == "SendMessageA")
        out.push_back(t.line);
    }
    return out;
  }

  test::VirtualTime vt;
  sim::SimDesktop d;
  sim::SimClient client{d};
  sim::SimChat chat{client};
  test::ScriptedPrompts prompts;
};

void Send(std::string text, bool tail = true, bool cut = false) {
  test::PumpBudget budget(5000);
  ChatSend(text, tail, cut);
}

TEST_F(ChatTest, BlocksReachTheRoomByteExactAndTheUsersTypingSurvives) {
  FrmMain f;
  f.lblUps->SetCaption("12");
  f.lblMBs->SetCaption("85.2");
  struct Case {
    void (*send)(const FrmMain&);
    std::string word;
  };
  const Case cases[] = {{SendStartBlock, "start"}, {SendEndBlock, "end"}, {BragStats, "brag"}};
  for (const Case& c : cases) {
    const Hwnd room = chat.OpenRoom("Town Square - Lobby 12");
    chat.Type(room, "half typ");
    {
      test::PumpBudget budget(20000);
      c.send(f);
    }
    const std::string line2 = kLine2Head + " " + c.word + " : 12tgs : 85.20mbs";
    EXPECT_EQ(chat.Transcript(room), (Lines{kLine1 + kTail, line2 + kTail, kLine3 + kTail}))
        << c.word;
    EXPECT_EQ(d.TextOf(chat.Input(room)), "half typ");
    d.DestroyWindow(room);
  }
}

TEST_F(ChatTest, TheCountsLineIsBuiltOnceTheFirstLineHasGone) {
  FrmMain f;
  f.lblUps->SetCaption("12");
  f.lblMBs->SetCaption("85.2");
  const Hwnd room = chat.OpenRoom("Lobby");
  // A file counted while the room takes line 1.
  const PumpHookId counted = AddPumpHook([&] {
    if (chat.Transcript(room).size() == 1) f.lblUps->SetCaption("13");
  });
  {
    test::PumpBudget budget(20000);
    BragStats(f);
  }
  RemovePumpHook(counted);
  ASSERT_EQ(chat.Transcript(room).size(), 3u);
  EXPECT_EQ(chat.Transcript(room)[1], kLine2Head + " brag : 13tgs : 85.20mbs" + kTail);
}

TEST_F(ChatTest, GigsInTheCountsLine) {
  FrmMain f;
  f.lblUps->SetCaption("3001");
  f.lblMBs->SetCaption("1500000");
  const Hwnd room = chat.OpenRoom("Lobby");
  {
    test::PumpBudget budget(20000);
    BragStats(f);
  }
  ASSERT_EQ(chat.Transcript(room).size(), 3u);
  EXPECT_EQ(chat.Transcript(room)[1], kLine2Head + " brag : 3001tgs : 1,500.00gigs" + kTail);
}

TEST_F(ChatTest, ScrollFormsDifferByOneMark) {
  chat.StartTransfer("Song Name.MP3", "45", "1.25");
  const Hwnd room = chat.OpenRoom("Lobby");
  {
    test::PumpBudget budget(20000);
    ScrollStats(false);
    ScrollStats(true);
  }
  const std::string rest = "  song name.mp3 : 45% : 1.25" + kTail;
  EXPECT_EQ(chat.Transcript(room), (Lines{kLine1 + kTail, kLine2Head + rest, kLine3 + kTail,
                                          kLine1 + kTail, kMenuHead + rest, kLine3 + kTail}));
}

TEST_F(ChatTest, ScrollWithoutTransferSaysNoneThrice) {
  const Hwnd room = chat.OpenRoom("Lobby");
  {
    test::PumpBudget budget(20000);
    ScrollStats(false);
  }
  ASSERT_EQ(chat.Transcript(room).size(), 3u);
  EXPECT_EQ(chat.Transcript(room)[1], kLine2Head + "  none : none% : none" + kTail);
}

TEST_F(ChatTest, AolEditInputGetsNoTailAndIsNotClearedFirst) {
  for (RoomForm form : {RoomForm::kA, RoomForm::kB}) {
    const Hwnd room = chat.OpenRoom("Lobby", form, RoomInput::kAolEdit);
    const Hwnd box = chat.Input(room);
    chat.Type(room, "mine");
    d.ClearTrace();
    Send("hello there");
    EXPECT_EQ(chat.Transcript(room), Lines{"hello there"});
    EXPECT_EQ(d.TextOf(box), "mine");
    const Lines sets = MessagesTo(box, 12);
    ASSERT_EQ(sets.size(), 2u);
    EXPECT_NE(sets[0].find("\"hello there\""), std::string::npos);
    EXPECT_NE(sets[1].find("\"mine\""), std::string::npos);
    d.DestroyWindow(room);
  }
}

TEST_F(ChatTest, RichInputIsClearedFirstOnlyWhenTheUserTyped) {
  const Hwnd room = chat.OpenRoom("Lobby", RoomForm::kB, RoomInput::kRichPair);
  const Hwnd box = chat.Input(room);
  Send("one");
  EXPECT_EQ(MessagesTo(box, 12).size(), 1u);
  chat.Type(room, "x");
  d.ClearTrace();
  Send("two");
  const Lines sets = MessagesTo(box, 12);
  ASSERT_EQ(sets.size(), 3u);
  EXPECT_NE(sets[0].find("\"\""), std::string::npos);
  EXPECT_EQ(chat.Transcript(room), (Lines{"one" + kTail, "two" + kTail}));
  EXPECT_EQ(d.TextOf(box), "x");
}

TEST_F(ChatTest, CutAtNinetyTwoBeforeTheTail) {
  const Hwnd room = chat.OpenRoom("Lobby");
  struct Case {
    std::size_t length;
    bool cut;
    std::size_t sent;
  };
  const Case cases[] = {
      {91, true, 91}, {92, true, 92}, {93, true, 92}, {93, false, 93}, {200, true, 92}};
  for (const Case& c : cases) {
    std::string text(c.length, 'a');
    bool tail = true;
    bool cut = c.cut;
    {
      test::PumpBudget budget(5000);
      ChatSend(text, tail, cut);
    }
    EXPECT_EQ(chat.Transcript(room).back(), std::string(c.sent, 'a') + kTail) << c.length;
    EXPECT_EQ(text, std::string(c.sent, 'a') + kTail) << "the caller's text is changed";
  }
  // Characters of the code page: a no-break blank or a "‹" counts one, as its one byte.
  std::string wide;
  for (int i = 0; i < 93; ++i) wide += "\u00A0";
  Send(wide, false, true);
  EXPECT_EQ(chat.Transcript(room).back(), std::string(92, '\xA0'));
  Send(std::string(90, 'a') + "\u00A1\u2039\u203A", false, true);
  EXPECT_EQ(chat.Transcript(room).back(), std::string(90, 'a') + "\xA1\x8B");
}

TEST_F(ChatTest, EmptyLineOrNoRoomSendsNothing) {
  Send("nobody hears this");  // no room at all
  const Hwnd room = chat.OpenRoom("Lobby");
  d.ClearTrace();
  Send("");
  EXPECT_TRUE(MessagesTo(chat.Input(room), 12).empty());
  EXPECT_TRUE(chat.Transcript(room).empty());
}

TEST_F(ChatTest, OwnWindowInFrontHidesTheRoomBehindIt) {
  const Hwnd room = chat.OpenRoom("Lobby");
  EXPECT_EQ(FindChatRoom(), room);
  const Hwnd own = chat.OpenRoom("BRINDLE ROSE's Room");  // compared without case
  EXPECT_EQ(FindChatRoom(), 0);
  Send("lost");
  EXPECT_TRUE(chat.Transcript(room).empty());
  EXPECT_TRUE(chat.Transcript(own).empty());
  d.BringToTop(room);
  EXPECT_EQ(FindChatRoom(), room);
}

TEST_F(ChatTest, RoomsOfBothFormsAreFoundBehindOtherWindows) {
  const Hwnd b = chat.OpenRoom("Room B", RoomForm::kB, RoomInput::kAolEdit);
  const Hwnd other = client.OpenDocument("Not a room");
  client.AddControl(other, "RICHCNTL");
  client.AddControl(other, "_AOL_Icon");
  client.AddControl(other, "_AOL_Listbox");  // no static, no combo, no view
  EXPECT_EQ(FindChatRoom(), b);
  const Hwnd a = chat.OpenRoom("Room A", RoomForm::kA, RoomInput::kAolEdit);
  EXPECT_EQ(FindChatRoom(), a);
}

TEST_F(ChatTest, ARoomThatNeverTakesTheLineKeepsTheSenderWaiting) {
  const Hwnd room = chat.OpenRoom("Lobby");
  chat.SetStuck(room, true);
  std::string text = "stuck";
  bool tail = false;
  bool cut = false;
  test::PumpBudget budget(3000);
  EXPECT_THROW(ChatSend(text, tail, cut), test::BudgetExhausted);
}

// ---------------------------------------------------------------- transfer status

TEST_F(ChatTest, TransferStatusFromTheWindowsTexts) {
  EXPECT_EQ(ReadTransferStatus(), (TransferStatus{"none", "none", "none"}));
  struct Case {
    const char* title;
    const char* fileLine;
    const char* amountLine;
    TransferStatus expected;
  };
  const Case cases[] = {
      {"File Transfer - 45%",
       "Now uploading song.mp3",
       "Sent: 1.25 MB of 3.40 MB",
       {"45", "1.25", " song.mp3"}},
      {"File Transfer - 100%",
       "Now uploading a b.mp3",
       "Sent: 3.40 MB",
       {"100", "3.40", " a b.mp3"}},
      {"File Transfer - ab%", "Now uploading x.mp3", "Sent: lots of it", {"na", "na", " x.mp3"}},
      // No "r - ": the text is taken from its fourth character.
      {"Upload - 45%", "Now uploading x.mp3", "Sent: 2 MB", {"na", "2", " x.mp3"}},
      {"abc45 - x", "Now uploading x.mp3", "Sent: 2 MB", {"na", "2", " x.mp3"}},
      {"File Transfer", "Now uploading x.mp3", "Sent: 2 MB", {"none", "none", "none"}},
      // Positions count code-page characters: the blank of "\xE9t\xE9 b" stands at 4.
      {"File Transfer - 5%", "Sending\xE9t\xE9 b.mp3", "Sent: 1.25 MB of 3", {"5", "5", "\u00E9t\u00E9 b.mp3"}},
  };
  for (const Case& c : cases) {
    chat.SetTransferTexts(c.title, c.fileLine, c.amountLine);
    EXPECT_EQ(ReadTransferStatus(), c.expected) << c.title << " | " << c.amountLine;
  }
}

TEST_F(ChatTest, TransferTextsWithoutBlanksRaise) {
  const std::pair<const char*, const char*> cases[] = {
      {"Now uploadingsong.mp3", "Sent: 1.25 MB"},  // no blank in the file text
      {"Now uploading song.mp3", "Sent: 1.25"},    // no blank left in the amount text
  };
  for (const auto& [fileLine, amountLine] : cases) {
    chat.SetTransferTexts("File Transfer - 5%", fileLine, amountLine);
    try {
      ReadTransferStatus();
      ADD_FAILURE() << fileLine;
    } catch (const RuntimeFailure& e) {
      EXPECT_EQ(e.number(), kInvalidArgument) << fileLine;
    }
  }
}

// ---------------------------------------------------------------- upchat

TEST_F(ChatTest, UpchatWithoutTransferWindowComplains) {
  UpchatOn();
  UpchatOff();
  ASSERT_EQ(prompts.boxes.size(), 2u);
  for (const auto& box : prompts.boxes) {
    EXPECT_EQ(box.text, "file transfer window not found");
    EXPECT_EQ(box.flags, 16 + 4096);
    EXPECT_EQ(box.title, "error: ");
  }
}

TEST_F(ChatTest, UpchatHidesAndMinimisesThenRestores) {
  const Hwnd modal = chat.StartTransfer("song.mp3");
  auto shows = [&] {
    Lines out;
    for (const auto& t : d.Trace()) {
      if (t.op == "ShowWindow") {
        EXPECT_EQ(t.window, modal);
        out.push_back(t.line.substr(t.line.rfind(' ') + 1));
      }
    }
    d.ClearTrace();
    return out;
  };
  d.ClearTrace();
  UpchatOn();
  EXPECT_EQ(shows(), (Lines{"0", "6"}));
  UpchatOn();  // the same window again: still minimised
  EXPECT_EQ(shows(), (Lines{"0", "6"}));
  UpchatOff();
  EXPECT_EQ(shows(), (Lines{"0", "9"}));
  EXPECT_TRUE(d.Visible(modal));
  EXPECT_TRUE(prompts.boxes.empty());
}

TEST(ShowMessage, AlwaysSystemModal) {
  test::ScriptedPrompts prompts;
  std::string text = "t";
  int flags = 64;
  std::string title = "x";
  ShowMessage(text, flags, title);
  ASSERT_EQ(prompts.boxes.size(), 1u);
  EXPECT_EQ(prompts.boxes[0].flags, 64 + 4096);
  EXPECT_EQ(flags, 64);
}

// ---------------------------------------------------------------- wiring

TEST_F(ChatTest, MenuItemsAndButtonsReachTheirRoutines) {
  FrmMain f;
  FrmMenu m;
  f.lblUps->SetCaption("7");
  f.lblMBs->SetCaption("1.5");
  ConnectChatTools(f, m);
  const Hwnd room = chat.OpenRoom("Lobby");
  chat.StartTransfer("a.mp3", "10", "0.34");
  test::PumpBudget budget(50000);
  m.bragg->trigger();
  m.upchatscrolll->trigger();
  emit f.picBut5->clicked();
  const Lines t = chat.Transcript(room);
  ASSERT_EQ(t.size(), 9u);
  EXPECT_EQ(t[1], kLine2Head + " brag : 7tgs : 1.50mbs" + kTail);
  EXPECT_EQ(t[4], kMenuHead + "  a.mp3 : 10% : 0.34" + kTail);
  EXPECT_EQ(t[7], kLine2Head + "  a.mp3 : 10% : 0.34" + kTail);

  d.ClearTrace();
  m.ucon->trigger();
  emit f.picBut3->clicked();
  m.ucoff->trigger();
  emit f.picBut4->clicked();
  Lines shows;
  for (const auto& e : d.Trace()) {
    if (e.op == "ShowWindow") shows.push_back(e.line.substr(e.line.rfind(' ') + 1));
  }
  EXPECT_EQ(shows, (Lines{"0", "6", "0", "6", "0", "9", "0", "9"}));
}

TEST(ChatToolsMenu, ImsAndGhostFollowTheClientsGeneration) {
  for (int generation : {3, 5}) {
    test::VirtualTime vt;
    sim::SimDesktop d;
    sim::SimClient client(d, {.generation = generation});
    sim::SimIm im(client);
    SetWindowSystem(&d);
    FrmMain f;
    FrmMenu m;
    ConnectChatTools(f, m);
    {
      test::PumpBudget budget(50000);
      m.imzzoff->trigger();
      m.imzonn->trigger();
      m.gonnnnn->trigger();
      m.gofffff->trigger();
    }
    SetWindowSystem(nullptr);
    EXPECT_EQ(im.Sent(),
              (std::vector<sim::ImRecord>{{"$im_off", "\xA0"}, {"$im_on", "\xA0"}}));
    using Writes = std::vector<std::pair<int, int>>;
    const Writes expected = generation == 5
                                ? Writes{{5, -1}, {7, -1}, {1, -1}}
                                : Writes{{1, 0},  {2, 0}, {3, 0}, {4, 0}, {5, -1}, {6, 0},  {7, -1},
                                         {1, -1}, {2, 0}, {3, 0}, {4, 0}, {5, 0},  {6, -1}, {7, 0}};
    EXPECT_EQ(im.PrivacyWrites(), expected) << generation;
  }
}

}  // namespace
}  // namespace qc
