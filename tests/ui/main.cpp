#include <gtest/gtest.h>

#include <QApplication>

#include "driver/running_program.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  quillmark::RunningProgram::files = QUILLMARK_FILES;
  return RUN_ALL_TESTS();
}
