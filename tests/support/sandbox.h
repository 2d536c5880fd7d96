#pragma once
// One private world per test: a temporary folder holding the settings store and the program's
// folder, a simulated desktop as the window system (with a client when a test starts one),
// scripted prompts, virtual time and an end-of-program path that records instead of ending, all
// handed to the program's code as one set of services.
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "sim/sim_client.h"
#include "sim/sim_desktop.h"
#include "sim/sim_mail.h"
#include "support/budget.h"
#include "support/files.h"
#include "support/scripted_prompts.h"
#include "ui/services.h"
#include "ui/settings_store.h"

namespace qc::test {

// Sets an environment variable for the scope and puts the old value back.
class ScopedEnv {
 public:
  ScopedEnv(const char* name, const std::string& value);
  ~ScopedEnv();

 private:
  const char* name_;
  std::optional<std::string> old_;
};

class Sandbox {
 public:
  Sandbox();
  ~Sandbox();
  Sandbox(const Sandbox&) = delete;
  Sandbox& operator=(const Sandbox&) = delete;

  // A client of the generation on the desktop, with its mail windows, settled.
  sim::SimClient& StartClient(int generation, const std::string& screenName = "Brindle Rose");
  void StopClient();
  // Lets the simulated client react to what was sent to it.
  static void Settle();

  TempDir dir;
  const std::string app = dir / "app";  // the program's folder (it joins the body file bare)
  VirtualTime time;
  ScriptedPrompts prompts;
  SettingsStore settings{dir / "settings"};
  std::vector<int> ends;  // statuses the program would have ended with
  sim::SimDesktop desktop;
  // The real run drivers on the desktop, today a Friday, the test screen's desk; the web page
  // opener records its addresses.
  std::vector<std::string> opened;
  Services services{.windows = desktop,
                    .prompts = prompts,
                    .drivers = RealRunDrivers(desktop),
                    .settings = settings,
                    .today = [] { return CivilDate{1999, 1, 1}; },
                    .deskArea = PrimaryScreenDesk,
                    .openWebPage = [this](const std::string& a) { opened.push_back(a); },
                    .endProgram = [this](int status) { ends.push_back(status); }};
  std::unique_ptr<sim::SimClient> client;
  std::unique_ptr<sim::SimMail> mail;

 private:
  ScopedEnv home_{"QUILLCAST_HOME", app};
};

// A gtest fixture around the sandbox, for suites that need nothing more.
class SandboxTest : public ::testing::Test, public Sandbox {};

// The box asked at `i`, checked on every part.
void ExpectBox(const ScriptedPrompts& prompts, std::size_t i, const std::string& text, int flags,
               const std::string& title);

}  // namespace qc::test
