#pragma once
// The only door between the program and the client's windows. The operations carry the Win32
// names and meanings; a real backend forwards them, the simulated desktop implements them.
//
// Text crosses as 8-bit text of the system code page: one byte a character, Windows-1252 in the
// simulator (the ANSI code page on Windows). The drivers below this interface work on such text
// too; the program's own strings are UTF-8 and become code-page text only through ToCodePage and
// FromCodePage, at the calls from the program into the drivers. Handles and menus are 32-bit,
// 0 for none. A failed call returns 0 (or -1 where Win32 does) and leaves its buffer as it was.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qc {

using Hwnd = std::int32_t;
using Hmenu = std::int32_t;

// An absent class or caption in a lookup (the platform's null string): matches anything.
using OptText = std::optional<std::string>;

struct Point {
  std::int32_t x = 0;
  std::int32_t y = 0;
  bool operator==(const Point&) const = default;
};

// What a message carries in lParam. On Win32 this is a number or an address; the kinds the
// program uses are kept apart so that a receiver can read or fill them safely:
//   0               the number 0
//   Word(w)         the address of a 32-bit word (the "zero word" of sent clicks and keys)
//   Text(s)         the address of a text the receiver reads (WM_SETTEXT); a copy is carried
//   Buffer(b)       the address of a buffer the receiver fills (WM_GETTEXT); b.size() is its room
class LParam {
 public:
  enum class Kind { kZero, kWord, kText, kBuffer };

  LParam() = default;
  static LParam Word(std::int32_t& word);
  static LParam Text(std::string text);
  static LParam Buffer(std::string& buffer);

  Kind kind() const { return kind_; }
  std::int32_t* word() const { return word_; }
  const std::string& text() const { return text_; }
  std::string* buffer() const { return buffer_; }

  // "0", "&0" (a word and what it holds), "\"text\"", "buf[n]".
  std::string Describe() const;

 private:
  Kind kind_ = Kind::kZero;
  std::int32_t* word_ = nullptr;
  std::string text_;
  std::string* buffer_ = nullptr;
};

class WindowSystem {
 public:
  virtual ~WindowSystem() = default;

  // A top-level window of that class (case-blind) and exact caption; 0 if none.
  virtual Hwnd FindWindowA(const OptText& className, const OptText& caption) = 0;
  // The next child of parent behind childAfter that matches. childAfter 0 starts at the first
  // child; parent 0 searches the top-level windows.
  virtual Hwnd FindWindowExA(Hwnd parent, Hwnd childAfter, const OptText& className,
                             const OptText& caption) = 0;

  // Delivers at once and returns the receiver's result.
  virtual std::int32_t SendMessageA(Hwnd window, std::uint32_t message, std::int32_t wParam,
                                    LParam lParam) = 0;
  // Queues and returns at once; nonzero when queued.
  virtual std::int32_t PostMessageA(Hwnd window, std::uint32_t message, std::int32_t wParam,
                                    LParam lParam) = 0;

  virtual Hmenu GetMenu(Hwnd window) = 0;
  // The drop-down at a position, from 0; 0 if the entry has none.
  virtual Hmenu GetSubMenu(Hmenu menu, std::int32_t position) = 0;
  // -1 for a menu that does not exist.
  virtual std::int32_t GetMenuItemCount(Hmenu menu) = 0;
  // -1 past the end and for an entry that opens a drop-down.
  virtual std::int32_t GetMenuItemID(Hmenu menu, std::int32_t position) = 0;
  // Copies at most maxCount - 1 characters of the entry's text into buffer, then a NUL if the
  // buffer has room; returns the number copied. flags 0x400 reads by position, otherwise item is a
  // command id searched through the menu and its drop-downs. 0 and buffer untouched if not found.
  virtual std::int32_t GetMenuStringA(Hmenu menu, std::int32_t item, std::string& buffer,
                                      std::int32_t maxCount, std::int32_t flags) = 0;

  virtual std::int32_t GetWindowTextLengthA(Hwnd window) = 0;
  // As GetMenuStringA: at most maxCount - 1 characters and a NUL, within the buffer's size.
  virtual std::int32_t GetWindowTextA(Hwnd window, std::string& buffer, std::int32_t maxCount) = 0;

  // 1 when the window and all its ancestors are shown, else 0.
  virtual std::int32_t IsWindowVisible(Hwnd window) = 0;
  // Command 0 hides; any other shows. Returns nonzero if the window was visible before.
  virtual std::int32_t ShowWindow(Hwnd window, std::int32_t command) = 0;

  virtual std::int32_t GetCursorPos(Point& point) = 0;
  // Pixels; the platform clamps the point to the screen.
  virtual std::int32_t SetCursorPos(std::int32_t x, std::int32_t y) = 0;

  virtual std::int32_t ScreenWidthTwips() = 0;
  virtual std::int32_t ScreenHeightTwips() = 0;
};

// The one conversion between the program's UTF-8 and the code page of the window system. A
// character the code page lacks becomes '?', a byte that is not UTF-8 (a file name of another
// encoding) passes as it is; every code-page byte comes back as it went.
std::string ToCodePage(std::string_view programText);
std::string FromCodePage(std::string_view codePageText);

}  // namespace qc
