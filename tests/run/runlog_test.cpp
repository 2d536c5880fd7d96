// The run log's mail form, its sums and the dates it carries. The clipboard form, the command
// that copies it and a file gone from under it are a program scenario (run_log_copy).
#include "run/dates.h"
#include "run/runlog.h"
#include "run_rig.h"
#include "support/cases.h"

namespace qc::test {
namespace {

std::string Head(const std::string& count, const std::string& total) {
  return "  quill cast : v.qc23e : brindle\r\n  -------------------------------------\r\n  log:\r\n"
         "    number of mp3s: " + count + "\r\n    total megabytes: " + total +
         "\r\n    log created on: 01/02/99\r\n  -------------------------------------\r\n"
         "  log in detail:\r\n\r\n";
}

class RunLog : public RunRig {
 protected:
  RunLog() { services.today = [] { return CivilDate{1999, 1, 2}; }; }
};

TEST_F(RunLog, MailFormByteForByte) {
  EXPECT_EQ(CompileRunLog(frm, services.today()), Head("0", "0"));
  Choose("first.mp3", 1500000, "MiXeD Case [x]");
  Choose("second.mp3", 3520000, "");
  // The mail form keeps the lone breaks around each subject, taken as it stands in the list.
  EXPECT_EQ(CompileRunLog(frm, services.today()),
            Head("2", "5.02") +
                "1.\tfile name: first.mp3\r\n\tfile size: 1.5mb\r\tMiXeD Case [x]\n\r\n\r\n"
                "2.\tfile name: second.mp3\r\n\tfile size: 3.52mb\r\t\n\r\n\r\n");
}

TEST_F(RunLog, TotalIsTheSumOfRoundedSizes) {
  struct Case {
    std::vector<std::int64_t> sizes;
    const char* total;
  } cases[] = {
      {{4000, 4000}, "0"},           // each rounds to nothing
      {{5000, 5000, 5000}, ".03"},   // each rounds up to .01
      {{3524000, 3526000}, "7.05"},  // 3.52 + 3.53
      {{1000000, 2000000}, "3"},
  };
  int n = 0;
  for (const Case& c : cases) {
    frm.lstPathSelect->Clear();
    for (std::int64_t bytes : c.sizes) Choose("f" + std::to_string(n++) + ".mp3", bytes, "s");
    SCOPED_TRACE(c.total);
    EXPECT_EQ(SelectedMbTotal(frm), c.total);
    EXPECT_NE(CompileRunLog(frm, services.today()).find("    total megabytes: " + std::string(c.total) + "\r\n"),
              std::string::npos);
  }
}

// data/dates.txt: the two forms of a date.
TEST(Dates, LongAndShortForms) {
  RunCases(QC_TEST_DATA_DIR "/dates.txt", {{"Date", [](const Args& a) {
             const CivilDate d{std::stoi(a[0]), static_cast<unsigned>(std::stoi(a[1])),
                               static_cast<unsigned>(std::stoi(a[2]))};
             return LongDateText(d) + " | " + ShortDateText(d);
           }}});
}

}  // namespace
}  // namespace qc::test
