// The chat sender where the scenarios cannot reach: the counts line built only once line 1 has
// gone, the room search and a room that never takes a line. That the upchat's message is system
// modal is the run scenarios' (chat_upchat_without_transfer).
#include "run/chat.h"
#include "sim/sim_chat.h"
#include "support/sandbox.h"
#include "ui/frmmain.h"

namespace qc::test {
namespace {

using sim::RoomForm;
using sim::RoomInput;
using Lines = std::vector<std::string>;

// As the room holds them: Windows-1252 bytes.
const std::string kLine2Head = "\xA0\xA0\x8B!\xA1";
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
  void Send(std::string text, bool tail = true, bool cut = false) {
    PumpBudget budget(5000);
    ChatSend(desktop, text, tail, cut);
  }

  sim::SimClient chatClient{desktop};
  sim::SimChat chat{chatClient};
};

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

}  // namespace
}  // namespace qc::test
