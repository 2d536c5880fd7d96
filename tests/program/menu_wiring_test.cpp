// The menu commands: input boxes, web items, reset, kill items, exit, and the popups.
#include <QApplication>
#include <QMenu>
#include <QProcess>
#include <QTimer>

#include "mail/mail_editors.h"
#include "program/menu_wiring.h"
#include "program/startup.h"
#include "shell/frm_about.h"
#include "support/sandbox.h"
#include "ui/frmmain.h"
#include "ui/frmmenu.h"
#include "ui/settings_store.h"

namespace qc::test {
namespace {

class MenuWiringTest : public SandboxTest {
 protected:
  MenuWiringTest() { ConnectMenus(frmMain, frmMenu, frmMenu2, services); }
  FrmMain frmMain;
  FrmMenu frmMenu;
  FrmMenu2 frmMenu2;
};

TEST_F(MenuWiringTest, HandleAndCommentInputBoxes) {
  struct Case {
    QAction* item;
    Label* label;
    std::optional<std::string> answer;
    std::string kept;
  } cases[] = {
      {frmMenu.userHandle, frmMenu.lblHandle, std::string("dj quill"), "dj quill"},
      // Cancel and an empty answer change nothing.
      {frmMenu.userHandle, frmMenu.lblHandle, std::nullopt, "dj quill"},
      {frmMenu.userHandle, frmMenu.lblHandle, std::string(""), "dj quill"},
      {frmMenu.renametags, frmMenu.lblRename, std::string("abcdefghijklmnopqrstuvwxyz12345"),
       "abcdefghijklmnopqrstuvwxyz1234"},
      {frmMenu.renametags, frmMenu.lblRename, std::nullopt, "abcdefghijklmnopqrstuvwxyz1234"},
      {frmMenu.renametags, frmMenu.lblRename, std::string(""), "abcdefghijklmnopqrstuvwxyz1234"},
      {frmMenu.renametags, frmMenu.lblRename, std::string("exactly thirty characters here"),
       "exactly thirty characters here"},
      // Characters, not bytes: 31 letters with accents keep 30 whole letters.
      {frmMenu.renametags, frmMenu.lblRename, std::string("ééééééééééééééééééééééééééééééé"),
       "éééééééééééééééééééééééééééééé"},
  };
  frmMenu.lblHandle->setText("old name");
  frmMenu.lblRename->setText("uploaded by me");
  for (const Case& c : cases) {
    prompts.inputAnswers.push_back(c.answer);
    c.item->trigger();
    EXPECT_EQ(c.label->Caption(), c.kept);
  }
  ASSERT_EQ(prompts.inputs.size(), std::size(cases));
  const auto& handle = prompts.inputs[0];
  EXPECT_EQ(handle.prompt, "please enter your handle/name...");
  EXPECT_EQ(handle.title, "handle");
  EXPECT_EQ(handle.defaultText, "old name");
  EXPECT_EQ(prompts.inputs[2].defaultText, "dj quill");
  EXPECT_EQ(frmMenu.userHandle->text().toStdString(), "&handle [dj quill]");
  const auto& comment = prompts.inputs[3];
  EXPECT_EQ(comment.prompt,
            "before uploading, rename all mp3 comment tags to...\r\r\r...30 letters max.");
  EXPECT_EQ(comment.title, "id tags");
  EXPECT_EQ(comment.defaultText, "uploaded by me");
  for (const auto& input : prompts.inputs) EXPECT_EQ(input.x + input.y, 30);  // 15 twips each
}

TEST_F(MenuWiringTest, WebAndHelpItems) {
  for (QAction* a : {frmMenu.weblink1, frmMenu.weblink2, frmMenu.fav1, frmMenu.fav2,
                     frmMenu.fav3, frmMenu.fav4})
    a->trigger();
  ASSERT_EQ(opened.size(), 6u);
  for (size_t i = 0; i < opened.size(); ++i) {
    EXPECT_EQ(opened[i].rfind("https://", 0), 0u) << opened[i];
    for (size_t j = 0; j < i; ++j) EXPECT_NE(opened[i], opened[j]);
  }
  EXPECT_EQ(opened[0], FrmMenu::WebAddress("weblink1"));
  for (QAction* a : {frmMenu.how2use, frmMenu.contactzme, frmMenu.emailTips,
                     frmMenu.subjectTips, frmMenu.bodytips})
    a->trigger();
  ASSERT_EQ(prompts.boxes.size(), 5u);
  EXPECT_EQ(prompts.boxes[0].title, "how to use...");
  EXPECT_EQ(prompts.boxes[1].flags, 0);
  EXPECT_EQ(prompts.boxes[2].title, "tips!");
}

TEST_F(MenuWiringTest, ResetStatsDeletesEverySettingAndZeroesTheCounters) {
  settings.Save(kOptionsSection, "mbs", "50");
  settings.Save(kOptionsSection, "ascii1", "**");
  settings.Save(kSubjectSection, "subject", "x");
  frmMain.lblMBs->setText("50");
  frmMain.lblUps->setText("9");
  frmMain.lblTagTotal->setText("run line");
  frmMenu.bbcemail->setChecked(false);
  frmMenu.resetstat->trigger();
  EXPECT_EQ(frmMain.lblMBs->Caption() + frmMain.lblUps->Caption(), "00");
  EXPECT_EQ(frmMain.Label1->Caption(), "0 ups : 0 mb");
  EXPECT_EQ(frmMain.lblTagTotal->Caption(), "run line");
  EXPECT_FALSE(frmMenu.check("bbcemail"));  // the running program keeps its marks
  for (const auto& [section, key] : {std::pair{kOptionsSection, "mbs"},
                                     std::pair{kOptionsSection, "ascii1"},
                                     std::pair{kSubjectSection, "subject"}})
    EXPECT_EQ(settings.Get(section, key, "<gone>"), "<gone>") << key;
}

TEST_F(MenuWiringTest, ExitFromMenuAndFromThePictureButton) {
  frmMain.show();
  frmMenu.endprog->trigger();
  EXPECT_EQ(ends, std::vector<int>{0});
  EXPECT_FALSE(frmMain.isVisible());
  EXPECT_EQ(settings.Get(kOptionsSection, "frmmenu.autohead.Checked", "?"), "1");
  frmMain.show();
  emit frmMain.picExit->clicked();
  EXPECT_EQ(ends, (std::vector<int>{0, 0}));
}

TEST_F(MenuWiringTest, KillModalClosesTheClientsModalWindow) {
  StartClient(5);
  const Hwnd modal = desktop.NewWindow(0, "_AOL_Modal", "Sign Off?");
  frmMenu.kmodallll->trigger();
  DoEvents();
  EXPECT_FALSE(desktop.Exists(modal) && desktop.IsWindowVisible(modal));
}

TEST_F(MenuWiringTest, EachTriangleOpensItsMenuUnderIt) {
  frmMain.show();
  const std::pair<PictureBox*, QMenu*> cases[] = {{frmMain.picMenu1, frmMenu.mnufile},
                                                  {frmMain.picMenu2, frmMenu.mnutag},
                                                  {frmMain.picMenu3, frmMenu.mnuOther}};
  for (const auto& [button, tree] : cases) {
    QMenu* shown = nullptr;
    QPoint at;
    QTimer::singleShot(0, [&] {
      shown = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      if (!shown) return;
      at = shown->pos();
      shown->close();
    });
    emit button->clicked();
    ASSERT_EQ(shown, tree) << button->objectName().toStdString();
    // At the button's left, one pixel (15 twips) below its bottom edge.
    EXPECT_EQ(at, frmMain.mapToGlobal(QPoint(button->x(), button->geometry().bottom() + 2)));
  }
}

TEST_F(MenuWiringTest, AboutAndEditorItemsOpenTheirWindowsWithoutBlocking) {
  frmMenu.lblHandle->setText("DJ Quill");
  frmMenu.aboutmp33->trigger();
  FrmAbout* about = nullptr;
  for (QWidget* w : QApplication::topLevelWidgets())
    if (auto* a = qobject_cast<FrmAbout*>(w); a && a->isVisible()) about = a;
  ASSERT_NE(about, nullptr);
  EXPECT_EQ(about->lblName->text(), "dj quill");
  frmMenu.lblHandle->setText("Other");
  frmMenu.aboutmp33->trigger();  // still open: the same window, the old name
  EXPECT_EQ(about->lblName->text(), "dj quill");
  delete about;
  frmMenu.editSubject->trigger();
  frmMenu.headfootopt->trigger();
  for (const char* name : {"frmSubject", "frmHead"}) {
    QWidget* editor = nullptr;
    for (QWidget* w : QApplication::topLevelWidgets())
      if (w->objectName() == name && w->isVisible()) editor = w;
    ASSERT_NE(editor, nullptr) << name;
    delete editor;
  }
}

#ifdef QC_QUILLCAST_BIN
TEST(ProgramTest, SecondInstanceEndsSilentlyBeforeAnyWindow) {
  TempDir tmp;
  const QString path = QString::fromStdString(tmp.path());
  InstanceLock held(QString::fromStdString(tmp / "quillcast.lock"));
  ASSERT_TRUE(held.acquired());
  QProcess p;
  QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
  env.insert(QStringLiteral("XDG_RUNTIME_DIR"), path);  // where the user's lock lies
  env.insert(QStringLiteral("TMPDIR"), path);
  env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
  env.insert(QStringLiteral("XDG_CONFIG_HOME"), path);
  p.setProcessEnvironment(env);
  p.start(QStringLiteral(QC_QUILLCAST_BIN), {});
  ASSERT_TRUE(p.waitForFinished(20000));
  EXPECT_EQ(p.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(p.exitCode(), 0);
  EXPECT_EQ(p.readAllStandardOutput(), QByteArray());
}
#endif

}  // namespace
}  // namespace qc::test
