#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

enum class Severity { Note, Warning, Error };

/// Something that is worth knowing about a script, or about a text that is to become one.
struct Finding {
  std::string_view id;  ///< stays the same in later versions
  Severity severity;
  std::string place;     ///< a JSON pointer into the exported form, "" for the whole
  std::string sentence;  ///< in UTF-8
};
using Findings = std::vector<Finding>;

std::string_view SeverityName(Severity severity);

/// The pointer to a level, and to a member of it if one is named.
std::string LevelPlace(int level, std::string_view member = {});

/// The pointer to a member of what `place` points to, of any name.
std::string MemberPlace(const std::string& place, std::string_view member);

/// Whether any is as severe as that or worse.
bool HasSeverity(const Findings& findings, Severity least);

/// One line for a person, without a line end and with other control characters escaped.
std::string FindingLine(const Finding& finding);

}  // namespace quillmark
