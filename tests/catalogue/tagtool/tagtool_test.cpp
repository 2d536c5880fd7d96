// quillcast-tag's command line: its commands, JSON lines, messages, exit statuses and what it does
// to files. The tag rules themselves belong to the codec's tests.
#include "catalogue/tagtool/tagtool.h"

#include <gtest/gtest.h>

#include <fstream>
#include <optional>
#include <sstream>

#include "support/files.h"

namespace qc::test {
namespace {

namespace fs = std::filesystem;

class TagTool : public ::testing::Test {
 protected:
  std::string Make(const std::string& name, const std::string& bytes) {
    return dir.Make(name, bytes);
  }
  TempDir dir;
};

// data/transcripts.txt: "$ ARGS" runs the tool ({dir} is the folder below), "< LINE" is a line of
// its standard input, "> LINE" one of its output, "! LINE" one of its errors, "= N" its status.
TEST_F(TagTool, Transcripts) {
  for (const auto& [name, title] : {std::pair{"music/a.mp3", "A"}, {"music/c.mp3", "C"},
                                     {"music/sub/b.MP3", "B"}, {"music/.hidden.mp3", "H"},
                                     {"music/.trash/d.mp3", "D"}}) {
    Make(name, std::string(200, 'a') + TagBytes(title));
  }
  Make("music/cover.jpg", std::string(300, 'j'));
  Make("list.txt", dir / "music/c.mp3\r\n\n" + dir / "music/a.mp3\n");
  Make("cp.mp3", std::string(300, 'a') + TagBytes("Caf\xE9 \x93q\x94", "a\"b\\c\td\n\x81\x9D"));
  Make("none.mp3", std::string(300, 'a') + "tag" + std::string(125, ' '));
  const std::string kept = Make("keep.mp3", std::string(200, 'k') + TagBytes("Keep", "", "", "", "", 3));
  Make("song.mp3", std::string(500, 'a') + TagBytes("Old Title", "Old Artist", "Old Album", "1998", "old", 8));
  const std::string shortFile = Make("short.mp3", std::string(127, 's'));

  std::ifstream in(QC_TEST_DATA_DIR "/transcripts.txt");
  ASSERT_TRUE(in);
  std::optional<std::vector<std::string>> args;
  std::string input, out, err, status, at;
  auto check = [&] {
    if (!args) return;
    SCOPED_TRACE(at);
    std::istringstream given(input);
    std::ostringstream written, errors;
    EXPECT_EQ(std::to_string(tagtool::Run(*args, given, written, errors)), status);
    EXPECT_EQ(written.str(), out);
    EXPECT_EQ(errors.str(), err);
  };
  int number = 0;
  for (std::string line; std::getline(in, line);) {
    ++number;
    for (std::size_t p; (p = line.find("{dir}")) != std::string::npos;) line.replace(p, 5, dir.path());
    if (line.empty()) continue;
    const std::string rest = line.size() > 2 ? line.substr(2) : "";
    if (line[0] == '$') {
      check();
      at = "transcripts.txt:" + std::to_string(number) + ": " + line;
      args.emplace();
      input = out = err = "";
      status = "0";
      std::istringstream words(rest);
      for (std::string w; words >> w;) args->push_back(w);
    } else if (line[0] == '<') {
      input += rest + "\n";
    } else if (line[0] == '>') {
      out += rest + "\n";
    } else if (line[0] == '!') {
      err += rest + "\n";
    } else if (line[0] == '=') {
      status = rest;
    }
  }
  check();
  // Bad input leaves files as they were.
  EXPECT_EQ(ReadBytes(kept), std::string(200, 'k') + TagBytes("Keep", "", "", "", "", 3));
  EXPECT_EQ(ReadBytes(shortFile), std::string(127, 's'));
  EXPECT_FALSE(fs::exists(dir / "missing.mp3"));
}

}  // namespace
}  // namespace qc::test
