// The simulated chat room, transfer window, IM windows and privacy page as tests drive them.
#include "sim/sim_chat.h"

#include <gtest/gtest.h>

#include "client/vocabulary.h"
#include "sim/sim_im.h"
#include "support/budget.h"

namespace qc::sim {
namespace {

class SimChatTest : public ::testing::Test {
 protected:
  void Settle() {
    test::PumpBudget budget(1000);
    for (int i = 0; i < 200; ++i) {
      WaitEvents();
      d.IsWindowVisible(0);  // the client takes its turns between the program's calls
    }
  }
  test::VirtualTime vt;
  SimDesktop d;
  SimClient client{d};
  SimChat chat{client};
};

TEST_F(SimChatTest, TypedLineGoesToTheTranscriptOnEnterAndTheBoxEmpties) {
  const Hwnd room = chat.OpenRoom("Lobby", RoomForm::kB, RoomInput::kAolEdit);
  const Hwnd box = chat.Input(room);
  EXPECT_EQ(d.ClassOf(box), aol::kAolEditClass);
  for (char ch : std::string("hi")) d.SendMessageA(box, aol::kWmChar, ch, LParam());
  EXPECT_EQ(d.TextOf(box), "hi");
  d.SendMessageA(box, aol::kWmChar, 13, LParam());
  d.SendMessageA(box, aol::kWmChar, 13, LParam());  // a second Enter before the client reacts
  EXPECT_EQ(d.TextOf(box), "hi");                   // takes a while
  Settle();
  EXPECT_EQ(chat.Transcript(room), std::vector<std::string>{"hi"});
  EXPECT_EQ(d.TextOf(box), "");
  EXPECT_TRUE(client.HasEvent(kEventChatLine, "hi"));
}

TEST_F(SimChatTest, RoomFormsCarryTheirClasses) {
  const Hwnd a = chat.OpenRoom("A");
  for (const char* c : {"RICHCNTL", "_AOL_Listbox", "_AOL_Icon", "_AOL_Static", "_AOL_Combobox"}) {
    EXPECT_NE(d.ChildOfClass(a, c), 0) << c;
  }
  EXPECT_EQ(chat.Input(a), d.ChildOfClass(a, "RICHCNTL", 2));
  const Hwnd b = chat.OpenRoom("B", RoomForm::kB);
  for (const char* c : {"_AOL_View", "_AOL_Icon", "_AOL_Listbox"})
    EXPECT_NE(d.ChildOfClass(b, c), 0);
  EXPECT_EQ(d.ChildOfClass(b, "_AOL_Static"), 0);
}

TEST_F(SimChatTest, TransferWindowReadsAsTheExtractionExpects) {
  const Hwnd t = chat.StartTransfer("x.mp3", "5", "0.10");
  EXPECT_EQ(d.FindWindowA(std::string("_AOL_MODAL"), std::nullopt), t);
  EXPECT_EQ(d.TextOf(t), "File Transfer - 5%");
  chat.Advance("45", "1.25");
  EXPECT_EQ(d.TextOf(t), "File Transfer - 45%");
  EXPECT_EQ(d.TextOf(d.ChildOfClass(t, "_AOL_Static", 1)), "Now uploading x.mp3");
  EXPECT_EQ(d.TextOf(d.ChildOfClass(t, "_AOL_Static", 2)), "Sent: 1.25 MB of 3.40 MB");
  chat.EndTransfer();
  EXPECT_EQ(chat.Transfer(), 0);
  EXPECT_EQ(d.FindWindowA(std::string("_AOL_Modal"), std::nullopt), 0);
}

TEST_F(SimChatTest, PrivacyPageControlsPerGeneration) {
  for (int generation : {2, 3, 4, 5}) {
    SimDesktop desk;
    SimClient c(desk, {.generation = generation});
    SimIm im(c);
    c.RunKeyword(generation >= 4 ? "Buddy" : "Buddylist");
    {
      test::PumpBudget budget(1000);
      while (im.BuddyWindows().empty()) WaitEvents();
    }
    const Hwnd list = im.BuddyWindows()[0];
    EXPECT_EQ(desk.TextOf(list), "Brindle Rose's Buddy List");
    const Hwnd icon5 = desk.ChildOfClass(list, "_AOL_Icon", 5);
    desk.PostMessageA(icon5, 513, 0, LParam());
    desk.PostMessageA(icon5, 514, 0, LParam());
    {
      test::PumpBudget budget(1000);
      while (im.Privacy() == 0) WaitEvents();
    }
    const char* cls = generation >= 4 ? "_AOL_Checkbox" : "_AOL_Button";
    EXPECT_NE(desk.ChildOfClass(im.Privacy(), cls, 7), 0) << generation;
    EXPECT_EQ(desk.ChildOfClass(im.Privacy(), cls, 8), 0) << generation;
    std::int32_t word = 0;
    desk.SendMessageA(desk.ChildOfClass(im.Privacy(), cls, 3), 241, -1, LParam::Word(word));
    EXPECT_EQ(im.PrivacyStates()[2], -1);
    EXPECT_EQ(im.PrivacyStates()[0], std::nullopt);
  }
}

TEST_F(SimChatTest, ImWindowsPerGeneration) {
  for (int generation : {2, 3, 5}) {
    SimDesktop desk;
    SimClient c(desk, {.generation = generation});
    SimIm im(c);
    if (generation >= 4) {
      c.RunKeyword("aol://9293:Jo");
    } else {
      c.RunCommand("Send An Instant Message");
    }
    {
      test::PumpBudget budget(1000);
      while (c.Document("Send Instant Message") == 0) WaitEvents();
    }
    const Hwnd w = c.Document("Send Instant Message");
    if (generation == 2) {
      EXPECT_NE(desk.ChildOfClass(w, "_AOL_Edit", 2), 0);
      EXPECT_NE(desk.ChildOfClass(w, "_AOL_Button"), 0);
      EXPECT_EQ(desk.ChildOfClass(w, "RICHCNTL"), 0);
    } else {
      EXPECT_EQ(desk.TextOf(desk.ChildOfClass(w, "_AOL_Edit")), generation == 5 ? "Jo" : "");
      EXPECT_NE(desk.ChildOfClass(w, "_AOL_Icon", 9), 0);
    }
  }
}

}  // namespace
}  // namespace qc::sim
