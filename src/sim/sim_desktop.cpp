#include "sim/sim_desktop.h"

#include <algorithm>
#include <cctype>

#include "base/cp1252.h"
#include "client/vocabulary.h"

namespace qc::sim {
namespace {

bool SameClass(const std::string& a, const std::string& b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (std::tolower(static_cast<unsigned char>(a[i])) !=
        std::tolower(static_cast<unsigned char>(b[i]))) {
      return false;
    }
  }
  return true;
}

std::string Quoted(const OptText& t) { return t ? "\"" + Cp1252ToUtf8(*t) + "\"" : "*"; }

// The lParam as the trace shows it: texts decoded from the code page.
std::string Describe(const LParam& p) {
  return p.kind() == LParam::Kind::kText ? "\"" + Cp1252ToUtf8(p.text()) + "\"" : p.Describe();
}

// Copies what the platform copies: at most maxCount - 1 characters, then a NUL, never past the
// buffer's own size.
std::int32_t CopyOut(const std::string& text, std::string& buffer, std::int32_t maxCount) {
  if (maxCount <= 0) return 0;
  std::size_t n = std::min<std::size_t>(text.size(), static_cast<std::size_t>(maxCount) - 1);
  std::size_t fit = std::min(n, buffer.size());
  buffer.replace(0, fit, text, 0, fit);
  if (n < buffer.size()) buffer[n] = '\0';
  return static_cast<std::int32_t>(fit);
}

constexpr std::int32_t kByPosition = 0x400;

}  // namespace

bool IsInput(const SimMessage& m) {
  switch (m.message) {
    case aol::kWmLButtonDown:
    case aol::kWmLButtonUp:
    case aol::kWmKeyDown:
    case aol::kWmKeyUp:
    case aol::kWmChar:
    case aol::kBmSetCheck:
    case aol::kWmCommand:
      return true;
    default:
      return false;
  }
}

SimDesktop::SimDesktop(int widthPixels, int heightPixels)
    : width_(widthPixels), height_(heightPixels), cursor_{widthPixels / 2, heightPixels / 2} {
  hook_ = AddPumpHook([this] { Slice(); }, [this] { return NextWork(); });
}

SimDesktop::~SimDesktop() { RemovePumpHook(hook_); }

// ---------------------------------------------------------------- inspection helpers

SimDesktop::Window* SimDesktop::Find(Hwnd h) {
  auto it = windows_.find(h);
  return it == windows_.end() ? nullptr : &it->second;
}

const SimDesktop::Window* SimDesktop::Find(Hwnd h) const {
  auto it = windows_.find(h);
  return it == windows_.end() ? nullptr : &it->second;
}

std::vector<Hwnd>& SimDesktop::SiblingsOf(Hwnd parent) {
  return parent == 0 ? topLevel_ : Find(parent)->children;
}

const std::vector<Hwnd>* SimDesktop::SiblingsPtr(Hwnd parent) const {
  if (parent == 0) return &topLevel_;
  const Window* w = Find(parent);
  return w ? &w->children : nullptr;
}

bool SimDesktop::Exists(Hwnd window) const { return Find(window) != nullptr; }

std::string SimDesktop::ClassOf(Hwnd window) const {
  const Window* w = Find(window);
  return w ? w->className : std::string();
}

std::string SimDesktop::TextOf(Hwnd window) const {
  const Window* w = Find(window);
  return w ? w->text : std::string();
}

void SimDesktop::SetText(Hwnd window, const std::string& text) {
  if (Window* w = Find(window)) {
    w->text = text;
    Changed();
  }
}

Hwnd SimDesktop::ParentOf(Hwnd window) const {
  const Window* w = Find(window);
  return w ? w->parent : 0;
}

std::vector<Hwnd> SimDesktop::Children(Hwnd parent) const {
  const auto* list = SiblingsPtr(parent);
  return list ? *list : std::vector<Hwnd>{};
}

Hwnd SimDesktop::ChildOfClass(Hwnd parent, const std::string& className, int n) const {
  const auto* list = SiblingsPtr(parent);
  if (!list) return 0;
  for (Hwnd h : *list) {
    if (SameClass(Find(h)->className, className) && --n == 0) return h;
  }
  return 0;
}

