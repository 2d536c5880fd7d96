// The drivers over the Win32 backend against the client double: every scenario of
// win32_scenarios.txt, one test each. Runs under Wine: scripts/test-windows.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <optional>

#include "base/pump.h"
#include "client/win32/win32_window_system.h"
#include "sim/win32/client_double.h"
#include "support/budget.h"
#include "support/driver_routines.h"
#include "support/script_words.h"

namespace qc {
namespace {

using test::Words;

std::string HereFolder() {
  char path[MAX_PATH] = {};
  ::GetModuleFileNameA(nullptr, path, MAX_PATH);
  std::string p = path;
  return p.substr(0, p.find_last_of("\\/") + 1);
}

// A real file for the attach dialogs, in the temporary folder.
const std::string& RealFile() {
  static const std::string path = [] {
    char folder[MAX_PATH] = {};
    ::GetTempPathA(MAX_PATH, folder);
    std::string p = std::string(folder) + "Artist - Title.mp3";
    std::ofstream(p, std::ios::binary) << std::string(4096, '\xFF');
    return p;
  }();
  return path;
}

std::string WithFile(std::string text, const std::string& file) {
  for (auto at = text.find("FILE"); at != std::string::npos; at = text.find("FILE", at + 1)) {
    text.replace(at, 4, file);
  }
  return text;
}

struct Scenario {
  std::string name;
  bool inProcess = false;
  Words setup;
  Words list;
  double budgetSeconds = 60;
  Words run;
  bool waits = false;
  std::optional<std::string> result;
  std::vector<std::string> holds;
  std::vector<std::string> events;
  bool sameTrace = false;
};

void PrintTo(const Scenario& s, std::ostream* out) { *out << s.name; }

// FILE in the run words is the real file's path; in holds, the path as the double writes it.
std::vector<Scenario> LoadScenarios() {
  std::vector<Scenario> all;
  std::ifstream in(HereFolder() + "win32_scenarios.txt", std::ios::binary);
  std::string line;
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty() || line[0] == '#') continue;
    const std::size_t blank = line.find(' ');
    const std::string op = line.substr(0, blank);
    const std::string rest = blank == std::string::npos ? "" : line.substr(blank + 1);
    if (op == "scenario") {
      all.push_back({rest});
      continue;
    }
    if (all.empty()) continue;
    Scenario& s = all.back();
    if (op == "in-process") s.inProcess = true;
    if (op == "double") s.setup = test::ScriptWords(rest);
    if (op == "list") s.list = test::ScriptWords(rest);
    if (op == "budget") s.budgetSeconds = std::stod(rest);
    if (op == "run") {
      s.run = test::ScriptWords(rest);
      for (std::string& w : s.run) w = WithFile(w, RealFile());
    }
    if (op == "waits") s.waits = true;
    if (op == "result") s.result = test::ScriptWords(rest).at(0);
    if (op == "hold") s.holds.push_back(WithFile(rest, sim::Escaped(RealFile())));
    if (op == "event") s.events.push_back(rest);
    if (op == "same-trace") s.sameTrace = true;
  }
  return all;
}

// Waits in the drivers never give up; across processes a run that would hang fails after this
// much real time.
class WallBudget {
 public:
  explicit WallBudget(double seconds)
      : deadline_(std::chrono::steady_clock::now() +
                  std::chrono::duration_cast<std::chrono::steady_clock::duration>(
                      std::chrono::duration<double>(seconds))),
        hook_(AddPumpHook([this] {
          if (std::chrono::steady_clock::now() > deadline_)
            throw test::BudgetExhausted("the wait outlived its budget");
        })) {}
  ~WallBudget() { RemovePumpHook(hook_); }

 private:
  std::chrono::steady_clock::time_point deadline_;
  PumpHookId hook_;
};

// The client double in a process of its own, started for one scenario and ended with it.
class DoubleProcess {
 public:
  explicit DoubleProcess(const Words& setup) {
    report_ = HereFolder() + "double_report.txt";
    std::string command = "\"" + HereFolder() + "client_double.exe\" \"report=" + report_ + "\"";
    for (const std::string& w : setup) command += " \"" + w + "\"";
    STARTUPINFOA si{};
    si.cb = sizeof si;
    std::vector<char> line(command.begin(), command.end());
    line.push_back('\0');
    if (!::CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &si,
                          &process_)) {
      ADD_FAILURE() << "cannot start " << command;
      return;
    }
    for (int i = 0; i < 3000 && !control_; ++i) {
      control_ = ::FindWindowA(sim::kDoubleControlClass, nullptr);
      if (!control_) ::Sleep(10);
    }
    if (!control_) ADD_FAILURE() << "the client double never came up";
  }
  ~DoubleProcess() {
    if (control_) ::PostMessageA(control_, WM_CLOSE, 0, 0);
    if (process_.hProcess) {
      if (::WaitForSingleObject(process_.hProcess, 10000) != WAIT_OBJECT_0) {
        ::TerminateProcess(process_.hProcess, 1);
        ::WaitForSingleObject(process_.hProcess, 10000);
      }
      ::CloseHandle(process_.hProcess);
      ::CloseHandle(process_.hThread);
    }
    ::DeleteFileA(report_.c_str());
  }
  DoubleProcess(const DoubleProcess&) = delete;
  DoubleProcess& operator=(const DoubleProcess&) = delete;

  std::vector<std::string> Report() {
    DWORD_PTR done = 0;
    ::SendMessageTimeoutA(control_, ::RegisterWindowMessageA(sim::kDoubleReportMessage), 0, 0,
                          SMTO_NORMAL, 10000, &done);
    std::vector<std::string> lines;
    std::ifstream in(report_, std::ios::binary);
    for (std::string l; std::getline(in, l);) lines.push_back(l);
    return lines;
  }

 private:
  PROCESS_INFORMATION process_{};
  HWND control_ = nullptr;
  std::string report_;
};

