// The drivers over the real Win32 backend, against the client double in a process of its own.
// Runs under Wine: scripts/test-windows.
#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "base/pump.h"
#include "client/address_list.h"
#include "client/client_commands.h"
#include "client/compose_mail.h"
#include "client/full_box.h"
#include "client/instant_message.h"
#include "client/win32/win32_window_system.h"
#include "client/window_routines.h"
#include "client/write_mail.h"
#include "sim/sim_client.h"
#include "sim/sim_desktop.h"
#include "sim/sim_mail.h"
#include "support/budget.h"
#include "tests/win32/double_protocol.h"

namespace qc {
namespace {

using Fields = std::vector<std::string>;

// What the double reports: records by kind, fields unescaped.
struct Report {
  std::vector<std::string> trace;
  std::vector<Fields> outgoing, sent, chat, ims;
  std::vector<std::string> events;
  std::string imsState;
};

std::string Unescaped(const std::string& text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      out += text[i];
      continue;
    }
    char c = text[++i];
    out += c == 't' ? '\t' : c == 'r' ? '\r' : c == 'n' ? '\n' : c;
  }
  return out;
}

Report ParseReport(const std::string& path) {
  Report r;
  std::ifstream in(path, std::ios::binary);
  std::string line;
  while (std::getline(in, line)) {
    Fields f;
    std::size_t start = 0;
    for (;;) {
      std::size_t tab = line.find('\t', start);
      f.push_back(Unescaped(line.substr(start, tab - start)));
      if (tab == std::string::npos) break;
      start = tab + 1;
    }
    const std::string kind = f.front();
    f.erase(f.begin());
    if (kind == "trace") r.trace.push_back(f.at(0));
    if (kind == "outgoing") r.outgoing.push_back(f);
    if (kind == "sent") r.sent.push_back(f);
    if (kind == "chat") r.chat.push_back(f);
    if (kind == "im") r.ims.push_back(f);
    if (kind == "ims") r.imsState = f.at(0);
    if (kind == "event") r.events.push_back(f.at(0) + ": " + f.at(1));
  }
  return r;
}

std::string HereFolder() {
  char path[MAX_PATH] = {};
  ::GetModuleFileNameA(nullptr, path, MAX_PATH);
  std::string p = path;
  return p.substr(0, p.find_last_of("\\/") + 1);
}

// Waits in the drivers never give up; a test that would hang fails after this much real time.
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

// The client double, started for one test and ended with it.
class DoubleClient {
 public:
  explicit DoubleClient(const std::string& args) {
    report_ = HereFolder() + "double_report_" + std::to_string(::GetCurrentProcessId()) + ".txt";
    std::string command = "\"" + HereFolder() + "client_double.exe\" --report \"" + report_ +
                          "\" " + args;
    STARTUPINFOA si{};
    si.cb = sizeof si;
    std::vector<char> line(command.begin(), command.end());
    line.push_back('\0');
    if (!::CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                          &si, &process_)) {
      ADD_FAILURE() << "cannot start " << command;
      return;
    }
    for (int i = 0; i < 3000 && !control_; ++i) {
      control_ = ::FindWindowA(win32double::kControlClass, nullptr);
      if (!control_) ::Sleep(10);
    }
    if (!control_) ADD_FAILURE() << "the client double never came up";
  }
  ~DoubleClient() {
    if (control_ && ::IsWindow(control_)) ::PostMessageA(control_, WM_CLOSE, 0, 0);
    if (process_.hProcess) {
      if (::WaitForSingleObject(process_.hProcess, 10000) != WAIT_OBJECT_0)
        ::TerminateProcess(process_.hProcess, 1);
      ::CloseHandle(process_.hProcess);
      ::CloseHandle(process_.hThread);
    }
    ::DeleteFileA(report_.c_str());
  }
  DoubleClient(const DoubleClient&) = delete;
  DoubleClient& operator=(const DoubleClient&) = delete;

  // Lets the double finish what it was asked, then reads what it holds.
  Report Read(double settleSeconds = 1.0) {
    Pause(settleSeconds);
    ::SendMessageA(control_, ::RegisterWindowMessageA(win32double::kReportMessageName), 0, 0);
    return ParseReport(report_);
  }
  void Kill() {
    ::TerminateProcess(process_.hProcess, 1);
    ::WaitForSingleObject(process_.hProcess, 10000);
    control_ = nullptr;
  }

 private:
  PROCESS_INFORMATION process_{};
  HWND control_ = nullptr;
  std::string report_;
};

class Win32ClientTest : public ::testing::Test {
 protected:
  void SetUp() override { SetEventProcessor(&Win32ProcessMessages); }
  void TearDown() override { SetEventProcessor({}); }
  Win32WindowSystem ws;
};

