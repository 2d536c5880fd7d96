#include <gtest/gtest.h>

#include "client/win32/win32_window_system.h"

namespace qc {
namespace {

TEST(Win32Backend, NoClientFrameOnAFreshDesktop) {
  Win32WindowSystem ws;
  EXPECT_EQ(ws.FindWindowA(std::string("AOL Frame25"), std::nullopt), 0);
  EXPECT_FALSE(Win32ClientRuns());
  EXPECT_GT(ws.ScreenWidthTwips(), 0);
}

}  // namespace
}  // namespace qc
