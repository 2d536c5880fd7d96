// Whole tagging runs against the simulated client and its mail windows, checked on what the
// client holds: queued and open mails with their fields and attachments, and the outgoing list.
#include "base/pump.h"
#include "run/runlog.h"
#include "run/tagging_run.h"
#include "run_rig.h"
#include "sim/sim_mail.h"
#include "support/comma_locale.h"
#include "ui/window_routines.h"

namespace qc::test {
namespace {

using sim::MailRecord;
using Mails = std::vector<MailRecord>;

const std::string kTo = "Brindle Rose, ";

std::string Body(const std::string& size, const std::string& name) {
  return "quill cast : v.qc23e : brindle\r\n\r\ntitle: Song\r\nartist: Band\r\nalbum: Record"
         "\r\nrelease year: 1998\r\ngenre: Blues\r\nupload date: friday, jan. 01, 1999"
         "\r\nuploaded by: brindle\r\nfile size: " +
         size + "\r\nfile name: " + name + "\r\ncomment: old comment\r\n\r\n\r\n" +
         BodyClosingLine();
}
// The decoration reaches the client as Windows-1252 bytes, one a character.
std::string Notice(const char* word, const char* mb) {
  return "\xB7\x95(`(`\xB7 " + std::string(word) + ": brindle " + mb + "mb \xB7\xB4)\xB4)\x95\xB7";
}

class ClientRun : public RunRig {
 protected:
  void Run() {
    PumpBudget budget(3000000);
    TaggingRun(frm, menu, services);
    Settle();
  }
  std::vector<std::string> Events(const std::string& kind) const {
    std::vector<std::string> out;
    for (const sim::ClientEvent& e : client->Events()) {
      if (e.kind == kind) out.push_back(e.detail);
    }
    return out;
  }
};

// Files of 1.5 and half a megabyte, the notices and send-later as the row says.
TEST_F(ClientRun, EachGenerationWithAndWithoutSendLater) {
  using Make = std::function<Mails(const std::string& one, const std::string& two,
                                   const std::string& log)>;
  const Make none = [](auto&, auto&, auto&) { return Mails{}; };
  struct Case {
    int generation;
    bool sendLater, notices;
    int files;
    Make outgoing, open;  // the open windows front to back
    const char* backCaption;
    const char* sums;
  } cases[] = {
      {5, true, true, 2,
       [](auto& one, auto& two, auto& log) {
         return Mails{{kTo, Notice("start", "2"), log, {}},
                      {kTo, "one", Body("1.5mb", "one.mp3"), {one}},
                      {kTo, "two", Body(".5mb", "two.mp3"), {two}},
                      {kTo, Notice("end", "2"), log, {}}};
       },
       none, "", "9 ups : 3.25 mb"},
      // A notice stays open as "Compose Mail", so the next mail's wait takes it and overwrites
      // it: the start notice leaves as the file's mail, the file's own window is then filled by
      // the end notice, and the window opened for the end notice stays empty in front.
      {3, true, true, 1,
       [](auto& one, auto&, auto&) {
         return Mails{{kTo, "one", Body("1.5mb", "one.mp3"), {one}}};
       },
       [](auto&, auto&, auto& log) {
         return Mails{{"", "", "", {}}, {kTo, Notice("end", "1.5"), log, {}}};
       },
       "Compose Mail", "8 ups : 2.75 mb"},
      {4, true, true, 2,
       [](auto& one, auto& two, auto&) {
         return Mails{{kTo, "one", Body("1.5mb", "one.mp3"), {one}},
                      {kTo, "two", Body(".5mb", "two.mp3"), {two}}};
       },
       none, "", "9 ups : 3.25 mb"},
      {2, true, true, 2, none, none, "", "9 ups : 3.25 mb"},
      // Without send-later every mail stays open with its attachment, the newest in front.
      {5, false, false, 2, none,
       [](auto& one, auto& two, auto&) {
         return Mails{{kTo, "two", Body(".5mb", "two.mp3"), {two}},
                      {kTo, "one", Body("1.5mb", "one.mp3"), {one}}};
       },
       "", "9 ups : 3.25 mb"},
      {3, false, false, 2, none,
       [](auto& one, auto& two, auto&) {
         return Mails{{kTo, "two", Body(".5mb", "two.mp3"), {two}},
                      {kTo, "one", Body("1.5mb", "one.mp3"), {one}}};
       },
       "", "9 ups : 3.25 mb"},
      // Nothing retitles a generation 4 mail, so the second file's texts go into the first
      // file's window, still captioned "Write Mail", while its attachment lands in the new one.
      {4, false, false, 2, none,
       [](auto& one, auto& two, auto&) {
         return Mails{{"", "", "", {two}}, {kTo, "two", Body(".5mb", "two.mp3"), {one}}};
       },
       "Write Mail", "9 ups : 3.25 mb"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::to_string(c.generation) + (c.sendLater ? " send later" : " at once"));
    StartClient(c.generation);
    frm.lblUps->SetCaption("7");
    frm.lblMBs->SetCaption("1.25");
    const std::string one = Choose("one.mp3", 1500000, "one");
    const std::string two = c.files == 2 ? Choose("two.mp3", 500000, "two") : "";
    Check({"autohead", "autofoot"}, c.notices);
    menu.setCheck("sendlater", c.sendLater);
    const std::string log = CompileRunLog(frm, services.today());
    Run();
    EXPECT_EQ(mail->Outgoing(), c.outgoing(one, two, log));
    Mails open;
    for (Hwnd w : mail->MailWindows()) open.push_back(mail->Fields(w));
    EXPECT_EQ(open, c.open(one, two, log));
    if (c.backCaption[0]) {
      EXPECT_EQ(desktop.TextOf(mail->MailWindows().back()), c.backCaption);
    }
    EXPECT_EQ(Events(sim::kEventOutgoingMail).size(), c.sendLater && c.generation != 2 ? 1u : 0u);
    if (c.generation == 3 && c.sendLater) {
      EXPECT_EQ(Events(sim::kEventMenuItem).back(), "Read &Outgoing Flashmail");
    }
    // Every generation counts every file.
    EXPECT_EQ(frm.Label1->text().toStdString(), c.sums);
    EXPECT_EQ(frm.lstPathSelect->ListCount(), 0);
  }
}

TEST_F(ClientRun, UnderACommaLocaleTotalsAreReadAndWrittenWithAFullStop) {
  CommaLocale comma;
  ASSERT_TRUE(comma.active());
  StartClient(5);
  frm.lblMBs->SetCaption("12.75");
  frm.lblUps->SetCaption("3");
  Choose("one.mp3", 1500000, "a");
  Choose("two.mp3", 500000, "b");
  menu.setCheck("sendlater", true);
  Run();
  EXPECT_EQ(mail->Outgoing().size(), 2u);
  EXPECT_EQ(frm.lblTagTotalMb->Caption(), "2");
  EXPECT_EQ(frm.Label1->Caption(), "5 ups : 14.75 mb");
  EXPECT_EQ(TotalSizeText(frm), "14.75mbs");
  EXPECT_EQ(TotalSizeText(std::string("1500000")), "1,500.00gigs");
}

TEST_F(ClientRun, AFileNameThatIsNotUtf8IsTaggedAndAttached) {
  StartClient(5);
  Check({"sendlater", "renamecomment"});
  const std::string path = Choose("caf\xE9.mp3", 500000, "latin");
  Run();
  ASSERT_EQ(mail->Outgoing().size(), 1u);
  EXPECT_EQ(mail->Outgoing()[0].attachments, std::vector<std::string>{path});
  EXPECT_NE(mail->Outgoing()[0].body.find("file name: caf\xE9.mp3\r\n"), std::string::npos);
  EXPECT_EQ(ReadId3Tag(path).comment, "renamed comment");
}

TEST_F(ClientRun, ErrorWindowIsClosedAtTheTopOfTheNextFile) {
  StartClient(5);
  Choose("one.mp3", 1000000, "one");
  Choose("two.mp3", 1000000, "two");
  Check({"sendlater"});
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

TEST_F(ClientRun, WithoutAClientTheRunWaitsInTheGenerationThreeDriverForEver) {
  // No client: the version falls through to 3 and the Compose Mail wait never ends; a stop
  // cannot reach it, since the loop never comes back to its test.
  Choose("one.mp3", 1000000, "one");
  Choose("two.mp3", 1000000, "two");
  int pumps = 0;
  PumpHookId hook = AddPumpHook([&] {
    if (++pumps == 500) StopRun(frm);
  });
  EXPECT_THROW(
      {
        PumpBudget budget(20000);
        TaggingRun(frm, menu, services);
      },
      BudgetExhausted);
  RemovePumpHook(hook);
  EXPECT_EQ(frm.lstSend->Items(), std::vector<std::string>{""});
  EXPECT_EQ(frm.lblTagIndex->Caption(), "1/ 2");
  EXPECT_EQ(frm.lstPathSelect->ListCount(), 2);
}

}  // namespace
}  // namespace qc::test
