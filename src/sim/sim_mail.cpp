#include "sim/sim_mail.h"

#include "base/cp1252.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

#include "base/cp1252.h"
#include "client/vocabulary.h"

namespace qc::sim {
namespace {

// Addresses are compared as the client does: without regard to case or blanks.
std::string Normal(const std::string& address) {
  std::string out;
  for (char c : address) {
    if (c != ' ') out += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  }
  return out;
}

std::string Trim(const std::string& s) {
  auto b = s.find_first_not_of(' ');
  if (b == std::string::npos) return "";
  return s.substr(b, s.find_last_not_of(' ') - b + 1);
}

// The addresses of an address field: comma-separated, blind copies in parentheses.
std::vector<std::string> Addresses(const std::string& field) {
  std::vector<std::string> out;
  std::size_t start = 0;
  while (start <= field.size()) {
    std::size_t comma = field.find(',', start);
    if (comma == std::string::npos) comma = field.size();
    std::string a = Trim(field.substr(start, comma - start));
    if (a.size() >= 2 && a.front() == '(' && a.back() == ')') a = Trim(a.substr(1, a.size() - 2));
    if (!a.empty()) out.push_back(a);
    start = comma + 1;
  }
  return out;
}

constexpr char kQuestionText[] = "Would you like to save this mail before closing it?";

}  // namespace

SimMail::SimMail(SimClient& client) : client_(client), desktop_(client.desktop()) {
  client_.OnToolbarIcon(2, Guarded([this] {
    if (client_.generation() >= 4) OpenWriteMail();
  }));
  client_.OnMenuItem(aol::kMenuComposeMail, Guarded([this] { OpenComposeMail(); }));
  // The client's outgoing list shows the queued mails, one subject a line.
  for (const char* entry : {aol::kMenuOutgoingMail, kPopupOutgoingEntry}) {
    client_.OnMenuItem(entry, Guarded([this] {
      client_.OpenOutgoingMailList();
      ShowOutgoing();
    }));
  }
}

void SimMail::ShowOutgoing() {
  Hwnd list = desktop_.ChildOfClass(client_.Document(kOutgoingListCaption), aol::kListboxClass);
  if (list == 0) return;
  std::string text;
  for (const MailRecord& r : outgoing_) text += (text.empty() ? "" : "\r\n") + r.subject;
  desktop_.SetText(list, text);
}

SimMail::~SimMail() {
  alive_.reset();
  client_.OnToolbarIcon(2, nullptr);
  client_.OnMenuItem(aol::kMenuComposeMail, nullptr);
  for (const char* entry : {aol::kMenuOutgoingMail, kPopupOutgoingEntry}) {
    client_.OnMenuItem(entry, [c = &client_] { c->OpenOutgoingMailList(); });
  }
  std::vector<Hwnd> open;
  for (const auto& [window, mail] : mails_) open.push_back(window);
  for (const auto& [window, files] : pending_) open.push_back(window);
  for (Hwnd h : open) desktop_.DestroyWindow(h);
}

std::function<void()> SimMail::Guarded(std::function<void()> action) {
  std::weak_ptr<int> alive = alive_;
  return [alive, action = std::move(action)] {
    if (alive.lock()) action();
  };
}

void SimMail::Click(Hwnd control, const std::string& key, const std::string& role,
                    std::function<void()> action) {
  client_.OnClick(control, key, Guarded([this, key, role, action = std::move(action)] {
    if (auto it = ignore_.find(key); it != ignore_.end() && it->second > 0) {
      --it->second;
      client_.Log(kEventMailClickIgnored, key);
      return;
    }
    if (!role.empty()) {
      ++presses_[role];
      client_.Log(kEventMailIcon, role);
    }
    action();
  }));
}

void SimMail::SendIcon(Hwnd icon, Hwnd mail) {
  auto pressed = std::make_shared<bool>(false);
  std::weak_ptr<int> alive = alive_;
  desktop_.SetHandler(icon, [this, alive, mail, pressed](
                                const SimMessage& m) -> std::optional<std::int32_t> {
    if (!alive.lock()) return std::nullopt;
    if (m.message == aol::kWmLButtonDown) {
      *pressed = true;
      return 0;
    }
    if (m.message != aol::kWmLButtonUp) return std::nullopt;
    if (!*pressed) return 0;
    *pressed = false;
    auto it = mails_.find(mail);
    // A mail on its way, or with its report open, is busy: the press is lost.
    if (it == mails_.end() || it->second.sending) {
      client_.Log(kEventClickIgnored, "Send");
      return 0;
    }
    if (auto ig = ignore_.find("Send"); ig != ignore_.end() && ig->second > 0) {
      --ig->second;
      client_.Log(kEventMailClickIgnored, "Send");
      return 0;
    }
    it->second.sending = true;
    client_.Log(kEventClick, "Send");
    ++presses_["send"];
    client_.Log(kEventMailIcon, "send");
    client_.Later("Send", Guarded([this, mail] { Send(mail); }));
    return 0;
  });
}

// ---------------------------------------------------------------- configuration

void SimMail::MarkFull(const std::string& address) { full_.insert(Normal(address)); }
void SimMail::MarkUnknown(const std::string& address) { unknown_.insert(Normal(address)); }
void SimMail::AddFile(const std::string& path) { files_.insert(path); }

bool SimMail::FileAccepted(const std::string& path) {
  if (refusePaths_ > 0) {
    --refusePaths_;
    return false;
  }
  if (files_.count(path)) return true;
  // The path arrives in the code page; the host names files in UTF-8 or in bytes of their own.
  std::error_code ec;
  return !path.empty() && (std::filesystem::is_regular_file(path, ec) ||
                           std::filesystem::is_regular_file(Cp1252ToUtf8(path), ec));
}

std::string SimMail::BadReason(const std::string& address) const {
  const std::string a = Normal(address);
  if (a == "-") return kReasonInvalid;
  if (full_.count(a)) return kReasonFull;
  if (unknown_.count(a)) return kReasonUnknown;
  return "";
}

// ---------------------------------------------------------------- inspection

std::vector<Hwnd> SimMail::MailWindows() const {
  std::vector<Hwnd> out;
  for (Hwnd h : desktop_.Children(client_.mdi())) {
    if (mails_.count(h)) out.push_back(h);
  }
  return out;
}

MailRecord SimMail::Fields(Hwnd mail) const {
  auto it = mails_.find(mail);
  if (it == mails_.end()) return {};
  const Mail& m = it->second;
  return {desktop_.TextOf(m.to), desktop_.TextOf(m.subject), desktop_.TextOf(m.body),
          m.attachments};
}

Hwnd SimMail::MailIcon(Hwnd mail, int n) const {
  return desktop_.ChildOfClass(mail, aol::kIconClass, n);
}

int SimMail::Presses(const std::string& role) const {
  auto it = presses_.find(role);
  return it == presses_.end() ? 0 : it->second;
}

Hwnd SimMail::TopLevel(const std::string& className, const std::string& caption) const {
  for (Hwnd h : desktop_.Children(0)) {
    if (desktop_.ClassOf(h) == className && desktop_.TextOf(h) == caption) return h;
  }
  return 0;
}

bool SimMail::Filled(Hwnd mail) const {
  MailRecord r = Fields(mail);
  return !r.to.empty() || !r.subject.empty() || !r.body.empty() || !r.attachments.empty();
}

// ---------------------------------------------------------------- Write Mail (4 and 5)

void SimMail::OpenWriteMail() {
  Hwnd w = client_.OpenDocument(aol::kWriteMailCaption);
  if (w == 0) return;
  client_.Log(kEventMailOpened, aol::kWriteMailCaption);
  mails_[w];
  desktop_.OnDestroy(w, Guarded([this, w] { mails_.erase(w); }));
  desktop_.SetHandler(w, [this, w](const SimMessage& msg) -> std::optional<std::int32_t> {
    if (msg.message != aol::kWmClose) return std::nullopt;
    AskOnClose(w);
    return 0;
  });
  const bool five = client_.generation() == 5;
  const int attach = five ? 14 : 13;
  const int send = five ? 16 : 14;
  const int later = five ? 17 : 15;
  // Built part by part, the icons before the fields; generation 5 adds its 17th icon last,
  // generation 4 its formatting boxes.
  std::vector<SimClient::Part> parts = {
      // Eleven icons alone make the 14th hop land on the 2nd icon again.
      {"icons", Guarded([this, w] { client_.AddControls(w, aol::kIconClass, 11); })},
      {"more-icons",
        Guarded([this, w, attach, send, later] {
          client_.AddControls(w, aol::kIconClass, later - 12);
          Click(MailIcon(w, attach), "Attachments", "attach", [this, w] { OpenAttachments(w); });
          SendIcon(MailIcon(w, send), w);
        })},
      {"edits",
        Guarded([this, w] {
          Mail& m = mails_[w];
          client_.AddControl(w, aol::kStaticClass, "Send To:");
          m.to = client_.AddControl(w, aol::kAolEditClass);
          client_.AddControl(w, aol::kStaticClass, "Copy To:");
          client_.AddControl(w, aol::kAolEditClass);
        })},
      {"subject",
        Guarded([this, w] {
          client_.AddControl(w, aol::kStaticClass, "Subject:");
          mails_[w].subject = client_.AddControl(w, aol::kAolEditClass);
        })},
       {"rich", Guarded([this, w] { mails_[w].body = Body(w); })},
       {"combo",
        Guarded([this, w] {
          client_.AddControl(w, aol::kComboboxClass);
          client_.AddControl(w, aol::kFontcomboClass);
        })},
       {"last-icon",
        Guarded([this, w, later] {
          client_.AddControl(w, aol::kIconClass);
          Click(MailIcon(w, later), "Send Later", "send later", [this, w] { SendLater(w); });
        })}};
  if (!five) std::rotate(parts.begin() + 2, parts.end() - 1, parts.end());
  client_.BuildInStages(w, "Write Mail build", std::move(parts),
                        Guarded([this, w] { ClearFields(w); }));
}

Hwnd SimMail::Body(Hwnd mail) {
  Hwnd body = client_.AddControl(mail, aol::kRichTextClass);
  // The older Write Mail takes a moment over a body it is given.
  desktop_.SetHandler(body, [this](const SimMessage& m) -> std::optional<std::int32_t> {
    if (m.message == aol::kWmSetText) client_.BusyAfter("mail body");
    return std::nullopt;
  });
  return body;
}

void SimMail::ClearFields(Hwnd mail) {
  // The client sets its form up once it is built: what was typed before is gone.
  const Mail& m = mails_[mail];
  for (Hwnd field : {m.to, m.subject, m.body}) desktop_.SetText(field, "");
}

void SimMail::OpenAttachments(Hwnd mail) {
  if (!desktop_.Exists(mail)) return;
  for (const auto& [window, files] : pending_) {
    if (desktop_.Exists(window)) return;  // one Attachments window at a time
  }
  Hwnd a = client_.OpenTopLevel(aol::kModalClass, aol::kAttachmentsCaption, client_.frame());
  client_.BusyAfter("Attachments");
  pending_[a] = {};
  client_.AddControl(a, aol::kListboxClass);
  Hwnd choose = client_.AddControl(a, aol::kIconClass);
  Hwnd clear = client_.AddControl(a, aol::kIconClass);
  Hwnd ok = client_.AddControl(a, aol::kIconClass);
  desktop_.OnDestroy(a, Guarded([this, a] { pending_.erase(a); }));
  Click(choose, "Attach", "", [this, mail, a] {
    if (desktop_.Exists(a)) OpenAttachDialog(mail, a, aol::kAttachCaption);
  });
  // Detaches what was chosen: never pressed by the driver.
  Click(clear, "Attachments clear", "detach", [this, a] { pending_[a].clear(); });
  Click(ok, "Attachments done", "", [this, mail, a] {
    if (!desktop_.Exists(a)) return;
    if (auto it = mails_.find(mail); it != mails_.end()) {
      for (const std::string& f : pending_[a]) it->second.attachments.push_back(f);
    }
    desktop_.DestroyWindow(a);
  });
}

// ---------------------------------------------------------------- the file dialogs

void SimMail::OpenAttachDialog(Hwnd mail, Hwnd attachments, const std::string& caption) {
  if (TopLevel(aol::kDialogClass, caption)) return;  // already open
  Hwnd dialog = client_.OpenTopLevel(aol::kDialogClass, caption,
                                     attachments != 0 ? attachments : client_.frame());
  client_.AddControl(dialog, "Static", "File name:");
  Hwnd edit = client_.AddControl(dialog, aol::kEditClass);
  Hwnd cancel = client_.AddControl(dialog, aol::kButtonClass, "Cancel");
  Hwnd open = client_.AddControl(dialog, aol::kButtonClass, "&Open");
  client_.OnSpacePress(cancel, caption, Guarded([this, dialog] {
    desktop_.DestroyWindow(dialog);
  }));
  client_.OnSpacePress(open, caption, Guarded([this, mail, attachments, dialog, edit] {
    AcceptPath(mail, attachments, dialog, edit);
  }));
}

void SimMail::AcceptPath(Hwnd mail, Hwnd attachments, Hwnd dialog, Hwnd edit) {
  if (!desktop_.Exists(dialog)) return;
  const std::string path = desktop_.TextOf(edit);
  if (!FileAccepted(path)) {
    // As a real dialog: it stays open with the path in its field.
    client_.Log(kEventPathRefused, path);
    return;
  }
  client_.Log(kEventAttached, path);
  if (attachments != 0) {
    pending_[attachments].push_back(path);
  } else if (auto it = mails_.find(mail); it != mails_.end()) {
    it->second.attachments.push_back(path);
  }
  desktop_.DestroyWindow(dialog);
  client_.BusyAfter(attachments != 0 ? "Attach done" : "Attach File done");
}

// ---------------------------------------------------------------- Compose Mail (3)

void SimMail::OpenComposeMail() {
  Hwnd w = client_.OpenDocument(aol::kComposeMailCaption);
  if (w == 0) return;
  client_.Log(kEventMailOpened, aol::kComposeMailCaption);
  mails_[w].compose = true;
  desktop_.OnDestroy(w, Guarded([this, w] { mails_.erase(w); }));
  client_.BuildInStages(
      w, "Compose Mail build",
      {{"icons",
        Guarded([this, w] {
          Hwnd send = client_.AddControl(w, aol::kIconClass);
          Hwnd later = client_.AddControl(w, aol::kIconClass);
          Hwnd attach = client_.AddControl(w, aol::kIconClass);
          SendIcon(send, w);
          Click(later, "Send Later", "send later", [this, w] { SendLater(w); });
          Click(attach, "Attach File", "attach", [this, w] {
            if (desktop_.Exists(w)) OpenAttachDialog(w, 0, aol::kAttachFileCaption);
          });
        })},
       {"edits",
        Guarded([this, w] {
          Mail& m = mails_[w];
          client_.AddControl(w, aol::kStaticClass, "To:");
          m.to = client_.AddControl(w, aol::kAolEditClass);
          client_.AddControl(w, aol::kStaticClass, "CC:");
          client_.AddControl(w, aol::kAolEditClass);
        })},
       {"subject",
        Guarded([this, w] {
          client_.AddControl(w, aol::kStaticClass, "Subject:");
          mails_[w].subject = client_.AddControl(w, aol::kAolEditClass);
        })},
       {"rich", Guarded([this, w] { mails_[w].body = client_.AddControl(w, aol::kRichTextClass); })}},
      Guarded([this, w] { ClearFields(w); }));
}

// ---------------------------------------------------------------- sending

void SimMail::SendLater(Hwnd mail) {
  if (!desktop_.Exists(mail) || !mails_.count(mail)) return;
  MailRecord r = Fields(mail);
  const bool compose = mails_[mail].compose;
  outgoing_.push_back(r);
  client_.Log(kEventMailQueued, r.subject);
  ShowOutgoing();
  desktop_.DestroyWindow(mail);
  if (!compose && confirmSendLater_) {
    Hwnd c = client_.OpenDocument(aol::kSendLaterCaption);
    client_.AddControl(c, aol::kStaticClass, "Your mail has been placed in the queue.");
    Hwnd ok = client_.AddControl(c, aol::kIconClass);
    Click(ok, "Send Later ok", "", [this, c] { desktop_.DestroyWindow(c); });
  }
}

void SimMail::Send(Hwnd mail) {
  if (!desktop_.Exists(mail) || !mails_.count(mail)) return;
  MailRecord r = Fields(mail);
  std::string report;
  std::string bad;
  for (const std::string& a : Addresses(r.to)) {
    std::string reason = BadReason(a);
    if (reason.empty()) continue;
    if (!report.empty()) report += "\r\n";
    report += a + " - " + reason;
    bad += (bad.empty() ? "" : ", ") + a;
  }
  if (!bad.empty()) {
    // The mail stays open; the client names each bad address, one a line.
    client_.Log(kEventMailRefused, bad);
    Hwnd e = client_.OpenDocument(aol::kErrorCaption);
    desktop_.OnDestroy(e, Guarded([this, mail] {
      if (auto it = mails_.find(mail); it != mails_.end()) it->second.sending = false;
    }));
    client_.AddControl(e, aol::kStaticClass, "The following addresses could not be used:");
    client_.AddControl(e, aol::kViewClass, emptyErrorReport_ ? "" : report);
    Hwnd ok = client_.AddControl(e, aol::kIconClass);
    Click(ok, "Error ok", "", [this, e] { desktop_.DestroyWindow(e); });
    return;
  }
  sent_.push_back(r);
  client_.Log(kEventMailSent, r.subject);
  desktop_.DestroyWindow(mail);
}

void SimMail::AskOnClose(Hwnd mail) {
  if (!desktop_.Exists(mail)) return;
  if (!Filled(mail)) {
    desktop_.DestroyWindow(mail);
    return;
  }
  if (TopLevel(aol::kDialogClass, aol::kAolDialogCaption)) return;  // asking already
  client_.ShowDialog(aol::kAolDialogCaption, kQuestionText, {"&Yes", aol::kNoCaption, "Cancel"},
                     [this, alive = std::weak_ptr<int>(alive_), mail](const std::string& answer) {
                       if (!alive.lock() || !desktop_.Exists(mail)) return;
                       if (answer == "&Yes") {
                         SendLater(mail);
                       } else if (answer == aol::kNoCaption) {
                         client_.Log(kEventMailDiscarded, Fields(mail).subject);
                         desktop_.DestroyWindow(mail);
                       }
                     });
}

}  // namespace qc::sim
