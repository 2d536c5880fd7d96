#include "program/control_dump.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSaveFile>
#include <QTimer>
#include <QWidget>

#include "ui/list_box.h"

namespace qc {
namespace {

constexpr int kIntervalMs = 100;

QString Escaped(QString text) {
  text.replace(QLatin1Char('\\'), QStringLiteral("\\\\"));
  text.replace(QLatin1Char('\n'), QStringLiteral("\\n"));
  text.replace(QLatin1Char('\r'), QStringLiteral("\\r"));
  text.replace(QChar(0), QStringLiteral("\\0"));
  return text;
}

QString Box(const QRect& r) {
  return QStringLiteral("%1 %2 %3 %4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
}

QRect GlobalRect(const QWidget* w) { return QRect(w->mapToGlobal(QPoint(0, 0)), w->size()); }

// The text a person sees on the control, or a null string for a control without one.
QString ShownTextOf(const QWidget* w) {
  // QLabel::text, not Label::text: what is shown, not the caption kept.
  if (auto* label = qobject_cast<const QLabel*>(w)) return label->text();
  if (auto* edit = qobject_cast<const QLineEdit*>(w)) return edit->text();
  if (auto* button = qobject_cast<const QAbstractButton*>(w)) return button->text();
  // Named text panes only: the viewer's operations pane changes at every call.
  if (auto* text = qobject_cast<const QPlainTextEdit*>(w); text && !w->objectName().isEmpty())
    return text->toPlainText();
  return QString();
}

void DumpControl(const QWidget* w, QString& out) {
  const QString name = w->objectName().isEmpty() ? QStringLiteral("-") : w->objectName();
  const QString hidden = w->isVisible() ? QString() : QStringLiteral(" hidden");
  if (auto* list = dynamic_cast<const ListBox*>(w)) {
    out += QStringLiteral("%1 ListBox %2%3 | %4 entries\n")
               .arg(name, Box(GlobalRect(w)), hidden)
               .arg(list->EntryCount());
    for (int i = 0; i < list->count(); ++i) {
      const QRect row = list->visualItemRect(list->item(i));
      const QRect global(list->viewport()->mapToGlobal(row.topLeft()), row.size());
      out += QStringLiteral("%1[%2] %3 | %4\n")
                 .arg(name)
                 .arg(i)
                 .arg(Box(global), Escaped(list->ShownItem(i)));
    }
    return;
  }
  const QString text = ShownTextOf(w);
  if (text.isNull() && w->objectName().isEmpty()) return;
  out += QStringLiteral("%1 %2 %3%4 | %5\n")
             .arg(name, QString::fromLatin1(w->metaObject()->className()), Box(GlobalRect(w)),
                  hidden, Escaped(text));
}

}  // namespace

QString ControlDump() {
  QString out;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (!window->isVisible() && window->objectName().isEmpty()) continue;
    out += QStringLiteral("window %1 \"%2\" %3%4\n")
               .arg(window->objectName().isEmpty() ? QStringLiteral("-") : window->objectName(),
                    Escaped(window->windowTitle()), Box(window->frameGeometry()),
                    window->isVisible() ? QString() : QStringLiteral(" hidden"));
    for (QWidget* w : window->findChildren<QWidget*>()) {
      // Controls of windows inside this one are dumped with their own window.
      if (w->window() == window) DumpControl(w, out);
    }
  }
  return out;
}

void StartControlDumpFromEnvironment() {
  const QString path = qEnvironmentVariable("QC_CONTROL_DUMP");
  if (path.isEmpty()) return;
  auto* timer = new QTimer(qApp);
  auto last = std::make_shared<QString>();
  QObject::connect(timer, &QTimer::timeout, qApp, [path, last] {
    const QString now = ControlDump();
    if (now == *last) return;
    *last = now;
    // Whole files only: a reader never sees half a dump.
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return;
    file.write(now.toUtf8());
    file.commit();
  });
  timer->start(kIntervalMs);
}

}  // namespace qc