bool SimDesktop::Visible(Hwnd window) const {
  const Window* w = Find(window);
  return w && w->visible;
}

void SimDesktop::SetVisible(Hwnd window, bool visible) {
  if (Window* w = Find(window)) {
    w->visible = visible;
    Changed();
  }
}

void SimDesktop::BringToTop(Hwnd window) {
  Window* w = Find(window);
  if (!w) return;
  auto& list = SiblingsOf(w->parent);
  list.erase(std::find(list.begin(), list.end(), window));
  auto at = list.begin();
  if (w->parent == 0 && !w->topmost) {
    at = std::find_if(list.begin(), list.end(), [this](Hwnd t) { return !Find(t)->topmost; });
  }
  list.insert(at, window);
  Changed();
}

void SimDesktop::PlaceBefore(Hwnd window, Hwnd sibling) {
  Window* w = Find(window);
  if (!w || window == sibling) return;
  auto& list = SiblingsOf(w->parent);
  list.erase(std::find(list.begin(), list.end(), window));
  list.insert(std::find(list.begin(), list.end(), sibling), window);
  Changed();
}

std::string SimDesktop::PathOf(Hwnd window) const {
  if (window == 0) return "0";
  const Window* w = Find(window);
  if (!w) {
    auto gone = gonePaths_.find(window);
    return "gone:" + (gone == gonePaths_.end() ? std::to_string(window) : gone->second);
  }
  // Top-level and document windows are told apart by their captions.
  const Window* parent = Find(w->parent);
  const bool named = w->parent == 0 || SameClass(parent->className, aol::kMdiClientClass);
  int n = 0;
  for (Hwnd h : *SiblingsPtr(w->parent)) {
    const Window* sibling = Find(h);
    if (SameClass(sibling->className, w->className) && (!named || sibling->text == w->text)) ++n;
    if (h == window) break;
  }
  std::string part = w->className + (named ? "\"" + Shown(w->text) + "\"" : "") +
                     (n > 1 ? "#" + std::to_string(n) : "");
  return w->parent == 0 ? part : PathOf(w->parent) + "/" + part;
}

std::string SimDesktop::Shown(const std::string& codePageText) const {
  return Cp1252ToUtf8(codePageText);
}

bool SimDesktop::Minimised(Hwnd window) const {
  const Window* w = Find(window);
  return w && w->minimised;
}

void SimDesktop::SetTopmost(Hwnd window) {
  Window* w = Find(window);
  if (!w || w->parent != 0) return;
  w->topmost = true;
  BringToTop(window);
}

void SimDesktop::SetModal(Hwnd modal, Hwnd owner) {
  if (Window* w = Find(modal)) {
    w->modal = true;
    w->owner = owner;
  }
}

Hwnd SimDesktop::TopLevelOf(Hwnd window) const {
  const Window* w = Find(window);
  while (w && w->parent != 0) w = Find(w->parent);
  return w ? w->handle : 0;
}

bool SimDesktop::Blocked(Hwnd window) const {
  const Hwnd top = TopLevelOf(window);
  if (top == 0) return false;
  for (Hwnd h : topLevel_) {
    const Window* m = Find(h);
    if (m->modal && m->owner == top && m->visible && !m->minimised) return true;
  }
  return false;
}

std::string SimDesktop::Dump() const {
  std::string out;
  std::function<void(Hwnd, int)> walk = [&](Hwnd h, int depth) {
    const Window* w = Find(h);
    out += std::string(static_cast<std::size_t>(depth) * 2, ' ') + w->className;
    if (!w->text.empty()) out += " \"" + Shown(w->text) + "\"";
    if (!w->visible) out += " (hidden)";
    if (w->minimised) out += " (minimised)";
    out += "\n";
    for (Hwnd c : w->children) walk(c, depth + 1);
  };
  for (Hwnd h : topLevel_) walk(h, 0);
  return out;
}

// ---------------------------------------------------------------- building

