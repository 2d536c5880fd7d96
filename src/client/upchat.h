#pragma once
// Upchat mode: hides the client's file transfer window so that the user can chat during an
// upload, and brings it back. No state of its own.
#include <string>

namespace qc {

class Prompts;
class WindowSystem;

// "file transfer window not found" with the title "error: " when there is no transfer window.
void UpchatOn(WindowSystem& ws, Prompts& prompts);   // hide, then minimise
void UpchatOff(WindowSystem& ws, Prompts& prompts);  // hide, then restore

// A message box that is always system-modal: flags + 4096.
void ShowMessage(Prompts& prompts, std::string& text, int& flags, std::string& title);

}  // namespace qc