std::vector<std::string> Section(const std::vector<std::string>& report, const std::string& kind) {
  std::vector<std::string> out;
  for (const std::string& l : report) {
    if (l.rfind(kind + " ", 0) == 0) out.push_back(l.substr(kind.size() + 1));
  }
  return out;
}

// Two processes run at their own pace, so how often a wait reads again, or presses again before a
// window goes, follows the timing and not the script: a run of one block of up to four lines
// repeated counts once. A message posted to a window already gone reaches no one on a real
// desktop, while the simulated desktop records it: such lines go.
std::vector<std::string> Folded(std::vector<std::string> lines) {
  std::erase_if(lines, [](const std::string& l) { return l.find(" gone:") != std::string::npos; });
  for (bool changed = true; changed;) {
    changed = false;
    for (std::size_t k = 1; k <= 4; ++k) {
      for (std::size_t i = 0; i + 2 * k <= lines.size();) {
        if (std::equal(lines.begin() + i, lines.begin() + i + k, lines.begin() + i + k)) {
          lines.erase(lines.begin() + i + k, lines.begin() + i + 2 * k);
          changed = true;
        } else {
          ++i;
        }
      }
    }
  }
  return lines;
}

std::string Shown(const std::vector<std::string>& lines) {
  std::string out;
  for (const std::string& l : lines) out += "  " + l + "\n";
  return out;
}

// The double in this process, on this thread, under a virtual clock that lets the waits pass
// without sleeping: with its windows, which this thread's pump serves, for the Win32 backend to
// drive; without, the model alone, driven straight, for the messages it receives.
std::vector<std::string> PlayInProcess(const Scenario& s, bool windows, std::string& result,
                                       bool& hung) {
  test::VirtualTime time;
  sim::ClientDouble client(sim::ParseSetup(s.setup), windows);
  Win32WindowSystem ws;
  if (windows) SetEventProcessor([&client] { client.mirror()->PumpMessages(); });
  for (int i = 0; i < 50; ++i) WaitEvents();
  client.desktop().ClearTrace();
  {
    test::PumpBudget budget(static_cast<std::uint64_t>(s.budgetSeconds * 10000));
    test::AddressVector list;
    list.items = s.list;
    result = test::RunRoutine(windows ? static_cast<WindowSystem&>(ws) : client.desktop(), s.run,
                              list, hung);
  }
  Pause(1.0);  // what the client does with the last messages
  SetEventProcessor({});
  return client.Report();
}

class Win32Scenario : public ::testing::TestWithParam<Scenario> {
 protected:
  void TearDown() override {
    SetEventProcessor({});
    SetEventWaiter({});
  }
};

TEST_P(Win32Scenario, DoubleHoldsWhatTheDriverDid) {
  const Scenario& s = GetParam();
  std::string unknown;
  sim::ParseSetup(s.setup, &unknown);
  ASSERT_EQ(unknown, "") << "unknown setup words";
  bool hung = false;
  std::string result;
  std::vector<std::string> report;
  std::uint64_t pumps = PumpCount();
  if (s.inProcess) {
    report = PlayInProcess(s, /*windows=*/true, result, hung);
  } else {
    SetEventProcessor(&Win32ProcessMessages);
    SetEventWaiter(&Win32WaitForMessages);
    DoubleProcess client(s.setup);
    {
      WallBudget budget(s.budgetSeconds);
      Win32WindowSystem ws;
      test::AddressVector list;
      list.items = s.list;
      result = test::RunRoutine(ws, s.run, list, hung);
    }
    Pause(1.0);  // what the client does with the last messages
    report = client.Report();
  }
  pumps = PumpCount() - pumps;

  const std::string told = "\nthe double logged:\n" + Shown(Section(report, "event")) +
                           "and received:\n" + Shown(Section(report, "trace"));
  EXPECT_EQ(hung, s.waits) << (hung ? "the routine was still waiting" : "the routine returned")
                           << " after " << pumps << " pumps" << told;
  if (s.result) {
    EXPECT_EQ(result, *s.result);
  }
  EXPECT_EQ(Section(report, "hold"), s.holds) << told;
  const std::vector<std::string> events = Section(report, "event");
  for (const std::string& e : s.events) {
    EXPECT_NE(std::find(events.begin(), events.end(), e), events.end()) << e << told;
  }
  EXPECT_EQ(Section(report, "violation"), std::vector<std::string>{}) << told;
  if (s.sameTrace) {
    std::string ignored;
    bool alsoHung = false;
    const std::vector<std::string> reference =
        Section(PlayInProcess(s, /*windows=*/false, ignored, alsoHung), "trace");
    EXPECT_EQ(Folded(Section(report, "trace")), Folded(reference))
        << "the double received:\n" << Shown(Section(report, "trace"))
        << "the simulated client in this process:\n" << Shown(reference);
  }
}

INSTANTIATE_TEST_SUITE_P(Scenarios, Win32Scenario, ::testing::ValuesIn(LoadScenarios()),
                         [](const auto& info) { return test::TestName(info.param.name); });

}  // namespace
}  // namespace qc
