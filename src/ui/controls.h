#pragma once
// The small control kinds the main window is made of: labels and picture controls that report
// the mouse, a one-line text box that reports keys, and plain panels. Each carries its system
// name as objectName and a free-text Tag like the platform's controls.
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QString>
#include <string>

namespace qc {

// A label whose text is data: counters and sum lines are label texts, so a change of the text
// is an event others react to. The label keeps its whole caption and shows it as plain text up
// to the first NUL, as the platform's labels do.
class Label : public QLabel {
  Q_OBJECT

 public:
  Label(const QString& name, const QString& text, QWidget* parent);

  // Hide QLabel's so that every assignment through this class reports a change, and reads give
  // the caption rather than what is shown of it.
  void setText(const QString& text);
  QString text() const { return caption_; }
  std::string Caption() const;
  void SetCaption(const std::string& text);

  // An auto-sizing label takes the width of its text at every change (bold makes it wider).
  void SetAutoSize(bool on);
  bool AutoSize() const { return autoSize_; }

  QString Tag;

 signals:
  void changed();
  void mouseDown(Qt::MouseButton button);
  void mouseUp(Qt::MouseButton button);
  void mouseMoved();
  void clicked();

 protected:
  void mousePressEvent(QMouseEvent* e) override;
  void mouseReleaseEvent(QMouseEvent* e) override;
  void mouseDoubleClickEvent(QMouseEvent* e) override;
  void mouseMoveEvent(QMouseEvent* e) override;

 private:
  QString caption_;
  bool autoSize_ = false;
  // The second press of a double click: its release is no click.
  bool doubleClickPress_ = false;
};

// A picture control: a store of artwork, or a button when someone listens to its mouse signals.
class PictureBox : public Label {
  Q_OBJECT

 public:
  PictureBox(const QString& name, QWidget* parent);
};

// A one-line text box that reports each key, as its ASCII code, before the box handles it.
class TextBox : public QLineEdit {
  Q_OBJECT

 public:
  TextBox(const QString& name, const QString& text, QWidget* parent);

  std::string Text() const;
  // The box takes the text up to its first NUL, as the platform's text boxes do.
  void SetText(const std::string& text);
  // True when the box holds what SetText(value) would leave in it.
  bool Holds(const std::string& value) const;
  // Background colour in the platform's form, low byte red (0x9F8660 is red 0x60).
  void SetBackColor(unsigned bgr);
  unsigned BackColor() const;

  QString Tag;

 signals:
  void keyPress(int keyAscii);
  void mouseMoved();

 protected:
  void keyPressEvent(QKeyEvent* e) override;
  void mouseMoveEvent(QMouseEvent* e) override;
};

class Panel : public QFrame {
  Q_OBJECT

 public:
  Panel(const QString& name, QWidget* parent);
};

// Colour conversions between the platform's form (low byte red) and Qt's.
QColor ColorFromBgr(unsigned bgr);
unsigned BgrFromColor(const QColor& c);

}  // namespace qc
