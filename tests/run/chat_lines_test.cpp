// Chat announcements as they reach the simulated room, the sender's tail and restore, the
// room search, upchat mode and the menu wiring.
#include <QAction>

#include "base/failure.h"
#include "run/chat.h"
#include "client/upchat.h"
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

// As the room holds them: Windows-1252 bytes, written out one by one.
const std::string kLine1 = "\xA0\xA0\x8B\xA1! quill cast : v.qc23e : brindle";
const std::string kLine3 = "\xA0\xA0\xA0\xA0`\xB7\x96\x9B \xF3mbreval\xE8 productions";
const std::string kLine2Head = "\xA0\xA0\x8B!\xA1";
const std::string kMenuHead = "\xA0\xA0\x8B\xA1";
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
  void Send(std::string text, bool tail = true, bool cut = false) {
    PumpBudget budget(5000);
    ChatSend(desktop, text, tail, cut);
  }

  sim::SimClient chatClient{desktop};
  sim::SimChat chat{chatClient};
  FrmMain f;
};

// The byte-exact block with the user's typing put back is the brag script's golden file; here
// the second line of each block.
TEST_F(ChatTest, EachBlockSaysItsWordWithTheCounts) {
  struct Case {
    void (*send)(const FrmMain&, WindowSystem&);
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
    {
      PumpBudget budget(20000);
      c.send(f, desktop);
    }
    EXPECT_EQ(chat.Transcript(room),
              (Lines{kLine1 + kTail, kLine2Head + c.line2 + kTail, kLine3 + kTail}));
    desktop.DestroyWindow(room);
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
    PumpBudget budget(20000);
    BragStats(f, desktop);
  }
  RemovePumpHook(counted);
  ASSERT_EQ(chat.Transcript(room).size(), 3u);
  EXPECT_EQ(chat.Transcript(room)[1], kLine2Head + " brag : 13tgs : 85.20mbs" + kTail);
}

TEST_F(ChatTest, ScrollFormsDifferByOneMarkAndSayNoneWithoutATransfer) {
  const Hwnd room = chat.OpenRoom("Lobby");
  {
    PumpBudget budget(20000);
    ScrollStats(desktop, false);
    chat.StartTransfer("Song Name.MP3", "45", "1.25");
    ScrollStats(desktop, false);
    ScrollStats(desktop, true);
  }
  const Lines t = chat.Transcript(room);
  ASSERT_EQ(t.size(), 9u);
  EXPECT_EQ(t[1], kLine2Head + "  none : none% : none" + kTail);
  const std::string rest = "  song name.mp3 : 45% : 1.25" + kTail;
  EXPECT_EQ(Lines(t.begin() + 3, t.end()), (Lines{kLine1 + kTail, kLine2Head + rest, kLine3 + kTail,
                                                  kLine1 + kTail, kMenuHead + rest, kLine3 + kTail}));
}

TEST_F(ChatTest, RoomSearchAndWhereNothingIsSent) {
  Send("nobody hears this");  // no room at all
  const Hwnd b = chat.OpenRoom("Room B", RoomForm::kB, RoomInput::kAolEdit);
  const Hwnd other = chatClient.OpenDocument("Not a room");
  chatClient.AddControl(other, "RICHCNTL");
  chatClient.AddControl(other, "_AOL_Icon");
  chatClient.AddControl(other, "_AOL_Listbox");  // no static, no combo, no view
  EXPECT_EQ(FindChatRoom(desktop), b);
  const Hwnd room = chat.OpenRoom("Room A", RoomForm::kA, RoomInput::kAolEdit);
  EXPECT_EQ(FindChatRoom(desktop), room);
  desktop.ClearTrace();
  Send("");
  EXPECT_TRUE(SetTexts(chat.Input(room)).empty());
  // The user's own room in front hides the room behind it (compared without case).
  const Hwnd own = chat.OpenRoom("BRINDLE ROSE's Room");
  EXPECT_EQ(FindChatRoom(desktop), 0);
  Send("lost");
  EXPECT_TRUE(chat.Transcript(room).empty());
  EXPECT_TRUE(chat.Transcript(own).empty());
  desktop.BringToTop(room);
  EXPECT_EQ(FindChatRoom(desktop), room);
}

TEST_F(ChatTest, ARoomThatNeverTakesTheLineKeepsTheSenderWaiting) {
  chat.SetStuck(chat.OpenRoom("Lobby"), true);
  std::string text = "stuck";
  bool tail = false;
  bool cut = false;
  PumpBudget budget(3000);
  EXPECT_THROW(ChatSend(desktop, text, tail, cut), BudgetExhausted);
}

TEST_F(ChatTest, UpchatHidesAndMinimisesThenRestoresOrComplains) {
  UpchatOn(desktop, prompts);
  UpchatOff(desktop, prompts);
  for (std::size_t i : {0u, 1u}) ExpectBox(prompts, i, "file transfer window not found", 4112, "error: ");
  const Hwnd modal = chat.StartTransfer("song.mp3");
  desktop.ClearTrace();
  UpchatOn(desktop, prompts);
  EXPECT_EQ(Shows(), (Lines{"0", "6"}));
  UpchatOn(desktop, prompts);  // the same window again: still minimised
  EXPECT_EQ(Shows(), (Lines{"0", "6"}));
  UpchatOff(desktop, prompts);
  EXPECT_EQ(Shows(), (Lines{"0", "9"}));
  EXPECT_TRUE(desktop.Visible(modal));
  EXPECT_EQ(prompts.boxes.size(), 2u);
}

TEST(ShowMessage, AlwaysSystemModal) {
  ScriptedPrompts prompts;
  std::string text = "t";
  int flags = 64;
  std::string title = "x";
  ShowMessage(prompts, text, flags, title);
  ExpectBox(prompts, 0, "t", 64 + 4096, "x");
  EXPECT_EQ(flags, 64);
}

TEST_F(ChatTest, MenuItemsAndButtonsReachTheirRoutines) {
  FrmMenu m;
  f.lblUps->SetCaption("7");
  f.lblMBs->SetCaption("1.5");
  ConnectChatTools(f, m, services);
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

TEST(ChatToolsMenu, ImsAndGhostFollowTheClientsGeneration) {
  for (int generation : {3, 5}) {
    Sandbox box;
    sim::SimIm im(box.StartClient(generation));
    FrmMain f;
    FrmMenu m;
    ConnectChatTools(f, m, box.services);
    {
      PumpBudget budget(50000);
      m.imzzoff->trigger();
      m.imzonn->trigger();
      m.gonnnnn->trigger();
      m.gofffff->trigger();
    }
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
}  // namespace qc::test
