#include "sim/sim_client.h"

#include <algorithm>
#include <cctype>

#include "client/vocabulary.h"

namespace qc::sim {
namespace {

std::string Lower(std::string s) {
  for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return s;
}

}  // namespace

SimClient::SimClient(SimDesktop& desktop, ClientOptions options)
    : desktop_(desktop), options_(std::move(options)) {
  InstallBuiltins();
  if (options_.running) Start();
}

SimClient::~SimClient() { Quit(); }

// ---------------------------------------------------------------- lifecycle

void SimClient::Start() {
  Quit();
  run_ = std::make_shared<int>(0);
  BuildTree();
}

void SimClient::Quit() {
  run_.reset();
  for (Hwnd h : owned_) desktop_.DestroyWindow(h);
  owned_.clear();
  desktop_.DestroyWindow(frame_);
  frame_ = mdi_ = toolbar_ = keywordEdit_ = popup_ = 0;
  popupLevels_.clear();
  commands_.clear();
}

void SimClient::SignOn(const std::string& screenName) {
  options_.screenName = screenName;
  if (options_.signedOn || !Running()) {
    options_.signedOn = true;
    return;
  }
  options_.signedOn = true;
  for (Hwnd h : desktop_.Children(mdi_)) {
    std::string text = desktop_.TextOf(h);
    if (text == "Sign On" || text == "Welcome") desktop_.DestroyWindow(h);
  }
  OpenWelcome();
}

void SimClient::SignOff() {
  if (!options_.signedOn) return;
  options_.signedOn = false;
  if (!Running()) return;
  desktop_.DestroyWindow(welcome());
  OpenSignOnWindow();
}

// ---------------------------------------------------------------- the tree

Hwnd SimClient::ToolbarIcon(int n) const {
  return toolbar_ ? desktop_.ChildOfClass(toolbar_, aol::kIconClass, n) : 0;
}

Hwnd SimClient::glyph() const {
  return toolbar_ ? desktop_.ChildOfClass(toolbar_, aol::kGlyphClass) : 0;
}

Hwnd SimClient::welcome() const {
  if (!mdi_) return 0;
  for (Hwnd h : desktop_.Children(mdi_)) {
    if (desktop_.TextOf(h) == aol::kWelcomePrefix + options_.screenName + "!") return h;
  }
  return 0;
}

Hwnd SimClient::Document(const std::string& caption) const {
  if (!mdi_) return 0;
  for (Hwnd h : desktop_.Children(mdi_)) {
    if (desktop_.TextOf(h) == caption) return h;
  }
  return 0;
}

std::int32_t SimClient::CommandId(const std::string& entryText) const {
  for (const auto& [id, text] : commands_) {
    if (text == entryText) return id;
  }
  return -1;
}

// ---------------------------------------------------------------- reactions

void SimClient::OnMenuItem(const std::string& entryText, Action action) {
  menuActions_[entryText] = std::move(action);
}

void SimClient::OnKeyword(const std::string& keyword, KeywordAction action) {
  keywords_[Lower(keyword)] = {keyword, std::move(action)};
}

void SimClient::OnKeywordPrefix(const std::string& prefix, KeywordAction action) {
  prefixes_[Lower(prefix)] = {prefix, std::move(action)};
}

void SimClient::OnToolbarIcon(int n, Action action) { iconActions_[n] = std::move(action); }

void SimClient::RunCommand(const std::string& entryText, const char* kind) {
  Log(kind, entryText);
  auto it = menuActions_.find(entryText);
  if (it != menuActions_.end() && it->second) Later(entryText, it->second);
}

void SimClient::RunKeyword(const std::string& keyword) {
  Log(kEventKeyword, keyword);
  const std::string key = Lower(keyword);
  const std::pair<std::string, KeywordAction>* found = nullptr;
  if (auto it = keywords_.find(key); it != keywords_.end()) {
    found = &it->second;
  } else {
    std::size_t best = 0;
    for (const auto& [prefix, entry] : prefixes_) {
      if (key.compare(0, prefix.size(), prefix) == 0 && prefix.size() >= best) {
        best = prefix.size();
        found = &entry;
      }
    }
  }
  if (!found || !found->second) return;
  KeywordAction action = found->second;
  Later(found->first, [action, keyword] { action(keyword); });
}

void SimClient::Later(const std::string& key, Action action) {
  double delay = options_.reactionDelay;
  if (auto it = slow_.find(key); it != slow_.end()) delay += it->second;
  std::weak_ptr<int> run = run_;
  desktop_.Schedule(delay, [run, action = std::move(action)] {
    if (run.lock()) action();
  });
}

// ---------------------------------------------------------------- building windows

Hwnd SimClient::OpenDocument(const std::string& caption) {
  if (!mdi_) return 0;
  return desktop_.NewWindow(mdi_, aol::kChildClass, caption, true, true);
}

Hwnd SimClient::AddControl(Hwnd parent, const std::string& className, const std::string& text) {
  return desktop_.NewWindow(parent, className, text);
}

Hwnd SimClient::AddControls(Hwnd parent, const std::string& className, int count) {
  Hwnd last = 0;
  for (int i = 0; i < count; ++i) last = desktop_.NewWindow(parent, className);
  return last;
}

Hwnd SimClient::OpenTopLevel(const std::string& className, const std::string& caption) {
  Hwnd h = desktop_.NewWindow(0, className, caption);
  std::erase_if(owned_, [this](Hwnd o) { return !desktop_.Exists(o); });
  owned_.push_back(h);
  return h;
}

void SimClient::OnClick(Hwnd control, const std::string& key, Action action) {
  auto pressed = std::make_shared<bool>(false);
  desktop_.SetHandler(control, [this, key, action, pressed](
                                   const SimMessage& m) -> std::optional<std::int32_t> {
    if (m.message == aol::kWmLButtonDown) {
      *pressed = true;
      return 0;
    }
    if (m.message != aol::kWmLButtonUp) return std::nullopt;
    if (!*pressed) return 0;  // a release without a press is no click
    *pressed = false;
    if (ignoreClicks_ > 0) {
      --ignoreClicks_;
      Log(kEventClickIgnored, key);
      return 0;
    }
    Log(kEventClick, key);
    if (action) Later(key, action);
    return 0;
  });
}

void SimClient::OnSpacePress(Hwnd button, const std::string& key, Action action) {
  auto down = std::make_shared<bool>(false);
  desktop_.SetHandler(button, [this, key, action, down](
                                  const SimMessage& m) -> std::optional<std::int32_t> {
    if (m.message == aol::kWmKeyDown && m.wParam == aol::kKeySpace) {
      *down = true;
      return 0;
    }
    if (m.message == aol::kWmKeyUp && m.wParam == aol::kKeySpace && *down) {
      *down = false;
      if (action) Later(key, action);
      return 0;
    }
    return std::nullopt;
  });
}

Hwnd SimClient::ShowDialog(const std::string& caption, const std::string& text,
                           const std::vector<std::string>& buttons, ButtonAction pressed) {
  Hwnd dialog = OpenTopLevel(aol::kDialogClass, caption);
  AddControl(dialog, "Static", text);
  for (const std::string& label : buttons) {
    Hwnd b = AddControl(dialog, aol::kButtonClass, label);
    OnSpacePress(b, caption, [this, dialog, label, pressed] {
      if (!desktop_.Exists(dialog)) return;  // pressed twice: the first press closed it
      desktop_.DestroyWindow(dialog);
      if (pressed) pressed(label);
    });
  }
  return dialog;
}

Hwnd SimClient::ShowForeignPopup() {
  Hwnd popup = desktop_.NewWindow(0, aol::kPopupMenuClass);
  // Another program's window outlives this client: it must not reach a client that has gone.
  std::weak_ptr<int> alive = alive_;
  SimDesktop& desktop = desktop_;
  desktop_.SetHandler(popup, [this, alive, popup, &desktop](
                                 const SimMessage& m) -> std::optional<std::int32_t> {
    if (m.message != aol::kWmKeyDown) return std::nullopt;
    if (alive.lock()) Log(kEventForeignKey, std::to_string(m.wParam));
    if (m.wParam == aol::kKeyEnter || m.wParam == 27) desktop.DestroyWindow(popup);
    return 0;
  });
  return popup;
}

// ---------------------------------------------------------------- log

void SimClient::Log(const std::string& kind, const std::string& detail) {
  events_.push_back({kind, detail});
}

std::vector<std::string> SimClient::EventDetails(const std::string& kind) const {
  std::vector<std::string> out;
  for (const auto& e : events_) {
    if (e.kind == kind) out.push_back(e.detail);
  }
  return out;
}

bool SimClient::HasEvent(const std::string& kind, const std::string& detail) const {
  return std::find(events_.begin(), events_.end(), ClientEvent{kind, detail}) != events_.end();
}

std::string SimClient::EventsText() const {
  std::string out;
  for (const auto& e : events_) out += e.kind + ": " + e.detail + "\n";
  return out;
}

}  // namespace qc::sim
