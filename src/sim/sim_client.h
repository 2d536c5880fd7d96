#pragma once
// A simulated AOL client on a SimDesktop: generation 2, 3, 4 or 5, signed on or not, running or
// not. It builds the client's window tree and reacts to the program's messages as strictly as the
// real client: a sent message is taken inside the send, a posted one when a pump delivers it, and
// what it does shows after the client's reaction time; a click
// is a button-down and a button-up on the same control; windows are built in stages over several
// pumps; after some of its actions the client is busy for a while and takes no input, so that the
// scripts' pauses matter; its modal windows block their owners; and with noise, other windows of
// the same classes stand on the desktop.
//
// Reactions are keyed by text: a main-menu or toolbar-popup entry by its text ("&Compose Mail"),
// a keyword as typed, a toolbar icon as "toolbar icon N", a control's click by a key its builder
// chooses. The same key is used for slowness faults and in the event log.
//
// Mail, chat, instant messages, buddy lists and the privacy page are added from outside through
// the registration and building functions below; a registration replaces the built-in reaction
// for the same key.
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "sim/sim_desktop.h"

namespace qc::sim {

struct ClientOptions {
  int generation = 5;  // 2, 3, 4 or 5
  bool signedOn = true;
  std::string screenName = "Brindle Rose";
  double reactionDelay = 0.05;  // seconds between taking a message and showing what it did
  bool running = true;          // false: the client is absent until Start()
  // Windows are built one part a stage, this far apart; the last part after lastDelay (a slow
  // client has a long one). lastPart names parts to come last, in this order and the first of
  // them after lastDelay ("last-icon", "more-icons,last-icon", "combo", "edits", "subject",
  // "rich", "icons", "button"...); empty keeps each window's own order.
  double stageDelay = 0.02;
  double lastDelay = 0.02;
  std::string lastPart = "";
  bool busy = true;    // takes no input for a while after some actions
  bool noise = false;  // another program's dialog on top, a buddy's message window in front
};

struct ClientEvent {
  std::string kind;
  std::string detail;
  bool operator==(const ClientEvent&) const = default;
};

// Event kinds the core logs. Extensions add their own kinds.
inline constexpr char kEventMenuItem[] = "menu item";        // detail: entry text
inline constexpr char kEventPopupEntry[] = "popup entry";    // detail: entry text
inline constexpr char kEventKeyword[] = "keyword";           // detail: the keyword as run
inline constexpr char kEventToolbarIcon[] = "toolbar icon";  // detail: its number
inline constexpr char kEventClick[] = "click";               // detail: the click's key
inline constexpr char kEventClickIgnored[] = "click ignored";
inline constexpr char kEventOutgoingMail[] = "outgoing mail opened";
inline constexpr char kEventAboutBox[] = "about box opened";
inline constexpr char kEventForeignKey[] = "foreign popup key";  // detail: key number
inline constexpr char kEventRefused[] = "input refused";  // detail: why, message, target
inline constexpr char kEventForeignPress[] = "foreign box pressed";  // detail: button

// Entries of the toolbar popup menus and the outgoing list.
inline constexpr char kPopupOutgoingEntry[] = "Mail &Waiting To Be Sent";
inline constexpr char kOutgoingListCaption[] = "Outgoing Mail";

class SimClient {
 public:
  using Action = std::function<void()>;
  using KeywordAction = std::function<void(const std::string& keyword)>;
  using ButtonAction = std::function<void(const std::string& buttonText)>;

  SimClient(SimDesktop& desktop, ClientOptions options = {});
  ~SimClient();
  SimClient(const SimClient&) = delete;
  SimClient& operator=(const SimClient&) = delete;

  // --- Lifecycle ---
  void Start();  // builds the tree; reactions of an earlier run are dropped
  void Quit();   // closes every window of the client
  bool Running() const { return frame_ != 0 && desktop_.Exists(frame_); }
  void SignOn(const std::string& screenName);
  void SignOff();

  int generation() const { return options_.generation; }
  bool signedOn() const { return options_.signedOn; }
  const std::string& screenName() const { return options_.screenName; }
  SimDesktop& desktop() { return desktop_; }

