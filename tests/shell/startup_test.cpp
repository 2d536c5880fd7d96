// Start-up and exit: the options and totals through the store, the generation warning, the
// version slide, the whole load from the splash to the main window, and exit during a run.
#include <QApplication>
#include <QElapsedTimer>
#include <QPointer>
#include <QFontMetrics>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>

#include "app/core/settings_store.h"
#include "app/core/window_routines.h"
#include "app/forms/frmmain.h"
#include "app/forms/frmmenu.h"
#include "base/pump.h"
#include "client/window_system.h"
#include "shell/menu_wiring.h"
#include "shell/startup.h"
#include "sim/sim_chat.h"
#include "sim/sim_client.h"
#include "sim/sim_desktop.h"
#include "support/budget.h"
#include "support/scripted_prompts.h"

namespace qc {
namespace {

// Thrown by the test's exit hook: the program ends there, nothing after it runs.
struct ProgramEnded {};

class StartupTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(dir_.isValid());
    SetSettingsFolder(dir_.path().toStdString());
    SetWindowSystem(&desktop_);
    SetExitHook([] { throw ProgramEnded{}; });
  }
  void TearDown() override {
    SetExitHook({});
    SetWindowSystem(nullptr);
    SetSettingsFolder("");
  }
  void StartClient(int generation, const std::string& name = "Brindle Rose") {
    sim::ClientOptions o;
    o.generation = generation;
    o.screenName = name;
    client_ = std::make_unique<sim::SimClient>(desktop_, o);
  }
  static std::string Stored(const std::string& key) {
    return GetSetting(kAppName, kOptionsSection, key, "<none>");
  }
  static std::string FlagKey(const char* item) {
    return std::string("frmmenu.") + item + ".Checked";
  }

  QTemporaryDir dir_;
  sim::SimDesktop desktop_;
  std::unique_ptr<sim::SimClient> client_;
  FrmMain frmMain_;
  FrmMenu frmMenu_;
};

TEST_F(StartupTest, FirstStartWithEmptyStoreGivesDefaults) {
  StartClient(5);
  // Set everything the other way first, so that the defaults must come from the store.
  for (const char* item : kOptionItems) frmMenu_.setCheck(item, std::string(item) == "renamecomment");
  frmMain_.lblMBs->setText("99");
  RestoreUserSettings(frmMain_, frmMenu_);
  for (const char* item : kOptionItems)
    EXPECT_EQ(frmMenu_.check(item), std::string(item) != "renamecomment") << item;
  EXPECT_EQ(frmMain_.lblMBs->Caption(), "0");
  EXPECT_EQ(frmMain_.lblUps->Caption(), "0");
  EXPECT_EQ(frmMenu_.lblHandle->Caption(), "Brindle Rose");
  EXPECT_EQ(frmMenu_.lblRename->Caption(), "uploaded by Brindle Rose");
  EXPECT_EQ(frmMenu_.userHandle->text().toStdString(), "&handle [Brindle Rose]");
}

TEST_F(StartupTest, NoClientGivesEmptyHandleAndBareRenameDefault) {
  RestoreUserSettings(frmMain_, frmMenu_);
  EXPECT_EQ(frmMenu_.lblHandle->Caption(), "");
  EXPECT_EQ(frmMenu_.lblRename->Caption(), "uploaded by ");
  EXPECT_EQ(frmMenu_.userHandle->text().toStdString(), "&handle []");
  // Once saved, the empty values stand even when a client is there later.
  SaveUserSettings(frmMain_, frmMenu_);
  StartClient(5);
  RestoreUserSettings(frmMain_, frmMenu_);
  EXPECT_EQ(frmMenu_.lblHandle->Caption(), "");
  EXPECT_EQ(frmMenu_.lblRename->Caption(), "uploaded by ");
}

