// The editor's full-box command against the simulated client: what the report names leaves the
// active list, the user sees the exact message, and the files change only on save & exit.
#include "app/forms/frmmenu.h"
#include "base/prompts.h"
#include "client/window_system.h"
#include "mail_editors_fixture.h"
#include "sim/sim_client.h"
#include "sim/sim_desktop.h"
#include "sim/sim_mail.h"
#include "support/budget.h"

namespace qc::test {
namespace {

using Items = std::vector<std::string>;

class FullBoxEditorTest : public EditorTest {
 protected:
  VirtualTime vt;
  sim::SimDesktop d;
  std::unique_ptr<sim::SimClient> client;
  std::unique_ptr<sim::SimMail> mail;

  FullBoxEditorTest() { SetWindowSystem(&d); }
  ~FullBoxEditorTest() override {
    mail.reset();
    client.reset();
    SetWindowSystem(nullptr);
  }
  void Start(int generation) {
    mail.reset();
    client = std::make_unique<sim::SimClient>(d, sim::ClientOptions{.generation = generation});
    mail = std::make_unique<sim::SimMail>(*client);
    for (int i = 0; i < 200; ++i) WaitEvents();
  }
  void Check(FrmEmailto& w) {
    PumpBudget budget(40000);
    w.CheckAndRemoveFullBoxes();
  }
};

TEST_F(FullBoxEditorTest, RemovesTheReportedAddressesFromTheActiveListOnly) {
  const std::string upload = app + "/lstUpload.sys";
  WriteBytes(upload, "ann\r\nbob\r\ncy\r\ndee\r\n");
  WriteBytes(app + "/lstMember.sys", "bob\r\n");
  for (int generation : {5, 3}) {
    SCOPED_TRACE(generation);
    prompts.boxes.clear();
    Start(generation);
    mail->MarkFull("bob");
    mail->MarkUnknown("cy");
    FrmEmailto w;
    w.optUpload->click();
    Check(w);
    EXPECT_EQ(w.lstUpload->Items(), (Items{"ann", "dee"}));
    EXPECT_EQ(w.lstMember->Items(), (Items{"bob"}));
    ASSERT_EQ(prompts.boxes.size(), 1u);
    EXPECT_EQ(prompts.boxes[0].text,
              "email addresses that were full or invalid are:\r\r - bob\r - cy\r\r"
              "they have been removed!");
    EXPECT_EQ(prompts.boxes[0].flags, 4160);
    // Not saved: the file still holds every address until save & exit.
    EXPECT_EQ(ReadBytes(upload), "ann\r\nbob\r\ncy\r\ndee\r\n");
  }
  FrmEmailto w;
  w.optUpload->click();
  Check(w);
  w.SaveLists();
  EXPECT_EQ(ReadBytes(upload), "ann\r\ndee\r\n");
}

TEST_F(FullBoxEditorTest, ListSwitchedDuringTheWaitLosesTheReportedAddresses) {
  Start(5);
  mail->MarkFull("bob");
  FrmEmailto w;
  for (const char* a : {"bob", "ann"}) w.lstMember->AddItem(a);
  for (const char* a : {"cy", "bob"}) w.lstUpload->AddItem(a);
  // The probe goes to the member list; the user brings the upload list to the front meanwhile.
  int passes = 0;
  const PumpHookId hook = AddPumpHook([&] {
    if (++passes == 50) w.optUpload->click();
  });
  Check(w);
  RemovePumpHook(hook);
  ASSERT_GT(passes, 50);
  EXPECT_EQ(w.lstMember->Items(), (Items{"bob", "ann"}));
  EXPECT_EQ(w.lstUpload->Items(), (Items{"cy"}));
  ASSERT_EQ(prompts.boxes.size(), 1u);
  EXPECT_EQ(prompts.boxes[0].text,
            "email addresses that were full or invalid are:\r\r - bob\r\rthey have been removed!");
}

TEST_F(FullBoxEditorTest, NoFullBoxesAndNoClient) {
  Start(5);
  WriteBytes(app + "/lstMember.sys", "ann\r\n");
  {
    FrmEmailto w;
    Check(w);
    EXPECT_EQ(w.lstMember->Items(), (Items{"ann"}));
    ASSERT_EQ(prompts.boxes.size(), 1u);
    EXPECT_EQ(prompts.boxes[0].text, "there are no full boxes");
    EXPECT_EQ(prompts.boxes[0].flags, 4160);
  }
  // A client that quits once the question is answered: the check reached the removal, so the
  // user hears its result.
  prompts.boxes.clear();
  Start(5);
  {
    const PumpHookId quit = AddPumpHook([this] {
      if (client->Running() && !client->EventDetails(sim::kEventMailDiscarded).empty()) {
        client->Quit();
      }
    });
    FrmEmailto w;
    Check(w);
    RemovePumpHook(quit);
    ASSERT_EQ(prompts.boxes.size(), 1u);
    EXPECT_EQ(prompts.boxes[0].text, "there are no full boxes");
  }
  // Generation 2: the check ends with no message.
  prompts.boxes.clear();
  Start(2);
  {
    FrmEmailto w;
    Check(w);
    EXPECT_TRUE(prompts.boxes.empty());
  }
  // Without a client the probe's wait for a mail window never gives up.
  mail.reset();
  client.reset();
  FrmEmailto w;
  EXPECT_THROW(Check(w), BudgetExhausted);
  EXPECT_TRUE(prompts.boxes.empty());
  EXPECT_EQ(w.lstMember->Items(), (Items{"ann"}));
}

TEST_F(FullBoxEditorTest, MenuItemRunsTheCheckOnTheOpenEditor) {
  Start(5);
  mail->MarkFull("bob");
  FrmMenu menu;
  ConnectMailEditors(menu);
  menu.editmailform->trigger();
  FrmEmailto* w = MailListEditor();
  ASSERT_NE(w, nullptr);
  w->lstMember->AddItem("bob");
  w->lstMember->AddItem("ann");
  {
    PumpBudget budget(40000);
    menu.chkRmvAll->trigger();
  }
  EXPECT_EQ(w->lstMember->Items(), (Items{"ann"}));
  ASSERT_EQ(prompts.boxes.size(), 1u);
  EXPECT_EQ(prompts.boxes[0].text,
            "email addresses that were full or invalid are:\r\r - bob\r\rthey have been removed!");
  w->saveAndExit();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(ReadBytes(app + "/lstMember.sys"), "ann\r\n");
}

}  // namespace
}  // namespace qc::test
