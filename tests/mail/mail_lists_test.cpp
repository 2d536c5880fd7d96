// The mail-list editor: address entry in both boxes, the clean-up of line breaks, the popup
// commands, and the list files written only on save & exit.
#include <QApplication>
#include <QClipboard>
#include <QTest>

#include "ui/window_routines.h"
#include "base/failure.h"
#include "mail_editors_fixture.h"

namespace qc::test {
namespace {

using Items = std::vector<std::string>;

class MailListTest : public EditorTest {
 protected:
  std::unique_ptr<FrmEmailto> Open() { return std::make_unique<FrmEmailto>(); }
  static void Enter(EntryBox* box, const std::string& text) {
    box->setText(QString::fromStdString(text));
    box->PressKey(13);
  }
};

struct EntryRow {
  const char* entry;
  Items member;          // the list afterwards, from a list holding "old"
  int memberCurrent;     // -1: not checked
  bool memberFails;
  Items upload;
  int uploadCurrent;
};

TEST_F(MailListTest, EntryTableForBothBoxes) {
  const EntryRow rows[] = {
      {"Some Name", {"old", "somename"}, 1, false, {"old", "somename"}, 1},
      {"old", {"old"}, 0, false, {"old"}, 0},
      {"a b,c d", {"old", "ab", "cd"}, -1, false, {"old", "ab", "cd"}, -1},
      {"(ab)(cd)", {"old", "ab", "cd"}, -1, false, {"old", "ab", "cd"}, -1},
      {"(ab)", {"old", "ab"}, 1, false, {"old", "ab"}, 1},
      {"ab,cd,", {"old", "ab", "cd"}, -1, false, {"old", "ab"}, -1},
      {"ab,c,", {"old", "ab"}, -1, false, {"old", "ab"}, -1},
      {"ab,,cd", {"old", "abcd"}, -1, false, {"old", "abcd"}, -1},
      {"ab,", {"old", "ab"}, -1, false, {"old"}, -1},
      {"ab,old,cd", {"old", "ab", "cd"}, -1, false, {"old", "ab", "cd"}, -1},
      {"a,", {}, -1, true, {"old"}, -1},
      {",", {}, -1, true, {"old"}, -1},
      {"   ", {"old"}, -1, false, {"old"}, -1},
  };
  for (const EntryRow& row : rows) {
    SCOPED_TRACE(row.entry);
    auto w = Open();
    w->lstMember->AddItem("old");
    w->lstUpload->AddItem("old");
    if (row.memberFails) {
      try {
        Enter(w->txtMember, row.entry);
        ADD_FAILURE() << "no failure";
      } catch (const RuntimeFailure& f) {
        EXPECT_EQ(f.number(), kInvalidArgument);
      }
    } else {
      Enter(w->txtMember, row.entry);
      EXPECT_EQ(w->lstMember->Items(), row.member);
      if (row.memberCurrent >= 0) {
        EXPECT_EQ(w->lstMember->ListIndex(), row.memberCurrent);
      }
    }
    EXPECT_EQ(w->txtMember->text(), QString());
    Enter(w->txtUpload, row.entry);
    EXPECT_EQ(w->lstUpload->Items(), row.upload);
    if (row.uploadCurrent >= 0) {
      EXPECT_EQ(w->lstUpload->ListIndex(), row.uploadCurrent);
    }
    EXPECT_EQ(w->txtUpload->text(), QString());
  }
}

TEST_F(MailListTest, DuplicatesCompareExactly) {
  WriteBytes(app + "/lstMember.sys", "Bob\r\n");
  auto w = Open();
  Enter(w->txtMember, "bob");
  EXPECT_EQ(w->lstMember->Items(), (Items{"Bob", "bob"}));
  EXPECT_EQ(w->lstMember->ListIndex(), 1);
  Enter(w->txtMember, "BOB");
  EXPECT_EQ(w->lstMember->Items(), (Items{"Bob", "bob"}));
}

TEST_F(MailListTest, OnlyEnterStartsTheEntry) {
  auto w = Open();
  w->txtMember->setText("abc");
  w->txtMember->PressKey('x');
  EXPECT_EQ(w->lstMember->ListCount(), 0);
  EXPECT_EQ(w->txtMember->text(), QString("abcx"));
  // A real key press reaches the handler the same way.
  w->txtMember->setText("tom");
  QTest::keyClick(w->txtMember, Qt::Key_Return);
  EXPECT_EQ(w->lstMember->Items(), (Items{"tom"}));
  EXPECT_EQ(w->txtMember->text(), QString());
}

TEST_F(MailListTest, PastedLineBreaksPerBox) {
  auto w = Open();
  // Member: a carriage return starts the clean-up of both; a lone line feed stays.
  w->txtMember->InsertRaw("ab\r\ncd");
  EXPECT_EQ(w->txtMember->text(), QString("abcd"));
  w->txtMember->setText(QString());
  w->txtMember->InsertRaw("ab\ncd");
  EXPECT_EQ(w->txtMember->text(), QString("ab\ncd"));
  w->txtMember->PressKey(13);
  EXPECT_EQ(w->lstMember->Items(), (Items{"ab\ncd"}));
  // Upload: either one starts it.
  w->txtUpload->InsertRaw("ab\ncd");
  EXPECT_EQ(w->txtUpload->text(), QString("abcd"));
  w->txtUpload->setText(QString());
  w->txtUpload->InsertRaw("ab\rcd");
  EXPECT_EQ(w->txtUpload->text(), QString("abcd"));
}

TEST_F(MailListTest, OptionButtonsMoveTheFrames) {
  auto w = Open();
  EXPECT_TRUE(w->optMember->isChecked());
  EXPECT_EQ(TwipsTop(w->frmMember), 675);
  EXPECT_NEAR(TwipsTop(w->frmUpload), 2750, 15);
  EXPECT_EQ(&w->ActiveList(), w->lstMember);
  w->optUpload->click();
  EXPECT_EQ(TwipsTop(w->frmUpload), 675);
  EXPECT_NEAR(TwipsTop(w->frmMember), 2750, 15);
  EXPECT_EQ(&w->ActiveList(), w->lstUpload);
  w->optMember->click();
  EXPECT_EQ(TwipsTop(w->frmMember), 675);
  EXPECT_NEAR(TwipsTop(w->frmUpload), 2750, 15);
  EXPECT_EQ(&w->ActiveList(), w->lstMember);
  // Exactly one list shows: the back frame lies below the window's face, the front one inside.
  const QRect face = w->pnlFrame()->rect();
  EXPECT_TRUE(face.contains(w->frmMember->geometry()));
  EXPECT_FALSE(face.intersects(w->frmUpload->geometry()));
  for (QWidget* c : {static_cast<QWidget*>(w->optMember), static_cast<QWidget*>(w->optUpload),
                     static_cast<QWidget*>(w->cmdMenu), static_cast<QWidget*>(w->cmdExit),
                     static_cast<QWidget*>(w->panelSep), static_cast<QWidget*>(w->pnlTitle())}) {
    EXPECT_TRUE(face.contains(c->geometry())) << c->objectName().toStdString();
  }
  EXPECT_EQ(w->cmdExit->text(), QString("save && e&xit"));
  EXPECT_EQ(w->cmdMenu->text(), QString("&options"));
  // The window takes the face's size: 2430 by 2505 twips.
  EXPECT_EQ(TwipsWidth(w.get()), 2430);
  EXPECT_EQ(TwipsHeight(w.get()), 2505);
}

TEST_F(MailListTest, PopupCommandsOnTheActiveList) {
  auto w = Open();
  for (const char* a : {"a", "b", "c", "d", "e"}) w->lstUpload->AddItem(a);
  w->lstMember->AddItem("m");
  w->optUpload->click();
  QClipboard* clip = QGuiApplication::clipboard();

  w->CopyList();
  EXPECT_EQ(clip->text(), QString("a, b, c, d, e, "));
  w->lstUpload->SetSelected(1, true);
  w->lstUpload->SetSelected(2, true);
  w->lstUpload->SetSelected(4, true);
  w->CopySelected();
  EXPECT_EQ(clip->text(), QString("b, c, e, "));
  // Neighbours both go: the walk steps back after each removal.
  w->RemoveSelected();
  EXPECT_EQ(w->lstUpload->Items(), (Items{"a", "d"}));
  w->SelectAll();
  EXPECT_EQ(w->lstUpload->SelCount(), 2);
  w->RemoveSelected();
  EXPECT_EQ(w->lstUpload->ListCount(), 0);
  w->CopyList();
  EXPECT_EQ(clip->text(), QString());

  w->optMember->click();
  w->RemoveAll();
  EXPECT_EQ(w->lstMember->ListCount(), 0);
  EXPECT_TRUE(prompts.boxes.empty());  // no question asked
}

TEST_F(MailListTest, FilesReadAtLoadAndWrittenOnlyOnSaveAndExit) {
  const std::string member = app + "/lstMember.sys";
  const std::string upload = app + "/lstUpload.sys";
  WriteBytes(member, "one\r\ntwo,three\r\n\"four\"\r\n");
  auto w = Open();
  EXPECT_EQ(w->lstMember->Items(), (Items{"one", "two", "three", "four"}));
  EXPECT_EQ(w->lstUpload->ListCount(), 0);  // missing file: empty list
  Enter(w->txtMember, "five");
  Enter(w->txtUpload, "up1,up2");
  EXPECT_EQ(ReadBytes(member), "one\r\ntwo,three\r\n\"four\"\r\n");
  EXPECT_FALSE(Exists(upload));

  QPointer<FrmEmailto> alive(w.get());
  w->cmdExit->click();
  EXPECT_EQ(ReadBytes(member), "one\r\ntwo\r\nthree\r\nfour\r\nfive\r\n");
  EXPECT_EQ(ReadBytes(upload), "up1\r\nup2\r\n");
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(alive.isNull());  // unloaded
  w.release();

  // The next opening reads the files again; an emptied list saves an empty file.
  auto again = Open();
  EXPECT_EQ(again->lstUpload->Items(), (Items{"up1", "up2"}));
  again->optUpload->click();
  again->RemoveAll();
  again->SaveLists();
  EXPECT_EQ(ReadBytes(upload), "");
}

}  // namespace
}  // namespace qc::test
