#include "client/win32/win32_window_system.h"

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "client/vocabulary.h"

namespace qc {

namespace {

HWND ToHwnd(Hwnd h) { return reinterpret_cast<HWND>(static_cast<std::intptr_t>(h)); }
Hwnd FromHwnd(HWND h) {
  return static_cast<Hwnd>(static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(h)));
}
HMENU ToHmenu(Hmenu m) { return reinterpret_cast<HMENU>(static_cast<std::intptr_t>(m)); }
Hmenu FromHmenu(HMENU m) {
  return static_cast<Hmenu>(static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(m)));
}

const char* OrNull(const OptText& t) { return t ? t->c_str() : nullptr; }

// What the platform wrote into a scratch buffer, copied into the caller's buffer as a text of
// that size would have received it: the characters that fit, then a NUL if there is room.
void CopyBack(const std::vector<char>& scratch, std::size_t copied, std::string& buffer) {
  std::size_t fit = std::min(copied, buffer.size());
  buffer.replace(0, fit, scratch.data(), fit);
  if (copied < buffer.size()) buffer[copied] = '\0';
}

// A scratch buffer with room for maxCount characters and the platform's NUL.
std::vector<char> Scratch(std::int32_t maxCount, const std::string& buffer) {
  std::size_t room = std::max<std::size_t>(static_cast<std::size_t>(std::max(maxCount, 0)),
                                           buffer.size()) + 1;
  return std::vector<char>(room, '\0');
}

LPARAM ToLParam(const LParam& p, std::vector<char>& scratch) {
  switch (p.kind()) {
    case LParam::Kind::kZero: return 0;
    case LParam::Kind::kWord: return reinterpret_cast<LPARAM>(p.word());
    case LParam::Kind::kText: return reinterpret_cast<LPARAM>(p.text().c_str());
    case LParam::Kind::kBuffer: return reinterpret_cast<LPARAM>(scratch.data());
  }
  return 0;
}

WPARAM ToWParam(std::int32_t w) { return static_cast<WPARAM>(static_cast<std::intptr_t>(w)); }

int TwipsPerPixel(int axis) {
  HDC dc = ::GetDC(nullptr);
  int dpi = dc ? ::GetDeviceCaps(dc, axis) : 96;
  if (dc) ::ReleaseDC(nullptr, dc);
  return 1440 / (dpi > 0 ? dpi : 96);
}

}  // namespace

Hwnd Win32WindowSystem::FindWindowA(const OptText& className, const OptText& caption) {
  return FromHwnd(::FindWindowA(OrNull(className), OrNull(caption)));
}

Hwnd Win32WindowSystem::FindWindowExA(Hwnd parent, Hwnd childAfter, const OptText& className,
                                      const OptText& caption) {
  return FromHwnd(
      ::FindWindowExA(ToHwnd(parent), ToHwnd(childAfter), OrNull(className), OrNull(caption)));
}

std::int32_t Win32WindowSystem::SendMessageA(Hwnd window, std::uint32_t message,
                                             std::int32_t wParam, LParam lParam) {
  std::vector<char> scratch;
  if (lParam.kind() == LParam::Kind::kBuffer) {
    // Marked, so that an empty text the receiver wrote tells from a buffer it never touched.
    scratch = Scratch(wParam, *lParam.buffer());
    scratch[0] = '\x01';
  }
  LRESULT r = ::SendMessageA(ToHwnd(window), message, ToWParam(wParam), ToLParam(lParam, scratch));
  if (lParam.kind() == LParam::Kind::kBuffer && message == aol::kWmGetText &&
      (r > 0 || scratch[0] == '\0')) {
    const auto copied = static_cast<std::size_t>(std::max<LRESULT>(r, 0));
    CopyBack(scratch, copied, *lParam.buffer());
    // The count that reached the caller's buffer.
    return static_cast<std::int32_t>(std::min(copied, lParam.buffer()->size()));
  }
  return static_cast<std::int32_t>(r);
}

std::int32_t Win32WindowSystem::PostMessageA(Hwnd window, std::uint32_t message,
                                             std::int32_t wParam, LParam lParam) {
  // Texts and buffers cannot travel in a queue; the platform refuses such posts itself.
  std::vector<char> scratch;
  return ::PostMessageA(ToHwnd(window), message, ToWParam(wParam), ToLParam(lParam, scratch)) ? 1
                                                                                              : 0;
}