// The same script against the simulated client in this process, for its trace.
template <typename Script>
std::vector<std::string> InProcessTrace(int generation, const std::string& file, Script script) {
  test::VirtualTime time;
  sim::SimDesktop desktop;
  sim::ClientOptions options;
  options.generation = generation;
  sim::SimClient client(desktop, options);
  sim::SimMail mail(client);
  mail.AddFile(file);
  desktop.ClearTrace();
  {
    test::PumpBudget budget(2'000'000);
    script(static_cast<WindowSystem&>(desktop));
    Pause(1.0);
  }
  return desktop.TraceLines(sim::kTraceMessages);
}

// The double's trace, for failure messages.
std::string Told(const Report& r) {
  std::string out = "\nthe client received:\n";
  for (const std::string& l : r.trace) out += "  " + l + "\n";
  out += "and logged:\n";
  for (const std::string& l : r.events) out += "  " + l + "\n";
  return out;
}

constexpr char kFile[] = "C:\\mp3\\Artist - Title.mp3";
constexpr char kBody[] = "Title: Title\r\nArtist: Artist\r\n";

TEST_F(Win32ClientTest, FindsTheClientAndReadsItsVersionAndScreenName) {
  DoubleClient five("--generation 5 --screen-name \"Brindle Rose\"");
  EXPECT_EQ(ClientVersion(ws), 5);
  EXPECT_EQ(ClientScreenName(ws), "Brindle Rose");
  EXPECT_NE(FindMdiClient(ws), 0);
}

TEST_F(Win32ClientTest, GenerationFiveMailQueuesWithItsAttachmentAndTracesAsInProcess) {
  auto script = [](WindowSystem& w) {
    SendFileMail50(w, "bob, ann", "[Artist]-Title", kBody, kFile, true);
  };
  DoubleClient client(std::string("--generation 5 --file \"") + kFile + "\"");
  {
    WallBudget budget(60);
    script(ws);
  }
  Report r = client.Read();
  ASSERT_EQ(r.outgoing.size(), 1u) << Told(r);
  EXPECT_EQ(r.outgoing[0], (Fields{"bob, ann", "[Artist]-Title", kBody, kFile}));
  EXPECT_EQ(r.trace, InProcessTrace(5, kFile, script));
}

TEST_F(Win32ClientTest, GenerationThreeMailQueuesWithItsAttachment) {
  DoubleClient client(std::string("--generation 3 --file \"") + kFile + "\"");
  {
    WallBudget budget(60);
    SendFileMail95(ws, "bob", "[Artist]-Title", kBody, kFile, true);
  }
  Report r = client.Read();
  ASSERT_EQ(r.outgoing.size(), 1u) << Told(r);
  EXPECT_EQ(r.outgoing[0], (Fields{"bob", "[Artist]-Title", kBody, kFile}));
}

TEST_F(Win32ClientTest, NoticeMailIsSent) {
  DoubleClient client("--generation 5");
  {
    WallBudget budget(60);
    SendNoticeMail50(ws, "bob", " start: ", "log");
  }
  Report r = client.Read();
  ASSERT_EQ(r.sent.size(), 1u) << Told(r);
  EXPECT_EQ(r.sent[0][1], " start: ");
}

TEST_F(Win32ClientTest, ToolbarMenuOpensTheOutgoingList) {
  DoubleClient client("--generation 5");
  {
    WallBudget budget(60);
    RunToolbarMenu(ws, 3, 1);
  }
  Report r = client.Read();
  EXPECT_FALSE(r.trace.empty());
}

class Addresses : public AddressList {
 public:
  explicit Addresses(std::vector<std::string> items) : items_(std::move(items)) {}
  int Count() const override { return static_cast<int>(items_.size()); }
  std::string Item(int index) const override { return items_.at(index); }
  void Remove(int index) override { items_.erase(items_.begin() + index); }
  std::vector<std::string> items_;
};

TEST_F(Win32ClientTest, FullBoxCheckRemovesTheOneFullAddress) {
  DoubleClient client("--generation 5 --full carol");
  Addresses list({"bob", "carol", "ann"});
  {
    WallBudget budget(60);
    CheckFullBoxes(ws, list);
  }
  EXPECT_EQ(list.items_, (std::vector<std::string>{"bob", "ann"}));
}

TEST_F(Win32ClientTest, InstantMessageReachesItsReceiver) {
  DoubleClient client("--generation 5");
  {
    WallBudget budget(60);
    SendInstantMessage(ws, "bob", "hi there");
  }
  Report r = client.Read();
  ASSERT_EQ(r.ims.size(), 1u) << Told(r);
  EXPECT_EQ(r.ims[0], (Fields{"bob", "hi there"}));
}

TEST_F(Win32ClientTest, AVanishedClientLeavesTheDriverWaitingWithoutACrash) {
  DoubleClient client("--generation 5");
  client.Kill();
  WallBudget budget(3);
  EXPECT_THROW(SendFileMail50(ws, "bob", "s", "b", kFile, true), test::BudgetExhausted);
}

}  // namespace
}  // namespace qc
