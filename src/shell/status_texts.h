#pragma once
// The status label mechanism: while the mouse moves over a control, the status label gets that
// control's text. Nothing resets it when the mouse leaves; the window's own surface has a text
// too, which takes over as soon as the mouse is over bare skin.
#include <QHash>
#include <QObject>
#include <QString>
#include <functional>

class QWidget;

namespace qc {

class StatusTexts : public QObject {
  Q_OBJECT
 public:
  using Show = std::function<void(const QString&)>;
  explicit StatusTexts(Show show, QObject* parent = nullptr);

  // The text shown while the mouse moves over `control` itself (not over a child of it).
  void hover(QWidget* control, const QString& text);
  // A text made afresh at each move, for texts that carry a count.
  void hover(QWidget* control, std::function<QString()> text);
  // A text shown on a click (press and release on the control) instead of on moves.
  void onClick(QWidget* control, const QString& text);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Entry {
    QWidget* control = nullptr;
    std::function<QString()> text;
    bool onClick = false;
  };
  void watch(QWidget* control, Entry entry);

  Show show_;
  QHash<QObject*, Entry> entries_;
};

}  // namespace qc
