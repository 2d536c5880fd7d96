// quillcast-tag, run as a separate program on files like other taggers write them.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

extern char** environ;

namespace {

namespace fs = std::filesystem;

// The tool is built beside the tests: <build>/src/catalogue next to <build>/tests/catalogue.
std::string ToolPath() {
  if (const char* env = std::getenv("QC_TAGTOOL")) return env;
  return (fs::read_symlink("/proc/self/exe").parent_path() / "../../src/catalogue/quillcast-tag")
      .lexically_normal()
      .string();
}

std::string Bytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream s;
  s << in.rdbuf();
  return s.str();
}

struct Result {
  int status = -1;
  std::string out, err;
};

// A tag block as other taggers write it, field by field with their own padding.
std::string Block(const std::string& title, const std::string& artist, const std::string& album,
                  const std::string& year, const std::string& comment, unsigned char genre,
                  char pad = ' ') {
  auto fit = [pad](std::string s, std::size_t n) {
    s.resize(n, pad);
    return s;
  };
  return "TAG" + fit(title, 30) + fit(artist, 30) + fit(album, 30) + fit(year, 4) +
         fit(comment, 30) + std::string(1, static_cast<char>(genre));
}

class TagTool : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(fs::exists(ToolPath())) << ToolPath();
    dir_ = fs::temp_directory_path() /
           ("qc_tagtool_" + std::to_string(::getpid()) + "_" +
            ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::create_directories(dir_);
  }
  void TearDown() override {
    std::error_code ec;
    for (auto& e : fs::recursive_directory_iterator(dir_, ec)) {
      fs::permissions(e.path(), fs::perms::owner_all, fs::perm_options::add, ec);
    }
    fs::remove_all(dir_, ec);
  }

  std::string Make(const std::string& name, const std::string& bytes) {
    const std::string path = (dir_ / name).string();
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
  }

  Result Run(const std::vector<std::string>& args, const std::string& input = "") {
    const std::string out = (dir_ / "stdout.txt").string(), err = (dir_ / "stderr.txt").string();
    const std::string in = (dir_ / "stdin.txt").string();
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
    r.out = Bytes(out);
    r.err = Bytes(err);
    return r;
  }

  fs::path dir_;
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

TEST_F(TagTool, ShowReadsFilesOfOtherTaggersAsTheProgramDoes) {
  const std::string audio(1000, '\xFF');
  const std::string nulPadded =
      Make("nul.mp3", audio + Block("Four", "Band", "", "2001", "", 255, '\0'));
  // ID3v1.1: a NUL and the track number in the comment's last two bytes.
  const std::string v11 = Make(
      "v11.mp3", audio + Block("T", "A", "B", "1999", std::string(28, 'c') + '\0' + '\x05', 17));
  const std::string cp =
      Make("cp.mp3", audio + Block("Caf\xE9 \x93q\x94", "a\"b\\c\td\n", "\x81\x9D", "99", "", 147));
  const std::string none = Make("none.mp3", audio + "tag" + std::string(125, ' '));

  Result r = Run({"show", nulPadded, v11, cp, none});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.err, "");
  EXPECT_EQ(
      r.out,
      Json(nulPadded, true, "Four" + Nuls(26), "Band" + Nuls(26), Nuls(30), "2001", Nuls(30), "") +
          Json(v11, true, "T", "A", "B", "1999", std::string(28, 'c') + "\\u0000\\u0005", "Rock") +
          Json(cp, true, "Caf\xC3\xA9 \xE2\x80\x9Cq\xE2\x80\x9D", "a\\\"b\\\\c\\u0009d\\u000a",
               "\\u0081\\u009d", "99", "", "Synth Pop") +
          Json(none, false, "", "", "", "", "", ""));
}

TEST_F(TagTool, ShowTagAndDotTestsFollowTheCodec) {
  // A 128-byte file is all block; a path whose only dot is in a folder name counts.
  const std::string exact = Make("exact.mp3", Block("X", "", "", "", "", 0));
  const std::string dotted =
      Make("some.folder/noext", std::string(200, 'a') + Block("Y", "", "", "", "", 1));
  Result r = Run({"show", exact, dotted});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.out, Json(exact, true, "X", "", "", "", "", "Blues") +
                       Json(dotted, true, "Y", "", "", "", "", "Classic Rock"));
  if (dir_.string().find('.') == std::string::npos) {
    // No dot anywhere: has_tag is false, the fields are read all the same.
    const std::string plain =
        Make("plain/noext", std::string(200, 'a') + Block("Z", "", "", "", "", 2));
    r = Run({"show", plain});
    EXPECT_EQ(r.out, Json(plain, false, "Z", "", "", "", "", "Country"));
  }
}

TEST_F(TagTool, ShowReportsBadFilesAndGoesOnWithTheOthers) {
  const std::string good = Make("good.mp3", std::string(300, 'a') + Block("G", "", "", "", "", 0));
  const std::string shortFile = Make("short.mp3", Block("S", "", "", "", "", 0).substr(0, 127));
  const std::string missing = (dir_ / "missing.mp3").string();
  Result r = Run({"show", missing, good, shortFile, dir_.string()});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.out, Json(good, true, "G", "", "", "", "", "Blues"));
  EXPECT_EQ(r.err, "quillcast-tag: " + missing + ": no such file\n" + "quillcast-tag: " +
                       shortFile + ": shorter than 128 bytes (127), no room for a tag\n" +
                       "quillcast-tag: " + dir_.string() + ": no such file\n");
  EXPECT_FALSE(fs::exists(missing));
}

