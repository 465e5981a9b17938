// frmMaskedEdit: "New Masked Edit Control", the dialog for a new masked edit
// box.
//
// Neither the mask nor the prompt character is examined: what stands in the
// field goes to the control as text, also when empty. AllowPrompt and
// CausesValidation are written on every save.
#pragma once

#include "dialogs/property_dialog.hpp"

namespace tessaly {

class frmMaskedEdit : public PropertyDialog {
 public:
  explicit frmMaskedEdit(forms::Runtime& runtime);
};

}  // namespace tessaly
