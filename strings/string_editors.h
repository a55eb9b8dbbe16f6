#pragma once

namespace quillmark {

/// Each of these attaches the handlers of one form, and of the buttons of the main form that open
/// it.
void AttachStringTable();      ///< `Form2`
void AttachStringSearch();     ///< `fss`
void AttachOldStringEditor();  ///< `frmStrings`, which no button opens

}  // namespace quillmark
