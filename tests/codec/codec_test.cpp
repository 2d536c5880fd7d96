// The tag block at the end of a file: its bytes, where it is found, how it is written, the
// failures of files too short to hold one, and no descriptor left behind; the code page and the
// genre names of its texts.
#include <gtest/gtest.h>

#include <fstream>

#include "base/cp1252.h"
#include "base/failure.h"
#include "codec/genres.h"
#include "codec/id3v1.h"
#include "support/cases.h"
#include "support/files.h"

namespace qc::test {
namespace {

namespace fs = std::filesystem;

class Codec : public ::testing::Test {
 protected:
  std::string Make(const std::string& name, const std::string& bytes) {
    return dir_.Make(name, bytes);
  }
  TempDir dir_;
};

TEST_F(Codec, RenderedBlockBytesAreExact) {
  TagBlock b = RenderTagBlock("Title", "Artist", "Album", "1999", "Comment", "Synth Pop");
  std::string bytes(b.begin(), b.end());
  EXPECT_EQ(bytes, TagBytes("Title", "Artist", "Album", "1999", "Comment", 147));
  // Cut at the right, year cut at 4, text in Windows-1252, never NUL-padded.
  b = RenderTagBlock(std::string(35, 'x'), "ómbrevalè", "", "19999", "·•", "");
  bytes.assign(b.begin(), b.end());
  EXPECT_EQ(bytes, TagBytes(std::string(30, 'x'), "\xF3mbreval\xE8", "", "1999", "\xB7\x95", 0));
  EXPECT_EQ(bytes.substr(0, 127).find('\0'), std::string::npos);
}

TEST_F(Codec, ParsedFieldsLoseTrailingBlanksOnlyAndKeepNuls) {
  auto parse = [](const std::string& s) {
    TagBlock b{};
    std::copy(s.begin(), s.end(), b.begin());
    return ParseTagBlock(b);
  };
  Id3Tag t = parse(TagBytes("Song", "  Lead", "Al", "99", "c", 17));
  EXPECT_EQ(t, (Id3Tag{"Song", "  Lead", "Al", "99", "c", "Rock"}));
  t = parse(TagBytes("Song", "", "", "", "", 255, '\0'));
  EXPECT_EQ(t.title, "Song" + std::string(26, '\0'));
  EXPECT_EQ(t.genre, "");
  // A track number in the comment's last two bytes is comment text.
  std::string v11 = TagBytes("t", "", "", "", "", 12);
  v11[97 + 28] = '\0';
  v11[97 + 29] = '\x05';
  t = parse(v11);
  EXPECT_EQ(t.comment, std::string(28, ' ') + std::string("\0\x05", 2));
  EXPECT_EQ(t.genre, "Other");
  EXPECT_EQ(parse(TagBytes(std::string(30, 'T'))).title, std::string(30, 'T'));
  EXPECT_TRUE(parse("tag" + TagBytes("x").substr(3)).empty());
  EXPECT_TRUE(parse(std::string(128, '\0')).empty());
}

// The tag is the last 128 bytes; a missing file is quietly empty, and without a dot anywhere in
// the path no file has a tag, though its block still reads.
TEST_F(Codec, HasAndReadLookAtTheLast128Bytes) {
  if (dir_.path().find('.') != std::string::npos) GTEST_SKIP() << "temporary folder has a dot";
  const struct {
    const char* name;
    std::string bytes;  // empty: no such file
    bool has;
    const char* title;
  } cases[] = {
      {"exact128.mp3", TagBytes("Only"), true, "Only"},
      {"tagged.mp3", std::string(1000, '\xFF') + TagBytes("Song", "Band"), true, "Song"},
      {"untagged.mp3", std::string(1000, '\xFF'), false, ""},
      {"lowercase-magic.mp3", "tag" + TagBytes("x").substr(3), false, ""},
      {"missing.mp3", "", false, ""},
      {"music.d/noext", std::string(10, 'a') + TagBytes("Dot"), true, "Dot"},
      {"music/noext", std::string(10, 'a') + TagBytes("Dot"), false, "Dot"},
  };
  for (const auto& c : cases) {
    const std::string path = c.bytes.empty() ? dir_ / c.name : Make(c.name, c.bytes);
    EXPECT_EQ(HasId3Tag(path), c.has) << c.name;
    EXPECT_EQ(ReadId3Tag(path).title, c.title) << c.name;
  }
  EXPECT_FALSE(HasId3Tag(""));
  EXPECT_TRUE(ReadId3Tag("").empty());
  WriteId3Tag(dir_ / "missing.mp3", "t", "a", "b", "y", "c", "Rock");
  WriteId3Tag("", "t", "a", "b", "y", "c", "Rock");
  EXPECT_FALSE(fs::exists(dir_ / "missing.mp3"));
}

TEST_F(Codec, ShortFilesRaiseTheFailureNotNoTag) {
  for (std::size_t size : {0, 1, 3, 127}) {
    std::string bytes = size >= 3 ? "TAG" + std::string(size - 3, ' ') : std::string(size, 'x');
    std::string path = Make("short" + std::to_string(size) + ".mp3", bytes);
    EXPECT_EQ(FailureNumberOf([&] { HasId3Tag(path); }), kBadRecordNumber) << size;
    EXPECT_EQ(FailureNumberOf([&] { ReadId3Tag(path); }), kBadRecordNumber) << size;
    EXPECT_EQ(FailureNumberOf([&] { WriteId3Tag(path, "t", "", "", "", "", ""); }),
              kBadRecordNumber)
        << size;
    EXPECT_EQ(ReadBytes(path), bytes) << "untouched";
  }
}

TEST_F(Codec, WriteOverwritesTheLastBlockNeverAppends) {
  const std::string audio(5000, '\x55');
  std::string path = Make("untagged.mp3", audio);
  // The file is replaced whole, never written over: a reader of the old one keeps it.
  std::ifstream old(path, std::ios::binary);
  WriteId3Tag(path, "New", "Artist", "Album", "2001", "Comment", "Folk");
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(old), {}), audio);
  std::string after = ReadBytes(path);
  ASSERT_EQ(after.size(), audio.size());
  EXPECT_EQ(after.substr(0, 5000 - 128), audio.substr(0, 5000 - 128));
  EXPECT_EQ(after.substr(5000 - 128), TagBytes("New", "Artist", "Album", "2001", "Comment", 53));
  // A tagged file gets its tag replaced; blanks at the end of a field are lost.
  WriteId3Tag(path, "Trailing  ", "", "", "", "", "Rock");
  EXPECT_EQ(ReadBytes(path).size(), 5000u);
  EXPECT_EQ(ReadId3Tag(path), (Id3Tag{"Trailing", "", "", "", "", "Classic Rock"}));
}

