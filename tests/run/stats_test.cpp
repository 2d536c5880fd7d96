// Counters as label texts: sum lines, the chat lines' size text, the megabyte calculator.
#include <QAction>

#include <filesystem>

#include "base/failure.h"
#include "run_rig.h"

namespace qc::test {
namespace {

TEST(TotalSizeText, MegabytesBelowAThousandGigsFromItOrAFailure) {
  const auto rows = ReadTable(QC_TEST_DATA_DIR "/total_size.txt");
  ASSERT_EQ(rows.size(), 22u);
  for (const TableRow& row : rows) {
    const std::string in = row.text.value_or("");
    const int failure = row.words[0] == "failure" ? std::stoi(row.words[1]) : 0;
    std::string got;
    EXPECT_EQ(FailureNumberOf([&] { got = TotalSizeText(in); }), failure) << in;
    EXPECT_EQ(got, failure ? "" : row.words[0]) << in;
  }
}

TEST(ToCurrency, RoundsToFourPlacesHalvesToEven) {
  EXPECT_EQ(ToCurrency("1.23445"), 12344);
  EXPECT_EQ(ToCurrency("1.23455"), 12346);
  EXPECT_EQ(ToCurrency("-1.23455"), -12346);
  EXPECT_EQ(ToCurrency("0.000049"), 0);
  EXPECT_EQ(ToCurrency("-922337203685477.5808"), INT64_MIN);
  EXPECT_EQ(StandardFormat(1234567891), "123,456.79");
  EXPECT_EQ(StandardFormat(-49), "0.00");
}

using Stats = RunRig;

TEST_F(Stats, SumLinesFollowTheCountersAsTheyStand) {
  EXPECT_EQ(frm.Label1->Caption(), "0 ups : 0 mb");
  EXPECT_EQ(frm.lblTagTotal->Caption(), "total: 0 mb : 0 ups");
  frm.lblUps->SetCaption("12");
  EXPECT_EQ(frm.Label1->Caption(), "12 ups : 0 mb");
  frm.lblTagTotalMb->SetCaption("3.52");
  frm.lblTagTotalUps->SetCaption("1");
  EXPECT_EQ(frm.lblTagTotal->Caption(), "total: 3.52 mb : 1 ups");
  // The texts are not parsed on their way into the sum lines.
  frm.lblMBs->SetCaption("lots");
  EXPECT_EQ(frm.Label1->Caption(), "12 ups : lots mb");
  frm.lblMBs->SetCaption("1234.5");
  EXPECT_EQ(TotalSizeText(frm), "1.23gigs");
}

TEST_F(Stats, MbCalculatorSumsRoundedSizesOrRefuses) {
  ShowMbTotal(frm, prompts);
  ExpectBox(prompts, 0,
            "cannot calculate megabytes because you have not selected files to upload.", 4112,
            "error:");
  Choose("a.mp3", 3524000, "a");
  Choose("b.mp3", 3526000, "b");
  Choose("c.mp3", 4000, "c");  // adds nothing
  menu.calcMb->trigger();
  ExpectBox(prompts, 1, "total size of mp3s: 7.05mb", 4160, "mb calc.");
  std::filesystem::remove(Choose("gone.mp3", 1000, "x"));
  EXPECT_EQ(FailureNumberOf([&] { ShowMbTotal(frm, prompts); }), kFileNotFound);
  EXPECT_EQ(prompts.boxes.size(), 2u);
}

}  // namespace
}  // namespace qc::test
