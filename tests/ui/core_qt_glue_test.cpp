// Text boxes and list controls meeting the file routines: line ends and the bytes on disk. How a
// list file splits into fields belongs to the text routines' tests.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <QTimer>

#include "base/pump.h"
#include "support/files.h"
#include "ui/list_box.h"
#include "ui/qt_glue.h"

namespace qc::test {
namespace {

TEST(QtGlue, MultiLineBoxesGiveCrLfAndShowPlainBreaks) {
  QPlainTextEdit plain;
  QTextEdit rich;
  for (QWidget* box : {static_cast<QWidget*>(&plain), static_cast<QWidget*>(&rich)}) {
    SetBoxText(box, "one\r\ntwo\r\n\r\nthree");
    EXPECT_EQ(box == &plain ? plain.toPlainText() : rich.toPlainText(), "one\ntwo\n\nthree");
    EXPECT_EQ(BoxText(box), "one\r\ntwo\r\n\r\nthree");
  }
  // A bare LF typed or pasted in comes back as CR LF too.
  plain.setPlainText("a\nb");
  EXPECT_EQ(BoxText(&plain), "a\r\nb");
  QLineEdit line;
  SetBoxText(&line, "\xC3\xB3mbreval\xC3\xA8 [x]");
  EXPECT_EQ(BoxText(&line), "\xC3\xB3mbreval\xC3\xA8 [x]");
  QWidget notABox;
  EXPECT_EQ(BoxText(&notABox), "");
}

TEST(QtGlue, TextBoxFileRoundTripWritesOneClosingCrLf) {
  TempDir dir;
  QPlainTextEdit box;
  SetBoxText(&box, "line 1\r\nline 2");
  SaveTextFrom(&box, dir / "body.sys");
  EXPECT_EQ(ReadBytes(dir / "body.sys"), "line 1\r\nline 2\r\n");
  QPlainTextEdit again;
  LoadTextInto(&again, dir / "body.sys");
  EXPECT_EQ(BoxText(&again), "line 1\r\nline 2");
  // A missing file leaves the box alone; an empty one empties it.
  LoadTextInto(&again, dir / "missing.sys");
  EXPECT_EQ(BoxText(&again), "line 1\r\nline 2");
  WriteBytes(dir / "empty.sys", "");
  LoadTextInto(&again, dir / "empty.sys");
  EXPECT_EQ(BoxText(&again), "");
}

// On the real clock a wait sleeps on Qt's event loop: a click (here a timer) is handled when it
// comes, inside the wait, and the wait still lasts its whole time.
TEST(QtGlue, RealClockPauseHandlesEventsAsTheyCome) {
  InstallQtPump();
  Clock& clock = CurrentClock();
  double start = 0, wall = 0, handledAt = 0;
  std::uint64_t pumps = 0;
  // The wait runs inside a handler, as a run does, with a deletion pending that only the outer
  // loop may carry out: it must not keep the inner wait from sleeping.
  bool done = false;
  QTimer::singleShot(0, [&] {
    (new QObject)->deleteLater();
    start = clock.Now();
    QTimer::singleShot(30, [&] { handledAt = clock.Now(); });
    const auto pumps0 = PumpCount();
    Pause(0.25);
    pumps = PumpCount() - pumps0;
    wall = clock.Now() - start;
    done = true;
  });
  while (!done) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  SetEventWaiter(nullptr);
  EXPECT_GE(handledAt - start, 0.025);
  EXPECT_LT(handledAt - start, 0.1);
  EXPECT_GE(wall, 0.24);
  EXPECT_LT(pumps, 20u);
}

// The file's fields are the text routines' own; through a control, fields are appended with a
// pump between them, and a list past 16 bits saves an empty file, the overflow skipped.
TEST(QtGlue, ListFileAppendsToTheControlAndSkipsTheOverflowOnSave) {
  TempDir dir;
  WriteBytes(dir / "lst.sys", "alpha,\"b, c\"\r\n\r\nlast");
  ListBox list;
  list.AddItem("kept");
  const auto before = PumpCount();
  LoadListFile(dir / "lst.sys", list);
  EXPECT_EQ(list.Items(), (std::vector<std::string>{"kept", "alpha", "b, c", "", "last"}));
  EXPECT_GE(PumpCount() - before, 4u);
  QStringList many;
  for (int i = 0; i < 32768; ++i) many << "a";
  list.addItems(many);
  SaveListFile(dir / "out.sys", list);
  EXPECT_EQ(ReadBytes(dir / "out.sys"), "");
}

}  // namespace
}  // namespace qc::test
