#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

#include "base/failure.h"
#include "base/pump.h"
#include "support/files.h"
#include "support/kill_points.h"
#include "text/text_files.h"

namespace qc {
namespace {

class TextFiles : public ::testing::Test {
 protected:
  std::string Path(const std::string& name) { return dir_ / name; }
  void Write(const std::string& name, const std::string& bytes) { test::WriteBytes(Path(name), bytes); }
  std::string Bytes(const std::string& name) { return test::ReadBytes(Path(name)); }
  test::TempDir dir_;
};

TEST_F(TextFiles, FileExistsSeesNormalFilesOnly) {
  Write("song.mp3", "x");
  Write(".hidden", "x");
  std::filesystem::create_directory(Path("folder.d"));
  EXPECT_TRUE(FileExists(Path("song.mp3")));
  EXPECT_FALSE(FileExists(""));
  EXPECT_FALSE(FileExists(Path("missing.mp3")));
  EXPECT_FALSE(FileExists(Path(".hidden")));
  EXPECT_FALSE(FileExists(Path("folder.d")));
  EXPECT_FALSE(FileExists(Path("missing/song.mp3")));
  // Wildcards count when anything normal matches.
  EXPECT_TRUE(FileExists(Path("*.mp3")));
  EXPECT_TRUE(FileExists(Path("s?ng.*")));
  EXPECT_TRUE(FileExists(Path("*.*")));
  EXPECT_FALSE(FileExists(Path("*.wav")));
  EXPECT_FALSE(FileExists(Path("*.d")));      // only a directory matches
  EXPECT_FALSE(FileExists(Path("*hidden")));  // only a hidden file matches
  EXPECT_THROW(FileExists(std::string("a\0b", 3)), RuntimeFailure);
}

TEST_F(TextFiles, ReadTextTrimsCrsThenCrLfPairs) {
  struct Case {
    std::string bytes, text;
  } cases[] = {
      {"x\r\n", "x"},          {"x\r\r\n", "x\r"},        {"x\r\n\r\n\r\r", "x"},
      {"a\r\nb\r\n", "a\r\nb"}, {"a\n", "a\n"},           {"", ""},
      {std::string("a\0b\r\n", 5), std::string("a\0b", 3)}, {"\xC3\xB3mbre", "\xC3\xB3mbre"},
  };
  for (auto& c : cases) {
    Write("t.txt", c.bytes);
    EXPECT_EQ(ReadTextFile(Path("t.txt")), c.text);
    EXPECT_EQ(ReadTextForBox(Path("t.txt")), c.text);
  }
  EXPECT_EQ(ReadTextFile(Path("missing.txt")), "");
  EXPECT_EQ(ReadTextForBox(Path("missing.txt")), std::nullopt);
}

TEST_F(TextFiles, UnreadableFileGivesEmptyTextNotUnchanged) {
  if (::geteuid() == 0) GTEST_SKIP() << "root reads everything";
  Write("locked.txt", "secret");
  std::filesystem::permissions(Path("locked.txt"), std::filesystem::perms::none);
  EXPECT_EQ(ReadTextForBox(Path("locked.txt")), std::string());
}

TEST_F(TextFiles, SaveThenLoadGivesTheTextBack) {
  SaveTextFile(Path("x.txt"), "x");
  EXPECT_EQ(Bytes("x.txt"), "x\r\n");
  EXPECT_EQ(ReadTextFile(Path("x.txt")), "x");
  SaveTextFile(Path("x.txt"), "line1\r\nline2\r\n\r\n");  // truncates, own line ends go on load
  EXPECT_EQ(Bytes("x.txt"), "line1\r\nline2\r\n\r\n\r\n");
  EXPECT_EQ(ReadTextFile(Path("x.txt")), "line1\r\nline2");
  SaveTextFile(Path("no/such/folder.txt"), "x");  // ignored
  EXPECT_FALSE(FileExists(Path("no/such/folder.txt")));
}

TEST_F(TextFiles, ListFieldReader) {
  struct Case {
    std::string data;
    std::vector<std::string> fields;
  } cases[] = {
      {"a,b\r\n", {"a", "b"}},
      {"one\r\ntwo\r\n", {"one", "two"}},
      {"  \t lead\r\n", {"lead"}},
      {"trail   \r\n", {"trail"}},
      {"\"quoted, with comma\"\r\n", {"quoted, with comma"}},
      {"\"q\" junk,next\r\n", {"q", "next"}},
      {"\"open quote\r\nruns on", {"open quote\r\nruns on"}},
      {"a\r\n\r\nb", {"a", "", "b"}},
      {"a,\r\n", {"a", ""}},
      {"lf\nonly\n", {"lf", "only"}},
      {"", {}},
      {"in\"side\r\n", {"in\"side"}},
      {"   ", {""}},
  };
  for (auto& c : cases) {
    ListFieldReader r(c.data);
    std::vector<std::string> got;
    while (!r.AtEnd()) got.push_back(r.Next());
    EXPECT_EQ(got, c.fields) << c.data;
  }
}

TEST_F(TextFiles, LoadListFileAppendsAndPumpsPerField) {
  Write("l.sys", "a,b\r\nc@x.com\r\n");
  std::vector<std::string> items = {"kept"};
  auto before = PumpCount();
  LoadListFile(Path("l.sys"), [&](const std::string& s) { items.push_back(s); });
  EXPECT_EQ(PumpCount() - before, 3u);
  EXPECT_EQ(items, (std::vector<std::string>{"kept", "a", "b", "c@x.com"}));
  EXPECT_TRUE(LoadListFile(Path("missing.sys")).empty());
}

TEST_F(TextFiles, SaveListFileWritesCrLfLinesWithoutQuoting) {
  SaveListFile(Path("l.sys"), {"a", "b,c", "\"q\""});
  EXPECT_EQ(Bytes("l.sys"), "a\r\nb,c\r\n\"q\"\r\n");
  EXPECT_EQ(LoadListFile(Path("l.sys")), (std::vector<std::string>{"a", "b", "c", "q"}));
  SaveListFile(Path("l.sys"), {});
  EXPECT_EQ(std::filesystem::file_size(Path("l.sys")), 0u);
}

// A kill at any point of a save leaves the old list or the new one, never a short one.
TEST_F(TextFiles, AKilledListSaveLeavesTheOldOrTheNewFile) {
  std::vector<std::string> oldItems, newItems;
  for (int i = 0; i < 40000; ++i) {
    oldItems.push_back("old.member" + std::to_string(i) + "@aol.com");
    newItems.push_back("new.member" + std::to_string(i));
  }
  const std::string path = Path("lstMember.sys");
  SaveListFile(path, oldItems);
  const std::string oldBytes = Bytes("lstMember.sys");
  int olds = 0, news = 0;
  const test::KillCounts counts = test::KillAtRandomPoints(
      40, [&] { SaveListFile(path, newItems); },
      [&](bool) {
        const std::string bytes = Bytes("lstMember.sys");
        if (bytes == oldBytes) {
          ++olds;
          return;
        }
        ASSERT_EQ(LoadListFile(path), newItems) << bytes.size() << " bytes";
        ++news;
        SaveListFile(path, oldItems);
      });
  EXPECT_GE(counts.killed, 40);
  EXPECT_GE(olds, 20);  // most kills came in the midst of the work
  EXPECT_GE(news, 3);   // the runs that measured it, at least
  // What kills left behind is hidden from the program's own view of the folder.
  EXPECT_FALSE(FileExists(Path("*.tmp")));
}

TEST_F(TextFiles, TheSharedChannelRefusesAnOpenDuringAListLoad) {
  // A handler that runs in the pump of a list load and uses a whole-file routine finds the
  // channel taken: its open fails and is ignored.
  Write("list.sys", "a\r\nb\r\n");
  Write("body.txt", "body");
  std::vector<std::string> readInside;
  PumpHookId id = AddPumpHook([&] {
    readInside.push_back(ReadTextFile(Path("body.txt")));
    SaveTextFile(Path("inside.txt"), "x");
  });
  auto items = LoadListFile(Path("list.sys"));
  RemovePumpHook(id);
  EXPECT_EQ(items, (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(readInside, (std::vector<std::string>{"", ""}));
  EXPECT_FALSE(FileExists(Path("inside.txt")));
  // Afterwards the channel is free again.
  EXPECT_EQ(ReadTextFile(Path("body.txt")), "body");
}

}  // namespace
}  // namespace qc
