#pragma once

#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "driver/hands.h"
#include "platform/fault.h"
#include "tools/json_text.h"

namespace quillmark {

/// What does not hold, and the line of a scenario that expects it.
struct Finding {
  std::string what;
  std::string expectation;
};

/// Looks at the program after each line of a walk.
class Checks {
 public:
  /// `hands` see the controls as the person does.
  explicit Checks(Hands& hands) : hands_(hands) {}

  /// Before the line is given to the driver, which waits with `prompt`.
  void Before(const std::string& line, const std::string& prompt);
  /// When the driver has answered by `answer` and waits with `prompt`. Throws the `Finding`.
  void After(const std::string& answer, const std::string& prompt);

 private:
  /// Listens to the faults that a person is told of.
  void HearFaults();
  void CheckFault();
  void CheckChanges(bool ready);
  void CheckFlag(const Json& now) const;
  void CheckDelete(const Json& now) const;
  void CheckBounds();
  void CheckRows();
  void CheckControls(bool ready);
  void CheckPanel();
  void Want(const Control& control, const char* member, const Json& value);

  Hands& hands_;
  Json model_;       ///< before the line
  std::string act_;  ///< the act that is under way; answers to its boxes belong to it
  std::string line_;
  int level_ = -1;      ///< the selected row before the act
  int name_ = -1;       ///< that of the level's name in the panel
  bool boxed_ = false;  ///< the act has opened a box
  bool faulted_ = false;
  bool replaces_ = false;               ///< it may load another script, or make one
  std::map<std::string, bool> agreed_;  ///< whether lists showed what the model held before the act
  bool refused_ = false;
  bool broken_ = true;  ///< a load or a new script was broken off, and the model is in pieces
  std::optional<Fault> fault_;  ///< that came since the line
  std::string savePath_;
};

}  // namespace quillmark
