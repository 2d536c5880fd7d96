// The tag block at the end of a file: its bytes, where it is found, and the failures of files
// too short to hold one.
#include <gtest/gtest.h>

#include <fstream>

#include "base/failure.h"
#include "base/cp1252.h"
#include "codec/id3v1.h"
#include "support/files.h"
#include "support/kill_points.h"

namespace qc::test {
namespace {

namespace fs = std::filesystem;

class Codec : public ::testing::Test {
 protected:
  std::string Make(const std::string& name, const std::string& bytes) {
    WriteBytes(dir_ / name, bytes);
    return dir_ / name;
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

TEST_F(Codec, FindsTheBlockAtTheEndOfTheFile) {
  std::string exact = Make("exact128.mp3", TagBytes("Only"));
  EXPECT_TRUE(HasId3Tag(exact));
  EXPECT_EQ(ReadId3Tag(exact).title, "Only");
  std::string audio = Make("tagged.mp3", std::string(1000, '\xFF') + TagBytes("Song", "Band"));
  EXPECT_TRUE(HasId3Tag(audio));
  EXPECT_EQ(ReadId3Tag(audio), (Id3Tag{"Song", "Band", "", "", "", "Blues"}));
  std::string untagged = Make("untagged.mp3", std::string(1000, '\xFF'));
  EXPECT_FALSE(HasId3Tag(untagged));
  EXPECT_TRUE(ReadId3Tag(untagged).empty());
  std::string lower = Make("lowercase-magic.mp3", "tag" + TagBytes("x").substr(3));
  EXPECT_FALSE(HasId3Tag(lower));
}

TEST_F(Codec, MissingFilesAreQuietlyEmpty) {
  std::string missing = dir_ / "missing.mp3";
  EXPECT_FALSE(HasId3Tag(missing));
  EXPECT_TRUE(ReadId3Tag(missing).empty());
  WriteId3Tag(missing, "t", "a", "b", "y", "c", "Rock");
  EXPECT_FALSE(fs::exists(missing));
  EXPECT_FALSE(HasId3Tag(""));
  EXPECT_TRUE(ReadId3Tag("").empty());
  WriteId3Tag("", "t", "a", "b", "y", "c", "Rock");
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
  try {
    ReadTagBlock(Make("short.mp3", "x"));
  } catch (const RuntimeFailure& f) {
    EXPECT_EQ(f.text(), "Bad record number");
  }
}

TEST_F(Codec, TheDotTestLooksAtTheWholePath) {
  std::string inDottedFolder = Make("music.d/noext", std::string(10, 'a') + TagBytes("Dot"));
  std::string inPlainFolder = Make("music/noext", std::string(10, 'a') + TagBytes("Dot"));
  std::string plain = fs::path(inPlainFolder).string();
  if (plain.find('.') != std::string::npos) GTEST_SKIP() << "temporary folder has a dot";
  EXPECT_TRUE(HasId3Tag(inDottedFolder));
  EXPECT_FALSE(HasId3Tag(inPlainFolder));
  EXPECT_EQ(ReadId3Tag(inDottedFolder).title, "Dot");
  EXPECT_EQ(ReadId3Tag(inPlainFolder).title, "Dot");
}

TEST_F(Codec, WriteOverwritesTheLastBlockNeverAppends) {
  const std::string audio(5000, '\x55');
  std::string path = Make("untagged.mp3", audio);
  WriteId3Tag(path, "New", "Artist", "Album", "2001", "Comment", "Folk");
  std::string after = ReadBytes(path);
  ASSERT_EQ(after.size(), audio.size());
  EXPECT_EQ(after.substr(0, 5000 - 128), audio.substr(0, 5000 - 128));
  EXPECT_EQ(after.substr(5000 - 128), TagBytes("New", "Artist", "Album", "2001", "Comment", 53));
  {
    Id3Tag t = ReadId3Tag(path);
    EXPECT_EQ(t.genre, "Pop-Folk");
  }
  // A tagged file gets its tag replaced; blanks at the end of a field are lost.
  WriteId3Tag(path, "Trailing  ", "", "", "", "", "Rock");
  EXPECT_EQ(ReadBytes(path).size(), 5000u);
  Id3Tag t = ReadId3Tag(path);
  EXPECT_EQ(t, (Id3Tag{"Trailing", "", "", "", "", "Classic Rock"}));
}

TEST_F(Codec, WriteReadRoundTripOfEveryByteValue) {
  std::string path = Make("roundtrip.mp3", std::string(300, '\0'));
  for (int start = 0; start < 256; start += 30) {
    std::string raw;
    for (int b = start; b < start + 30 && b < 256; ++b) raw += static_cast<char>(b == 32 ? 33 : b);
    std::string title = Cp1252ToUtf8(raw);
    WriteId3Tag(path, title, "", "", "", "", "");
    std::string bytes = ReadBytes(path);
    EXPECT_EQ(bytes.substr(300 - 125, raw.size()), raw);
    EXPECT_EQ(ReadId3Tag(path).title, title);
  }
}

TEST_F(Codec, WriteClearsReadOnlyForGood) {
  std::string path = Make("readonly.mp3", std::string(200, 'a') + TagBytes("Old"));
  fs::permissions(path, fs::perms::owner_read | fs::perms::group_read);
  WriteId3Tag(path, "New", "", "", "", "", "");
  EXPECT_NE(fs::status(path).permissions() & fs::perms::owner_write, fs::perms::none);
  EXPECT_EQ(ReadId3Tag(path).title, "New");
}

// A kill at any point of a tag write leaves the old tag or the new one over the whole audio.
TEST_F(Codec, AKilledTagWriteLeavesTheOldOrTheNewFile) {
  std::string audio(1 << 20, '\0');
  for (std::size_t i = 0; i < audio.size(); ++i) audio[i] = static_cast<char>(i * 7 % 251);
  const std::string oldBytes = audio + TagBytes("Old Title", "Old Artist");
  const std::string newBytes = audio + TagBytes("New Title", "New Artist", "", "", "", 13);
  const std::string path = Make("song.mp3", oldBytes);
  int olds = 0, news = 0;
  const test::KillCounts counts = test::KillAtRandomPoints(
      40, [&] { WriteId3Tag(path, "New Title", "New Artist", "", "", "", "Pop"); },
      [&](bool) {
        const std::string bytes = ReadBytes(path);
        if (bytes == oldBytes) {
          ++olds;
          return;
        }
        ASSERT_EQ(bytes.size(), newBytes.size());
        ASSERT_TRUE(bytes == newBytes);
        ++news;
        std::ofstream(path, std::ios::binary | std::ios::trunc) << oldBytes;
      });
  EXPECT_GE(counts.killed, 40);
  EXPECT_GE(olds, 20);  // most kills came in the midst of the work
  EXPECT_GE(news, 3);   // the runs that measured it, at least
}

}  // namespace
}  // namespace qc::test
