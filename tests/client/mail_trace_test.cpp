// Trace tests that pin the differences between the generation 5 and 4 scripts, and between the
// probes: which messages are posted or sent, where the pumps stand, which icons are pressed and
// where the pauses fall.
#include <set>

#include "client/compose_mail.h"
#include "client/vocabulary.h"
#include "client/write_mail.h"
#include "mail_fixture.h"

namespace qc::test {
namespace {

class MailTraceTest : public MailTest {
 protected:
  struct Stamped {
    double time;
    std::string line;
  };
  std::vector<Stamped> stamped;

  void Record() {
    MarkPumps();
    stamped.clear();
    d.SetTraceListener([this](const sim::TraceEntry& e) {
      marked.push_back(e.line);
      stamped.push_back({CurrentClock().Now(), e.line});
    });
  }
  double TimeOf(const std::string& line, int n = 1) const {
    for (const auto& s : stamped) {
      if (s.line == line && --n == 0) return s.time;
    }
    ADD_FAILURE() << "no " << line;
    return 0;
  }
  // The mail window's icons that got a button press, by number.
  std::set<int> PressedIcons() const {
    std::set<int> out;
    const std::string prefix = kWriteMail + "/_AOL_Icon";
    for (const std::string& l : Messages()) {
      for (const char* op : {"PostMessageA ", "SendMessageA "}) {
        const std::string head = op + prefix;
        if (l.rfind(head, 0) != 0 || l.find(" 513 ") == std::string::npos) continue;
        const std::string rest = l.substr(head.size());
        out.insert(rest[0] == '#' ? std::stoi(rest.substr(1)) : 1);
      }
    }
    return out;
  }
};

const std::string kTo = "ann@aol.com";
const std::string kFillTo = "SendMessageA " + kWriteMail + "/_AOL_Edit 12 0 \"ann@aol.com\"";
const std::string kFillBody = "SendMessageA " + kWriteMail + "/RICHCNTL 12 0 \"b\"";

TEST_F(MailTraceTest, FileMail50And40Differ) {
  for (int generation : {5, 4}) {
    SCOPED_TRACE(generation);
    Start(generation);
    Record();
    Within(20000, [&] {
      if (generation == 5) {
        SendFileMail50(d, kTo, "s", "b", kMp3, true);
      } else {
        SendFileMail40(d, kTo, "s", "b", kMp3, true);
      }
    });
    ASSERT_EQ(mail->Outgoing().size(), 1u);
    const Lines squeezed = Squeezed(marked);
    const std::string open = Posted(kToolbarIcon2, 513);
    const std::string open2 = Posted(kToolbarIcon2, 514);
    const std::string retitle = "SendMessageA " + kWriteMail + " 12 0 \"s\"";
    if (generation == 5) {
      // Opening click with a pump between the posts; the attach icon posted, no pump between.
      EXPECT_EQ(From(squeezed, open, 4), (Lines{open, kPump, open2, kPump}));
      const std::string a = Posted(Icon(kWriteMail, 14), 513);
      EXPECT_EQ(From(squeezed, a, 3), (Lines{a, Posted(Icon(kWriteMail, 14), 514), kPump}));
      EXPECT_EQ(PressedIcons(), (std::set<int>{14, 17}));
      EXPECT_EQ(Count(Messages(), retitle), 1u);
      // Retitled right behind the body, before the attachment, with no pump.
      EXPECT_EQ(From(squeezed, kFillBody, 3), (Lines{kFillBody, kPump, retitle}));
      // Two pauses of 0.2 between the ready window and the filling.
      EXPECT_GE(TimeOf(kFillTo) - TimeOf(open2), 0.4);
    } else {
      EXPECT_EQ(From(squeezed, open, 3), (Lines{open, open2, kPump}));
      // The attach icon gets a sent click, with a pump between the two messages.
      const std::string a = Sent(Icon(kWriteMail, 13), 513);
      EXPECT_EQ(From(squeezed, a, 3), (Lines{a, kPump, Sent(Icon(kWriteMail, 13), 514)}));
      EXPECT_EQ(PressedIcons(), (std::set<int>{13, 15}));
      EXPECT_EQ(Count(Messages(), retitle), 0u);
      // No pause before the filling, half a second behind it.
      EXPECT_LT(TimeOf(kFillTo) - TimeOf(open2), 0.2);
      EXPECT_GE(TimeOf(a) - TimeOf(kFillBody), 0.5);
      // The window is looked up again by "Write Mail" after the filling.
      const std::string lookup = "FindWindowExA AOL Frame25/MDIClient 0 \"AOL Child\" \"Write "
                                 "Mail\" -> " + kWriteMail;
      double last = 0;
      for (const auto& s : stamped) {
        if (s.line == lookup) last = s.time;
      }
      EXPECT_GT(last, TimeOf(kFillBody));
    }
    // The opening icon is clicked once: the wait for the window repeats no press.
    EXPECT_EQ(Count(Messages(), open), 1u);
  }
}

TEST_F(MailTraceTest, NoticeFindsTheWindowAgainAndPressesWithoutPause) {
  Start(5);
  Record();
  Within(20000, [&] { SendNoticeMail50(d, kTo, "s", "b"); });
  EXPECT_EQ(PressedIcons(), (std::set<int>{17}));
  // Half a second after the window is ready, then 0.2 before the filling.
  EXPECT_GE(TimeOf(kFillTo) - TimeOf(Posted(kToolbarIcon2, 514)), 0.7);
  // Presses follow each other with only pumps between them.
  const double first = TimeOf(Posted(Icon(kWriteMail, 17), 513));
  const double second = TimeOf(Posted(Icon(kWriteMail, 17), 513), 2);
  EXPECT_LT(second - first, 0.01);
}

TEST_F(MailTraceTest, ProbesDiffer) {
  for (int generation : {5, 4}) {
    SCOPED_TRACE(generation);
    Start(generation);
    Record();
    Within(20000, [&] {
      if (generation == 5) {
        WriteProbe50(d, "x@aol.com, -", "\xA0", "\xA0");
      } else {
        WriteProbe40(d, "x@aol.com, -", "\xA0", "\xA0");
      }
    });
    EXPECT_NE(client->Document(aol::kErrorCaption), 0);
    ASSERT_EQ(mail->MailWindows().size(), 1u);  // left for the caller
    const Hwnd w = mail->MailWindows()[0];
    const std::string body = "SendMessageA " + kWriteMail + "/RICHCNTL 12 0 \"\xA0\"";
    const std::string to = "SendMessageA " + kWriteMail + "/_AOL_Edit 12 0 \"x@aol.com, -\"";
    const std::string hide = "ShowWindow " + kWriteMail + " 0";
    const Lines squeezed = Squeezed(marked);
    if (generation == 5) {
      EXPECT_EQ(PressedIcons(), (std::set<int>{16}));
      const std::string press = Sent(Icon(kWriteMail, 16), 513);
      EXPECT_EQ(From(squeezed, press, 3), (Lines{press, kPump, Sent(Icon(kWriteMail, 16), 514)}));
      EXPECT_EQ(Count(d.TraceLines(), hide), 0u);
      EXPECT_TRUE(d.Visible(w));
      EXPECT_GE(TimeOf(to) - TimeOf(Posted(kToolbarIcon2, 514)), 0.2);
      EXPECT_LT(TimeOf(press) - TimeOf(body), 0.1);
    } else {
      EXPECT_EQ(PressedIcons(), (std::set<int>{14}));
      const std::string press = Sent(Icon(kWriteMail, 14), 513);
      EXPECT_EQ(From(squeezed, press, 4),
                (Lines{press, kPump, Sent(Icon(kWriteMail, 14), 514), kPump}));
      // Hidden between two pumps once it appears, and never shown again.
      const Lines all = marked;
      const std::size_t at = Find(all, hide);
      ASSERT_NE(at, std::string::npos);
      EXPECT_EQ(all[at - 1], kPump);
      EXPECT_EQ(all[at + 1], kPump);
      EXPECT_FALSE(d.Visible(w));
      EXPECT_LT(TimeOf(to) - TimeOf(Posted(kToolbarIcon2, 514)), 0.2);
      EXPECT_GE(TimeOf(press) - TimeOf(body), 0.2);
    }
    // Subject and body are filled, the window is not retitled.
    EXPECT_EQ(d.TextOf(w), aol::kWriteMailCaption);
    EXPECT_EQ(mail->Fields(w).body, "\xA0");
  }
}

TEST_F(MailTraceTest, ComposeProbePressesTheFirstIconAfterTheLookups) {
  Start(3);
  mail->MarkFull("x@aol.com");
  Record();
  Within(20000, [&] { ComposeProbe95(d, "x@aol.com, -", "\xA0", "\xA0"); });
  EXPECT_NE(client->Document(aol::kErrorCaption), 0);
  // The report stands in front of the mail, which is now the second document window.
  const std::string press = Posted(Icon(kWriteMail + "#2", 1), 513);
  const Lines m = Messages();
  // The last press follows the lookups that found the report.
  const std::string error =
      "FindWindowExA AOL Frame25/MDIClient 0 \"AOL Child\" \"Error\" -> AOL Frame25/MDIClient/AOL "
      "Child";
  const Lines all = d.TraceLines();
  std::size_t at = Find(all, error);
  ASSERT_NE(at, std::string::npos);
  EXPECT_EQ(all[at + 1], press);
  EXPECT_EQ(all.back(), Posted(Icon(kWriteMail + "#2", 1), 514));
  EXPECT_EQ(CountPrefix(m, "PostMessageA " + kWriteMail + "/_AOL_Icon#"), 0u);
}

}  // namespace
}  // namespace qc::test
