#include "dialogs/dialog_factory.hpp"

#include "dialogs/checkbox_dialog.hpp"

namespace tessaly {

std::unique_ptr<PropertyDialog> CreateDialog(DialogKind kind, forms::Runtime& runtime) {
  switch (kind) {
    case DialogKind::CheckBox:
      return std::make_unique<frmCheckBox>(runtime);
    default:
      return nullptr;
  }
}

}  // namespace tessaly