TEST_F(TagTool, ShowTakesPathsFromListsAndFolders) {
  const std::string a = Make("music/a.mp3", std::string(200, 'a') + Block("A", "", "", "", "", 0));
  const std::string b = Make("music/sub/b.MP3", std::string(200, 'b') + Block("B", "", "", "", "", 0));
  const std::string c = Make("music/c.mp3", std::string(200, 'c') + Block("C", "", "", "", "", 0));
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
  const std::string music = (dir_ / "music").string();
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
  r = Run({"show", "--files-from", (dir_ / "nolist").string()});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, "quillcast-tag: " + (dir_ / "nolist").string() + ": list cannot be read\n");
  r = Run({"show", "--files-from"});
  EXPECT_EQ(r.err, "quillcast-tag: option '--files-from' needs a value\ntry 'quillcast-tag --help'\n");
}

TEST_F(TagTool, WriteKeepsFieldsNotGivenAndWritesTheExactBlock) {
  const std::string audio(500, 'a');
  const std::string path =
      Make("song.mp3", audio + Block("Old Title", "Old Artist", "Old Album", "1998", "old", 8));
  Result r = Run({"write", path, "--title", "Caf\xC3\xA9 \xE2\x82\xAC \xE4\xB8\xAD", "--genre=rock",
                  "--year", "20011"});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.out, "");
  const std::string bytes = Bytes(path);
  ASSERT_EQ(bytes.size(), 628u);
  EXPECT_EQ(bytes.substr(0, 500), audio);
  // "Rock" is found first inside "Classic Rock"; a character outside Windows-1252 becomes "?".
  EXPECT_EQ(bytes.substr(500),
            Block("Caf\xE9 \x80 ?", "Old Artist", "Old Album", "2001", "old", 1));
  r = Run({"show", path});
  EXPECT_EQ(r.out, Json(path, true, "Caf\xC3\xA9 \xE2\x82\xAC ?", "Old Artist", "Old Album", "2001",
                        "old", "Classic Rock"));
}

TEST_F(TagTool, WriteOnUntaggedAndReadOnlyFilesOverwritesTheLastBlock) {
  const std::string audio(1000, 'x');
  const std::string path = Make("plain.mp3", audio);
  fs::permissions(path, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  Result r = Run({"write", path, "--artist", "Someone"});
  EXPECT_EQ(r.status, 0) << r.err;
  const std::string bytes = Bytes(path);
  ASSERT_EQ(bytes.size(), 1000u);  // never appends
  EXPECT_EQ(bytes.substr(0, 872), audio.substr(0, 872));
  // Nothing was read from the untagged file: the other fields are blank, the genre Blues.
  EXPECT_EQ(bytes.substr(872), Block("", "Someone", "", "", "", 0));
  EXPECT_NE(fs::status(path).permissions() & fs::perms::owner_write, fs::perms::none);
}

TEST_F(TagTool, BadInputLeavesTheFileUntouched) {
  const std::string tagged = Block("Keep", "", "", "", "", 3);
  const std::string path = Make("keep.mp3", std::string(200, 'k') + tagged);
  const std::string shortFile = Make("short.mp3", std::string(127, 's'));
  fs::permissions(shortFile, fs::perms::owner_read);
  const std::string missing = (dir_ / "missing.mp3").string();
  struct Case {
    std::vector<std::string> args;
    std::string err;
  };
  const std::string tryHelp = "try 'quillcast-tag --help'\n";
  const Case cases[] = {
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
  EXPECT_EQ(Bytes(path), std::string(200, 'k') + tagged);
  EXPECT_EQ(Bytes(shortFile), std::string(127, 's'));
  // The failed write did not clear the read-only mark either.
  EXPECT_EQ(fs::status(shortFile).permissions() & fs::perms::owner_write, fs::perms::none);
  EXPECT_FALSE(fs::exists(missing));
}

TEST_F(TagTool, GenresListsTheTableInOrder) {
  Result r = Run({"genres"});
  EXPECT_EQ(r.status, 0);
  std::istringstream lines(r.out);
  std::vector<std::string> all;
  for (std::string line; std::getline(lines, line);) all.push_back(line);
  ASSERT_EQ(all.size(), 148u);
  EXPECT_EQ(all[0], "0\tBlues");
  EXPECT_EQ(all[17], "17\tRock");
  EXPECT_EQ(all[117], "117\tpower Ballad");
  EXPECT_EQ(all[147], "147\tSynth Pop");
  EXPECT_EQ(r.out.back(), '\n');
}

TEST_F(TagTool, HelpOnEveryCommand) {
  for (const std::vector<std::string>& args : {std::vector<std::string>{"--help"},
                                               {"show", "--help"},
                                               {"write", "--help"},
                                               {"write", "x.mp3", "--title", "t", "--help"},
                                               {"genres", "--help"}}) {
    Result r = Run(args);
    EXPECT_EQ(r.status, 0) << args[0];
    EXPECT_EQ(r.out.rfind("usage: quillcast-tag " + (args[0] == "--help" ? "show" : args[0]), 0),
              0u)
        << r.out;
    EXPECT_EQ(r.err, "");
  }
  Result bare = Run({});
  EXPECT_EQ(bare.status, 1);
  EXPECT_EQ(bare.out, "");
  EXPECT_EQ(bare.err.rfind("usage: quillcast-tag", 0), 0u);
}

}  // namespace