Hwnd SimDesktop::NewWindow(Hwnd parent, const std::string& className, const std::string& text,
                           bool visible, bool inFront) {
  if (parent != 0 && !Find(parent)) return 0;
  Hwnd h = nextHandle_;
  nextHandle_ += 2;
  Window w;
  w.handle = h;
  w.className = className;
  w.text = text;
  w.parent = parent;
  w.visible = visible;
  windows_.emplace(h, std::move(w));
  auto& list = SiblingsOf(parent);
  if (parent == 0) {
    // In front, but behind the windows that stay on top.
    auto at = std::find_if(list.begin(), list.end(), [this](Hwnd t) { return !Find(t)->topmost; });
    list.insert(at, h);
  } else if (inFront) {
    list.insert(list.begin(), h);
  } else {
    list.push_back(h);
  }
  Changed();
  return h;
}

void SimDesktop::DestroyWindow(Hwnd window) {
  Window* w = Find(window);
  if (!w) return;
  std::vector<Hwnd> doomed;
  std::function<void(Hwnd)> collect = [&](Hwnd h) {
    for (Hwnd c : Find(h)->children) collect(c);
    doomed.push_back(h);
  };
  collect(window);
  for (Hwnd h : doomed) gonePaths_[h] = PathOf(h);
  auto& list = SiblingsOf(w->parent);
  list.erase(std::find(list.begin(), list.end(), window));
  std::vector<std::function<void()>> done;
  for (Hwnd h : doomed) {
    Window* d = Find(h);
    for (auto& f : d->onDestroy) done.push_back(std::move(f));
    windows_.erase(h);
  }
  std::erase_if(queue_, [this](const SimMessage& m) { return m.window != 0 && !Find(m.window); });
  Changed();
  for (auto& f : done) f();
}

void SimDesktop::SetHandler(Hwnd window, MessageHandler handler) {
  if (Window* w = Find(window)) w->handler = std::move(handler);
}

void SimDesktop::OnDestroy(Hwnd window, std::function<void()> done) {
  if (Window* w = Find(window)) w->onDestroy.push_back(std::move(done));
}

Hmenu SimDesktop::CreateMenu() {
  Hmenu h = nextHandle_;
  nextHandle_ += 2;
  menus_[h].label = "menu:" + std::to_string(h);
  return h;
}

void SimDesktop::AppendItem(Hmenu menu, std::int32_t id, const std::string& text) {
  menus_.at(menu).items.push_back({id, text, 0, false});
}

void SimDesktop::AppendSeparator(Hmenu menu) { menus_.at(menu).items.push_back({0, "", 0, true}); }

void SimDesktop::AppendSubMenu(Hmenu menu, const std::string& text, Hmenu subMenu) {
  auto& items = menus_.at(menu).items;
  menus_.at(subMenu).label = "\x01" + std::to_string(menu) + "/" + std::to_string(items.size());
  items.push_back({-1, text, subMenu, false});
}

void SimDesktop::SetMenu(Hwnd window, Hmenu menu) {
  if (Window* w = Find(window)) {
    w->menu = menu;
    menus_.at(menu).label = "\x02" + std::to_string(window);
  }
}

void SimDesktop::SetItemText(Hmenu menu, std::int32_t position, const std::string& text) {
  menus_.at(menu).items.at(static_cast<std::size_t>(position)).text = text;
}

void SimDesktop::TruncateMenu(Hmenu menu, std::int32_t count) {
  auto& items = menus_.at(menu).items;
  if (count >= 0 && static_cast<std::size_t>(count) < items.size()) {
    items.resize(static_cast<std::size_t>(count));
  }
}

std::string SimDesktop::MenuLabel(Hmenu menu) const {
  auto it = menus_.find(menu);
  if (it == menus_.end()) return menu == 0 ? "0" : "menu:" + std::to_string(menu);
  const std::string& label = it->second.label;
  // Labels name the owner window or the parent menu, resolved now so that paths are current.
  if (!label.empty() && label[0] == '\x02') return PathOf(std::stoi(label.substr(1))) + ":menu";
  if (!label.empty() && label[0] == '\x01') {
    auto slash = label.find('/');
    return MenuLabel(std::stoi(label.substr(1, slash - 1))) + label.substr(slash);
  }
  return label;
}

const SimDesktop::MenuItem* SimDesktop::FindMenuItem(Hmenu menu, std::int32_t id,
                                                     int depth) const {
  auto it = menus_.find(menu);
  if (it == menus_.end() || depth > 16) return nullptr;
  for (const MenuItem& item : it->second.items) {
    if (item.subMenu) {
      if (const MenuItem* found = FindMenuItem(item.subMenu, id, depth + 1)) return found;
    } else if (item.id == id) {  // a separator is the entry of command 0, as on the platform
      return &item;
    }
  }
  return nullptr;
}

