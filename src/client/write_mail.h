#pragma once
// The Write Mail window of client generations 5 and 4: one mail filled in, a file attached and,
// when told, handed to the send-later queue; a notice mail without attachment; and the probes that
// make the client judge a list of addresses.
//
// Each routine is a fixed script. Which messages are posted and which sent, where events are
// pumped, which icon is counted and when a press is repeated are what each generation is known to
// take, and they differ on purpose between the routines. No wait gives up; the re-press waits click
// the opening icon again every 18000 passes.
#include <string>

#include "client/window_system.h"

namespace qc {

// Generation 5. The window is retitled with the subject before the file is attached. With
// sendLater the 17th icon is pressed until the mail window is gone and the "Send Later"
// confirmations are closed; without it the mail stays open under its subject.
void SendFileMail50(WindowSystem& ws, const std::string& to, const std::string& subject,
                    const std::string& body, const std::string& path, bool sendLater);
// Generation 4: no retitle, the 13th icon attaches (a sent click), the 15th queues.
void SendFileMail40(WindowSystem& ws, const std::string& to, const std::string& subject,
                    const std::string& body, const std::string& path, bool sendLater);
// Generation 5: a mail without attachment, always queued through the Send Later icon.
void SendNoticeMail50(WindowSystem& ws, const std::string& to, const std::string& subject,
                      const std::string& body);
// Generation 5: fills a mail and presses the 16th icon (send) until the mail window has gone or
// an "Error" window is there. Leaves both for the caller.
void WriteProbe50(WindowSystem& ws, const std::string& to, const std::string& subject,
                  const std::string& body);
// Generation 4: as WriteProbe50 with the 14th icon, and the mail window hidden once it appears.
void WriteProbe40(WindowSystem& ws, const std::string& to, const std::string& subject,
                  const std::string& body);

}  // namespace qc
