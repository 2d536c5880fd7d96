// The run log's bytes in both forms, its sums, the clipboard command and the dates it carries.
#include <QAction>
#include <QClipboard>
#include <QDate>
#include <QGuiApplication>

#include <filesystem>

#include "run/dates.h"
#include "ui/frmmenu.h"
#include "run/runlog.h"
#include "base/failure.h"
#include "runlog_fixture.h"

namespace qc {
namespace {

const std::string kHead =
    "  quill cast : v.qc23e : brindle\r\n"
    "  -------------------------------------\r\n"
    "  log:\r\n";

std::string Head(const std::string& count, const std::string& total, const std::string& date) {
  return kHead + "    number of mp3s: " + count + "\r\n    total megabytes: " + total +
         "\r\n    log created on: " + date +
         "\r\n  -------------------------------------\r\n  log in detail:\r\n\r\n";
}

class RunLog : public test::ChosenFiles {
 protected:
  ScopedToday today_{{1999, 1, 2}};
};

TEST_F(RunLog, MailFormKeepsTheLoneBreaksAroundEachSubject) {
  Choose("first.mp3", 1500000, "abc");
  Choose("second.mp3", 500000, "");
  const std::string expected = Head("2", "2", "01/02/99") +
                               "1.\tfile name: first.mp3\r\n\tfile size: 1.5mb\r\tabc\n\r\n\r\n"
                               "2.\tfile name: second.mp3\r\n\tfile size: .5mb\r\t\n\r\n\r\n";
  EXPECT_EQ(CompileRunLog(frm), expected);
}

TEST_F(RunLog, ClipboardFormHasNoSubjects) {
  Choose("first.mp3", 1500000, "abc");
  Choose("second.mp3", 3520000, "def");
  const std::string expected = Head("2", "5.02", "01/02/99") +
                               "1.\tfile name: first.mp3\r\n\tfile size: 1.5mb\r\n\r\n"
                               "2.\tfile name: second.mp3\r\n\tfile size: 3.52mb\r\n\r\n";
  EXPECT_EQ(BuildRunLog(frm, RunLogForm::kClipboard), expected);
}

TEST_F(RunLog, SubjectIsTakenAsItStandsInTheList) {
  Choose("a.mp3", 1000000, "MiXeD Case [x]");
  EXPECT_NE(CompileRunLog(frm).find("\r\tMiXeD Case [x]\n"), std::string::npos);
}

TEST_F(RunLog, TotalIsTheSumOfRoundedSizes) {
  struct Case {
    std::vector<std::int64_t> sizes;
    const char* total;
  };
  const Case cases[] = {
      {{4000, 4000}, "0"},              // each rounds to nothing
      {{5000, 5000, 5000}, ".03"},      // each rounds up to .01
      {{3524000, 3526000}, "7.05"},     // 3.52 + 3.53
      {{1000000, 2000000}, "3"},
      {{}, "0"},
  };
  int n = 0;
  for (const Case& c : cases) {
    frm.lstPathSelect->Clear();
    frm.lstSubj->Clear();
    for (std::int64_t bytes : c.sizes) Choose("f" + std::to_string(n++) + ".mp3", bytes, "s");
    SCOPED_TRACE(c.total);
    EXPECT_EQ(SelectedMbTotal(frm), c.total);
    const std::string log = CompileRunLog(frm);
    EXPECT_NE(log.find("    total megabytes: " + std::string(c.total) + "\r\n"), std::string::npos);
    EXPECT_NE(log.find("    number of mp3s: " + std::to_string(c.sizes.size()) + "\r\n"),
              std::string::npos);
  }
}

TEST_F(RunLog, EmptySelectionGivesTheHeadAlone) {
  EXPECT_EQ(CompileRunLog(frm), Head("0", "0", "01/02/99"));
}

TEST_F(RunLog, VanishedFileEndsTheWalkWithFileNotFound) {
  Choose("here.mp3", 1000, "a");
  const std::string gone = Choose("gone.mp3", 1000, "b");
  std::filesystem::remove(gone);
  for (auto build : {+[](const FrmMain& f) { return CompileRunLog(f); },
                     +[](const FrmMain& f) { return SelectedMbTotal(f); }}) {
    try {
      build(frm);
      ADD_FAILURE() << "no failure raised";
    } catch (const RuntimeFailure& e) {
      EXPECT_EQ(e.number(), kFileNotFound);
    }
  }
}

TEST_F(RunLog, CopyPutsTheClipboardFormOnTheClipboardAndSaysSo) {
  Choose("first.mp3", 1500000, "abc");
  FrmMenu menu;
  ConnectRunLog(frm, menu);
  menu.compileLog->trigger();
  EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(),
            BuildRunLog(frm, RunLogForm::kClipboard));
  ASSERT_EQ(prompts.boxes.size(), 1u);
  EXPECT_EQ(prompts.boxes[0].text,
            "log has been copyed to your clipboard. it is recommened that you paste the log into "
            "an email form and send it to the person in your group that is in charge of stats!");
  EXPECT_EQ(prompts.boxes[0].flags, 4160);
  EXPECT_EQ(prompts.boxes[0].title, "log");
}

TEST_F(RunLog, CopyWithNothingChosenRefusesAndLeavesTheClipboard) {
  QGuiApplication::clipboard()->setText(QStringLiteral("before"));
  CopyRunLog(frm);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "before");
  ASSERT_EQ(prompts.boxes.size(), 1u);
  EXPECT_EQ(prompts.boxes[0].text,
            "cannot compile a log because you have not selected files to upload.");
  EXPECT_EQ(prompts.boxes[0].flags, 4112);
  EXPECT_EQ(prompts.boxes[0].title, "error:");
}

TEST(ShortFileName, KeepsWhatFollowsTheLastSeparator) {
  EXPECT_EQ(ShortFileName("/music/set one/track.mp3"), "track.mp3");
  EXPECT_EQ(ShortFileName("track.mp3"), "track.mp3");
  EXPECT_EQ(ShortFileName("/music/"), "");
  EXPECT_EQ(ShortFileName(""), "");
}

TEST(Dates, LongAndShortForms) {
  struct Case {
    CivilDate date;
    const char* longText;
    const char* shortText;
  };
  const Case cases[] = {
      {{1999, 1, 1}, "friday, jan. 01, 1999", "01/01/99"},
      {{2000, 2, 29}, "tuesday, feb. 29, 2000", "02/29/00"},
      {{2024, 12, 25}, "wednesday, dec. 25, 2024", "12/25/24"},
      {{2009, 9, 6}, "sunday, sep. 06, 2009", "09/06/09"},
      {{1998, 5, 18}, "monday, may. 18, 1998", "05/18/98"},
  };
  for (const Case& c : cases) {
    ScopedToday fixed(c.date);
    EXPECT_EQ(TodayLong(), c.longText);
    EXPECT_EQ(TodayShort(), c.shortText);
  }
}

TEST(Dates, WithoutASeamTodayIsTheMachinesDate) {
  const QDate d = QDate::currentDate();
  const CivilDate t = Today();
  // Tolerate a run across midnight.
  const bool same = t.year == d.year() && static_cast<int>(t.month) == d.month() &&
                    static_cast<int>(t.day) == d.day();
  const QDate e = QDate::currentDate();
  const bool next = t.year == e.year() && static_cast<int>(t.month) == e.month() &&
                    static_cast<int>(t.day) == e.day();
  EXPECT_TRUE(same || next);
}

}  // namespace
}  // namespace qc
