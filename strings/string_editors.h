#pragma once

#include <functional>

namespace quillmark {

/// What the string editors want of the panel of the selected level.
struct LevelPanel {
  std::function<void()> refresh;        ///< shows the selected level anew
  std::function<int()> selectedString;  ///< the string of the object that is selected
};

/// Each of these attaches the handlers of one form, and of the buttons of the main form that open
/// it.
void AttachStringTable(const LevelPanel& panel);   ///< `Form2`
void AttachStringSearch(const LevelPanel& panel);  ///< `fss`
void AttachOldStringEditor();                      ///< `frmStrings`, which no button opens

}  // namespace quillmark
