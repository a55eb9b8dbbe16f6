#pragma once

namespace quillmark {

/// Each of these attaches the handlers of one form, and of the buttons of the main form that open
/// it.
void AttachExtensionsDialog();
void AttachGameChooser();
void AttachInventory();
void AttachLanguageEditor();
void AttachOldViewer();
void AttachOptionsDialog();
void AttachRawView();

}  // namespace quillmark
