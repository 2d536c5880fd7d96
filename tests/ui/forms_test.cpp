// The forms against one table (data/forms.txt): every control with its panel, state, place and
// design text, and every menu tree in screen order with its captions and marks; then the events
// the controls report.
#include <QAction>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

#include <stdexcept>

#include "support/files.h"
#include "support/qt_events.h"
#include "ui/frmmain.h"
#include "ui/frmmenu.h"
#include "ui/window_routines.h"

namespace qc {
namespace {

std::string DesignText(QWidget* w) {
  if (auto* box = qobject_cast<TextBox*>(w)) return box->Text();
  return qobject_cast<Label*>(w)->Caption();
}

TEST(Forms, EveryControlAndMenuAsTheTableHasIt) {
  FrmMain f;
  FrmMenu m;
  FrmMenu2 m2;
  int controls = 0;
  QList<QAction*> items;  // the current menu's items not yet checked
  for (const test::TableRow& row : test::ReadTable(QC_TEST_DATA_DIR "/forms.txt")) {
    const std::string& kind = row.words[0];
    const bool item = kind != "control" && kind != "menu" && kind != "menu2";
    const std::string& name = row.words[item ? 0 : 1];
    // The state word: "shown,bold" for a control, "on" for an item.
    std::string state = kind == "control" ? row.words[3] : "";
    if (item && row.words.size() > 1) state = row.words[1];
    auto has = [&](const char* s) {
      return ("," + state + ",").find(',' + std::string(s) + ',') != std::string::npos;
    };
    SCOPED_TRACE(name);
    if (kind == "control") {
      ++controls;
      const auto found = f.findChildren<QWidget*>(QString::fromStdString(name)) +
                         m.findChildren<QWidget*>(QString::fromStdString(name));
      ASSERT_EQ(found.size(), 1);
      QWidget* w = found[0];
      EXPECT_EQ(w->parentWidget()->objectName().toStdString(), row.words[2]);
      EXPECT_EQ(w->isHidden(), has("hidden"));
      EXPECT_EQ(w->isEnabled(), !has("disabled"));
      EXPECT_EQ(w->font().bold(), has("bold"));
      if (row.words.size() > 4) {
        EXPECT_EQ(QStringLiteral("@%1,%2,%3,%4")
                      .arg(TwipsLeft(w)).arg(TwipsTop(w)).arg(TwipsWidth(w)).arg(TwipsHeight(w))
                      .toStdString(),
                  row.words[4]);
      }
      if (row.text) {
        EXPECT_EQ(DesignText(w), *row.text);
      }
    } else if (kind == "menu" || kind == "menu2") {
      EXPECT_TRUE(items.isEmpty()) << "items left over before " << name;
      QMenu* menu = kind == "menu" ? m.findMenu(name)
                                   : m2.findChild<QMenu*>(QString::fromStdString(name));
      ASSERT_NE(menu, nullptr);
      EXPECT_EQ(menu->title().toStdString(), *row.text);
      items = menu->actions();
    } else {
      ASSERT_FALSE(items.isEmpty()) << "more items in the table than in the menu";
      QAction* a = items.takeFirst();
      EXPECT_EQ(a->objectName().toStdString(), name);
      if (row.text) {
        EXPECT_EQ(a->text().toStdString(), *row.text);
      }
      EXPECT_EQ(a->isSeparator(), row.text == "-");
      EXPECT_EQ(a->isCheckable(), has("on") || has("off"));
      EXPECT_EQ(a->isChecked(), has("on"));
      EXPECT_EQ(a->isEnabled(), !has("disabled"));
    }
  }
  EXPECT_TRUE(items.isEmpty());
  EXPECT_EQ(controls, 75);
  EXPECT_EQ(TwipsWidth(&f), 3675);
  EXPECT_EQ(TwipsHeight(&f), 2040);
  EXPECT_TRUE(f.windowFlags().testFlag(Qt::FramelessWindowHint));
  EXPECT_EQ(m2.windowTitle(), "menu 2");
  EXPECT_EQ(f.txtSubj->palette().color(QPalette::Base), QColor(0x60, 0x86, 0x9F));
  EXPECT_EQ(f.picMini->toolTip(), "roll up");
  // The web items begin with their own access keys; the sites are ours to choose.
  EXPECT_TRUE(m.weblink1->text().startsWith("&web: "));
  EXPECT_TRUE(m.weblink2->text().startsWith("w&eb: "));
}

// The option items go by the names the store and the scenarios use (the run scenarios' options
// statement sets them by name); a name that is none fails.
TEST(FrmMenu, AnOptionNameThatIsNoneFails) {
  FrmMenu m;
  EXPECT_THROW(m.check("nosuchitem"), std::out_of_range);
}

TEST(Label, ReportsChangesOfItsTextOnlyAndAutoSizes) {
  QWidget host;
  Label l(QStringLiteral("lblX"), QStringLiteral("ab"), &host);
  QSignalSpy spy(&l, &Label::changed);
  l.SetCaption("3");
  l.SetCaption("3");
  l.setText(QStringLiteral("4"));
  EXPECT_EQ(spy.count(), 2);
  l.SetAutoSize(true);
  const int narrow = l.width();
  l.SetCaption("a much longer caption");
  EXPECT_GT(l.width(), narrow);
}

TEST(Label, ClickIsAPressAndReleaseOverAnEnabledControlAndADoubleClickActsOnce) {
  FrmMain f;
  f.show();
  Label* l = f.lbl_Add;
  QSignalSpy down(l, &Label::mouseDown);
  QSignalSpy up(l, &Label::mouseUp);
  QSignalSpy clicked(l, &Label::clicked);
  QTest::mouseClick(l, Qt::LeftButton);
  EXPECT_EQ(down.count() + up.count() + clicked.count(), 3);
  // Released outside: the release is still reported (the press holds the mouse), no click.
  QTest::mousePress(l, Qt::LeftButton);
  QTest::mouseRelease(l, Qt::LeftButton, {}, QPoint(l->width() + 40, l->height() + 40));
  EXPECT_EQ(up.count(), 2);
  EXPECT_EQ(clicked.count(), 1);
  // Any button presses; only the left one clicks.
  QTest::mouseClick(l, Qt::RightButton);
  EXPECT_EQ(down.count(), 3);
  EXPECT_EQ(down.last().at(0).value<Qt::MouseButton>(), Qt::RightButton);
  EXPECT_EQ(clicked.count(), 1);
  // A double click as the platform delivers it: a click, then a press, the double click, and
  // the release.
  Label* d = f.picDown;
  QSignalSpy dUp(d, &Label::mouseUp), dClicked(d, &Label::clicked);
  QTest::mouseClick(d, Qt::LeftButton);
  QTest::mousePress(d, Qt::LeftButton);
  test::SendMouse(d, QEvent::MouseButtonDblClick);
  QTest::mouseRelease(d, Qt::LeftButton);
  EXPECT_EQ(dUp.count(), 2);
  EXPECT_EQ(dClicked.count(), 1);
  QTest::mouseClick(d, Qt::LeftButton);
  EXPECT_EQ(dClicked.count(), 2);
  // A disabled picture button reports nothing.
  QSignalSpy clicked2(f.picBut2, &Label::clicked);
  QTest::mouseClick(f.picBut2, Qt::LeftButton);
  EXPECT_EQ(clicked2.count(), 0);
  f.picBut2->setEnabled(true);
  QTest::mouseClick(f.picBut2, Qt::LeftButton);
  EXPECT_EQ(clicked2.count(), 1);
}

}  // namespace
}  // namespace qc
