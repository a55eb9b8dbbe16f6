#include "core/object_groups.h"

namespace quillmark {
namespace {

template <class To, class From>
void CopyEntry(To& to, const From& from) {
  to.Id = from.Id;
  to.StringId = from.StringId;
  to.Params = from.Params;
  if constexpr (kHasCombo<To> && kHasCombo<From>) to.Combo = from.Combo;
}

template <class Use>
void WithEachGroup(LevelRecord& level, Use use) {
  for (int kind = 0; kind < kObjectKindCount; ++kind) {
    WithGroup(level, static_cast<ObjectKind>(kind),
              [&](Byte& count, auto& entries) { use(kind, count, entries); });
  }
}

}  // namespace

void FlattenGroups(LevelRecord& level) {
  level.ObjectCount = 0;
  WithEachGroup(level, [&](int kind, Byte& count, auto& entries) {
    for (int i = 0; i < count; ++i) {
      LevelObject& object = level.Objects[level.ObjectCount];
      object.Kind = kind;
      CopyEntry(object, entries[i]);
      ++level.ObjectCount;
    }
  });
}

void RebuildGroups(LevelRecord& level) {
  WithEachGroup(level, [](int, Byte& count, auto&) { count = 0; });
  for (int i = 0; i < level.ObjectCount; ++i) {
    const LevelObject& object = level.Objects[i];
    WithGroup(level, static_cast<ObjectKind>(object.Kind.value()), [&](Byte& count, auto& entries) {
      CopyEntry(entries[count], object);
      ++count;
    });
  }
}

}  // namespace quillmark
