// The driver contract: every file in golden/ is one scenario, a routine played against the strict
// simulated client, with the messages the routine must send (posted or sent, target, wParam,
// lParam, where it pumps, the pauses it makes, how often it presses again), what the client did
// and what it holds at the end. This one runner plays them all and compares. Reads (lookups, menu
// and caption reads, WM_GETTEXTLENGTH and WM_GETTEXT) are left out of the script; the simulated
// desktop checks every message's parameters against the message table on its own.
//
// File format, one statement a line; a line that begins with "#" is a comment:
//   client G [noise] [slow] [never] [last=PART]   the client; slow builds the last part late,
//                             never not at all. Each client line is played on its own and must
//                             give the same.
//   file PATH | full ADDR | member NAME | buddy both|lists | refuse-paths N
//   ignore KEY N (a mail control ignores N clicks) | ignore-clicks N (any control)
//   room CAPTION [A|B] [rich|edit] | typed TEXT | modal | popup
//   box CAPTION BUTTON...     a message box of the client
//   list ITEM...              the address list of a full-box check
//   budget N                  pump passes before the scenario counts as hung
//   hangs                     the routine must still be waiting, and pumping, when they are spent
//   deaf-keyword KEY          the keyword, and those that begin with it, open nothing
//   run ROUTINE ARG...        texts in quotes, UTF-8 (the program's side)
//   define NAME = PATH        NAME stands for PATH in the script
//   script                    then: send|post PATH MSG WPARAM LPARAM, show PATH CMD, cursor ...,
//                             pump (one pass), pump N (exactly N), wait (one or more: a wait
//                             loop), pause S (passes spanning at least S seconds),
//                             repeat N ... end
//   client                    then the client's events, "kind: detail", repeats as in the script
//   holds                     then what the client holds at the end
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>

#include "base/cp1252.h"
#include "base/pump.h"
#include "client/vocabulary.h"
#include "client/window_system.h"
#include "sim/sim_chat.h"
#include "sim/sim_client.h"
#include "sim/sim_im.h"
#include "sim/sim_mail.h"
#include "support/budget.h"
#include "support/driver_routines.h"
#include "support/script_words.h"

