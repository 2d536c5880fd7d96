// The subject and body editors, the decoration editor, and the menu items that open them and
// insert keys. What they save reaching a run is the run scenarios' business.
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QTextCursor>
#include <QTimer>

#include "mail/mail_editors.h"
#include "support/sandbox.h"
#include "ui/frmmenu.h"

namespace qc::test {
namespace {

const std::string kDefaultBody =
    "paste your group tag here!\r\n\r\n"
    "title:\t\t\tidTitle$\r\nartist:\t\t\tidArtist$\r\nalbum:\t\t\tidAlbum$\r\n"
    "release year:\t\tidYear$\r\ngenre:\t\t\tidGenre$\r\nupload date:\t\tsysDate$\r\n"
    "uploaded by:\t\tmyHandle$\r\nfile size:\t\t\tfileSize$\r\nfile name:\t\tfileName$\r\n"
    "comment:\t\tidComment$";

void Close(SecondaryWindow* w) {
  w->saveAndExit();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

class TemplateTest : public SandboxTest {
 protected:
  const std::string bodyFile = app + "txtBody.sys";  // beside the folder, not in it
};

TEST_F(TemplateTest, SubjectFromTheStoreWithItsLetterCount) {
  auto* w = new FrmSubject(services);
  EXPECT_EQ(w->windowTitle(), QString("edit subject line"));
  EXPECT_EQ(w->txtSubj->text().toStdString(),
            "\u00B7\u2022 \u00F3mbreval\u00E8 \u2022\u00B7[idArtist$]-idTitle$");
  EXPECT_EQ(w->pnlInfo->caption(), QString(" letter count: 35"));
  w->txtSubj->setText("ab");
  EXPECT_EQ(w->pnlInfo->caption(), QString(" letter count: 2"));
  // Nothing is stored before save & exit.
  EXPECT_EQ(settings.Get("subject", "subject", "missing"), "missing");
  w->txtSubj->setText(QString());
  w->cmdExit->click();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  // The empty template is stored, and the default no longer applies.
  EXPECT_EQ(settings.Get("subject", "subject", "missing"), "");
  FrmSubject again(services);
  EXPECT_EQ(again.txtSubj->text(), QString());
}

TEST_F(TemplateTest, BodyDefaultWrittenAtOnceWhenTheFileGivesNoText) {
  auto* w = new FrmBody(services);
  EXPECT_EQ(w->windowTitle(), QString("edit body"));
  // Opening alone creates the file.
  EXPECT_EQ(ReadBytes(bodyFile), kDefaultBody + "\r\n");
  EXPECT_FALSE(std::filesystem::exists(app + "/txtBody.sys"));
  // Emptied and saved: two bytes.
  w->txtBody->clear();
  Close(w);
  EXPECT_EQ(ReadBytes(bodyFile), "\r\n");
  // The next opening finds no text and writes the default over it.
  w = new FrmBody(services);
  EXPECT_EQ(ReadBytes(bodyFile), kDefaultBody + "\r\n");
  w->txtBody->setPlainText("line one\nline two");
  EXPECT_EQ(ReadBytes(bodyFile), kDefaultBody + "\r\n");  // not before save & exit
  w->cmdExit->click();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(ReadBytes(bodyFile), "line one\r\nline two\r\n");
  FrmBody kept(services);
  EXPECT_EQ(kept.txtBody->toPlainText(), QString("line one\nline two"));
}

TEST_F(TemplateTest, InsertsReplaceTheSelectionOrGoInAtTheCaret) {
  FrmMenu menu;
  const MailEditors& editors = ConnectMailEditors(menu, services);
  menu.editSubject->trigger();
  FrmSubject* subject = editors.subject.data();
  ASSERT_NE(subject, nullptr);
  EXPECT_TRUE(subject->isVisible());
  subject->txtSubj->setText("[a - b]");
  subject->txtSubj->setSelection(5, 1);  // "b"
  menu.insrtTitle->trigger();
  EXPECT_EQ(subject->txtSubj->text(), QString("[a - idTitle$]"));
  subject->txtSubj->setCursorPosition(1);
  menu.insrtFile->trigger();
  EXPECT_EQ(subject->txtSubj->text(), QString("[fileName$a - idTitle$]"));
  const std::pair<QAction*, const char*> subjectItems[] = {
      {menu.insrtsize, "fileSize$"}, {menu.insrtartist, "idArtist$"},
      {menu.insrtalbum, "idAlbum$"}, {menu.insrtgenre, "idGenre$"}};
  for (const auto& [action, key] : subjectItems) {
    subject->txtSubj->clear();
    action->trigger();
    EXPECT_EQ(subject->txtSubj->text(), QString(key));
  }
  menu.editBody->trigger();
  FrmBody* body = editors.body.data();
  ASSERT_NE(body, nullptr);
  const std::pair<QAction*, const char*> bodyItems[] = {
      {menu.inserttitle, "idTitle$"},   {menu.insertartist, "idArtist$"},
      {menu.insertalbum, "idAlbum$"},   {menu.insertyear, "idYear$"},
      {menu.insertgenre, "idGenre$"},   {menu.insertcomment, "idComment$"},
      {menu.insertdate, "sysDate$"},    {menu.inserthandle, "myHandle$"},
      {menu.insertfsize, "fileSize$"},  {menu.insertfname, "fileName$"}};
  for (const auto& [action, key] : bodyItems) {
    body->txtBody->setPlainText("x[sel]y");
    QTextCursor c = body->txtBody->textCursor();
    c.setPosition(1);
    c.setPosition(6, QTextCursor::KeepAnchor);
    body->txtBody->setTextCursor(c);
    action->trigger();
    EXPECT_EQ(body->txtBody->toPlainText(), QString("x") + key + "y");
  }
  Close(subject);
  Close(body);
  EXPECT_EQ(editors.subject.data(), nullptr);
  EXPECT_EQ(editors.body.data(), nullptr);
}

TEST_F(TemplateTest, MenuItemsOpenEachEditorOnceWithItsPopupUnderItsButton) {
  FrmMenu menu;
  const MailEditors& editors = ConnectMailEditors(menu, services);
  menu.editmailform->trigger();
  FrmEmailto* lists = editors.mailList.data();
  ASSERT_NE(lists, nullptr);
  menu.editmailform->trigger();
  EXPECT_EQ(editors.mailList.data(), lists);
  EXPECT_TRUE(lists->isVisible());
  menu.headfootopt->trigger();
  ASSERT_NE(editors.head.data(), nullptr);
  EXPECT_TRUE(editors.head.data()->isVisible());
  // The list commands reach the open editor.
  lists->lstMember->AddItem("a");
  menu.rmvAll->trigger();
  EXPECT_EQ(lists->lstMember->ListCount(), 0);
  menu.editSubject->trigger();
  menu.editBody->trigger();
  // Each editor's options button opens its popup under it (the body's, as one of three).
  const std::tuple<SecondaryWindow*, Command3D*, QMenu*> cases[] = {
      {lists, lists->cmdMenu, menu.mnuEmailto},
      {editors.subject.data(), editors.subject.data()->cmdMenu, menu.subjoptions},
      {editors.body.data(), editors.body.data()->cmdMenu, menu.bodyOpt},
  };
  for (const auto& [window, button, tree] : cases) {
    QMenu* shown = nullptr;
    QTimer::singleShot(0, [&] {
      shown = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      if (shown) shown->close();
    });
    button->click();
    EXPECT_EQ(shown, tree);
    Close(window);
  }
  Close(editors.head.data());
  EXPECT_EQ(editors.mailList.data(), nullptr);
  EXPECT_EQ(editors.head.data(), nullptr);
}

TEST_F(TemplateTest, DecorationRoundTripAndEmptyStringsWin) {
  {
    FrmHead w(services);
    EXPECT_EQ(w.asciiFront->text().toStdString(), "\u00B7\u2022(`(`\u00B7");
    EXPECT_EQ(w.asciiBack->text().toStdString(), "\u00B7\u00B4)\u00B4)\u2022\u00B7");
    w.asciiFront->setText(QString::fromUtf8("\u2022\u00B4\u00B7"));
    w.asciiBack->clear();
    EXPECT_EQ(settings.Get(kOptionsSection, "ascii1", "none"), "none");
    w.saveAndExit();
  }
  EXPECT_EQ(settings.Get(kOptionsSection, "ascii1", ""), "\u2022\u00B4\u00B7");
  EXPECT_EQ(settings.Get(kOptionsSection, "ascii2", "none"), "");
  FrmHead w(services);
  EXPECT_EQ(w.asciiFront->text().toStdString(), "\u2022\u00B4\u00B7");
  EXPECT_EQ(w.asciiBack->text(), QString());
}

}  // namespace
}  // namespace qc::test
