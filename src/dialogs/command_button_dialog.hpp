// frmCommandButton: "New CommandButton Control", the dialog for a new command
// button.
//
// Beside the caption it asks whether the button is the form's default and
// its cancel button. Both are always written, Default before Cancel, and the
// dialog does not relate them: both may be True together, and the IDE decides
// what that means for the other buttons of the form. No Value is written.
#pragma once

#include "dialogs/property_dialog.hpp"

namespace tessaly {

class frmCommandButton : public PropertyDialog {
 public:
  explicit frmCommandButton(forms::Runtime& runtime);
};

}  // namespace tessaly
