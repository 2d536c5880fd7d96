// Instant messages, one fixed script per client generation.
#include "client/instant_message.h"

#include <optional>

#include "base/pump.h"
#include "client/client_commands.h"
#include "client/vocabulary.h"
#include "client/window_routines.h"

namespace qc {
namespace {

constexpr std::size_t kImCut = 512;

// A hop that gives 0 makes the next one start from the first child again, as the platform does.
Hwnd Hop(WindowSystem& ws, Hwnd parent, const char* className, int hops) {
  Hwnd h = 0;
  for (int n = 0; n < hops; ++n) h = ws.FindWindowExA(parent, h, className, std::nullopt);
  return h;
}

Hwnd FrameMdi(WindowSystem& ws) {
  const Hwnd frame = ws.FindWindowA(aol::kFrameClass, std::nullopt);
  return ws.FindWindowExA(frame, 0, aol::kMdiClientClass, std::nullopt);
}

Hwnd ImWindow(WindowSystem& ws, Hwnd mdi) {
  return ws.FindWindowExA(mdi, 0, aol::kChildClass, aol::kSendImCaption);
}

// The client's complaint is the only answer looked for: a box means it refused, and the message
// window (hidden on the keyword route) is closed; the window going away means it was taken.
void EndGame(WindowSystem& ws, Hwnd mdi) {
  Hwnd box = 0;
  Hwnd window = 0;
  for (;;) {
    WaitEvents();
    box = ws.FindWindowA(aol::kDialogClass, aol::kAolDialogCaption);
    window = ImWindow(ws, mdi);
    if (box != 0) break;
    if (window == 0) return;
  }
  const Hwnd button = ws.FindWindowExA(box, 0, aol::kButtonClass, std::nullopt);
  ws.PostMessageA(button, aol::kWmKeyDown, aol::kKeySpace, LParam());
  ws.PostMessageA(button, aol::kWmKeyUp, aol::kKeySpace, LParam());
  ws.PostMessageA(window, aol::kWmClose, 0, LParam());
}

}  // namespace

void SendInstantMessage(WindowSystem& ws, const std::string& to, const std::string& text) {
  const std::int16_t generation = ClientVersion(ws);
  const std::string cut = text.substr(0, kImCut);
  if (generation == 4 || generation == 5) {
    SendImKeyword(ws, to, cut);
  } else if (generation == 3) {
    SendImGen3(ws, to, cut);
  } else if (generation == 2) {
    SendImGen2(ws, to, cut);
  }
}

void SendImKeyword(WindowSystem& ws, const std::string& to, const std::string& text) {
  const Hwnd mdi = FrameMdi(ws);
  KeywordToolbar(ws, aol::kImKeywordPrefix + to);
  Hwnd window = 0;
  Hwnd rich = 0;
  Hwnd send = 0;
  do {
    WaitEvents();
    window = ImWindow(ws, mdi);
    rich = ws.FindWindowExA(window, 0, aol::kRichTextClass, std::nullopt);
    send = Hop(ws, window, aol::kIconClass, 9);
  } while (window == 0 || rich == 0 || send == 0);
  ws.ShowWindow(window, 0);
  ws.SendMessageA(rich, aol::kWmSetText, 0, LParam::Text(text));
  std::int32_t zero = 0;
  ws.SendMessageA(send, aol::kWmLButtonDown, 0, LParam::Word(zero));
  ws.SendMessageA(send, aol::kWmLButtonUp, 0, LParam::Word(zero));
  EndGame(ws, mdi);
}

void SendImGen3(WindowSystem& ws, const std::string& to, const std::string& text) {
  const Hwnd mdi = FrameMdi(ws);
  RunMainMenu(ws, aol::kMenuSendIm);
  Hwnd window = 0;
  Hwnd edit = 0;
  Hwnd rich = 0;
  Hwnd send = 0;
  do {
    WaitEvents();
    window = ImWindow(ws, mdi);
    edit = ws.FindWindowExA(window, 0, aol::kAolEditClass, std::nullopt);
    rich = ws.FindWindowExA(window, 0, aol::kRichTextClass, std::nullopt);
    send = Hop(ws, window, aol::kIconClass, 9);
  } while (window == 0 || edit == 0 || rich == 0 || send == 0);
  ws.SendMessageA(edit, aol::kWmSetText, 0, LParam::Text(to));
  DoEvents();
  ws.SendMessageA(rich, aol::kWmSetText, 0, LParam::Text(text));
  DoEvents();
  ws.PostMessageA(send, aol::kWmLButtonDown, 0, LParam());
  DoEvents();
  ws.PostMessageA(send, aol::kWmLButtonUp, 0, LParam());
  EndGame(ws, mdi);
}

void SendImGen2(WindowSystem& ws, const std::string& to, const std::string& text) {
  const Hwnd mdi = FindMdiClient(ws);
  RunMainMenu(ws, aol::kMenuSendIm);
  Hwnd window = 0;
  Hwnd edit1 = 0;
  Hwnd edit2 = 0;
  Hwnd button = 0;
  do {
    WaitEvents();
    window = ImWindow(ws, mdi);
    edit1 = ws.FindWindowExA(window, 0, aol::kAolEditClass, std::nullopt);
    edit2 = ws.FindWindowExA(window, edit1, aol::kAolEditClass, std::nullopt);
    button = ws.FindWindowExA(window, 0, aol::kAolButtonClass, std::nullopt);
  } while (window == 0 || edit1 == 0 || edit2 == 0 || button == 0);
  ws.SendMessageA(edit1, aol::kWmSetText, 0, LParam::Text(to));
  DoEvents();
  ws.SendMessageA(edit2, aol::kWmSetText, 0, LParam::Text(text));
  DoEvents();
  std::int32_t zero = 0;
  ws.SendMessageA(button, aol::kWmKeyDown, aol::kKeySpace, LParam::Word(zero));
  ws.SendMessageA(button, aol::kWmKeyUp, aol::kKeySpace, LParam::Word(zero));
  EndGame(ws, mdi);
}

}  // namespace qc
