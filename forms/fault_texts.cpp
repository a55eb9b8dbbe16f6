#include "forms/fault_texts.h"

#include <algorithm>

#include "controls/control.h"
#include "controls/desktop.h"
#include "controls/form.h"
#include "platform/ansi.h"

namespace quillmark {
namespace {

std::string EnglishTextOf(Entry entry) {
  const auto found = std::find_if(std::begin(kEnglishTexts), std::end(kEnglishTexts),
                                  [=](const auto& text) { return text.first == entry; });
  return std::string(found->second);
}

std::string TextOrEnglish(Entry entry) {
  return TextOf(entry).empty() ? EnglishTextOf(entry) : TextOf(entry);
}

/// What a person did, as the screen names it. A button that only says OK stands for its dialog.
std::string NameOf(std::string_view operation) {
  for (const Entry entry : {Entry::StartOperation, Entry::CloseOperation, Entry::ResizeOperation}) {
    if (operation == EnglishTextOf(entry)) return TextOrEnglish(entry);
  }
  const auto& shown = TheDesktop().ShownForms();
  if (operation == Spoken(TextOf(Entry::Ok)) && !shown.empty() &&
      !shown.back()->Caption().empty()) {
    return shown.back()->Caption();
  }
  return std::string(operation);
}

Entry EntryOf(FaultKind kind) {
  switch (kind) {
    case FaultKind::Subscript:
      return Entry::FaultSubscript;
    case FaultKind::Overflow:
      return Entry::FaultOverflow;
    case FaultKind::Type:
      return Entry::FaultType;
    case FaultKind::InvalidValue:
      return Entry::FaultInvalidValue;
    case FaultKind::NoSelection:
      return Entry::FaultNoSelection;
    case FaultKind::File:
      return Entry::FaultFile;
    case FaultKind::Memory:
      return Entry::FaultMemory;
    case FaultKind::InvalidArgument:
    case FaultKind::Cancelled:
      return Entry::FaultInvalidArgument;
  }
  return Entry::FaultInvalidArgument;
}

std::string CauseOf(const Fault& fault) {
  if (const auto* told = dynamic_cast<const ToldFault*>(&fault)) {
    return TextOrEnglish(told->cause());
  }
  std::string cause = TextOrEnglish(EntryOf(fault.kind()));
  if (fault.kind() == FaultKind::NoSelection || fault.kind() == FaultKind::Memory) return cause;
  if (fault.about().empty()) return cause + fault.what();
  return cause + (fault.kind() == FaultKind::File ? Utf8ToAnsi(fault.about()) : fault.about());
}

}  // namespace

Message TellFault(std::string_view operation, const Fault& fault, bool canGoOn) {
  Message box;
  box.text =
      "\"" + NameOf(operation) + TextOrEnglish(Entry::FaultNotDone) + "\n\n" + CauseOf(fault);
  if (canGoOn) {
    box.text += "\n\n" + TextOrEnglish(Entry::ContinueHint) + "\n" + TextOrEnglish(Entry::EndHint);
  }
  box.captions = {{BoxButton::Continue, TextOrEnglish(Entry::ContinueButton)},
                  {BoxButton::End, TextOrEnglish(Entry::EndButton)}};
  return box;
}

std::string TellKeptContent(const KeptContent& kept) {
  return TextOrEnglish(Entry::FileNotWhole) + "\n" + Utf8ToAnsi(kept.path) + "\n\n" +
         TextOrEnglish(Entry::ContentKeptAt) + "\n" + Utf8ToAnsi(kept.keptAt);
}

}  // namespace quillmark
