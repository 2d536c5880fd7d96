#pragma once
// A desktop of simulated windows behind the WindowSystem interface.
//
// Windows have a handle, a class (matched without regard to case), a text (the caption, matched
// exactly, byte for byte: texts are Windows-1252 bytes), a parent, an order among their siblings,
// a show state and maybe a menu bar. Sent messages are handled inside the send; posted ones wait
// in a queue that the pump delivers, so that the program sees the other process react only
// between its own pumps. Every call the program makes through the interface is recorded in a
// trace, its texts shown as UTF-8.
//
// Order: top-level windows are kept front to back, and a new one comes to the front, behind the
// windows that stay on top, as on a real desktop. Children are kept in creation order; a new child
// goes to the back unless it is created in front (the client's document windows) or brought to
// the top.
//
// Input (mouse, keys, typed characters, check-box sets, menu commands) to a window that an open
// modal window blocks is refused, and so is what the input filter refuses.
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/pump.h"
#include "client/window_system.h"

namespace qc::sim {

struct SimMessage {
  Hwnd window = 0;
  std::uint32_t message = 0;
  std::int32_t wParam = 0;
  LParam lParam;
  bool posted = false;
};

// Input that a modal window or a busy receiver refuses: mouse, keys, characters, check-box sets,
// menu commands; and a posted WM_CLOSE, which a busy receiver does not take either.
bool IsInput(const SimMessage& m);

// A window's own reaction to a message. nullopt leaves the message to the default handling:
// WM_SETTEXT, WM_GETTEXT and WM_GETTEXTLENGTH on the window's text, WM_CLOSE destroys it.
using MessageHandler = std::function<std::optional<std::int32_t>(const SimMessage&)>;

enum class TraceKind : unsigned {
  kMessage = 1,  // SendMessageA, PostMessageA
  kLookup = 2,   // FindWindowA, FindWindowExA
  kMenu = 4,     // GetMenu, GetSubMenu, GetMenuItemCount, GetMenuItemID, GetMenuStringA
  kText = 8,     // GetWindowTextLengthA, GetWindowTextA
  kWindow = 16,  // IsWindowVisible, ShowWindow
  kCursor = 32,  // GetCursorPos, SetCursorPos, screen size
};
inline constexpr unsigned kTraceAll = 63;
inline constexpr unsigned kTraceMessages = static_cast<unsigned>(TraceKind::kMessage);

// One operation of the program. `line` is its readable form, for example
//   PostMessageA AOL Frame25/AOL Toolbar/_AOL_Toolbar/_AOL_Icon#3 513 0 0
//   SendMessageA AOL Frame25/AOL Toolbar/_AOL_Toolbar/_AOL_Combobox/Edit 12 0 "aol://9293:bob"
//   SendMessageA #32770/Button 256 32 &0
//   FindWindowA "#32768" * -> #32768
// Targets are class paths from the desktop; top-level and document windows (children of the
// MDI area) are named with their caption in quotes. "#n" is the n-th sibling of that class (and
// caption, where named), n > 1. A window that is gone is "gone:" and its last path.
struct TraceEntry {
  TraceKind kind = TraceKind::kMessage;
  std::string op;
  Hwnd window = 0;  // the target, where there is one
  std::uint32_t message = 0;
  std::int32_t wParam = 0;
  LParam::Kind lParamKind = LParam::Kind::kZero;
  std::string line;
};

class SimDesktop : public WindowSystem {
 public:
  explicit SimDesktop(int widthPixels = 1024, int heightPixels = 768);
  ~SimDesktop() override;
  SimDesktop(const SimDesktop&) = delete;
  SimDesktop& operator=(const SimDesktop&) = delete;

  // --- WindowSystem: what the program calls (traced) ---
  Hwnd FindWindowA(const OptText& className, const OptText& caption) override;
  Hwnd FindWindowExA(Hwnd parent, Hwnd childAfter, const OptText& className,
                     const OptText& caption) override;
  std::int32_t SendMessageA(Hwnd window, std::uint32_t message, std::int32_t wParam,
                            LParam lParam) override;
  std::int32_t PostMessageA(Hwnd window, std::uint32_t message, std::int32_t wParam,
                            LParam lParam) override;
  Hmenu GetMenu(Hwnd window) override;
  Hmenu GetSubMenu(Hmenu menu, std::int32_t position) override;
  std::int32_t GetMenuItemCount(Hmenu menu) override;
  std::int32_t GetMenuItemID(Hmenu menu, std::int32_t position) override;
  std::int32_t GetMenuStringA(Hmenu menu, std::int32_t item, std::string& buffer,
                              std::int32_t maxCount, std::int32_t flags) override;
  std::int32_t GetWindowTextLengthA(Hwnd window) override;
  std::int32_t GetWindowTextA(Hwnd window, std::string& buffer, std::int32_t maxCount) override;
  std::int32_t IsWindowVisible(Hwnd window) override;
  std::int32_t ShowWindow(Hwnd window, std::int32_t command) override;
  std::int32_t GetCursorPos(Point& point) override;
  std::int32_t SetCursorPos(std::int32_t x, std::int32_t y) override;
  std::int32_t ScreenWidthTwips() override;
  std::int32_t ScreenHeightTwips() override;

