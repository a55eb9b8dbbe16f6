#include "strings/text_array.h"

#include <utility>

#include "platform/fault.h"

namespace quillmark {

void TextArray::ThrowTooManyZeros() {
  throw Fault(FaultKind::Overflow, "the strings reach too far behind the end of the file");
}

void TextArray::Clear(std::string block) {
  block_ = std::move(block);
  ends_.clear();
  ends_.reserve(places_);
}

void TextArray::Replace(std::size_t place, std::string_view text) {
  const std::size_t start = StartOf(place);
  if (ends_.size() <= place) ends_.resize(place + 1, start);
  const std::size_t oldSize = ends_[place] - start;
  block_.replace(start, oldSize, text);
  for (std::size_t i = place; i < ends_.size(); ++i) ends_[i] = ends_[i] - oldSize + text.size();
}

}  // namespace quillmark
