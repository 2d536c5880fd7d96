#include "sim/win32/window_mirror.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <vector>

#include "client/vocabulary.h"

namespace qc::sim {
namespace {

constexpr char kMirrorProperty[] = "QuillcastMirror";
constexpr char kStagingClass[] = "QuillcastStaging";

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

LRESULT CALLBACK MirrorProc(HWND h, UINT m, WPARAM w, LPARAM l) {
  if (auto* mirror = static_cast<WindowMirror*>(::GetPropA(h, kMirrorProperty))) {
    return mirror->Handle(h, m, w, l);
  }
  return ::DefWindowProcA(h, m, w, l);
}

HINSTANCE Instance() { return ::GetModuleHandleA(nullptr); }

// True when b stands somewhere behind a among their siblings.
bool Behind(HWND a, HWND b) {
  for (HWND h = ::GetWindow(a, GW_HWNDNEXT); h != nullptr; h = ::GetWindow(h, GW_HWNDNEXT)) {
    if (h == b) return true;
  }
  return false;
}

constexpr UINT kQuietPlacing = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOOWNERZORDER;

// Longer than one pass of a wait loop's lookups takes, on a loaded machine too.
constexpr DWORD kLookupMilliseconds = 30;

}  // namespace

WindowMirror::WindowMirror(SimDesktop& model) : model_(model) {
  WNDCLASSA wc{};
  wc.lpfnWndProc = &::DefWindowProcA;
  wc.hInstance = Instance();
  wc.lpszClassName = kStagingClass;
  ::RegisterClassA(&wc);
  staging_ = ::CreateWindowExA(0, kStagingClass, "", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                               Instance(), nullptr);
  hook_ = AddPumpHook([this] { Sync(); });
  Sync();
}

WindowMirror::~WindowMirror() {
  RemovePumpHook(hook_);
  syncing_ = true;
  for (const Hwnd top : model_.Children(0)) {
    if (HWND real = RealOf(top)) ::DestroyWindow(real);
  }
  ::DestroyWindow(staging_);
}

HWND WindowMirror::RealOf(Hwnd window) const {
  auto it = real_.find(window);
  return it == real_.end() ? nullptr : it->second;
}

LRESULT WindowMirror::Handle(HWND real, UINT m, WPARAM w, LPARAM l) {
  auto it = modelOf_.find(real);
  if (it != modelOf_.end() && IsClientMessage(m)) {
    // Another program's sends are the client's business; this thread's own messages are either
    // the mirror at work or a caption read (GetWindowTextA sends them), which the real window
    // answers.
    const bool fromOtherThread = ::InSendMessage();
    const bool ownRead = m == aol::kWmGetText || m == aol::kWmGetTextLength;
    if (fromOtherThread || (!syncing_ && !ownRead)) {
      const LRESULT r = Forward(it->second, m, w, l);
      // What the send did shows before the sender goes on, as with the client's own windows.
      Sync();
      return r;
    }
  }
  return ::DefWindowProcA(real, m, w, l);
}

LRESULT WindowMirror::Forward(Hwnd window, UINT m, WPARAM w, LPARAM l) {
  const auto wParam = static_cast<std::int32_t>(w);
  zero_ = 0;
  // An address other than a text or a buffer means nothing in this process: a word of ours
  // stands for it. 0 stays 0, so a message that should carry an address is seen without one.
  if (m == aol::kWmSetText) {
    return model_.SendMessageA(window, m, wParam,
                               l ? LParam::Text(reinterpret_cast<const char*>(l)) : LParam());
  }
  if (m == aol::kWmGetText && l != 0) {
    // The platform hands us a buffer of wParam characters and copies it back to the program.
    std::string buffer(w > 0 ? w - 1 : 0, '\0');
    const std::int32_t n = model_.SendMessageA(window, m, wParam, LParam::Buffer(buffer));
    const std::size_t copied = std::min<std::size_t>(static_cast<std::size_t>(std::max(n, 0)),
                                                     buffer.size());
    if (w > 0) {
      std::memcpy(reinterpret_cast<char*>(l), buffer.data(), copied);
      reinterpret_cast<char*>(l)[copied] = '\0';
    }
    return n;
  }
  return model_.SendMessageA(window, m, wParam, l ? LParam::Word(zero_) : LParam());
}

bool WindowMirror::PumpMessages() {
  MSG msg;
  while (::PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE)) {
    if (msg.message == WM_QUIT) return false;
    auto it = modelOf_.find(msg.hwnd);
    if (it != modelOf_.end() && IsClientMessage(msg.message)) {
      zero_ = 0;
      model_.PostMessageA(it->second, msg.message, static_cast<std::int32_t>(msg.wParam),
                          msg.lParam ? LParam::Word(zero_) : LParam());
      continue;
    }
    ::TranslateMessage(&msg);
    ::DispatchMessageA(&msg);
  }
  return true;
}