TEST_F(Codec, WriteClearsReadOnlyForGood) {
  std::string path = Make("readonly.mp3", std::string(200, 'a') + TagBytes("Old"));
  fs::permissions(path, fs::perms::owner_read | fs::perms::group_read);
  WriteId3Tag(path, "New", "", "", "", "", "");
  EXPECT_NE(fs::status(path).permissions() & fs::perms::owner_write, fs::perms::none);
  EXPECT_EQ(ReadId3Tag(path).title, "New");
}

// No descriptor outlives a codec call, on the failure paths as much as on the good ones.
TEST_F(Codec, ManyCallsIncludingFailuresLeaveNoDescriptorOpen) {
  auto openDescriptors = [] {
    return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
  };
  const std::string tagged = Make("tagged.mp3", std::string(400, 'a') + TagBytes(""));
  const std::string shortFile = Make("short.mp3", std::string(127, 'b'));
  const std::string missing = dir_ / "missing.mp3";
  const auto before = openDescriptors();
  int failures = 0;
  for (int i = 0; i < 1000; ++i) {
    HasId3Tag(tagged);
    ReadId3Tag(tagged);
    WriteId3Tag(tagged, "t", "a", "b", "y", "c", "Folk");
    HasId3Tag(missing);
    ReadId3Tag(missing);
    WriteId3Tag(missing, "", "", "", "", "", "");
    // Opened, then found too short.
    failures += FailureNumberOf([&] { HasId3Tag(shortFile); }) == kBadRecordNumber;
    failures += FailureNumberOf([&] { ReadId3Tag(shortFile); }) == kBadRecordNumber;
    failures += FailureNumberOf([&] { WriteId3Tag(shortFile, "t", "", "", "", "", ""); }) ==
                kBadRecordNumber;
  }
  EXPECT_EQ(failures, 3000);
  EXPECT_EQ(openDescriptors(), before);
}

TEST(Cp1252, AllBytesRoundTripExactly) {
  std::string all;
  for (int b = 0; b < 256; ++b) all += static_cast<char>(b);
  EXPECT_EQ(Utf8ToCp1252(Cp1252ToUtf8(all)), all);
}

// data/text.txt.
TEST(TagText, GoldenCases) {
  RunCases(
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
}  // namespace qc::test
