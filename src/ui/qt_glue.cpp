#include "ui/qt_glue.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTimer>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <thread>
#include <vector>

#include "ui/list_box.h"
#include "base/failure.h"
#include "base/pump.h"
#include "text/text_files.h"

namespace qc {
namespace {

std::string ToCrLf(const QString& text) {
  QString t = text;
  t.replace("\r\n", "\n");
  t.replace('\n', "\r\n");
  return t.toStdString();
}

QString ToLf(const std::string& text) {
  QString t = QString::fromStdString(text);
  t.replace("\r\n", "\n");
  return t;
}

}  // namespace

void InstallQtPump() {
  SetEventProcessor([] { QCoreApplication::processEvents(QEventLoop::AllEvents); });
  SetEventWaiter(WaitForQtEvents);
}

void WaitForQtEvents(double seconds) {
  QCoreApplication* app = QCoreApplication::instance();
  if (!app) {
    std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
    return;
  }
  // One timer, owned by the application, wakes the loop at the deadline.
  static QPointer<QTimer> wake;
  if (!wake) {
    wake = new QTimer(app);
    wake->setSingleShot(true);
    wake->setTimerType(Qt::PreciseTimer);
  }
  // Down to a whole millisecond: the caller sleeps the rest of a pause precisely, as it does any
  // wait too short for the loop's timers. A long wait is taken in pieces.
  const double ms = std::min(std::floor(seconds * 1000), 3600.0 * 1000);
  wake->start(std::chrono::milliseconds(static_cast<long long>(ms)));
  QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  wake->stop();
}

std::string BoxText(const QWidget* box) {
  if (auto* line = qobject_cast<const QLineEdit*>(box)) return line->text().toStdString();
  if (auto* plain = qobject_cast<const QPlainTextEdit*>(box)) return ToCrLf(plain->toPlainText());
  if (auto* rich = qobject_cast<const QTextEdit*>(box)) return ToCrLf(rich->toPlainText());
  return {};
}

void SetBoxText(QWidget* box, const std::string& text) {
  if (auto* line = qobject_cast<QLineEdit*>(box)) {
    line->setText(QString::fromStdString(text));
  } else if (auto* plain = qobject_cast<QPlainTextEdit*>(box)) {
    plain->setPlainText(ToLf(text));
  } else if (auto* rich = qobject_cast<QTextEdit*>(box)) {
    rich->setPlainText(ToLf(text));
  }
}

void LoadTextInto(QWidget* box, const std::string& path) {
  if (auto text = ReadTextForBox(path)) SetBoxText(box, *text);
}

void SaveTextFrom(const QWidget* box, const std::string& path) {
  std::string text;
  SkipOnFailure([&] { text = BoxText(box); });
  SaveTextFile(path, text);
}

void LoadListFile(const std::string& path, ListBox& list) {
  LoadListFile(path, [&list](const std::string& field) { list.AddItem(field); });
}

void SaveListFile(const std::string& path, const ListBox& list) {
  // A list past 16-bit counts overflows on its count, and that failure is ignored too.
  std::vector<std::string> items;
  SkipOnFailure([&] {
    const std::int16_t n = list.ListCount();
    for (std::int16_t i = 0; i < n; ++i) items.push_back(list.List(i));
  });
  SaveListFile(path, items);
}

}  // namespace qc
