#include <gtest/gtest.h>

#include <algorithm>

#include "base/cp1252.h"
#include "codec/genres.h"

namespace qc {
namespace {

TEST(Cp1252, AllBytesRoundTripExactly) {
  std::string all;
  for (int b = 0; b < 256; ++b) all += static_cast<char>(b);
  std::string utf8 = Cp1252ToUtf8(all);
  EXPECT_EQ(Utf8ToCp1252(utf8), all);
  for (int b = 0; b < 256; ++b) {
    std::string one(1, static_cast<char>(b));
    EXPECT_EQ(Utf8ToCp1252(Cp1252ToUtf8(one)), one) << b;
  }
}

TEST(Cp1252, KnownCharacters) {
  struct Case {
    unsigned char byte;
    const char* utf8;
  } cases[] = {
      {0x80, "€"}, {0x95, "•"}, {0x9F, "Ÿ"}, {0xB7, "·"}, {0xB4, "´"}, {0xF3, "ó"},
      {0xE8, "è"}, {0x8A, "Š"}, {0x99, "™"}, {0xA0, "\u00A0"}, {0x81, "\u0081"}, {0x00, ""},
  };
  for (auto& c : cases) {
    std::string expect = c.byte == 0 ? std::string(1, '\0') : c.utf8;
    EXPECT_EQ(Cp1252ToUtf8(std::string(1, static_cast<char>(c.byte))), expect) << int(c.byte);
  }
  EXPECT_EQ(Utf8ToCp1252("·• ómbrevalè •·"), "\xB7\x95 \xF3mbreval\xE8 \x95\xB7");
}

TEST(Cp1252, TextOutsideTheSetBecomesQuestionMarks) {
  EXPECT_EQ(Utf8ToCp1252("a\u03A9b"), "a?b");          // Greek omega
  EXPECT_EQ(Utf8ToCp1252("\U0001F600"), "?");           // four-byte form: one character
  EXPECT_EQ(Utf8ToCp1252("x\xFFy"), "x?y");             // stray byte
  EXPECT_EQ(Utf8ToCp1252("\xC3"), "?");                 // cut short
  EXPECT_EQ(Utf8ToCp1252("\xC0\xAF"), "??");            // overlong
  EXPECT_EQ(Utf8ToCp1252("\xED\xA0\x80"), "???");       // surrogate
}

TEST(Genres, TheTwoListsAndTheTable) {
  ASSERT_EQ(GenreNames().size(), 148u);
  const std::string& r = GenreReadingList();
  const std::string& w = GenreWritingList();
  EXPECT_TRUE(r.starts_with("|Blues|Classic Rock|Country|Dance|Disco|Funk|Grunge|"));
  EXPECT_TRUE(r.ends_with("Christian Rock|Merengue|Salsa|Trash Metal|Anime|JPop|Synth Pop|"));
  EXPECT_TRUE(w.starts_with("Blues|Classic Rock|Country|Dance|Disco|Funk|Grunge|"));
  EXPECT_TRUE(w.ends_with("Christian Rock|Merengue|Salsa|Trash Metal|Anime|JPop|Synth Pop"));
  EXPECT_EQ(std::count(r.begin(), r.end(), '|'), 149);
  EXPECT_EQ(std::count(w.begin(), w.end(), '|'), 147);
  EXPECT_EQ(GenreNames()[67], "Phychedelic");
  EXPECT_EQ(GenreNames()[117], "power Ballad");
  EXPECT_EQ(GenreNames()[140], "Comteporary Christian");
}

TEST(Genres, ReadingByNumber) {
  EXPECT_EQ(GenreNameOf(0), "Blues");
  EXPECT_EQ(GenreNameOf(17), "Rock");
  EXPECT_EQ(GenreNameOf(131), "indie");
  EXPECT_EQ(GenreNameOf(147), "Synth Pop");
  EXPECT_EQ(GenreNameOf(148), "");
  EXPECT_EQ(GenreNameOf(255), "");
  for (int g = 0; g < kGenreCount; ++g) EXPECT_EQ(GenreNameOf(g), GenreNames()[g]);
}

TEST(Genres, WritingBySubstringOfTheStrippedList) {
  struct Case {
    const char* genre;
    int number;
  } cases[] = {
      {"Rock", 1},     {"Folk", 53},  {"Folk/Rock", 81}, {"", 0},      {"no such genre", 0},
      {"hop", 7},      {"TRIPHOP", 27}, {"trip hop", 27}, {"Blues", 0}, {"Synth Pop", 147},
      {"  synthpop ", 147}, {"Pop", 13}, {"Metal", 9},   {"Indie", 131}, {"|", 0},
  };
  for (auto& c : cases) EXPECT_EQ(GenreNumberOf(c.genre), c.number) << c.genre;
  // The other 146 names each write their own number.
  for (int g = 0; g < kGenreCount; ++g) {
    std::string name(GenreNames()[g]);
    int expect = name == "Rock" ? 1 : name == "Folk" ? 53 : g;
    EXPECT_EQ(GenreNumberOf(name), expect) << name;
  }
}

}  // namespace
}  // namespace qc