  // --- Building and inspecting the desktop (not traced) ---
  // parent 0 makes a top-level window (in front). A child goes behind its siblings, or in front
  // of them with inFront.
  Hwnd NewWindow(Hwnd parent, const std::string& className, const std::string& text = "",
                    bool visible = true, bool inFront = false);
  // Destroys the window and everything under it; their messages still queued are dropped.
  void DestroyWindow(Hwnd window);
  bool Exists(Hwnd window) const;
  void SetHandler(Hwnd window, MessageHandler handler);
  // Runs after the window and its descendants are gone from the desktop.
  void OnDestroy(Hwnd window, std::function<void()> done);

  std::string ClassOf(Hwnd window) const;
  std::string TextOf(Hwnd window) const;
  void SetText(Hwnd window, const std::string& text);
  Hwnd ParentOf(Hwnd window) const;
  // Children front to back; parent 0 gives the top-level windows.
  std::vector<Hwnd> Children(Hwnd parent) const;
  // The n-th child (from 1) of a class, or 0.
  Hwnd ChildOfClass(Hwnd parent, const std::string& className, int n = 1) const;
  bool Visible(Hwnd window) const;  // the window's own flag
  void SetVisible(Hwnd window, bool visible);
  bool Minimised(Hwnd window) const;
  // A top-level window that stays in front of the others.
  void SetTopmost(Hwnd window);
  // While `modal` is open and shown (not minimised), input to `owner`, its children and the
  // windows it owns is refused.
  void SetModal(Hwnd modal, Hwnd owner);
  bool Blocked(Hwnd window) const;
  // Refuses input the modal windows let through; returns the reason, or nullptr to take it.
  void SetInputFilter(std::function<const char*(const SimMessage&)> filter) {
    inputFilter_ = std::move(filter);
  }
  // Told of every refused message and why.
  void SetRefusalListener(std::function<void(const SimMessage&, const std::string& why)> l) {
    refusalListener_ = std::move(l);
  }
  // Messages whose wParam or lParam break the message table (a sent click's lParam is the address
  // of a zero word, a posted one's 0; WM_GETTEXTLENGTH reads with a zero word...) and what a real
  // window would not survive, such as a WM_GETTEXT longer than its buffer. Tests expect none.
  const std::vector<std::string>& Violations() const { return violations_; }
  void BringToTop(Hwnd window);  // front of its siblings
  // Moves a window in front of a sibling (0: behind all its siblings).
  void PlaceBefore(Hwnd window, Hwnd sibling);
  // Class path with instance numbers, as in the trace; "0" for none, "gone:<handle>" after destroy.
  std::string PathOf(Hwnd window) const;
  // The tree as indented text, one window a line: path-less class, caption, hidden mark.
  std::string Dump() const;

  // Menus. A menu bar is a menu whose entries open drop-downs.
  Hmenu CreateMenu();
  void AppendItem(Hmenu menu, std::int32_t id, const std::string& text);
  void AppendSeparator(Hmenu menu);
  void AppendSubMenu(Hmenu menu, const std::string& text, Hmenu subMenu);
  void SetMenu(Hwnd window, Hmenu menu);
  // Changes an entry's text, or removes entries from a position to the end (for odd clients).
  void SetItemText(Hmenu menu, std::int32_t position, const std::string& text);
  void TruncateMenu(Hmenu menu, std::int32_t count);
  // The text of the entry with that command id anywhere under menu, or nullopt.
  std::optional<std::string> MenuText(Hmenu menu, std::int32_t id) const;
  struct MenuItem {
    std::int32_t id = 0;
    std::string text;
    Hmenu subMenu = 0;
    bool separator = false;
  };
  // A window's menu bar and a menu's entries, for building them elsewhere (not traced).
  Hmenu MenuOf(Hwnd window) const;
  const std::vector<MenuItem>& MenuItems(Hmenu menu) const;

