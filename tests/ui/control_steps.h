#pragma once
// Scenario statements on the controls of the windows on screen, shared by the scenario runners.
// "WINDOW.CONTROL" names a control by the object names of its window and of itself; "WINDOW"
// alone names the window.
//   CONTROL press             a click: a button's, an option button's, a label's (its click
//                             reported) or the mouse's on any other control
//   CONTROL type TEXT         the text typed into the box key by key
//   CONTROL key Return|Enter  one key pressed in the box
//   CONTROL paste TEXT        the text put on the clipboard and pasted with Ctrl+V
//   CONTROL set TEXT          the box's text set as the program sets it, without keys
//   CONTROL select ROW...     rows of a list selected
//   clipboard set TEXT        the clipboard's text
//   look CONTROL...           writes down a list's entries (selected ones marked "*"), a box's
//                             text, a label's or a panel's caption, a combo box's text, a
//                             window's title, or "gone"; "look clipboard" the clipboard's text
#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QPointer>
#include <QTest>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/script_words.h"
#include "ui/controls.h"
#include "ui/list_box.h"
#include "ui/qt_glue.h"
#include "ui/secondary_window.h"

namespace qc::test {

inline bool IsControlStep(const std::string& op) {
  return op == "look" || op == "clipboard" || op.find('.') != std::string::npos;
}

// Null when no window on screen has the control.
inline QWidget* NamedControl(const std::string& name) {
  const std::size_t dot = name.find('.');
  for (QWidget* top : QApplication::topLevelWidgets()) {
    if (!top->isVisible() || top->objectName().toStdString() != name.substr(0, dot)) continue;
    if (dot == std::string::npos) return top;
    return top->findChild<QWidget*>(QString::fromStdString(name.substr(dot + 1)));
  }
  return nullptr;
}

inline std::string Look(const std::string& name) {
  if (name == "clipboard") return Quoted(FromQ(QGuiApplication::clipboard()->text()));
  QWidget* c = NamedControl(name);
  if (!c) return "gone";
  if (auto* list = dynamic_cast<ListBox*>(c)) {
    std::string items;
    for (int i = 0; i < list->ListCount(); ++i)
      items += (list->Selected(i) ? " *" : " ") + Quoted(list->List(i));
    return items.empty() ? "empty" : items.substr(1);
  }
  if (auto* label = qobject_cast<Label*>(c)) return Quoted(label->Caption());
  if (auto* label = qobject_cast<QLabel*>(c)) return Quoted(FromQ(label->text()));
  if (auto* panel = qobject_cast<Panel3D*>(c)) return Quoted(FromQ(panel->caption()));
  if (auto* combo = qobject_cast<QComboBox*>(c)) return Quoted(FromQ(combo->currentText()));
  return Quoted(c->isWindow() ? FromQ(c->windowTitle()) : BoxText(c));
}

// Plays a statement IsControlStep knows; look lines go to `out`.
inline void ControlStep(const std::vector<std::string>& w, std::vector<std::string>& out) {
  if (w.at(0) == "look") {
    for (std::size_t i = 1; i < w.size(); ++i) out.push_back(w[i] + " " + Look(w[i]));
    return;
  }
  const std::string& action = w.at(1);
  const QString text = w.size() > 2 ? QString::fromStdString(w[2]) : QString();
  if (w[0] == "clipboard") {
    QGuiApplication::clipboard()->setText(text);
    return;
  }
  QWidget* c = NamedControl(w[0]);
  ASSERT_NE(c, nullptr) << "no control " << w[0];
  if (action == "press") {
    if (auto* label = qobject_cast<Label*>(c)) {
      emit label->clicked();
    } else if (auto* button = qobject_cast<QAbstractButton*>(c)) {
      button->click();
    } else {
      QTest::mouseClick(c, Qt::LeftButton);
    }
  } else if (action == "type") {
    QTest::keyClicks(c, text);
  } else if (action == "key") {
    QTest::keyClick(c, w.at(2) == "Enter" ? Qt::Key_Enter : Qt::Key_Return);
  } else if (action == "paste") {
    QGuiApplication::clipboard()->setText(text);
    QTest::keyClick(c, Qt::Key_V, Qt::ControlModifier);
  } else if (action == "set") {
    SetBoxText(c, w.at(2));
  } else if (action == "select") {
    for (std::size_t i = 2; i < w.size(); ++i)
      dynamic_cast<ListBox*>(c)->SetSelected(std::stoi(w[i]), true);
  } else {
    ADD_FAILURE() << "unknown action " << action;
  }
  // A window that unloads goes at once, as it would before the user's next step.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// Unloads what a scenario left open, so that the next one finds only its own windows.
inline void UnloadSecondaryWindows() {
  QList<QPointer<QWidget>> left;
  for (QWidget* top : QApplication::topLevelWidgets()) {
    if (qobject_cast<SecondaryWindow*>(top)) left << top;
  }
  for (const QPointer<QWidget>& w : left) delete w.data();
}

}  // namespace qc::test
