#pragma once
// The frame every secondary window shares, and the raised 3-D controls they are built of.
//
// A secondary window is one face panel, pnlFrame, that gives the window its size; a title panel,
// pnlTitle, moves it; it is frameless, centred, on top, opened without blocking; its only exit is
// a save-and-exit button that runs the window's save hook and unloads it.
#include <QColor>
#include <QGroupBox>
#include <QPixmap>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QWidget>
#include <functional>

#include "ui/window_routines.h"

namespace qc {

// The skin's colours: light steel faces with blue-grey accents.
namespace skin {
inline const QColor kAccent{0x60, 0x86, 0x9F};
inline const QColor kFace{0xC6, 0xCB, 0xD1};
inline const QColor kHighlight{0xF4, 0xF6, 0xF8};
inline const QColor kShadow{0x6B, 0x74, 0x7E};
inline const QColor kDarkShadow{0x2E, 0x34, 0x3A};
inline const QColor kText{0x10, 0x14, 0x18};
}  // namespace skin

// A plain panel with a raised (or inset) bevel, an optional caption and an optional picture.
class Panel3D : public QWidget {
  Q_OBJECT
 public:
  enum class Bevel { kRaised, kInset, kNone };
  explicit Panel3D(QWidget* parent = nullptr, const QString& name = {});

  QString caption() const { return caption_; }
  void setCaption(const QString& caption);
  void setCaptionAlignment(Qt::Alignment a);
  void setBevel(Bevel outer, int width = 1);
  void setPicture(const QPixmap& picture);
  // The face colour: also what lists and text boxes on the panel take as their background.
  QColor backColor() const;
  void setBackColor(const QColor& c);

 protected:
  void paintEvent(QPaintEvent*) override;
  void paintFace(QPainter& p);

  QString caption_;
  Qt::Alignment align_ = Qt::AlignCenter;
  Bevel bevel_ = Bevel::kRaised;
  int bevelWidth_ = 1;
  QPixmap picture_;
};

// The title bar of a secondary window: the skin's title picture with the window's caption.
// A press of any mouse button moves the window with DragAndSnap.
class TitlePanel : public Panel3D {
  Q_OBJECT
 public:
  explicit TitlePanel(DeskSource desk, QWidget* parent = nullptr,
                      const QString& name = QStringLiteral("pnlTitle"));

 protected:
  void paintEvent(QPaintEvent*) override;
  void mousePressEvent(QMouseEvent*) override;

 private:
  DeskSource desk_;
};

// A frame with a caption that holds other controls.
class Frame3D : public QGroupBox {
  Q_OBJECT
 public:
  explicit Frame3D(const QString& caption, QWidget* parent = nullptr, const QString& name = {});

 protected:
  void paintEvent(QPaintEvent*) override;
};

// An option button of the 3-D family.
class Option3D : public QRadioButton {
  Q_OBJECT
 public:
  explicit Option3D(const QString& caption, QWidget* parent = nullptr, const QString& name = {});
};

// A command button with a raised look; "&&" in its caption shows as "&".
class Command3D : public QPushButton {
  Q_OBJECT
 public:
  explicit Command3D(const QString& caption, QWidget* parent = nullptr, const QString& name = {});

 protected:
  void paintEvent(QPaintEvent*) override;
};

class SecondaryWindow : public QWidget {
  Q_OBJECT
 public:
  // The face panel is made at the given size in twips; the window takes its size at Load().
  // The title panel snaps the window to the edges of `desk`.
  SecondaryWindow(const QString& name, const QString& caption, double frameWidthTwips,
                  double frameHeightTwips, DeskSource desk, QWidget* parent = nullptr);

  Panel3D* pnlFrame() const { return frame_; }
  TitlePanel* pnlTitle() const { return title_; }

  // The save-and-exit button, on the face panel at the given twips; a click saves and unloads.
  Command3D* addSaveExit(const QString& name, const QString& caption, double left, double top,
                         double width, double height);
  void setSaveHook(std::function<void()> hook) { save_ = std::move(hook); }

  // The window takes the width and height of pnlFrame.
  void sizeFromFrame();
  // At the first opening sizeFromFrame, CenterWindow and StayOnTop; then shown without
  // blocking, in front.
  void open();
  // Runs the save hook, then unloads the window (it is deleted once closed).
  void saveAndExit();

 protected:
  void closeEvent(QCloseEvent* e) override;

 private:
  Panel3D* frame_;
  TitlePanel* title_;
  std::function<void()> save_;
  bool loaded_ = false;
};

// Shows the window held by `slot`, loading it anew first when it was unloaded.
template <class W, class... Args>
W* OpenSecondary(QPointer<W>& slot, Args&&... args) {
  if (!slot) slot = new W(std::forward<Args>(args)...);
  slot->open();
  return slot;
}

}  // namespace qc
