#include "sim/sim_client.h"

#include <algorithm>
#include <cctype>
#include <sstream>

#include "client/vocabulary.h"

namespace qc::sim {
namespace {

std::string Lower(std::string s) {
  for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return s;
}

}  // namespace

// How long the client takes no input after its own actions, on generations 2, 3, 4 and 5. Each is
// shorter than the pause the scripts make before their next input there, and longer than what
// passes without that pause.
struct BusySpell {
  const char* key;
  double seconds[4];
};
constexpr BusySpell kBusy[] = {
    {"Write Mail build", {0, 0, 0, 0.15}},         // two pauses of 0.2 before the next press
    {"Compose Mail build", {0, 0.3, 0, 0}},        // 0.5 before the filling and the attach icon
    {"Attachments", {0, 0, 0.15, 0.15}},           // 0.25 before its first icon
    {"Attach done", {0, 0, 0, 0.15}},              // 0.2 before the confirming icon
    {"Attach File done", {0, 0.4, 0, 0}},          // 0.6 before the Send Later icon
    {"mail body", {0, 0, 0.15, 0}},                // 0.5 (the probe 0.2) before the next icon
    {"Buddy List", {0.3, 0.3, 0.3, 0.3}},          // 0.5 before the list's 5th icon
    {"Privacy Preferences", {0.3, 0.3, 0.3, 0.3}}, // 0.5 before the check boxes
    {"Privacy saved", {0.05, 0.05, 0.3, 0.3}},     // 0.1 and 0.5 before the lists are closed
    {"toolbar popup", {0, 0, 0.05, 0}},            // 0.1 before the keys on generation 4
};

SimClient::SimClient(SimDesktop& desktop, ClientOptions options)
    : desktop_(desktop), options_(std::move(options)) {
  InstallBuiltins();
  desktop_.SetInputFilter([this](const SimMessage& m) { return Refuses(m); });
  desktop_.SetRefusalListener([this](const SimMessage& m, const std::string& why) {
    if (!Running()) return;
    Log(kEventRefused, why + " " + std::to_string(m.message) + " " + desktop_.PathOf(m.window));
  });
  if (options_.running) Start();
}

SimClient::~SimClient() {
  Quit();
  desktop_.SetInputFilter(nullptr);
  desktop_.SetRefusalListener(nullptr);
}

const char* SimClient::Refuses(const SimMessage& m) const {
  if (!IsBusy() || !Running()) return nullptr;
  if (!IsInput(m) && !(m.posted && m.message == aol::kWmClose)) return nullptr;
  // Only the client's own windows are busy, not those of other programs.
  Hwnd top = m.window;
  while (desktop_.ParentOf(top) != 0) top = desktop_.ParentOf(top);
  if (top != frame_ && std::find(owned_.begin(), owned_.end(), top) == owned_.end()) {
    return nullptr;
  }
  return "busy";
}

void SimClient::Busy(double seconds) {
  if (!options_.busy || seconds <= 0) return;
  busyUntil_ = std::max(busyUntil_, CurrentClock().Now() + seconds);
}

void SimClient::BusyAfter(const std::string& key) {
  const int g = std::clamp(options_.generation, 2, 5) - 2;
  for (const BusySpell& b : kBusy) {
    if (key == b.key) Busy(b.seconds[g]);
  }
}

bool SimClient::IsBusy() const { return CurrentClock().Now() < busyUntil_; }

// ---------------------------------------------------------------- lifecycle

void SimClient::Start() {
  Quit();
  run_ = std::make_shared<int>(0);
  BuildTree();
  if (options_.noise) OpenNoise();
}

void SimClient::OpenNoise() {
  // Another program's box, on top of every window, with buttons like the client's boxes.
  Hwnd box = desktop_.NewWindow(0, aol::kDialogClass, "Save As");
  desktop_.SetTopmost(box);
  foreign_.push_back(box);
  desktop_.NewWindow(box, "Static", "File name:");
  desktop_.NewWindow(box, aol::kEditClass);
  for (const char* label : {aol::kOkCaption, "Cancel"}) {
    Hwnd b = desktop_.NewWindow(box, aol::kButtonClass, label);
    desktop_.SetHandler(b, [this, label](const SimMessage& m) -> std::optional<std::int32_t> {
      if (m.message == aol::kWmKeyUp) Log(kEventForeignPress, label);
      return 0;
    });
  }
  // A buddy's message window that keeps coming to the front.
  noiseDocument_ = OpenDocument("Instant Message From: Pat");
  AddControls(noiseDocument_, aol::kRichTextClass, 2);
  AddControls(noiseDocument_, aol::kIconClass, 2);
}

void SimClient::Quit() {
  run_.reset();
  for (Hwnd h : owned_) desktop_.DestroyWindow(h);
  owned_.clear();
  for (Hwnd h : foreign_) desktop_.DestroyWindow(h);
  foreign_.clear();
  noiseDocument_ = pressed_ = keyDown_ = 0;
  busyUntil_ = 0;
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

void SimClient::BuildInStages(Hwnd window, const std::string& key, std::vector<Part> parts,
                              Action ready) {
  if (parts.empty()) return;
  std::vector<std::size_t> place(parts.size());
  for (std::size_t i = 0; i < place.size(); ++i) place[i] = i;
  // The parts named late go to the end in the order named.
  std::size_t late = 0;
  std::stringstream names(options_.lastPart);
  for (std::string name; std::getline(names, name, ',');) {
    for (std::size_t i = 0; i + late < parts.size(); ++i) {
      if (parts[i].name != name) continue;
      std::rotate(parts.begin() + static_cast<long>(i), parts.begin() + static_cast<long>(i) + 1,
                  parts.end());
      std::rotate(place.begin() + static_cast<long>(i), place.begin() + static_cast<long>(i) + 1,
                  place.end());
      ++late;
      break;
    }
  }
  auto build = std::make_shared<Staged>(
      Staged{window, key, std::move(parts), std::move(ready), std::move(place), {}});
  build->slowBefore = late > 0 ? build->parts.size() - late : build->parts.size() - 1;
  RunStage(build, 0);
}

void SimClient::RunStage(const std::shared_ptr<Staged>& build, std::size_t i) {
  if (!desktop_.Exists(build->window)) return;
  build->parts[i].add();
  // A part that comes late still takes its place among the children, as the client orders them.
  const std::size_t place = build->place[i];
  std::vector<Hwnd> added;
  for (Hwnd child : desktop_.Children(build->window)) {
    if (!build->placeOf.count(child)) added.push_back(child);
  }
  Hwnd before = 0;
  for (Hwnd child : desktop_.Children(build->window)) {
    auto it = build->placeOf.find(child);
    if (it != build->placeOf.end() && it->second > place) {
      before = child;
      break;
    }
  }
  for (Hwnd child : added) {
    desktop_.PlaceBefore(child, before);
    build->placeOf[child] = place;
  }
  if (i + 1 == build->parts.size()) {
    if (build->ready) build->ready();
    BusyAfter(build->key);
    return;
  }
  const double delay = i + 1 == build->slowBefore ? options_.lastDelay : options_.stageDelay;
  std::weak_ptr<int> run = run_;
  desktop_.Schedule(delay, [this, run, build, i] {
    if (run.lock()) RunStage(build, i + 1);
  });
}

// ---------------------------------------------------------------- building windows

Hwnd SimClient::OpenDocument(const std::string& caption) {
  if (!mdi_) return 0;
  Hwnd h = desktop_.NewWindow(mdi_, aol::kChildClass, caption, true, true);
  // The buddy's message window pushes in front of every new one.
  if (noiseDocument_ != 0 && desktop_.Exists(noiseDocument_)) desktop_.BringToTop(noiseDocument_);
  return h;
}

Hwnd SimClient::AddControl(Hwnd parent, const std::string& className, const std::string& text) {
  return desktop_.NewWindow(parent, className, text);
}

Hwnd SimClient::AddControls(Hwnd parent, const std::string& className, int count) {
  Hwnd last = 0;
  for (int i = 0; i < count; ++i) last = desktop_.NewWindow(parent, className);
  return last;
}

Hwnd SimClient::OpenTopLevel(const std::string& className, const std::string& caption,
                             Hwnd owner) {
  Hwnd h = desktop_.NewWindow(0, className, caption);
  if (owner != 0) desktop_.SetModal(h, owner);
  std::erase_if(owned_, [this](Hwnd o) { return !desktop_.Exists(o); });
  owned_.push_back(h);
  return h;
}

void SimClient::OnClick(Hwnd control, const std::string& key, Action action) {
  desktop_.SetHandler(control, [this, control, key, action](
                                   const SimMessage& m) -> std::optional<std::int32_t> {
    if (m.message == aol::kWmLButtonDown) {
      pressed_ = control;
      return 0;
    }
    if (m.message != aol::kWmLButtonUp) return std::nullopt;
    // A release is a click only on the control the button went down on.
    if (pressed_ != control) return 0;
    pressed_ = 0;
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
  desktop_.SetHandler(button, [this, button, key, action](
                                  const SimMessage& m) -> std::optional<std::int32_t> {
    if (m.message == aol::kWmKeyDown && m.wParam == aol::kKeySpace) {
      keyDown_ = button;
      return 0;
    }
    if (m.message == aol::kWmKeyUp && m.wParam == aol::kKeySpace && keyDown_ == button) {
      keyDown_ = 0;
      // A dialog's button acts before the key message returns, as a dialog procedure does.
      if (action) action();
      return 0;
    }
    return std::nullopt;
  });
}

Hwnd SimClient::ShowDialog(const std::string& caption, const std::string& text,
                           const std::vector<std::string>& buttons, ButtonAction pressed) {
  // A message box: the client takes no input until it is answered.
  Hwnd dialog = OpenTopLevel(aol::kDialogClass, caption, frame_);
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
