#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillmark {

/// What a subcommand was asked for.
struct Arguments {
  std::vector<std::string> positional;
  std::optional<std::uint8_t> game;
  std::optional<int> level;
  std::optional<std::string> output;
  std::optional<std::string> take;
  bool force = false;
  bool json = false;
};

/// Reads the words behind a subcommand's name. `options` are those that it knows, parted by
/// blanks; it takes exactly `count` others. Throws `Trouble` for wrong usage.
Arguments ReadArguments(const std::vector<std::string>& words, std::string_view options,
                        std::size_t count);

}  // namespace quillmark