namespace qc::test {
namespace {

namespace fs = std::filesystem;

fs::path GoldenDir() { return fs::path(QC_TEST_DATA_DIR).parent_path() / "golden"; }

std::string Escaped(const std::string& text) {
  std::string out;
  for (char c : text) {
    out += c == '\r' ? "\\r" : c == '\n' ? "\\n" : c == '\t' ? "\\t" : std::string(1, c);
  }
  return out;
}

std::string Trimmed(const std::string& s) {
  const auto b = s.find_first_not_of(' ');
  return b == std::string::npos ? "" : s.substr(b, s.find_last_not_of(' ') - b + 1);
}

// One item of a script: a message line or a run of pumps.
struct Item {
  std::string line;      // empty for pumps
  std::uint64_t pumps = 0;
  double span = 0;       // seconds from the item before the run to the one after it
};

struct Scenario {
  std::vector<std::string> setup;
  std::vector<std::pair<std::string, std::string>> defines;
  std::vector<std::string> script;
  std::vector<std::string> events;
  std::vector<std::string> holds;
};

Scenario Parse(const fs::path& file) {
  Scenario s;
  std::ifstream in(file);
  std::string raw;
  std::vector<std::string>* section = &s.setup;
  while (std::getline(in, raw)) {
    const std::string line = Trimmed(raw);
    if (line.empty() || line[0] == '#') continue;
    if (line == "script") {
      section = &s.script;
    } else if (line == "client" && section != &s.setup) {
      section = &s.events;
    } else if (line == "holds") {
      section = &s.holds;
    } else if (line.rfind("define ", 0) == 0) {
      const auto eq = line.find(" = ");
      // A path may begin with a name defined before it.
      std::string path = " " + Trimmed(line.substr(eq + 3)) + " ";
      for (const auto& [name, value] : s.defines) {
        if (path.rfind(" " + name + "/", 0) == 0) path.replace(1, name.size(), value);
      }
      s.defines.emplace_back(Trimmed(line.substr(7, eq - 7)), Trimmed(path));
    } else {
      section->push_back(line);
    }
  }
  return s;
}

// An expected line, or with a body a loop over expected lines, once or more (as often as its body
// matches). "repeat N" is its body written out N times.
struct Node {
  std::string line;
  std::vector<Node> body;
};

// Puts names for paths (toNames) or paths for names. A path stands behind a blank or "gone:".
std::string Substitute(std::string line, const Scenario& s, bool toNames) {
  auto pairs = s.defines;
  if (toNames) {
    for (auto& [name, path] : pairs) std::swap(name, path);
  }
  // Longest first, so that one may begin another.
  std::sort(pairs.begin(), pairs.end(),
            [](const auto& a, const auto& b) { return a.first.size() > b.first.size(); });
  for (const auto& [from, to] : pairs) {
    for (const char* lead : {" ", "gone:"}) {
      for (const char* tail : {"/", " "}) {
        const std::string key = lead + from + tail;
        for (auto at = line.find(key); at != std::string::npos; at = line.find(key, at + 1)) {
          line.replace(at + std::strlen(lead), from.size(), to);
        }
      }
    }
  }
  return line;
}

std::vector<Node> Tree(const Scenario& s, const std::vector<std::string>& lines) {
  std::vector<std::vector<Node>> open(1);
  std::vector<int> times;  // 0: once or more
  for (const std::string& line : lines) {
    const Words w = ScriptWords(line);
    if (w[0] == "repeat" || w[0] == "repeat+") {
      times.push_back(w[0] == "repeat+" ? 0 : std::stoi(w[1]));
      open.emplace_back();
    } else if (w[0] == "end") {
      const std::vector<Node> body = std::move(open.back());
      open.pop_back();
      if (times.back() == 0) open.back().push_back({"", body});
      for (int k = 0; k < times.back(); ++k) {
        open.back().insert(open.back().end(), body.begin(), body.end());
      }
      times.pop_back();
    } else {
      open.back().push_back({Substitute(line, s, false)});
    }
  }
  return open.front();
}

bool Matches(const std::string& expected, const Item& actual) {
  const Words w = ScriptWords(expected);
  if (w[0] != "pump" && w[0] != "pause" && w[0] != "wait") return actual.line == expected;
  if (!actual.line.empty()) return false;
  // Pauses read the single-precision timer, so they may end a few milliseconds short.
  if (w[0] == "pause") return actual.span >= std::stod(w[1]) - 0.005;
  if (w[0] == "wait") return true;
  return actual.pumps == (w.size() == 1 ? 1 : std::stoull(w[1]));
}

// Matches nodes against items from `at`; the position behind the match, or npos.
std::size_t MatchNodes(const std::vector<Node>& nodes, const std::vector<Item>& items,
                       std::size_t at) {
  for (const Node& n : nodes) {
    if (n.body.empty()) {
      if (at >= items.size() || !Matches(n.line, items[at])) return std::string::npos;
      ++at;
      continue;
    }
    std::size_t next = MatchNodes(n.body, items, at);
    if (next == std::string::npos) return next;
    do {
      at = next;
      next = MatchNodes(n.body, items, at);
    } while (next != std::string::npos && next != at);
  }
  return at;
}

// An item as a script line, with the scenario's names put back in; a run of pumps with the time
// it spans, where it spans any, in a comment.
std::string Show(const Item& item, const Scenario& s) {
  if (!item.line.empty()) return Substitute(item.line, s, true);
  std::ostringstream out;
  if (item.span > 0) out << "# " << item.span << " s\n";
  out << (item.pumps == 1 ? "pump" : "pump " + std::to_string(item.pumps));
  return out.str();
}

// One play of a scenario on a fresh desktop under virtual time.
class Play {
 public:
  VirtualTime vt;
  sim::SimDesktop d;
  std::unique_ptr<sim::SimClient> client;
  std::unique_ptr<sim::SimMail> mail;
  std::unique_ptr<sim::SimIm> im;
  std::unique_ptr<sim::SimChat> chat;
  AddressVector list;
  std::uint64_t budget = 100000;
  bool hangs = false;
  std::vector<std::string> typed;

