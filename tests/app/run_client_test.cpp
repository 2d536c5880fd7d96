// Whole tagging runs against the simulated client and its mail windows, checked on what the
// client holds: queued and open mails with their fields and attachments, and the outgoing list.
#include <memory>

#include "app/core/window_routines.h"
#include "app/run_drivers.h"
#include "app/runlog.h"
#include "app/tagging_run.h"
#include "client/window_system.h"
#include "run_fixture.h"
#include "sim/sim_client.h"
#include "sim/sim_desktop.h"
#include "sim/sim_mail.h"
#include "support/comma_locale.h"

namespace qc {
namespace {

using sim::MailRecord;
using test::TagFields;

const TagFields kTag{"Song", "Band", "Record", "1998", "old comment", "Blues"};

class ClientRun : public test::RunFixture {
 protected:
  ClientRun() { SetWindowSystem(&desktop); }
  ~ClientRun() override {
    mail.reset();
    client.reset();
    SetWindowSystem(nullptr);
  }
  void Start(int generation) {
    mail.reset();
    client = std::make_unique<sim::SimClient>(desktop, sim::ClientOptions{.generation = generation});
    mail = std::make_unique<sim::SimMail>(*client);
    for (int i = 0; i < 200; ++i) WaitEvents();
    client->ClearEvents();
  }
  void Run() {
    test::PumpBudget budget(3000000);
    TaggingRun(frm, menu);
    for (int i = 0; i < 200; ++i) WaitEvents();
  }
  std::vector<std::string> Events(const std::string& kind) const {
    std::vector<std::string> out;
    for (const sim::ClientEvent& e : client->Events()) {
      if (e.kind == kind) out.push_back(e.detail);
    }
    return out;
  }
  // The default body of a file tagged with kTag.
  std::string Body(const std::string& size, const std::string& name) const {
    return "quill cast : v.qc23e : brindle\r\n\r\ntitle: Song\r\nartist: Band\r\nalbum: Record"
           "\r\nrelease year: 1998\r\ngenre: Blues\r\nupload date: friday, jan. 01, 1999"
           "\r\nuploaded by: brindle\r\nfile size: " +
           size + "\r\nfile name: " + name + "\r\ncomment: old comment\r\n\r\n\r\n" +
           BodyClosingLine();
  }

