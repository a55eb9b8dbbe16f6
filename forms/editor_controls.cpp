#include "forms/editor_controls.h"

namespace quillmark {

FrmEditor frmEditor;

FrmEditor::FrmEditor()
    : Form("frmEditor", {.width = 1340, .height = 700, .sizable = true, .minimisable = true}) {
  lstFileNames.doubleClickButton = &Command16;
}

std::vector<std::string> FrmEditor::Numbers(int first, int last) {
  std::vector<std::string> rows;
  for (int number = first; number <= last; ++number) rows.push_back(std::to_string(number));
  return rows;
}

}  // namespace quillmark
