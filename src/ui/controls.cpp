#include "ui/controls.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPalette>

#include "ui/shown_text.h"

namespace qc {

Label::Label(const QString& name, const QString& text, QWidget* parent)
    : QLabel(ShownText(text), parent), caption_(text) {
  setObjectName(name);
  // A subject such as "<b>loud</b> song" is text, never markup.
  setTextFormat(Qt::PlainText);
  // Hover hints need moves without a pressed button.
  setMouseTracking(true);
}

void Label::setText(const QString& text) {
  if (text == caption_) return;
  caption_ = text;
  QLabel::setText(ShownText(text));
  if (autoSize_) adjustSize();
  emit changed();
}

std::string Label::Caption() const { return FromQ(caption_); }
void Label::SetCaption(const std::string& text) { setText(ToQ(text)); }

void Label::SetAutoSize(bool on) {
  autoSize_ = on;
  if (on) adjustSize();
}

void Label::mousePressEvent(QMouseEvent* e) {
  emit mouseDown(e->button());
  e->accept();
}

void Label::mouseReleaseEvent(QMouseEvent* e) {
  emit mouseUp(e->button());
  // The platform's click: released over the control that was pressed. The release that ends a
  // double click is not one, so a double click acts once.
  const bool secondOfDouble = doubleClickPress_;
  doubleClickPress_ = false;
  if (e->button() == Qt::LeftButton && !secondOfDouble && rect().contains(e->position().toPoint()))
    emit clicked();
  e->accept();
}

void Label::mouseDoubleClickEvent(QMouseEvent* e) {
  // The platform reports the second press as a double click and not as a button going down.
  if (e->button() == Qt::LeftButton) doubleClickPress_ = true;
  e->accept();
}

void Label::mouseMoveEvent(QMouseEvent* e) {
  emit mouseMoved();
  e->accept();
}

PictureBox::PictureBox(const QString& name, QWidget* parent) : Label(name, QString(), parent) {
  setScaledContents(false);
  setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

TextBox::TextBox(const QString& name, const QString& text, QWidget* parent)
    : QLineEdit(text, parent) {
  setObjectName(name);
  setMouseTracking(true);
  setFrame(false);
}

std::string TextBox::Text() const { return FromQ(text()); }
void TextBox::SetText(const std::string& text) { setText(ShownText(ToQ(text))); }
bool TextBox::Holds(const std::string& value) const { return text() == ShownText(ToQ(value)); }

void TextBox::SetBackColor(unsigned bgr) {
  QPalette p = palette();
  p.setColor(QPalette::Base, ColorFromBgr(bgr));
  setPalette(p);
}

unsigned TextBox::BackColor() const { return BgrFromColor(palette().color(QPalette::Base)); }

void TextBox::keyPressEvent(QKeyEvent* e) {
  int ascii = 0;
  if (e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter) {
    ascii = 13;
  } else if (!e->text().isEmpty()) {
    ascii = e->text().at(0).unicode();
  }
  if (ascii != 0) emit keyPress(ascii);
  // The key is never consumed here: it goes on to the box.
  QLineEdit::keyPressEvent(e);
}

void TextBox::mouseMoveEvent(QMouseEvent* e) {
  emit mouseMoved();
  QLineEdit::mouseMoveEvent(e);
}

Panel::Panel(const QString& name, QWidget* parent) : QFrame(parent) { setObjectName(name); }

QColor ColorFromBgr(unsigned bgr) {
  return QColor(static_cast<int>(bgr & 0xFF), static_cast<int>((bgr >> 8) & 0xFF),
                static_cast<int>((bgr >> 16) & 0xFF));
}

unsigned BgrFromColor(const QColor& c) {
  return static_cast<unsigned>(c.red()) | (static_cast<unsigned>(c.green()) << 8) |
         (static_cast<unsigned>(c.blue()) << 16);
}

}  // namespace qc
