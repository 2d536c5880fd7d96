// The mail-list editor: address entry in both boxes, the clean-up of line breaks, the popup
// commands, the full-box command against the simulated client, and the list files written only
// on save & exit.
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QTest>

#include "base/pump.h"
#include "mail/mail_editors.h"
#include "support/sandbox.h"
#include "ui/frmmenu.h"
#include "ui/window_routines.h"

namespace qc::test {
namespace {

using Items = std::vector<std::string>;

class MailListTest : public SandboxTest {
 protected:
  static void Enter(EntryBox* box, const std::string& text) {
    box->setText(QString::fromStdString(text));
    box->PressKey(13);
  }
  static void Close(SecondaryWindow* w) {
    w->saveAndExit();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  const std::string member = app + "/lstMember.sys";
  const std::string upload = app + "/lstUpload.sys";
};

// What each entry makes of a list is the address entry's own table; here the boxes that use it.
TEST_F(MailListTest, DuplicatesCompareExactlyAndOnlyEnterStartsTheEntry) {
  WriteBytes(member, "Bob\r\n");
  FrmEmailto w(services);
  Enter(w.txtMember, "bob");
  Enter(w.txtMember, "BOB");
  w.txtMember->setText("tom");
  w.txtMember->PressKey('x');
  EXPECT_EQ(w.lstMember->Items(), (Items{"Bob", "bob"}));
  EXPECT_EQ(w.lstMember->ListIndex(), 1);
  QTest::keyClick(w.txtMember, Qt::Key_Return);  // a real key press reaches the same handler
  EXPECT_EQ(w.lstMember->Items(), (Items{"Bob", "bob", "tomx"}));
  EXPECT_EQ(w.txtMember->text(), QString());
}

TEST_F(MailListTest, PastedLineBreaksPerBox) {
  FrmEmailto w(services);
  // Member: a carriage return starts the clean-up of both; a lone line feed stays.
  w.txtMember->InsertRaw("ab\r\ncd");
  EXPECT_EQ(w.txtMember->text(), QString("abcd"));
  w.txtMember->setText(QString());
  w.txtMember->InsertRaw("ab\ncd");
  EXPECT_EQ(w.txtMember->text(), QString("ab\ncd"));
  w.txtMember->PressKey(13);
  EXPECT_EQ(w.lstMember->Items(), (Items{"ab\ncd"}));
  // Upload: either one starts it.
  w.txtUpload->InsertRaw("ab\ncd");
  EXPECT_EQ(w.txtUpload->text(), QString("abcd"));
  w.txtUpload->setText(QString());
  w.txtUpload->InsertRaw("ab\rcd");
  EXPECT_EQ(w.txtUpload->text(), QString("abcd"));
}

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

TEST_F(MailListTest, PopupCommandsOnTheActiveList) {
  FrmEmailto w(services);
  for (const char* a : {"a", "b", "c", "d", "e"}) w.lstUpload->AddItem(a);
  w.lstMember->AddItem("m");
  w.optUpload->click();
  QClipboard* clip = QGuiApplication::clipboard();
  w.CopyList();
  EXPECT_EQ(clip->text(), QString("a, b, c, d, e, "));
  for (int i : {1, 2, 4}) w.lstUpload->SetSelected(i, true);
  w.CopySelected();
  EXPECT_EQ(clip->text(), QString("b, c, e, "));
  // Neighbours both go: the walk steps back after each removal.
  w.RemoveSelected();
  EXPECT_EQ(w.lstUpload->Items(), (Items{"a", "d"}));
  w.SelectAll();
  EXPECT_EQ(w.lstUpload->SelCount(), 2);
  w.RemoveSelected();
  w.CopyList();
  EXPECT_EQ(clip->text(), QString());
  w.optMember->click();
  w.RemoveAll();
  EXPECT_EQ(w.lstMember->ListCount(), 0);
  EXPECT_TRUE(prompts.boxes.empty());  // no question asked
}

TEST_F(MailListTest, FilesReadAtLoadAndWrittenOnlyOnSaveAndExit) {
  WriteBytes(member, "one\r\ntwo,three\r\n\"four\"\r\n");
  auto* w = new FrmEmailto(services);
  EXPECT_EQ(w->lstMember->Items(), (Items{"one", "two", "three", "four"}));
  EXPECT_EQ(w->lstUpload->ListCount(), 0);  // missing file: empty list
  Enter(w->txtMember, "five");
  Enter(w->txtUpload, "up1,up2");
  EXPECT_EQ(ReadBytes(member), "one\r\ntwo,three\r\n\"four\"\r\n");
  EXPECT_FALSE(std::filesystem::exists(upload));
  QPointer<FrmEmailto> alive(w);
  w->cmdExit->click();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(alive.isNull());  // unloaded
  EXPECT_EQ(ReadBytes(member), "one\r\ntwo\r\nthree\r\nfour\r\nfive\r\n");
  EXPECT_EQ(ReadBytes(upload), "up1\r\nup2\r\n");
  // The next opening reads the files again; an emptied list saves an empty file.
  FrmEmailto again(services);
  EXPECT_EQ(again.lstUpload->Items(), (Items{"up1", "up2"}));
  again.optUpload->click();
  again.RemoveAll();
  again.SaveLists();
  EXPECT_EQ(ReadBytes(upload), "");
}

// ---------------------------------------------------------------- the full-box command

const std::string kReportHead = "email addresses that were full or invalid are:\r\r";

TEST_F(MailListTest, FullBoxCommandRemovesTheReportedAddressesFromTheActiveListOnly) {
  StartClient(5);
  mail->MarkFull("bob");
  mail->MarkUnknown("cy");
  WriteBytes(upload, "ann\r\nbob\r\ncy\r\ndee\r\n");
  WriteBytes(member, "bob\r\n");
  FrmMenu menu;
  const MailEditors& editors = ConnectMailEditors(menu, services);
  menu.editmailform->trigger();
  FrmEmailto* w = editors.mailList;
  ASSERT_NE(w, nullptr);
  w->optUpload->click();
  {
    PumpBudget budget(40000);
    menu.chkRmvAll->trigger();
  }
  EXPECT_EQ(w->lstUpload->Items(), (Items{"ann", "dee"}));
  EXPECT_EQ(w->lstMember->Items(), (Items{"bob"}));
  ExpectBox(prompts, 0, kReportHead + " - bob\r - cy\r\rthey have been removed!", 4160, kAppName);
  // Not saved: the file still holds every address until save & exit.
  EXPECT_EQ(ReadBytes(upload), "ann\r\nbob\r\ncy\r\ndee\r\n");
  Close(w);
  EXPECT_EQ(ReadBytes(upload), "ann\r\ndee\r\n");
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
  EXPECT_EQ(prompts.boxes[0].text, kReportHead + " - bob\r\rthey have been removed!");
}

TEST_F(MailListTest, FullBoxCommandWithNothingFullOrOnGenerationTwo) {
  // The second case's client quits once the question is answered: the check reached the
  // removal, so the user still hears its result.
  for (auto [generation, quits] : {std::pair{5, false}, {5, true}, {2, false}}) {
    prompts.boxes.clear();
    StartClient(generation);
    FrmEmailto w(services);
    w.lstMember->AddItem("ann");
    const PumpHookId quit = AddPumpHook([&, quits = quits] {
      if (quits && client->Running() && !client->EventDetails(sim::kEventMailDiscarded).empty())
        client->Quit();
    });
    {
      PumpBudget budget(40000);
      w.CheckAndRemoveFullBoxes();
    }
    RemovePumpHook(quit);
    EXPECT_EQ(w.lstMember->Items(), (Items{"ann"}));
    if (generation == 5) {
      ExpectBox(prompts, 0, "there are no full boxes", 4160, kAppName);
    } else {
      EXPECT_TRUE(prompts.boxes.empty());  // the check ends with no message
    }
  }
}

}  // namespace
}  // namespace qc::test