std::optional<std::string> SimDesktop::MenuText(Hmenu menu, std::int32_t id) const {
  const MenuItem* item = FindMenuItem(menu, id, 0);
  return item ? std::optional<std::string>(item->text) : std::nullopt;
}

Hmenu SimDesktop::MenuOf(Hwnd window) const {
  const Window* w = Find(window);
  return w ? w->menu : 0;
}

const std::vector<SimDesktop::MenuItem>& SimDesktop::MenuItems(Hmenu menu) const {
  return menus_.at(menu).items;
}

// ---------------------------------------------------------------- trace

void SimDesktop::Record(TraceKind kind, std::string op, std::string line, Hwnd window,
                        std::uint32_t message, std::int32_t wParam, LParam::Kind lParamKind) {
  if (traceLimit_ == 0 && !traceListener_) return;
  TraceEntry e{kind, std::move(op), window, message, wParam, lParamKind, std::move(line)};
  if (traceListener_) traceListener_(e);
  if (traceLimit_ == 0) return;
  trace_.push_back(std::move(e));
  while (trace_.size() > traceLimit_) trace_.pop_front();
}

std::vector<std::string> SimDesktop::TraceLines(unsigned kinds) const {
  std::vector<std::string> lines;
  for (const auto& e : trace_) {
    if (kinds & static_cast<unsigned>(e.kind)) lines.push_back(e.line);
  }
  return lines;
}

std::string SimDesktop::TraceText(unsigned kinds) const {
  std::string out;
  for (const auto& line : TraceLines(kinds)) out += line + "\n";
  return out;
}

// ---------------------------------------------------------------- the other process

void SimDesktop::Schedule(double delaySeconds, std::function<void()> task) {
  Task t{CurrentClock().Now() + delaySeconds, taskOrder_++, slices_, std::move(task)};
  auto at = std::upper_bound(tasks_.begin(), tasks_.end(), t, [](const Task& a, const Task& b) {
    return a.due < b.due || (a.due == b.due && a.order < b.order);
  });
  tasks_.insert(at, std::move(t));
}

void SimDesktop::Slice() {
  if (inSlice_) return;  // a task that pumps does not start a turn inside a turn
  struct Guard {
    bool& flag;
    ~Guard() { flag = false; }
  } guard{inSlice_ = true};
  ++slices_;
  callsSinceSlice_ = 0;
  // Messages posted while these are handled wait for the next turn.
  for (std::size_t n = queue_.size(); n > 0 && !queue_.empty(); --n) {
    SimMessage m = std::move(queue_.front());
    queue_.pop_front();
    Deliver(m);
  }
  // Tasks scheduled in this turn wait for a later one, even with no delay.
  const double now = CurrentClock().Now();
  std::vector<std::function<void()>> due;
  for (auto it = tasks_.begin(); it != tasks_.end() && it->due <= now;) {
    if (it->slice < slices_) {
      due.push_back(std::move(it->run));
      it = tasks_.erase(it);
    } else {
      ++it;
    }
  }
  for (auto& run : due) run();
}

double SimDesktop::NextWork() const {
  if (inSlice_) return kNoWork;
  if (!queue_.empty()) return kWorkNow;
  return tasks_.empty() ? kNoWork : tasks_.front().due;
}

void SimDesktop::BeforeCall() {
  if (sliceEvery_ > 0 && !inSlice_ && ++callsSinceSlice_ > sliceEvery_) Slice();
}

// ---------------------------------------------------------------- messages

std::int32_t SimDesktop::Deliver(const SimMessage& m) {
  Window* w = Find(m.window);
  if (!w) return 0;
  const char* refused = nullptr;
  if (IsInput(m) && Blocked(m.window)) refused = "blocked by a modal window";
  if (!refused && inputFilter_) refused = inputFilter_(m);
  if (refused) {
    if (refusalListener_) refusalListener_(m, refused);
    return 0;
  }
  if (w->handler) {
    MessageHandler handler = w->handler;  // the handler may destroy its window
    if (auto result = handler(m)) return *result;
    w = Find(m.window);
    if (!w) return 0;
  }
  return DefaultHandling(*w, m);
}

