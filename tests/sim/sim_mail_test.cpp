// The simulated client's mail windows, driven by hand: what the drivers rely on.
#include "sim/sim_mail.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "client/vocabulary.h"
#include "support/budget.h"

namespace qc::sim {
namespace {

using test::PumpBudget;
using test::VirtualTime;

template <class Done>
void PumpUntil(Done done, int passes = 2000) {
  PumpBudget budget(static_cast<std::uint64_t>(passes));
  while (!done()) WaitEvents();
}

// A fifth of a second of the client's time.
void Settle() {
  PumpBudget budget(2000);
  for (const double end = CurrentClock().Now() + 0.2; CurrentClock().Now() < end;) WaitEvents();
}

void Click(SimDesktop& d, Hwnd h) {
  d.PostMessageA(h, aol::kWmLButtonDown, 0, LParam());
  d.PostMessageA(h, aol::kWmLButtonUp, 0, LParam());
}

void Space(SimDesktop& d, Hwnd h) {
  std::int32_t zero = 0;
  d.SendMessageA(h, aol::kWmKeyDown, aol::kKeySpace, LParam::Word(zero));
  d.SendMessageA(h, aol::kWmKeyUp, aol::kKeySpace, LParam::Word(zero));
}

void Type(SimDesktop& d, Hwnd h, const std::string& text) {
  d.SendMessageA(h, aol::kWmSetText, 0, LParam::Text(text));
}

class SimMailTest : public ::testing::Test {
 protected:
  VirtualTime vt;
  SimDesktop d;

