#pragma once
// The program's voice in the client's chat room: three-line blocks typed into the room's input
// box from outside, and the file transfer's state read from its window.
#include <functional>
#include <string>

#include "client/window_system.h"

namespace qc {
// Line 1 and line 3 of every block, and the special characters they are made of (UTF-8).
inline constexpr char kNbsp[] = "\u00A0";
std::string ChatLine1();
std::string ChatLine3();
// Line 2 of the start, end and brag blocks: word is "start", "end" or "brag".
std::string CountsLine(const std::string& word, const std::string& ups,
                       const std::string& sizeText);

// Types `text` into the chat room and waits, pumping, until the client has taken it; the user's
// half-typed text is put back afterwards. The text goes to the client in its code page. With
// withCut a text of 92 code-page characters or more is cut to 92 before the tail (only on a
// RICHCNTL input) is appended. Nothing when text is empty or there
// is no room. The wait has no limit.
void ChatSend(WindowSystem& ws, std::string& text, bool& withTail, bool& withCut);

// The first document window that looks like a chat room (either form), or 0; 0 also when that
// first match is a window of the user's own (its text holds the screen name and "'s").
Hwnd FindChatRoom(WindowSystem& ws);

// The state of the client's file transfer window, read in the client's code page (positions count
// its characters) and given back as the program's text: "none" three times without one, "na" for a
// percent or amount that is not a number.
struct TransferStatus {
  std::string percent;
  std::string amount;
  std::string file;
  bool operator==(const TransferStatus&) const = default;
};
// A file text without a blank (or an amount text with none left) raises the invalid-argument
// failure, as the string cuts do.
TransferStatus ReadTransferStatus(WindowSystem& ws);

// Line 2 of the scroll block: byMenu drops the "!" of the button's form.
std::string ScrollLine(const TransferStatus& status, bool byMenu);

// Line 1, then line2() once line 1 has gone (the counters may change while the room takes it),
// then line 3.
void SendChatBlock(WindowSystem& ws, const std::function<std::string()>& line2);
// The transfer's state in three lines; byMenu for the menu item upchatscrolll, false for picBut5.
void ScrollStats(WindowSystem& ws, bool byMenu = false);

}  // namespace qc
