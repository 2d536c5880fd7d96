// The frame of secondary windows: size from the face panel, centred, on top, save and exit.
#include "ui/secondary_window.h"

#include <QGuiApplication>
#include <QScreen>
#include <gtest/gtest.h>

#include "support/budget.h"
#include "support/qt_events.h"
#include "ui/window_routines.h"

namespace qc {
namespace {

class EditWindow : public SecondaryWindow {
 public:
  explicit EditWindow(int* saves)
      : SecondaryWindow(QStringLiteral("frmSubject"), QStringLiteral("edit subject line"), 4095,
                        1590, PrimaryScreenDesk) {
    exit_ = addSaveExit(QStringLiteral("cmdExit"), QStringLiteral("save && e&xit"), 2880, 1170,
                        1095, 300);
    setSaveHook([saves] { ++*saves; });
  }
  Command3D* exit_;
};

TEST(SecondaryWindowTest, OpensSizedByItsFaceCentredOnTopWithoutBlockingAndSavesOnceOnExit) {
  int saves = 0;
  QPointer<EditWindow> slot;
  EditWindow* w = OpenSecondary(slot, &saves);
  EXPECT_EQ(OpenSecondary(slot, &saves), w);  // loaded anew only after an unload
  EXPECT_EQ(w->size(), QSize(273, 106));
  EXPECT_TRUE(w->isVisible());
  EXPECT_FALSE(w->isModal());
  EXPECT_TRUE(w->windowFlags().testFlag(Qt::FramelessWindowHint));
  EXPECT_TRUE(w->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
  const QRect screen = QGuiApplication::primaryScreen()->geometry();
  EXPECT_NEAR(w->x() - screen.x(), (screen.width() - 273) / 2.0, 1);
  EXPECT_NEAR(w->y() - screen.y(), (screen.height() - 106) / 2.0, 1);
  EXPECT_EQ(saves, 0);
  w->exit_->click();
  EXPECT_EQ(saves, 1);
  EXPECT_FALSE(w->isVisible());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(slot.isNull());
  EditWindow* second = OpenSecondary(slot, &saves);
  EXPECT_TRUE(second->isVisible());
  delete second;
}

TEST(SecondaryWindowTest, PressOnTheTitleMovesThenSnaps) {
  int saves = 0;
  EditWindow w(&saves);
  w.setAttribute(Qt::WA_DeleteOnClose, false);
  w.open();
  SetTwipsLeft(&w, 195);
  SetTwipsTop(&w, 2400);
  // No button is held for the platform, so the drag ends at once and the snap follows.
  test::PumpBudget budget(100);
  test::SendMouse(w.pnlTitle(), QEvent::MouseButtonPress, Qt::RightButton);
  EXPECT_DOUBLE_EQ(TwipsLeft(&w), 0);
  EXPECT_DOUBLE_EQ(TwipsTop(&w), 2400);
}

}  // namespace
}  // namespace qc
