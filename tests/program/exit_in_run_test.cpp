// The exit press while a real tagging run waits on the client: the program ends inside the run,
// with the totals counted so far saved and nothing cleared.
#include <memory>

#include "run/run_fixture.h"
#include "run/tagging_run.h"
#include "base/pump.h"
#include "client/window_system.h"
#include "program/startup.h"
#include "sim/sim_client.h"
#include "sim/sim_desktop.h"
#include "sim/sim_mail.h"

namespace qc {
namespace {

struct ProgramEnded {};

class ExitInRun : public test::RunFixture {
 protected:
  ExitInRun() {
    SetWindowSystem(&desktop);
    SetExitHook([] { throw ProgramEnded{}; });
  }
  ~ExitInRun() override {
    SetExitHook({});
    mail.reset();
    client.reset();
    SetWindowSystem(nullptr);
  }

  sim::SimDesktop desktop;
  std::unique_ptr<sim::SimClient> client;
  std::unique_ptr<sim::SimMail> mail;
};

TEST_F(ExitInRun, ExitDuringTheSecondFileSavesTheFirstFilesTotals) {
  client = std::make_unique<sim::SimClient>(desktop, sim::ClientOptions{.generation = 5});
  mail = std::make_unique<sim::SimMail>(*client);
  for (int i = 0; i < 200; ++i) WaitEvents();
  const test::TagFields tag{"Song", "Band", "Record", "1998", "comment", "Blues"};
  Choose("one.mp3", 1500000, "Band - One", &tag);
  Choose("two.mp3", 500000, "Band - Two", &tag);
  Choose("three.mp3", 250000, "Band - Three", &tag);
  menu.setCheck("sendlater", true);
  frm.lblUps->SetCaption("10");
  frm.lblMBs->SetCaption("20");
  frm.show();

  bool pressed = false;
  const PumpHookId hook = AddPumpHook([&] {
    if (!pressed && frm.lblUps->Caption() == "11") {
      pressed = true;
      ExitProgram(frm, menu);
    }
  });
  bool runReturned = false;
  {
    test::PumpBudget budget(3000000);
    EXPECT_THROW(
        {
          TaggingRun(frm, menu);
          runReturned = true;
        },
        ProgramEnded);
  }
  RemovePumpHook(hook);
  ASSERT_TRUE(pressed);
  EXPECT_FALSE(runReturned);
  EXPECT_FALSE(frm.isVisible());
  EXPECT_EQ(GetSetting(kAppName, kOptionsSection, "ups", "?"), "11");
  EXPECT_EQ(GetSetting(kAppName, kOptionsSection, "mbs", "?"), frm.lblMBs->Caption());
  EXPECT_NE(frm.lblMBs->Caption(), "20");
  // The files not yet sent stay chosen: nothing is cleared.
  EXPECT_GE(frm.lstPathSelect->ListCount(), 2);
  EXPECT_EQ(GetSetting(kAppName, kOptionsSection, "frmmenu.sendlater.Checked", "?"), "1");
  EXPECT_EQ(GetSetting(kAppName, kOptionsSection, "frmmenu.bbcemail.Checked", "?"), "0");
}

}  // namespace
}  // namespace qc
