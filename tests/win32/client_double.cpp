// A Win32 stand-in for the AOL client: the simulated client, shown as real windows.
//
// The simulated desktop stays the model. Every one of its windows gets a real window of the
// same class, caption, parent, sibling order and visibility, so that another process finds them
// with FindWindowA/FindWindowExA and reads their captions. Messages that reach a real window are
// handed to the model, sent ones inside the send and posted ones through the model's queue; after
// each, the real windows are brought level with the model again.
//
//   client_double --generation 5 --file C:\x.mp3 --room "Town Square" --full bob
//
// A control window of class "QuillcastDouble" answers two messages: kReportMessage writes what
// the client holds to the report file given with --report, WM_CLOSE ends the program.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "base/pump.h"
#include "client/vocabulary.h"
#include "sim/sim_chat.h"
#include "sim/sim_client.h"
#include "sim/sim_desktop.h"
#include "sim/sim_im.h"
#include "sim/sim_mail.h"
#include "tests/win32/double_protocol.h"

namespace qc::win32double {
namespace {

LRESULT CALLBACK MirrorProc(HWND h, UINT m, WPARAM w, LPARAM l);

// The messages the drivers send the client; everything else is the real window's own business.
bool IsClientMessage(UINT m) {
  switch (m) {
    case aol::kWmSetText: case aol::kWmGetText: case aol::kWmGetTextLength: case aol::kWmClose:
    case aol::kBmSetCheck: case aol::kWmKeyDown: case aol::kWmKeyUp: case aol::kWmChar:
    case aol::kWmCommand: case aol::kWmLButtonDown: case aol::kWmLButtonUp:
      return true;
    default:
      return false;
  }
}

class Mirror {
 public:
  explicit Mirror(sim::SimDesktop& model) : model_(model) {}

  // Creates, retitles, shows, hides, orders and destroys real windows until they match the model.
  void Sync() {
    if (model_.Revision() == revision_ && !dirty_) return;
    revision_ = model_.Revision();
    dirty_ = false;
    syncing_ = true;
    std::set<Hwnd> alive;
    SyncChildren(0, nullptr, alive);
    for (auto it = real_.begin(); it != real_.end();) {
      if (alive.count(it->first)) {
        ++it;
        continue;
      }
      if (::IsWindow(it->second)) ::DestroyWindow(it->second);
      model_of_.erase(it->second);
      text_.erase(it->first);
      it = real_.erase(it);
    }
    syncing_ = false;
  }

  LRESULT Handle(HWND h, UINT m, WPARAM w, LPARAM l) {
    auto found = model_of_.find(h);
    if (found != model_of_.end() && !syncing_ && IsClientMessage(m)) {
      LRESULT r = Forward(found->second, m, w, l);
      dirty_ = true;
      Sync();
      return r;
    }
    // The program hid or showed a window of the client itself.
    if (found != model_of_.end() && !syncing_ && m == WM_SHOWWINDOW && l == 0) {
      model_.ShowWindow(found->second, w ? SW_SHOWNORMAL : SW_HIDE);
      dirty_ = true;
    }
    auto sub = original_.find(h);
    if (sub != original_.end()) return ::CallWindowProcA(sub->second, h, m, w, l);
    return ::DefWindowProcA(h, m, w, l);
  }

 private:
  LRESULT Forward(Hwnd target, UINT m, WPARAM w, LPARAM l) {
    const auto wParam = static_cast<std::int32_t>(w);
    std::int32_t zero = 0;
    // A message of another thread that the sender waits for is a sent one; the rest came from
    // the queue.
    if (!::InSendMessage()) {
      return model_.PostMessageA(target, m, wParam, l ? LParam::Word(zero) : LParam());
    }
    if (m == aol::kWmSetText) {
      const char* text = reinterpret_cast<const char*>(l);
      return model_.SendMessageA(target, m, wParam, LParam::Text(text ? text : ""));
    }
    if (m == aol::kWmGetText) {
      if (w == 0 || l == 0) return 0;
      std::string buffer(w - 1, '\0');
      std::int32_t n = model_.SendMessageA(target, m, wParam, LParam::Buffer(buffer));
      std::size_t copied = std::min<std::size_t>(std::max(n, 0), buffer.size());
      std::memcpy(reinterpret_cast<char*>(l), buffer.data(), copied);
      reinterpret_cast<char*>(l)[copied] = '\0';
      return static_cast<LRESULT>(copied);
    }
    return model_.SendMessageA(target, m, wParam, l ? LParam::Word(zero) : LParam());
  }

