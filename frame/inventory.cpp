#include "frame/inventory.h"

#include "forms/dialog_forms.h"
#include "forms/editor_controls.h"
#include "frame/dialogs.h"
#include "platform/fault.h"
#include "platform/file_numbers.h"
#include "platform/files.h"
#include "platform/log.h"
#include "platform/number_text.h"

namespace quillmark {

FixedArray<Tr5Item, kTr5ItemPlaces> Tr5Items;

namespace {

constexpr int kItemsNumber = 1;
constexpr std::size_t kIdLength = 3;
constexpr std::size_t kNameStart = 4;

void TakeItem(const std::string& field, Tr5Item& item) {
  item.Id = DigitsAtStart(std::string_view(field).substr(0, kIdLength));
  if (field.size() < kNameStart) {
    throw Fault(FaultKind::InvalidArgument, "the item '" + field + "' is too short for a name",
                "'" + field + "'");
  }
  item.Name = field.substr(kNameStart);
}

}  // namespace

void LoadTr5Items() {
  LogWrite("Loading TR5 items external file");
  Files.CloseFiles();
  Files.OpenInput(kItemsNumber, ProgramPath("tr5items.h"));
  // Kept as it is: the place never moves on, so the last item of the file stands alone at 0.
  while (!Files.EndOfFile(kItemsNumber)) TakeItem(Files.ReadField(kItemsNumber), Tr5Items[0]);
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
