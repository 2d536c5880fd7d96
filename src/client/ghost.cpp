// Ghost mode: the privacy page reached from the buddy list, one script per family of clients.
#include "client/ghost.h"

#include <array>
#include <optional>

#include "base/pump.h"
#include "client/buddy_list.h"
#include "client/client_commands.h"
#include "client/vocabulary.h"
#include "client/window_routines.h"

namespace qc {
namespace {

// States of the seven privacy buttons on the old clients, 1st to 7th.
constexpr std::array<std::int32_t, 7> kOldOn = {0, 0, 0, 0, -1, 0, -1};
constexpr std::array<std::int32_t, 7> kOldOff = {-1, 0, 0, 0, 0, -1, 0};

// A hop that gives 0 makes the next one start from the first child again, as the platform does.
Hwnd Hop(WindowSystem& ws, Hwnd parent, const char* className, int hops) {
  Hwnd h = 0;
  for (int n = 0; n < hops; ++n) h = ws.FindWindowExA(parent, h, className, std::nullopt);
  return h;
}

Hwnd WaitForPrivacy(WindowSystem& ws, Hwnd mdi) {
  Hwnd privacy = 0;
  do {
    WaitEvents();
    privacy = ws.FindWindowExA(mdi, 0, aol::kChildClass, aol::kPrivacyCaption);
  } while (privacy == 0);
  return privacy;
}

void SetCheck(WindowSystem& ws, Hwnd control, std::int32_t state) {
  std::int32_t word = 0;  // the controls ignore what it holds
  ws.SendMessageA(control, aol::kBmSetCheck, state, LParam::Word(word));
}

void GhostOld(WindowSystem& ws, const std::array<std::int32_t, 7>& states) {
  const Hwnd mdi = FindMdiClient(ws);
  KeywordWindow(ws, aol::kKeywordBuddylist);
  do {
    WaitEvents();
  } while (FindBuddyList(ws) == 0);
  const Hwnd list = FindBuddyList(ws);
  Pause(0.5);
  const Hwnd icon5 = Hop(ws, list, aol::kIconClass, 5);
  // Pressed twice on these clients, with a pump inside each press.
  ws.PostMessageA(icon5, aol::kWmLButtonDown, 0, LParam());
  DoEvents();
  ws.PostMessageA(icon5, aol::kWmLButtonUp, 0, LParam());
  ws.PostMessageA(icon5, aol::kWmLButtonDown, 0, LParam());
  DoEvents();
  ws.PostMessageA(icon5, aol::kWmLButtonUp, 0, LParam());
  const Hwnd privacy = WaitForPrivacy(ws, mdi);
  Pause(0.5);
  std::array<Hwnd, 7> buttons{};
  Hwnd previous = 0;
  for (Hwnd& b : buttons) {
    b = ws.FindWindowExA(privacy, previous, aol::kAolButtonClass, std::nullopt);
    previous = b;
  }
  for (std::size_t i = 0; i < buttons.size(); ++i) SetCheck(ws, buttons[i], states[i]);
  DoEvents();
  Hwnd save = 0;
  for (int n = 0; n < 4; ++n) {
    DoEvents();
    save = ws.FindWindowExA(privacy, save, aol::kIconClass, std::nullopt);
  }
  DoEvents();
  ws.PostMessageA(save, aol::kWmLButtonDown, 0, LParam());
  ws.PostMessageA(save, aol::kWmLButtonUp, 0, LParam());
  Hwnd box = 0;
  Hwnd button = 0;
  do {
    WaitEvents();
    box = ws.FindWindowA(aol::kDialogClass, aol::kAolDialogCaption);
    button = ws.FindWindowExA(box, 0, aol::kButtonClass, std::nullopt);
  } while (box == 0 || button == 0);
  std::int32_t zero = 0;
  ws.SendMessageA(button, aol::kWmKeyDown, aol::kKeySpace, LParam::Word(zero));
  ws.SendMessageA(button, aol::kWmKeyUp, aol::kKeySpace, LParam::Word(zero));
  Pause(0.1);
  CloseWindow(ws, list);
}

void GhostNew(WindowSystem& ws, bool on) {
  KeywordToolbar(ws, aol::kKeywordBuddy);
  Hwnd mdi = 0;
  Hwnd list = 0;
  Hwnd lists = 0;
  do {
    WaitEvents();
    const Hwnd frame = ws.FindWindowA(aol::kFrameClass, aol::kFrameCaption);
    mdi = ws.FindWindowExA(frame, 0, aol::kMdiClientClass, std::nullopt);
    const std::string name = ClientScreenName(ws);
    list = ws.FindWindowExA(mdi, 0, aol::kChildClass, name + aol::kBuddyListMark);
    lists = ws.FindWindowExA(mdi, 0, aol::kChildClass, name + aol::kBuddyListsSuffix);
  } while (list == 0 && lists == 0);
  Pause(0.5);
  const Hwnd window = list != 0 ? list : lists;
  Hwnd icon5 = 0;
  do {
    WaitEvents();
    icon5 = Hop(ws, window, aol::kIconClass, 5);
  } while (icon5 == 0);
  ws.PostMessageA(icon5, aol::kWmLButtonDown, 0, LParam());
  ws.PostMessageA(icon5, aol::kWmLButtonUp, 0, LParam());
  const Hwnd privacy = WaitForPrivacy(ws, mdi);
  Pause(0.5);
  // Only the boxes to set are touched; nothing is cleared.
  if (on) {
    Hwnd box5 = 0;
    Hwnd box7 = 0;
    do {
      WaitEvents();
      Hwnd h = 0;
      for (int n = 1; n <= 7; ++n) {
        h = ws.FindWindowExA(privacy, h, aol::kCheckboxClass, std::nullopt);
        if (n == 5) box5 = h;
        if (n == 7) box7 = h;
      }
    } while (box5 == 0 || box7 == 0);
    SetCheck(ws, box5, -1);
    SetCheck(ws, box7, -1);
  } else {
    Hwnd box1 = 0;
    do {
      WaitEvents();
      box1 = ws.FindWindowExA(privacy, 0, aol::kCheckboxClass, std::nullopt);
    } while (box1 == 0);
    SetCheck(ws, box1, -1);
  }
  Hwnd save = 0;
  do {
    WaitEvents();
    save = Hop(ws, privacy, aol::kIconClass, 4);
  } while (save == 0);
  ws.PostMessageA(save, aol::kWmLButtonDown, 0, LParam());
  ws.PostMessageA(save, aol::kWmLButtonUp, 0, LParam());
  DismissOkBox(ws);
  Pause(0.5);
  if (list != 0) CloseWindow(ws, list);
  if (lists != 0) CloseWindow(ws, lists);
}

}  // namespace

void GhostOnOld(WindowSystem& ws) { GhostOld(ws, kOldOn); }
void GhostOffOld(WindowSystem& ws) { GhostOld(ws, kOldOff); }
void GhostOnNew(WindowSystem& ws) { GhostNew(ws, true); }
void GhostOffNew(WindowSystem& ws) { GhostNew(ws, false); }

}  // namespace qc
