#pragma once

#include <string>
#include <string_view>

#include "controls/screen.h"
#include "forms/interface_texts.h"
#include "platform/fault.h"
#include "platform/safe_write.h"

namespace quillmark {

/// A fault whose cause a person is told by an entry of its own, instead of by its kind.
class ToldFault : public Fault {
 public:
  ToldFault(FaultKind kind, const std::string& text, Entry cause)
      : Fault(kind, text), cause_(cause) {}

  Entry cause() const { return cause_; }

 private:
  Entry cause_;
};

/// Text and buttons of the box that tells of `fault` in the interface's language: what could not be
/// done, why, and if `canGoOn` what its two buttons lead to. A table without these entries is
/// helped out by the English one.
Message TellFault(std::string_view operation, const Fault& fault, bool canGoOn);

/// The same for a content that could not be put in its place: which file it was meant for, and
/// where it is.
std::string TellKeptContent(const KeptContent& kept);

}  // namespace quillmark
