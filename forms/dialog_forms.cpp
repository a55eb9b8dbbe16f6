#include "forms/dialog_forms.h"

namespace quillmark {

FrmForm1 Form1;
FrmOptions frmOptions;
FrmEx frmEx;
FrmSelScript frmSelScript;
FrmLangEditor frmLangEditor;
FrmRaw raw;
FrmOldPrototipe OldPrototipe;
FrmInventory frmInventory;

FrmForm1::FrmForm1() : Form("Form1", {.width = 640, .height = 512, .framed = false}) {}

FrmOptions::FrmOptions()
    : Form("frmOptions",
           {.caption = "Impostazioni principali", .width = 380, .height = 330, .modal = true}) {
  defaultButton = &Command2;
  cancelButton = &Command1;
}

FrmEx::FrmEx()
    : Form("frmEx", {.caption = "Estensioni", .width = 320, .height = 170, .modal = true}) {
  defaultButton = &Command1;
  cancelButton = &Command2;
}

std::vector<Design> FrmEx::InBothFrames(const char* caption) {
  return {{.frame = &Frame1[0], .caption = caption}, {.frame = &Frame1[1], .caption = caption}};
}

FrmSelScript::FrmSelScript() : Form("frmSelScript", {.width = 220, .height = 104, .modal = true}) {
  defaultButton = &Command1;
}

FrmLangEditor::FrmLangEditor()
    : Form("frmLangEditor", {.caption = "Editor di lingue",
                             .width = 620,
                             .height = 520,
                             .modal = true,
                             .sizable = true}) {
  cancelButton = &Command3;
}

FrmRaw::FrmRaw()
    : Form("raw", {.caption = "RAW script data",
                   .width = 480,
                   .height = 420,
                   .modal = true,
                   .sizable = true}) {
  defaultButton = &Command1;
  cancelButton = &Command1;
}

FrmOldPrototipe::FrmOldPrototipe()
    : Form("OldPrototipe", {.caption = "QuillDraft 0.2 ALPHA by Dorvane",
                            .width = 820,
                            .height = 520,
                            .modal = true}) {}

FrmInventory::FrmInventory()
    : Form("frmInventory",
           {.caption = "frmInventory", .width = 420, .height = 320, .modal = true}) {}

}  // namespace quillmark