std::int32_t SimDesktop::DefaultHandling(Window& w, const SimMessage& m) {
  switch (m.message) {
    case aol::kWmSetText: {
      // The receiver reads up to the first NUL, as from a C string.
      std::string text = m.lParam.kind() == LParam::Kind::kText ? m.lParam.text() : "";
      w.text = text.substr(0, text.find('\0'));
      Changed();
      return 1;
    }
    case aol::kWmGetText:
      if (m.lParam.kind() != LParam::Kind::kBuffer) return 0;
      // wParam is the room of the buffer with its NUL; more would be written past its end.
      if (m.wParam > static_cast<std::int32_t>(m.lParam.buffer()->size()) + 1) {
        violations_.push_back("WM_GETTEXT of " + std::to_string(m.wParam) + " into buf[" +
                              std::to_string(m.lParam.buffer()->size()) + "] " + PathOf(w.handle));
      }
      return CopyOut(w.text, *m.lParam.buffer(), m.wParam);
    case aol::kWmGetTextLength:
      return static_cast<std::int32_t>(w.text.size());
    case aol::kWmClose:
      DestroyWindow(w.handle);
      return 0;
    default:
      return 0;
  }
}

void SimDesktop::CheckParameters(const SimMessage& m) {
  // What each message carries, as the program's message table defines it.
  const LParam::Kind kind = m.lParam.kind();
  const bool zeroOrWord = m.posted ? kind == LParam::Kind::kZero : kind == LParam::Kind::kWord;
  bool ok = true;
  switch (m.message) {
    case aol::kWmSetText: ok = m.wParam == 0 && kind == LParam::Kind::kText; break;
    case aol::kWmGetText: ok = kind == LParam::Kind::kBuffer; break;
    case aol::kWmGetTextLength: ok = m.wParam == 0 && kind == LParam::Kind::kWord; break;
    case aol::kBmSetCheck: ok = kind == LParam::Kind::kWord; break;
    case aol::kWmClose:
    case aol::kWmKeyDown:
    case aol::kWmKeyUp:
    case aol::kWmLButtonDown:
    case aol::kWmLButtonUp: ok = zeroOrWord; break;
    case aol::kWmChar:
    case aol::kWmCommand: ok = kind == LParam::Kind::kZero; break;
    default: break;
  }
  if (m.lParam.kind() == LParam::Kind::kWord && ok) ok = *m.lParam.word() == 0 ||
                                                        m.message == aol::kBmSetCheck;
  if (!ok) {
    violations_.push_back(std::string(m.posted ? "posted " : "sent ") +
                          std::to_string(m.message) + " " + std::to_string(m.wParam) + " " +
                          Describe(m.lParam) + " to " + PathOf(m.window));
  }
}

std::int32_t SimDesktop::SendMessageA(Hwnd window, std::uint32_t message, std::int32_t wParam,
                                      LParam lParam) {
  BeforeCall();
  CheckParameters({window, message, wParam, lParam, false});
  Record(TraceKind::kMessage, "SendMessageA",
         "SendMessageA " + PathOf(window) + " " + std::to_string(message) + " " +
             std::to_string(wParam) + " " + Describe(lParam),
         window, message, wParam, lParam.kind());
  return Deliver({window, message, wParam, std::move(lParam), false});
}

std::int32_t SimDesktop::PostMessageA(Hwnd window, std::uint32_t message, std::int32_t wParam,
                                      LParam lParam) {
  BeforeCall();
  CheckParameters({window, message, wParam, lParam, true});
  Record(TraceKind::kMessage, "PostMessageA",
         "PostMessageA " + PathOf(window) + " " + std::to_string(message) + " " +
             std::to_string(wParam) + " " + Describe(lParam),
         window, message, wParam, lParam.kind());
  if (window != 0 && !Find(window)) return 0;
  // Posted to no window, it goes to the thread's own queue, where nothing reads it.
  if (window == 0) return 1;
  queue_.push_back({window, message, wParam, std::move(lParam), true});
  return 1;
}

// ---------------------------------------------------------------- lookups

