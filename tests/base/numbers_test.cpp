#include <gtest/gtest.h>

#include <charconv>
#include <optional>

#include "base/numbers.h"
#include "support/cases.h"
#include "support/comma_locale.h"

namespace qc {
namespace {

double Number(const std::string& text) {
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

// data/numbers.txt, under the C locale and under one whose decimal point is a comma: number text
// always has the full stop.
TEST(Numbers, GoldenCasesUnderEitherDecimalPoint) {
  using test::Args;
  const std::map<std::string, test::Routine> routines = {
      {"RoundTo",
       [](const Args& a) {
         return PlainNumberText(RoundTo(Number(a[0]), static_cast<std::int16_t>(std::stoi(a[1]))));
       }},
      {"LeadingNumber", [](const Args& a) { return PlainNumberText(LeadingNumber(a[0])); }},
      {"PaddedNumberText", [](const Args& a) { return PaddedNumberText(Number(a[0])); }},
      {"PlainNumberText", [](const Args& a) { return PlainNumberText(Number(a[0])); }},
      {"SizeText", [](const Args& a) { return SizeText(std::stoll(a[0])); }},
      {"ToInteger16", [](const Args& a) { return std::to_string(ToInteger16(std::stoll(a[0]))); }},
  };
  for (bool comma : {false, true}) {
    SCOPED_TRACE(comma ? "comma locale" : "C locale");
    std::optional<test::CommaLocale> locale;
    if (comma && !locale.emplace().active()) return;  // the locale has failed the test
    test::RunCases(QC_TEST_DATA_DIR "/numbers.txt", routines);
  }
}

}  // namespace
}  // namespace qc
