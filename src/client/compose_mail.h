#pragma once
// The Compose Mail window of client generation 3, opened from the main menu. The same arguments
// and meaning as the Write Mail routines, with a shorter end: the attachment comes straight from
// the 3rd icon's "Attach File" dialog, the window is retitled afterwards, and Send Later is one
// press with no wait. The re-press wait clicks again every 12000 passes.
#include <string>

#include "client/window_system.h"

namespace qc {

void SendFileMail95(WindowSystem& ws, const std::string& to, const std::string& subject,
                    const std::string& body, const std::string& path, bool sendLater);
// Fills the mail and leaves it open, unqueued, under the caption "Compose Mail".
void SendNoticeMail95(WindowSystem& ws, const std::string& to, const std::string& subject,
                      const std::string& body);
// Presses the 1st icon (send) until the mail window has gone or an "Error" window is there.
void ComposeProbe95(WindowSystem& ws, const std::string& to, const std::string& subject,
                    const std::string& body);

}  // namespace qc
