#include <gtest/gtest.h>

#include <string>

#include "base/byte_text.h"

namespace qc {
namespace {

TEST(ByteText, ValidUtf8DecodesAndStrayBytesTravelAsEscapes) {
  struct Case {
    std::string bytes;
    std::u16string text;
  } cases[] = {
      {"plain.mp3", u"plain.mp3"},
      {"caf\xC3\xA9", u"caf\u00E9"},
      {"caf\xE9.mp3", u"caf\xDCE9.mp3"},                  // Latin-1
      {"\xF0\x9F\x8E\xB5", u"\U0001F3B5"},                 // a pair of surrogates
      {"\xC0\xAF", u"\xDCC0\xDCAF"},                       // overlong
      {"\xE0\x80\xAF", u"\xDCE0\xDC80\xDCAF"},           // three bytes, overlong
      {"\xED\xA0\x80", u"\xDCED\xDCA0\xDC80"},             // an encoded surrogate
      {"\xF4\x90\x80\x80", u"\xDCF4\xDC90\xDC80\xDC80"},   // past U+10FFFF
      {"\xE2\x82", u"\xDCE2\xDC82"},                       // cut short at the end
      {std::string("a\0b", 3), std::u16string(u"a\0b", 3)},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Utf16FromBytes(c.bytes), c.text) << c.bytes;
    EXPECT_EQ(BytesFromUtf16(c.text), c.bytes) << c.bytes;
  }
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
