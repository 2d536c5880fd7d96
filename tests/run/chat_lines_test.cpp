// Chat announcements as they reach the simulated room, the sender's cut, tail and restore, the
// room search, the transfer status extraction, upchat mode and the menu wiring.
#include <QAction>

#include "base/failure.h"
#include "run/chat.h"
#include "run/upchat.h"
#include "sim/sim_chat.h"
#include "sim/sim_im.h"
#include "support/sandbox.h"
#include "ui/frmmain.h"
#include "ui/frmmenu.h"

namespace qc::test {
namespace {

using sim::RoomForm;
using sim::RoomInput;
using Lines = std::vector<std::string>;

// Written out byte by byte, apart from the code under test.
const std::string kLine1 = "\xC2\xA0\xC2\xA0\xE2\x80\xB9\xC2\xA1! quill cast : v.qc23e : brindle";
const std::string kLine3 =
    "\xC2\xA0\xC2\xA0\xC2\xA0\xC2\xA0`\xC2\xB7\xE2\x80\x93\xE2\x80\xBA \xC3\xB3mbreval\xC3\xA8 "
    "productions";
const std::string kLine2Head = "\xC2\xA0\xC2\xA0\xE2\x80\xB9!\xC2\xA1";
const std::string kMenuHead = "\xC2\xA0\xC2\xA0\xE2\x80\xB9\xC2\xA1";
const std::string kTail = "</b></i></u><font face=arial>";

class ChatTest : public SandboxTest {
 protected:
  Lines SetTexts(Hwnd window) {
    Lines out;
    for (const auto& t : desktop.Trace()) {
      if (t.window == window && t.message == 12 && t.op == "SendMessageA") out.push_back(t.line);
    }
    return out;
  }
  Lines Shows() {
    Lines out;
    for (const auto& t : desktop.Trace()) {
      if (t.op == "ShowWindow") out.push_back(t.line.substr(t.line.rfind(' ') + 1));
    }
    desktop.ClearTrace();
    return out;
  }
  static void Send(std::string text, bool tail = true, bool cut = false) {
    PumpBudget budget(5000);
    ChatSend(text, tail, cut);
  }

