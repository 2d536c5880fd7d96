// The backend's own promises, on windows of this process: buffers filled as the simulated desktop
// fills them, and a window that is gone failing quietly.
#include <gtest/gtest.h>
#include <windows.h>

#include "client/vocabulary.h"
#include "client/win32/win32_window_system.h"
#include "sim/sim_desktop.h"

namespace qc {
namespace {

constexpr char kProbeClass[] = "QuillcastProbe";

HWND NewWindow(const char* caption) {
  WNDCLASSA wc{};
  wc.lpfnWndProc = &::DefWindowProcA;
  wc.hInstance = ::GetModuleHandleA(nullptr);
  wc.lpszClassName = kProbeClass;
  ::RegisterClassA(&wc);
  return ::CreateWindowExA(0, kProbeClass, caption, WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                           wc.hInstance, nullptr);
}

Hwnd Handle(HWND h) { return static_cast<Hwnd>(reinterpret_cast<std::intptr_t>(h)); }

TEST(Win32Backend, TextReadsFillBuffersAsTheSimulatedDesktop) {
  struct Case {
    const char* caption;
    std::size_t room;
    std::int32_t maxCount;
  };
  const Case cases[] = {
      {"Welcome, Brindle Rose!", 22, 23},  // the caption read: its length, then length + 1
      {"Welcome, Brindle Rose!", 30, 5},   // cut to maxCount - 1 and a NUL
      {"Welcome, Brindle Rose!", 4, 23},   // a buffer smaller than maxCount keeps its size
      {"caf\xE9 \x96 \xA0", 8, 9},         // code-page bytes as they are
      {"", 3, 1},
  };
  Win32WindowSystem ws;
  sim::SimDesktop desktop;
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.caption) + " room " + std::to_string(c.room));
    const HWND real = NewWindow(c.caption);
    const Hwnd simulated = desktop.NewWindow(0, kProbeClass, c.caption);
    std::string got(c.room, '#'), want(c.room, '#');
    EXPECT_EQ(ws.GetWindowTextA(Handle(real), got, c.maxCount),
              desktop.GetWindowTextA(simulated, want, c.maxCount));
    EXPECT_EQ(got, want);
    got.assign(c.room, '#');
    want.assign(c.room, '#');
    EXPECT_EQ(ws.SendMessageA(Handle(real), aol::kWmGetText, c.maxCount, LParam::Buffer(got)),
              desktop.SendMessageA(simulated, aol::kWmGetText, c.maxCount, LParam::Buffer(want)));
    EXPECT_EQ(got, want);
    EXPECT_EQ(ws.GetWindowTextLengthA(Handle(real)), desktop.GetWindowTextLengthA(simulated));
    ::DestroyWindow(real);
  }
}

// The main menu's reader asks for separators (id 0) and drop-downs (id -1) by command too.
TEST(Win32Backend, MenuReadsFillBuffersAsTheSimulatedDesktop) {
  Win32WindowSystem ws;
  sim::SimDesktop desktop;
  HMENU real = ::CreatePopupMenu();
  ::AppendMenuA(real, MF_STRING, 101, "&Open");
  ::AppendMenuA(real, MF_SEPARATOR, 0, nullptr);
  const Hmenu simulated = desktop.CreateMenu();
  desktop.AppendItem(simulated, 101, "&Open");
  desktop.AppendSeparator(simulated);
  const Hmenu handle = static_cast<Hmenu>(reinterpret_cast<std::intptr_t>(real));
  for (const std::int32_t id : {101, 0, -1, 7}) {
    SCOPED_TRACE(id);
    std::string got(100, ' '), want(100, ' ');
    EXPECT_EQ(ws.GetMenuStringA(handle, id, got, aol::kMenuTextLength, aol::kMenuTextFlags),
              desktop.GetMenuStringA(simulated, id, want, aol::kMenuTextLength,
                                     aol::kMenuTextFlags));
    EXPECT_EQ(got, want);
  }
  ::DestroyMenu(real);
}

TEST(Win32Backend, AWindowThatIsGoneFailsQuietly) {
  Win32WindowSystem ws;
  const HWND real = NewWindow("Write Mail");
  const Hwnd gone = Handle(real);
  ::DestroyWindow(real);
  std::string buffer = "untouched";
  std::int32_t zero = 0;
  EXPECT_EQ(ws.SendMessageA(gone, aol::kWmGetText, 10, LParam::Buffer(buffer)), 0);
  EXPECT_EQ(ws.SendMessageA(gone, aol::kWmSetText, 0, LParam::Text("x")), 0);
  EXPECT_EQ(ws.SendMessageA(gone, aol::kWmGetTextLength, 0, LParam::Word(zero)), 0);
  EXPECT_EQ(ws.PostMessageA(gone, aol::kWmLButtonDown, 0, LParam()), 0);
  EXPECT_EQ(ws.GetWindowTextA(gone, buffer, 10), 0);
  EXPECT_EQ(buffer, "untouched");
  EXPECT_EQ(ws.GetWindowTextLengthA(gone), 0);
  EXPECT_EQ(ws.FindWindowExA(gone, 0, std::string(aol::kIconClass), std::nullopt), 0);
  EXPECT_EQ(ws.GetMenu(gone), 0);
  EXPECT_EQ(ws.IsWindowVisible(gone), 0);
  EXPECT_EQ(ws.ShowWindow(gone, 0), 0);
  EXPECT_FALSE(Win32ClientRuns());
  EXPECT_GT(ws.ScreenWidthTwips(), 0);
}

}  // namespace
}  // namespace qc
