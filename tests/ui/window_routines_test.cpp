// The shared window routines: snap arithmetic, centring, on-top, twips, drags and popups.
#include "ui/window_routines.h"

#include <QGuiApplication>
#include <QMenu>
#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <gtest/gtest.h>

#include "support/budget.h"

namespace qc {
namespace {

// A 1024 by 768 pixel screen in twips, without and with a 40-pixel task bar at the bottom.
constexpr DeskArea kBare{15360, 11520, 0};
constexpr DeskArea kWithBar{15360, 11520, 728};

struct SnapCase {
  const char* name;
  DeskArea desk;
  double left, top, width, height;
  double wantLeft, wantTop;
};

// The case's name stands for it in test listings and failures, not its bytes.
void PrintTo(const SnapCase& c, std::ostream* os) { *os << c.name; }

class SnapTest : public testing::TestWithParam<SnapCase> {};

TEST_P(SnapTest, LandsWhereTheBandPullsIt) {
  const SnapCase& c = GetParam();
  const TwipsPoint p = SnapPosition(c.left, c.top, c.width, c.height, c.desk);
  EXPECT_DOUBLE_EQ(p.left, c.wantLeft);
  EXPECT_DOUBLE_EQ(p.top, c.wantTop);
}

// Height limit without a bar: 11520 - 45 = 11475. With the bar at pixel 728: q = 243 (242.67
// rounded), limit = 11520 - 486 - 45 = 10989.
INSTANTIATE_TEST_SUITE_P(
    Edges, SnapTest,
    testing::Values(
        SnapCase{"middle_stays", kBare, 5000, 4000, 3675, 2040, 5000, 4000},
        SnapCase{"left_band", kBare, 209, 4000, 3675, 2040, 0, 4000},
        SnapCase{"left_outside_band", kBare, 210, 4000, 3675, 2040, 210, 4000},
        SnapCase{"left_off_screen", kBare, -900, 4000, 3675, 2040, 0, 4000},
        SnapCase{"top_band", kBare, 5000, 150, 3675, 2040, 5000, 0},
        SnapCase{"top_off_screen_rolled_up", kBare, 5000, -60, 3675, 2040, 5000, 0},
        // 11476 + 3675 = 15151 reaches past 15360 - 210.
        SnapCase{"right_band", kBare, 11476, 4000, 3675, 2040, 11685, 4000},
        SnapCase{"right_band_edge", kBare, 11475, 4000, 3675, 2040, 11475, 4000},
        // bottom 9226 + 2040 = 11266 > 11475 - 210 = 11265: pulled to 11475 - 2040.
        SnapCase{"bottom_band", kBare, 5000, 9226, 3675, 2040, 5000, 9435},
        SnapCase{"bottom_band_edge", kBare, 5000, 9225, 3675, 2040, 5000, 9225},
        SnapCase{"bottom_with_task_bar", kWithBar, 5000, 8800, 3675, 2040, 5000, 8949},
        SnapCase{"above_task_bar_band", kWithBar, 5000, 8739, 3675, 2040, 5000, 8739},
        SnapCase{"corner_bottom_right", kBare, 12000, 10000, 3675, 2040, 11685, 9435},
        // Larger than the screen: bottom and right first, then the left and top edges win.
        SnapCase{"larger_than_screen", kBare, 100, 100, 20000, 15000, 0, 0}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(SnapTest, TaskBarTopIsRoundedAfterDividingByThree) {
  // 728 / 3 = 242.67 -> 243; 727 / 3 = 242.33 -> 242: the limit moves by 2 * 1 twips.
  const TwipsPoint a = SnapPosition(5000, 10700, 100, 100, DeskArea{15360, 11520, 728});
  const TwipsPoint b = SnapPosition(5000, 10700, 100, 100, DeskArea{15360, 11520, 727});
  EXPECT_DOUBLE_EQ(a.top, 10989 - 100);
  EXPECT_DOUBLE_EQ(b.top, 10991 - 100);
}

TEST(TwipsTest, FifteenTwipsToThePixelBothWays) {
  EXPECT_EQ(ToPixelsX(3675), 245);
  EXPECT_EQ(ToPixelsY(2040), 136);
  EXPECT_EQ(ToPixelsY(-60), -4);
  EXPECT_DOUBLE_EQ(ToTwipsX(14), 210);
  QWidget parent;
  QWidget child(&parent);
  SetTwipsGeometry(&child, 465, 330, 2790, 1170);
  EXPECT_EQ(child.geometry(), QRect(31, 22, 186, 78));
  EXPECT_DOUBLE_EQ(TwipsTop(&child), 330);
  SetTwipsTop(&child, 3000);
  EXPECT_EQ(child.y(), 200);
  EXPECT_DOUBLE_EQ(TwipsWidth(&child), 2790);
}

TEST(WindowRoutinesTest, CenterWindowSplitsTheRestOfTheScreen) {
  QWidget w(nullptr, Qt::FramelessWindowHint);
  w.resize(245, 136);
  CenterWindow(&w);
  const QRect screen = QGuiApplication::primaryScreen()->geometry();
  EXPECT_EQ(w.x() - screen.x(), (screen.width() - 245 + 1) / 2);
  EXPECT_EQ(w.y() - screen.y(), (screen.height() - 136) / 2);
  EXPECT_DOUBLE_EQ(TwipsLeft(&w), ToTwipsX(w.x() - screen.x()));
}

TEST(WindowRoutinesTest, StayOnTopKeepsAShownWindowShown) {
  QWidget w(nullptr, Qt::FramelessWindowHint);
  w.show();
  StayOnTop(&w);
  EXPECT_TRUE(w.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
  EXPECT_TRUE(w.windowFlags().testFlag(Qt::FramelessWindowHint));
  EXPECT_TRUE(w.isVisible());
}

TEST(WindowRoutinesTest, DragAndSnapWithNoButtonHeldOnlySnaps) {
  QWidget w(nullptr, Qt::FramelessWindowHint);
  w.resize(245, 136);
  SetTwipsLeft(&w, 150);
  SetTwipsTop(&w, 3000);
  test::PumpBudget budget(100);
  DragAndSnap(&w, PrimaryScreenDesk);
  EXPECT_DOUBLE_EQ(TwipsLeft(&w), 0);
  EXPECT_DOUBLE_EQ(TwipsTop(&w), 3000);
}

TEST(WindowRoutinesTest, SnapToEdgesMovesARealWindow) {
  QWidget w(nullptr, Qt::FramelessWindowHint);
  w.resize(245, 136);
  SetTwipsLeft(&w, 11490);
  SetTwipsTop(&w, 100);
  SnapToEdges(&w, kBare);
  EXPECT_DOUBLE_EQ(TwipsLeft(&w), 11685);
  EXPECT_DOUBLE_EQ(TwipsTop(&w), 0);
}

TEST(WindowRoutinesTest, PopupUnderOpensBelowTheControlInWindowCoordinates) {
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
