// The failure boundary: a run-time failure escaping any event handler shows the platform's error
// box and ends the program.
#include <gtest/gtest.h>

#include <QPushButton>
#include <QTimer>
#include <QtTest/QTest>

#include "ui/application.h"
#include "ui/services.h"
#include "sim/sim_desktop.h"
#include "base/failure.h"
#include "base/pump.h"
#include "support/files.h"
#include "support/scripted_prompts.h"
#include "ui/settings_store.h"

namespace qc {
namespace {

Application& App() { return *static_cast<Application*>(QCoreApplication::instance()); }

class Boundary : public ::testing::Test {
 protected:
  void SetUp() override { App().Serve(services); }
  test::ScriptedPrompts prompts;
  std::vector<int> ends;
  sim::SimDesktop desktop;
  test::TempDir dir;
  SettingsStore settings{dir.path()};
  Services services{.windows = desktop,
                    .prompts = prompts,
                    .settings = settings,
                    .endProgram = [this](int status) { ends.push_back(status); }};
};

TEST_F(Boundary, FailureInATimerOrAClickHandlerShowsTheBoxAndEndsTheProgram) {
  bool after = false;
  QTimer::singleShot(0, [&] {
    RaiseFailure(kBadRecordNumber);
    after = true;  // never reached
  });
  QCoreApplication::processEvents();
  ASSERT_EQ(prompts.boxes.size(), 1u);
  EXPECT_EQ(prompts.boxes[0].text, "Run-time error '63':\n\nBad record number");
  EXPECT_EQ(prompts.boxes[0].flags, kCritical);
  EXPECT_EQ(prompts.boxes[0].title, "quillcast");
  EXPECT_EQ(ends, std::vector<int>{1});
  EXPECT_FALSE(after);
  QPushButton button("go");
  button.show();
  QObject::connect(&button, &QPushButton::clicked, [] { RaiseFailure(kOverflow); });
  QTest::mouseClick(&button, Qt::LeftButton);
  ASSERT_EQ(prompts.boxes.size(), 2u);
  EXPECT_EQ(prompts.boxes[1].text, "Run-time error '6':\n\nOverflow");
  EXPECT_EQ(ends, (std::vector<int>{1, 1}));
}

TEST_F(Boundary, FailureInAHandlerRunInsideAWaitStopsAtTheInnerHandler) {
  // The outer handler pumps; the inner one fails. The box comes from the inner event, and the
  // outer handler sees nothing of the failure.
  bool outerFinished = false;
  QTimer::singleShot(0, [&] {
    QTimer::singleShot(0, [] { RaiseFailure(kTypeMismatch); });
    for (int i = 0; i < 5; ++i) DoEvents();
    outerFinished = true;
  });
  QCoreApplication::processEvents();
  QCoreApplication::processEvents();
  ASSERT_EQ(prompts.boxes.size(), 1u);
  EXPECT_EQ(prompts.boxes[0].text, "Run-time error '13':\n\nType mismatch");
  EXPECT_TRUE(outerFinished);  // only because the test's hook lets the program go on
}

TEST(BoundaryDeath, DefaultEndExitsWithStatusOneAfterTheBox) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        test::ScriptedPrompts prompts;
        sim::SimDesktop desktop;
        SettingsStore settings("/nonexistent");
        const Services services = PlatformServices(desktop, prompts, settings);
        App().Serve(services);
        QTimer::singleShot(0, [] { RaiseFailure(kFileNotFound); });
        QCoreApplication::processEvents();
        std::fprintf(stderr, "still running\n");
        std::exit(0);
      },
      ::testing::ExitedWithCode(1), "");
}

}  // namespace
}  // namespace qc

// A failure unwinds through Qt's own frames, which are built without clean-ups, so what they held
// for the event is never freed. The program ends right after, so leak checks skip Qt's memory here.
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libQt6Gui.so\nleak:libQt6Core.so\n";
}

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  qc::Application app(argc, argv);
  qc::SetEventProcessor([] { QCoreApplication::processEvents(); });
  return RUN_ALL_TESTS();
}
