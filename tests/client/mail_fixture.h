#pragma once
// A simulated client with its mail windows, under virtual time, and the trace read with the
// program's pumps marked in it.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "base/pump.h"
#include "client/address_list.h"
#include "sim/sim_client.h"
#include "sim/sim_mail.h"
#include "support/budget.h"

namespace qc::test {

using Lines = std::vector<std::string>;

inline constexpr char kMp3[] = "C:\\mp3\\Artist - Title.mp3";
inline const std::string kWriteMail = "AOL Frame25/MDIClient/AOL Child";
inline const std::string kToolbarIcon2 = "AOL Frame25/AOL Toolbar/_AOL_Toolbar/_AOL_Icon#2";
inline constexpr char kPump[] = "pump";

inline std::string Icon(const std::string& window, int n) {
  return window + "/_AOL_Icon" + (n > 1 ? "#" + std::to_string(n) : "");
}
inline std::string Posted(const std::string& target, int message) {
  return "PostMessageA " + target + " " + std::to_string(message) + " 0 0";
}
inline std::string Sent(const std::string& target, int message) {
  return "SendMessageA " + target + " " + std::to_string(message) + " 0 &0";
}

inline std::size_t Count(const Lines& lines, const std::string& line) {
  return static_cast<std::size_t>(std::count(lines.begin(), lines.end(), line));
}
inline std::size_t CountPrefix(const Lines& lines, const std::string& prefix) {
  return static_cast<std::size_t>(std::count_if(
      lines.begin(), lines.end(), [&](const std::string& l) { return l.rfind(prefix, 0) == 0; }));
}
// Position of the n-th (from 1) occurrence of a line, or npos.
inline std::size_t Find(const Lines& lines, const std::string& line, int n = 1) {
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (lines[i] == line && --n == 0) return i;
  }
  return std::string::npos;
}
// `after` lines behind the n-th occurrence of `line`, including it.
inline Lines From(const Lines& lines, const std::string& line, std::size_t count, int n = 1) {
  std::size_t at = Find(lines, line, n);
  if (at == std::string::npos) return {};
  return Lines(lines.begin() + static_cast<long>(at),
               lines.begin() + static_cast<long>(std::min(lines.size(), at + count)));
}
// Messages only, with "pump" where the program pumped; runs of pumps count as one.
inline Lines Squeezed(const Lines& lines) {
  Lines out;
  for (const std::string& l : lines) {
    if (l.rfind("PostMessageA", 0) != 0 && l.rfind("SendMessageA", 0) != 0 && l != kPump) continue;
    if (l == kPump && !out.empty() && out.back() == kPump) continue;
    out.push_back(l);
  }
  return out;
}

// An address list over a vector; reading past the end fails the test.
class VectorAddresses : public AddressList {
 public:
  explicit VectorAddresses(std::vector<std::string> items = {}) : items(std::move(items)) {}
  int Count() const override { return static_cast<int>(items.size()); }
  std::string Item(int index) const override {
    if (index < 0 || index >= Count()) {
      ADD_FAILURE() << "item " << index << " read past the end";
      return "";
    }
    return items[static_cast<std::size_t>(index)];
  }
  void Remove(int index) override { items.erase(items.begin() + index); }
  std::vector<std::string> items;
};

class MailTest : public ::testing::Test {
 protected:
  VirtualTime vt;
  sim::SimDesktop d;
  std::unique_ptr<sim::SimClient> client;
  std::unique_ptr<sim::SimMail> mail;  // goes before the client
  Lines marked;                        // trace lines with pumps marked
  PumpHookId markHook = 0;

  ~MailTest() override {
    if (markHook) RemovePumpHook(markHook);
  }

  sim::SimClient& Start(int generation) {
    mail.reset();
    client = std::make_unique<sim::SimClient>(d, sim::ClientOptions{.generation = generation});
    mail = std::make_unique<sim::SimMail>(*client);
    mail->AddFile(kMp3);
    Settle();
    d.ClearTrace();
    client->ClearEvents();
    return *client;
  }
  // Records every operation and every pump in order from now on.
  void MarkPumps() {
    marked.clear();
    if (markHook) RemovePumpHook(markHook);
    d.SetTraceListener([this](const sim::TraceEntry& e) { marked.push_back(e.line); });
    markHook = AddPumpHook([this] { marked.push_back(kPump); });
  }
  void Settle(int passes = 200) {
    for (int i = 0; i < passes; ++i) WaitEvents();
  }
  template <class F>
  void Within(std::uint64_t passes, F f) {
    PumpBudget budget(passes);
    f();
  }
  Lines Messages() const { return d.TraceLines(sim::kTraceMessages); }
  Hwnd Mdi() const { return client->mdi(); }
  std::vector<std::string> Captions() const {
    std::vector<std::string> out;
    for (Hwnd h : mail->MailWindows()) out.push_back(d.TextOf(h));
    return out;
  }
};

}  // namespace qc::test
