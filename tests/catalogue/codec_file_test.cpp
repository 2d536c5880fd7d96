#include <dirent.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QTemporaryDir>
#include <filesystem>
#include <fstream>

#include "base/failure.h"
#include "base/cp1252.h"
#include "catalogue/codec/id3v1.h"

namespace qc {
namespace {

namespace fs = std::filesystem;

std::string Block(const std::string& title, const std::string& artist = "",
                  const std::string& album = "", const std::string& year = "",
                  const std::string& comment = "", unsigned char genre = 0, char pad = ' ') {
  auto field = [pad](std::string s, std::size_t w) {
    s.resize(w, pad);
    return s;
  };
  return "TAG" + field(title, 30) + field(artist, 30) + field(album, 30) + field(year, 4) +
         field(comment, 30) + std::string(1, static_cast<char>(genre));
}

int FailureNumberOf(const std::function<void()>& f) {
  try {
    f();
  } catch (const RuntimeFailure& e) {
    return e.number();
  }
  return 0;
}

int OpenDescriptors() {
  int n = 0;
  for ([[maybe_unused]] auto& e : fs::directory_iterator("/proc/self/fd")) ++n;
  return n;
}

class Codec : public ::testing::Test {
 protected:
  std::string Make(const std::string& name, const std::string& bytes) {
    std::string path = dir_.path().toStdString() + "/" + name;
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
  }
  static std::string Bytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
  }
  QTemporaryDir dir_;
};

TEST_F(Codec, RenderedBlockBytesAreExact) {
  TagBlock b = RenderTagBlock("Title", "Artist", "Album", "1999", "Comment", "Synth Pop");
  std::string bytes(b.begin(), b.end());
  EXPECT_EQ(bytes, Block("Title", "Artist", "Album", "1999", "Comment", 147));
  // Cut at the right, year cut at 4, text in Windows-1252, never NUL-padded.
  b = RenderTagBlock(std::string(35, 'x'), "ómbrevalè", "", "19999", "·•", "");
  bytes.assign(b.begin(), b.end());
  EXPECT_EQ(bytes, Block(std::string(30, 'x'), "\xF3mbreval\xE8", "", "1999", "\xB7\x95", 0));
  EXPECT_EQ(bytes.substr(0, 127).find('\0'), std::string::npos);
}

TEST_F(Codec, ParsedFieldsLoseTrailingBlanksOnlyAndKeepNuls) {
  auto parse = [](const std::string& s) {
    TagBlock b{};
    std::copy(s.begin(), s.end(), b.begin());
    return ParseTagBlock(b);
  };
  Id3Tag t = parse(Block("Song", "  Lead", "Al", "99", "c", 17));
  EXPECT_EQ(t, (Id3Tag{"Song", "  Lead", "Al", "99", "c", "Rock"}));
  t = parse(Block("Song", "", "", "", "", 255, '\0'));
  EXPECT_EQ(t.title, "Song" + std::string(26, '\0'));
  EXPECT_EQ(t.genre, "");
  // A track number in the comment's last two bytes is comment text.
  std::string v11 = Block("t", "", "", "", "", 12);
  v11[97 + 28] = '\0';
  v11[97 + 29] = '\x05';
  t = parse(v11);
  EXPECT_EQ(t.comment, std::string(28, ' ') + std::string("\0\x05", 2));
  EXPECT_EQ(t.genre, "Other");
  EXPECT_EQ(parse(Block(std::string(30, 'T'))).title, std::string(30, 'T'));
  EXPECT_TRUE(parse("tag" + Block("x").substr(3)).empty());
  EXPECT_TRUE(parse(std::string(128, '\0')).empty());
}

TEST_F(Codec, FindsTheBlockAtTheEndOfTheFile) {
  std::string exact = Make("exact128.mp3", Block("Only"));
  EXPECT_TRUE(HasId3Tag(exact));
  EXPECT_EQ(ReadId3Tag(exact).title, "Only");
  std::string audio = Make("tagged.mp3", std::string(1000, '\xFF') + Block("Song", "Band"));
  EXPECT_TRUE(HasId3Tag(audio));
  EXPECT_EQ(ReadId3Tag(audio), (Id3Tag{"Song", "Band", "", "", "", "Blues"}));
  std::string untagged = Make("untagged.mp3", std::string(1000, '\xFF'));
  EXPECT_FALSE(HasId3Tag(untagged));
  EXPECT_TRUE(ReadId3Tag(untagged).empty());
  std::string lower = Make("lowercase-magic.mp3", "tag" + Block("x").substr(3));
  EXPECT_FALSE(HasId3Tag(lower));
}

TEST_F(Codec, MissingFilesAreQuietlyEmpty) {
  std::string missing = dir_.path().toStdString() + "/missing.mp3";
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
    EXPECT_EQ(Bytes(path), bytes) << "untouched";
  }
  try {
    ReadTagBlock(Make("short.mp3", "x"));
  } catch (const RuntimeFailure& f) {
    EXPECT_EQ(f.text(), "Bad record number");
  }
}

TEST_F(Codec, TheDotTestLooksAtTheWholePath) {
  std::string inDottedFolder = Make("music.d/noext", std::string(10, 'a') + Block("Dot"));
  std::string inPlainFolder = Make("music/noext", std::string(10, 'a') + Block("Dot"));
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
  std::string after = Bytes(path);
  ASSERT_EQ(after.size(), audio.size());
  EXPECT_EQ(after.substr(0, 5000 - 128), audio.substr(0, 5000 - 128));
  EXPECT_EQ(after.substr(5000 - 128), Block("New", "Artist", "Album", "2001", "Comment", 53));
  {
    Id3Tag t = ReadId3Tag(path);
    EXPECT_EQ(t.genre, "Pop-Folk");
  }
  // A tagged file gets its tag replaced; blanks at the end of a field are lost.
  WriteId3Tag(path, "Trailing  ", "", "", "", "", "Rock");
  EXPECT_EQ(Bytes(path).size(), 5000u);
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
    std::string bytes = Bytes(path);
    EXPECT_EQ(bytes.substr(300 - 125, raw.size()), raw);
    EXPECT_EQ(ReadId3Tag(path).title, title);
  }
}

TEST_F(Codec, WriteClearsReadOnlyForGood) {
  std::string path = Make("readonly.mp3", std::string(200, 'a') + Block("Old"));
  fs::permissions(path, fs::perms::owner_read | fs::perms::group_read);
  WriteId3Tag(path, "New", "", "", "", "", "");
  EXPECT_NE(fs::status(path).permissions() & fs::perms::owner_write, fs::perms::none);
  EXPECT_EQ(ReadId3Tag(path).title, "New");
}

TEST_F(Codec, NoDescriptorLeftOpenAfterManyCalls) {
  std::string tagged = Make("tagged.mp3", std::string(500, 'a') + Block("T"));
  std::string shortFile = Make("short.mp3", "abc");
  int before = OpenDescriptors();
  for (int i = 0; i < 25000; ++i) {
    HasId3Tag(tagged);
    ReadId3Tag(tagged);
    WriteId3Tag(tagged, "T", "", "", "", "", "Rock");
    try {
      ReadId3Tag(shortFile);
    } catch (const RuntimeFailure&) {
    }
  }
  EXPECT_EQ(OpenDescriptors(), before);
}

}  // namespace
}  // namespace qc
