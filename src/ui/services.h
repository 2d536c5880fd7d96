#pragma once
// What the features reach the platform through: the client's windows, the modal questions, the
// tagging run's client operations, the user's settings store, today's date, the screen the windows snap to, the web browser
// and the one end of the program. The program builds one at start-up and hands it to every
// feature; tests build theirs on the simulated desktop. The clock stays with the pump, which
// every wait shares.
#include <functional>
#include <string>

#include "base/civil_date.h"
#include "client/run_drivers.h"
#include "ui/window_routines.h"

namespace qc {

class Prompts;
class SettingsStore;
class WindowSystem;

struct Services {
  WindowSystem& windows;
  Prompts& prompts;
  RunDrivers drivers;  // on `windows`
  SettingsStore& settings;
  std::function<CivilDate()> today;
  DeskSource deskArea;  // the screen the program's windows snap to
  std::function<void(const std::string& address)> openWebPage;
  // Ends the program with the status; the program's own never returns.
  std::function<void(int exitStatus)> endProgram;
};

// The real ones: the drivers on `windows`, the machine's date, the primary screen, the desktop's
// URL handler (a failure passes silently) and an end at once, where the program stands, with
// nothing unwinding and nothing more saved.
Services PlatformServices(WindowSystem& windows, Prompts& prompts, SettingsStore& settings);

}  // namespace qc
