// Rolling the window up and down, and the status label's texts under the mouse.
#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <gtest/gtest.h>

#include "ui/window_routines.h"
#include "base/failure.h"
#include "shell/roll.h"
#include "shell/status_texts.h"
#include "support/budget.h"
#include "qstring_print.h"

namespace qc {
namespace {

TEST(RollTest, UpRemembersTheTopAndLiftsPicMinisRowToTheEdge) {
  const RollStep up = NextRoll("roll up", "", 4200, 150);
  EXPECT_EQ(up.toolTip, "roll down");
  EXPECT_EQ(up.tag, "4200");
  EXPECT_DOUBLE_EQ(up.top, -150);
  const RollStep down = NextRoll(up.toolTip, up.tag, up.top, 150);
  EXPECT_EQ(down.toolTip, "roll up");
  EXPECT_DOUBLE_EQ(down.top, 4200);
}

TEST(RollTest, AnyOtherTipRollsDownAndANonNumberTagIsATypeMismatch) {
  EXPECT_EQ(NextRoll("", "15", 0, 150).toolTip, "roll up");
  EXPECT_DOUBLE_EQ(NextRoll("Roll Up", "15", 0, 150).top, 15);  // exact comparison, with case
  try {
    NextRoll("roll down", "up", 0, 150);
    FAIL() << "no failure";
  } catch (const RuntimeFailure& f) {
    EXPECT_EQ(f.number(), kTypeMismatch);
  }
}

TEST(RollTest, RolledUpWindowDraggedAboveTheBandLandsAtZeroAndStillRollsBack) {
  QWidget window(nullptr, Qt::FramelessWindowHint);
  window.resize(245, 136);
  QWidget picMini(&window);
  SetTwipsGeometry(&picMini, 3090, 150, 180, 180);
  picMini.setToolTip(kRollUp);
  QString tag;
  SetTwipsLeft(&window, 3000);
  SetTwipsTop(&window, 4500);

  RollUpOrDown(&window, &picMini, tag);
  EXPECT_EQ(picMini.toolTip(), "roll down");
  EXPECT_EQ(tag, "4500");
  EXPECT_DOUBLE_EQ(TwipsTop(&window), -150);
  EXPECT_EQ(window.size(), QSize(245, 136));

  // Dragged by the skin to 90 twips: the snap puts it at the top edge.
  SetTwipsTop(&window, 90);
  test::PumpBudget budget(100);
  DragAndSnap(&window, PrimaryScreenDesk);
  EXPECT_DOUBLE_EQ(TwipsTop(&window), 0);

  RollUpOrDown(&window, &picMini, tag);
  EXPECT_EQ(picMini.toolTip(), "roll up");
  EXPECT_DOUBLE_EQ(TwipsTop(&window), 4500);
}

void MoveOver(QWidget* w, QPoint at = QPoint(2, 2)) {
  QMouseEvent move(QEvent::MouseMove, at, w->mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                   Qt::NoModifier);
  QApplication::sendEvent(w, &move);
}

void Click(QWidget* w, QPoint at = QPoint(2, 2)) {
  for (auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    QMouseEvent e(type, at, w->mapToGlobal(at), Qt::LeftButton,
                  type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                  Qt::NoModifier);
    QApplication::sendEvent(w, &e);
  }
}

struct Face {
  QWidget window;
  QLabel lblShow{&window};
  QLabel picBut1{&window};
  QLabel lblGenre{&window};
  QListWidget lstMp3{&window};
  QString shown;
  StatusTexts texts{[this](const QString& t) {
    shown = t;
    lblShow.setText(t);
  }};
  Face() {
    window.resize(245, 136);
    lblShow.setGeometry(41, 99, 165, 14);
    picBut1.setGeometry(10, 110, 14, 14);
    lblGenre.setGeometry(40, 40, 60, 12);
    lstMp3.setGeometry(120, 20, 80, 60);
    texts.hover(&window, QStringLiteral("quill cast by brindle"));
    texts.hover(&picBut1, QStringLiteral("start tagging selected mp3s"));
    texts.onClick(&lblGenre, QStringLiteral("mp3 genre"));
    texts.hover(&lstMp3, [this] {
      return QStringLiteral("select mp3s to up : ") + QString::number(lstMp3.count());
    });
  }
};

TEST(StatusTextsTest, EachControlSpeaksUnderTheMouseAndBareSkinTakesOver) {
  Face f;
  MoveOver(&f.picBut1);
  EXPECT_EQ(f.shown, "start tagging selected mp3s");
  // Leaving the control resets nothing by itself.
  EXPECT_EQ(f.lblShow.text(), "start tagging selected mp3s");
  MoveOver(&f.window, QPoint(3, 3));
  EXPECT_EQ(f.shown, "quill cast by brindle");
}

TEST(StatusTextsTest, AMoveOverAChildDoesNotReachTheWindowsText) {
  Face f;
  f.shown.clear();
  // The window sees a move at a point where a child stands (as a child passes it up).
  MoveOver(&f.window, QPoint(50, 45));
  EXPECT_EQ(f.shown, "");
}

TEST(StatusTextsTest, GenreSpeaksOnAClickOnly) {
  Face f;
  MoveOver(&f.lblGenre);
  EXPECT_EQ(f.shown, "");
  Click(&f.lblGenre);
  EXPECT_EQ(f.shown, "mp3 genre");
}

TEST(StatusTextsTest, ListTextCarriesTheCountAtEachMove) {
  Face f;
  MoveOver(f.lstMp3.viewport());
  EXPECT_EQ(f.shown, "select mp3s to up : 0");
  f.lstMp3.addItems({"a.mp3", "b.mp3", "c.mp3"});
  MoveOver(f.lstMp3.viewport());
  EXPECT_EQ(f.shown, "select mp3s to up : 3");
}

}  // namespace
}  // namespace qc
