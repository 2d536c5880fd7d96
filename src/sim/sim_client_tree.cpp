// The window tree of each client generation: menu bar, toolbar, document windows.
//
// What the program relies on: the fifth drop-down's tenth entry names the version on
// generations 4 and 5 (and is missing on 3 and 2, whose fifth drop-down is short); the seventh
// drop-down begins with "&Contents" only on generation 2; the main-menu texts the program runs
// stand where each generation has them; toolbar icon 3 opens a popup on 4 and 5.
#include <vector>

#include "client/vocabulary.h"
#include "sim/sim_client.h"

namespace qc::sim {
namespace {

struct DropDown {
  const char* title;
  std::vector<const char*> entries;  // "-" is a separator
};

const std::vector<DropDown>& FileAndEdit() {
  static const std::vector<DropDown> d = {
      {"&File",
       {"&New", "&Open...", "&Save", "Save &As...", "-", "&Print...", "Print Set&up...", "-",
        "E&xit"}},
      {"&Edit",
       {"&Undo", "-", "Cu&t", "&Copy", "&Paste", "Select &All", "-", "&Find in Top Window...",
        "&Dictionary", "&Thesaurus"}},
  };
  return d;
}

std::vector<DropDown> MenuBarOf(int generation) {
  std::vector<DropDown> bar = FileAndEdit();
  if (generation >= 4) {
    const char* whatsNew = generation == 5 ? "What's &New in AOL 5.0" : "What's &New in AOL 4.0";
    bar.push_back({"&Mail",
                   {"Read &Mail", "&Write Mail", "Read &Outgoing Flashmail", "&Address Book",
                    "Mail &Preferences"}});
    bar.push_back({"&People",
                   {"Send An Instant Message", "&Buddy List", "Get &Member Profile",
                    "&Locate Member Online", "&Chat Now"}});
    bar.push_back({"&Help",
                   {"&Offline Help", "&Member Services", "&Parental Controls", "&Accessibility",
                    "&Keyboard Shortcuts", "&Download Help", "Account && &Billing",
                    "&Report a Problem", "&Contact Us", whatsNew, "-",
                    "&About America Online"}});
    bar.push_back({"&Window",
                   {"&Cascade", "Tile &Horizontally", "Tile &Vertically", "&Arrange Icons",
                    "Close &All Except Front", "&Remember Window Size"}});
    bar.push_back({"&Go To", {"Keyword...", "&Favorite Places", "&Welcome Screen", "&Channels"}});
    bar.push_back({"&Sign Off", {"&Sign Off", "&Switch Screen Name"}});
    return bar;
  }
  bar.push_back({"&Go To",
                 {"Sign &Off", "&Welcome", "&Channels", "Keyword...", "&Directory of Services",
                  "&Favorite Places"}});
  if (generation == 3) {
    bar.push_back({"&Mail",
                   {"&Compose Mail", "Read &New Mail", "Read &Outgoing Flashmail",
                    "Read &Incoming Flashmail", "Check Mail You've &Read",
                    "Check Mail You've &Sent", "-", "&Address Book", "Mail &Preferences"}});
  } else {
    bar.push_back({"&Mail", {"&Compose Mail", "Read &New Mail", "Check Mail You've &Read"}});
  }
  bar.push_back({"&Members",
                 {"Send An Instant Message", "Get a Member's &Profile",
                  "&Locate a Member Online", "Member &Directory", "&Preferences",
                  "&Parental Control"}});
  bar.push_back({"&Window", {"&Cascade", "&Tile", "&Arrange Icons", "Close &All"}});
  if (generation == 3) {
    bar.push_back({"&Help", {"&Help Topics", "&Offline Help", "-", "&About America Online"}});
  } else {
    bar.push_back({"&Help",
                   {"&Contents", "&Search for Help On...", "&How to Use Help", "-",
                    "&About America Online"}});
  }
  return bar;
}

}  // namespace

void SimClient::BuildTree() {
  frame_ = desktop_.NewWindow(0, aol::kFrameClass, aol::kFrameCaption);
  BuildMenuBar();
  BuildToolbar();
  mdi_ = desktop_.NewWindow(frame_, aol::kMdiClientClass);
  BuildDocuments();
}

void SimClient::BuildMenuBar() {
  Hmenu bar = desktop_.CreateMenu();
  std::int32_t id = 1001;
  for (const DropDown& d : MenuBarOf(options_.generation)) {
    Hmenu sub = desktop_.CreateMenu();
    for (const char* entry : d.entries) {
      if (std::string(entry) == "-") {
        desktop_.AppendSeparator(sub);
        continue;
      }
      desktop_.AppendItem(sub, id, entry);
      commands_[id++] = entry;
    }
    desktop_.AppendSubMenu(bar, d.title, sub);
  }
  desktop_.SetMenu(frame_, bar);
  desktop_.SetHandler(frame_, [this](const SimMessage& m) -> std::optional<std::int32_t> {
    if (m.message != aol::kWmCommand) return std::nullopt;
    auto it = commands_.find(m.wParam);
    if (it != commands_.end()) RunCommand(it->second);
    return 0;
  });
}

void SimClient::BuildToolbar() {
  Hwnd host = desktop_.NewWindow(frame_, aol::kToolbarHostClass);
  toolbar_ = desktop_.NewWindow(host, aol::kToolbarClass);
  const bool newer = options_.generation >= 4;
  // Generations 4 and 5 have ten large icons, the glyph, the keyword box and four small icons;
  // the older ones a row of small icons and the glyph.
  const int firstRow = newer ? 10 : 16;
  AddControls(toolbar_, aol::kIconClass, firstRow);
  AddControl(toolbar_, aol::kGlyphClass);
  if (newer) {
    Hwnd combo = AddControl(toolbar_, aol::kComboboxClass);
    keywordEdit_ = AddControl(combo, aol::kEditClass);
    desktop_.SetHandler(keywordEdit_, [this](const SimMessage& m) { return KeywordEditMessage(m); });
    AddControls(toolbar_, aol::kIconClass, 4);
  }
  // Every icon reports its number and runs what is registered for it at the time of the click.
  int n = 0;
  for (Hwnd icon : desktop_.Children(toolbar_)) {
    if (desktop_.ClassOf(icon) != aol::kIconClass) continue;
    const int number = ++n;
    const std::string key = "toolbar icon " + std::to_string(number);
    OnClick(icon, key, [this, number] {
      Log(kEventToolbarIcon, std::to_string(number));
      auto it = iconActions_.find(number);
      if (it != iconActions_.end() && it->second) it->second();
    });
  }
}

void SimClient::BuildDocuments() {
  if (!options_.signedOn) {
    OpenSignOnWindow();
    return;
  }
  // The welcome window comes first and so ends up behind the channels window.
  OpenWelcome();
  Hwnd channels = OpenDocument(options_.generation >= 4 ? "AOL Channels" : "Main Menu");
  AddControls(channels, aol::kIconClass, 14);
}

Hwnd SimClient::OpenWelcome() {
  Hwnd w = OpenDocument(aol::kWelcomePrefix + options_.screenName + "!");
  AddControl(w, aol::kStaticClass, "You have mail.");
  AddControls(w, aol::kIconClass, 6);
  return w;
}

Hwnd SimClient::OpenSignOnWindow() {
  // AOL 95 and older greet with "Welcome" before signing on: no comma, so no screen name.
  Hwnd w = OpenDocument(options_.generation >= 4 ? "Sign On" : "Welcome");
  AddControl(w, aol::kAolEditClass);
  AddControls(w, aol::kIconClass, 3);
  return w;
}

std::vector<SimClient::PopupEntry> SimClient::ToolbarPopupEntries() const {
  if (options_.generation == 5) {
    // Fifteen Downs from the top reach the outgoing mail.
    return {{"&Mail Center", {}},        {"&Read Mail", {}},
            {"&Write Mail", {}},         {"&Address Book", {}},
            {"Recently &Deleted Mail", {}}, {"&Old Mail", {}},
            {"&Sent Mail", {}},          {"Mail &Preferences", {}},
            {"Mail &Controls", {}},      {"&Greetings && Mail Extras", {}},
            {"Mail &Signatures", {}},    {"Automatic &AOL", {}},
            {"&Filing Cabinet", {}},     {"&Newsletters", {}},
            {kPopupOutgoingEntry, {}},   {"&Help", {}}};
  }
  // Generation 4: Up reaches the last entry, Right opens it, Down takes its second entry.
  return {{"&Read Mail", {}},
          {"&Write Mail", {}},
          {"&Address Book", {}},
          {"Mail &Preferences", {}},
          {"Mail &Controls", {}},
          {"&Personal Filing Cabinet",
           {{"&Offline Mail", {}},
            {kPopupOutgoingEntry, {}},
            {"Mail You've &Sent", {}},
            {"Mail You've &Read", {}}}}};
}

}  // namespace qc::sim
