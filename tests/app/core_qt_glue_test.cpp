// Text boxes and list controls meeting the file routines: line ends and the bytes on disk.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QTimer>
#include <fstream>
#include <sstream>

#include "app/core/list_box.h"
#include "app/core/qt_glue.h"
#include "base/pump.h"

namespace qc {
namespace {

std::string FileBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream s;
  s << in.rdbuf();
  return s.str();
}

void WriteBytes(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

class QtGlue : public ::testing::Test {
 protected:
  std::string Path(const char* name) const { return dir_.filePath(name).toStdString(); }
  QTemporaryDir dir_;
};

TEST_F(QtGlue, MultiLineBoxesGiveCrLfAndShowPlainBreaks) {
  QPlainTextEdit plain;
  QTextEdit rich;
  for (QWidget* box : {static_cast<QWidget*>(&plain), static_cast<QWidget*>(&rich)}) {
    SetBoxText(box, "one\r\ntwo\r\n\r\nthree");
    const QString shown = box == &plain ? plain.toPlainText() : rich.toPlainText();
    EXPECT_EQ(shown, "one\ntwo\n\nthree");
    EXPECT_EQ(BoxText(box), "one\r\ntwo\r\n\r\nthree");
  }
  // A bare LF typed or pasted in comes back as CR LF too.
  plain.setPlainText("a\nb");
  EXPECT_EQ(BoxText(&plain), "a\r\nb");
}

TEST_F(QtGlue, SingleLineBoxKeepsItsTextAsIs) {
  QLineEdit line;
  SetBoxText(&line, "\xC3\xB3mbreval\xC3\xA8 [x]");
  EXPECT_EQ(BoxText(&line), "\xC3\xB3mbreval\xC3\xA8 [x]");
  QWidget notABox;
  EXPECT_EQ(BoxText(&notABox), "");
}

TEST_F(QtGlue, TextBoxFileRoundTripWritesOneClosingCrLf) {
  QPlainTextEdit box;
  SetBoxText(&box, "line 1\r\nline 2");
  SaveTextFrom(&box, Path("body.sys"));
  EXPECT_EQ(FileBytes(Path("body.sys")), "line 1\r\nline 2\r\n");

  QPlainTextEdit again;
  LoadTextInto(&again, Path("body.sys"));
  EXPECT_EQ(BoxText(&again), "line 1\r\nline 2");

  // A missing file leaves the box alone; an empty one empties it.
  LoadTextInto(&again, Path("missing.sys"));
  EXPECT_EQ(BoxText(&again), "line 1\r\nline 2");
  WriteBytes(Path("empty.sys"), "");
  LoadTextInto(&again, Path("empty.sys"));
  EXPECT_EQ(BoxText(&again), "");
}

// On the real clock a wait sleeps on Qt's event loop: a click (here a timer) is handled when it
// comes, inside the wait, and the wait still lasts its whole time.
TEST_F(QtGlue, RealClockPauseHandlesEventsAsTheyCome) {
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

TEST_F(QtGlue, ListFileLoadsFieldsAndSavesOneLinePerItem) {
  WriteBytes(Path("lst.sys"), "  alpha ,\t\"b, c\"\r\ndelta\n\n\"x\"tail,last");
  ListBox list;
  list.AddItem("kept");
  const auto before = PumpCount();
  LoadListFile(Path("lst.sys"), list);
  EXPECT_EQ(list.Items(),
            (std::vector<std::string>{"kept", "alpha", "b, c", "delta", "", "x", "last"}));
  EXPECT_GE(PumpCount() - before, 6u);  // events pumped between the fields

  SaveListFile(Path("out.sys"), list);
  EXPECT_EQ(FileBytes(Path("out.sys")), "kept\r\nalpha\r\nb, c\r\ndelta\r\n\r\nx\r\nlast\r\n");

  ListBox empty;
  SaveListFile(Path("out.sys"), empty);
  EXPECT_EQ(FileBytes(Path("out.sys")), "");
  LoadListFile(Path("missing.sys"), empty);
  EXPECT_EQ(empty.ListCount(), 0);
}

TEST_F(QtGlue, SavingAListPastSixteenBitsWritesNothing) {
  ListBox list;
  QStringList many;
  for (int i = 0; i < 32768; ++i) many << "a";
  list.addItems(many);
  WriteBytes(Path("big.sys"), "old\r\n");
  SaveListFile(Path("big.sys"), list);  // the count overflows; the failure is ignored
  EXPECT_EQ(FileBytes(Path("big.sys")), "");
}

}  // namespace
}  // namespace qc
