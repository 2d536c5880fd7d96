#include <gtest/gtest.h>

#include "base/numbers.h"
#include "support/comma_locale.h"

namespace qc {
namespace {

TEST(RoundTo, HalvesRoundUpwardsAlsoWhenNegative) {
  EXPECT_EQ(RoundTo(-2.5, 0), -2);
  EXPECT_EQ(RoundTo(2.5, 0), 3);
  EXPECT_EQ(RoundTo(-2.51, 0), -3);
  EXPECT_DOUBLE_EQ(RoundTo(3.14159, 2), 3.14);
  EXPECT_DOUBLE_EQ(RoundTo(0.7, 2), 0.7);
  EXPECT_DOUBLE_EQ(RoundTo(1234.56785, 4), 1234.5679);
}

TEST(LeadingNumber, ReadsTheHeadOfATextOnly) {
  struct Case {
    const char* text;
    double value;
  } cases[] = {
      {"", 0},          {"abc", 0},      {"  12", 12},   {"3/ 12", 3},      {"1.5.2", 1.5},
      {" .5mb", 0.5},   {"7", 7},        {"0", 0},       {"12 34", 12},     {"-3", 0},
      {".", 0},         {"2x", 2},       {"85.2 mbs", 85.2},
  };
  for (const auto& c : cases) EXPECT_DOUBLE_EQ(LeadingNumber(c.text), c.value) << c.text;
}

TEST(NumberText, PaddedAndPlainForms) {
  EXPECT_EQ(PaddedNumberText(12), " 12");
  EXPECT_EQ(PaddedNumberText(0.5), " .5");
  EXPECT_EQ(PaddedNumberText(3.50), " 3.5");
  EXPECT_EQ(PaddedNumberText(-0.5), "-.5");
  EXPECT_EQ(PaddedNumberText(0), " 0");
  EXPECT_EQ(PlainNumberText(0.5), "0.5");
  EXPECT_EQ(PlainNumberText(12), "12");
  EXPECT_EQ(PlainNumberText(123456789012345.0), "123456789012345");
  EXPECT_EQ(PlainNumberText(0.1 + 0.2), "0.3");  // 15 significant digits hide the binary tail
  EXPECT_EQ(PlainNumberText(1e15), "1E+15");
}

TEST(NumberText, FullStopUnderACommaLocale) {
  test::CommaLocale comma;
  ASSERT_TRUE(comma.active());
  EXPECT_DOUBLE_EQ(LeadingNumber("12.75"), 12.75);
  EXPECT_DOUBLE_EQ(LeadingNumber(" .5mb"), 0.5);
  EXPECT_DOUBLE_EQ(LeadingNumber("12,75"), 12);
  EXPECT_EQ(PlainNumberText(2.5), "2.5");
  EXPECT_EQ(PlainNumberText(1.5e-7), "1.5E-07");
  EXPECT_EQ(PaddedNumberText(12.75), " 12.75");
  EXPECT_EQ(PaddedNumberText(-0.5), "-.5");
  EXPECT_EQ(SizeText(4270000), "4.27");
}

TEST(SizeText, DecimalMegabytesRoundedToTwoPlaces) {
  EXPECT_EQ(SizeText(700000), ".7");
  EXPECT_EQ(SizeText(3000000), "3");
  EXPECT_EQ(SizeText(500000), ".5");
  EXPECT_EQ(SizeText(3520000), "3.52");
  EXPECT_EQ(SizeText(3254999), "3.25");
  EXPECT_EQ(SizeText(3255000), "3.26");
  EXPECT_EQ(SizeText(0), "0");
}

}  // namespace
}  // namespace qc
