// The menu commands the program scenarios cannot write down: the kill item on a modal window,
// the popups under the triangles and a second instance.
#include <QApplication>
#include <QMenu>
#include <QProcess>
#include <QTimer>

#include "program/menu_wiring.h"
#include "program/startup.h"
#include "support/sandbox.h"
#include "ui/frmmain.h"
#include "ui/frmmenu.h"

namespace qc::test {
namespace {

class MenuWiringTest : public SandboxTest {
 protected:
  MenuWiringTest() { ConnectMenus(frmMain, frmMenu, frmMenu2, services); }
  FrmMain frmMain;
  FrmMenu frmMenu;
  FrmMenu2 frmMenu2;
};

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

#ifdef QC_QUILLCAST_BIN
TEST(ProgramTest, SecondInstanceEndsSilentlyBeforeAnyWindow) {
  TempDir tmp;
  const QString path = QString::fromStdString(tmp.path());
  InstanceLock held(QString::fromStdString(tmp / "quillcast.lock"));
  ASSERT_TRUE(held.acquired());
  QProcess p;
  QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
  // Where the user's own lock lies; the temporary folder stays elsewhere, so only a lock that
  // follows the user's runtime folder is found.
  env.insert(QStringLiteral("XDG_RUNTIME_DIR"), path);
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
