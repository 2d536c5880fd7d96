#include "ui/qt_glue.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>
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
