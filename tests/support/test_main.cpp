// Test entry: an offscreen QApplication, so that forms can be built and handlers run.
#include <QApplication>
#include <gtest/gtest.h>

#include "base/pump.h"

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  QApplication app(argc, argv);
  qc::SetEventProcessor([] { QCoreApplication::processEvents(); });
  return RUN_ALL_TESTS();
}
