// The chat lines' size text of a megabyte counter and the currency arithmetic under it. The sum
// lines and the megabyte calculator are run scenarios (counters_as_text, mb_calculator).
#include <gtest/gtest.h>

#include "base/failure.h"
#include "run/stats.h"
#include "support/files.h"

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

}  // namespace
}  // namespace qc::test