  // Opens a mail window the way the client's user does and waits until it is built.
  Hwnd OpenMail(SimClient& c) {
    if (c.generation() >= 4) {
      Click(d, c.ToolbarIcon(2));
    } else {
      d.SendMessageA(c.frame(), aol::kWmCommand, c.CommandId(aol::kMenuComposeMail), LParam());
    }
    const char* caption = c.generation() >= 4 ? aol::kWriteMailCaption : aol::kComposeMailCaption;
    PumpUntil([&] {
      Hwnd w = c.Document(caption);
      return w != 0 && d.ChildOfClass(w, aol::kRichTextClass) != 0 &&
             d.ChildOfClass(w, aol::kIconClass) != 0;
    });
    return c.Document(caption);
  }
  void Fill(Hwnd w, const std::string& to, const std::string& subject, const std::string& body) {
    Type(d, d.ChildOfClass(w, aol::kAolEditClass, 1), to);
    Type(d, d.ChildOfClass(w, aol::kAolEditClass, 3), subject);
    Type(d, d.ChildOfClass(w, aol::kRichTextClass), body);
  }
  Hwnd Top(const std::string& className, const std::string& caption) {
    return d.FindWindowA(className, caption);
  }
};

TEST_F(SimMailTest, WindowsHoldTheChildrenOfEachGeneration) {
  struct Case {
    int generation;
    int edits, riches, combos, fontcombos, icons;
  };
  for (const Case& k : {Case{5, 3, 1, 1, 1, 17}, Case{4, 3, 1, 1, 1, 15}, Case{3, 3, 1, 0, 0, 3}}) {
    SCOPED_TRACE(k.generation);
    SimClient c(d, {.generation = k.generation});
    SimMail m(c);
    Hwnd w = OpenMail(c);
    ASSERT_NE(w, 0);
    auto count = [&](const char* cls) {
      int n = 0;
      while (d.ChildOfClass(w, cls, n + 1)) ++n;
      return n;
    };
    EXPECT_EQ(count(aol::kAolEditClass), k.edits);
    EXPECT_EQ(count(aol::kRichTextClass), k.riches);
    EXPECT_EQ(count(aol::kComboboxClass), k.combos);
    EXPECT_EQ(count(aol::kFontcomboClass), k.fontcombos);
    EXPECT_EQ(count(aol::kIconClass), k.icons);
    EXPECT_EQ(m.MailWindows(), std::vector<Hwnd>{w});
  }
}

TEST_F(SimMailTest, WriteMailIsBuiltInStages) {
  SimClient c(d, {.generation = 5});
  SimMail m(c);
  Click(d, c.ToolbarIcon(2));
  PumpUntil([&] { return c.Document(aol::kWriteMailCaption) != 0; });
  Hwnd w = c.Document(aol::kWriteMailCaption);
  EXPECT_NE(d.ChildOfClass(w, aol::kAolEditClass, 3), 0);
  EXPECT_EQ(d.ChildOfClass(w, aol::kIconClass), 0);  // not yet
  PumpUntil([&] { return d.ChildOfClass(w, aol::kIconClass, 17) != 0; });
}

TEST_F(SimMailTest, AttachmentsAndDialogAcceptOnlyFilesThatExist) {
  const std::string real =
      (std::filesystem::temp_directory_path() / "qc_sim_mail_test.mp3").string();
  { std::ofstream(real) << "x"; }
  SimClient c(d, {.generation = 5});
  SimMail m(c);
  Hwnd w = OpenMail(c);
  Fill(w, "a@aol.com", "s", "b");
  Click(d, m.MailIcon(w, 14));
  PumpUntil([&] { return Top(aol::kModalClass, aol::kAttachmentsCaption) != 0; });
  Hwnd attachments = Top(aol::kModalClass, aol::kAttachmentsCaption);
  EXPECT_NE(d.ChildOfClass(attachments, aol::kIconClass, 3), 0);
  Click(d, d.ChildOfClass(attachments, aol::kIconClass, 1));
  PumpUntil([&] { return Top(aol::kDialogClass, aol::kAttachCaption) != 0; });
  Hwnd dialog = Top(aol::kDialogClass, aol::kAttachCaption);
  // Looked up as "edit" and "button", as the driver does.
  Hwnd edit = d.FindWindowExA(dialog, 0, "edit", std::nullopt);
  Hwnd b1 = d.FindWindowExA(dialog, 0, "button", std::nullopt);
  Hwnd b2 = d.FindWindowExA(dialog, b1, "button", std::nullopt);
  ASSERT_NE(edit, 0);
  ASSERT_NE(b2, 0);

  Type(d, edit, "C:\\nowhere.mp3");
  Space(d, b2);
  Settle();
  EXPECT_TRUE(d.Exists(dialog));  // stays, as a real one does
  EXPECT_EQ(c.EventDetails(kEventPathRefused), std::vector<std::string>{"C:\\nowhere.mp3"});

  Type(d, edit, real);
  Space(d, b2);
  Settle();
  EXPECT_FALSE(d.Exists(dialog));
  EXPECT_TRUE(m.Fields(w).attachments.empty());  // chosen, not yet confirmed
  Click(d, d.ChildOfClass(attachments, aol::kIconClass, 3));
  Settle();
  EXPECT_FALSE(d.Exists(attachments));
  EXPECT_EQ(m.Fields(w).attachments, std::vector<std::string>{real});
  std::filesystem::remove(real);
}

TEST_F(SimMailTest, FirstDialogButtonCancels) {
  SimClient c(d, {.generation = 3});
  SimMail m(c);
  m.AddFile("f.mp3");
  Hwnd w = OpenMail(c);
  Click(d, m.MailIcon(w, 3));
  PumpUntil([&] { return Top(aol::kDialogClass, aol::kAttachFileCaption) != 0; });
  Hwnd dialog = Top(aol::kDialogClass, aol::kAttachFileCaption);
  Type(d, d.ChildOfClass(dialog, "Edit"), "f.mp3");
  Space(d, d.ChildOfClass(dialog, "Button", 1));
  Settle();
  EXPECT_FALSE(d.Exists(dialog));
  EXPECT_TRUE(m.Fields(w).attachments.empty());
}

TEST_F(SimMailTest, SendNamesEachBadAddressOnALine) {
  SimClient c(d, {.generation = 5});
  SimMail m(c);
  m.MarkFull("Full@AOL.com");
  m.MarkUnknown("nobody@aol.com");
  Hwnd w = OpenMail(c);
  Fill(w, "ok@aol.com, full@aol.com, (nobody@aol.com), -", "s", "b");
  Click(d, m.MailIcon(w, 16));
  PumpUntil([&] { return c.Document(aol::kErrorCaption) != 0; });
  Hwnd view = d.ChildOfClass(c.Document(aol::kErrorCaption), aol::kViewClass);
  EXPECT_EQ(d.TextOf(view),
            "full@aol.com - mailbox is full\r\nnobody@aol.com - not a known member\r\n- - "
            "invalid address");
  EXPECT_TRUE(d.Exists(w));
  EXPECT_TRUE(m.Sent().empty());
  // Presses while the report is open are lost.
  Click(d, m.MailIcon(w, 16));
  Settle();
  EXPECT_EQ(m.Presses("send"), 1);
}

TEST_F(SimMailTest, SendWithGoodAddressesSendsAndCloses) {
  SimClient c(d, {.generation = 3});
  SimMail m(c);
  Hwnd w = OpenMail(c);
  Fill(w, "ok@aol.com", "s", "b");
  Click(d, m.MailIcon(w, 1));
  Settle();
  EXPECT_FALSE(d.Exists(w));
  ASSERT_EQ(m.Sent().size(), 1u);
  EXPECT_EQ(m.Sent()[0], (MailRecord{"ok@aol.com", "s", "b", {}}));
  EXPECT_EQ(c.Document(aol::kErrorCaption), 0);
}

TEST_F(SimMailTest, SendLaterQueuesAndConfirmsOnWriteMailOnly) {
  for (int generation : {5, 4, 3}) {
    SCOPED_TRACE(generation);
    SimClient c(d, {.generation = generation});
    SimMail m(c);
    Hwnd w = OpenMail(c);
    Fill(w, "a@aol.com", "s", "b");
    Click(d, m.MailIcon(w, generation == 5 ? 17 : generation == 4 ? 15 : 2));
    Settle();
    EXPECT_FALSE(d.Exists(w));
    EXPECT_EQ(m.Outgoing(), (std::vector<MailRecord>{{"a@aol.com", "s", "b", {}}}));
    EXPECT_EQ(c.Document(aol::kSendLaterCaption) != 0, generation >= 4);
  }
}

TEST_F(SimMailTest, OutgoingListShowsTheQueuedSubjects) {
  SimClient c(d, {.generation = 3});
  SimMail m(c);
  for (const char* subject : {"one", "two"}) {
    Hwnd w = OpenMail(c);
    Fill(w, "a@aol.com", subject, "b");
    Click(d, m.MailIcon(w, 2));
    Settle();
  }
  d.SendMessageA(c.frame(), aol::kWmCommand, c.CommandId(aol::kMenuOutgoingMail), LParam());
  PumpUntil([&] { return c.Document(kOutgoingListCaption) != 0; });
  Hwnd list = d.ChildOfClass(c.Document(kOutgoingListCaption), aol::kListboxClass);
  EXPECT_EQ(d.TextOf(list), "one\r\ntwo");
  Hwnd w = OpenMail(c);
  Fill(w, "a@aol.com", "three", "b");
  Click(d, m.MailIcon(w, 2));
  Settle();
  EXPECT_EQ(d.TextOf(list), "one\r\ntwo\r\nthree");
}

TEST_F(SimMailTest, ClosingAFilledWriteMailAsks) {
  SimClient c(d, {.generation = 5});
  SimMail m(c);
  // An empty mail closes at once.
  Hwnd empty = OpenMail(c);
  d.PostMessageA(empty, aol::kWmClose, 0, LParam());
  Settle();
  EXPECT_FALSE(d.Exists(empty));
  EXPECT_EQ(Top(aol::kDialogClass, aol::kAolDialogCaption), 0);

  for (const char* answer : {"Cancel", "&No", "&Yes"}) {
    SCOPED_TRACE(answer);
    Hwnd w = m.MailWindows().empty() ? OpenMail(c) : m.MailWindows()[0];
    Fill(w, "a@aol.com", answer, "b");
    d.PostMessageA(w, aol::kWmClose, 0, LParam());
    d.PostMessageA(w, aol::kWmClose, 0, LParam());
    Settle();
    Hwnd q = Top(aol::kDialogClass, aol::kAolDialogCaption);
    ASSERT_NE(q, 0);
    Hwnd button = d.FindWindowExA(q, 0, aol::kButtonClass, std::string(answer));
    ASSERT_NE(button, 0);
    Space(d, button);
    Settle();
    EXPECT_EQ(Top(aol::kDialogClass, aol::kAolDialogCaption), 0);  // one question only
    EXPECT_EQ(d.Exists(w), std::string(answer) == "Cancel");
  }
  EXPECT_EQ(c.EventDetails(kEventMailDiscarded), std::vector<std::string>{"&No"});
  EXPECT_EQ(m.Outgoing().size(), 1u);
  EXPECT_EQ(m.Outgoing()[0].subject, "&Yes");
}

TEST_F(SimMailTest, ComposeMailClosesWithoutAsking) {
  SimClient c(d, {.generation = 3});
  SimMail m(c);
  Hwnd w = OpenMail(c);
  Fill(w, "a@aol.com", "s", "b");
  d.PostMessageA(w, aol::kWmClose, 0, LParam());
  Settle();
  EXPECT_FALSE(d.Exists(w));
  EXPECT_EQ(Top(aol::kDialogClass, aol::kAolDialogCaption), 0);
}

TEST_F(SimMailTest, IgnoredClickAndSlowWindowFaults) {
  SimClient c(d, {.generation = 5});
  SimMail m(c);
  m.IgnoreClicks("Attachments", 1);
  Hwnd w = OpenMail(c);
  Click(d, m.MailIcon(w, 14));
  Settle();
  EXPECT_EQ(Top(aol::kModalClass, aol::kAttachmentsCaption), 0);
  EXPECT_TRUE(c.HasEvent(kEventMailClickIgnored, "Attachments"));
  c.SetSlow("Attachments", 1.0);
  Click(d, m.MailIcon(w, 14));
  Settle();
  EXPECT_EQ(Top(aol::kModalClass, aol::kAttachmentsCaption), 0);
  PumpUntil([&] { return Top(aol::kModalClass, aol::kAttachmentsCaption) != 0; });
  // A second press does not open a second window.
  Click(d, m.MailIcon(w, 14));
  Settle();
  EXPECT_EQ(d.FindWindowExA(0, Top(aol::kModalClass, aol::kAttachmentsCaption), aol::kModalClass,
                            aol::kAttachmentsCaption),
            0);
}

TEST_F(SimMailTest, RemovedSimMailLeavesNothingBehind) {
  SimClient c(d, {.generation = 5});
  {
    SimMail m(c);
    Hwnd w = OpenMail(c);
    Click(d, m.MailIcon(w, 14));
    Settle();
  }
  EXPECT_EQ(c.Document(aol::kWriteMailCaption), 0);
  EXPECT_EQ(Top(aol::kModalClass, aol::kAttachmentsCaption), 0);
  // The toolbar icon does nothing any more.
  Click(d, c.ToolbarIcon(2));
  Settle();
  EXPECT_EQ(c.Document(aol::kWriteMailCaption), 0);
}

}  // namespace
}  // namespace qc::sim
