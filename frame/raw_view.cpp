#include <string>
#include <string_view>

#include "core/script_dat.h"
#include "forms/apply_texts.h"
#include "forms/dialog_forms.h"
#include "forms/editor_controls.h"
#include "frame/dialogs.h"
#include "platform/file_numbers.h"

namespace quillmark {
namespace {

constexpr int kViewedNumber = 1;
constexpr int kRowBytes = 16;

/// The next 16 bytes as one row, with zeros behind the end of the file.
std::string NextRow() {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string row;
  for (int i = 0; i < kRowBytes; ++i) {
    if (i > 0) row += i == kRowBytes / 2 ? "    " : " ";
    const unsigned byte = Files.ReadByte(kViewedNumber).value();
    row += kDigits[byte >> 4U];
    row += kDigits[byte & 0xFU];
  }
  return row;
}

void ShowRawBytes() {
  raw.Load();
  raw.l.Clear();
  BuildLevel(frmEditor.lstLevels.Row());
  Files.OpenBinary(kViewedNumber, BuiltStreamPath());
  // Kept as it is: only a failed read tells of the end, so a stream of whole rows gets one row of
  // zeros behind it.
  while (!Files.EndOfFile(kViewedNumber)) raw.l.AddRow(NextRow());
  Files.CloseFiles();
  raw.ShowModal();
}

}  // namespace

void AttachRawView() {
  raw.onLoad = [] {
    CenterForm(raw);
    ApplyTexts(raw);
  };
  raw.Command1.onPress = [] { raw.Unload(); };
  frmEditor.Command29.onPress = ShowRawBytes;
}

}  // namespace quillmark