  // --- The tree (0 when absent) ---
  Hwnd frame() const { return frame_; }
  Hwnd mdi() const { return mdi_; }
  Hwnd toolbar() const { return toolbar_; }         // _AOL_Toolbar
  Hwnd ToolbarIcon(int n) const;                    // n-th _AOL_Icon of the toolbar, from 1
  Hwnd keywordEdit() const { return keywordEdit_; }  // Edit of the keyword box (4 and 5)
  Hwnd glyph() const;
  Hwnd welcome() const;  // the "Welcome, NAME!" window
  // The open document window with that exact caption, front first, or 0.
  Hwnd Document(const std::string& caption) const;
  // The command id of a main-menu entry, or -1.
  std::int32_t CommandId(const std::string& entryText) const;

  // --- Reactions (extension points) ---
  // A main-menu or toolbar-popup entry with exactly this text.
  void OnMenuItem(const std::string& entryText, Action action);
  // A keyword, compared whole and without regard to case; a prefix registration takes every
  // keyword that begins with it (the longest registered prefix wins).
  void OnKeyword(const std::string& keyword, KeywordAction action);
  void OnKeywordPrefix(const std::string& prefix, KeywordAction action);
  // A click on the n-th toolbar icon (from 1). Key "toolbar icon N".
  void OnToolbarIcon(int n, Action action);

  // What the client does when an entry is chosen or a keyword entered: logs it now and runs the
  // registered reaction later. Unknown entries and keywords are logged and do nothing.
  void RunCommand(const std::string& entryText, const char* kind = kEventMenuItem);
  void RunKeyword(const std::string& keyword);

  // --- Building windows for reactions ---
  // A document window (AOL Child) in front of the others in the MDI area.
  Hwnd OpenDocument(const std::string& caption);
  // A control behind the parent's other children; `count` of them, the last one returned.
  Hwnd AddControl(Hwnd parent, const std::string& className, const std::string& text = "");
  Hwnd AddControls(Hwnd parent, const std::string& className, int count);
  // A top-level window of the client (modal, dialog); closed with the client. With an owner it is
  // modal: the owner takes no input while it is open.
  Hwnd OpenTopLevel(const std::string& className, const std::string& caption, Hwnd owner = 0);
  // A window built in stages: the first part now, each further one on a later pump (the part
  // that options name as last goes last). `ready` runs with the last part: the client sets its
  // form up then, and is busy for the time set for `key`.
  struct Part {
    std::string name;
    Action add;
  };
  void BuildInStages(Hwnd window, const std::string& key, std::vector<Part> parts,
                     Action ready = nullptr);
  // Full control over a window's messages (replaces its click or press reaction).
  void OnMessage(Hwnd window, MessageHandler handler) { desktop_.SetHandler(window, handler); }
  // A click: 513 then 514 on the same control, sent or posted; taken when the 514 arrives, run
  // later under `key`. Subject to the ignored-clicks fault.
  void OnClick(Hwnd control, const std::string& key, Action action);
  // A press by the Space key: 256 then 257 with key 32 on the same control; acts on the 257.
  void OnSpacePress(Hwnd button, const std::string& key, Action action);
  // A system dialog (#32770) with a text and buttons (class Button); a Space press on a button
  // closes the dialog and then tells `pressed` which one. Key: the caption.
  Hwnd ShowDialog(const std::string& caption, const std::string& text,
                  const std::vector<std::string>& buttons, ButtonAction pressed = nullptr);

  // Built-in reactions, callable by extensions too.
  void OpenOutgoingMailList();
  void OpenKeywordWindow();
  void OpenAboutBox();
  void OpenToolbarPopup();

  // --- Time ---
  // Runs `action` on a later pump, after the reaction delay and the slowness set for `key`: the
  // client takes a message at once (inside the send, or when the pump delivers it) and shows
  // what it did a moment later. Dropped if the client has quit in the meantime.
  void Later(const std::string& key, Action action);
  // The client takes no input for `seconds` from now, or for as long as its own action `key`
  // keeps it busy on this generation.
  void Busy(double seconds);
  void BusyAfter(const std::string& key);
  bool IsBusy() const;
  void SetReactionDelay(double seconds) { options_.reactionDelay = seconds; }
  double reactionDelay() const { return options_.reactionDelay; }