  void Setup(const Words& w) {
    const std::string& op = w[0];
    if (op == "client") {
      sim::ClientOptions o{.generation = std::stoi(w[1])};
      for (std::size_t i = 2; i < w.size(); ++i) {
        if (w[i] == "noise") o.noise = true;
        if (w[i] == "slow") o.lastDelay = 1.5;
        if (w[i] == "never") o.lastDelay = 1e9;
        if (w[i].rfind("last=", 0) == 0) o.lastPart = w[i].substr(5);
      }
      client = std::make_unique<sim::SimClient>(d, o);
      mail = std::make_unique<sim::SimMail>(*client);
      im = std::make_unique<sim::SimIm>(*client);
      chat = std::make_unique<sim::SimChat>(*client);
    } else if (op == "file") {
      mail->AddFile(ToCodePage(w[1]));
    } else if (op == "full") {
      mail->MarkFull(w[1]);
    } else if (op == "member") {
      im->AddMember(w[1]);
    } else if (op == "buddy") {
      im->SetBuddyCaption(w[1] == "both" ? sim::BuddyCaption::kBoth : sim::BuddyCaption::kLists);
    } else if (op == "refuse-paths") {
      mail->RefusePaths(std::stoi(w[1]));
    } else if (op == "ignore") {
      mail->IgnoreClicks(w[1], std::stoi(w[2]));
    } else if (op == "ignore-clicks") {
      client->IgnoreClicks(std::stoi(w[1]));
    } else if (op == "room") {
      const auto form = w.size() > 2 && w[2] == "B" ? sim::RoomForm::kB : sim::RoomForm::kA;
      const auto input = w.size() > 3 && w[3] == "edit" ? sim::RoomInput::kAolEdit
                                                        : sim::RoomInput::kRichPair;
      const Hwnd room = chat->OpenRoom(ToCodePage(w[1]), form, input);
      for (const auto& t : typed) chat->Type(room, ToCodePage(t));
    } else if (op == "typed") {
      typed.push_back(w[1]);
    } else if (op == "modal") {
      client->OpenTopLevel(aol::kModalClass, "", client->frame());
    } else if (op == "box") {
      client->ShowDialog(ToCodePage(w[1]), "", Words(w.begin() + 2, w.end()));
    } else if (op == "popup") {
      client->ShowForeignPopup();
    } else if (op == "list") {
      list.items.assign(w.begin() + 1, w.end());
    } else if (op == "budget") {
      budget = std::stoull(w[1]);
    } else if (op == "hangs") {
      hangs = true;
    } else if (op == "deaf-keyword") {
      client->OnKeyword(ToCodePage(w[1]), [](const std::string&) {});
      client->OnKeywordPrefix(ToCodePage(w[1]), [](const std::string&) {});
    } else {
      ADD_FAILURE() << "unknown statement " << op;
    }
  }

  // What the client holds: its mails, privacy saves, and the address list.
  std::vector<std::string> Holds() const {
    std::vector<std::string> out;
    auto mailLine = [](const std::string& head, const sim::MailRecord& r) {
      std::string files;
      for (const auto& f : r.attachments) files += (files.empty() ? "" : " ") + f;
      return Escaped(Cp1252ToUtf8(head + " to \"" + r.to + "\" subject \"" + r.subject +
                                  "\" body \"" + r.body + "\" files \"" + files + "\""));
    };
    for (const auto& r : mail->Outgoing()) out.push_back(mailLine("queued", r));
    for (const auto& r : mail->Sent()) out.push_back(mailLine("sent", r));
    for (Hwnd h : mail->MailWindows()) {
      out.push_back(mailLine("open \"" + d.TextOf(h) + "\"", mail->Fields(h)));
    }
    for (const auto& save : im->Saves()) {
      std::string line = "privacy";
      for (std::size_t i = 0; i < save.size(); ++i) {
        if (save[i]) line += " " + std::to_string(i + 1) + "=" + std::to_string(*save[i]);
      }
      out.push_back(line);
    }
    for (Hwnd w : im->BuddyWindows()) out.push_back("open \"" + Cp1252ToUtf8(d.TextOf(w)) + "\"");
    if (!list.items.empty() || client->HasEvent(sim::kEventMailRefused, "-")) {
      std::string line = "list";
      for (const auto& item : list.items) line += " " + item;
      out.push_back(line);
    }
    return out;
  }

