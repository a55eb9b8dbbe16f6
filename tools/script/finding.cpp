#include "tools/script/finding.h"

#include <algorithm>

namespace quillmark {

std::string_view SeverityName(Severity severity) {
  switch (severity) {
    case Severity::Note:
      return "note";
    case Severity::Warning:
      return "warning";
    case Severity::Error:
      return "error";
  }
  return {};
}

std::string LevelPlace(int level, std::string_view member) {
  std::string place = "/Levels/" + std::to_string(level);
  return member.empty() ? place : place + '/' + std::string(member);
}

bool HasSeverity(const Findings& findings, Severity least) {
  return std::any_of(findings.begin(), findings.end(),
                     [least](const Finding& finding) { return finding.severity >= least; });
}

std::string FindingLine(const Finding& finding) {
  std::string line(SeverityName(finding.severity));
  line += ": ";
  if (!finding.place.empty()) line += finding.place + ": ";
  return line + finding.sentence + " [" + std::string(finding.id) + "]";
}

}  // namespace quillmark
