#include <gtest/gtest.h>

#include "base/cp1252.h"
#include "codec/genres.h"
#include "support/cases.h"

namespace qc {
namespace {

TEST(Cp1252, AllBytesRoundTripExactly) {
  std::string all;
  for (int b = 0; b < 256; ++b) all += static_cast<char>(b);
  EXPECT_EQ(Utf8ToCp1252(Cp1252ToUtf8(all)), all);
}

// data/text.txt.
TEST(TagText, GoldenCases) {
  using test::Args;
  test::RunCases(
      QC_TEST_DATA_DIR "/text.txt",
      {{"FromCp1252", [](const Args& a) { return Cp1252ToUtf8(a[0]); }},
       {"ToCp1252", [](const Args& a) { return Utf8ToCp1252(a[0]); }},
       {"GenreName", [](const Args& a) { return GenreNameOf(static_cast<unsigned>(std::stoi(a[0]))); }},
       {"GenreNumber", [](const Args& a) { return std::to_string(GenreNumberOf(a[0])); }}});
}

TEST(Genres, EachNameReadsAndWritesItsOwnNumberButRockAndFolk) {
  for (int g = 0; g < kGenreCount; ++g) {
    const std::string name(GenreNames()[g]);
    EXPECT_EQ(GenreNameOf(static_cast<unsigned>(g)), name);
    EXPECT_EQ(GenreNumberOf(name), name == "Rock" ? 1 : name == "Folk" ? 53 : g) << name;
  }
}

}  // namespace
}  // namespace qc
