// quillcast-tag, run as a separate program: its commands, JSON output, messages and exit codes.
// The tag rules themselves belong to the codec's tests.
#include <fcntl.h>
#include <gtest/gtest.h>

#include <fstream>
#include <spawn.h>
#include <sys/wait.h>

#include <sstream>

#include "support/files.h"

extern char** environ;

namespace qc::test {
namespace {

namespace fs = std::filesystem;

// The tool is built beside the tests: <build>/src/catalogue next to <build>/tests/catalogue.
std::string ToolPath() {
  if (const char* env = std::getenv("QC_TAGTOOL")) return env;
  return (fs::read_symlink("/proc/self/exe").parent_path() / "../../src/catalogue/quillcast-tag")
      .lexically_normal()
      .string();
}

struct Result {
  int status = -1;
  std::string out, err;
};

class TagTool : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(fs::exists(ToolPath())) << ToolPath(); }
  std::string Make(const std::string& name, const std::string& bytes) {
    WriteBytes(dir / name, bytes);
    return dir / name;
  }
  Result Run(const std::vector<std::string>& args, const std::string& input = "") {
    const std::string out = dir / "stdout.txt", err = dir / "stderr.txt";
    const std::string in = dir / "stdin.txt";
    std::ofstream(in, std::ios::binary) << input;
    const std::string tool = ToolPath();
    std::vector<char*> argv{const_cast<char*>(tool.c_str())};
    for (const auto& a : args) argv.push_back(const_cast<char*>(a.c_str()));
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, in.c_str(), O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 1, out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    posix_spawn_file_actions_addopen(&actions, 2, err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    pid_t pid = 0;
    Result r;
    if (posix_spawn(&pid, tool.c_str(), &actions, nullptr, argv.data(), environ) == 0) {
      int status = 0;
      ::waitpid(pid, &status, 0);
      r.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    posix_spawn_file_actions_destroy(&actions);
    r.out = ReadBytes(out);
    r.err = ReadBytes(err);
    return r;
  }
  TempDir dir;
};

std::string Json(const std::string& path, bool hasTag, const std::string& title,
                 const std::string& artist, const std::string& album, const std::string& year,
                 const std::string& comment, const std::string& genre) {
  return "{\"path\":\"" + path + "\",\"has_tag\":" + (hasTag ? "true" : "false") + ",\"title\":\"" +
         title + "\",\"artist\":\"" + artist + "\",\"album\":\"" + album + "\",\"year\":\"" + year +
         "\",\"comment\":\"" + comment + "\",\"genre\":\"" + genre + "\"}\n";
}

std::string Nuls(int n) {
  std::string s;
  for (int i = 0; i < n; ++i) s += "\\u0000";
  return s;
}

TEST_F(TagTool, ShowPrintsOneJsonLinePerFileWithEscapesAndGoesOnPastBadFiles) {
  const std::string audio(1000, '\xFF');
  const std::string nulPadded =
      Make("nul.mp3", audio + TagBytes("Four", "Band", "", "2001", "", 255, '\0'));
  const std::string cp =
      Make("cp.mp3", audio + TagBytes("Caf\xE9 \x93q\x94", "a\"b\\c\td\n", "\x81\x9D", "99", "", 147));
  const std::string none = Make("none.mp3", audio + "tag" + std::string(125, ' '));
  const std::string shortFile = Make("short.mp3", std::string(127, 's'));
  const std::string missing = dir / "missing.mp3";
  Result r = Run({"show", nulPadded, missing, cp, shortFile, none, dir.path()});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(
      r.out,
      Json(nulPadded, true, "Four" + Nuls(26), "Band" + Nuls(26), Nuls(30), "2001", Nuls(30), "") +
          Json(cp, true, "Caf\xC3\xA9 \xE2\x80\x9Cq\xE2\x80\x9D", "a\\\"b\\\\c\\u0009d\\u000a",
               "\\u0081\\u009d", "99", "", "Synth Pop") +
          Json(none, false, "", "", "", "", "", ""));
  EXPECT_EQ(r.err, "quillcast-tag: " + missing + ": no such file\nquillcast-tag: " + shortFile +
                       ": shorter than 128 bytes (127), no room for a tag\nquillcast-tag: " +
                       dir.path() + ": no such file\n");
  EXPECT_FALSE(fs::exists(missing));
}

TEST_F(TagTool, ShowTakesPathsFromListsAndFolders) {
  const std::string a = Make("music/a.mp3", std::string(200, 'a') + TagBytes("A", "", "", "", "", 0));
  const std::string b = Make("music/sub/b.MP3", std::string(200, 'b') + TagBytes("B", "", "", "", "", 0));
  const std::string c = Make("music/c.mp3", std::string(200, 'c') + TagBytes("C", "", "", "", "", 0));
  Make("music/cover.jpg", std::string(300, 'j'));
  Make("music/.hidden.mp3", std::string(300, 'h'));
  Make("music/.trash/d.mp3", std::string(300, 'd'));
  const std::string list = Make("list.txt", c + "\r\n\n" + a + "\n");
  auto json = [](const std::string& path, const std::string& title) {
    return Json(path, true, title, "", "", "", "", "Blues");
  };
  struct Case {
    std::vector<std::string> args;
    std::string input, out;
  };
  const std::string music = std::string(dir / "music");
  const Case cases[] = {
      // Standard input in the place of "-", between the paths of the command line.
      {{"show", b, "-", b}, a + "\n" + c + "\n", json(b, "B") + json(a, "A") + json(c, "C") + json(b, "B")},
      // Lists come first, one a line; Windows line ends and empty lines are no paths.
      {{"show", b, "--files-from", list}, "", json(c, "C") + json(a, "A") + json(b, "B")},
      {{"show", "--files-from=-"}, a + "\n", json(a, "A")},
      // Files of a folder in name order, then its folders; .mp3 in any case, nothing hidden.
      {{"show", "-r", music}, "", json(a, "A") + json(c, "C") + json(b, "B")},
      {{"show", "--recursive", music + "/", a}, "",
       json(music + "/a.mp3", "A") + json(music + "/c.mp3", "C") + json(music + "/sub/b.MP3", "B") +
           json(a, "A")},
      // After "--" a "-" is a file name like any other.
      {{"show", "--", "-"}, a, ""},
  };
  for (const Case& t : cases) {
    SCOPED_TRACE(t.args[1]);
    Result r = Run(t.args, t.input);
    EXPECT_EQ(r.out, t.out);
  }
  Result r = Run({"show", "--", "-"}, a);
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, "quillcast-tag: -: no such file\n");
  r = Run({"show", "--files-from", std::string(dir / "nolist")});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, "quillcast-tag: " + std::string(dir / "nolist") + ": list cannot be read\n");
  r = Run({"show", "--files-from"});
  EXPECT_EQ(r.err, "quillcast-tag: option '--files-from' needs a value\ntry 'quillcast-tag --help'\n");
}