Hmenu Win32WindowSystem::GetMenu(Hwnd window) { return FromHmenu(::GetMenu(ToHwnd(window))); }

Hmenu Win32WindowSystem::GetSubMenu(Hmenu menu, std::int32_t position) {
  return FromHmenu(::GetSubMenu(ToHmenu(menu), position));
}

std::int32_t Win32WindowSystem::GetMenuItemCount(Hmenu menu) {
  return ::GetMenuItemCount(ToHmenu(menu));
}

std::int32_t Win32WindowSystem::GetMenuItemID(Hmenu menu, std::int32_t position) {
  return static_cast<std::int32_t>(::GetMenuItemID(ToHmenu(menu), position));
}

std::int32_t Win32WindowSystem::GetMenuStringA(Hmenu menu, std::int32_t item, std::string& buffer,
                                               std::int32_t maxCount, std::int32_t flags) {
  if (maxCount <= 0) return 0;
  // An entry that is not there leaves the buffer as it was.
  if (::GetMenuState(ToHmenu(menu), static_cast<UINT>(item), static_cast<UINT>(flags)) ==
      static_cast<UINT>(-1)) {
    return 0;
  }
  std::vector<char> scratch = Scratch(maxCount, buffer);
  int n = ::GetMenuStringA(ToHmenu(menu), static_cast<UINT>(item), scratch.data(), maxCount,
                           static_cast<UINT>(flags));
  n = std::clamp(n, 0, maxCount - 1);
  CopyBack(scratch, static_cast<std::size_t>(n), buffer);
  return static_cast<std::int32_t>(std::min<std::size_t>(static_cast<std::size_t>(n),
                                                         buffer.size()));
}

std::int32_t Win32WindowSystem::GetWindowTextLengthA(Hwnd window) {
  return ::GetWindowTextLengthA(ToHwnd(window));
}

std::int32_t Win32WindowSystem::GetWindowTextA(Hwnd window, std::string& buffer,
                                               std::int32_t maxCount) {
  if (maxCount <= 0 || !::IsWindow(ToHwnd(window))) return 0;
  std::vector<char> scratch = Scratch(maxCount, buffer);
  int n = ::GetWindowTextA(ToHwnd(window), scratch.data(), maxCount);
  n = std::clamp(n, 0, maxCount - 1);
  CopyBack(scratch, static_cast<std::size_t>(n), buffer);
  return static_cast<std::int32_t>(std::min<std::size_t>(static_cast<std::size_t>(n),
                                                         buffer.size()));
}

std::int32_t Win32WindowSystem::IsWindowVisible(Hwnd window) {
  return ::IsWindowVisible(ToHwnd(window)) ? 1 : 0;
}

std::int32_t Win32WindowSystem::ShowWindow(Hwnd window, std::int32_t command) {
  return ::ShowWindow(ToHwnd(window), command) ? 1 : 0;
}

std::int32_t Win32WindowSystem::GetCursorPos(Point& point) {
  POINT p{};
  if (!::GetCursorPos(&p)) return 0;
  point = {static_cast<std::int32_t>(p.x), static_cast<std::int32_t>(p.y)};
  return 1;
}

std::int32_t Win32WindowSystem::SetCursorPos(std::int32_t x, std::int32_t y) {
  return ::SetCursorPos(x, y) ? 1 : 0;
}

std::int32_t Win32WindowSystem::ScreenWidthTwips() {
  return ::GetSystemMetrics(SM_CXSCREEN) * TwipsPerPixel(LOGPIXELSX);
}

std::int32_t Win32WindowSystem::ScreenHeightTwips() {
  return ::GetSystemMetrics(SM_CYSCREEN) * TwipsPerPixel(LOGPIXELSY);
}

bool Win32ClientRuns() { return ::FindWindowA(aol::kFrameClass, nullptr) != nullptr; }

void Win32ProcessMessages() {
  MSG msg;
  while (::PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE)) {
    ::TranslateMessage(&msg);
    ::DispatchMessageA(&msg);
  }
}

void Win32WaitForMessages(double seconds) {
  DWORD ms = seconds <= 0 ? 0 : static_cast<DWORD>(std::min(seconds, 3600.0) * 1000.0 + 0.5);
  ::MsgWaitForMultipleObjectsEx(0, nullptr, ms, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
}

}  // namespace qc
