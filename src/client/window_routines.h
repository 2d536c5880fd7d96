#pragma once
// The driver's window vocabulary routines: reading captions and control texts, closing a
// window, telling the client's generation, finding its document area and its screen name.
// None keeps a handle between calls: each starts again from the top of the tree.
#include <cstdint>
#include <string>

#include "client/window_system.h"

namespace qc {

// The caption by GetWindowTextLengthA and GetWindowTextA; "" for no window.
std::string WindowCaption(WindowSystem& ws, Hwnd window);
// The text by WM_GETTEXTLENGTH and WM_GETTEXT; on a document window, its caption.
std::string ControlText(WindowSystem& ws, Hwnd window);
// Posts WM_CLOSE.
void CloseWindow(WindowSystem& ws, Hwnd window);
// Code-page text in lower case, as the platform folds it.
std::string LowerCodePage(const std::string& text);

// 5 or 4 by the version in the fifth drop-down's tenth entry, 2 when the seventh drop-down begins
// with "&Contents", otherwise 3 (also when no client runs).
std::int16_t ClientVersion(WindowSystem& ws);
// The client's MDI area, or 0.
Hwnd FindMdiClient(WindowSystem& ws);
// The name in the first document window whose caption begins "Welcome, ", up to its first "!";
// "" when there is none. A welcome caption without "!" raises the invalid-argument failure.
std::string ClientScreenName(WindowSystem& ws);

}  // namespace qc
