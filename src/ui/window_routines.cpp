#include "ui/window_routines.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMenu>
#include <QScreen>
#include <QWidget>
#include <cmath>

#include "base/pump.h"

namespace qc {
namespace {

QRect PrimaryGeometry() {
  QScreen* s = QGuiApplication::primaryScreen();
  return s ? s->geometry() : QRect(0, 0, 1024, 768);
}

// Top-level windows count from the primary screen's corner; children from their parent.
QPoint Origin(const QWidget* w) { return w->isWindow() ? PrimaryGeometry().topLeft() : QPoint(); }

// Whole numbers as the platform converts them: halves go to the even neighbour.
double Whole(double v) { return std::nearbyint(v); }

}  // namespace

int TwipsPerPixelX() { return kTwipsPerPixel; }
int TwipsPerPixelY() { return kTwipsPerPixel; }
int ToPixelsX(double twips) { return static_cast<int>(std::lround(twips / TwipsPerPixelX())); }
int ToPixelsY(double twips) { return static_cast<int>(std::lround(twips / TwipsPerPixelY())); }
double ToTwipsX(int pixels) { return static_cast<double>(pixels) * TwipsPerPixelX(); }
double ToTwipsY(int pixels) { return static_cast<double>(pixels) * TwipsPerPixelY(); }

double ScreenWidthTwips() { return ToTwipsX(PrimaryGeometry().width()); }
double ScreenHeightTwips() { return ToTwipsY(PrimaryGeometry().height()); }

double TwipsLeft(const QWidget* w) { return ToTwipsX(w->x() - Origin(w).x()); }
double TwipsTop(const QWidget* w) { return ToTwipsY(w->y() - Origin(w).y()); }
double TwipsWidth(const QWidget* w) { return ToTwipsX(w->width()); }
double TwipsHeight(const QWidget* w) { return ToTwipsY(w->height()); }

void SetTwipsLeft(QWidget* w, double left) { w->move(ToPixelsX(left) + Origin(w).x(), w->y()); }
void SetTwipsTop(QWidget* w, double top) { w->move(w->x(), ToPixelsY(top) + Origin(w).y()); }
void SetTwipsSize(QWidget* w, double width, double height) {
  w->resize(ToPixelsX(width), ToPixelsY(height));
}
void SetTwipsGeometry(QWidget* w, double left, double top, double width, double height) {
  const QPoint o = Origin(w);
  w->setGeometry(ToPixelsX(left) + o.x(), ToPixelsY(top) + o.y(), ToPixelsX(width),
                 ToPixelsY(height));
}

void StayOnTop(QWidget* window) {
  if (window->windowFlags().testFlag(Qt::WindowStaysOnTopHint)) return;
  // Changing the flags of a shown window hides it; show it again as it was.
  const bool wasVisible = window->isVisible();
  window->setWindowFlag(Qt::WindowStaysOnTopHint, true);
  if (wasVisible) window->show();
}

void CenterWindow(QWidget* window) {
  const double left = (ScreenWidthTwips() - TwipsWidth(window)) / 2;
  const double top = (ScreenHeightTwips() - TwipsHeight(window)) / 2;
  const QPoint o = Origin(window);
  window->move(ToPixelsX(left) + o.x(), ToPixelsY(top) + o.y());
}

void DragWindow(QWidget* window) {
  // The pressed control keeps the mouse while the button is down, so the release reaches this
  // application even when the pointer leaves the window.
  const QPoint grabbedAt = QCursor::pos();
  const QPoint startPos = window->pos();
  while (QGuiApplication::mouseButtons() != Qt::NoButton) {
    WaitEvents();
    const QPoint to = startPos + (QCursor::pos() - grabbedAt);
    if (to != window->pos()) window->move(to);
  }
}

DeskArea PrimaryScreenDesk() {
  DeskArea d;
  d.screenWidth = ScreenWidthTwips();
  d.screenHeight = ScreenHeightTwips();
  if (QScreen* s = QGuiApplication::primaryScreen()) {
    const QRect all = s->geometry();
    const QRect free = s->availableGeometry();
    if (free.bottom() < all.bottom()) d.taskBarTopPixels = free.bottom() + 1 - all.top();
  }
  return d;
}

TwipsPoint SnapPosition(double left, double top, double width, double height,
                        const DeskArea& desk) {
  constexpr double kBand = 210;
  const double widthLimit = Whole(desk.screenWidth);
  const double q = Whole(desk.taskBarTopPixels / 3.0);
  const double heightLimit = Whole(desk.screenHeight - 2 * q - 45);
  const double right = width + left;
  const double bottom = height + top;
  TwipsPoint p{left, top};
  if (bottom > heightLimit - kBand) p.top = heightLimit - height;
  if (right > widthLimit - kBand) p.left = desk.screenWidth - width;
  // Last, so that the top-left edges win on a window larger than the screen.
  if (p.left < kBand) p.left = 0;
  if (p.top < kBand) p.top = 0;
  return p;
}

void SnapToEdges(QWidget* window, const DeskArea& desk) {
  const TwipsPoint p = SnapPosition(TwipsLeft(window), TwipsTop(window), TwipsWidth(window),
                                    TwipsHeight(window), desk);
  const QPoint o = Origin(window);
  const QPoint to(ToPixelsX(p.left) + o.x(), ToPixelsY(p.top) + o.y());
  if (to != window->pos()) window->move(to);
}

void DragAndSnap(QWidget* window, const DeskSource& desk) {
  DragWindow(window);
  SnapToEdges(window, desk());
}

void PopupUnder(QMenu* menu, const QWidget* control, QWidget* window) {
  const double x = TwipsLeft(control);
  const double y = TwipsTop(control) + TwipsHeight(control) + 15;
  menu->exec(window->mapToGlobal(QPoint(ToPixelsX(x), ToPixelsY(y))));
}

}  // namespace qc