  void Go(const Scenario& s, const std::string& clientLine);
};

void Play::Go(const Scenario& s, const std::string& clientLine) {
  Words run;
  Setup(ScriptWords(clientLine));
  for (const std::string& line : s.setup) {
    const Words w = ScriptWords(line);
    if (w[0] == "run") {
      run.assign(w.begin() + 1, w.end());
    } else if (w[0] != "client") {
      Setup(w);
    }
  }
  ASSERT_FALSE(run.empty()) << "no run statement";
  for (int i = 0; i < 50; ++i) WaitEvents();
  client->ClearEvents();

  // Record the program's messages, window and pointer calls, and its pumps, with their times.
  std::vector<Item> items;
  double lastTime = CurrentClock().Now();
  d.SetTraceListener([&](const sim::TraceEntry& e) {
    if (e.kind == sim::TraceKind::kLookup || e.kind == sim::TraceKind::kMenu ||
        e.kind == sim::TraceKind::kText || e.op == "IsWindowVisible" ||
        e.message == aol::kWmGetText || e.message == aol::kWmGetTextLength) {
      return;
    }
    const double now = CurrentClock().Now();
    if (!items.empty() && items.back().line.empty()) items.back().span = now - lastTime;
    lastTime = now;
    std::string line = e.line;
    for (const auto& [op, word] : {std::pair{"SendMessageA ", "send "}, {"PostMessageA ", "post "},
                                   {"ShowWindow ", "show "}, {"GetCursorPos", "cursor GetCursorPos"},
                                   {"SetCursorPos", "cursor SetCursorPos"}}) {
      if (line.rfind(op, 0) == 0) line = word + line.substr(std::strlen(op));
    }
    items.push_back({Escaped(line)});
  });
  PumpHookId marker = AddPumpHook([&] {
    if (items.empty() || !items.back().line.empty()) items.push_back({});
    ++items.back().pumps;
    items.back().span = CurrentClock().Now() - lastTime;
  });
  bool hung = false;
  {
    PumpBudget limit(budget);
    RunRoutine(d, run, list, hung);
  }
  RemovePumpHook(marker);
  d.SetTraceListener(nullptr);
  for (int i = 0; i < 100; ++i) WaitEvents();  // what the client does with the last messages
  EXPECT_EQ(hung, hangs) << (hung ? "the routine did not return within " : "the routine returned in ")
                         << budget << " passes";

  std::vector<Item> events;
  for (const auto& e : client->Events()) {
    events.push_back({Trimmed(Escaped(Cp1252ToUtf8(e.kind + ": " + e.detail)))});
  }
  const std::vector<std::string> holds = Holds();
  EXPECT_EQ(MatchNodes(Tree(s, s.script), items, 0), items.size()) << "the script";
  EXPECT_EQ(MatchNodes(Tree(s, s.events), events, 0), events.size()) << "the client's events";
  EXPECT_EQ(holds, s.holds) << "what the client holds";
  EXPECT_TRUE(d.Violations().empty()) << d.Violations().front();
  if (::testing::Test::HasFailure()) {
    std::cout << "actual:\nscript\n";
    for (const Item& item : items) std::cout << Show(item, s) << "\n";
    std::cout << "client\n";
    for (const auto& e : events) std::cout << e.line << "\n";
    std::cout << "holds\n";
    for (const auto& h : holds) std::cout << h << "\n";
    std::cout << "end of actual\n";
  }
}

class ContractTest : public ::testing::TestWithParam<std::string> {};

// A scenario may name several clients (build orders, slow builds): each must take the same script.
TEST_P(ContractTest, DriverPlaysItsScript) {
  const Scenario s = Parse(GoldenDir() / (GetParam() + ".txt"));
  bool any = false;
  for (const std::string& line : s.setup) {
    if (line.rfind("client ", 0) != 0) continue;
    any = true;
    SCOPED_TRACE(line);
    Play play;
    play.Go(s, line);
    if (HasFailure()) return;
  }
  EXPECT_TRUE(any) << "no client statement";
}

INSTANTIATE_TEST_SUITE_P(Golden, ContractTest, 
                         ::testing::ValuesIn(ScenarioNames(GoldenDir())),
                         [](const auto& info) { return TestName(info.param); });

}  // namespace
}  // namespace qc::test
