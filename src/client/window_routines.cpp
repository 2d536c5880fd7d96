#include "client/window_routines.h"

#include <algorithm>

#include "client/vocabulary.h"
#include "text/text.h"

namespace qc {

std::string WindowCaption(WindowSystem& ws, Hwnd window) {
  std::int32_t length = ws.GetWindowTextLengthA(window);
  std::string buffer(static_cast<std::size_t>(std::max(length, 0)), '\0');
  ws.GetWindowTextA(window, buffer, length + 1);
  return buffer;
}

std::string ControlText(WindowSystem& ws, Hwnd window) {
  std::int32_t zero = 0;
  std::int32_t length = ws.SendMessageA(window, aol::kWmGetTextLength, 0, LParam::Word(zero));
  std::string buffer(static_cast<std::size_t>(std::max(length, 0)), '\0');
  ws.SendMessageA(window, aol::kWmGetText, length + 1, LParam::Buffer(buffer));
  return buffer;
}

void CloseWindow(WindowSystem& ws, Hwnd window) {
  ws.PostMessageA(window, aol::kWmClose, 0, LParam());
}

std::string LowerCodePage(const std::string& text) {
  return ToCodePage(LowerCase(FromCodePage(text)));
}

namespace {

// The text of the entry at a position of a drop-down, read by its command id into 100 blanks.
// An entry that is missing leaves the blanks as they are.
std::string MenuEntryText(WindowSystem& ws, Hmenu bar, std::int32_t dropDown,
                          std::int32_t position) {
  Hmenu sub = ws.GetSubMenu(bar, dropDown);
  std::int32_t id = ws.GetMenuItemID(sub, position);
  std::string text(100, ' ');
  ws.GetMenuStringA(sub, id, text, aol::kMenuTextLength, aol::kMenuTextFlags);
  return text;
}

}  // namespace

std::int16_t ClientVersion(WindowSystem& ws) {
  Hwnd frame = ws.FindWindowA(aol::kFrameClass, std::nullopt);
  Hmenu bar = ws.GetMenu(frame);
  std::string first = MenuEntryText(ws, bar, 6, 0);
  std::string second = MenuEntryText(ws, bar, 4, 9);
  if (InStr(second, "5.0") > 0) return 5;
  if (InStr(second, "4.0") > 0) return 4;
  const std::string pattern = LowerCase("&Contents");
  return LowerCodePage(first).compare(0, pattern.size(), pattern) == 0 ? 2 : 3;
}

Hwnd FindMdiClient(WindowSystem& ws) {
  Hwnd frame = ws.FindWindowA(aol::kFrameClass, std::nullopt);
  return ws.FindWindowExA(frame, 0, aol::kMdiClientClass, std::nullopt);
}

std::string ClientScreenName(WindowSystem& ws) {
  Hwnd frame = ws.FindWindowA(aol::kFrameClass, std::nullopt);
  Hwnd mdi = ws.FindWindowExA(frame, 0, aol::kMdiClientClass, std::nullopt);
  Hwnd child = ws.FindWindowExA(mdi, 0, aol::kChildClass, std::nullopt);
  std::string caption = WindowCaption(ws, child);
  while (InStr(caption, aol::kWelcomePrefix) != 1) {
    child = ws.FindWindowExA(mdi, child, aol::kChildClass, std::nullopt);
    caption = WindowCaption(ws, child);
    if (child == 0) return "";
  }
  // Without a "!" the length comes out negative and the cut fails.
  const long long bang = static_cast<long long>(InStr(caption, "!"));
  return Mid(caption, 10, bang - 10);
}

}  // namespace qc
