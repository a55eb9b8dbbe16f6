#include "platform/console.h"
#include "tools/listing_command.h"

int main(int argc, char** argv) {
  const std::vector<std::string> words = quillmark::CommandLineWords(argc, argv);
  return quillmark::RunListing({words.begin() + 1, words.end()});
}
