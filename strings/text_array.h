#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/bounded_array.h"

namespace quillmark {

/// Texts whose bounds are set at run time, always from 0. They stand one behind the other in one
/// block of memory, as they do in a language file, so that thousands of them are read and written
/// as one. Texts that were cut where nothing but zeros is are views of one run of zeros, so that
/// damaged offsets cost no memory. Any index outside throws the subscript fault; before the first
/// `Redim` there is no text at all.
class TextArray {
 public:
  /// Sets the bounds to 0 to `highest`, with every text empty. Throws the subscript fault for a
  /// negative one.
  template <Index I>
  void Redim(I highest) {
    places_ = PlacesUpTo(highest);
    Clear({});
  }

  /// Empties every text, then cuts the first `count` of them off the front of `block`, one after
  /// the other: text i takes `lengthOf(i)` bytes, at least 0. Zeros without end stand behind the
  /// block. Throws the subscript fault for more texts than places. A fault leaves the texts in
  /// front of the one that it met.
  template <class LengthOf>
  void Cut(std::string block, int count, LengthOf lengthOf) {
    Clear(std::move(block));
    CheckedPosition(count, places_ + 1);
    std::size_t end = 0;
    for (int i = 0; i < count; ++i) {
      const auto length = static_cast<std::size_t>(lengthOf(i));
      end += length;
      if (end > block_.size()) CutBehindTheEnd(length, end);
      ends_.push_back(end);
    }
  }

  /// The text. It stays valid until the next change of any.
  template <Index I>
  std::string_view operator[](I index) const {
    return TextAt(CheckedPosition(index, places_));
  }

  template <Index I>
  void Set(I index, std::string_view text) {
    Replace(CheckedPosition(index, places_), text);
  }

  /// How many bytes the texts below `count` have. Throws the subscript fault if there are less.
  template <Index I>
  std::size_t SizeOfFirst(I count) const {
    return StartOf(CheckedPosition(count, places_ + 1), ends_);
  }

  /// The texts below `count`, one behind the other. Their zeros take memory here: ask for
  /// `SizeOfFirst` before. Throws the subscript fault if there are less.
  template <Index I>
  std::string JoinFirst(I count) const {
    return Joined(CheckedPosition(count, places_ + 1));
  }

  std::size_t size() const { return places_; }

 private:
  using Positions = std::vector<std::size_t>;

  void Clear(std::string block);
  /// Finds the bytes of a text of `length` bytes that ends at `end`, behind the block.
  void CutBehindTheEnd(std::size_t length, std::size_t end);
  std::string_view TextAt(std::size_t place) const;
  /// Where the text of that place begins, and the one in front of it ends.
  static std::size_t StartOf(std::size_t place, const Positions& ends) {
    const std::size_t ended = std::min(place, ends.size());
    return ended == 0 ? 0 : ends[ended - 1];
  }
  const Positions& EndsInBlock() const { return endsInBlock_.empty() ? ends_ : endsInBlock_; }
  void Replace(std::size_t place, std::string_view text);
  std::string Joined(std::size_t count) const;

  std::size_t places_ = 0;
  std::string block_;
  std::string zeros_;  ///< as many as the longest text that is not in the block
  /// Where the texts end, up to the last one that was cut or set; those behind it are empty.
  Positions ends_;
  /// The same in the block, from which whole texts of zeros are left out; empty if there are none.
  Positions endsInBlock_;
};

}  // namespace quillmark