  sim::SimClient chatClient{desktop};
  sim::SimChat chat{chatClient};
  FrmMain f;
};

TEST_F(ChatTest, BlocksReachTheRoomByteExactAndTheUsersTypingSurvives) {
  struct Case {
    void (*send)(const FrmMain&);
    const char* ups;
    const char* mbs;
    std::string line2;
  } cases[] = {
      {SendStartBlock, "12", "85.2", " start : 12tgs : 85.20mbs"},
      {SendEndBlock, "12", "85.2", " end : 12tgs : 85.20mbs"},
      {BragStats, "3001", "1500000", " brag : 3001tgs : 1,500.00gigs"},
  };
  for (const Case& c : cases) {
    f.lblUps->SetCaption(c.ups);
    f.lblMBs->SetCaption(c.mbs);
    const Hwnd room = chat.OpenRoom("Town Square - Lobby 12");
    chat.Type(room, "half typ");
    {
      PumpBudget budget(20000);
      c.send(f);
    }
    EXPECT_EQ(chat.Transcript(room),
              (Lines{kLine1 + kTail, kLine2Head + c.line2 + kTail, kLine3 + kTail}));
    EXPECT_EQ(desktop.TextOf(chat.Input(room)), "half typ");
    desktop.DestroyWindow(room);
  }
}

TEST_F(ChatTest, ScrollFormsDifferByOneMarkAndSayNoneWithoutATransfer) {
  const Hwnd room = chat.OpenRoom("Lobby");
  {
    PumpBudget budget(20000);
    ScrollStats(false);
    chat.StartTransfer("Song Name.MP3", "45", "1.25");
    ScrollStats(false);
    ScrollStats(true);
  }
  const Lines t = chat.Transcript(room);
  ASSERT_EQ(t.size(), 9u);
  EXPECT_EQ(t[1], kLine2Head + "  none : none% : none" + kTail);
  const std::string rest = "  song name.mp3 : 45% : 1.25" + kTail;
  EXPECT_EQ(Lines(t.begin() + 3, t.end()), (Lines{kLine1 + kTail, kLine2Head + rest, kLine3 + kTail,
                                                  kLine1 + kTail, kMenuHead + rest, kLine3 + kTail}));
}

TEST_F(ChatTest, AolEditInputGetsNoTailAndIsNotClearedFirst) {
  for (RoomForm form : {RoomForm::kA, RoomForm::kB}) {
    const Hwnd room = chat.OpenRoom("Lobby", form, RoomInput::kAolEdit);
    const Hwnd box = chat.Input(room);
    chat.Type(room, "mine");
    desktop.ClearTrace();
    Send("hello there");
    EXPECT_EQ(chat.Transcript(room), Lines{"hello there"});
    EXPECT_EQ(desktop.TextOf(box), "mine");
    const Lines sets = SetTexts(box);
    ASSERT_EQ(sets.size(), 2u);
    EXPECT_NE(sets[0].find("\"hello there\""), std::string::npos);
    EXPECT_NE(sets[1].find("\"mine\""), std::string::npos);
    desktop.DestroyWindow(room);
  }
}

TEST_F(ChatTest, RichInputIsClearedFirstOnlyWhenTheUserTyped) {
  const Hwnd room = chat.OpenRoom("Lobby", RoomForm::kB, RoomInput::kRichPair);
  const Hwnd box = chat.Input(room);
  Send("one");
  EXPECT_EQ(SetTexts(box).size(), 1u);
  chat.Type(room, "x");
  desktop.ClearTrace();
  Send("two");
  const Lines sets = SetTexts(box);
  ASSERT_EQ(sets.size(), 3u);
  EXPECT_NE(sets[0].find("\"\""), std::string::npos);
  EXPECT_EQ(chat.Transcript(room), (Lines{"one" + kTail, "two" + kTail}));
  EXPECT_EQ(desktop.TextOf(box), "x");
}

TEST_F(ChatTest, CutAtNinetyTwoCharactersBeforeTheTail) {
  const Hwnd room = chat.OpenRoom("Lobby");
  struct Case {
    std::size_t length;
    bool cut;
    std::size_t sent;
  } cases[] = {{91, true, 91}, {92, true, 92}, {93, true, 92}, {93, false, 93}, {200, true, 92}};
  for (const Case& c : cases) {
    std::string text(c.length, 'a');
    bool tail = true;
    bool cut = c.cut;
    {
      PumpBudget budget(5000);
      ChatSend(text, tail, cut);
    }
    EXPECT_EQ(chat.Transcript(room).back(), std::string(c.sent, 'a') + kTail) << c.length;
    EXPECT_EQ(text, std::string(c.sent, 'a') + kTail) << "the caller's text is changed";
  }
  // Characters, not bytes: a no-break blank counts one.
  std::string wide;
  for (int i = 0; i < 93; ++i) wide += "\xC2\xA0";
  Send(wide, false, true);
  EXPECT_EQ(chat.Transcript(room).back(), wide.substr(0, 184));
}

TEST_F(ChatTest, RoomSearchAndWhereNothingIsSent) {
  Send("nobody hears this");  // no room at all
  const Hwnd b = chat.OpenRoom("Room B", RoomForm::kB, RoomInput::kAolEdit);
  const Hwnd other = chatClient.OpenDocument("Not a room");
  chatClient.AddControl(other, "RICHCNTL");
  chatClient.AddControl(other, "_AOL_Icon");
  chatClient.AddControl(other, "_AOL_Listbox");  // no static, no combo, no view
  EXPECT_EQ(FindChatRoom(), b);
  const Hwnd room = chat.OpenRoom("Room A", RoomForm::kA, RoomInput::kAolEdit);
  EXPECT_EQ(FindChatRoom(), room);
  desktop.ClearTrace();
  Send("");
  EXPECT_TRUE(SetTexts(chat.Input(room)).empty());
  // The user's own room in front hides the room behind it (compared without case).
  const Hwnd own = chat.OpenRoom("BRINDLE ROSE's Room");
  EXPECT_EQ(FindChatRoom(), 0);
  Send("lost");
  EXPECT_TRUE(chat.Transcript(room).empty());
  EXPECT_TRUE(chat.Transcript(own).empty());
  desktop.BringToTop(room);
  EXPECT_EQ(FindChatRoom(), room);
}

TEST_F(ChatTest, ARoomThatNeverTakesTheLineKeepsTheSenderWaiting) {
  chat.SetStuck(chat.OpenRoom("Lobby"), true);
  std::string text = "stuck";
  bool tail = false;
  bool cut = false;
  PumpBudget budget(3000);
  EXPECT_THROW(ChatSend(text, tail, cut), BudgetExhausted);
}

TEST_F(ChatTest, TransferStatusFromTheWindowsTexts) {
  EXPECT_EQ(ReadTransferStatus(), (TransferStatus{"none", "none", "none"}));
  struct Case {
    const char* title;
    const char* fileLine;
    const char* amountLine;
    TransferStatus expected;  // or none, with the failure number
    int failure;
  } cases[] = {
      {"File Transfer - 45%", "Now uploading song.mp3", "Sent: 1.25 MB of 3.40 MB",
       {"45", "1.25", " song.mp3"}, 0},
      {"File Transfer - 100%", "Now uploading a b.mp3", "Sent: 3.40 MB", {"100", "3.40", " a b.mp3"}, 0},
      {"File Transfer - ab%", "Now uploading x.mp3", "Sent: lots of it", {"na", "na", " x.mp3"}, 0},
      // No "r - ": the text is taken from its fourth character.
      {"Upload - 45%", "Now uploading x.mp3", "Sent: 2 MB", {"na", "2", " x.mp3"}, 0},
      {"abc45 - x", "Now uploading x.mp3", "Sent: 2 MB", {"na", "2", " x.mp3"}, 0},
      {"File Transfer", "Now uploading x.mp3", "Sent: 2 MB", {"none", "none", "none"}, 0},
      {"File Transfer - 5%", "Now uploadingsong.mp3", "Sent: 1.25 MB", {}, kInvalidArgument},
      {"File Transfer - 5%", "Now uploading song.mp3", "Sent: 1.25", {}, kInvalidArgument},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.title) + " | " + c.fileLine + " | " + c.amountLine);
    chat.SetTransferTexts(c.title, c.fileLine, c.amountLine);
    TransferStatus got;
    EXPECT_EQ(FailureNumberOf([&] { got = ReadTransferStatus(); }), c.failure);
    if (!c.failure) {
      EXPECT_EQ(got, c.expected);
    }
  }
}

