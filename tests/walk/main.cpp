// Walks through the program at random and checks after each step what must hold. A walk that finds
// something is shrunk to the few lines that it takes, and left as a scenario.
//
//     random_walks PROGRAM_FILES SAMPLES logical|widgets STEPS [SEED]

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "walk/session.h"

namespace quillmark {
namespace {

/// Each walk starts the program anew, since faults leave their marks on a model.
constexpr int kStepsOfAWalk = 250;

using Lines = std::vector<std::string>;

Lines Without(Lines lines, std::size_t from, std::size_t count) {
  const auto place = [&lines](std::size_t line) {
    return lines.begin() + static_cast<std::ptrdiff_t>(std::min(line, lines.size()));
  };
  lines.erase(place(from), place(from + count));
  return lines;
}

/// Leaves out all that the finding does not need: halves first, single lines at last.
Outcome Shrunk(const WalkSettings& settings, Outcome outcome) {
  const std::string what = outcome.finding->what;
  for (std::size_t size = outcome.lines.size() / 2; size > 0;) {
    bool shorter = false;
    for (std::size_t from = 0; from < outcome.lines.size();) {
      Outcome tried = Replay(settings, Without(outcome.lines, from, size));
      if (tried.finding && tried.finding->what == what) {
        outcome = std::move(tried);
        shorter = true;
      } else {
        from += size;
      }
    }
    if (size == 1 && shorter) continue;
    size = size / 2;
  }
  return outcome;
}

void Report(const WalkSettings& settings, const Outcome& outcome, std::uint32_t seed) {
  std::cerr << "Walk " << seed << ", line " << outcome.lines.size() << ": " << outcome.finding->what
            << "\nShrinking ..." << std::endl;
  const Outcome shrunk = Shrunk(settings, outcome);
  const std::string path = "walk-" + std::to_string(seed) + ".scenario";
  std::ofstream(path) << shrunk.scenario;
  std::cerr << shrunk.scenario << "These " << shrunk.lines.size() << " lines are in " << path
            << std::endl;
}

int RunWalks(const WalkSettings& settings, int steps, std::uint32_t firstSeed) {
  std::cout << "Walks of " << kStepsOfAWalk << " steps from seed " << firstSeed << std::endl;
  for (std::uint32_t seed = firstSeed; steps > 0; ++seed, steps -= kStepsOfAWalk) {
    const Outcome outcome = Walk(settings, seed, std::min(steps, kStepsOfAWalk));
    if (!outcome.finding) continue;
    Report(settings, outcome, seed);
    return EXIT_FAILURE;
  }
  std::cout << "Nothing found" << std::endl;
  return EXIT_SUCCESS;
}

}  // namespace
}  // namespace quillmark

int main(int argc, char** argv) try {
  if (argc != 5 && argc != 6) {
    std::cerr << "usage: random_walks PROGRAM_FILES SAMPLES logical|widgets STEPS [SEED]\n";
    return 64;
  }
  const std::uint32_t seed =
      argc == 6 ? static_cast<std::uint32_t>(std::stoul(argv[5])) : std::random_device()();
  return quillmark::RunWalks({argv[1], argv[2], std::string_view(argv[3]) == "widgets"},
                             std::stoi(argv[4]), seed);
} catch (const std::exception& trouble) {
  std::cerr << trouble.what() << "\n";
  return EXIT_FAILURE;
}
