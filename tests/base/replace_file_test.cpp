#include "base/replace_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "base/failure.h"
#include "support/files.h"
#include "support/kill_points.h"

namespace qc::test {
namespace {

namespace fs = std::filesystem;

class ReplaceFile : public ::testing::Test {
 protected:
  // Names in the folder, so that a temporary left behind shows.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& e : fs::directory_iterator(dir.path())) names.push_back(e.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }
  static mode_t Mode(const std::string& path) {
    struct stat st {};
    ::stat(path.c_str(), &st);
    return st.st_mode & 07777;
  }
  TempDir dir;
};

TEST_F(ReplaceFile, TheOldFileStandsUntilTheCommitAndKeepsItsMode) {
  const std::string fresh = dir / "new.sys", old = dir / "old.sys", keep = dir / "keep.sys";
  {
    FileReplacement out(fresh);
    EXPECT_FALSE(out.inPlace());
    out.Write("a\r\n");
    out.Write(std::string(200000, 'b'));  // past the buffer
    out.Commit();
  }
  EXPECT_EQ(ReadBytes(fresh), "a\r\n" + std::string(200000, 'b'));
  WriteBytes(old, "old old old");
  ::chmod(old.c_str(), 0640);
  WriteBytes(keep, "keep");
  {
    FileReplacement out(old);
    FileReplacement dropped(keep);
    out.Write("new");
    dropped.Write("lost");
    EXPECT_EQ(ReadBytes(old), "old old old");
    // The temporaries are hidden names, which the catalogue and FileExists never see.
    for (const std::string& name : Names()) EXPECT_TRUE(name.ends_with(".sys") || name[0] == '.');
    out.Commit();
  }
  EXPECT_EQ(ReadBytes(old), "new");
  EXPECT_EQ(Mode(old), 0640u);
  EXPECT_EQ(ReadBytes(keep), "keep");
  EXPECT_EQ(Names(), (std::vector<std::string>{"keep.sys", "new.sys", "old.sys"}));
}

TEST_F(ReplaceFile, ReadOnlyFileGetsItsOwnerWriteMarkOnlyWhenAskedAndALinkStaysALink) {
  const std::string ro = dir / "ro.mp3";
  WriteBytes(ro, "x");
  ::chmod(ro.c_str(), 0444);
  FileReplacement(ro).Commit();
  EXPECT_EQ(Mode(ro), 0444u);
  FileReplacement(ro, /*addWrite=*/true).Commit();
  EXPECT_EQ(Mode(ro), 0644u);

  WriteBytes(dir / "target.sys", "old");
  fs::create_symlink(dir / "target.sys", dir / "link.sys");
  FileReplacement out(dir / "link.sys");
  out.Write("new");
  out.Commit();
  EXPECT_TRUE(fs::is_symlink(dir / "link.sys"));
  EXPECT_EQ(ReadBytes(dir / "target.sys"), "new");
}

TEST_F(ReplaceFile, FailuresAreTheFileRoutinesOwn) {
  EXPECT_EQ(FailureNumberOf([&] { FileReplacement(dir / "no/such/folder.sys"); }), kFileNotFound);
  EXPECT_EQ(FailureNumberOf([] { FileReplacement(std::string("a\0b", 3)); }), kBadFileNameOrNumber);
  // A folder in the way of the rename: the commit fails, and the temporary goes.
  fs::create_directories(dir / "folder.sys/inside");
  {
    FileReplacement out(dir / "folder.sys");
    out.Write("x");
    EXPECT_EQ(FailureNumberOf([&] { out.Commit(); }), kPathFileAccessError);
  }
  EXPECT_EQ(Names(), (std::vector<std::string>{"folder.sys"}));
}

// A kill at any point of a replacement leaves the old file or the new one, never a short one.
TEST_F(ReplaceFile, AKillLeavesTheOldOrTheNewFile) {
  const std::string path = dir / "lstMember.sys";
  std::string oldBytes, newBytes;
  for (int i = 0; i < 40000; ++i) {
    oldBytes += "old.member" + std::to_string(i) + "@aol.com\r\n";
    newBytes += "new.member" + std::to_string(i) + "\r\n";
  }
  auto save = [&](const std::string& bytes) {
    FileReplacement out(path);
    for (std::size_t at = 0; at < bytes.size(); at += 20) out.Write(bytes.substr(at, 20));
    out.Commit();
  };
  save(oldBytes);
  int olds = 0, news = 0;
  const KillCounts counts = KillAtRandomPoints(40, [&] { save(newBytes); }, [&](bool) {
    const std::string bytes = ReadBytes(path);
    if (bytes == oldBytes) {
      ++olds;
      return;
    }
    ASSERT_EQ(bytes.size(), newBytes.size());
    ASSERT_TRUE(bytes == newBytes);
    ++news;
    save(oldBytes);
  });
  EXPECT_GE(counts.killed, 40);
  EXPECT_GE(olds, 20);  // most kills came in the midst of the work
  EXPECT_GE(news, 3);   // the runs that measured it, at least
}

TEST_F(ReplaceFile, AFolderThatTakesNoNewFileIsWrittenInPlace) {
  if (::geteuid() == 0) GTEST_SKIP() << "root writes into every folder";
  WriteBytes(dir / "list.sys", "old old");
  fs::permissions(dir.path(), fs::perms::owner_read | fs::perms::owner_exec);
  {
    FileReplacement out(dir / "list.sys");
    EXPECT_TRUE(out.inPlace());
    out.Write("new");
    out.Commit();
  }
  EXPECT_EQ(ReadBytes(dir / "list.sys"), "new");
  fs::permissions(dir.path(), fs::perms::owner_all);
}

}  // namespace
}  // namespace qc::test
