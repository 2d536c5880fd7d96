// The mail-list editor where the program scenarios cannot reach: the frames the option buttons
// move, and the full-box command when the user switches lists or the client quits during its
// wait. Entry, paste, the popup's commands, the files and the plain full-box check are scenarios
// of the program (tests/program/scenarios/mail_list_*).
#include "base/pump.h"
#include "mail/mail_editors.h"
#include "support/sandbox.h"
#include "ui/window_routines.h"

namespace qc::test {
namespace {

using Items = std::vector<std::string>;
using MailListTest = SandboxTest;

TEST_F(MailListTest, OptionButtonsMoveTheFrames) {
  FrmEmailto w(services);
  EXPECT_TRUE(w.optMember->isChecked());
  for (bool toMember : {false, true}) {
    (toMember ? w.optMember : w.optUpload)->click();
    EXPECT_EQ(TwipsTop(toMember ? w.frmMember : w.frmUpload), 675);
    EXPECT_NEAR(TwipsTop(toMember ? w.frmUpload : w.frmMember), 2750, 15);
    EXPECT_EQ(&w.ActiveList(), toMember ? w.lstMember : w.lstUpload);
  }
  // Exactly one list shows: the back frame lies below the window's face.
  EXPECT_FALSE(w.pnlFrame()->rect().intersects(w.frmUpload->geometry()));
}

TEST_F(MailListTest, FullBoxCommandOnAListSwitchedDuringTheWait) {
  StartClient(5);
  mail->MarkFull("bob");
  FrmEmailto w(services);
  for (const char* a : {"bob", "ann"}) w.lstMember->AddItem(a);
  for (const char* a : {"cy", "bob"}) w.lstUpload->AddItem(a);
  // The probe goes to the member list; the user brings the upload list to the front meanwhile,
  // and the removal happens in the list in front at that moment.
  int passes = 0;
  const PumpHookId hook = AddPumpHook([&] {
    if (++passes == 50) w.optUpload->click();
  });
  {
    PumpBudget budget(40000);
    w.CheckAndRemoveFullBoxes();
  }
  RemovePumpHook(hook);
  ASSERT_GT(passes, 50);
  EXPECT_EQ(w.lstMember->Items(), (Items{"bob", "ann"}));
  EXPECT_EQ(w.lstUpload->Items(), (Items{"cy"}));
  ASSERT_EQ(prompts.boxes.size(), 1u);
  EXPECT_EQ(prompts.boxes[0].text,
            "email addresses that were full or invalid are:\r\r - bob\r\rthey have been removed!");
}

// The client quits once the question is answered: the check reached the removal, so the user
// still hears its result.
TEST_F(MailListTest, FullBoxCommandWhoseClientQuitsDuringTheWaitStillAnswers) {
  StartClient(5);
  FrmEmailto w(services);
  w.lstMember->AddItem("ann");
  const PumpHookId quit = AddPumpHook([&] {
    if (client->Running() && !client->EventDetails(sim::kEventMailDiscarded).empty())
      client->Quit();
  });
  {
    PumpBudget budget(40000);
    w.CheckAndRemoveFullBoxes();
  }
  RemovePumpHook(quit);
  EXPECT_EQ(w.lstMember->Items(), (Items{"ann"}));
  ExpectBox(prompts, 0, "there are no full boxes", 4160, kAppName);
}

}  // namespace
}  // namespace qc::test
