#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace quillmark {

/// Why a scenario failed, without its place.
using Failure = std::runtime_error;

/// Compares the lines of an answer, its prompt the last, with what a scenario expects of them, line
/// by line; throws `Failure` at the first difference. A line of the expectation is
///
///     text                 that line
///     [...]                that JSON array
///     {"text": "255"}      a JSON object that has at least these members
///     /pointer VALUE       a place in the object of the line above, or else of the next line
///
/// A `ready` at the end may be left out.
void CheckAnswer(const std::vector<std::string>& expected, const std::vector<std::string>& answer);

}  // namespace quillmark
