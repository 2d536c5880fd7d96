// The menu commands: input boxes, web items, reset, kill items, exit, and the popups.
#include <QApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>

#include "app/core/settings_store.h"
#include "app/forms/frmmain.h"
#include "app/forms/frmmenu.h"
#include "client/window_system.h"
#include "mail/mail_editors.h"
#include "shell/frm_about.h"
#include "shell/menu_wiring.h"
#include "shell/startup.h"
#include "sim/sim_client.h"
#include "sim/sim_desktop.h"
#include "support/scripted_prompts.h"

namespace qc {
namespace {

class MenuWiringTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(dir_.isValid());
    SetSettingsFolder(dir_.path().toStdString());
    SetWindowSystem(&desktop_);
    // The hook returns: throwing through Qt's signal frames would leave Qt's guards behind.
    SetExitHook([this] { ++exits_; });
    SetWebOpener([this](const std::string& a) { opened_.push_back(a); });
  }
  void TearDown() override {
    SetWebOpener({});
    SetExitHook({});
    SetWindowSystem(nullptr);
    SetSettingsFolder("");
  }
  void Wire() { ConnectMenus(frmMain_, frmMenu_, frmMenu2_); }

  QTemporaryDir dir_;
  sim::SimDesktop desktop_;
  FrmMain frmMain_;
  FrmMenu frmMenu_;
  FrmMenu2 frmMenu2_;
  int exits_ = 0;
  std::vector<std::string> opened_;
};

TEST_F(MenuWiringTest, HandleInputBox) {
  test::ScriptedPrompts prompts;
  Wire();
  frmMenu_.lblHandle->setText("old name");
  prompts.inputAnswers = {std::string("dj quill"), std::nullopt, std::string("")};
  frmMenu_.userHandle->trigger();
  ASSERT_EQ(prompts.inputs.size(), 1u);
  EXPECT_EQ(prompts.inputs[0].prompt, "please enter your handle/name...");
  EXPECT_EQ(prompts.inputs[0].title, "handle");
  EXPECT_EQ(prompts.inputs[0].defaultText, "old name");
  EXPECT_EQ(prompts.inputs[0].x, 15);
  EXPECT_EQ(prompts.inputs[0].y, 15);
  EXPECT_EQ(frmMenu_.lblHandle->Caption(), "dj quill");
  EXPECT_EQ(frmMenu_.userHandle->text().toStdString(), "&handle [dj quill]");
  // Cancel and an empty answer change nothing.
  frmMenu_.userHandle->trigger();
  frmMenu_.userHandle->trigger();
  EXPECT_EQ(prompts.inputs[2].defaultText, "dj quill");
  EXPECT_EQ(frmMenu_.lblHandle->Caption(), "dj quill");
  EXPECT_EQ(frmMenu_.userHandle->text().toStdString(), "&handle [dj quill]");
}

TEST_F(MenuWiringTest, CommentInputBoxKeepsThirtyCharacters) {
  test::ScriptedPrompts prompts;
  Wire();
  frmMenu_.lblRename->setText("uploaded by me");
  const struct {
    std::optional<std::string> answer;
    std::string kept;
  } cases[] = {
      {std::string("abcdefghijklmnopqrstuvwxyz12345"), "abcdefghijklmnopqrstuvwxyz1234"},
      {std::nullopt, "abcdefghijklmnopqrstuvwxyz1234"},
      {std::string(""), "abcdefghijklmnopqrstuvwxyz1234"},
      {std::string("exactly thirty characters here"), "exactly thirty characters here"},
      // Characters, not bytes: 31 letters with accents keep 30 whole letters.
      {std::string("ééééééééééééééééééééééééééééééé"), "éééééééééééééééééééééééééééééé"},
      {std::string("short"), "short"},
  };
  for (const auto& c : cases) {
    prompts.inputAnswers.push_back(c.answer);
    frmMenu_.renametags->trigger();
    EXPECT_EQ(frmMenu_.lblRename->Caption(), c.kept);
  }
  ASSERT_FALSE(prompts.inputs.empty());
  EXPECT_EQ(prompts.inputs[0].prompt,
            "before uploading, rename all mp3 comment tags to...\r\r\r...30 letters max.");
  EXPECT_EQ(prompts.inputs[0].title, "id tags");
  EXPECT_EQ(prompts.inputs[0].defaultText, "uploaded by me");
  EXPECT_EQ(prompts.inputs[0].x, 15);
  EXPECT_EQ(prompts.inputs[0].y, 15);
}

TEST_F(MenuWiringTest, WebItemsOpenTheirAddresses) {
  Wire();
  for (QAction* a : {frmMenu_.weblink1, frmMenu_.weblink2, frmMenu_.fav1, frmMenu_.fav2,
                     frmMenu_.fav3, frmMenu_.fav4})
    a->trigger();
  ASSERT_EQ(opened_.size(), 6u);
  for (size_t i = 0; i < opened_.size(); ++i) {
    EXPECT_EQ(opened_[i].rfind("https://", 0), 0u) << opened_[i];
    for (size_t j = 0; j < i; ++j) EXPECT_NE(opened_[i], opened_[j]);
  }
  EXPECT_EQ(opened_[0], FrmMenu::WebAddress("weblink1"));
}

