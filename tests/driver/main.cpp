#include <iostream>
#include <string_view>

#include "driver/driver.h"
#include "driver/logical_hands.h"
#include "driver/logical_screen.h"
#include "platform/files.h"

namespace quillmark {

int RunLogical() {
  LogicalHands hands;
  Driver driver(hands);
  LogicalScreen screen(driver);
  TheDesktop().Attach(screen);
  return driver.Run();
}

}  // namespace quillmark

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: quillmark_driver FOLDER\n";
    return 64;
  }
  quillmark::SetProgramFolder(argv[1]);
  return quillmark::RunLogical();
}
