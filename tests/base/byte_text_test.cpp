#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "base/byte_text.h"
#include "support/cases.h"

namespace qc {
namespace {

// data/byte_text.txt: the UTF-16 text of some bytes, which must give the same bytes back.
TEST(ByteText, GoldenCases) {
  test::RunCases(QC_TEST_DATA_DIR "/byte_text.txt", {{"Utf16", [](const test::Args& a) {
                   const std::u16string text = Utf16FromBytes(a[0]);
                   std::string shown = BytesFromUtf16(text) == a[0] ? "" : "not the bytes again: ";
                   for (const char16_t u : text) {
                     char unit[8];
                     std::snprintf(unit, sizeof unit, "<%04X>", static_cast<unsigned>(u));
                     shown += u >= 0x20 && u < 0x7F ? std::string(1, static_cast<char>(u)) : unit;
                   }
                   return shown;
                 }}});
}

TEST(ByteText, EveryByteStringComesBack) {
  std::string all;
  for (int b = 0; b < 256; ++b) all.push_back(static_cast<char>(b));
  EXPECT_EQ(BytesFromUtf16(Utf16FromBytes(all)), all);
  // Pairs of high bytes: the valid two-byte forms among them decode, the rest escape.
  for (int a = 0x80; a < 0x100; ++a) {
    for (int b = 0x80; b < 0x100; b += 7) {
      const std::string s{static_cast<char>(a), static_cast<char>(b), 'x'};
      ASSERT_EQ(BytesFromUtf16(Utf16FromBytes(s)), s) << a << " " << b;
    }
  }
}

TEST(ByteText, UnpairedSurrogatesThatNoBytesGiveBecomeReplacementCharacters) {
  EXPECT_EQ(BytesFromUtf16(u"a\xD800z"), "a\xEF\xBF\xBDz");
  EXPECT_EQ(BytesFromUtf16(u"\xDC7F"), "\xEF\xBF\xBD");
}

}  // namespace
}  // namespace qc