  // --- The other process's time ---
  // Runs `task` on a later pump, once the clock (CurrentClock().Now()) has reached now + delay.
  // Tasks are kept in order of their time, and in the order given for equal times.
  void Schedule(double delaySeconds, std::function<void()> task);
  std::size_t PendingTasks() const { return tasks_.size(); }
  std::size_t PendingMessages() const { return queue_.size(); }
  // One turn of the other process: delivers the messages that were queued before it began, then
  // runs the tasks that are due. The pump hook calls it on every pump.
  void Slice();
  // When the next turn has something to do (the pump hook tells waits): kWorkNow with messages
  // waiting, else the time of the earliest task, kNoWork with none (or inside a turn).
  double NextWork() const;
  // A program that loops without pumping still lets the other process run now and then: after
  // this many calls through the interface with no pump, a turn is taken before the next call.
  // 0 never does (messages then wait for a pump).
  void SetSliceEvery(int calls) { sliceEvery_ = calls; }

  // --- Pointer ---
  Point Cursor() const { return cursor_; }
  void MoveCursorByUser(Point p);  // the user moving the mouse: clamped, not traced
  int WidthPixels() const { return width_; }
  int HeightPixels() const { return height_; }

  // --- Trace ---
  const std::deque<TraceEntry>& Trace() const { return trace_; }
  // Lines of the entries whose kind is in `kinds` (a mask of TraceKind values).
  std::vector<std::string> TraceLines(unsigned kinds = kTraceAll) const;
  std::string TraceText(unsigned kinds = kTraceAll) const;
  void ClearTrace() { trace_.clear(); }
  // Oldest entries go when the trace is longer; 0 records nothing.
  void SetTraceLimit(std::size_t entries) { traceLimit_ = entries; }
  // Called with every entry as it is recorded (the client viewer shows them live).
  void SetTraceListener(std::function<void(const TraceEntry&)> listener) {
    traceListener_ = std::move(listener);
  }
  // Goes up on every change of windows, texts, order or visibility.
  std::uint64_t Revision() const { return revision_; }

 private:
  struct Window {
    Hwnd handle = 0;
    std::string className;
    std::string text;
    Hwnd parent = 0;
    std::vector<Hwnd> children;
    bool visible = true;
    bool minimised = false;
    bool topmost = false;
    Hwnd owner = 0;      // the window a modal one blocks
    bool modal = false;
    Hmenu menu = 0;
    MessageHandler handler;
    std::vector<std::function<void()>> onDestroy;
  };
  struct Menu {
    std::vector<MenuItem> items;
    std::string label;  // for the trace
  };
  struct Task {
    double due;
    std::uint64_t order;
    std::uint64_t slice;  // the turn in which it was scheduled
    std::function<void()> run;
  };

  Window* Find(Hwnd h);
  const Window* Find(Hwnd h) const;
  std::vector<Hwnd>& SiblingsOf(Hwnd parent);
  const std::vector<Hwnd>* SiblingsPtr(Hwnd parent) const;
  Hwnd FindAmong(const std::vector<Hwnd>& list, std::size_t from, const OptText& className,
                 const OptText& caption) const;
  std::int32_t Deliver(const SimMessage& m);
  void CheckParameters(const SimMessage& m);
  Hwnd TopLevelOf(Hwnd window) const;
  std::string Shown(const std::string& codePageText) const;
  std::int32_t DefaultHandling(Window& w, const SimMessage& m);
  const MenuItem* FindMenuItem(Hmenu menu, std::int32_t id, int depth) const;
  std::string MenuLabel(Hmenu menu) const;
  void Record(TraceKind kind, std::string op, std::string line, Hwnd window = 0,
              std::uint32_t message = 0, std::int32_t wParam = 0,
              LParam::Kind lParamKind = LParam::Kind::kZero);
  void BeforeCall();  // counts calls, takes a turn of the other process when it is time
  void Changed() { ++revision_; }

  int width_;
  int height_;
  Point cursor_;
  std::int32_t nextHandle_ = 0x10000;
  std::map<Hwnd, Window> windows_;
  std::vector<Hwnd> topLevel_;
  std::map<Hmenu, Menu> menus_;
  std::map<Hwnd, std::string> gonePaths_;

  std::deque<SimMessage> queue_;
  std::vector<Task> tasks_;
  std::uint64_t taskOrder_ = 0;
  std::uint64_t slices_ = 0;
  int sliceEvery_ = 256;
  int callsSinceSlice_ = 0;
  bool inSlice_ = false;
  PumpHookId hook_ = 0;

  std::function<const char*(const SimMessage&)> inputFilter_;
  std::function<void(const SimMessage&, const std::string&)> refusalListener_;
  std::vector<std::string> violations_;

  std::deque<TraceEntry> trace_;
  std::size_t traceLimit_ = 200000;
  std::function<void(const TraceEntry&)> traceListener_;
  std::uint64_t revision_ = 0;
};

}  // namespace qc::sim