TEST_F(TagTool, WriteKeepsFieldsNotGivenAndTakesBothOptionForms) {
  const std::string audio(500, 'a');
  const std::string path =
      Make("song.mp3", audio + TagBytes("Old Title", "Old Artist", "Old Album", "1998", "old", 8));
  Result r = Run({"write", path, "--title", "Caf\xC3\xA9 \xE2\x82\xAC", "--genre=rock", "--year",
                  "20011"});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.out, "");
  EXPECT_EQ(ReadBytes(path),
            audio + TagBytes("Caf\xE9 \x80", "Old Artist", "Old Album", "2001", "old", 1));
}

TEST_F(TagTool, BadInputLeavesTheFileUntouched) {
  const std::string tagged = TagBytes("Keep", "", "", "", "", 3);
  const std::string path = Make("keep.mp3", std::string(200, 'k') + tagged);
  const std::string shortFile = Make("short.mp3", std::string(127, 's'));
  const std::string missing = dir / "missing.mp3";
  const std::string tryHelp = "try 'quillcast-tag --help'\n";
  struct Case {
    std::vector<std::string> args;
    std::string err;
  } cases[] = {
      {{"write", path, "--titel", "x"}, "quillcast-tag: unknown option '--titel'\n" + tryHelp},
      {{"write", path, "--title"}, "quillcast-tag: option '--title' needs a value\n" + tryHelp},
      {{"write", path, path, "--title", "x"},
       "quillcast-tag: write takes exactly one FILE\n" + tryHelp},
      {{"write", "--title", "x"}, "quillcast-tag: write takes exactly one FILE\n" + tryHelp},
      {{"write", missing, "--title", "x"}, "quillcast-tag: " + missing + ": no such file\n"},
      {{"write", shortFile, "--title", "x"},
       "quillcast-tag: " + shortFile + ": shorter than 128 bytes (127), no room for a tag\n"},
      {{"show", "-x", path}, "quillcast-tag: unknown option '-x'\n" + tryHelp},
      {{"show"}, "quillcast-tag: show needs at least one FILE\n" + tryHelp},
      {{"genres", "extra"}, "quillcast-tag: genres takes no arguments\n" + tryHelp},
      {{"tag", path}, "quillcast-tag: unknown command 'tag'\n" + tryHelp},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.args[0] + " " + (c.args.size() > 1 ? c.args[1] : ""));
    Result r = Run(c.args);
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err, c.err);
  }
  EXPECT_EQ(ReadBytes(path), std::string(200, 'k') + tagged);
  EXPECT_EQ(ReadBytes(shortFile), std::string(127, 's'));
  EXPECT_FALSE(fs::exists(missing));
}

TEST_F(TagTool, GenresListTheTableAndHelpAnswersEveryCommand) {
  Result r = Run({"genres"});
  EXPECT_EQ(r.status, 0);
  std::istringstream lines(r.out);
  std::vector<std::string> all;
  for (std::string line; std::getline(lines, line);) all.push_back(line);
  ASSERT_EQ(all.size(), 148u);
  EXPECT_EQ(all[0], "0\tBlues");
  EXPECT_EQ(all[117], "117\tpower Ballad");
  EXPECT_EQ(all[147], "147\tSynth Pop");
  for (const std::vector<std::string>& args : {std::vector<std::string>{"--help"},
                                               {"show", "--help"},
                                               {"write", "x.mp3", "--title", "t", "--help"},
                                               {"genres", "--help"}}) {
    r = Run(args);
    EXPECT_EQ(r.status, 0) << args[0];
    EXPECT_EQ(r.out.rfind("usage: quillcast-tag " + (args[0] == "--help" ? "show" : args[0]), 0),
              0u)
        << r.out;
    EXPECT_EQ(r.err, "");
  }
  r = Run({});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.out, "");
  EXPECT_EQ(r.err.rfind("usage: quillcast-tag", 0), 0u);
}

}  // namespace
}  // namespace qc::test
