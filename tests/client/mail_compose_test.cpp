// The Compose Mail driver end to end against the simulated client of generation 3.
#include "client/compose_mail.h"

#include "client/vocabulary.h"
#include "mail_fixture.h"

namespace qc::test {
namespace {

using sim::MailRecord;

class ComposeMailTest : public MailTest {
 protected:
  const std::string kCompose = "AOL Frame25/MDIClient/AOL Child";
};

TEST_F(ComposeMailTest, FileMailQueuedWithOnePress) {
  Start(3);
  Within(20000, [&] { SendFileMail95(d, "a@aol.com, b@aol.com", "subj", "body", kMp3, true); });
  Settle();
  ASSERT_EQ(mail->Outgoing().size(), 1u);
  EXPECT_EQ(mail->Outgoing()[0], (MailRecord{"a@aol.com, b@aol.com", "subj", "body", {kMp3}}));
  EXPECT_TRUE(mail->MailWindows().empty());
  EXPECT_EQ(Count(Messages(), Posted(Icon(kCompose, 2), 513)), 1u);
  // The window is opened from the main menu.
  EXPECT_EQ(client->EventDetails(sim::kEventMenuItem), Lines{aol::kMenuComposeMail});
}

TEST_F(ComposeMailTest, OnePressReturnsAtOnceEvenIfTheClientIgnoresIt) {
  Start(3);
  mail->IgnoreClicks("Send Later", 1);
  Within(20000, [&] { SendFileMail95(d, "a@aol.com", "subj", "body", kMp3, true); });
  Settle();
  EXPECT_TRUE(mail->Outgoing().empty());
  ASSERT_EQ(mail->MailWindows().size(), 1u);
  EXPECT_EQ(d.TextOf(mail->MailWindows()[0]), "subj");
}

TEST_F(ComposeMailTest, FileMailLeftOpenIsRetitledAfterTheAttachment) {
  Start(3);
  Within(20000, [&] { SendFileMail95(d, "a@aol.com", "subj", "body", kMp3, false); });
  Settle();
  EXPECT_TRUE(mail->Outgoing().empty());
  ASSERT_EQ(mail->MailWindows().size(), 1u);
  Hwnd w = mail->MailWindows()[0];
  EXPECT_EQ(d.TextOf(w), "subj");
  EXPECT_EQ(mail->Fields(w), (MailRecord{"a@aol.com", "subj", "body", {kMp3}}));
  EXPECT_EQ(mail->Presses("send later"), 0);
  EXPECT_EQ(mail->Presses("send"), 0);
  // Retitled behind the last press of the dialog, with no pump.
  const Lines m = Messages();
  EXPECT_EQ(m.back(), "SendMessageA " + kCompose + " 12 0 \"subj\"");
}

TEST_F(ComposeMailTest, NoticeStaysOpenAsComposeMailAndTheNextMailOverwritesIt) {
  Start(3);
  Within(20000, [&] { SendNoticeMail95(d, "me@aol.com", "started", "log"); });
  Settle();
  EXPECT_TRUE(mail->Outgoing().empty());
  ASSERT_EQ(mail->MailWindows().size(), 1u);
  Hwnd notice = mail->MailWindows()[0];
  EXPECT_EQ(d.TextOf(notice), aol::kComposeMailCaption);
  EXPECT_EQ(mail->Fields(notice), (MailRecord{"me@aol.com", "started", "log", {}}));
  EXPECT_EQ(CountPrefix(Messages(), "PostMessageA"), 0u);

  // The menu entry is run again, but the first "Compose Mail" found is the notice still open:
  // its texts are overwritten and it is queued, while the new window stays empty.
  Within(20000, [&] { SendFileMail95(d, "a@aol.com", "subj", "body", kMp3, true); });
  Settle();
  EXPECT_EQ(client->EventDetails(sim::kEventMenuItem).size(), 2u);
  ASSERT_EQ(mail->Outgoing().size(), 1u);
  EXPECT_EQ(mail->Outgoing()[0], (MailRecord{"a@aol.com", "subj", "body", {kMp3}}));
  ASSERT_EQ(mail->MailWindows().size(), 1u);
  EXPECT_NE(mail->MailWindows()[0], notice);
  EXPECT_EQ(mail->Fields(mail->MailWindows()[0]), MailRecord{});
}

TEST_F(ComposeMailTest, FirstLookupIsUnderTheFrame) {
  Start(3);
  Within(20000, [&] { SendNoticeMail95(d, "me@aol.com", "started", "log"); });
  EXPECT_EQ(Find(d.TraceLines(),
                 "FindWindowExA AOL Frame25 0 \"AOL Child\" \"Compose Mail\" -> 0"),
            2u);  // right behind the lookups of the frame and its MDI area
}

TEST_F(ComposeMailTest, DialogReopenedAfter12000PassesWithoutPumpBetweenThePosts) {
  Start(3);
  mail->IgnoreClicks("Attach File", 1);
  MarkPumps();
  Within(40000, [&] { SendFileMail95(d, "a@aol.com", "subj", "body", kMp3, true); });
  Settle();
  ASSERT_EQ(mail->Outgoing().size(), 1u);
  EXPECT_EQ(mail->Outgoing()[0].attachments, std::vector<std::string>{kMp3});
  const Lines all = d.TraceLines();
  const std::string press = Posted(Icon(kCompose, 3), 513);
  const std::size_t a = Find(all, press);
  const std::size_t b = Find(all, press, 2);
  ASSERT_NE(b, std::string::npos);
  const Lines between(all.begin() + static_cast<long>(a), all.begin() + static_cast<long>(b));
  EXPECT_EQ(Count(between, "FindWindowA \"#32770\" \"Attach File\" -> 0"), 12000u);
  // The first click has a pump between its posts, the repeated one none.
  const Lines first = From(Squeezed(marked), press, 3);
  EXPECT_EQ(first, (Lines{press, kPump, Posted(Icon(kCompose, 3), 514)}));
  const Lines again = From(Squeezed(marked), press, 2, 2);
  EXPECT_EQ(again, (Lines{press, Posted(Icon(kCompose, 3), 514)}));
}

TEST_F(ComposeMailTest, RefusedPathRetypedAndOnePassFollowsTheClosingPress) {
  Start(3);
  mail->RefusePaths(2);
  Within(20000, [&] { SendFileMail95(d, "a@aol.com", "subj", "body", kMp3, false); });
  EXPECT_EQ(client->EventDetails(sim::kEventPathRefused).size(), 2u);
  ASSERT_EQ(mail->MailWindows().size(), 1u);
  EXPECT_EQ(mail->Fields(mail->MailWindows()[0]).attachments, std::vector<std::string>{kMp3});
  // The lookup stands before the press: the last pass types into a field that is gone.
  const Lines m = Messages();
  const std::string fill = "SendMessageA gone:";
  EXPECT_GE(CountPrefix(m, fill), 3u);

  Start(3);
  EXPECT_THROW(
      Within(20000, [&] { SendFileMail95(d, "a@aol.com", "s", "b", "C:\\none.mp3", true); }),
      BudgetExhausted);
  EXPECT_NE(d.FindWindowA("#32770", "Attach File"), 0);
}

TEST_F(ComposeMailTest, NoClientKeepsTheBuildLoopGoing) {
  Start(3);
  client->Quit();
  EXPECT_THROW(Within(5000, [&] { SendFileMail95(d, "a", "s", "b", kMp3, true); }),
               BudgetExhausted);
}

}  // namespace
}  // namespace qc::test