void WindowMirror::Sync() {
  if (syncing_) return;
  ReadBack();
  // A send that comes in while the windows are being built changes the model again.
  while (model_.Revision() != revision_) {
    revision_ = model_.Revision();
    syncing_ = true;
    std::set<Hwnd> alive;
    std::vector<Hwnd> open = model_.Children(0);
    while (!open.empty()) {
      const Hwnd w = open.back();
      open.pop_back();
      alive.insert(w);
      for (Hwnd c : model_.Children(w)) open.push_back(c);
    }
    // The gone ones first: a handle the platform frees may come back for a new window.
    for (auto it = real_.begin(); it != real_.end();) {
      if (alive.count(it->first)) {
        ++it;
        continue;
      }
      if (::IsWindow(it->second)) ::DestroyWindow(it->second);
      modelOf_.erase(it->second);
      text_.erase(it->first);
      shown_.erase(it->first);
      it = real_.erase(it);
    }
    SyncChildren(0, nullptr);
    syncing_ = false;
  }
}

void WindowMirror::ReadBack() {
  for (const auto& [window, real] : real_) {
    const Shown now{(::GetWindowLongA(real, GWL_STYLE) & WS_VISIBLE) != 0,
                    ::IsIconic(real) != 0};
    Shown& was = shown_[window];
    if (now == was) continue;
    const int command = !now.visible     ? SW_HIDE
                        : now.minimised  ? SW_MINIMIZE
                        : was.minimised  ? SW_RESTORE
                                         : SW_SHOW;
    was = now;
    model_.ShowWindow(window, command);
  }
}

void WindowMirror::SyncChildren(Hwnd parent, HWND realParent) {
  const std::vector<Hwnd> children = model_.Children(parent);
  // Controls the model adds together come one by one here. Meanwhile their window answers to no
  // caption, so a lookup of it that hops to its n-th control does not find a part of them; and a
  // lookup already past the caption is given the time to end on the window as it was (a program
  // waiting in a send to us is not looking).
  const auto added = std::count_if(children.begin(), children.end(),
                                   [this](Hwnd c) { return real_.count(c) == 0; });
  const bool hidden = parent != 0 && added > 1 && !text_[parent].empty();
  if (hidden) {
    ::DefWindowProcA(realParent, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(""));
    if (!::InSendMessage()) ::Sleep(kLookupMilliseconds);
  }
  HWND previous = nullptr;
  for (std::size_t i = 0; i < children.size(); ++i) {
    const Hwnd child = children[i];
    HWND real = RealOf(child);
    if (real == nullptr) {
      const bool behindAll = std::none_of(children.begin() + static_cast<long>(i) + 1,
                                          children.end(),
                                          [this](Hwnd later) { return real_.count(later) > 0; });
      if (parent != 0 && behindAll) {
        // A new child goes behind its siblings, where the model has it.
        real = Create(child, realParent);
      } else {
        real = Create(child, staging_);
        Apply(child, real);
        SyncChildren(child, real);
        if (parent == 0) {
          const LONG_PTR style = ::GetWindowLongPtrA(real, GWL_STYLE);
          ::SetWindowLongPtrA(real, GWL_STYLE, (style & ~WS_CHILD) | WS_POPUP);
        }
        ::SetParent(real, realParent);
      }
      if (parent == 0) {
        if (Hmenu bar = model_.MenuOf(child)) ::SetMenu(real, BuildMenu(bar));
      }
    }
    Apply(child, real);
    Place(real, previous, parent == 0);
    previous = real;
    SyncChildren(child, real);
  }
  if (hidden) {
    ::DefWindowProcA(realParent, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text_[parent].c_str()));
  }
}

