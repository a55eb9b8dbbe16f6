#include "forms/string_forms.h"

namespace quillmark {

FrmForm2 Form2;
FrmFss fss;
FrmStrings frmStrings;

FrmForm2::FrmForm2()
    : Form("Form2", {.caption = "Modifica stringhe",
                     .width = 900,
                     .height = 560,
                     .modal = true,
                     .sizable = true}) {
  escapeGoal = &ListView1;
}

FrmFss::FrmFss()
    : Form("fss", {.width = 320, .height = 400, .escapeCloses = true, .sizable = true}) {}

FrmStrings::FrmStrings() : Form("frmStrings", {.width = 480, .height = 420}) {
  cancelButton = &Command3;
}

}  // namespace quillmark
