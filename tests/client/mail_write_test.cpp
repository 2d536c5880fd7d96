// The Write Mail driver end to end against the simulated client of generations 5 and 4.
#include "client/write_mail.h"

#include "client/vocabulary.h"
#include "mail_fixture.h"

namespace qc::test {
namespace {

using sim::MailRecord;

class WriteMailTest : public MailTest {};

const std::string kTo = "ann@aol.com, (bob@aol.com), cy@aol.com";
const std::string kSubject = "Artist - Title [3.45 mb]";
const std::string kBody = "hello\r\nthe file is attached";

TEST_F(WriteMailTest, FileMailQueuedOnBothGenerations) {
  for (int generation : {5, 4}) {
    SCOPED_TRACE(generation);
    Start(generation);
    Within(20000, [&] {
      if (generation == 5) {
        SendFileMail50(d, kTo, kSubject, kBody, kMp3, true);
      } else {
        SendFileMail40(d, kTo, kSubject, kBody, kMp3, true);
      }
    });
    ASSERT_EQ(mail->Outgoing().size(), 1u);
    EXPECT_EQ(mail->Outgoing()[0], (MailRecord{kTo, kSubject, kBody, {kMp3}}));
    EXPECT_TRUE(mail->Sent().empty());
    EXPECT_TRUE(mail->MailWindows().empty());
    // The confirmation was closed by the driver, with a sent WM_CLOSE.
    EXPECT_EQ(client->Document(aol::kSendLaterCaption), 0);
    EXPECT_EQ(Count(Messages(), "SendMessageA " + kWriteMail + " 16 0 &0"), 1u);
    EXPECT_EQ(mail->Presses("send"), 0);
    EXPECT_EQ(mail->Presses("attach"), 1);
  }
}

TEST_F(WriteMailTest, FileMailLeftOpenIsRetitledOnlyOnGeneration5) {
  for (int generation : {5, 4}) {
    SCOPED_TRACE(generation);
    Start(generation);
    Within(20000, [&] {
      if (generation == 5) {
        SendFileMail50(d, kTo, kSubject, kBody, kMp3, false);
      } else {
        SendFileMail40(d, kTo, kSubject, kBody, kMp3, false);
      }
    });
    Settle();
    EXPECT_TRUE(mail->Outgoing().empty());
    ASSERT_EQ(mail->MailWindows().size(), 1u);
    Hwnd w = mail->MailWindows()[0];
    EXPECT_EQ(d.TextOf(w), generation == 5 ? kSubject : std::string(aol::kWriteMailCaption));
    EXPECT_EQ(mail->Fields(w), (MailRecord{kTo, kSubject, kBody, {kMp3}}));
    // Neither the 15th, 16th nor 17th icon was touched.
    for (int n : {15, 16, 17}) {
      EXPECT_EQ(CountPrefix(Messages(), "PostMessageA " + Icon(kWriteMail, n) + " "), 0u) << n;
      EXPECT_EQ(CountPrefix(Messages(), "SendMessageA " + Icon(kWriteMail, n) + " "), 0u) << n;
    }
    EXPECT_EQ(mail->Presses("send later"), 0);
    mail.reset();  // closes the window left open
  }
}

TEST_F(WriteMailTest, TwoMailsLeftOpenWithOneSubjectDoNotConfuseTheNext) {
  Start(5);
  Within(60000, [&] {
    SendFileMail50(d, "a@aol.com", "same", "one", kMp3, false);
    SendFileMail50(d, "b@aol.com", "same", "two", kMp3, false);
    SendFileMail50(d, "c@aol.com", "other", "three", kMp3, true);
  });
  ASSERT_EQ(mail->Outgoing().size(), 1u);
  EXPECT_EQ(mail->Outgoing()[0], (MailRecord{"c@aol.com", "other", "three", {kMp3}}));
  ASSERT_EQ(mail->MailWindows().size(), 2u);
  std::vector<std::string> bodies;
  for (Hwnd w : mail->MailWindows()) {
    EXPECT_EQ(d.TextOf(w), "same");
    bodies.push_back(mail->Fields(w).body);
  }
  EXPECT_EQ(bodies, (std::vector<std::string>{"two", "one"}));
}

TEST_F(WriteMailTest, NoticeAlwaysQueuesWithoutAttachment) {
  Start(5);
  Within(20000, [&] { SendNoticeMail50(d, "me@aol.com", "quill cast started", "log"); });
  ASSERT_EQ(mail->Outgoing().size(), 1u);
  EXPECT_EQ(mail->Outgoing()[0], (MailRecord{"me@aol.com", "quill cast started", "log", {}}));
  EXPECT_EQ(mail->Presses("attach"), 0);
  // No pause in the loop: the icon is pressed many times before the window goes, once is queued.
  EXPECT_GT(mail->Presses("send later"), 1);
  EXPECT_TRUE(mail->MailWindows().empty());
  EXPECT_EQ(client->Document(aol::kSendLaterCaption), 0);
}

TEST_F(WriteMailTest, NoConfirmationEndsAtOnceAndSeveralAreAllClosed) {
  Start(5);
  mail->SetConfirmSendLater(false);
  Within(20000, [&] { SendFileMail50(d, kTo, kSubject, kBody, kMp3, true); });
  EXPECT_EQ(Count(Messages(), "SendMessageA " + kWriteMail + " 16 0 &0"), 0u);
  EXPECT_EQ(mail->Outgoing().size(), 1u);

  // Confirmations left by earlier mails are closed as well, one by one.
  mail->SetConfirmSendLater(true);
  client->OpenDocument(aol::kSendLaterCaption);
  client->OpenDocument(aol::kSendLaterCaption);
  d.ClearTrace();
  Within(20000, [&] { SendNoticeMail50(d, "me@aol.com", "s", "b"); });
  EXPECT_EQ(Count(Messages(), "SendMessageA " + kWriteMail + " 16 0 &0"), 3u);
  EXPECT_EQ(client->Document(aol::kSendLaterCaption), 0);
}

TEST_F(WriteMailTest, EmptySubjectEmptiesTheCaptionAndStillQueues) {
  Start(5);
  Within(20000, [&] { SendFileMail50(d, kTo, "", kBody, kMp3, true); });
  ASSERT_EQ(mail->Outgoing().size(), 1u);
  EXPECT_EQ(mail->Outgoing()[0].subject, "");
  EXPECT_EQ(Count(Messages(), "SendMessageA " + kWriteMail + " 12 0 \"\""), 1u);
  EXPECT_EQ(Count(Messages(), "SendMessageA " + kWriteMail + "/_AOL_Edit#3 12 0 \"\""), 1u);
  EXPECT_NE(Find(d.TraceLines(), "FindWindowExA AOL Frame25/MDIClient 0 \"AOL Child\" \"\" -> " +
                                     kWriteMail),
            std::string::npos);
}

TEST_F(WriteMailTest, SlowlyBuiltWindowIsFilledOnlyWhenReady) {
  Start(5);
  client->SetSlow("Write Mail build", 2.0);
  Within(20000, [&] { SendFileMail50(d, kTo, kSubject, kBody, kMp3, true); });
  ASSERT_EQ(mail->Outgoing().size(), 1u);
  EXPECT_EQ(mail->Outgoing()[0].to, kTo);
  // The build pass repeated while the icons were missing.
  EXPECT_GT(Count(d.TraceLines(), "FindWindowExA AOL Frame25/MDIClient 0 \"AOL Child\" \"Write "
                                  "Mail\" -> " + kWriteMail),
            1u);
}

TEST_F(WriteMailTest, WindowThatNeverComesIsWaitedForWithoutAnotherPress) {
  Start(5);
  client->IgnoreClicks(1);  // the toolbar icon's click
  EXPECT_THROW(Within(40000, [&] { SendFileMail50(d, kTo, kSubject, kBody, kMp3, true); }),
               BudgetExhausted);
  EXPECT_EQ(Count(Messages(), Posted(kToolbarIcon2, 513)), 1u);
  EXPECT_TRUE(mail->MailWindows().empty());
}

// ---------------------------------------------------------------- re-press waits

struct Repress {
  int generation;
  const char* key;          // the mail click that the client ignores once
  std::string pressLine;    // the press that is repeated
  std::string lookup;       // the lookup counted once a pass
};

TEST_F(WriteMailTest, ReopeningPressComesAfter18000Passes) {
  const std::string attachments = "FindWindowA \"_AOL_Modal\" \"Attachments\"";
  const Repress cases[] = {
      {5, "Attachments", Posted(Icon(kWriteMail, 14), 513), attachments + " -> 0"},
      {4, "Attachments", "", attachments + " -> 0"},
      {5, "Attach", Posted("_AOL_Modal/_AOL_Icon", 513), "FindWindowA \"#32770\" \"Attach\" -> 0"},
      {4, "Attach", Posted("_AOL_Modal/_AOL_Icon", 513), "FindWindowA \"#32770\" \"Attach\" -> 0"},
      {5, "Attachments done", Posted("_AOL_Modal/_AOL_Icon#3", 513), attachments + " -> _AOL_Modal"},
      {4, "Attachments done", Posted("_AOL_Modal/_AOL_Icon#3", 513), attachments + " -> _AOL_Modal"},
  };
  for (const Repress& k : cases) {
    SCOPED_TRACE(std::to_string(k.generation) + " " + k.key);
    Start(k.generation);
    mail->IgnoreClicks(k.key, 1);
    Within(80000, [&] {
      if (k.generation == 5) {
        SendFileMail50(d, kTo, kSubject, kBody, kMp3, true);
      } else {
        SendFileMail40(d, kTo, kSubject, kBody, kMp3, true);
      }
    });
    ASSERT_EQ(mail->Outgoing().size(), 1u);
    EXPECT_EQ(mail->Outgoing()[0].attachments, std::vector<std::string>{kMp3});
    EXPECT_TRUE(client->HasEvent(sim::kEventMailClickIgnored, k.key));
    const Lines all = d.TraceLines();
    // Generation 4 opens the Attachments window with a sent click and repeats it posted.
    const std::string first = k.pressLine.empty() ? Sent(Icon(kWriteMail, 13), 513) : k.pressLine;
    const std::string again = k.pressLine.empty() ? Posted(Icon(kWriteMail, 13), 513) : k.pressLine;
    const std::size_t a = Find(all, first);
    const std::size_t b = Find(all, again, first == again ? 2 : 1);
    ASSERT_NE(a, std::string::npos);
    ASSERT_NE(b, std::string::npos);
    const Lines between(all.begin() + static_cast<long>(a), all.begin() + static_cast<long>(b));
    EXPECT_EQ(Count(between, k.lookup), 18000u);
    EXPECT_EQ(Count(all, again), first == again ? 2u : 1u);
  }
}

TEST_F(WriteMailTest, RefusedPathIsTypedAndPressedAgain) {
  Start(5);
  mail->RefusePaths(3);
  Within(20000, [&] { SendFileMail50(d, kTo, kSubject, kBody, kMp3, true); });
  EXPECT_EQ(client->EventDetails(sim::kEventPathRefused).size(), 3u);
  ASSERT_EQ(mail->Outgoing().size(), 1u);
  EXPECT_EQ(mail->Outgoing()[0].attachments, std::vector<std::string>{kMp3});
  const std::string fill = "SendMessageA #32770/Edit 12 0 \"" + std::string(kMp3) + "\"";
  // Typed and pressed on every pass while the dialog stays.
  EXPECT_GT(Count(Messages(), fill), 4u);

  // A file that is not there keeps the driver at the dialog for ever.
  Start(4);
  EXPECT_THROW(
      Within(30000, [&] { SendFileMail40(d, kTo, kSubject, kBody, "C:\\gone.mp3", true); }),
      BudgetExhausted);
  EXPECT_GT(client->EventDetails(sim::kEventPathRefused).size(), 100u);
  EXPECT_NE(client->desktop().FindWindowA("#32770", "Attach"), 0);
  EXPECT_TRUE(mail->Outgoing().empty());
}

TEST_F(WriteMailTest, SendLaterIsPressedUntilTheWindowHasGone) {
  // A client that ignores the first send-later presses: the 17th icon is pressed again.
  Start(5);
  mail->IgnoreClicks("Send Later", 2);
  Within(20000, [&] { SendFileMail50(d, kTo, kSubject, kBody, kMp3, true); });
  EXPECT_EQ(mail->Outgoing().size(), 1u);
  EXPECT_GE(Count(Messages(), Posted(Icon(kWriteMail, 17), 513)), 3u);

  // Generation 4 leaves the caption as it is: the subject lookup finds nothing and one press
  // ends the loop, even if the client ignored it.
  Start(4);
  mail->IgnoreClicks("Send Later", 1);
  Within(20000, [&] { SendFileMail40(d, kTo, kSubject, kBody, kMp3, true); });
  EXPECT_EQ(Count(Messages(), Posted(Icon(kWriteMail, 15), 513)), 1u);
  EXPECT_TRUE(mail->Outgoing().empty());
  EXPECT_EQ(mail->MailWindows().size(), 1u);
}

}  // namespace
}  // namespace qc::test
