#include <gtest/gtest.h>

#include <QApplication>
#include <iostream>

#include "driver/running_program.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (argc != 2) {
    std::cerr << "usage: " << argv[0] << " PROGRAM_FILES\n";
    return 64;
  }
  const QApplication application(argc, argv);
  quillmark::RunningProgram::files = argv[1];
  return RUN_ALL_TESTS();
}
