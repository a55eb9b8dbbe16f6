#pragma once

#include <string>
#include <string_view>

namespace quillmark {

/// What an act may bring about at most.
struct ActRule {
  std::string_view acts;    ///< expression for the driver's line, such as "click frmEditor.chkCol"
  std::string_view paths;   ///< expression for the places of the listing that may change
  std::string_view faults;  ///< expression for the names of the faults that may come
};

/// The rule for an act while row `level` is selected, "@" in its paths being that level's place in
/// the listing. An act without a rule may change nothing and fault in nothing.
ActRule RuleOf(const std::string& line);

}  // namespace quillmark
