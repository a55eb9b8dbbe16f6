#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tools/json_text.h"
#include "tools/script/finding.h"
#include "tools/script/script_fields.h"

namespace quillmark {

/// What a member that shows a reference's text said, to be looked at when all texts are known.
struct Comment {
  std::string place;  ///< of the reference
  Meaning meaning;
  std::int64_t number;
  Json text;
};

/// The member, or null if there is none. The object may be any value.
const Json* Member(const Json& object, std::string_view name);

/// Calls `use(i, entry, placeOfEntry)` for each entry of the list that stands at `place`.
template <class Use>
void ForEachEntry(const Json& list, const std::string& place, Use use) {
  for (std::size_t i = 0; i < list.size(); ++i) use(i, list[i], place + '/' + std::to_string(i));
}

/// What all that read a part of the JSON form share: the findings, the places of errors, and how a
/// member, a list, a number and a text are read. `place` is always the JSON pointer to the value
/// that is read; what is wrong with it becomes an error there, and nothing here throws.
class JsonReader {
 public:
  using Names = std::set<std::string, std::less<>>;

  /// Whatever is found goes to `findings`, which has to outlive it.
  explicit JsonReader(Findings& findings) : findings_(findings) {}

  /// The game whose members the text may have; `kAnyGame` until it is set.
  std::uint8_t Game() const { return game_; }
  void SetGame(std::uint8_t game) { game_ = game; }

  // What is found.

  /// Drops it if there are far too many, and says so once.
  void Add(Finding finding);
  /// Adds an error and marks its place.
  void Error(std::string_view id, const std::string& place, const std::string& sentence);

  /// What follows from an error at that place is not to be told.
  void MarkFailed(const std::string& place) { failed_.insert(place); }
  /// The same for all members of the record at that place.
  void MarkMembersFailed(const std::string& record) { lost_.insert(record); }
  bool HasFailed(const std::string& place) const;
  /// Whether any of these members of the record failed.
  bool HasFailed(const std::string& record, std::initializer_list<const char*> members) const;
  /// Whether anything failed at that place or below it.
  bool HasFailedWithin(const std::string& place) const;

  void KeepComment(Comment comment) { comments_.push_back(std::move(comment)); }
  const std::vector<Comment>& Comments() const { return comments_; }

  // Members and lists. What is no list is read as an empty one.

  /// Makes an error of each member of the object that is not among `known`.
  void RefuseOthers(const Json& object, const std::string& place, const Names& known);

  /// A list that should have `count` entries, which are `what`; it may have more or less.
  const Json& ListOfExactly(std::size_t count, const char* what, const Json& json,
                            const std::string& place);
  /// A list, if there is one (`member` may be null), that should have at most `most` entries; it
  /// may have more.
  const Json& ListOf(const Json* member, const std::string& place, std::size_t most);

  // Numbers and texts.

  /// A whole number in that range; nothing if it is none.
  std::optional<std::int64_t> ReadNumber(const Json& json, const std::string& place,
                                         std::int64_t lowest, std::int64_t highest);
  /// The index of the word among `words`; nothing if it is none of them.
  std::optional<std::size_t> ReadWord(const Json& json, const std::string& place,
                                      std::span<const std::string_view> words);
  /// `kOn` for true; `kOff` for everything else.
  std::int64_t ReadOnOff(const Json& json, const std::string& place);
  /// The bytes of a string or a name, with its last zero if it has one; none if they can't be read.
  std::string ReadEntryText(const Json& json, const std::string& place);

 private:
  std::uint8_t game_ = kAnyGame;
  Findings& findings_;
  std::vector<Comment> comments_;
  Names failed_;  ///< places of errors
  Names lost_;    ///< places of records without members
};

}  // namespace quillmark
