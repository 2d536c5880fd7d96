// Rolling the window up and down, and the status label's texts under the mouse.
#include <QLabel>
#include <QListWidget>
#include <gtest/gtest.h>

#include "ui/window_routines.h"
#include "base/failure.h"
#include "shell/roll.h"
#include "shell/status_texts.h"
#include "support/files.h"
#include "support/qt_events.h"
#include "qstring_print.h"

namespace qc {
namespace {

TEST(RollTest, UpLiftsPicMinisRowToTheEdgeKeepingTheTopInTheTagAndDownPutsItBack) {
  QWidget window(nullptr, Qt::FramelessWindowHint);
  window.resize(245, 136);
  QWidget picMini(&window);
  SetTwipsGeometry(&picMini, 3090, 150, 180, 180);
  picMini.setToolTip(kRollUp);
  QString tag;
  SetTwipsTop(&window, 4500);
  RollUpOrDown(&window, &picMini, tag);
  EXPECT_EQ(picMini.toolTip(), "roll down");
  EXPECT_EQ(tag, "4500");
  EXPECT_DOUBLE_EQ(TwipsTop(&window), -150);
  EXPECT_EQ(window.size(), QSize(245, 136));
  SetTwipsTop(&window, 0);  // the snap after a drag moves a rolled-up window
  RollUpOrDown(&window, &picMini, tag);
  EXPECT_EQ(picMini.toolTip(), "roll up");
  EXPECT_DOUBLE_EQ(TwipsTop(&window), 4500);
  // Any other tip rolls down, compared exactly; a tag that is no number is a type mismatch.
  EXPECT_EQ(NextRoll("", "15", 0, 150).toolTip, "roll up");
  EXPECT_DOUBLE_EQ(NextRoll("Roll Up", "15", 0, 150).top, 15);
  EXPECT_EQ(test::FailureNumberOf([] { NextRoll("roll down", "up", 0, 150); }), kTypeMismatch);
}

TEST(StatusTextsTest, EachControlSpeaksUnderTheMouseTheGenreOnAClickAndBareSkinTakesOver) {
  QWidget window;
  QLabel lblShow{&window}, picBut1{&window}, lblGenre{&window};
  QListWidget lstMp3{&window};
  QString shown;
  StatusTexts texts{[&](const QString& t) {
    shown = t;
    lblShow.setText(t);
  }};
  window.resize(245, 136);
  lblShow.setGeometry(41, 99, 165, 14);
  picBut1.setGeometry(10, 110, 14, 14);
  lblGenre.setGeometry(40, 40, 60, 12);
  lstMp3.setGeometry(120, 20, 80, 60);
  texts.hover(&window, QStringLiteral("quill cast by brindle"));
  texts.hover(&picBut1, QStringLiteral("start tagging selected mp3s"));
  texts.onClick(&lblGenre, QStringLiteral("mp3 genre"));
  texts.hover(&lstMp3, [&] {
    return QStringLiteral("select mp3s to up : ") + QString::number(lstMp3.count());
  });

  // A move the window sees where a child stands (as a child passes it up) is the child's.
  test::MouseMove(&window, QPoint(50, 45));
  EXPECT_EQ(shown, "");
  test::MouseMove(&lblGenre);
  EXPECT_EQ(shown, "");
  test::MouseClick(&lblGenre);
  EXPECT_EQ(shown, "mp3 genre");
  test::MouseMove(&picBut1);
  EXPECT_EQ(lblShow.text(), "start tagging selected mp3s");
  test::MouseMove(&window, QPoint(3, 3));
  EXPECT_EQ(shown, "quill cast by brindle");
  // The list's text carries the count at each move.
  test::MouseMove(lstMp3.viewport());
  EXPECT_EQ(shown, "select mp3s to up : 0");
  lstMp3.addItems({"a.mp3", "b.mp3", "c.mp3"});
  test::MouseMove(lstMp3.viewport());
  EXPECT_EQ(shown, "select mp3s to up : 3");
}

}  // namespace
}  // namespace qc
