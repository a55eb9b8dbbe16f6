#include "frame/inventory.h"

#include "forms/dialog_forms.h"
#include "forms/editor_controls.h"
#include "frame/dialogs.h"
#include "platform/fault.h"
#include "platform/file_numbers.h"
#include "platform/files.h"
#include "platform/log.h"

namespace quillmark {

FixedArray<Tr5Item, kTr5ItemPlaces> Tr5Items;

namespace {

constexpr int kNumber = 1;
constexpr std::size_t kIdLength = 3;
constexpr std::size_t kNameStart = 4;

/// The number that `text` begins with, 0 if it begins with no digit.
int LeadingNumber(std::string_view text) {
  int number = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') break;
    number = number * 10 + (c - '0');
  }
  return number;
}

void TakeItem(const std::string& field, Tr5Item& item) {
  item.Id = LeadingNumber(std::string_view(field).substr(0, kIdLength));
  if (field.size() < kNameStart) {
    throw Fault(FaultKind::InvalidArgument, "the item '" + field + "' is too short for a name");
  }
  item.Name = field.substr(kNameStart);
}

}  // namespace

void LoadTr5Items() {
  LogWrite("Loading TR5 items external file");
  Files.CloseFiles();
  Files.OpenInput(kNumber, ProgramPath("tr5items.h"));
  // Kept as it is: the place never moves on, so the last item of the file stands alone at 0.
  while (!Files.EndOfFile(kNumber)) TakeItem(Files.ReadField(kNumber), Tr5Items[0]);
  Files.CloseFiles();
}

void AttachInventory() {
  frmInventory.onLoad = [] {
    CenterForm(frmInventory);
    LoadTr5Items();
  };
  frmEditor.Command30.onPress = [] { frmInventory.ShowModal(); };
}

}  // namespace quillmark
