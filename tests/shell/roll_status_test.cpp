// The roll's steps, and the status label's texts under the mouse.
#include <QLabel>
#include <QListWidget>
#include <gtest/gtest.h>

#include "base/failure.h"
#include "shell/roll.h"
#include "shell/status_texts.h"
#include "support/files.h"
#include "support/qt_events.h"
#include "qstring_print.h"

namespace qc {
namespace {

// Up lifts the window by picMini's top, keeping its top in the tag; down puts the tag's top back.
// Only "roll up" rolls up, compared exactly; a tag that is no number is a type mismatch.
TEST(RollTest, UpKeepsTheTopInTheTagAndDownPutsItBack) {
  const RollStep up = NextRoll(kRollUp, "", 4500, 150);
  EXPECT_EQ(up.toolTip, "roll down");
  EXPECT_EQ(up.tag, "4500");
  EXPECT_DOUBLE_EQ(up.top, -150);
  const RollStep down = NextRoll(up.toolTip, up.tag, 0, 150);
  EXPECT_EQ(down.toolTip, "roll up");
  EXPECT_DOUBLE_EQ(down.top, 4500);
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