  // --- Faults ---
  // The next `count` clicks are ignored (logged as such).
  void IgnoreClicks(int count) { ignoreClicks_ = count; }
  // Reactions under `key` take that much longer.
  void SetSlow(const std::string& key, double extraSeconds) { slow_[key] = extraSeconds; }
  // A visible popup menu of another program, in front of every window. It takes keys (logged)
  // and closes on Enter or Escape.
  Hwnd ShowForeignPopup();

  // --- What the client did ---
  void Log(const std::string& kind, const std::string& detail);
  const std::vector<ClientEvent>& Events() const { return events_; }
  std::vector<std::string> EventDetails(const std::string& kind) const;
  bool HasEvent(const std::string& kind, const std::string& detail) const;
  std::string EventsText() const;  // "kind: detail" lines
  void ClearEvents() { events_.clear(); }

 private:
  struct PopupEntry {
    std::string text;
    std::vector<PopupEntry> children;
  };

  // sim_client_tree.cpp: the tree of each generation.
  void BuildTree();
  void BuildMenuBar();
  void BuildToolbar();
  void BuildDocuments();
  Hwnd OpenWelcome();
  Hwnd OpenSignOnWindow();
  std::vector<PopupEntry> ToolbarPopupEntries() const;

  // sim_client_windows.cpp: the built-in reactions.
  void InstallBuiltins();
  void OpenWriteMailPlaceholder();
  void OpenComposeMailPlaceholder();
  void OpenInstantMessagePlaceholder(const std::string& to);
  std::optional<std::int32_t> KeywordEditMessage(const SimMessage& m);
  std::optional<std::int32_t> PopupMessage(Hwnd popup, const SimMessage& m);
  void OpenNoise();
  const char* Refuses(const SimMessage& m) const;
  struct Staged {
    Hwnd window;
    std::string key;
    std::vector<Part> parts;
    Action ready;
    std::vector<std::size_t> place;        // each part's place in the finished window
    std::map<Hwnd, std::size_t> placeOf;  // the children built so far, by their part's place
    std::size_t slowBefore = 0;           // the stage that comes after the slow delay
  };
  void RunStage(const std::shared_ptr<Staged>& build, std::size_t i);

  SimDesktop& desktop_;
  ClientOptions options_;
  std::shared_ptr<int> alive_ = std::make_shared<int>(0);  // this object
  std::shared_ptr<int> run_;                               // the current run of the client

  Hwnd frame_ = 0;
  Hwnd mdi_ = 0;
  Hwnd toolbar_ = 0;
  Hwnd keywordEdit_ = 0;
  std::vector<Hwnd> owned_;  // top-level windows besides the frame
  std::vector<Hwnd> foreign_;  // other programs' windows (noise)
  Hwnd noiseDocument_ = 0;
  Hwnd pressed_ = 0;   // the control the last button-down went to
  Hwnd keyDown_ = 0;   // the control the last Space went down on
  double busyUntil_ = 0;
  std::map<std::int32_t, std::string> commands_;  // main-menu id -> entry text

  std::map<std::string, Action> menuActions_;
  std::map<std::string, std::pair<std::string, KeywordAction>> keywords_;  // lower-case key
  std::map<std::string, std::pair<std::string, KeywordAction>> prefixes_;  // lower-case key
  std::map<int, Action> iconActions_;

  // The toolbar popup: entries of each open level and the highlighted one (-1 none).
  struct PopupLevel {
    const std::vector<PopupEntry>* entries;
    int selected;
  };
  std::vector<PopupEntry> popupEntries_;
  std::vector<PopupLevel> popupLevels_;
  Hwnd popup_ = 0;

  int ignoreClicks_ = 0;
  std::map<std::string, double> slow_;
  std::vector<ClientEvent> events_;
};

}  // namespace qc::sim