TEST_F(StartupTest, StoredFlagValuesAndValuesAsTheyStand) {
  const struct {
    const char* stored;
    bool checked;
  } cases[] = {{"0", false}, {"7", true}, {"1", true}, {"x", false}};
  for (const auto& c : cases) {
    SaveSetting(kAppName, kOptionsSection, FlagKey("autohead"), c.stored);
    SaveSetting(kAppName, kOptionsSection, FlagKey("renamecomment"), c.stored);
    RestoreUserSettings(frmMain_, frmMenu_);
    EXPECT_EQ(frmMenu_.check("autohead"), c.checked) << c.stored;
    EXPECT_EQ(frmMenu_.check("renamecomment"), c.checked) << c.stored;
  }
  // No parsing of the four values.
  SaveSetting(kAppName, kOptionsSection, "mbs", "12.50");
  SaveSetting(kAppName, kOptionsSection, "ups", "abc");
  SaveSetting(kAppName, kOptionsSection, "handle", "  dj Quill ");
  RestoreUserSettings(frmMain_, frmMenu_);
  EXPECT_EQ(frmMain_.lblMBs->Caption(), "12.50");
  EXPECT_EQ(frmMain_.lblUps->Caption(), "abc");
  EXPECT_EQ(frmMenu_.userHandle->text().toStdString(), "&handle [  dj Quill ]");
}

TEST_F(StartupTest, TogglesPersistAcrossARestart) {
  RestoreUserSettings(frmMain_, frmMenu_);
  // A toggle flips its own check mark, nothing more.
  frmMenu_.bbcemail->trigger();
  frmMenu_.renamecomment->trigger();
  frmMenu_.memberlst->trigger();
  frmMenu_.memberlst->trigger();
  frmMenu_.lblHandle->setText("quill");
  frmMenu_.lblRename->setText("ripped by quill");
  frmMain_.lblMBs->setText("3.5");
  frmMain_.lblUps->setText("2");
  EXPECT_THROW(ExitProgram(frmMain_, frmMenu_), ProgramEnded);

  for (const char* item : kOptionItems) {
    const bool on = std::string(item) != "bbcemail";
    EXPECT_EQ(Stored(FlagKey(item)), on ? "1" : "0") << item;
  }
  EXPECT_EQ(Stored("mbs"), "3.5");
  EXPECT_EQ(Stored("ups"), "2");
  EXPECT_EQ(Stored("handle"), "quill");
  EXPECT_EQ(Stored("rename"), "ripped by quill");

  FrmMain main2;
  FrmMenu menu2;
  RestoreUserSettings(main2, menu2);
  EXPECT_FALSE(menu2.check("bbcemail"));
  EXPECT_TRUE(menu2.check("renamecomment"));
  EXPECT_TRUE(menu2.check("memberlst"));
  EXPECT_EQ(menu2.lblRename->Caption(), "ripped by quill");
  EXPECT_EQ(main2.lblMBs->Caption(), "3.5");
  EXPECT_EQ(menu2.userHandle->text().toStdString(), "&handle [quill]");
}

TEST_F(StartupTest, ExitDuringARunSavesTheTotalsSoFarAndClearsNothing) {
  frmMain_.show();
  frmMain_.lstSend->AddItem("someone@example.com");
  frmMain_.lblMBs->setText("7.25");
  frmMain_.lblUps->setText("4");
  // The run waits for the client; the exit press comes in while it pumps.
  bool runContinued = false;
  const PumpHookId hook = AddPumpHook([&] {
    frmMain_.lblMBs->setText("8.75");  // the run counted one more file
    ExitProgram(frmMain_, frmMenu_);
  });
  EXPECT_THROW(
      {
        DoEvents();
        runContinued = true;
      },
      ProgramEnded);
  RemovePumpHook(hook);
  EXPECT_FALSE(runContinued);
  EXPECT_FALSE(frmMain_.isVisible());
  EXPECT_EQ(Stored("mbs"), "8.75");
  EXPECT_EQ(Stored("ups"), "4");
  EXPECT_EQ(frmMain_.lstSend->ListCount(), 1);
}

