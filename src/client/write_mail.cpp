#include "client/write_mail.h"

#include <string>

#include "base/pump.h"
#include "client/vocabulary.h"

namespace qc {
namespace {

// The n-th child of a class, hopping on from `from` (0: from the first child). A hop that gives 0
// makes the next one start from the first child again, as the platform does; nothing guards it.
Hwnd Hop(WindowSystem& ws, Hwnd parent, Hwnd from, const char* className, int hops) {
  Hwnd h = from;
  for (int n = 0; n < hops; ++n) h = ws.FindWindowExA(parent, h, className, std::nullopt);
  return h;
}

// The Write Mail window and the children that tell it is fully built.
struct WriteMailParts {
  Hwnd window = 0;
  Hwnd edit1 = 0, edit2 = 0, edit3 = 0;
  Hwnd rich = 0, combo = 0, fontcombo = 0;
  Hwnd icon1 = 0, icon2 = 0;
  Hwnd counted = 0;  // the 14th icon, or the 16th for the generation 5 probe
  Hwnd icon15 = 0, icon16 = 0, icon17 = 0;
};

// One pass of the build: the whole chain of lookups, counting icons on to `last` (0: no further
// than the counted icon).
WriteMailParts BuildWriteMail(WindowSystem& ws, Hwnd mdi, int counted, int last) {
  WriteMailParts p;
  p.window = ws.FindWindowExA(mdi, 0, aol::kChildClass, aol::kWriteMailCaption);
  p.edit1 = ws.FindWindowExA(p.window, 0, aol::kAolEditClass, std::nullopt);
  p.edit2 = ws.FindWindowExA(p.window, p.edit1, aol::kAolEditClass, std::nullopt);
  p.edit3 = ws.FindWindowExA(p.window, p.edit2, aol::kAolEditClass, std::nullopt);
  p.rich = ws.FindWindowExA(p.window, 0, aol::kRichTextClass, std::nullopt);
  p.combo = ws.FindWindowExA(p.window, 0, aol::kComboboxClass, std::nullopt);
  p.fontcombo = ws.FindWindowExA(p.window, 0, aol::kFontcomboClass, std::nullopt);
  p.icon1 = ws.FindWindowExA(p.window, 0, aol::kIconClass, std::nullopt);
  p.icon2 = ws.FindWindowExA(p.window, p.icon1, aol::kIconClass, std::nullopt);
  p.counted = Hop(ws, p.window, p.icon1, aol::kIconClass, counted - 1);
  Hwnd h = p.counted;
  for (int n = counted + 1; n <= last; ++n) {
    h = ws.FindWindowExA(p.window, h, aol::kIconClass, std::nullopt);
    if (n == 15) p.icon15 = h;
    if (n == 16) p.icon16 = h;
    if (n == 17) p.icon17 = h;
  }
  return p;
}

// The counted icon's handle with a 0 written behind it, compared with the font box: -1 when they
// differ, 0 when equal. The result must differ from the first icon's handle.
bool OddComparison(const WriteMailParts& p) {
  const long long widened = std::stoll(std::to_string(p.counted) + "0");
  const long long verdict = widened == static_cast<long long>(p.fontcombo) ? 0 : -1;
  return verdict != static_cast<long long>(p.icon1);
}

bool Ready(const WriteMailParts& p, Hwnd lastIcon, bool withLast) {
  if (p.window == 0 || p.edit1 == 0 || p.edit2 == 0 || p.edit3 == 0 || p.rich == 0 ||
      p.combo == 0) {
    return false;
  }
  if (p.counted == 0 || p.counted == p.icon2) return false;
  if (withLast && lastIcon == 0) return false;
  return OddComparison(p);
}

// Builds until the ready test holds; a pump at the head of each pass, no limit.
WriteMailParts BuildUntilReady(WindowSystem& ws, Hwnd mdi, int counted, int last) {
  WriteMailParts p;
  for (;;) {
    WaitEvents();
    p = BuildWriteMail(ws, mdi, counted, last);
    Hwnd lastIcon = last == 17 ? p.icon17 : (last == 15 ? p.icon15 : 0);
    if (Ready(p, lastIcon, last > counted)) return p;
  }
}

struct Frame {
  Hwnd frame = 0;
  Hwnd mdi = 0;
};

Frame FindFrame(WindowSystem& ws) {
  Frame f;
  f.frame = ws.FindWindowA(aol::kFrameClass, std::nullopt);
  f.mdi = ws.FindWindowExA(f.frame, 0, aol::kMdiClientUpperClass, std::nullopt);
  return f;
}

// Steps 1 to 3 of the generation 5 routines: the 2nd toolbar icon, clicked with a pump between
// the posts, then a bare wait for "Write Mail" and two pumps.
void OpenWriteMail50(WindowSystem& ws, const Frame& f) {
  Hwnd host = ws.FindWindowExA(f.frame, 0, aol::kToolbarHostClass, std::nullopt);
  Hwnd toolbar = ws.FindWindowExA(host, 0, aol::kToolbarClass, std::nullopt);
  Hwnd icon = Hop(ws, toolbar, 0, aol::kIconClass, 2);
  ws.PostMessageA(icon, aol::kWmLButtonDown, 0, LParam());
  DoEvents();
  ws.PostMessageA(icon, aol::kWmLButtonUp, 0, LParam());
  DoEvents();
  Hwnd window = 0;
  do {
    WaitEvents();
    window = ws.FindWindowExA(f.mdi, 0, aol::kChildClass, aol::kWriteMailCaption);
  } while (window == 0);
  DoEvents();
  DoEvents();
}

void Fill(WindowSystem& ws, Hwnd field, const std::string& text) {
  ws.SendMessageA(field, aol::kWmSetText, 0, LParam::Text(text));
}

// Steps 19 and 20: the "Send Later" confirmations are closed one by one.
void CloseSendLaterConfirmations(WindowSystem& ws, Hwnd mdi) {
  Pause(0.8);
  for (;;) {
    Hwnd confirmation = ws.FindWindowExA(mdi, 0, aol::kChildClass, aol::kSendLaterCaption);
    if (confirmation == 0) return;
    WaitEvents();
    confirmation = ws.FindWindowExA(mdi, 0, aol::kChildClass, aol::kSendLaterCaption);
    std::int32_t zero = 0;
    ws.SendMessageA(confirmation, aol::kWmClose, 0, LParam::Word(zero));
  }
}

// Steps 11 to 14, the same in both generations: the Attachments window's 1st icon opens the
// "Attach" dialog, which is filled and accepted until it has gone.
void AttachThroughDialog(WindowSystem& ws, Hwnd attachIcon1, const std::string& path) {
  Pause(0.25);
  ws.PostMessageA(attachIcon1, aol::kWmLButtonDown, 0, LParam());
  ws.PostMessageA(attachIcon1, aol::kWmLButtonUp, 0, LParam());
  Pause(0.25);
  int passes = 0;
  Hwnd dialog = 0;
  Hwnd edit = 0;
  Hwnd button2 = 0;
  do {
    WaitEvents();
    dialog = ws.FindWindowA(aol::kDialogClass, aol::kAttachCaption);
    edit = ws.FindWindowExA(dialog, 0, aol::kEditLowerClass, std::nullopt);
    Hwnd button1 = ws.FindWindowExA(dialog, 0, aol::kButtonLowerClass, std::nullopt);
    button2 = ws.FindWindowExA(dialog, button1, aol::kButtonLowerClass, std::nullopt);
    if (++passes == aol::kRepressWriteMail) {
      passes = 0;
      ws.PostMessageA(attachIcon1, aol::kWmLButtonDown, 0, LParam());
      ws.PostMessageA(attachIcon1, aol::kWmLButtonUp, 0, LParam());
    }
  } while (dialog == 0 || edit == 0 || button2 == 0);
  Pause(0.1);
  // A path that the dialog refuses is typed and pressed again for ever.
  do {
    WaitEvents();
    Fill(ws, edit, path);
    DoEvents();
    std::int32_t zero = 0;
    ws.SendMessageA(button2, aol::kWmKeyDown, aol::kKeySpace, LParam::Word(zero));
    DoEvents();
    ws.SendMessageA(button2, aol::kWmKeyUp, aol::kKeySpace, LParam::Word(zero));
    DoEvents();
    dialog = ws.FindWindowA(aol::kDialogClass, aol::kAttachCaption);
  } while (dialog != 0);
}

struct AttachmentsWindow {
  Hwnd window = 0;
  Hwnd icon1 = 0, icon2 = 0, icon3 = 0;
};

AttachmentsWindow FindAttachments(WindowSystem& ws) {
  AttachmentsWindow a;
  a.window = ws.FindWindowA(aol::kModalClass, aol::kAttachmentsCaption);
  a.icon1 = ws.FindWindowExA(a.window, 0, aol::kIconClass, std::nullopt);
  a.icon2 = ws.FindWindowExA(a.window, a.icon1, aol::kIconClass, std::nullopt);
  a.icon3 = ws.FindWindowExA(a.window, a.icon2, aol::kIconClass, std::nullopt);
  return a;
}

}  // namespace

void SendFileMail50(WindowSystem& ws, const std::string& to, const std::string& subject,
                    const std::string& body, const std::string& path, bool sendLater) {
  const Frame f = FindFrame(ws);
  OpenWriteMail50(ws, f);
  WriteMailParts p = BuildUntilReady(ws, f.mdi, 14, 17);
  Pause(0.2);
  Pause(0.2);
  Fill(ws, p.edit1, to);
  DoEvents();
  Fill(ws, p.edit3, subject);
  DoEvents();
  Fill(ws, p.rich, body);
  DoEvents();
  // From here on the window bears the subject, so the next mail's wait does not find it.
  Fill(ws, p.window, subject);

  Hwnd icon14 = Hop(ws, p.window, 0, aol::kIconClass, 14);
  Hwnd icon17 = Hop(ws, p.window, icon14, aol::kIconClass, 3);
  ws.PostMessageA(icon14, aol::kWmLButtonDown, 0, LParam());
  ws.PostMessageA(icon14, aol::kWmLButtonUp, 0, LParam());

  int passes = 0;
  AttachmentsWindow a;
  do {
    WaitEvents();
    a = FindAttachments(ws);
    if (++passes >= aol::kRepressWriteMail) {
      passes = 0;
      icon14 = Hop(ws, p.window, 0, aol::kIconClass, 14);
      ws.PostMessageA(icon14, aol::kWmLButtonDown, 0, LParam());
      ws.PostMessageA(icon14, aol::kWmLButtonUp, 0, LParam());
    }
  } while (a.window == 0 || a.icon1 == 0 || a.icon3 == 0);

  AttachThroughDialog(ws, a.icon1, path);

  DoEvents();
  Pause(0.2);
  ws.PostMessageA(a.icon3, aol::kWmLButtonDown, 0, LParam());
  DoEvents();
  ws.PostMessageA(a.icon3, aol::kWmLButtonUp, 0, LParam());
  Pause(0.2);

  passes = 0;
  Hwnd attachments = 0;
  do {
    WaitEvents();
    attachments = ws.FindWindowA(aol::kModalClass, aol::kAttachmentsCaption);
    if (++passes >= aol::kRepressWriteMail) {
      passes = 0;
      Hwnd third = Hop(ws, attachments, 0, aol::kIconClass, 3);
      ws.PostMessageA(third, aol::kWmLButtonDown, 0, LParam());
      DoEvents();
      ws.PostMessageA(third, aol::kWmLButtonUp, 0, LParam());
    }
  } while (attachments != 0);

  Pause(0.2);
  if (!sendLater) return;

  Hwnd mail = 0;
  do {
    WaitEvents();
    mail = ws.FindWindowExA(f.mdi, 0, aol::kChildClass, subject);
    DoEvents();
    ws.PostMessageA(icon17, aol::kWmLButtonDown, 0, LParam());
    DoEvents();
    ws.PostMessageA(icon17, aol::kWmLButtonUp, 0, LParam());
    Pause(0.1);
  } while (mail != 0);
  CloseSendLaterConfirmations(ws, f.mdi);
}

void SendFileMail40(WindowSystem& ws, const std::string& to, const std::string& subject,
                    const std::string& body, const std::string& path, bool sendLater) {
  const Frame f = FindFrame(ws);
  Hwnd host = ws.FindWindowExA(f.frame, 0, aol::kToolbarHostClass, std::nullopt);
  Hwnd toolbar = ws.FindWindowExA(host, 0, aol::kToolbarClass, std::nullopt);
  Hwnd opener = Hop(ws, toolbar, 0, aol::kIconClass, 2);
  ws.PostMessageA(opener, aol::kWmLButtonDown, 0, LParam());
  ws.PostMessageA(opener, aol::kWmLButtonUp, 0, LParam());
  DoEvents();

  WriteMailParts p = BuildUntilReady(ws, f.mdi, 14, 15);
  Fill(ws, p.edit1, to);
  DoEvents();
  Fill(ws, p.edit3, subject);
  DoEvents();
  Fill(ws, p.rich, body);
  DoEvents();
  Pause(0.5);

  // The window is found again and the whole chain repeated; the caption stays "Write Mail".
  p = BuildWriteMail(ws, f.mdi, 14, 15);
  Hwnd icon13 = Hop(ws, p.window, 0, aol::kIconClass, 13);
  std::int32_t zero = 0;
  ws.SendMessageA(icon13, aol::kWmLButtonDown, 0, LParam::Word(zero));
  DoEvents();
  ws.SendMessageA(icon13, aol::kWmLButtonUp, 0, LParam::Word(zero));

  int passes = 0;
  AttachmentsWindow a;
  do {
    WaitEvents();
    a = FindAttachments(ws);
    if (++passes == aol::kRepressWriteMail) {
      passes = 0;
      ws.PostMessageA(icon13, aol::kWmLButtonDown, 0, LParam());
      ws.PostMessageA(icon13, aol::kWmLButtonUp, 0, LParam());
    }
  } while (a.window == 0 || a.icon1 == 0 || a.icon3 == 0);

  AttachThroughDialog(ws, a.icon1, path);

  DoEvents();
  ws.PostMessageA(a.icon3, aol::kWmLButtonDown, 0, LParam());
  DoEvents();
  ws.PostMessageA(a.icon3, aol::kWmLButtonUp, 0, LParam());

  passes = 0;
  Hwnd attachments = 0;
  do {
    WaitEvents();
    attachments = ws.FindWindowA(aol::kModalClass, aol::kAttachmentsCaption);
    if (++passes == aol::kRepressWriteMail) {
      passes = 0;
      ws.PostMessageA(a.icon3, aol::kWmLButtonDown, 0, LParam());
      DoEvents();
      ws.PostMessageA(a.icon3, aol::kWmLButtonUp, 0, LParam());
    }
  } while (attachments != 0);

  Pause(0.2);
  if (!sendLater) return;

  // Nothing retitled the window: a client that keeps the caption gets one press.
  Hwnd mail = 0;
  do {
    WaitEvents();
    mail = ws.FindWindowExA(f.mdi, 0, aol::kChildClass, subject);
    DoEvents();
    ws.PostMessageA(p.icon15, aol::kWmLButtonDown, 0, LParam());
    DoEvents();
    ws.PostMessageA(p.icon15, aol::kWmLButtonUp, 0, LParam());
    Pause(0.1);
  } while (mail != 0);
  CloseSendLaterConfirmations(ws, f.mdi);
}

void SendNoticeMail50(WindowSystem& ws, const std::string& to, const std::string& subject,
                      const std::string& body) {
  const Frame f = FindFrame(ws);
  OpenWriteMail50(ws, f);
  BuildUntilReady(ws, f.mdi, 14, 17);
  Pause(0.5);
  WriteMailParts p = BuildWriteMail(ws, f.mdi, 14, 17);
  Pause(0.2);
  Fill(ws, p.edit1, to);
  DoEvents();
  Fill(ws, p.edit3, subject);
  DoEvents();
  Fill(ws, p.rich, body);
  DoEvents();
  Fill(ws, p.window, subject);
  Pause(0.2);

  // Always through the Send Later icon; no pause inside this loop.
  Hwnd mail = 0;
  do {
    WaitEvents();
    mail = ws.FindWindowExA(f.mdi, 0, aol::kChildClass, subject);
    DoEvents();
    ws.PostMessageA(p.icon17, aol::kWmLButtonDown, 0, LParam());
    DoEvents();
    ws.PostMessageA(p.icon17, aol::kWmLButtonUp, 0, LParam());
  } while (mail != 0);
  CloseSendLaterConfirmations(ws, f.mdi);
}

void WriteProbe50(WindowSystem& ws, const std::string& to, const std::string& subject,
                  const std::string& body) {
  const Frame f = FindFrame(ws);
  OpenWriteMail50(ws, f);
  WriteMailParts p = BuildUntilReady(ws, f.mdi, 16, 0);
  Pause(0.2);
  Fill(ws, p.edit1, to);
  DoEvents();
  Fill(ws, p.edit3, subject);
  DoEvents();
  Fill(ws, p.rich, body);

  for (;;) {
    WaitEvents();
    p = BuildWriteMail(ws, f.mdi, 16, 0);
    DoEvents();
    Hwnd error = ws.FindWindowExA(f.mdi, 0, aol::kChildClass, aol::kErrorCaption);
    DoEvents();
    if (p.window == 0 || error != 0) return;
    std::int32_t zero = 0;
    ws.SendMessageA(p.counted, aol::kWmLButtonDown, 0, LParam::Word(zero));
    DoEvents();
    ws.SendMessageA(p.counted, aol::kWmLButtonUp, 0, LParam::Word(zero));
  }
}

void WriteProbe40(WindowSystem& ws, const std::string& to, const std::string& subject,
                  const std::string& body) {
  const Frame f = FindFrame(ws);
  Hwnd host = ws.FindWindowExA(f.frame, 0, aol::kToolbarHostClass, std::nullopt);
  Hwnd toolbar = ws.FindWindowExA(host, 0, aol::kToolbarClass, std::nullopt);
  Hwnd opener = Hop(ws, toolbar, 0, aol::kIconClass, 2);
  ws.PostMessageA(opener, aol::kWmLButtonDown, 0, LParam());
  DoEvents();
  ws.PostMessageA(opener, aol::kWmLButtonUp, 0, LParam());
  DoEvents();
  Hwnd window = 0;
  do {
    WaitEvents();
    window = ws.FindWindowExA(f.mdi, 0, aol::kChildClass, aol::kWriteMailCaption);
  } while (window == 0);
  DoEvents();
  // Hidden for good: nothing here shows it again.
  ws.ShowWindow(window, aol::kHide);
  DoEvents();

  WriteMailParts p = BuildUntilReady(ws, f.mdi, 14, 0);
  Fill(ws, p.edit1, to);
  DoEvents();
  Fill(ws, p.edit3, subject);
  DoEvents();
  Fill(ws, p.rich, body);
  DoEvents();
  Pause(0.2);

  for (;;) {
    p = BuildWriteMail(ws, f.mdi, 14, 0);
    DoEvents();
    Hwnd error = ws.FindWindowExA(f.mdi, 0, aol::kChildClass, aol::kErrorCaption);
    DoEvents();
    if (p.window == 0 || error != 0) return;
    std::int32_t zero = 0;
    ws.SendMessageA(p.counted, aol::kWmLButtonDown, 0, LParam::Word(zero));
    DoEvents();
    ws.SendMessageA(p.counted, aol::kWmLButtonUp, 0, LParam::Word(zero));
    WaitEvents();
  }
}

}  // namespace qc
