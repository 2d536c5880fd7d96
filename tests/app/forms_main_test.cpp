// frmMain's controls: names, places in twips, design-time texts and the events they report.
#include <QSignalSpy>
#include <QMouseEvent>
#include <QTest>
#include <gtest/gtest.h>

#include "app/core/window_routines.h"
#include "app/forms/frmmain.h"

namespace qc {
namespace {

struct Geometry {
  const char* name;
  int left, top, width, height;
};

TEST(FrmMain, PanelsAndStatusLineStandWhereTheWindowLogicExpectsThem) {
  FrmMain f;
  EXPECT_EQ(f.objectName(), "frmMain");
  EXPECT_EQ(TwipsWidth(&f), 3675);
  EXPECT_EQ(TwipsHeight(&f), 2040);
  const Geometry expected[] = {
      {"pnlSelect", 465, 330, 2790, 1170},
      {"pnlInfo", 465, 3000, 2790, 1170},
      {"pnlTag", 465, 2430, 2790, 1170},
      {"lblShow", 615, 1485, 2475, 210},
  };
  for (const Geometry& g : expected) {
    SCOPED_TRACE(g.name);
    auto* w = f.findChild<QWidget*>(QString::fromLatin1(g.name));
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(w->parentWidget(), &f);
    EXPECT_EQ(TwipsLeft(w), g.left);
    EXPECT_EQ(TwipsTop(w), g.top);
    EXPECT_EQ(TwipsWidth(w), g.width);
    EXPECT_EQ(TwipsHeight(w), g.height);
  }
  // The run panel is moved by its top edge alone.
  SetTwipsTop(f.pnlTag, kPanelShownTop);
  EXPECT_EQ(TwipsTop(f.pnlTag), 330);
  EXPECT_EQ(TwipsLeft(f.pnlTag), 465);
}

struct Placement {
  const char* name;
  const char* parent;
  bool hidden;
};

TEST(FrmMain, EveryControlHasItsNameItsPanelAndItsVisibility) {
  FrmMain f;
  const Placement controls[] = {
      {"Picture1", "frmMain", true},       {"picBut1", "frmMain", false},
      {"picBut2", "frmMain", false},       {"picBut3", "frmMain", false},
      {"picBut4", "frmMain", false},       {"picBut5", "frmMain", false},
      {"picMenu1", "frmMain", false},      {"picMenu2", "frmMain", false},
      {"picMenu3", "frmMain", false},      {"picMini", "frmMain", false},
      {"picExit", "frmMain", false},       {"picInfo", "frmMain", false},
      {"picSelect", "frmMain", false},     {"lblShow", "frmMain", false},
      {"Label1", "frmMain", false},        {"lblMBs", "frmMain", true},
      {"lblUps", "frmMain", true},         {"lblPath", "frmMain", true},
      {"lstPaths", "frmMain", true},       {"lstPathSelect", "frmMain", true},
      {"lstSubj", "frmMain", true},        {"lstSend", "frmMain", true},
      {"File1", "frmMain", true},          {"lblSetfolder", "pnlSelect", false},
      {"lblMp3list", "pnlSelect", false},  {"lblSep", "pnlSelect", false},
      {"lblSelected", "pnlSelect", false}, {"lstMp3", "pnlSelect", false},
      {"lstUp", "pnlSelect", true},        {"pnlOpt", "pnlSelect", false},
      {"lbl_Add", "pnlOpt", false},        {"lbl_Id", "pnlOpt", false},
      {"lbl_Clr", "pnlOpt", false},        {"lbl_refresh", "pnlOpt", false},
      {"pnlOpt2", "pnlSelect", true},      {"lblRemove", "pnlOpt2", false},
      {"lblIdview", "pnlOpt2", false},     {"lblIndex", "pnlInfo", false},
      {"picUp", "pnlInfo", false},         {"picDown", "pnlInfo", false},
      {"lblTitle", "pnlInfo", false},      {"lblArtist", "pnlInfo", false},
      {"lblAlbum", "pnlInfo", false},      {"lblGenre", "pnlInfo", false},
      {"lblYear", "pnlInfo", false},       {"lblMb", "pnlInfo", false},
      {"txtSubj", "pnlInfo", false},       {"lblLogo", "pnlTag", false},
      {"lblTagIndex", "pnlTag", false},    {"lblTagSubj", "pnlTag", false},
      {"lblTagMb", "pnlTag", false},       {"lblTagTotal", "pnlTag", false},
      {"lblTagTotalMb", "pnlTag", true},   {"lblTagTotalUps", "pnlTag", true},
  };
  for (const Placement& c : controls) {
    SCOPED_TRACE(c.name);
    const auto found = f.findChildren<QWidget*>(QString::fromLatin1(c.name));
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found[0]->parentWidget()->objectName(), QString::fromLatin1(c.parent));
    EXPECT_EQ(found[0]->isHidden(), c.hidden);
  }
  for (int i = 1; i <= 16; ++i) {
    ASSERT_NE(f.p[i], nullptr);
    EXPECT_EQ(f.p[i]->objectName(), QStringLiteral("p%1").arg(i));
    EXPECT_TRUE(f.p[i]->isHidden());
  }
  // Members and names agree.
  EXPECT_EQ(f.lstPathSelect->objectName(), "lstPathSelect");
  EXPECT_EQ(f.lblTagTotalUps->objectName(), "lblTagTotalUps");
  EXPECT_EQ(f.picBut1->objectName(), "picBut1");
}

TEST(FrmMain, DesignTimeTextsAndStates) {
  FrmMain f;
  const std::pair<Label*, const char*> texts[] = {
      {f.lblSetfolder, "[add folder]"}, {f.lblMp3list, "[list"},     {f.lblSep, "|"},
      {f.lblSelected, "selected]"},     {f.lbl_Add, "a"},            {f.lbl_Id, "id"},
      {f.lbl_Clr, "c"},                 {f.lbl_refresh, "r"},        {f.lblRemove, "r"},
      {f.lblIdview, "id"},              {f.lblIndex, "0/0"},         {f.lblTitle, "title:"},
      {f.lblArtist, "artist:"},         {f.lblAlbum, "album:"},      {f.lblGenre, "genre:"},
      {f.lblYear, "yr: 0000"},          {f.lblMb, "mb: 0"},          {f.lblLogo, "ómbrevalè 97-00"},
      {f.lblTagIndex, "0/0"},           {f.lblTagSubj, ""},          {f.lblTagMb, "0 mb"},
      {f.lblTagTotalMb, "0"},           {f.lblTagTotalUps, "0"},     {f.lblMBs, "0"},
      {f.lblUps, "0"},                  {f.lblShow, "quill cast by brindle"},
  };
  for (const auto& [label, text] : texts) {
    SCOPED_TRACE(label->objectName().toStdString());
    EXPECT_EQ(label->Caption(), text);
  }
  EXPECT_EQ(f.txtSubj->Text(), "·• ómbrevalè •·[artist]-title");
  EXPECT_EQ(f.txtSubj->BackColor(), 0x9F8660u);
  EXPECT_EQ(f.txtSubj->palette().color(QPalette::Base), QColor(0x60, 0x86, 0x9F));
  EXPECT_TRUE(f.picBut1->isEnabled());
  EXPECT_FALSE(f.picBut2->isEnabled());
  EXPECT_EQ(f.picBut1->Tag, "");
  EXPECT_EQ(f.picMini->toolTip(), "roll up");
  EXPECT_TRUE(f.lblMp3list->font().bold());
  EXPECT_FALSE(f.lblSelected->font().bold());
  EXPECT_EQ(f.lstMp3->selectionMode(), QAbstractItemView::ExtendedSelection);
  EXPECT_EQ(f.lstUp->selectionMode(), QAbstractItemView::ExtendedSelection);
  EXPECT_TRUE(f.windowFlags().testFlag(Qt::FramelessWindowHint));
}

TEST(FrmMain, CaptionRowIsAnchoredAtTheSelectedLabel) {
  FrmMain f;
  const double anchor = TwipsLeft(f.lblSelected);
  auto check = [&] {
    EXPECT_EQ(TwipsLeft(f.lblSelected), anchor);
    EXPECT_EQ(TwipsLeft(f.lblSep) + TwipsWidth(f.lblSep), anchor);
    EXPECT_EQ(TwipsLeft(f.lblMp3list) + TwipsWidth(f.lblMp3list), TwipsLeft(f.lblSep));
  };
  check();
  // Bold widens an auto-sizing label; the row is laid out again from the anchor.
  QFont bold = f.lblSelected->font();
  bold.setBold(true);
  f.lblSelected->setFont(bold);
  f.lblSelected->adjustSize();
  QFont normal = f.lblMp3list->font();
  normal.setBold(false);
  f.lblMp3list->setFont(normal);
  f.lblMp3list->adjustSize();
  f.LayOutCaptionRow();
  check();
}

TEST(Label, ReportsChangesOfItsTextOnly) {
  FrmMain f;
  QSignalSpy spy(f.lblUps, &Label::changed);
  f.lblUps->SetCaption("3");
  f.lblUps->SetCaption("3");
  f.lblUps->setText(QStringLiteral("4"));
  EXPECT_EQ(spy.count(), 2);
  EXPECT_EQ(f.lblUps->Caption(), "4");
}

TEST(Label, AutoSizeFollowsTheText) {
  QWidget host;
  Label l(QStringLiteral("lblX"), QStringLiteral("ab"), &host);
  l.SetAutoSize(true);
  const int narrow = l.width();
  l.SetCaption("a much longer caption");
  EXPECT_GT(l.width(), narrow);
}

TEST(Label, ClickIsAPressAndReleaseOverTheControl) {
  FrmMain f;
  f.show();
  Label* l = f.lbl_Add;
  QSignalSpy down(l, &Label::mouseDown);
  QSignalSpy up(l, &Label::mouseUp);
  QSignalSpy clicked(l, &Label::clicked);
  QTest::mouseClick(l, Qt::LeftButton);
  EXPECT_EQ(down.count(), 1);
  EXPECT_EQ(up.count(), 1);
  EXPECT_EQ(clicked.count(), 1);
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

TEST(PictureBox, DisabledButtonReportsNothing) {
  FrmMain f;
  f.show();
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
  QTest::keyClick(t, Qt::Key_C);
  QTest::keyClick(t, Qt::Key_Return);
  QTest::keyClick(t, Qt::Key_Enter);
  ASSERT_EQ(keys.count(), 3);
  EXPECT_EQ(keys[0].at(0).toInt(), 'c');
  EXPECT_EQ(keys[1].at(0).toInt(), 13);
  EXPECT_EQ(keys[2].at(0).toInt(), 13);
  EXPECT_EQ(t->Text(), "abc");
}

}  // namespace
}  // namespace qc
