// Start-up and exit where the program scenarios cannot reach: the warning before the splash, the
// version slide, the whole load from the splash to the main window (its skin's size and outline
// are the GUI test's), the exit's order and exit during a run. The user's own lock is the second
// instance's test.
#include <QApplication>
#include <QElapsedTimer>
#include <QPointer>
#include <QFontMetrics>
#include <QTimer>

#include "base/pump.h"
#include "program/startup.h"
#include "run/run_rig.h"
#include "run/tagging_run.h"
#include "sim/sim_chat.h"
#include "ui/window_routines.h"

namespace qc::test {
namespace {

// Thrown by the test's exit hook: the program ends there, nothing after it runs.
struct ProgramEnded {};

class StartupTest : public SandboxTest {
 protected:
  StartupTest() { services.endProgram = [](int) { throw ProgramEnded{}; }; }
  std::string Stored(const std::string& key) {
    return settings.Get(kOptionsSection, key, "<none>");
  }
  FrmMain frmMain;
  FrmMenu frmMenu;
};

// Records whether the splash was on screen when the warning was asked.
class SplashWatcher : public ScriptedPrompts {
 public:
  QWidget* splash = nullptr;
  bool splashVisibleAtBox = true;
  int MsgBox(const std::string& text, int flags, const std::string& title) override {
    splashVisibleAtBox = splash && splash->isVisible();
    return ScriptedPrompts::MsgBox(text, flags, title);
  }
};

TEST_F(StartupTest, WarningComesBeforeTheSplashShows) {
  StartClient(4);
  SplashWatcher watcher;
  FrmMenu2 menu2;
  const Services asked{.windows = desktop, .prompts = watcher, .settings = settings};
  auto* start = new FrmStart({&frmMain, &frmMenu, &menu2}, asked);
  watcher.splash = start;
  start->Open();
  ASSERT_EQ(watcher.boxes.size(), 1u);
  EXPECT_FALSE(watcher.splashVisibleAtBox);
  EXPECT_FALSE(frmMain.isVisible());
  EXPECT_TRUE(start->isVisible());
  start->tmrLoad->stop();
  delete start;
}

TEST_F(StartupTest, VersionLabelSlidesFromOutsideToFiftySevenTwentyFive) {
  Label label(QStringLiteral("lblVersion"), QString::fromLatin1(kVersionCaption), nullptr);
  std::vector<double> seen;
  const PumpHookId hook = AddPumpHook([&] { seen.push_back(label.property("twipsLeft").toDouble()); });
  label.setProperty("twipsLeft", -975.0);
  SlideVersionLabel(label);
  RemovePumpHook(hook);
  ASSERT_EQ(seen.size(), 67u);  // one pump per step
  EXPECT_EQ(seen.front(), -875);
  EXPECT_EQ(seen[seen.size() - 2], 5625);
  EXPECT_EQ(seen.back(), 5725);
  EXPECT_EQ(label.x(), ToPixelsX(5725));
}

TEST_F(StartupTest, WholeLoadFromSplashToMainWindowGreetsTheRoomFirst) {
  StartClient(5, "Ilona");
  sim::SimChat chat(*client);
  const Hwnd room = chat.OpenRoom("Town Square - Lobby 12");
  settings.Save(kOptionsSection, "frmmenu.sendlater.Checked", "0");
  FrmMenu2 menu2;
  QPointer<FrmStart> start = new FrmStart({&frmMain, &frmMenu, &menu2}, services);
  EXPECT_EQ(start->lblVersion->text(), "version qc23e");
  EXPECT_EQ(start->tmrLoad->interval(), 500);
  bool loaded = false;
  bool shownEarly = false;
  const PumpHookId hook = AddPumpHook([&] {
    if (chat.Transcript(room).size() < 3 && frmMain.isVisible()) shownEarly = true;
  });
  QObject::connect(start, &FrmStart::loaded, [&] {
    loaded = true;
    // frmMain comes only after the options are back.
    EXPECT_FALSE(frmMenu.check("sendlater"));
    EXPECT_TRUE(frmMain.isVisible());
  });
  start->Open();
  EXPECT_TRUE(start->isVisible());
  EXPECT_FALSE(frmMain.isVisible());
  {
    // None of the version shows before its slide.
    const Label& label = *start->lblVersion;
    EXPECT_LE(label.x() + label.width(), 0);
    EXPECT_LT(QFontMetrics(label.font()).horizontalAdvance(label.text()), label.width());
  }
  QElapsedTimer clock;
  clock.start();
  while (!loaded && clock.elapsed() < 5000) QApplication::processEvents(QEventLoop::AllEvents, 50);
  RemovePumpHook(hook);
  ASSERT_TRUE(loaded);
  EXPECT_GE(clock.elapsed(), 400);  // tmrLoad's half second
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(start.isNull());  // the splash is unloaded
  EXPECT_TRUE(prompts.boxes.empty());
  EXPECT_FALSE(shownEarly);
  const std::vector<std::string> lines = chat.Transcript(room);
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_NE(lines[1].find("start"), std::string::npos) << lines[1];
  EXPECT_EQ(frmMenu.userHandle->text().toStdString(), "&handle [Ilona]");
}

// What the exit saves is the program scenarios' business; here its order: hidden first, the
// goodbye, and only then the save.
TEST_F(StartupTest, ExitHidesThenSaysGoodbyeThenSaves) {
  StartClient(5);
  sim::SimChat chat(*client);
  const Hwnd room = chat.OpenRoom("Town Square - Lobby 12");
  frmMain.show();
  bool visibleDuringGoodbye = false;
  bool savedBeforeGoodbye = false;
  const PumpHookId hook = AddPumpHook([&] {
    if (frmMain.isVisible()) visibleDuringGoodbye = true;
    if (Stored("ups") != "<none>") savedBeforeGoodbye = true;
  });
  {
    PumpBudget budget(100000);
    EXPECT_THROW(ExitProgram(frmMain, frmMenu, services), ProgramEnded);
  }
  RemovePumpHook(hook);
  EXPECT_FALSE(visibleDuringGoodbye);
  EXPECT_FALSE(savedBeforeGoodbye);
  EXPECT_EQ(chat.Transcript(room).size(), 3u);
  EXPECT_EQ(Stored("ups"), "0");
}

// The exit press while a real tagging run waits on the client: the program ends inside the run,
// with the totals counted so far saved and nothing cleared.
class ExitInRun : public RunRig {
 protected:
  ExitInRun() { services.endProgram = [](int) { throw ProgramEnded{}; }; }
};

TEST_F(ExitInRun, ExitDuringTheSecondFileSavesTheFirstFilesTotals) {
  StartClient(5);
  Choose("one.mp3", 1500000, "Band - One");
  Choose("two.mp3", 500000, "Band - Two");
  Choose("three.mp3", 250000, "Band - Three");
  menu.setCheck("sendlater", true);
  frm.lblUps->SetCaption("10");
  frm.lblMBs->SetCaption("20");
  frm.show();
  bool pressed = false;
  const PumpHookId hook = AddPumpHook([&] {
    if (!pressed && frm.lblUps->Caption() == "11") {
      pressed = true;
      ExitProgram(frm, menu, services);
    }
  });
  bool runReturned = false;
  {
    PumpBudget budget(3000000);
    EXPECT_THROW(
        {
          TaggingRun(frm, menu, services);
          runReturned = true;
        },
        ProgramEnded);
  }
  RemovePumpHook(hook);
  ASSERT_TRUE(pressed);
  EXPECT_FALSE(runReturned);
  EXPECT_FALSE(frm.isVisible());
  const auto stored = [this](const std::string& key) {
    return settings.Get(kOptionsSection, key, "?");
  };
  EXPECT_EQ(stored("ups"), "11");
  EXPECT_EQ(stored("mbs"), "21.5");
  // The files not yet sent stay chosen: nothing is cleared.
  EXPECT_EQ(frm.lstPathSelect->ListCount(), 3);
  EXPECT_EQ(stored("frmmenu.sendlater.Checked"), "1");
  EXPECT_EQ(stored("frmmenu.bbcemail.Checked"), "0");
}

}  // namespace
}  // namespace qc::test
