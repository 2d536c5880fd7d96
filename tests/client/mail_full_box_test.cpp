// The full-box check against the simulated client: the probe, the client's report and the
// removal from the caller's list.
#include "client/full_box.h"

#include "client/vocabulary.h"
#include "mail_fixture.h"

namespace qc::test {
namespace {

class FullBoxTest : public MailTest {
 protected:
  bool reached = false;
  std::string Check(VectorAddresses& list, std::uint64_t passes = 20000) {
    std::string removed;
    reached = false;
    Within(passes, [&] {
      removed = RemoveFullBoxes(d, [&list]() -> AddressList& { return list; }, &reached);
    });
    Settle();
    return removed;
  }
  // Nothing of the probe is left: no mail, no report, no question, nothing queued or sent.
  void ExpectNothingLeft() {
    EXPECT_TRUE(mail->MailWindows().empty());
    EXPECT_TRUE(mail->Outgoing().empty());
    EXPECT_TRUE(mail->Sent().empty());
    EXPECT_EQ(client->Document(aol::kErrorCaption), 0);
    EXPECT_EQ(d.FindWindowA(aol::kDialogClass, std::nullopt), 0);
  }
};

struct Case {
  const char* name;
  std::vector<std::string> list;
  std::vector<std::string> full;
  std::vector<std::string> unknown;
  std::vector<std::string> left;
  std::string removed;
};

TEST_F(FullBoxTest, RemovesWhatTheReportNamesOnBothGenerations) {
  const Case cases[] = {
      {"empty list", {}, {}, {}, {}, ""},
      {"all good", {"a@aol.com", "b@aol.com"}, {}, {}, {"a@aol.com", "b@aol.com"}, ""},
      {"all bad", {"a@aol.com", "b@aol.com"}, {"a@aol.com"}, {"b@aol.com"}, {},
       " - a@aol.com\r - b@aol.com\r"},
      {"two bad neighbours", {"a@x.com", "b@x.com", "c@x.com", "d@x.com"}, {"b@x.com"},
       {"c@x.com"}, {"a@x.com", "d@x.com"}, " - b@x.com\r - c@x.com\r"},
      {"list shrinks under the loop", {"a@x.com", "b@x.com", "c@x.com"}, {"a@x.com", "b@x.com"},
       {}, {"c@x.com"}, " - a@x.com\r - b@x.com\r"},
      {"last two bad", {"a@x.com", "b@x.com", "c@x.com"}, {"b@x.com", "c@x.com"}, {},
       {"a@x.com"}, " - b@x.com\r - c@x.com\r"},
      // Only the report is folded to lower case: the item keeps its capital and stays.
      {"capital in the item", {"Bob@aol.com", "ann@aol.com"}, {"bob@aol.com", "ann@aol.com"},
       {}, {"Bob@aol.com"}, " - ann@aol.com\r"},
      // An item with a blank is never found, since the report loses its blanks.
      {"blank in the item", {"cy @aol.com"}, {"cy@aol.com"}, {}, {"cy @aol.com"}, ""},
      // The tail of a bad address goes with it.
      {"tail of a bad address", {"joe@aol.com", "e@aol.com", "bo@aol.com"}, {"joe@aol.com"}, {},
       {"bo@aol.com"}, " - joe@aol.com\r - e@aol.com\r"},
  };
  for (int generation : {5, 3}) {
    for (const Case& k : cases) {
      SCOPED_TRACE(std::to_string(generation) + " " + k.name);
      Start(generation);
      for (const auto& a : k.full) mail->MarkFull(a);
      for (const auto& a : k.unknown) mail->MarkUnknown(a);
      VectorAddresses list(k.list);
      EXPECT_EQ(Check(list), k.removed);
      EXPECT_TRUE(reached);
      EXPECT_EQ(list.items, k.left);
      ExpectNothingLeft();
    }
  }
}

TEST_F(FullBoxTest, ProbeWritesTheListWithALoneDashAndNoBreakBlanks) {
  for (int generation : {5, 3}) {
    SCOPED_TRACE(generation);
    Start(generation);
    VectorAddresses list({"a@x.com", "b@x.com"});
    Check(list);
    const std::string field = generation == 5 ? "/_AOL_Edit" : "/_AOL_Edit";
    const Lines m = Messages();
    EXPECT_EQ(Count(m, "SendMessageA AOL Frame25/MDIClient/AOL Child" + field +
                           " 12 0 \"a@x.com, b@x.com, -\""),
              1u);
    EXPECT_EQ(Count(m, "SendMessageA AOL Frame25/MDIClient/AOL Child/_AOL_Edit#3 12 0 \"\xA0\""),
              1u);
    EXPECT_EQ(Count(m, "SendMessageA AOL Frame25/MDIClient/AOL Child/RICHCNTL 12 0 \"\xA0\""),
              1u);
    EXPECT_EQ(client->EventDetails(sim::kEventMailRefused), Lines{"-"});
  }
}

TEST_F(FullBoxTest, Generation5AnswersTheQuestionWithNo) {
  Start(5);
  mail->MarkFull("b@x.com");
  VectorAddresses list({"a@x.com", "b@x.com"});
  Check(list);
  EXPECT_EQ(client->EventDetails(sim::kEventMailDiscarded), Lines{"\xA0"});
  EXPECT_EQ(Count(Messages(), "SendMessageA #32770/Button#2 256 32 &0"), 1u);
  EXPECT_EQ(Count(Messages(), "SendMessageA #32770/Button#2 257 32 &0"), 1u);
}

TEST_F(FullBoxTest, Generation3DoesNotWaitForTheQuestion) {
  Start(3);
  VectorAddresses list({"a@x.com"});
  Check(list);
  EXPECT_EQ(Count(d.TraceLines(), "FindWindowA \"#32770\" \"America Online\" -> 0"), 1u);
  // The press goes to no window.
  EXPECT_EQ(Count(Messages(), "SendMessageA 0 256 32 &0"), 1u);
  ExpectNothingLeft();
}

TEST_F(FullBoxTest, ListTakenAgainAtTheRemoval) {
  // The editor's active list may change while the check waits.
  Start(5);
  mail->MarkFull("a@x.com");
  VectorAddresses first({"a@x.com"});
  VectorAddresses second({"z@x.com", "a@x.com"});
  int picks = 0;
  std::string removed;
  Within(20000, [&] {
    removed = RemoveFullBoxes(d, [&]() -> AddressList& { return ++picks == 1 ? first : second; });
  });
  EXPECT_EQ(picks, 2);
  EXPECT_EQ(Count(Messages(), "SendMessageA AOL Frame25/MDIClient/AOL Child/_AOL_Edit 12 0 "
                              "\"a@x.com, -\""),
            1u);
  EXPECT_EQ(removed, " - a@x.com\r");
  EXPECT_EQ(first.items, Lines{"a@x.com"});
  EXPECT_EQ(second.items, Lines{"z@x.com"});
}

TEST_F(FullBoxTest, EmptyReportRemovesNothing) {
  Start(5);
  mail->MarkFull("a@x.com");
  mail->SetEmptyErrorReport(true);
  VectorAddresses list({"a@x.com"});
  EXPECT_EQ(Check(list), "");
  EXPECT_EQ(list.items, Lines{"a@x.com"});
}

TEST_F(FullBoxTest, CheckFullBoxesIsSilentAndChangesTheList) {
  Start(5);
  mail->MarkUnknown("b@x.com");
  VectorAddresses list({"a@x.com", "b@x.com"});
  Within(20000, [&] { CheckFullBoxes(d, list); });
  EXPECT_EQ(list.items, Lines{"a@x.com"});
}

TEST_F(FullBoxTest, GenerationsWithoutAProbe) {
  // Generation 2 ends at once.
  Start(2);
  VectorAddresses list({"a@x.com"});
  EXPECT_EQ(Check(list, 100), "");
  EXPECT_FALSE(reached);
  EXPECT_EQ(list.items, Lines{"a@x.com"});
  EXPECT_TRUE(Messages().empty());

  // Generation 4 gets no probe and waits for an "Error" window that nothing provokes.
  Start(4);
  EXPECT_THROW(Check(list, 5000), BudgetExhausted);
  EXPECT_EQ(CountPrefix(Messages(), "PostMessageA"), 0u);
  EXPECT_EQ(Count(Messages(), "SendMessageA 0 14 0 &0"), 5000u);  // the report of no window
  EXPECT_TRUE(client->Events().empty());

  // Without a client the generation reads as 3 and the probe waits for its window for ever.
  client->Quit();
  EXPECT_THROW(Check(list, 5000), BudgetExhausted);
}

TEST_F(FullBoxTest, ClientGoneDuringTheProbe) {
  // Generation 3: the probe returns as its window has gone, and the missing frame ends the check.
  Start(3);
  client->SetSlow("Send", 5.0);
  client->desktop().Schedule(1.0, [&] {
    mail.reset();
    client->Quit();
  });
  VectorAddresses list({"a@x.com"});
  EXPECT_EQ(Check(list), "");
  EXPECT_FALSE(reached);
  EXPECT_EQ(list.items, Lines{"a@x.com"});

  // Generation 5: the generation then reads as 3, and the Compose Mail probe waits for ever.
  Start(5);
  client->SetSlow("Send", 5.0);
  client->desktop().Schedule(1.0, [&] {
    mail.reset();
    client->Quit();
  });
  EXPECT_THROW(Check(list, 5000), BudgetExhausted);
}

TEST_F(FullBoxTest, Generation4WaitsUntilTheClientShowsAReport) {
  Start(4);
  mail->MarkFull("a@x.com");
  VectorAddresses list({"a@x.com", "b@x.com"});
  // The user sends a mail to a bad address by hand while the check waits.
  Hwnd w = 0;
  client->desktop().Schedule(1.0, [&] {
    client->OnMenuItem("x", nullptr);
    w = client->OpenDocument(aol::kErrorCaption);
    client->AddControl(w, aol::kViewClass, "a@x.com - mailbox is full");
  });
  client->desktop().Schedule(1.5, [&] {
    client->ShowDialog(aol::kAolDialogCaption, "", {"&Yes", aol::kNoCaption});
  });
  EXPECT_EQ(Check(list), " - a@x.com\r");
  EXPECT_EQ(list.items, Lines{"b@x.com"});
}

}  // namespace
}  // namespace qc::test
