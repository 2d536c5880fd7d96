#pragma once
// The window operations over user32, for Windows builds: the drivers reach a real client here.
//
// Text crosses unchanged: the A functions take and give 8-bit text of the ANSI code page, which is
// what the window boundary carries. Handles are 32-bit on Win32 (also in 64-bit processes), so
// they fit the 32-bit handle type by sign extension.
#include "client/window_system.h"

namespace qc {

class Win32WindowSystem : public WindowSystem {
 public:
  Hwnd FindWindowA(const OptText& className, const OptText& caption) override;
  Hwnd FindWindowExA(Hwnd parent, Hwnd childAfter, const OptText& className,
                     const OptText& caption) override;
  std::int32_t SendMessageA(Hwnd window, std::uint32_t message, std::int32_t wParam,
                            LParam lParam) override;
  std::int32_t PostMessageA(Hwnd window, std::uint32_t message, std::int32_t wParam,
                            LParam lParam) override;
  Hmenu GetMenu(Hwnd window) override;
  Hmenu GetSubMenu(Hmenu menu, std::int32_t position) override;
  std::int32_t GetMenuItemCount(Hmenu menu) override;
  std::int32_t GetMenuItemID(Hmenu menu, std::int32_t position) override;
  std::int32_t GetMenuStringA(Hmenu menu, std::int32_t item, std::string& buffer,
                              std::int32_t maxCount, std::int32_t flags) override;
  std::int32_t GetWindowTextLengthA(Hwnd window) override;
  std::int32_t GetWindowTextA(Hwnd window, std::string& buffer, std::int32_t maxCount) override;
  std::int32_t IsWindowVisible(Hwnd window) override;
  std::int32_t ShowWindow(Hwnd window, std::int32_t command) override;
  std::int32_t GetCursorPos(Point& point) override;
  std::int32_t SetCursorPos(std::int32_t x, std::int32_t y) override;
  std::int32_t ScreenWidthTwips() override;
  std::int32_t ScreenHeightTwips() override;
};

// True when a client frame is on this desktop: the program then drives it instead of the
// embedded simulated client.
bool Win32ClientRuns();

// Processes the thread's pending window messages once; never blocks.
void Win32ProcessMessages();
// Sleeps until a message arrives for this thread or the time is up.
void Win32WaitForMessages(double seconds);

}  // namespace qc
