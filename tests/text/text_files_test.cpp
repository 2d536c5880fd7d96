#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

#include "base/failure.h"
#include "base/pump.h"
#include "support/cases.h"
#include "support/files.h"
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

// data/files.txt: which files exist, the text of a file as ReadTextFile and a text box read it,
// and list fields.
TEST_F(TextFiles, GoldenCases) {
  using test::Args;
  Write("song.mp3", "x");
  Write(".hidden", "x");
  std::filesystem::create_directory(Path("folder.d"));
  EXPECT_FALSE(FileExists(""));
  test::RunCases(QC_TEST_DATA_DIR "/files.txt",
                 {{"FileExists", [&](const Args& a) { return FileExists(Path(a[0])) ? "true" : "false"; }},
                  {"ReadText",
                   [&](const Args& a) {
                     Write("t.txt", a[0]);
                     const std::string text = ReadTextFile(Path("t.txt"));
                     return ReadTextForBox(Path("t.txt")) == text ? text : "box differs";
                   }},
                  {"ListFields", [](const Args& a) {
                     std::string shown = "|";
                     for (ListFieldReader r(a[0]); !r.AtEnd();) shown += r.Next() + "|";
                     return shown;
                   }}});
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

TEST_F(TextFiles, ListFilesAreCrLfLinesReadBackFieldByFieldWithAPumpEach) {
  SaveListFile(Path("l.sys"), {"a", "b,c", "\"q\""});
  EXPECT_EQ(Bytes("l.sys"), "a\r\nb,c\r\n\"q\"\r\n");
  std::vector<std::string> items = {"kept"};
  const auto before = PumpCount();
  LoadListFile(Path("l.sys"), [&](const std::string& s) { items.push_back(s); });
  EXPECT_EQ(PumpCount() - before, 4u);
  EXPECT_EQ(items, (std::vector<std::string>{"kept", "a", "b", "c", "q"}));
  EXPECT_TRUE(LoadListFile(Path("missing.sys")).empty());
  // The file is replaced whole, never written over: a reader of the old one keeps it.
  std::ifstream old(Path("l.sys"), std::ios::binary);
  SaveListFile(Path("l.sys"), {});
  EXPECT_EQ(Bytes("l.sys"), "");
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(old), {}), "a\r\nb,c\r\n\"q\"\r\n");
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
