// The program's menus, start-up and exit as scenarios in scenarios/, played by the run's
// scenario player with every menu wired as the program wires it. Statements of its own:
//   answer TEXT | answer cancel   the next input box's answer
//   store KEY VALUE               a value in the store before anything reads it
//   restore | warn | exit         start-up's restore and generation warning, the exit
//   marks | names | stored [KEY...]   writes down the option marks; the handle, comment and
//                                 handle item; the keys of the store (every one when none given)
// and outcome lines for the input boxes asked, web pages opened and the program's end.
#include <QAction>

#include <algorithm>

#include "program/menu_wiring.h"
#include "program/startup.h"
#include "run/scenario_player.h"
#include "ui/settings_store.h"

namespace qc::test {
namespace {

std::filesystem::path ScenarioDir() {
  return std::filesystem::path(QC_TEST_DATA_DIR).parent_path() / "scenarios";
}

class ProgramScenario : public ScenarioPlayer, public ::testing::WithParamInterface<std::string> {
 protected:
  void Wire() override { ConnectMenus(frm, menu, menu2_, services); }

  bool Extra(const Words& w) override {
    const std::string& op = w.at(0);
    if (op == "answer") {
      prompts.inputAnswers.push_back(w.at(1) == "cancel" && w.size() == 2
                                         ? std::nullopt
                                         : std::optional<std::string>(w.at(1)));
    } else if (op == "store") {
      const std::string section = w.at(1) == "subject" ? kSubjectSection : kOptionsSection;
      settings.Save(section, w.at(1), w.at(2));
    } else if (op == "restore") {
      RestoreUserSettings(frm, menu, services);
    } else if (op == "warn") {
      outcome_.push_back(WarnOnClientGeneration(services) ? "warned" : "not warned");
    } else if (op == "exit") {
      Step([this] { ExitProgram(frm, menu, services); });
    } else if (op == "marks") {
      std::string marks = "marks";
      for (Option item : kOptions) {
        if (menu.check(item)) marks += " " + std::string(OptionItemName(item));
      }
      outcome_.push_back(marks);
    } else if (op == "names") {
      outcome_.push_back("names " + Quoted(menu.lblHandle->Caption()) + " " +
                         Quoted(menu.lblRename->Caption()) + " " +
                         Quoted(menu.userHandle->text().toStdString()));
    } else if (op == "stored") {
      for (const SettingEntry& e : SettingsTable()) {
        if (w.size() > 1 && std::find(w.begin() + 1, w.end(), e.key) == w.end()) continue;
        outcome_.push_back(std::string("stored ") + e.key + " " +
                           Quoted(settings.Get(e.section, e.key, "<none>")));
      }
    } else {
      return false;
    }
    return true;
  }

  void ExtraOutcome() override {
    for (const auto& in : prompts.inputs) {
      outcome_.push_back("input " + Quoted(in.title) + " " + Quoted(in.prompt) + " " +
                         Quoted(in.defaultText) + " at " + std::to_string(in.x) + "," +
                         std::to_string(in.y));
    }
    for (const std::string& address : opened) outcome_.push_back("opened " + address);
    for (int status : ends) outcome_.push_back("ended " + std::to_string(status));
  }

  FrmMenu2 menu2_;
};

TEST_P(ProgramScenario, LeavesWhatTheFileExpects) { Play(ScenarioDir() / (GetParam() + ".txt")); }

INSTANTIATE_TEST_SUITE_P(Scenarios, ProgramScenario,
                         ::testing::ValuesIn(ScenarioNames(ScenarioDir())),
                         [](const auto& info) { return TestName(info.param); });

}  // namespace
}  // namespace qc::test
