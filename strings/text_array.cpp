#include "strings/text_array.h"

#include <utility>

namespace quillmark {

void TextArray::Clear(std::string block) {
  block_ = std::move(block);
  zeros_.clear();
  endsInBlock_.clear();
  ends_.clear();
  ends_.reserve(places_);
}

void TextArray::CutBehindTheEnd(std::size_t length, std::size_t end) {
  if (end - length < block_.size()) {
    block_.resize(end);  // the one text that begins inside has to stand in one piece
    return;
  }
  if (zeros_.size() < length) zeros_.resize(length);
  if (endsInBlock_.empty()) endsInBlock_ = ends_;
  endsInBlock_.push_back(StartOf(ends_.size(), endsInBlock_));
}

std::string_view TextArray::TextAt(std::size_t place) const {
  const std::size_t size = StartOf(place + 1, ends_) - StartOf(place, ends_);
  const std::size_t start = StartOf(place, EndsInBlock());
  const bool isInBlock = StartOf(place + 1, EndsInBlock()) != start;
  return {isInBlock ? block_.data() + start : zeros_.data(), size};
}

void TextArray::Replace(std::size_t place, std::string_view text) {
  const auto move = [&](Positions& ends) {
    const std::size_t start = StartOf(place, ends);
    if (ends.size() <= place) ends.resize(place + 1, start);
    const std::size_t oldSize = ends[place] - start;
    for (std::size_t i = place; i < ends.size(); ++i) ends[i] = ends[i] - oldSize + text.size();
    return oldSize;
  };
  const std::size_t start = StartOf(place, EndsInBlock());
  const std::size_t oldSize = move(ends_);
  block_.replace(start, endsInBlock_.empty() ? oldSize : move(endsInBlock_), text);
}

std::string TextArray::Joined(std::size_t count) const {
  const std::size_t size = StartOf(count, ends_);
  if (StartOf(count, EndsInBlock()) == size) return block_.substr(0, size);
  std::string texts;
  texts.reserve(size);
  for (std::size_t place = 0; place < count; ++place) texts += TextAt(place);
  return texts;
}

}  // namespace quillmark