TEST_F(StartupTest, WarningOnlyForGenerationsTwoAndFour) {
  for (int generation : {2, 3, 4, 5, 0}) {
    test::ScriptedPrompts prompts;
    if (generation) StartClient(generation);
    else client_.reset();
    EXPECT_EQ(WarnOnClientGeneration(), generation == 2 || generation == 4) << generation;
    if (generation == 2 || generation == 4) {
      ASSERT_EQ(prompts.boxes.size(), 1u);
      EXPECT_EQ(prompts.boxes[0].title, "Warning:");
      EXPECT_EQ(prompts.boxes[0].flags, 4160);
      EXPECT_EQ(prompts.boxes[0].text, kGenerationWarningText);
    } else {
      EXPECT_TRUE(prompts.boxes.empty()) << generation;
    }
    client_.reset();
  }
  const std::string text = kGenerationWarningText;
  EXPECT_EQ(text.rfind("QUILL CAST v.qc27e has detected", 0), 0u);
  EXPECT_NE(text.find("programed to work with AOL 95 and AOL 5.0 (32bit) only;"), std::string::npos);
  EXPECT_EQ(text.substr(text.size() - 43), "make sure to install AOL 95 for windows 95.");
}

// Records whether the splash was on screen when the warning was asked.
class SplashWatcher : public test::ScriptedPrompts {
 public:
  QWidget* splash = nullptr;
  bool splashVisibleAtBox = true;
  int MsgBox(const std::string& text, int flags, const std::string& title) override {
    splashVisibleAtBox = splash && splash->isVisible();
    return ScriptedPrompts::MsgBox(text, flags, title);
  }
};

