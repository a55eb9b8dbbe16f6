#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "controls/controls.h"

namespace quillmark {

/// Thinks of what a person might do next, as lines for the driver. The same seed and the same
/// answers give the same walk.
class Walker {
 public:
  explicit Walker(std::uint32_t seed) : engine_(seed) {}

  /// Lines that change or replace the samples before the program starts.
  std::vector<std::string> Preparation();
  /// The line for a driver that has printed this prompt.
  std::string NextLine(const std::string& prompt);

 private:
  int Below(int bound);
  bool Chance(int percent) { return Below(100) < percent; }
  template <class Value>
  const Value& Any(const std::vector<Value>& values) {
    return values[static_cast<std::size_t>(Below(static_cast<int>(values.size())))];
  }

  std::string Text();
  std::string AnyKey();
  std::string AnswerBox(const std::string& prompt);
  std::string AnswerInput();
  std::string AnswerFile(const std::string& prompt);
  std::string ChooseGame();
  std::string RareAct();
  std::string ActOn(const Control& control);
  std::string ActOnRows(const std::string& name, int rows);
  std::string ActOnText(const std::string& name);
  /// A control that is likely to lead somewhere; null if none can be reached.
  const Control* AnyReachable();

  std::mt19937 engine_;
  std::string game_ = "tr4";  ///< the folder of the script that was chosen last
};

/// The name by which the driver knows it.
std::string DriverName(const Control& control);

}  // namespace quillmark
