#pragma once
// The simulated client shown as real Win32 windows: the simulated client with its mail, chat and
// instant message windows, behind a WindowMirror. The client double program holds one in a
// process of its own; a test may hold one in its own process where the platform keeps something
// to the process (Wine keeps menus to their process).
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "sim/sim_chat.h"
#include "sim/sim_client.h"
#include "sim/sim_desktop.h"
#include "sim/sim_im.h"
#include "sim/sim_mail.h"
#include "sim/win32/window_mirror.h"

namespace qc::sim {

// The client double program's control window, created once the client's windows stand: the
// registered report message makes it write its report file (one line of Report() each) and
// return 1; WM_CLOSE ends the program.
inline constexpr char kDoubleControlClass[] = "QuillcastDouble";
inline constexpr char kDoubleReportMessage[] = "QuillcastDoubleReport";

// Words as on the double's command line:
//   generation=N  screen-name=NAME  full=ADDRESS  member=NAME  room=CAPTION  typed=TEXT
//   transfer      the file transfer window stands; transfer=minimised as upchat mode left it
//   never-ready   the Write Mail window never gets its last icon
//   vanish        the client ends as soon as a Write Mail window is complete
struct DoubleSetup {
  ClientOptions options;
  std::vector<std::string> full;
  std::vector<std::string> members;
  std::string room;
  std::string typed;
  enum class Transfer { kNone, kShown, kMinimised } transfer = Transfer::kNone;
  bool vanish = false;
};
// Unknown words are returned in `unknown`.
DoubleSetup ParseSetup(const std::vector<std::string>& words, std::string* unknown = nullptr);

// Control characters, quotes, backslashes and bytes above 127 as \r \n \t \" \\ and \xNN, so that
// a record is one line of plain ASCII that shows every byte.
std::string Escaped(std::string_view bytes);

class ClientDouble {
 public:
  // Without windows the double is the model alone, as a test drives it in one process.
  explicit ClientDouble(const DoubleSetup& setup, bool withWindows = true);
  ~ClientDouble();
  ClientDouble(const ClientDouble&) = delete;
  ClientDouble& operator=(const ClientDouble&) = delete;

  SimDesktop& desktop() { return desktop_; }
  WindowMirror* mirror() { return mirror_.get(); }

  // What the client holds, a line each: queued and sent mails, open mail windows, chat lines and
  // what stands in the chat input, instant messages, the instant message switch when off, the
  // transfer window's show state.
  std::vector<std::string> Holds() const;
  // Holds as "hold ..." lines, then "event kind: detail", "trace ..." (the messages the client
  // received) and "violation ..." (messages against the message table).
  std::vector<std::string> Report() const;

 private:
  void VanishWhenComplete();

  DoubleSetup setup_;
  SimDesktop desktop_;
  std::unique_ptr<SimClient> client_;
  std::unique_ptr<SimMail> mail_;
  std::unique_ptr<SimChat> chat_;
  std::unique_ptr<SimIm> ims_;
  std::unique_ptr<WindowMirror> mirror_;
  Hwnd room_ = 0;
  PumpHookId vanishHook_ = 0;
};

}  // namespace qc::sim
