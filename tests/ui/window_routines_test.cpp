// The shared window routines: snap arithmetic, centring, on-top and popups.
#include "ui/window_routines.h"

#include <QGuiApplication>
#include <QMenu>
#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <gtest/gtest.h>

namespace qc {
namespace {

TEST(SnapPosition, LandsWhereTheBandPullsIt) {
  // A 1024 by 768 pixel screen in twips, bare and with a task bar whose top is at pixel 728 or
  // 727. Height limit: 11520 - 45 = 11475 bare; with the bar q = 243 (242.67 rounded), limit
  // 11520 - 486 - 45 = 10989; at 727 q = 242 (242.33 rounded) and the limit is 10991.
  constexpr DeskArea bare{15360, 11520, 0}, bar{15360, 11520, 728}, bar727{15360, 11520, 727};
  const struct {
    const char* name;
    DeskArea desk;
    double left, top, width, height, wantLeft, wantTop;
  } cases[] = {
      {"middle stays", bare, 5000, 4000, 3675, 2040, 5000, 4000},
      {"left band", bare, 209, 4000, 3675, 2040, 0, 4000},
      {"left outside the band", bare, 210, 4000, 3675, 2040, 210, 4000},
      {"left off screen", bare, -900, 4000, 3675, 2040, 0, 4000},
      {"top band", bare, 5000, 150, 3675, 2040, 5000, 0},
      {"top off screen, rolled up", bare, 5000, -60, 3675, 2040, 5000, 0},
      // 11476 + 3675 = 15151 reaches past 15360 - 210.
      {"right band", bare, 11476, 4000, 3675, 2040, 11685, 4000},
      {"right band edge", bare, 11475, 4000, 3675, 2040, 11475, 4000},
      // bottom 9226 + 2040 = 11266 > 11475 - 210 = 11265: pulled to 11475 - 2040.
      {"bottom band", bare, 5000, 9226, 3675, 2040, 5000, 9435},
      {"bottom band edge", bare, 5000, 9225, 3675, 2040, 5000, 9225},
      {"bottom with a task bar", bar, 5000, 8800, 3675, 2040, 5000, 8949},
      {"above the task bar's band", bar, 5000, 8739, 3675, 2040, 5000, 8739},
      {"task bar top rounded down", bar727, 5000, 10700, 100, 100, 5000, 10891},
      {"corner bottom right", bare, 12000, 10000, 3675, 2040, 11685, 9435},
      // Larger than the screen: bottom and right first, then the left and top edges win.
      {"larger than the screen", bare, 100, 100, 20000, 15000, 0, 0},
  };
  for (const auto& c : cases) {
    const TwipsPoint p = SnapPosition(c.left, c.top, c.width, c.height, c.desk);
    EXPECT_DOUBLE_EQ(p.left, c.wantLeft) << c.name;
    EXPECT_DOUBLE_EQ(p.top, c.wantTop) << c.name;
  }
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
