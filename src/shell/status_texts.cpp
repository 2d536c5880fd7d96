#include "shell/status_texts.h"

#include <QAbstractScrollArea>
#include <QMouseEvent>
#include <QWidget>

namespace qc {

StatusTexts::StatusTexts(Show show, QObject* parent) : QObject(parent), show_(std::move(show)) {}

void StatusTexts::hover(QWidget* control, const QString& text) {
  watch(control, Entry{control, [text] { return text; }, false});
}

void StatusTexts::hover(QWidget* control, std::function<QString()> text) {
  watch(control, Entry{control, std::move(text), false});
}

void StatusTexts::onClick(QWidget* control, const QString& text) {
  watch(control, Entry{control, [text] { return text; }, true});
}

void StatusTexts::watch(QWidget* control, Entry entry) {
  // A list takes the mouse in its viewport; both stand for the list.
  QList<QWidget*> targets{control};
  if (auto* area = qobject_cast<QAbstractScrollArea*>(control)) targets << area->viewport();
  for (QWidget* t : targets) {
    if (!entry.onClick) t->setMouseTracking(true);
    t->installEventFilter(this);
    entries_.insert(t, entry);
    connect(t, &QObject::destroyed, this, [this, t] { entries_.remove(t); });
  }
}

bool StatusTexts::eventFilter(QObject* watched, QEvent* event) {
  const auto type = event->type();
  if (type != QEvent::MouseMove && type != QEvent::MouseButtonRelease) return false;
  auto it = entries_.constFind(watched);
  if (it == entries_.constEnd()) return false;
  auto* w = static_cast<QWidget*>(watched);
  const QPoint pos = static_cast<QMouseEvent*>(event)->position().toPoint();
  if (type == QEvent::MouseMove) {
    // A move over a child reaches the parent too when the child does not take it: only the
    // control right under the mouse speaks.
    if (it->onClick || w->childAt(pos)) return false;
  } else if (!it->onClick || !w->rect().contains(pos)) {
    return false;
  }
  show_(it->text());
  return false;
}

}  // namespace qc
