#include "tools/script/finding.h"

#include <algorithm>

#include "tools/script/text_form.h"

namespace quillmark {
namespace {

/// What a file says must not steer the terminal.
std::string WithoutControls(std::string_view text) {
  std::string plain;
  for (const char c : text) {
    const bool control = static_cast<unsigned char>(c) < ' ' || c == '\x7F';
    plain += control ? EscapedText(std::string_view(&c, 1)) : std::string(1, c);
  }
  return plain;
}

}  // namespace

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

std::string MemberPlace(const std::string& place, std::string_view member) {
  std::string pointer = place + '/';
  for (const char c : member) {
    if (c == '~' || c == '/') {
      pointer += c == '~' ? "~0" : "~1";
    } else {
      pointer += c;
    }
  }
  return pointer;
}

bool HasSeverity(const Findings& findings, Severity least) {
  return std::any_of(findings.begin(), findings.end(),
                     [least](const Finding& finding) { return finding.severity >= least; });
}

std::string FindingLine(const Finding& finding) {
  std::string line(SeverityName(finding.severity));
  line += ": ";
  if (!finding.place.empty()) line += finding.place + ": ";
  line += finding.sentence + " [" + std::string(finding.id) + "]";
  return WithoutControls(line);
}

}  // namespace quillmark