TEST_F(StartupTest, WarningComesBeforeAnythingShows) {
  StartClient(4);
  SplashWatcher prompts;
  FrmMenu2 menu2;
  auto* start = new FrmStart({&frmMain_, &frmMenu_, &menu2});
  prompts.splash = start;
  start->Open();
  ASSERT_EQ(prompts.boxes.size(), 1u);
  EXPECT_FALSE(prompts.splashVisibleAtBox);
  EXPECT_FALSE(frmMain_.isVisible());
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

TEST_F(StartupTest, NoneOfTheVersionShowsBeforeTheSlide) {
  test::ScriptedPrompts prompts;
  FrmMenu2 menu2;
  QPointer<FrmStart> start = new FrmStart({&frmMain_, &frmMenu_, &menu2});
  start->Open();
  start->tmrLoad->stop();
  const Label& label = *start->lblVersion;
  EXPECT_LE(label.x() + label.width(), 0);
  EXPECT_LT(QFontMetrics(label.font()).horizontalAdvance(label.text()), label.width());
  delete start;
}

TEST_F(StartupTest, WholeLoadFromSplashToMainWindow) {
  StartClient(5, "Ilona");
  SaveSetting(kAppName, kOptionsSection, FlagKey("sendlater"), "0");
  test::ScriptedPrompts prompts;
  test::VirtualTime time;
  FrmMenu2 menu2;
  QPointer<FrmStart> start = new FrmStart({&frmMain_, &frmMenu_, &menu2});
  EXPECT_EQ(start->lblVersion->text(), "version qc23e");
  EXPECT_EQ(start->tmrLoad->interval(), 500);
  bool loaded = false;
  QObject::connect(start, &FrmStart::loaded, [&] {
    loaded = true;
    // frmMain comes only after the options are back.
    EXPECT_FALSE(frmMenu_.check("sendlater"));
    EXPECT_TRUE(frmMain_.isVisible());
  });
  start->Open();
  EXPECT_TRUE(start->isVisible());
  EXPECT_FALSE(frmMain_.isVisible());
  QElapsedTimer clock;
  clock.start();
  while (!loaded && clock.elapsed() < 5000) QApplication::processEvents(QEventLoop::AllEvents, 50);
  ASSERT_TRUE(loaded);
  EXPECT_GE(clock.elapsed(), 400);  // tmrLoad's half second
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(start.isNull());  // the splash is unloaded
  EXPECT_TRUE(prompts.boxes.empty());
  EXPECT_EQ(frmMenu_.userHandle->text().toStdString(), "&handle [Ilona]");
  // frmMain took the skin's size and outline.
  EXPECT_EQ(frmMain_.size(), frmMain_.Picture1->size());
  EXPECT_FALSE(frmMain_.mask().isEmpty());
}

TEST_F(StartupTest, LoadGreetsTheRoomBeforeTheMainWindowShows) {
  StartClient(5);
  sim::SimChat chat(*client_);
  const Hwnd room = chat.OpenRoom("Town Square - Lobby 12");
  test::ScriptedPrompts prompts;
  test::VirtualTime time;
  FrmMenu2 menu2;
  bool shownEarly = false;
  const PumpHookId hook = AddPumpHook([&] {
    if (chat.Transcript(room).size() < 3 && frmMain_.isVisible()) shownEarly = true;
  });
  auto* start = new FrmStart({&frmMain_, &frmMenu_, &menu2});
  start->Open();
  start->tmrLoad->stop();
  {
    test::PumpBudget budget(100000);
    start->LoadTick();
  }
  RemovePumpHook(hook);
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_FALSE(shownEarly);
  EXPECT_TRUE(frmMain_.isVisible());
  const std::vector<std::string> lines = chat.Transcript(room);
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_NE(lines[1].find("start"), std::string::npos) << lines[1];
}

TEST_F(StartupTest, ExitHidesThenSaysGoodbyeThenSaves) {
  StartClient(5);
  sim::SimChat chat(*client_);
  const Hwnd room = chat.OpenRoom("Town Square - Lobby 12");
  test::VirtualTime time;
  frmMain_.show();
  frmMain_.lblUps->setText("5");
  bool visibleDuringGoodbye = false;
  bool savedBeforeGoodbye = false;
  const PumpHookId hook = AddPumpHook([&] {
    if (frmMain_.isVisible()) visibleDuringGoodbye = true;
    if (Stored("ups") != "<none>") savedBeforeGoodbye = true;
  });
  {
    test::PumpBudget budget(100000);
    EXPECT_THROW(ExitProgram(frmMain_, frmMenu_), ProgramEnded);
  }
  RemovePumpHook(hook);
  EXPECT_FALSE(visibleDuringGoodbye);
  EXPECT_FALSE(savedBeforeGoodbye);
  EXPECT_EQ(Stored("ups"), "5");
  const std::vector<std::string> lines = chat.Transcript(room);
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_NE(lines[1].find("end"), std::string::npos) << lines[1];
}

TEST(InstanceLockTest, TheLockIsTheUsersOwn) {
  QTemporaryDir a, b;
  const QByteArray old = qgetenv("XDG_RUNTIME_DIR");
  qputenv("XDG_RUNTIME_DIR", a.path().toLocal8Bit());
  const QString first = InstanceLock::DefaultPath();
  qputenv("XDG_RUNTIME_DIR", b.path().toLocal8Bit());
  const QString second = InstanceLock::DefaultPath();
  qputenv("XDG_RUNTIME_DIR", old);
  EXPECT_EQ(first, a.filePath(QStringLiteral("quillcast.lock")));
  EXPECT_EQ(second, b.filePath(QStringLiteral("quillcast.lock")));
}

TEST(InstanceLockTest, SecondInstanceIsRefusedUntilTheFirstEnds) {
  QTemporaryDir dir;
  const QString path = dir.filePath(QStringLiteral("quillcast.lock"));
  {
    InstanceLock first(path);
    EXPECT_TRUE(first.acquired());
    InstanceLock second(path);
    EXPECT_FALSE(second.acquired());
  }
  InstanceLock again(path);
  EXPECT_TRUE(again.acquired());
}

}  // namespace
}  // namespace qc
