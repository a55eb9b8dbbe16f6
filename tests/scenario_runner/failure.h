#pragma once

#include <stdexcept>
#include <string>

namespace quillmark {

/// Why a scenario failed, without its place.
struct Failure : std::runtime_error {
  using std::runtime_error::runtime_error;
};

}  // namespace quillmark
