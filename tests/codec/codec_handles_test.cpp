// No descriptor outlives a codec call, on the failure paths as much as on the good ones.
#include <gtest/gtest.h>

#include "base/failure.h"
#include "codec/id3v1.h"
#include "support/files.h"

namespace qc::test {
namespace {

namespace fs = std::filesystem;

int OpenDescriptors() {
  int n = 0;
  for ([[maybe_unused]] const auto& e : fs::directory_iterator("/proc/self/fd")) ++n;
  return n;
}

TEST(CodecHandles, ManyCallsIncludingFailuresLeaveNoDescriptorOpen) {
  TempDir dir;
  const std::string tagged = dir / "tagged.mp3";
  const std::string shortFile = dir / "short.mp3";
  const std::string missing = dir / "missing.mp3";
  WriteBytes(tagged, std::string(400, 'a') + TagBytes(""));
  WriteBytes(shortFile, std::string(127, 'b'));
  const int before = OpenDescriptors();
  int failures = 0;
  for (int i = 0; i < 1000; ++i) {
    // Good paths.
    HasId3Tag(tagged);
    ReadId3Tag(tagged);
    WriteId3Tag(tagged, "t", "a", "b", "y", "c", "Folk");
    // Quiet paths.
    HasId3Tag(missing);
    ReadId3Tag(missing);
    WriteId3Tag(missing, "", "", "", "", "", "");
    // Failing paths: the file is opened, then found too short.
    failures += FailureNumberOf([&] { HasId3Tag(shortFile); }) == kBadRecordNumber;
    failures += FailureNumberOf([&] { ReadId3Tag(shortFile); }) == kBadRecordNumber;
    failures += FailureNumberOf([&] { WriteId3Tag(shortFile, "t", "", "", "", "", ""); }) ==
                kBadRecordNumber;
  }
  EXPECT_EQ(failures, 3000);
  EXPECT_EQ(OpenDescriptors(), before);
  EXPECT_EQ(fs::file_size(shortFile), 127u);
  EXPECT_FALSE(fs::exists(missing));
}

}  // namespace
}  // namespace qc::test