Hwnd SimDesktop::FindAmong(const std::vector<Hwnd>& list, std::size_t from,
                           const OptText& className, const OptText& caption) const {
  for (std::size_t i = from; i < list.size(); ++i) {
    const Window* w = Find(list[i]);
    if (className && !SameClass(w->className, *className)) continue;
    if (caption && w->text != *caption) continue;
    return list[i];
  }
  return 0;
}

Hwnd SimDesktop::FindWindowA(const OptText& className, const OptText& caption) {
  BeforeCall();
  Hwnd found = FindAmong(topLevel_, 0, className, caption);
  Record(TraceKind::kLookup, "FindWindowA",
         "FindWindowA " + Quoted(className) + " " + Quoted(caption) + " -> " + PathOf(found),
         found);
  return found;
}

Hwnd SimDesktop::FindWindowExA(Hwnd parent, Hwnd childAfter, const OptText& className,
                               const OptText& caption) {
  BeforeCall();
  Hwnd found = 0;
  if (const auto* list = SiblingsPtr(parent)) {
    std::size_t from = 0;
    bool ok = true;
    if (childAfter != 0) {
      auto it = std::find(list->begin(), list->end(), childAfter);
      ok = it != list->end();
      from = static_cast<std::size_t>(it - list->begin()) + 1;
    }
    if (ok) found = FindAmong(*list, from, className, caption);
  }
  Record(TraceKind::kLookup, "FindWindowExA",
         "FindWindowExA " + PathOf(parent) + " " + PathOf(childAfter) + " " + Quoted(className) +
             " " + Quoted(caption) + " -> " + PathOf(found),
         found);
  return found;
}

// ---------------------------------------------------------------- menus

Hmenu SimDesktop::GetMenu(Hwnd window) {
  BeforeCall();
  const Window* w = Find(window);
  Hmenu menu = w ? w->menu : 0;
  Record(TraceKind::kMenu, "GetMenu", "GetMenu " + PathOf(window) + " -> " + MenuLabel(menu),
         window);
  return menu;
}

Hmenu SimDesktop::GetSubMenu(Hmenu menu, std::int32_t position) {
  BeforeCall();
  Hmenu sub = 0;
  auto it = menus_.find(menu);
  if (it != menus_.end() && position >= 0 &&
      static_cast<std::size_t>(position) < it->second.items.size()) {
    sub = it->second.items[static_cast<std::size_t>(position)].subMenu;
  }
  Record(TraceKind::kMenu, "GetSubMenu",
         "GetSubMenu " + MenuLabel(menu) + " " + std::to_string(position) + " -> " +
             MenuLabel(sub));
  return sub;
}

std::int32_t SimDesktop::GetMenuItemCount(Hmenu menu) {
  BeforeCall();
  auto it = menus_.find(menu);
  std::int32_t n = it == menus_.end() ? -1 : static_cast<std::int32_t>(it->second.items.size());
  Record(TraceKind::kMenu, "GetMenuItemCount",
         "GetMenuItemCount " + MenuLabel(menu) + " -> " + std::to_string(n));
  return n;
}

std::int32_t SimDesktop::GetMenuItemID(Hmenu menu, std::int32_t position) {
  BeforeCall();
  std::int32_t id = -1;
  auto it = menus_.find(menu);
  if (it != menus_.end() && position >= 0 &&
      static_cast<std::size_t>(position) < it->second.items.size()) {
    const MenuItem& item = it->second.items[static_cast<std::size_t>(position)];
    id = item.subMenu ? -1 : item.id;
  }
  Record(TraceKind::kMenu, "GetMenuItemID",
         "GetMenuItemID " + MenuLabel(menu) + " " + std::to_string(position) + " -> " +
             std::to_string(id));
  return id;
}