HWND WindowMirror::Create(Hwnd window, HWND realParent) {
  const std::string className = model_.ClassOf(window);
  // The dialog and popup-menu classes are the platform's; the rest are registered here.
  const bool system = !className.empty() && className[0] == '#';
  if (!system) Register(className);
  HWND real = ::CreateWindowExA(0, className.c_str(), model_.TextOf(window).c_str(), WS_CHILD, 0,
                                0, 40, 20, realParent, nullptr, Instance(), nullptr);
  ::SetPropA(real, kMirrorProperty, this);
  // Their own procedures expect a dialog or a menu behind the window: none of it runs here.
  if (system) ::SetWindowLongPtrA(real, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&MirrorProc));
  real_[window] = real;
  modelOf_[real] = window;
  text_[window] = model_.TextOf(window);
  shown_[window] = {};
  return real;
}

void WindowMirror::Apply(Hwnd window, HWND real) {
  const std::string& text = model_.TextOf(window);
  if (text_[window] != text) {
    // Straight to the window's own text: through its procedure it would reach the model.
    ::DefWindowProcA(real, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    text_[window] = text;
  }
  const Shown wanted{model_.Visible(window), model_.Minimised(window)};
  Shown& shown = shown_[window];
  if (shown == wanted) return;
  // Minimising and restoring show the window; a hidden one keeps its state for the next show.
  if (wanted.minimised != shown.minimised) {
    ::ShowWindow(real, wanted.minimised ? SW_SHOWMINNOACTIVE : SW_SHOWNOACTIVATE);
  }
  ::ShowWindow(real, wanted.visible ? SW_SHOWNA : SW_HIDE);
  // As the platform has it, so that only the program's own changes are read back.
  shown = {(::GetWindowLongA(real, GWL_STYLE) & WS_VISIBLE) != 0, ::IsIconic(real) != 0};
}

void WindowMirror::Place(HWND real, HWND previous, bool topLevel) {
  // Lookups walk siblings front to back. Top-level windows share the desktop with other programs'
  // windows, so only their order among themselves is kept.
  bool inPlace = false;
  if (topLevel) {
    inPlace = previous == nullptr || Behind(previous, real);
  } else if (previous == nullptr) {
    inPlace = ::GetWindow(real, GW_HWNDFIRST) == real;
  } else {
    inPlace = ::GetWindow(previous, GW_HWNDNEXT) == real;
  }
  if (!inPlace) ::SetWindowPos(real, previous ? previous : HWND_TOP, 0, 0, 0, 0, kQuietPlacing);
}

HMENU WindowMirror::BuildMenu(Hmenu menu) {
  HMENU real = ::CreateMenu();
  for (const SimDesktop::MenuItem& item : model_.MenuItems(menu)) {
    if (item.separator) {
      ::AppendMenuA(real, MF_SEPARATOR, 0, nullptr);
    } else if (item.subMenu != 0) {
      ::AppendMenuA(real, MF_POPUP | MF_STRING,
                    reinterpret_cast<UINT_PTR>(BuildMenu(item.subMenu)), item.text.c_str());
    } else {
      ::AppendMenuA(real, MF_STRING, static_cast<UINT_PTR>(item.id), item.text.c_str());
    }
  }
  return real;
}

void WindowMirror::Register(const std::string& className) {
  std::string key = className;
  std::transform(key.begin(), key.end(), key.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  if (!registered_.insert(key).second) return;
  WNDCLASSA wc{};
  wc.lpfnWndProc = &MirrorProc;
  wc.hInstance = Instance();
  wc.lpszClassName = className.c_str();
  ::RegisterClassA(&wc);
}

}  // namespace qc::sim