  void SyncChildren(Hwnd parent, HWND realParent, std::set<Hwnd>& alive) {
    HWND previous = nullptr;
    for (Hwnd child : model_.Children(parent)) {
      alive.insert(child);
      HWND real = RealOf(child, parent, realParent);
      const std::string text = model_.TextOf(child);
      if (text_[child] != text) {
        ::DefWindowProcA(real, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
        text_[child] = text;
      }
      const bool shown = model_.Visible(child);
      if (static_cast<bool>(::GetWindowLongA(real, GWL_STYLE) & WS_VISIBLE) != shown) {
        ::ShowWindow(real, shown ? SW_SHOWNA : SW_HIDE);
      }
      // Lookups walk siblings front to back; keep the model's order.
      HWND expected = previous ? ::GetWindow(previous, GW_HWNDNEXT)
                               : (realParent ? ::GetWindow(realParent, GW_CHILD) : real);
      if (expected != real) {
        ::SetWindowPos(real, previous ? previous : HWND_TOP, 0, 0, 0, 0,
                       SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
      }
      previous = real;
      SyncChildren(child, real, alive);
    }
  }

  HWND RealOf(Hwnd child, Hwnd parent, HWND realParent) {
    auto it = real_.find(child);
    if (it != real_.end()) return it->second;
    const std::string cls = model_.ClassOf(child);
    const bool system = !cls.empty() && cls[0] == '#';  // the dialog and popup-menu classes
    if (!system) Register(cls);
    DWORD style = parent ? WS_CHILD : WS_POPUP;
    HWND real = ::CreateWindowExA(0, cls.c_str(), model_.TextOf(child).c_str(), style, 0, 0, 40,
                                  20, realParent, nullptr, ::GetModuleHandleA(nullptr), nullptr);
    if (system) {
      original_[real] = reinterpret_cast<WNDPROC>(
          ::SetWindowLongPtrA(real, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&MirrorProc)));
    }
    real_[child] = real;
    model_of_[real] = child;
    text_[child] = model_.TextOf(child);
    if (Hmenu bar = model_.GetMenu(child)) ::SetMenu(real, BuildMenu(bar));
    return real;
  }

  void Register(const std::string& cls) {
    std::string key = cls;
    std::transform(key.begin(), key.end(), key.begin(), ::tolower);
    if (!registered_.insert(key).second) return;
    WNDCLASSA wc{};
    wc.lpfnWndProc = &MirrorProc;
    wc.hInstance = ::GetModuleHandleA(nullptr);
    wc.lpszClassName = cls.c_str();
    ::RegisterClassA(&wc);
  }

  HMENU BuildMenu(Hmenu menu) {
    HMENU real = ::CreateMenu();
    const std::int32_t count = model_.GetMenuItemCount(menu);
    for (std::int32_t i = 0; i < count; ++i) {
      std::string text(255, '\0');
      std::int32_t n = model_.GetMenuStringA(menu, i, text, 256, 0x400);
      text.resize(static_cast<std::size_t>(std::max(n, 0)));
      if (Hmenu sub = model_.GetSubMenu(menu, i)) {
        ::AppendMenuA(real, MF_POPUP | MF_STRING, reinterpret_cast<UINT_PTR>(BuildMenu(sub)),
                      text.c_str());
      } else {
        ::AppendMenuA(real, MF_STRING, static_cast<UINT_PTR>(model_.GetMenuItemID(menu, i)),
                      text.c_str());
      }
    }
    return real;
  }

  sim::SimDesktop& model_;
  std::map<Hwnd, HWND> real_;
  std::map<HWND, Hwnd> model_of_;
  std::map<Hwnd, std::string> text_;
  std::map<HWND, WNDPROC> original_;
  std::set<std::string> registered_;
  std::uint64_t revision_ = ~std::uint64_t{0};
  bool dirty_ = true;
  bool syncing_ = false;
};

Mirror* gMirror = nullptr;

LRESULT CALLBACK MirrorProc(HWND h, UINT m, WPARAM w, LPARAM l) {
  return gMirror ? gMirror->Handle(h, m, w, l) : ::DefWindowProcA(h, m, w, l);
}

// Backslashes, tabs and line ends written as \\, \t, \r and \n: one record a line.
std::string Escaped(const std::string& text) {
  std::string out;
  for (char c : text) {
    switch (c) {
      case '\\': out += "\\\\"; break;
      case '\t': out += "\\t"; break;
      case '\r': out += "\\r"; break;
      case '\n': out += "\\n"; break;
      default: out += c;
    }
  }
  return out;
}

struct Client {
  sim::SimDesktop desktop;
  std::unique_ptr<sim::SimClient> client;
  std::unique_ptr<sim::SimMail> mail;
  std::unique_ptr<sim::SimChat> chat;
  std::unique_ptr<sim::SimIm> ims;
  Hwnd room = 0;
  std::string reportPath;
};

void WriteReport(const Client& c) {
  std::FILE* f = std::fopen(c.reportPath.c_str(), "wb");
  if (!f) return;
  auto line = [f](const std::string& kind, const std::vector<std::string>& fields) {
    std::string text = kind;
    for (const std::string& field : fields) text += "\t" + Escaped(field);
    text += "\n";
    std::fwrite(text.data(), 1, text.size(), f);
  };
  for (const std::string& t : c.desktop.TraceLines(sim::kTraceMessages)) line("trace", {t});
  auto mails = [&](const char* kind, const std::vector<sim::MailRecord>& list) {
    for (const sim::MailRecord& m : list) {
      std::string files;
      for (const std::string& a : m.attachments) files += (files.empty() ? "" : "|") + a;
      line(kind, {m.to, m.subject, m.body, files});
    }
  };
  mails("outgoing", c.mail->Outgoing());
  mails("sent", c.mail->Sent());
  if (c.room) {
    for (const std::string& l : c.chat->Transcript(c.room)) line("chat", {l});
  }
  for (const sim::ImRecord& im : c.ims->Sent()) line("im", {im.to, im.text});
  line("ims", {c.ims->ImsOn() ? "on" : "off"});
  for (const sim::ClientEvent& e : c.client->Events()) line("event", {e.kind, e.detail});
  std::fclose(f);
}

Client* gClient = nullptr;
UINT gReportMessage = 0;

LRESULT CALLBACK ControlProc(HWND h, UINT m, WPARAM w, LPARAM l) {
  if (m == gReportMessage && gClient) {
    WriteReport(*gClient);
    return 1;
  }
  if (m == WM_CLOSE) {
    ::PostQuitMessage(0);
    return 0;
  }
  return ::DefWindowProcA(h, m, w, l);
}

std::string Arg(int argc, char** argv, const char* name, const std::string& otherwise = "") {
  for (int i = 1; i + 1 < argc; ++i) {
    if (std::strcmp(argv[i], name) == 0) return argv[i + 1];
  }
  return otherwise;
}

std::vector<std::string> Args(int argc, char** argv, const char* name) {
  std::vector<std::string> values;
  for (int i = 1; i + 1 < argc; ++i) {
    if (std::strcmp(argv[i], name) == 0) values.push_back(argv[i + 1]);
  }
  return values;
}

}  // namespace
}  // namespace qc::win32double

int main(int argc, char** argv) {
  using namespace qc::win32double;
  Client c;
  c.reportPath = Arg(argc, argv, "--report", "client_double_report.txt");
  qc::sim::ClientOptions options;
  options.generation = std::atoi(Arg(argc, argv, "--generation", "5").c_str());
  options.screenName = Arg(argc, argv, "--screen-name", options.screenName);
  c.client = std::make_unique<qc::sim::SimClient>(c.desktop, options);
  c.mail = std::make_unique<qc::sim::SimMail>(*c.client);
  c.chat = std::make_unique<qc::sim::SimChat>(*c.client);
  c.ims = std::make_unique<qc::sim::SimIm>(*c.client);
  for (const std::string& file : Args(argc, argv, "--file")) c.mail->AddFile(file);
  for (const std::string& full : Args(argc, argv, "--full")) c.mail->MarkFull(full);
  const std::string room = Arg(argc, argv, "--room");
  if (!room.empty()) c.room = c.chat->OpenRoom(room);
  gClient = &c;

  Mirror mirror(c.desktop);
  gMirror = &mirror;
  gReportMessage = ::RegisterWindowMessageA(kReportMessageName);
  WNDCLASSA wc{};
  wc.lpfnWndProc = &ControlProc;
  wc.hInstance = ::GetModuleHandleA(nullptr);
  wc.lpszClassName = kControlClass;
  ::RegisterClassA(&wc);
  mirror.Sync();
  // Created last: the harness waits for it and then finds the client complete.
  ::CreateWindowExA(0, kControlClass, "", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                    wc.hInstance, nullptr);

  for (;;) {
    ::MsgWaitForMultipleObjectsEx(0, nullptr, 2, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    // The model takes its turn (queued messages, due reactions) after every message: a program
    // that posts faster than the loop empties the queue must not starve the client's reactions.
    MSG msg;
    do {
      bool got = ::PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE);
      if (got && msg.message == WM_QUIT) {
        gMirror = nullptr;
        return 0;
      }
      if (got) {
        ::TranslateMessage(&msg);
        ::DispatchMessageA(&msg);
      }
      qc::DoEvents();
      mirror.Sync();
      if (!got) break;
    } while (true);
  }
}
