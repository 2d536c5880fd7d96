// The run scenarios in scenarios/, played by the scenario player, and a file name no scenario
// can write down. The buttons that start and stop a run are a program scenario (stop_button).
#include "scenario_player.h"

namespace qc::test {
namespace {

std::filesystem::path ScenarioDir() {
  return std::filesystem::path(QC_TEST_DATA_DIR).parent_path() / "scenarios";
}

class RunScenario : public ScenarioPlayer, public ::testing::WithParamInterface<std::string> {};

TEST_P(RunScenario, LeavesWhatTheFileExpects) { Play(ScenarioDir() / (GetParam() + ".txt")); }

using RunButtons = RunRig;

// A name in another encoding than UTF-8 is tagged, named in the body and attached as it stands.
TEST_F(RunButtons, AFileNameThatIsNotUtf8IsTaggedAndAttached) {
  StartClient(5);
  menu.setCheck("sendlater", true);
  menu.setCheck("renamecomment", true);
  const std::string path = Choose("caf\xE9.mp3", 500000, "latin");
  {
    PumpBudget budget(1000000);
    TaggingRun(frm, menu, services);
  }
  ASSERT_EQ(mail->Outgoing().size(), 1u);
  EXPECT_EQ(mail->Outgoing()[0].attachments, std::vector<std::string>{path});
  EXPECT_NE(mail->Outgoing()[0].body.find("file name: caf\xE9.mp3\r\n"), std::string::npos);
  EXPECT_EQ(ReadId3Tag(path).comment, "renamed comment");
}

INSTANTIATE_TEST_SUITE_P(Scenarios, RunScenario,
                         ::testing::ValuesIn(ScenarioNames(ScenarioDir())),
                         [](const auto& info) { return TestName(info.param); });

}  // namespace
}  // namespace qc::test
