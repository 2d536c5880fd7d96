// The shared window routines: snap arithmetic, centring, on-top and popups.
#include "ui/window_routines.h"

#include <QGuiApplication>
#include <QMenu>
#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <gtest/gtest.h>

#include <sstream>

#include "support/cases.h"

namespace qc {
namespace {

// data/snap.txt: where the snap puts a window dropped near the screen's edges.
TEST(SnapPosition, LandsWhereTheBandPullsIt) {
  test::RunCases(QC_TEST_DATA_DIR "/snap.txt", {{"Snap", [](const test::Args& a) {
                   const DeskArea desk{15360, 11520, std::stoi(a[4])};
                   const TwipsPoint p = SnapPosition(std::stod(a[0]), std::stod(a[1]),
                                                     std::stod(a[2]), std::stod(a[3]), desk);
                   std::ostringstream out;
                   out << p.left << " " << p.top;
                   return out.str();
                 }}});
}

TEST(WindowRoutines, CentredInTheRestOfTheScreenAndOnTopWhileShown) {
  QWidget w(nullptr, Qt::FramelessWindowHint);
  w.resize(245, 136);
  w.show();
  StayOnTop(&w);
  EXPECT_TRUE(w.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
  EXPECT_TRUE(w.windowFlags().testFlag(Qt::FramelessWindowHint));
  EXPECT_TRUE(w.isVisible());
  CenterWindow(&w);
  const QRect screen = QGuiApplication::primaryScreen()->geometry();
  EXPECT_EQ(w.x() - screen.x(), (screen.width() - 245 + 1) / 2);
  EXPECT_EQ(w.y() - screen.y(), (screen.height() - 136) / 2);
}

TEST(WindowRoutines, PopupUnderOpensBelowTheControlInWindowCoordinates) {
  QWidget window(nullptr, Qt::FramelessWindowHint);
  window.resize(245, 136);
  window.move(100, 50);
  QWidget control(&window);
  SetTwipsGeometry(&control, 150, 60, 210, 165);
  window.show();
  QMenu menu;
  menu.addAction(QStringLiteral("item"));
  QPoint shownAt;
  QTimer::singleShot(0, &menu, [&] {
    shownAt = menu.pos();
    menu.close();
  });
  PopupUnder(&menu, &control, &window);
  // x = 150 twips, y = 60 + 165 + 15 = 240 twips, from the window's corner.
  EXPECT_EQ(shownAt, window.mapToGlobal(QPoint(10, 16)));
}

}  // namespace
}  // namespace qc
