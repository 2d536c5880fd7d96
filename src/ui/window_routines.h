#pragma once
// Window routines shared by every window, and the one place where twips meet pixels.
//
// Window geometry in the logic is in twips. Qt already scales its logical pixels on dense
// screens, so one logical pixel is always a 96-dpi pixel: 15 twips.
// Positions of top-level windows count from the primary screen's top-left corner, like the
// platform's screen object; positions of child controls count from their parent.
#include <functional>

class QMenu;
class QWidget;

namespace qc {

constexpr int kTwipsPerPixel = 15;

int TwipsPerPixelX();
int TwipsPerPixelY();
int ToPixelsX(double twips);
int ToPixelsY(double twips);
double ToTwipsX(int pixels);
double ToTwipsY(int pixels);

// The primary screen in twips.
double ScreenWidthTwips();
double ScreenHeightTwips();

double TwipsLeft(const QWidget* w);
double TwipsTop(const QWidget* w);
double TwipsWidth(const QWidget* w);
double TwipsHeight(const QWidget* w);
void SetTwipsLeft(QWidget* w, double left);
void SetTwipsTop(QWidget* w, double top);
void SetTwipsSize(QWidget* w, double width, double height);
void SetTwipsGeometry(QWidget* w, double left, double top, double width, double height);

// Keeps the window above all others (frameless windows keep their shape).
void StayOnTop(QWidget* window);

// Left is (screen width - window width) / 2, top likewise, in twips.
void CenterWindow(QWidget* window);

// Moves the window with the mouse while a button is held, and returns once it is released.
// It pumps events while it waits and never gives up.
void DragWindow(QWidget* window);

// What the snap needs to know about the desk: the screen in twips and the task bar's top edge
// in pixels (0 when there is none).
struct DeskArea {
  double screenWidth = 0;
  double screenHeight = 0;
  int taskBarTopPixels = 0;
};
// The primary screen's; the task bar is what the window manager keeps off the screen's bottom
// (its available geometry), so a bar on another edge counts as none.
DeskArea PrimaryScreenDesk();
// Where the desk is asked at the moment of a snap.
using DeskSource = std::function<DeskArea()>;

struct TwipsPoint {
  double left = 0;
  double top = 0;
};
// Where a window of the given place and size lands when pulled to the edges within 210 twips.
// The bottom limit is a rough estimate that mixes pixels of the task bar with twips, on purpose.
TwipsPoint SnapPosition(double left, double top, double width, double height, const DeskArea& desk);

void SnapToEdges(QWidget* window, const DeskArea& desk);

// DragWindow, then SnapToEdges on the desk as it is then. Every title panel moves its window
// with this.
void DragAndSnap(QWidget* window, const DeskSource& desk);

// Shows the popup at the control's left and 15 twips below its bottom edge, both in the
// window's coordinates, and returns once the menu is closed.
void PopupUnder(QMenu* menu, const QWidget* control, QWidget* window);

}  // namespace qc
