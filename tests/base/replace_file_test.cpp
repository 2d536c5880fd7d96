#include "base/replace_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "base/failure.h"

namespace qc {
namespace {

namespace fs = std::filesystem;

class ReplaceFile : public ::testing::Test {
 protected:
  void SetUp() override {
    dir_ = fs::temp_directory_path() / ("qc_replace_" + std::to_string(::getpid()) + "_" +
                                        testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::create_directories(dir_);
  }
  void TearDown() override {
    std::error_code ec;
    fs::permissions(dir_, fs::perms::owner_all, fs::perm_options::add, ec);
    fs::remove_all(dir_, ec);
  }
  std::string Path(const std::string& name) const { return (dir_ / name).string(); }
  void Put(const std::string& name, const std::string& bytes) {
    std::ofstream(Path(name), std::ios::binary) << bytes;
  }
  std::string Bytes(const std::string& name) const {
    std::ifstream in(Path(name), std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
  }
  // Names in the folder, so that a temporary left behind shows.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& e : fs::directory_iterator(dir_)) names.push_back(e.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }
  mode_t Mode(const std::string& name) const {
    struct stat st {};
    ::stat(Path(name).c_str(), &st);
    return st.st_mode & 07777;
  }
  fs::path dir_;
};

TEST_F(ReplaceFile, NewAndExistingFilesGetTheWholeNewContent) {
  {
    FileReplacement out(Path("new.sys"));
    EXPECT_FALSE(out.inPlace());
    out.Write("a\r\n");
    out.Write(std::string(200000, 'b'));  // past the buffer
    out.Commit();
  }
  EXPECT_EQ(Bytes("new.sys"), "a\r\n" + std::string(200000, 'b'));
  Put("old.sys", "old old old");
  ::chmod(Path("old.sys").c_str(), 0640);
  {
    FileReplacement out(Path("old.sys"));
    out.Write("new");
    // Until the commit the old file stands.
    EXPECT_EQ(Bytes("old.sys"), "old old old");
    out.Commit();
  }
  EXPECT_EQ(Bytes("old.sys"), "new");
  EXPECT_EQ(Mode("old.sys"), 0640u);
  EXPECT_EQ(Names(), (std::vector<std::string>{"new.sys", "old.sys"}));
}

TEST_F(ReplaceFile, WithoutCommitTheOldFileStaysAndNothingIsLeft) {
  Put("keep.sys", "keep");
  {
    FileReplacement out(Path("keep.sys"));
    out.Write("lost");
  }
  EXPECT_EQ(Bytes("keep.sys"), "keep");
  EXPECT_EQ(Names(), (std::vector<std::string>{"keep.sys"}));
}

TEST_F(ReplaceFile, ReadOnlyFileGetsItsOwnerWriteMarkOnlyWhenAsked) {
  Put("ro.mp3", "x");
  ::chmod(Path("ro.mp3").c_str(), 0444);
  {
    FileReplacement out(Path("ro.mp3"));
    out.Commit();
  }
  EXPECT_EQ(Mode("ro.mp3"), 0444u);
  {
    FileReplacement out(Path("ro.mp3"), /*addWrite=*/true);
    out.Commit();
  }
  EXPECT_EQ(Mode("ro.mp3"), 0644u);
}

TEST_F(ReplaceFile, ALinkStaysALinkToTheNewFile) {
  Put("target.sys", "old");
  fs::create_symlink(Path("target.sys"), Path("link.sys"));
  FileReplacement out(Path("link.sys"));
  out.Write("new");
  out.Commit();
  EXPECT_TRUE(fs::is_symlink(Path("link.sys")));
  EXPECT_EQ(Bytes("target.sys"), "new");
}

TEST_F(ReplaceFile, FailuresAreTheFileRoutinesOwn) {
  try {
    FileReplacement out(Path("no/such/folder.sys"));
    FAIL();
  } catch (const RuntimeFailure& f) {
    EXPECT_EQ(f.number(), kFileNotFound);
  }
  EXPECT_THROW(FileReplacement(std::string("a\0b", 3)), RuntimeFailure);
  // A folder in the way of the rename: the commit fails, and the temporary goes.
  fs::create_directory(Path("folder.sys"));
  fs::create_directory(Path("folder.sys/inside"));
  {
    FileReplacement out(Path("folder.sys"));
    out.Write("x");
    EXPECT_THROW(out.Commit(), RuntimeFailure);
  }
  EXPECT_EQ(Names(), (std::vector<std::string>{"folder.sys"}));
}

TEST_F(ReplaceFile, AFolderThatTakesNoNewFileIsWrittenInPlace) {
  if (::geteuid() == 0) GTEST_SKIP() << "root writes into every folder";
  Put("list.sys", "old old");
  fs::permissions(dir_, fs::perms::owner_read | fs::perms::owner_exec);
  {
    FileReplacement out(Path("list.sys"));
    EXPECT_TRUE(out.inPlace());
    out.Write("new");
    out.Commit();
  }
  EXPECT_EQ(Bytes("list.sys"), "new");
}

}  // namespace
}  // namespace qc
