#include "ui/secondary_window.h"

#include <QCloseEvent>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionButton>

#include "ui/window_routines.h"

namespace qc {
namespace {

// A bevel of the given width: light on the top and left, dark on the bottom and right.
void DrawBevel(QPainter& p, QRect r, bool raised, int width) {
  const QColor lightC = raised ? skin::kHighlight : skin::kShadow;
  const QColor darkC = raised ? skin::kShadow : skin::kHighlight;
  for (int i = 0; i < width; ++i) {
    p.setPen(lightC);
    p.drawLine(r.left(), r.top(), r.right() - 1, r.top());
    p.drawLine(r.left(), r.top(), r.left(), r.bottom() - 1);
    p.setPen(darkC);
    p.drawLine(r.left(), r.bottom(), r.right(), r.bottom());
    p.drawLine(r.right(), r.top(), r.right(), r.bottom());
    r.adjust(1, 1, -1, -1);
  }
}

void FillMetal(QPainter& p, const QRect& r, const QColor& base) {
  QLinearGradient g(r.topLeft(), r.bottomLeft());
  g.setColorAt(0, base.lighter(112));
  g.setColorAt(0.5, base);
  g.setColorAt(1, base.darker(108));
  p.fillRect(r, g);
}

void SetUp(QWidget* w, const QString& name) {
  if (!name.isEmpty()) w->setObjectName(name);
  QPalette pal = w->palette();
  pal.setColor(QPalette::Window, skin::kFace);
  pal.setColor(QPalette::Button, skin::kFace);
  pal.setColor(QPalette::WindowText, skin::kText);
  pal.setColor(QPalette::ButtonText, skin::kText);
  pal.setColor(QPalette::Highlight, skin::kAccent);
  w->setPalette(pal);
}

}  // namespace

Panel3D::Panel3D(QWidget* parent, const QString& name) : QWidget(parent) { SetUp(this, name); }

void Panel3D::setCaption(const QString& caption) {
  caption_ = caption;
  update();
}
void Panel3D::setCaptionAlignment(Qt::Alignment a) {
  align_ = a;
  update();
}
void Panel3D::setBevel(Bevel outer, int width) {
  bevel_ = outer;
  bevelWidth_ = width;
  update();
}
void Panel3D::setPicture(const QPixmap& picture) {
  picture_ = picture;
  update();
}
QColor Panel3D::backColor() const { return palette().color(QPalette::Window); }
void Panel3D::setBackColor(const QColor& c) {
  QPalette pal = palette();
  pal.setColor(QPalette::Window, c);
  setPalette(pal);
  update();
}

void Panel3D::paintFace(QPainter& p) {
  FillMetal(p, rect(), backColor());
  if (!picture_.isNull()) p.drawPixmap(0, 0, picture_);
  if (bevel_ != Bevel::kNone) DrawBevel(p, rect(), bevel_ == Bevel::kRaised, bevelWidth_);
}

void Panel3D::paintEvent(QPaintEvent*) {
  QPainter p(this);
  paintFace(p);
  if (!caption_.isEmpty()) {
    p.setPen(palette().color(QPalette::WindowText));
    p.drawText(rect().adjusted(bevelWidth_ + 2, 0, -bevelWidth_ - 2, 0),
               static_cast<int>(align_ | Qt::TextShowMnemonic), caption_);
  }
}

TitlePanel::TitlePanel(DeskSource desk, QWidget* parent, const QString& name)
    : Panel3D(parent, name), desk_(std::move(desk)) {
  setCursor(Qt::SizeAllCursor);
  // The skin's title strip when the program carries it; otherwise the painted face.
  QPixmap strip(QStringLiteral(":/skin/title.png"));
  if (!strip.isNull()) setPicture(strip);
}

void TitlePanel::paintEvent(QPaintEvent*) {
  QPainter p(this);
  if (picture_.isNull()) {
    QLinearGradient g(rect().topLeft(), rect().bottomLeft());
    g.setColorAt(0, skin::kAccent.lighter(130));
    g.setColorAt(1, skin::kAccent.darker(130));
    p.fillRect(rect(), g);
  } else {
    // Three slices: the strip's ends stay whole and its middle stretches to the width.
    const int capL = qMin(48, picture_.width() / 3);
    const int capR = qMin(16, picture_.width() / 3);
    const int h = height();
    const int srcMid = picture_.width() - capL - capR;
    p.drawPixmap(QRect(0, 0, capL, h), picture_, QRect(0, 0, capL, picture_.height()));
    p.drawPixmap(QRect(capL, 0, qMax(0, width() - capL - capR), h), picture_,
                 QRect(capL, 0, srcMid, picture_.height()));
    p.drawPixmap(QRect(width() - capR, 0, capR, h), picture_,
                 QRect(picture_.width() - capR, 0, capR, picture_.height()));
  }
  DrawBevel(p, rect(), true, 1);
  const QString text = caption_.isEmpty() ? window()->windowTitle() : caption_;
  if (!text.isEmpty()) {
    QFont f = font();
    f.setBold(true);
    p.setFont(f);
    const QRect textRect = rect().adjusted(picture_.isNull() ? 6 : 22, 0, -4, 0);
    p.setPen(QColor(0, 0, 0, 110));
    p.drawText(textRect.translated(1, 1), Qt::AlignVCenter | Qt::AlignLeft, text);
    p.setPen(skin::kHighlight);
    p.drawText(textRect, Qt::AlignVCenter | Qt::AlignLeft, text);
  }
}

void TitlePanel::mousePressEvent(QMouseEvent* e) {
  e->accept();
  DragAndSnap(window(), desk_);
}

Frame3D::Frame3D(const QString& caption, QWidget* parent, const QString& name)
    : QGroupBox(caption, parent) {
  SetUp(this, name);
}

void Frame3D::paintEvent(QPaintEvent*) {
  QPainter p(this);
  const QFontMetrics fm(font());
  const int mid = fm.height() / 2;
  const QRect box = rect().adjusted(0, mid, -1, -1);
  // Etched: a dark line with a light one beside it.
  p.setPen(skin::kShadow);
  p.drawRect(box.adjusted(0, 0, -1, -1));
  p.setPen(skin::kHighlight);
  p.drawRect(box.adjusted(1, 1, 0, 0));
  if (!title().isEmpty()) {
    const QString shown = QString(title()).remove(QLatin1Char('&'));
    const QRect t(8, 0, fm.horizontalAdvance(shown) + 6, fm.height());
    p.fillRect(t, palette().color(QPalette::Window));
    p.setPen(palette().color(QPalette::WindowText));
    p.drawText(t, Qt::AlignCenter | Qt::TextShowMnemonic, title());
  }
}

Option3D::Option3D(const QString& caption, QWidget* parent, const QString& name)
    : QRadioButton(caption, parent) {
  SetUp(this, name);
}

Command3D::Command3D(const QString& caption, QWidget* parent, const QString& name)
    : QPushButton(caption, parent) {
  SetUp(this, name);
}

void Command3D::paintEvent(QPaintEvent*) {
  QPainter p(this);
  const bool down = isDown() || isChecked();
  FillMetal(p, rect(), down ? skin::kFace.darker(110) : skin::kFace);
  p.setPen(skin::kDarkShadow);
  p.drawRect(rect().adjusted(0, 0, -1, -1));
  DrawBevel(p, rect().adjusted(1, 1, -1, -1), !down, 1);
  QRect textRect = rect();
  if (down) textRect.translate(1, 1);
  p.setPen(!isEnabled() ? skin::kShadow : (down ? skin::kAccent.darker(140) : skin::kText));
  p.drawText(textRect, Qt::AlignCenter | Qt::TextShowMnemonic, text());
  if (hasFocus()) {
    p.setPen(QPen(skin::kAccent, 1, Qt::DotLine));
    p.drawRect(rect().adjusted(3, 3, -4, -4));
  }
}

SecondaryWindow::SecondaryWindow(const QString& name, const QString& caption,
                                 double frameWidthTwips, double frameHeightTwips, DeskSource desk,
                                 QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint) {
  setObjectName(name);
  setWindowTitle(caption);
  setAttribute(Qt::WA_DeleteOnClose);
  frame_ = new Panel3D(this, QStringLiteral("pnlFrame"));
  frame_->setBevel(Panel3D::Bevel::kRaised, 2);
  SetTwipsGeometry(frame_, 0, 0, frameWidthTwips, frameHeightTwips);
  title_ = new TitlePanel(std::move(desk), frame_);
  SetTwipsGeometry(title_, 45, 45, frameWidthTwips - 90, 285);
}

Command3D* SecondaryWindow::addSaveExit(const QString& name, const QString& caption, double left,
                                        double top, double width, double height) {
  auto* b = new Command3D(caption, frame_, name);
  SetTwipsGeometry(b, left, top, width, height);
  connect(b, &QPushButton::clicked, this, &SecondaryWindow::saveAndExit);
  return b;
}

void SecondaryWindow::sizeFromFrame() { resize(frame_->size()); }

void SecondaryWindow::open() {
  // Centred when it is loaded; opened again while open, it stays where the user put it.
  if (!loaded_) {
    sizeFromFrame();
    CenterWindow(this);
    StayOnTop(this);
    loaded_ = true;
  }
  show();
  raise();
  activateWindow();
}

void SecondaryWindow::saveAndExit() {
  if (save_) save_();
  close();
}

void SecondaryWindow::closeEvent(QCloseEvent* e) {
  // Closed from the window manager, a window whose only exit saves takes that exit rather than
  // dropping what the user typed.
  if (e->spontaneous() && save_) save_();
  QWidget::closeEvent(e);
}

}  // namespace qc