TEST_F(MenuWiringTest, ResetStatsDeletesEverySettingAndZeroesTheCounters) {
  Wire();
  SaveSetting(kAppName, kOptionsSection, "mbs", "50");
  SaveSetting(kAppName, kOptionsSection, "ascii1", "**");
  SaveSetting(kAppName, kSubjectSection, "subject", "x");
  frmMain_.lblMBs->setText("50");
  frmMain_.lblUps->setText("9");
  frmMain_.lblTagTotal->setText("run line");
  frmMenu_.bbcemail->setChecked(false);
  frmMenu_.resetstat->trigger();
  EXPECT_EQ(frmMain_.lblMBs->Caption(), "0");
  EXPECT_EQ(frmMain_.lblUps->Caption(), "0");
  EXPECT_EQ(frmMain_.Label1->Caption(), "0 ups : 0 mb");
  EXPECT_EQ(frmMain_.lblTagTotal->Caption(), "run line");
  EXPECT_FALSE(frmMenu_.check("bbcemail"));  // the running program keeps its marks
  for (const auto& [section, key] : {std::pair{kOptionsSection, "mbs"},
                                     std::pair{kOptionsSection, "ascii1"},
                                     std::pair{kSubjectSection, "subject"}})
    EXPECT_EQ(GetSetting(kAppName, section, key, "<gone>"), "<gone>") << key;
}

TEST_F(MenuWiringTest, ExitFromMenuAndFromThePictureButton) {
  Wire();
  frmMain_.show();
  frmMenu_.endprog->trigger();
  EXPECT_EQ(exits_, 1);
  EXPECT_FALSE(frmMain_.isVisible());
  EXPECT_EQ(GetSetting(kAppName, kOptionsSection, "frmmenu.autohead.Checked", "?"), "1");
  frmMain_.show();
  emit frmMain_.picExit->clicked();
  EXPECT_EQ(exits_, 2);
}

TEST_F(MenuWiringTest, HelpItemsAskTheirBoxes) {
  test::ScriptedPrompts prompts;
  Wire();
  for (QAction* a : {frmMenu_.how2use, frmMenu_.contactzme, frmMenu_.emailTips,
                     frmMenu_.subjectTips, frmMenu_.bodytips})
    a->trigger();
  ASSERT_EQ(prompts.boxes.size(), 5u);
  EXPECT_EQ(prompts.boxes[0].title, "how to use...");
  EXPECT_EQ(prompts.boxes[1].flags, 0);
  EXPECT_EQ(prompts.boxes[2].title, "tips!");
}

TEST_F(MenuWiringTest, KillModalClosesTheClientsModalWindow) {
  sim::SimClient client(desktop_);
  Wire();
  const Hwnd modal = desktop_.NewWindow(0, "_AOL_Modal", "Sign Off?");
  ASSERT_TRUE(desktop_.Exists(modal));
  frmMenu_.kmodallll->trigger();
  DoEvents();
  EXPECT_FALSE(desktop_.Exists(modal) && desktop_.IsWindowVisible(modal));
}

TEST_F(MenuWiringTest, EachTriangleOpensItsMenuUnderIt) {
  Wire();
  frmMain_.show();
  const std::pair<PictureBox*, QMenu*> cases[] = {{frmMain_.picMenu1, frmMenu_.mnufile},
                                                  {frmMain_.picMenu2, frmMenu_.mnutag},
                                                  {frmMain_.picMenu3, frmMenu_.mnuOther}};
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
    EXPECT_EQ(at, frmMain_.mapToGlobal(QPoint(button->x(), button->geometry().bottom() + 2)));
  }
}

TEST_F(MenuWiringTest, AboutShowsTheHandleAsItStoodAtOpening) {
  Wire();
  frmMenu_.lblHandle->setText("DJ Quill");
  frmMenu_.aboutmp33->trigger();
  FrmAbout* about = nullptr;
  for (QWidget* w : QApplication::topLevelWidgets())
    if (auto* a = qobject_cast<FrmAbout*>(w); a && a->isVisible()) about = a;
  ASSERT_NE(about, nullptr);
  EXPECT_EQ(about->lblName->text(), "dj quill");
  frmMenu_.lblHandle->setText("Other");
  frmMenu_.aboutmp33->trigger();  // still open: the same window, the old name
  EXPECT_EQ(about->lblName->text(), "dj quill");
  about->close();
  delete about;
}

TEST_F(MenuWiringTest, EditorItemsOpenTheirWindowsWithoutBlocking) {
  Wire();
  frmMenu_.editSubject->trigger();
  ASSERT_NE(SubjectEditor(), nullptr);
  EXPECT_TRUE(SubjectEditor()->isVisible());
  frmMenu_.headfootopt->trigger();
  ASSERT_NE(HeadEditor(), nullptr);
  EXPECT_TRUE(HeadEditor()->isVisible());
  delete SubjectEditor();
  delete HeadEditor();
}

#ifdef QC_QUILLCAST_BIN
TEST(ProgramTest, SecondInstanceEndsSilentlyBeforeAnyWindow) {
  QTemporaryDir tmp;
  InstanceLock held(QDir(tmp.path()).filePath(QStringLiteral("quillcast.lock")));
  ASSERT_TRUE(held.acquired());
  QProcess p;
  QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
  env.insert(QStringLiteral("XDG_RUNTIME_DIR"), tmp.path());  // where the user's lock lies
  env.insert(QStringLiteral("TMPDIR"), tmp.path());
  env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
  env.insert(QStringLiteral("XDG_CONFIG_HOME"), tmp.path());
  p.setProcessEnvironment(env);
  p.start(QStringLiteral(QC_QUILLCAST_BIN), {});
  ASSERT_TRUE(p.waitForFinished(20000));
  EXPECT_EQ(p.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(p.exitCode(), 0);
  EXPECT_EQ(p.readAllStandardOutput(), QByteArray());
}
#endif

}  // namespace
}  // namespace qc
