#pragma once

#include "core/script_model.h"

namespace quillmark {

/// Calls `use(count, entries)` with the group that holds the objects of `kind`, if that is a kind
/// at all. `Level` is a record that may be changed or not.
template <class Level, class Use>
void WithGroup(Level& level, ObjectKind kind, Use use) {
  switch (kind) {
    case ObjectKind::Puzzle:
      return use(level.PuzzleCount, level.Puzzles);
    case ObjectKind::Key:
      return use(level.KeyCount, level.Keys);
    case ObjectKind::Pickup:
      return use(level.PickupCount, level.Pickups);
    case ObjectKind::PuzzleCombo:
      return use(level.PuzzleComboCount, level.PuzzleCombos);
    case ObjectKind::KeyCombo:
      return use(level.KeyComboCount, level.KeyCombos);
    case ObjectKind::PickupCombo:
      return use(level.PickupComboCount, level.PickupCombos);
    case ObjectKind::Examine:
      return use(level.ExamineCount, level.Examines);
  }
}

/// Whether entries of this type have the second number of a combination.
template <class Entry>
inline constexpr bool kHasCombo = requires(Entry entry) {
  entry.Combo;
};

/// Makes the flat list of the level from its groups, in the order of the kinds. Throws the
/// subscript fault for more objects than the list has places.
void FlattenGroups(LevelRecord& level);

/// Makes the groups of the level from its flat list. Entries without a kind are passed over. Throws
/// the subscript fault for a group that is full.
void RebuildGroups(LevelRecord& level);

}  // namespace quillmark
