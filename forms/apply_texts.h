#pragma once

namespace quillmark {

class Form;

/// Writes the interface texts that belong to `form` into it: captions, columns, tool tips. Forms
/// call it at their load.
void ApplyTexts(Form& form);

}  // namespace quillmark
