// The forms against one table (data/forms.txt): frmMain's controls with their panels, visibility
// and design texts, and every menu tree in screen order with its captions; then the events the
// controls report.
#include <QAction>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

#include <fstream>
#include <optional>
#include <sstream>
#include <stdexcept>

#include "ui/frmmain.h"
#include "ui/frmmenu.h"
#include "ui/window_routines.h"

namespace qc {
namespace {

// One line of the forms table, split at its blanks; the text after " |" is kept whole.
struct Row {
  std::vector<std::string> words;
  std::optional<std::string> text;
};

std::vector<Row> FormsTable() {
  std::ifstream in(QC_TEST_DATA_DIR "/forms.txt");
  std::vector<Row> rows;
  for (std::string line; std::getline(in, line);) {
    if (line.empty() || line[0] == '#') continue;
    Row row;
    if (const auto bar = line.find(" |"); bar != std::string::npos) {
      row.text = line.substr(bar + 2);
      line.resize(bar);
    }
    std::istringstream words(line);
    for (std::string w; words >> w;) row.words.push_back(w);
    rows.push_back(row);
  }
  return rows;
}

TEST(Forms, EveryControlAndMenuAsTheTableHasIt) {
  FrmMain f;
  FrmMenu m;
  FrmMenu2 m2;
  int controls = 0;
  QList<QAction*> items;  // the current menu's items not yet checked
  for (const Row& row : FormsTable()) {
    const std::string& name = row.words[row.words.size() > 1 ? 1 : 0];
    SCOPED_TRACE(name);
    if (row.words[0] == "control") {
      ++controls;
      const auto found = f.findChildren<QWidget*>(QString::fromStdString(name));
      ASSERT_EQ(found.size(), 1);
      EXPECT_EQ(found[0]->parentWidget()->objectName().toStdString(), row.words[2]);
      EXPECT_EQ(found[0]->isHidden(), row.words[3] == "hidden");
      if (row.text) {
        EXPECT_EQ(qobject_cast<Label*>(found[0])->Caption(), *row.text);
      }
    } else if (row.words[0] == "menu" || row.words[0] == "menu2") {
      EXPECT_TRUE(items.isEmpty()) << "items left over before " << name;
      QMenu* menu = row.words[0] == "menu" ? m.findMenu(name)
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
    }
  }
  EXPECT_TRUE(items.isEmpty());
  EXPECT_EQ(controls, 54);
  EXPECT_EQ(f.objectName(), "frmMain");
  EXPECT_EQ(m2.objectName(), "frmMenu2");
  EXPECT_EQ(m2.windowTitle(), "menu 2");
  EXPECT_TRUE(f.windowFlags().testFlag(Qt::FramelessWindowHint));
  for (int i = 1; i <= 16; ++i) {
    ASSERT_NE(f.p[i], nullptr);
    EXPECT_EQ(f.p[i]->objectName(), QStringLiteral("p%1").arg(i));
    EXPECT_TRUE(f.p[i]->isHidden());
  }
  // Members and names agree.
  EXPECT_EQ(f.lstPathSelect->objectName(), "lstPathSelect");
  EXPECT_EQ(f.lblTagTotalUps->objectName(), "lblTagTotalUps");
  EXPECT_EQ(f.txtSubj->Text(), "·• ómbrevalè •·[artist]-title");
  EXPECT_EQ(f.txtSubj->palette().color(QPalette::Base), QColor(0x60, 0x86, 0x9F));
  EXPECT_TRUE(f.picBut1->isEnabled());
  EXPECT_FALSE(f.picBut2->isEnabled());
  EXPECT_EQ(f.picMini->toolTip(), "roll up");
  EXPECT_TRUE(f.lblMp3list->font().bold());
  EXPECT_FALSE(f.lblSelected->font().bold());
  EXPECT_EQ(f.lstMp3->selectionMode(), QAbstractItemView::ExtendedSelection);
  EXPECT_EQ(f.lstUp->selectionMode(), QAbstractItemView::ExtendedSelection);
  // The web items begin with their own access keys; the sites are ours to choose.
  EXPECT_TRUE(m.weblink1->text().startsWith("&web: "));
  EXPECT_TRUE(m.weblink2->text().startsWith("w&eb: "));
  for (const char* web : {"weblink1", "weblink2", "fav1", "fav2", "fav3", "fav4"})
    EXPECT_EQ(FrmMenu::WebAddress(web).rfind("https://", 0), 0u) << web;
  EXPECT_EQ(FrmMenu::WebAddress("bragg"), "");
}

TEST(FrmMain, PanelsStandWhereTheWindowLogicExpectsThem) {
  FrmMain f;
  EXPECT_EQ(TwipsWidth(&f), 3675);
  EXPECT_EQ(TwipsHeight(&f), 2040);
  const struct {
    QWidget* w;
    int left, top, width, height;
  } expected[] = {
      {f.pnlSelect, 465, 330, 2790, 1170},
      {f.pnlInfo, 465, 3000, 2790, 1170},
      {f.pnlTag, 465, 2430, 2790, 1170},
      {f.lblShow, 615, 1485, 2475, 210},
  };
  for (const auto& g : expected) {
    SCOPED_TRACE(g.w->objectName().toStdString());
    EXPECT_EQ(TwipsLeft(g.w), g.left);
    EXPECT_EQ(TwipsTop(g.w), g.top);
    EXPECT_EQ(TwipsWidth(g.w), g.width);
    EXPECT_EQ(TwipsHeight(g.w), g.height);
  }
}

TEST(FrmMain, CaptionRowIsAnchoredAtTheSelectedLabel) {
  FrmMain f;
  const double anchor = TwipsLeft(f.lblSelected);
  // Bold widens an auto-sizing label; the row is laid out again from the anchor.
  QFont bold = f.lblSelected->font();
  bold.setBold(true);
  f.lblSelected->setFont(bold);
  f.lblSelected->adjustSize();
  f.LayOutCaptionRow();
  EXPECT_EQ(TwipsLeft(f.lblSelected), anchor);
  EXPECT_EQ(TwipsLeft(f.lblSep) + TwipsWidth(f.lblSep), anchor);
  EXPECT_EQ(TwipsLeft(f.lblMp3list) + TwipsWidth(f.lblMp3list), TwipsLeft(f.lblSep));
}

TEST(FrmMenu, OptionItemsCheckedAtDesignToggleAndAreWritableByName) {
  FrmMenu m;
  int checkable = 0;
  for (const QAction* a : m.findChildren<QAction*>()) checkable += a->isCheckable();
  EXPECT_EQ(checkable, 9);
  ASSERT_EQ(kOptionItems.size(), 9u);
  for (const char* item : kOptionItems) {
    EXPECT_TRUE(m.action(item)->isCheckable()) << item;
    EXPECT_EQ(m.check(item), std::string(item) != "renamecomment") << item;
  }
  EXPECT_FALSE(m.idtagexplre->isEnabled());
  EXPECT_FALSE(m.isVisible());
  EXPECT_TRUE(m.lblHandle->isHidden());
  EXPECT_TRUE(m.lblRename->isHidden());
  EXPECT_EQ(m.lblHandle->objectName(), "lblHandle");
  EXPECT_EQ(m.lblRename->objectName(), "lblRename");
  m.sendlater->trigger();
  EXPECT_FALSE(m.check("sendlater"));
  m.renamecomment->trigger();
  EXPECT_TRUE(m.check("renamecomment"));
  m.setCheck("memberlst", false);
  EXPECT_FALSE(m.memberlst->isChecked());
  EXPECT_TRUE(m.check("uploadlst"));  // independent of memberlst
  EXPECT_THROW(m.check("nosuchitem"), std::out_of_range);
  EXPECT_THROW(m.setCheck("nosuchitem", true), std::out_of_range);
  EXPECT_EQ(m.findAction("nosuchitem"), nullptr);
}

TEST(Label, ReportsChangesOfItsTextOnlyAndAutoSizes) {
  FrmMain f;
  QSignalSpy spy(f.lblUps, &Label::changed);
  f.lblUps->SetCaption("3");
  f.lblUps->SetCaption("3");
  f.lblUps->setText(QStringLiteral("4"));
  EXPECT_EQ(spy.count(), 2);
  QWidget host;
  Label l(QStringLiteral("lblX"), QStringLiteral("ab"), &host);
  l.SetAutoSize(true);
  const int narrow = l.width();
  l.SetCaption("a much longer caption");
  EXPECT_GT(l.width(), narrow);
}

TEST(Label, DoubleClickActsOnce) {
  FrmMain f;
  f.show();
  Label* l = f.picDown;
  QSignalSpy clicked(l, &Label::clicked);
  QSignalSpy up(l, &Label::mouseUp);
  // A double click as the platform delivers it: a click, then a press, the double click, and
  // the release.
  QTest::mouseClick(l, Qt::LeftButton);
  QTest::mousePress(l, Qt::LeftButton);
  const QPointF at(l->width() / 2.0, l->height() / 2.0);
  QMouseEvent twice(QEvent::MouseButtonDblClick, at, l->mapToGlobal(at), Qt::LeftButton,
                    Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(l, &twice);
  QTest::mouseRelease(l, Qt::LeftButton);
  EXPECT_EQ(up.count(), 2);
  EXPECT_EQ(clicked.count(), 1);
  QTest::mouseClick(l, Qt::LeftButton);
  EXPECT_EQ(clicked.count(), 2);
}

TEST(FrmMain, CloseIsRefusedAndReported) {
  FrmMain f;
  f.show();
  QSignalSpy asked(&f, &FrmMain::closeRequested);
  EXPECT_FALSE(f.close());  // as the window manager's close (Alt+F4) arrives
  EXPECT_EQ(asked.count(), 1);
  EXPECT_TRUE(f.isVisible());
}

TEST(Label, ClickIsAPressAndReleaseOverAnEnabledControl) {
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
  // A disabled picture button reports nothing.
  QSignalSpy clicked2(f.picBut2, &Label::clicked);
  QTest::mouseClick(f.picBut2, Qt::LeftButton);
  EXPECT_EQ(clicked2.count(), 0);
  f.picBut2->setEnabled(true);
  QTest::mouseClick(f.picBut2, Qt::LeftButton);
  EXPECT_EQ(clicked2.count(), 1);
}

TEST(TextBox, ReportsEachKeyAndStillTakesIt) {
  FrmMain f;
  f.show();
  f.pnlInfo->move(f.pnlInfo->x(), ToPixelsY(330));
  TextBox* t = f.txtSubj;
  t->SetText("ab");
  t->setFocus();
  QSignalSpy keys(t, &TextBox::keyPress);
  for (Qt::Key k : {Qt::Key_C, Qt::Key_Return, Qt::Key_Enter}) QTest::keyClick(t, k);
  ASSERT_EQ(keys.count(), 3);
  EXPECT_EQ(keys[0].at(0).toInt(), 'c');
  EXPECT_EQ(keys[1].at(0).toInt(), 13);
  EXPECT_EQ(keys[2].at(0).toInt(), 13);
  EXPECT_EQ(t->Text(), "abc");
}

}  // namespace
}  // namespace qc
