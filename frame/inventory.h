#pragma once

#include <string>

#include "platform/bounded_array.h"
#include "platform/checked_integer.h"

namespace quillmark {

struct Tr5Item {
  Int16 Id;
  std::string Name;
};

inline constexpr int kTr5ItemPlaces = 513;

/// The item names of TR5. Nothing in the program uses them yet.
extern FixedArray<Tr5Item, kTr5ItemPlaces> Tr5Items;

/// Reads `tr5items.h` of the program's folder: fields of three characters for the number, one
/// character between, and the name. Throws the file fault if there is no such file and the invalid
/// argument fault for a field of fewer than four characters.
void LoadTr5Items();

}  // namespace quillmark
