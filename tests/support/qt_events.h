#pragma once
// Mouse and key events sent straight to a widget, as the platform delivers them.
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>

namespace qc::test {

inline void SendMouse(QWidget* w, QEvent::Type type, Qt::MouseButton button = Qt::LeftButton,
                      QPoint at = QPoint(2, 2)) {
  const bool held = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
  QMouseEvent e(type, at, w->mapToGlobal(at), button, held ? button : Qt::NoButton,
                Qt::NoModifier);
  QApplication::sendEvent(w, &e);
}
inline void MouseMove(QWidget* w, QPoint at = QPoint(2, 2)) {
  SendMouse(w, QEvent::MouseMove, Qt::NoButton, at);
}
inline void MouseClick(QWidget* w) {
  SendMouse(w, QEvent::MouseButtonPress);
  SendMouse(w, QEvent::MouseButtonRelease);
}
// A key as typed: `text` is the character it gives, empty for an editing key.
inline void Key(QWidget* w, int key, const QString& text = QString()) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
  QApplication::sendEvent(w, &press);
}
inline void Type(QWidget* w, const QString& text) {
  for (QChar c : text) Key(w, 0, QString(c));
}

}  // namespace qc::test
