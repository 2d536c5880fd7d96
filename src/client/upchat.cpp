// Upchat mode: the transfer window out of the way and back.
#include "client/upchat.h"

#include <optional>

#include "base/prompts.h"
#include "client/vocabulary.h"
#include "client/window_system.h"

namespace qc {
namespace {

constexpr std::int32_t kSwHide = 0;
constexpr std::int32_t kSwMinimize = 6;
constexpr std::int32_t kSwRestore = 9;

// The first window of the class, whatever its title: no test is made that it is a transfer.
Hwnd FindTransferWindow(WindowSystem& ws, Prompts& prompts) {
  Hwnd modal = ws.FindWindowA(std::string(aol::kModalUpperClass), std::nullopt);
  if (modal == 0) {
    std::string text = "file transfer window not found";
    int flags = kCritical;
    std::string title = "error: ";
    ShowMessage(prompts, text, flags, title);
  }
  return modal;
}

}  // namespace

void ShowMessage(Prompts& prompts, std::string& text, int& flags, std::string& title) {
  prompts.MsgBox(text, flags + kSystemModal, title);
}

void UpchatOn(WindowSystem& ws, Prompts& prompts) {
  const Hwnd modal = FindTransferWindow(ws, prompts);
  if (modal == 0) return;
  ws.ShowWindow(modal, kSwHide);
  ws.ShowWindow(modal, kSwMinimize);
}

void UpchatOff(WindowSystem& ws, Prompts& prompts) {
  const Hwnd modal = FindTransferWindow(ws, prompts);
  if (modal == 0) return;
  ws.ShowWindow(modal, kSwHide);
  ws.ShowWindow(modal, kSwRestore);
}

}  // namespace qc
