#include "controls/screen.h"

#include "controls/form.h"

namespace quillmark {

std::pair<int, int> Screen::NaturalSize(const Form& form) {
  return {form.StartState().width, form.StartState().height};
}

}  // namespace quillmark