TEST_F(ChatTest, UpchatHidesAndMinimisesThenRestoresOrComplains) {
  UpchatOn();
  UpchatOff();
  for (std::size_t i : {0u, 1u}) ExpectBox(prompts, i, "file transfer window not found", 4112, "error: ");
  const Hwnd modal = chat.StartTransfer("song.mp3");
  desktop.ClearTrace();
  UpchatOn();
  EXPECT_EQ(Shows(), (Lines{"0", "6"}));
  UpchatOn();  // the same window again: still minimised
  EXPECT_EQ(Shows(), (Lines{"0", "6"}));
  UpchatOff();
  EXPECT_EQ(Shows(), (Lines{"0", "9"}));
  EXPECT_TRUE(desktop.Visible(modal));
  EXPECT_EQ(prompts.boxes.size(), 2u);
}

TEST(ShowMessage, AlwaysSystemModal) {
  ScriptedPrompts prompts;
  std::string text = "t";
  int flags = 64;
  std::string title = "x";
  ShowMessage(text, flags, title);
  ExpectBox(prompts, 0, "t", 64 + 4096, "x");
  EXPECT_EQ(flags, 64);
}

TEST_F(ChatTest, MenuItemsAndButtonsReachTheirRoutines) {
  FrmMenu m;
  f.lblUps->SetCaption("7");
  f.lblMBs->SetCaption("1.5");
  ConnectChatTools(f, m);
  const Hwnd room = chat.OpenRoom("Lobby");
  chat.StartTransfer("a.mp3", "10", "0.34");
  PumpBudget budget(50000);
  m.bragg->trigger();
  m.upchatscrolll->trigger();
  emit f.picBut5->clicked();
  const Lines t = chat.Transcript(room);
  ASSERT_EQ(t.size(), 9u);
  EXPECT_EQ(t[1], kLine2Head + " brag : 7tgs : 1.50mbs" + kTail);
  EXPECT_EQ(t[4], kMenuHead + "  a.mp3 : 10% : 0.34" + kTail);
  EXPECT_EQ(t[7], kLine2Head + "  a.mp3 : 10% : 0.34" + kTail);

  desktop.ClearTrace();
  m.ucon->trigger();
  emit f.picBut3->clicked();
  m.ucoff->trigger();
  emit f.picBut4->clicked();
  EXPECT_EQ(Shows(), (Lines{"0", "6", "0", "6", "0", "9", "0", "9"}));
}

TEST(ChatToolsMenu, ImsAndGhostReachTheClient) {
  Sandbox box;
  sim::SimIm im(box.StartClient(5));
  FrmMain f;
  FrmMenu m;
  ConnectChatTools(f, m);
  {
    PumpBudget budget(50000);
    m.imzzoff->trigger();
    m.imzonn->trigger();
    m.gonnnnn->trigger();
    m.gofffff->trigger();
  }
  EXPECT_EQ(im.Sent(), (std::vector<sim::ImRecord>{{"$im_off", "\xC2\xA0"}, {"$im_on", "\xC2\xA0"}}));
  EXPECT_EQ(im.PrivacyWrites(), (std::vector<std::pair<int, int>>{{5, -1}, {7, -1}, {1, -1}}));
}

}  // namespace
}  // namespace qc::test
