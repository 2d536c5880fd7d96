// No descriptor outlives a codec call, on the failure paths as much as on the good ones.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

#include "base/failure.h"
#include "codec/id3v1.h"

namespace qc {
namespace {

namespace fs = std::filesystem;

int OpenDescriptors() {
  int n = 0;
  for ([[maybe_unused]] const auto& e : fs::directory_iterator("/proc/self/fd")) ++n;
  return n;
}

TEST(CodecHandles, HundredThousandCallsIncludingFailuresLeaveNoDescriptorOpen) {
  const fs::path dir = fs::temp_directory_path() / ("qc_handles_" + std::to_string(::getpid()));
  fs::create_directories(dir);
  const std::string tagged = (dir / "tagged.mp3").string();
  const std::string shortFile = (dir / "short.mp3").string();
  const std::string missing = (dir / "missing.mp3").string();
  std::ofstream(tagged, std::ios::binary) << std::string(400, 'a') << "TAG" << std::string(125, ' ');
  std::ofstream(shortFile, std::ios::binary) << std::string(127, 'b');

  const int before = OpenDescriptors();
  int failures = 0;
  for (int i = 0; i < 12500; ++i) {
    // Good paths.
    HasId3Tag(tagged);
    ReadId3Tag(tagged);
    WriteId3Tag(tagged, "t", "a", "b", "y", "c", "Folk");
    // Quiet paths.
    HasId3Tag(missing);
    ReadId3Tag(missing);
    WriteId3Tag(missing, "", "", "", "", "", "");
    // Failing paths: the file is opened, then found too short.
    try {
      HasId3Tag(shortFile);
    } catch (const RuntimeFailure&) {
      ++failures;
    }
    try {
      WriteId3Tag(shortFile, "t", "", "", "", "", "");
    } catch (const RuntimeFailure&) {
      ++failures;
    }
  }
  EXPECT_EQ(failures, 25000);
  EXPECT_EQ(OpenDescriptors(), before);
  EXPECT_EQ(fs::file_size(shortFile), 127u);
  EXPECT_FALSE(fs::exists(missing));
  fs::remove_all(dir);
}

}  // namespace
}  // namespace qc