std::int32_t SimDesktop::GetMenuStringA(Hmenu menu, std::int32_t item, std::string& buffer,
                                        std::int32_t maxCount, std::int32_t flags) {
  BeforeCall();
  const MenuItem* found = nullptr;
  if (flags & kByPosition) {
    auto it = menus_.find(menu);
    if (it != menus_.end() && item >= 0 &&
        static_cast<std::size_t>(item) < it->second.items.size()) {
      found = &it->second.items[static_cast<std::size_t>(item)];
    }
  } else {
    found = FindMenuItem(menu, item, 0);
  }
  std::int32_t n = 0;
  if (found) {
    n = maxCount == 0 ? static_cast<std::int32_t>(found->text.size())
                      : CopyOut(found->text, buffer, maxCount);
  }
  Record(TraceKind::kMenu, "GetMenuStringA",
         "GetMenuStringA " + MenuLabel(menu) + " " + std::to_string(item) + " " +
             std::to_string(maxCount) + " " + std::to_string(flags) + " -> " +
             (found ? "\"" + Shown(found->text) + "\"" : "0"));
  return n;
}

// ---------------------------------------------------------------- text, visibility, pointer

std::int32_t SimDesktop::GetWindowTextLengthA(Hwnd window) {
  BeforeCall();
  const Window* w = Find(window);
  std::int32_t n = w ? static_cast<std::int32_t>(w->text.size()) : 0;
  Record(TraceKind::kText, "GetWindowTextLengthA",
         "GetWindowTextLengthA " + PathOf(window) + " -> " + std::to_string(n), window);
  return n;
}

std::int32_t SimDesktop::GetWindowTextA(Hwnd window, std::string& buffer, std::int32_t maxCount) {
  BeforeCall();
  const Window* w = Find(window);
  std::int32_t n = w ? CopyOut(w->text, buffer, maxCount) : 0;
  Record(TraceKind::kText, "GetWindowTextA",
         "GetWindowTextA " + PathOf(window) + " " + std::to_string(maxCount) + " -> \"" +
             (w ? Shown(w->text) : "") + "\"",
         window);
  return n;
}

std::int32_t SimDesktop::IsWindowVisible(Hwnd window) {
  BeforeCall();
  const Window* w = Find(window);
  std::int32_t visible = w ? 1 : 0;
  for (; w; w = w->parent ? Find(w->parent) : nullptr) {
    if (!w->visible) visible = 0;
  }
  Record(TraceKind::kWindow, "IsWindowVisible",
         "IsWindowVisible " + PathOf(window) + " -> " + std::to_string(visible), window);
  return visible;
}

std::int32_t SimDesktop::ShowWindow(Hwnd window, std::int32_t command) {
  BeforeCall();
  Record(TraceKind::kWindow, "ShowWindow",
         "ShowWindow " + PathOf(window) + " " + std::to_string(command), window);
  Window* w = Find(window);
  if (!w) return 0;
  const bool was = w->visible;
  switch (command) {
    case 0:  // SW_HIDE
      w->visible = false;
      break;
    case 2:  // SW_SHOWMINIMIZED
    case 6:  // SW_MINIMIZE
    case 7:  // SW_SHOWMINNOACTIVE
      w->visible = true;
      w->minimised = true;
      break;
    case 1:  // SW_SHOWNORMAL
    case 3:  // SW_SHOWMAXIMIZED
    case 9:  // SW_RESTORE
      w->visible = true;
      w->minimised = false;
      break;
    default:  // shown as it stands
      w->visible = true;
      break;
  }
  Changed();
  return was ? 1 : 0;
}

std::int32_t SimDesktop::GetCursorPos(Point& point) {
  BeforeCall();
  point = cursor_;
  Record(TraceKind::kCursor, "GetCursorPos",
         "GetCursorPos -> " + std::to_string(cursor_.x) + "," + std::to_string(cursor_.y));
  return 1;
}

std::int32_t SimDesktop::SetCursorPos(std::int32_t x, std::int32_t y) {
  BeforeCall();
  cursor_ = {std::clamp(x, 0, width_ - 1), std::clamp(y, 0, height_ - 1)};
  Record(TraceKind::kCursor, "SetCursorPos",
         "SetCursorPos " + std::to_string(x) + "," + std::to_string(y) + " -> " +
             std::to_string(cursor_.x) + "," + std::to_string(cursor_.y));
  return 1;
}

void SimDesktop::MoveCursorByUser(Point p) {
  cursor_ = {std::clamp(p.x, 0, width_ - 1), std::clamp(p.y, 0, height_ - 1)};
}

std::int32_t SimDesktop::ScreenWidthTwips() { return width_ * 15; }
std::int32_t SimDesktop::ScreenHeightTwips() { return height_ * 15; }

}  // namespace qc::sim