  sim::SimDesktop desktop;
  std::unique_ptr<sim::SimClient> client;
  std::unique_ptr<sim::SimMail> mail;  // goes before the client
};

TEST_F(ClientRun, GenerationFiveQueuesNoticesAndFilesAndOpensTheOutgoingList) {
  Start(5);
  const std::string one = Choose("one.mp3", 1500000, "Band - Song", &kTag);
  const std::string two = Choose("two.mp3", 500000, "Band - Two", &kTag);
  menu.setCheck("autohead", true);
  menu.setCheck("autofoot", true);
  menu.setCheck("sendlater", true);
  const std::string log = CompileRunLog(frm);
  Run();
  const std::string to = "Brindle Rose, ";
  const std::string start = "\u00B7\u2022(`(`\u00B7 start: brindle 2mb \u00B7\u00B4)\u00B4)\u2022\u00B7";
  const std::string end = "\u00B7\u2022(`(`\u00B7 end: brindle 2mb \u00B7\u00B4)\u00B4)\u2022\u00B7";
  const std::vector<MailRecord> expected = {
      {to, start, log, {}},
      {to, "Band - Song", Body("1.5mb", "one.mp3"), {one}},
      {to, "Band - Two", Body(".5mb", "two.mp3"), {two}},
      {to, end, log, {}},
  };
  EXPECT_EQ(mail->Outgoing(), expected);
  EXPECT_TRUE(mail->MailWindows().empty());
  EXPECT_EQ(Events(sim::kEventOutgoingMail).size(), 1u);
  EXPECT_EQ(frm.lblTagIndex->Caption(), "2/ 2");
  EXPECT_EQ(frm.lblTagTotalMb->Caption(), "2");
  EXPECT_EQ(frm.lblUps->Caption(), "2");
  EXPECT_EQ(frm.lstPathSelect->ListCount(), 0);
}

TEST_F(ClientRun, UnderACommaLocaleTotalsAreReadAndWrittenWithAFullStop) {
  test::CommaLocale comma;
  ASSERT_TRUE(comma.active());
  Start(5);
  frm.lblMBs->SetCaption("12.75");
  frm.lblUps->SetCaption("3");
  Choose("one.mp3", 1500000, "a", &kTag);
  Choose("two.mp3", 500000, "b", &kTag);
  menu.setCheck("sendlater", true);
  Run();
  EXPECT_EQ(mail->Outgoing().size(), 2u);
  EXPECT_EQ(frm.lblTagTotalMb->Caption(), "2");
  EXPECT_EQ(frm.lblMBs->Caption(), "14.75");
  EXPECT_EQ(frm.lblUps->Caption(), "5");
  EXPECT_EQ(frm.Label1->Caption(), "5 ups : 14.75 mb");
  EXPECT_EQ(TotalSizeText(frm), "14.75mbs");
  EXPECT_EQ(TotalSizeText(std::string("1500000")), "1,500.00gigs");
}

TEST_F(ClientRun, AFileNameThatIsNotUtf8IsTaggedAndAttached) {
  Start(5);
  menu.setCheck("sendlater", true);
  menu.setCheck("renamecomment", true);
  const std::string path = Choose("caf\xE9.mp3", 500000, "latin", &kTag);
  Run();
  ASSERT_EQ(mail->Outgoing().size(), 1u);
  EXPECT_EQ(mail->Outgoing()[0].attachments, std::vector<std::string>{path});
  EXPECT_NE(mail->Outgoing()[0].body.find("file name: caf\xE9.mp3\r\n"), std::string::npos);
  EXPECT_EQ(ReadId3Tag(path).comment, "renamed comment");
}

TEST_F(ClientRun, GenerationThreeLeavesTheNoticesOpenAndQueuesTheFiles) {
  Start(3);
  const std::string one = Choose("one.mp3", 1500000, "Band - Song", &kTag);
  menu.setCheck("autohead", true);
  menu.setCheck("autofoot", true);
  menu.setCheck("sendlater", true);
  const std::string log = CompileRunLog(frm);
  Run();
  const std::string to = "Brindle Rose, ";
  const std::vector<MailRecord> queued = {{to, "Band - Song", Body("1.5mb", "one.mp3"), {one}}};
  EXPECT_EQ(mail->Outgoing(), queued);
  // A notice stays open as "Compose Mail", so the next mail's wait takes it and overwrites it:
  // the start notice leaves as the file's mail, the file's own window is then filled by the end
  // notice, and the window opened for the end notice stays empty in front.
  const std::vector<Hwnd> open = mail->MailWindows();
  ASSERT_EQ(open.size(), 2u);
  EXPECT_EQ(desktop.TextOf(open[0]), "Compose Mail");
  EXPECT_EQ(mail->Fields(open[0]), (MailRecord{"", "", "", {}}));
  const MailRecord endNotice = mail->Fields(open[1]);
  EXPECT_EQ(desktop.TextOf(open[1]), "Compose Mail");
  EXPECT_EQ(endNotice.to, to);
  EXPECT_NE(endNotice.subject.find(" end: brindle 1.5mb "), std::string::npos);
  EXPECT_EQ(endNotice.body, log);
  EXPECT_TRUE(endNotice.attachments.empty());
  EXPECT_EQ(Events(sim::kEventOutgoingMail).size(), 1u);
  EXPECT_EQ(Events(sim::kEventMenuItem).back(), "Read &Outgoing Flashmail");
}

TEST_F(ClientRun, GenerationFourSendsNoNoticesButQueuesTheFiles) {
  Start(4);
  const std::string one = Choose("one.mp3", 3520000, "Band - Song", &kTag);
  const std::string two = Choose("two.mp3", 500000, "", &kTag);
  menu.setCheck("autohead", true);
  menu.setCheck("autofoot", true);
  menu.setCheck("sendlater", true);
  Run();
  const std::string to = "Brindle Rose, ";
  const std::vector<MailRecord> expected = {
      {to, "Band - Song", Body("3.52mb", "one.mp3"), {one}},
      {to, "", Body(".5mb", "two.mp3"), {two}},
  };
  EXPECT_EQ(mail->Outgoing(), expected);
  EXPECT_TRUE(mail->MailWindows().empty());
  EXPECT_EQ(Events(sim::kEventOutgoingMail).size(), 1u);
  EXPECT_EQ(frm.lblTagTotalMb->Caption(), "4.02");
}

TEST_F(ClientRun, GenerationTwoCountsEveryFileAndSendsNothing) {
  Start(2);
  Choose("one.mp3", 1500000, "a", &kTag);
  Choose("two.mp3", 500000, "b", &kTag);
  menu.setCheck("autohead", true);
  menu.setCheck("autofoot", true);
  menu.setCheck("sendlater", true);
  frm.lblUps->SetCaption("7");
  frm.lblMBs->SetCaption("1.25");
  Run();
  EXPECT_TRUE(mail->Outgoing().empty());
  EXPECT_TRUE(mail->MailWindows().empty());
  EXPECT_TRUE(Events(sim::kEventOutgoingMail).empty());
  EXPECT_EQ(frm.lblUps->Caption(), "9");
  EXPECT_EQ(frm.lblMBs->Caption(), "3.25");
  EXPECT_EQ(frm.Label1->text().toStdString(), "9 ups : 3.25 mb");
}

TEST_F(ClientRun, SendLaterOffLeavesEveryMailOpenWithItsAttachment) {
  for (int generation : {5, 3}) {
    SCOPED_TRACE(generation);
    Start(generation);
    const std::string one = Choose("one.mp3", 1000000, "first", &kTag);
    const std::string two = Choose("two.mp3", 2000000, "second", &kTag);
    Run();
    EXPECT_TRUE(mail->Outgoing().empty());
    EXPECT_TRUE(Events(sim::kEventOutgoingMail).empty());
    const std::vector<Hwnd> open = mail->MailWindows();
    ASSERT_EQ(open.size(), 2u);
    const MailRecord front = mail->Fields(open[0]);
    EXPECT_EQ(front.subject, "second");
    EXPECT_EQ(front.attachments, std::vector<std::string>{two});
    EXPECT_EQ(front.body, Body("2mb", "two.mp3"));
    EXPECT_EQ(mail->Fields(open[1]).attachments, std::vector<std::string>{one});
  }
}

TEST_F(ClientRun, GenerationFourWithoutSendLaterWritesTheNextMailIntoTheOpenOne) {
  Start(4);
  const std::string one = Choose("one.mp3", 1000000, "first", &kTag);
  const std::string two = Choose("two.mp3", 2000000, "second", &kTag);
  Run();
  EXPECT_TRUE(mail->Outgoing().empty());
  // Nothing retitles a generation 4 mail, so the second file's texts go into the first file's
  // window, still captioned "Write Mail", while its attachment lands in the window just opened.
  const std::vector<Hwnd> open = mail->MailWindows();
  ASSERT_EQ(open.size(), 2u);
  EXPECT_EQ(mail->Fields(open[0]), (MailRecord{"", "", "", {two}}));
  EXPECT_EQ(mail->Fields(open[1]),
            (MailRecord{"Brindle Rose, ", "second", Body("2mb", "two.mp3"), {one}}));
  EXPECT_EQ(desktop.TextOf(open[1]), "Write Mail");
}

TEST_F(ClientRun, BlindCopiesToBothListsAfterTheDeadCheck) {
  Start(5);
  WriteList("lstMember.sys", {"ann", "fullbox"});
  WriteList("lstUpload.sys", {"cy"});
  mail->MarkFull("fullbox");
  const std::string one = Choose("one.mp3", 1000000, "s", &kTag);
  for (const char* item : {"memberlst", "uploadlst", "bbcemail", "deadchecknames", "sendlater"}) {
    menu.setCheck(item, true);
  }
  Run();
  ASSERT_EQ(mail->Outgoing().size(), 1u);
  EXPECT_EQ(mail->Outgoing()[0].to, "(Brindle Rose), (ann), (cy), ");
  EXPECT_EQ(frm.lstSend->Items(), (std::vector<std::string>{"Brindle Rose", "ann", "cy"}));
}

TEST_F(ClientRun, ErrorWindowIsClosedAtTheTopOfTheNextFile) {
  Start(5);
  Choose("one.mp3", 1000000, "one", &kTag);
  Choose("two.mp3", 1000000, "two", &kTag);
  menu.setCheck("sendlater", true);
  Hwnd error = 0;
  PumpHookId hook = AddPumpHook([&] {
    if (!error && mail->Outgoing().size() == 1) error = client->OpenDocument("Error");
  });
  Run();
  RemovePumpHook(hook);
  ASSERT_NE(error, 0);
  EXPECT_FALSE(desktop.Exists(error));
  EXPECT_EQ(mail->Outgoing().size(), 2u);
}

TEST_F(ClientRun, StopClickedWhileTheFirstMailIsWrittenEndsAfterThatFile) {
  Start(5);
  Choose("one.mp3", 1000000, "one", &kTag);
  Choose("two.mp3", 1000000, "two", &kTag);
  Choose("three.mp3", 1000000, "three", &kTag);
  menu.setCheck("sendlater", true);
  menu.setCheck("autofoot", true);
  ConnectTaggingRun(frm, menu);
  PumpHookId hook = AddPumpHook([&] {
    if (!mail->MailWindows().empty() && frm.picBut2->isEnabled()) emit frm.picBut2->clicked();
  });
  Run();
  RemovePumpHook(hook);
  ASSERT_EQ(mail->Outgoing().size(), 2u);
  EXPECT_EQ(mail->Outgoing()[0].subject, "one");
  EXPECT_NE(mail->Outgoing()[1].subject.find(" end: brindle 3mb "), std::string::npos);
  EXPECT_EQ(frm.lblTagIndex->Caption(), "1/ 3");
  EXPECT_EQ(frm.lstPathSelect->ListCount(), 0);
  EXPECT_EQ(TwipsTop(frm.pnlTag), kTagPanelIdleTop);
}

TEST_F(ClientRun, WithoutAClientTheRunWaitsInTheGenerationThreeDriverForEver) {
  // No client: the version falls through to 3 and the Compose Mail wait never ends; a stop
  // cannot reach it, since the loop never comes back to its test.
  Choose("one.mp3", 1000000, "one", &kTag);
  Choose("two.mp3", 1000000, "two", &kTag);
  int pumps = 0;
  PumpHookId hook = AddPumpHook([&] {
    if (++pumps == 500) StopRun(frm);
  });
  EXPECT_THROW(
      {
        test::PumpBudget budget(20000);
        TaggingRun(frm, menu);
      },
      test::BudgetExhausted);
  RemovePumpHook(hook);
  EXPECT_EQ(frm.lstSend->Items(), std::vector<std::string>{""});
  EXPECT_EQ(frm.lblTagIndex->Caption(), "1/ 2");
  EXPECT_EQ(frm.picBut1->Tag.toStdString(), "stop");
  EXPECT_EQ(frm.lstPathSelect->ListCount(), 2);
}

}  // namespace
}  // namespace qc
