#include "client/compose_mail.h"

#include "base/pump.h"
#include "client/client_commands.h"
#include "client/vocabulary.h"

namespace qc {
namespace {

struct ComposeParts {
  Hwnd frame = 0;
  Hwnd mdi = 0;
  Hwnd window = 0;
  Hwnd icon1 = 0, icon2 = 0, icon3 = 0;
  Hwnd edit1 = 0, edit2 = 0, edit3 = 0;
  Hwnd rich = 0;
};

// The opening shared by the three routines, up to the filled mail.
ComposeParts OpenAndFill(WindowSystem& ws, const std::string& to, const std::string& subject,
                         const std::string& body) {
  ComposeParts p;
  p.frame = ws.FindWindowA(aol::kFrameClass, std::nullopt);
  p.mdi = ws.FindWindowExA(p.frame, 0, aol::kMdiClientUpperClass, std::nullopt);
  // Looked up under the frame, where mail windows never stand: the menu entry is run even when a
  // Compose Mail window is open.
  if (ws.FindWindowExA(p.frame, 0, aol::kChildClass, aol::kComposeMailCaption) == 0) {
    RunMainMenu(ws, aol::kMenuComposeMail);
  }
  do {
    WaitEvents();
    p.window = ws.FindWindowExA(p.mdi, 0, aol::kChildClass, aol::kComposeMailCaption);
    p.icon1 = ws.FindWindowExA(p.window, 0, aol::kIconClass, std::nullopt);
    p.icon2 = ws.FindWindowExA(p.window, p.icon1, aol::kIconClass, std::nullopt);
    p.icon3 = ws.FindWindowExA(p.window, p.icon2, aol::kIconClass, std::nullopt);
    p.edit1 = ws.FindWindowExA(p.window, 0, aol::kAolEditClass, std::nullopt);
    p.edit2 = ws.FindWindowExA(p.window, p.edit1, aol::kAolEditClass, std::nullopt);
    p.edit3 = ws.FindWindowExA(p.window, p.edit2, aol::kAolEditClass, std::nullopt);
    p.rich = ws.FindWindowExA(p.window, 0, aol::kRichTextClass, std::nullopt);
  } while (p.window == 0 || p.edit3 == 0 || p.icon3 == 0 || p.edit1 == 0 || p.rich == 0);
  Pause(0.5);
  ws.SendMessageA(p.edit1, aol::kWmSetText, 0, LParam::Text(to));
  DoEvents();
  ws.SendMessageA(p.edit3, aol::kWmSetText, 0, LParam::Text(subject));
  DoEvents();
  ws.SendMessageA(p.rich, aol::kWmSetText, 0, LParam::Text(body));
  DoEvents();
  Pause(0.1);
  return p;
}

}  // namespace

void SendFileMail95(WindowSystem& ws, const std::string& to, const std::string& subject,
                    const std::string& body, const std::string& path, bool sendLater) {
  const ComposeParts p = OpenAndFill(ws, to, subject, body);
  ws.PostMessageA(p.icon3, aol::kWmLButtonDown, 0, LParam());
  DoEvents();
  ws.PostMessageA(p.icon3, aol::kWmLButtonUp, 0, LParam());
  DoEvents();
  Pause(0.25);

  int passes = 0;
  Hwnd dialog = 0;
  Hwnd edit = 0;
  Hwnd button2 = 0;
  do {
    WaitEvents();
    dialog = ws.FindWindowA(aol::kDialogClass, aol::kAttachFileCaption);
    edit = ws.FindWindowExA(dialog, 0, aol::kEditClass, std::nullopt);
    Hwnd button1 = ws.FindWindowExA(dialog, 0, aol::kButtonLowerClass, std::nullopt);
    button2 = ws.FindWindowExA(dialog, button1, aol::kButtonLowerClass, std::nullopt);
    if (++passes == aol::kRepressComposeMail) {
      passes = 0;
      ws.PostMessageA(p.icon3, aol::kWmLButtonDown, 0, LParam());
      ws.PostMessageA(p.icon3, aol::kWmLButtonUp, 0, LParam());
    }
  } while (dialog == 0 || edit == 0 || button2 == 0);
  DoEvents();

  // The lookup stands before the press, so one more pass follows the press that closed the
  // dialog; its messages go to windows that are gone.
  Hwnd kept = 0;
  do {
    WaitEvents();
    kept = ws.FindWindowA(aol::kDialogClass, aol::kAttachFileCaption);
    ws.SendMessageA(edit, aol::kWmSetText, 0, LParam::Text(path));
    DoEvents();
    std::int32_t zero = 0;
    ws.SendMessageA(button2, aol::kWmKeyDown, aol::kKeySpace, LParam::Word(zero));
    DoEvents();
    ws.SendMessageA(button2, aol::kWmKeyUp, aol::kKeySpace, LParam::Word(zero));
    DoEvents();
  } while (kept != 0);
  Pause(0.6);

  ws.SendMessageA(p.window, aol::kWmSetText, 0, LParam::Text(subject));
  if (sendLater) {
    // One press, no wait for the window to close.
    ws.PostMessageA(p.icon2, aol::kWmLButtonDown, 0, LParam());
    DoEvents();
    ws.PostMessageA(p.icon2, aol::kWmLButtonUp, 0, LParam());
    DoEvents();
  }
}

void SendNoticeMail95(WindowSystem& ws, const std::string& to, const std::string& subject,
                      const std::string& body) {
  // The notice is left filled and open under "Compose Mail": nothing queues it.
  OpenAndFill(ws, to, subject, body);
}

void ComposeProbe95(WindowSystem& ws, const std::string& to, const std::string& subject,
                    const std::string& body) {
  const ComposeParts p = OpenAndFill(ws, to, subject, body);
  ws.PostMessageA(p.icon1, aol::kWmLButtonDown, 0, LParam());
  DoEvents();
  ws.PostMessageA(p.icon1, aol::kWmLButtonUp, 0, LParam());
  DoEvents();
  // The press comes before the test: a click always follows the lookups that end the loop.
  for (;;) {
    Pause(0.1);
    Hwnd mail = ws.FindWindowExA(p.mdi, 0, aol::kChildClass, aol::kComposeMailCaption);
    Hwnd error = ws.FindWindowExA(p.mdi, 0, aol::kChildClass, aol::kErrorCaption);
    ws.PostMessageA(p.icon1, aol::kWmLButtonDown, 0, LParam());
    DoEvents();
    ws.PostMessageA(p.icon1, aol::kWmLButtonUp, 0, LParam());
    DoEvents();
    if (mail == 0 || error != 0) return;
  }
}

}  // namespace qc
