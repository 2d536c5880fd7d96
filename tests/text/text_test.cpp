#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

#include "base/failure.h"
#include "base/pump.h"
#include "support/cases.h"
#include "support/files.h"
#include "text/address_entry.h"
#include "text/template_keys.h"
#include "text/text.h"
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

// A list holding "old", as the mail-list window's entry sees it.
class Entries : public EntryList {
 public:
  long long Count() const override { return static_cast<long long>(items.size()); }
  std::string Item(long long i) const override { return items.at(static_cast<std::size_t>(i)); }
  void Add(const std::string& item) override { items.push_back(item); }
  void MakeCurrent(long long index) override { current = std::to_string(index); }
  std::vector<std::string> items{"old"};
  std::string current = "-";
};

// data/routines.txt; ReplaceAll's result is also what the caller's text holds.
TEST(TextRoutines, GoldenCases) {
  using test::Args;
  auto ll = [](const std::string& number) { return std::stoll(number); };
  test::RunCases(
      QC_TEST_DATA_DIR "/routines.txt",
      {{"LowerCase", [](const Args& a) { return LowerCase(a[0]); }},
       {"InStr", [](const Args& a) { return std::to_string(InStr(std::stoul(a[0]), a[1], a[2])); }},
       {"Left", [&](const Args& a) { return Left(a[0], ll(a[1])); }},
       {"Right", [&](const Args& a) { return Right(a[0], ll(a[1])); }},
       {"Mid", [&](const Args& a) { return a.size() == 2 ? Mid(a[0], ll(a[1])) : Mid(a[0], ll(a[1]), ll(a[2])); }},
       {"ReplaceAll",
        [](const Args& a) {
          std::string text = a[0];
          const std::string result = ReplaceAll(text, a[1], a[2]);
          return text == result ? result : "the caller's text differs";
        }},
       {"TextBefore", [](const Args& a) { return TextBefore(a[0], a[1]); }},
       {"TextAfter", [](const Args& a) { return TextAfter(a[0], a[1]); }},
       {"TrimTrailing", [](const Args& a) { return TrimTrailing(a[0], a[1]); }},
       {"StripBlanks", [](const Args& a) { return StripBlanks(a[0]); }},
       {"Enter", [](const Args& a) {
          Entries list;
          EnterAddresses(a[1], a[0] == "member", list);
          std::string out;
          for (const std::string& item : list.items) out += item + " ";
          return out + "| " + list.current;
        }}});
}

TEST(ReplaceAll, PumpsOncePerSearchAndHandlersSeeTheTextSoFar) {
  std::string text = "k-k-k";
  std::vector<std::string> seen;
  PumpHookId id = AddPumpHook([&] { seen.push_back(text); });
  ReplaceAll(text, "K", "value");
  // Three finds and the failing search.
  EXPECT_EQ(seen, (std::vector<std::string>{"k-k-k", "value-k-k", "value-value-k",
                                            "value-value-value"}));
  std::string none = "abc";
  ReplaceAll(none, "zz", "y");
  EXPECT_EQ(seen.size(), 5u);
  RemovePumpHook(id);
}

// Each template asks for its keys' values in its own order, and replaces each key in turn: a
// value that holds a key still to come is expanded, one that holds a key already done stays.
TEST(TemplateKeys, EachTemplateExpandsItsKeysInItsOrder) {
  auto asked = [](std::span<const TemplateKey> order) {
    std::string text = "x", names;
    ExpandKeys(text, order, [&](TemplateKey k) {
      names += KeyText(k) + " ";
      return std::string();
    });
    return names;
  };
  EXPECT_EQ(asked(kBodyKeyOrder), "idTitle$ idArtist$ idAlbum$ idYear$ idGenre$ sysDate$ "
                                  "myHandle$ fileSize$ fileName$ idComment$ ");
  EXPECT_EQ(asked(kSubjectKeyOrder), "fileName$ fileSize$ idTitle$ idArtist$ idAlbum$ idGenre$ ");
  auto values = [](TemplateKey k) -> std::string {
    switch (k) {
      case TemplateKey::kIdTitle: return "t-FILENAME$";  // fileName$ comes later in the body
      case TemplateKey::kFileName: return "song.mp3";
      case TemplateKey::kIdComment: return "by idTitle$";  // idTitle$ came earlier: stays
      case TemplateKey::kFileSize: return "3.25mb";
      default: return "v";
    }
  };
  std::string body = "idTitle$|fileSize$|idComment$|IDYEAR$";
  EXPECT_EQ(ExpandKeys(body, kBodyKeyOrder, values), "t-song.mp3|3.25mb|by idTitle$|v");
  EXPECT_EQ(body, "t-song.mp3|3.25mb|by idTitle$|v");
  std::string subject = "idTitle$ idYear$ sysDate$ myHandle$ idComment$";
  EXPECT_EQ(ExpandKeys(subject, kSubjectKeyOrder, values),
            "t-FILENAME$ idYear$ sysDate$ myHandle$ idComment$");
}

}  // namespace
}  // namespace qc
