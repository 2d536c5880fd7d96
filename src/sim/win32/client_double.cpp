#include "sim/win32/client_double.h"

#include <cstdio>

namespace qc::sim {
namespace {

// The Write Mail window's last icon: with it the window is complete.
constexpr int kWriteMailIcons = 17;

std::string Quoted(const std::string& text) { return "\"" + Escaped(text) + "\""; }

std::string MailLine(const std::string& head, const MailRecord& r) {
  std::string files;
  for (const std::string& f : r.attachments) files += (files.empty() ? "" : " ") + f;
  return head + " to " + Quoted(r.to) + " subject " + Quoted(r.subject) + " body " +
         Quoted(r.body) + " files " + Quoted(files);
}

}  // namespace

DoubleSetup ParseSetup(const std::vector<std::string>& words, std::string* unknown) {
  DoubleSetup s;
  for (const std::string& word : words) {
    const std::size_t eq = word.find('=');
    const std::string key = word.substr(0, eq);
    const std::string value = eq == std::string::npos ? "" : word.substr(eq + 1);
    if (key == "generation") {
      s.options.generation = std::stoi(value);
    } else if (key == "screen-name") {
      s.options.screenName = value;
    } else if (key == "full") {
      s.full.push_back(value);
    } else if (key == "member") {
      s.members.push_back(value);
    } else if (key == "room") {
      s.room = value;
    } else if (key == "typed") {
      s.typed = value;
    } else if (key == "transfer") {
      s.transfer = value.empty() ? DoubleSetup::Transfer::kShown : DoubleSetup::Transfer::kMinimised;
    } else if (key == "never-ready") {
      s.options.lastPart = "last-icon";
      s.options.lastDelay = 1e9;
    } else if (key == "vanish") {
      s.vanish = true;
    } else if (unknown) {
      *unknown += word + " ";
    }
  }
  return s;
}

std::string Escaped(std::string_view bytes) {
  std::string out;
  for (const char c : bytes) {
    const auto b = static_cast<unsigned char>(c);
    if (c == '\r') {
      out += "\\r";
    } else if (c == '\n') {
      out += "\\n";
    } else if (c == '\t') {
      out += "\\t";
    } else if (c == '"' || c == '\\') {
      out += '\\';
      out += c;
    } else if (b < 0x20 || b > 0x7E) {
      char hex[8];
      std::snprintf(hex, sizeof hex, "\\x%02X", b);
      out += hex;
    } else {
      out += c;
    }
  }
  return out;
}

ClientDouble::ClientDouble(const DoubleSetup& setup, bool withWindows) : setup_(setup) {
  client_ = std::make_unique<SimClient>(desktop_, setup.options);
  mail_ = std::make_unique<SimMail>(*client_);
  chat_ = std::make_unique<SimChat>(*client_);
  ims_ = std::make_unique<SimIm>(*client_);
  for (const std::string& a : setup.full) mail_->MarkFull(a);
  for (const std::string& m : setup.members) ims_->AddMember(m);
  if (!setup.room.empty()) {
    room_ = chat_->OpenRoom(setup.room);
    if (!setup.typed.empty()) chat_->Type(room_, setup.typed);
  }
  if (setup.transfer != DoubleSetup::Transfer::kNone) {
    const Hwnd transfer = chat_->StartTransfer("Artist - Title.mp3");
    if (setup.transfer == DoubleSetup::Transfer::kMinimised) {
      desktop_.ShowWindow(transfer, SW_MINIMIZE);
    }
  }
  if (setup.vanish) VanishWhenComplete();
  if (withWindows) mirror_ = std::make_unique<WindowMirror>(desktop_);
}

ClientDouble::~ClientDouble() {
  if (vanishHook_) RemovePumpHook(vanishHook_);
  mirror_.reset();
  ims_.reset();
  chat_.reset();
  mail_.reset();
}

void ClientDouble::VanishWhenComplete() {
  vanishHook_ = AddPumpHook([this] {
    for (const Hwnd mail : mail_->MailWindows()) {
      if (mail_->MailIcon(mail, kWriteMailIcons) == 0) continue;
      RemovePumpHook(vanishHook_);
      vanishHook_ = 0;
      client_->Quit();
      return;
    }
  });
}

std::vector<std::string> ClientDouble::Holds() const {
  std::vector<std::string> out;
  for (const MailRecord& r : mail_->Outgoing()) out.push_back(MailLine("queued", r));
  for (const MailRecord& r : mail_->Sent()) out.push_back(MailLine("sent", r));
  for (const Hwnd h : mail_->MailWindows()) {
    out.push_back(MailLine("open " + Quoted(desktop_.TextOf(h)), mail_->Fields(h)));
  }
  if (room_ != 0 && desktop_.Exists(room_)) {
    for (const std::string& line : chat_->Transcript(room_)) out.push_back("chat " + Quoted(line));
    const std::string input = desktop_.TextOf(chat_->Input(room_));
    if (!input.empty()) out.push_back("input " + Quoted(input));
  }
  for (const ImRecord& im : ims_->Sent()) {
    out.push_back("im to " + Quoted(im.to) + " text " + Quoted(im.text));
  }
  if (!ims_->ImsOn()) out.push_back("ims off");
  if (const Hwnd t = chat_->Transfer(); t != 0) {
    out.push_back(std::string("transfer ") + (desktop_.Visible(t) ? "shown" : "hidden") +
                  (desktop_.Minimised(t) ? " minimised" : ""));
  }
  return out;
}

std::vector<std::string> ClientDouble::Report() const {
  std::vector<std::string> out;
  for (const std::string& h : Holds()) out.push_back("hold " + h);
  for (const ClientEvent& e : client_->Events()) {
    out.push_back("event " + Escaped(e.kind + ": " + e.detail));
  }
  for (const std::string& t : desktop_.TraceLines(kTraceMessages)) {
    out.push_back("trace " + Escaped(t));
  }
  for (const std::string& v : desktop_.Violations()) out.push_back("violation " + Escaped(v));
  return out;
}

}  // namespace qc::sim
