#include "client/client_commands.h"

#include "base/pump.h"
#include "client/vocabulary.h"
#include "client/window_routines.h"
#include "text/text.h"

namespace qc {

void RunMainMenu(WindowSystem& ws, const std::string& itemText) {
  Hwnd frame = ws.FindWindowA(aol::kFrameClass, std::nullopt);
  Hmenu bar = ws.GetMenu(frame);
  const std::int32_t dropDowns = ws.GetMenuItemCount(bar);
  for (std::int32_t i = 0; i <= dropDowns - 1; ++i) {
    Hmenu sub = ws.GetSubMenu(bar, i);
    const std::int32_t entries = ws.GetMenuItemCount(sub);
    for (std::int32_t j = 0; j <= entries - 1; ++j) {
      std::int32_t id = ws.GetMenuItemID(sub, j);
      std::string text(100, ' ');
      ws.GetMenuStringA(sub, id, text, aol::kMenuTextLength, aol::kMenuTextFlags);
      if (InStr(LowerCodePage(text), LowerCodePage(itemText)) > 0) {
        // Sent, so that the client has handled it when this returns.
        ws.SendMessageA(frame, aol::kWmCommand, id, LParam());
        return;
      }
    }
  }
}

void RunToolbarMenu(WindowSystem& ws, std::int16_t iconIndex, std::int16_t downCount) {
  Hwnd frame = ws.FindWindowA(aol::kFrameClass, std::nullopt);
  Hwnd host = ws.FindWindowExA(frame, 0, aol::kToolbarHostClass, std::nullopt);
  Hwnd toolbar = ws.FindWindowExA(host, 0, aol::kToolbarClass, std::nullopt);
  Hwnd icon = 0;
  for (int n = 1; n <= iconIndex; ++n) {
    icon = ws.FindWindowExA(toolbar, icon, aol::kIconClass, std::nullopt);
    DoEvents();
  }
  // The pointer goes far behind the bottom-right corner so that it cannot touch the menu.
  Point saved;
  ws.GetCursorPos(saved);
  ws.SetCursorPos(ws.ScreenWidthTwips(), ws.ScreenHeightTwips());
  ws.PostMessageA(icon, aol::kWmLButtonDown, 0, LParam());
  ws.PostMessageA(icon, aol::kWmLButtonUp, 0, LParam());
  DoEvents();
  Hwnd menu = 0;
  std::int32_t visible = 0;
  int passes = 0;
  do {
    menu = ws.FindWindowA(aol::kPopupMenuClass, std::nullopt);
    visible = ws.IsWindowVisible(menu);
    WaitEvents();
    if (++passes == aol::kRepressToolbarMenu) {
      passes = 0;
      ws.PostMessageA(icon, aol::kWmLButtonDown, 0, LParam());
      ws.PostMessageA(icon, aol::kWmLButtonUp, 0, LParam());
    }
  } while (visible != 1);
  DoEvents();
  for (int n = 1; n <= downCount; ++n) {
    ws.PostMessageA(menu, aol::kWmKeyDown, aol::kKeyDown, LParam());
    ws.PostMessageA(menu, aol::kWmKeyUp, aol::kKeyDown, LParam());
  }
  DoEvents();
  ws.PostMessageA(menu, aol::kWmKeyDown, aol::kKeyEnter, LParam());
  ws.PostMessageA(menu, aol::kWmKeyUp, aol::kKeyEnter, LParam());
  ws.SetCursorPos(saved.x, saved.y);
}

void OpenOutgoingMail40(WindowSystem& ws) {
  Hwnd frame = ws.FindWindowA(aol::kFrameClass, std::nullopt);
  Hwnd host = ws.FindWindowExA(frame, 0, aol::kToolbarHostClass, std::nullopt);
  Hwnd toolbar = ws.FindWindowExA(host, 0, aol::kToolbarClass, std::nullopt);
  Hwnd icon = ws.FindWindowExA(toolbar, 0, aol::kIconClass, std::nullopt);
  icon = ws.FindWindowExA(toolbar, icon, aol::kIconClass, std::nullopt);
  icon = ws.FindWindowExA(toolbar, icon, aol::kIconClass, std::nullopt);
  Point saved;
  ws.GetCursorPos(saved);
  ws.SetCursorPos(ws.ScreenWidthTwips(), ws.ScreenHeightTwips());
  ws.PostMessageA(icon, aol::kWmLButtonDown, 0, LParam());
  ws.PostMessageA(icon, aol::kWmLButtonUp, 0, LParam());
  Hwnd menu = 0;
  do {
    WaitEvents();
    menu = ws.FindWindowA(aol::kPopupMenuClass, std::nullopt);
  } while (ws.IsWindowVisible(menu) != 1);
  Pause(0.1);
  for (std::int32_t key : {aol::kKeyUp, aol::kKeyRight, aol::kKeyDown, aol::kKeyEnter}) {
    ws.PostMessageA(menu, aol::kWmKeyDown, key, LParam());
    ws.PostMessageA(menu, aol::kWmKeyUp, key, LParam());
  }
  ws.SetCursorPos(saved.x, saved.y);
}

void KeywordToolbar(WindowSystem& ws, const std::string& keyword) {
  Hwnd frame = ws.FindWindowA(aol::kFrameClass, std::nullopt);
  Hwnd host = ws.FindWindowExA(frame, 0, aol::kToolbarHostClass, std::nullopt);
  Hwnd toolbar = ws.FindWindowExA(host, 0, aol::kToolbarClass, std::nullopt);
  Hwnd combo = ws.FindWindowExA(toolbar, 0, aol::kComboboxClass, std::nullopt);
  Hwnd edit = ws.FindWindowExA(combo, 0, aol::kEditClass, std::nullopt);
  ws.SendMessageA(edit, aol::kWmSetText, 0, LParam::Text(""));
  ws.SendMessageA(edit, aol::kWmSetText, 0, LParam::Text(keyword));
  ws.SendMessageA(edit, aol::kWmChar, aol::kKeySpace, LParam());
  ws.SendMessageA(edit, aol::kWmChar, aol::kKeyEnter, LParam());
}

void KeywordWindow(WindowSystem& ws, const std::string& keyword) {
  Hwnd mdi = FindMdiClient(ws);
  RunMainMenu(ws, aol::kMenuKeyword);
  Hwnd window = 0;
  Hwnd edit = 0;
  Hwnd icon = 0;
  do {
    WaitEvents();
    window = ws.FindWindowExA(mdi, 0, aol::kChildClass, aol::kKeywordCaption);
    edit = ws.FindWindowExA(window, 0, aol::kAolEditClass, std::nullopt);
    icon = ws.FindWindowExA(window, 0, aol::kIconClass, std::nullopt);
  } while (window == 0 || edit == 0 || icon == 0);
  ws.SendMessageA(edit, aol::kWmSetText, 0, LParam::Text(keyword));
  DoEvents();
  ws.PostMessageA(icon, aol::kWmLButtonDown, 0, LParam());
  ws.PostMessageA(icon, aol::kWmLButtonUp, 0, LParam());
}

void KillGlyph(WindowSystem& ws) {
  Hwnd frame = ws.FindWindowA(aol::kFrameClass, aol::kFrameCaption);
  Hwnd host = ws.FindWindowExA(frame, 0, aol::kToolbarHostClass, std::nullopt);
  Hwnd toolbar = ws.FindWindowExA(host, 0, aol::kToolbarClass, std::nullopt);
  Hwnd glyph = ws.FindWindowExA(toolbar, 0, aol::kGlyphClass, std::nullopt);
  if (glyph != 0) CloseWindow(ws, glyph);
}

void KillModal(WindowSystem& ws) {
  // No pump: a modal that is slow to close gets more close messages until it has gone.
  while (Hwnd modal = ws.FindWindowA(aol::kModalClass, std::nullopt)) CloseWindow(ws, modal);
}

void KillWait(WindowSystem& ws) {
  RunMainMenu(ws, aol::kMenuAbout);
  Hwnd modal = 0;
  do {
    WaitEvents();
    modal = ws.FindWindowA(aol::kModalClass, std::nullopt);
  } while (modal == 0);
  Hwnd icon = 0;
  do {
    WaitEvents();
    icon = ws.FindWindowExA(modal, 0, aol::kIconClass, std::nullopt);
  } while (icon == 0);
  ws.PostMessageA(icon, aol::kWmLButtonDown, 0, LParam());
  ws.PostMessageA(icon, aol::kWmLButtonUp, 0, LParam());
}

void DismissOkBox(WindowSystem& ws) {
  Hwnd box = 0;
  Hwnd button = 0;
  do {
    WaitEvents();
    box = ws.FindWindowA(aol::kDialogClass, aol::kAolDialogCaption);
    button = ws.FindWindowExA(box, 0, aol::kButtonClass, aol::kOkCaption);
  } while (box == 0 || button == 0);
  std::int32_t zero = 0;
  ws.SendMessageA(button, aol::kWmKeyDown, aol::kKeySpace, LParam::Word(zero));
  ws.SendMessageA(button, aol::kWmKeyUp, aol::kKeySpace, LParam::Word(zero));
}

}  // namespace qc
