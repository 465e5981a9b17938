// frmCheckBox: "New CheckBox Control", the dialog for a new check box.
#pragma once

#include "dialogs/property_dialog.hpp"

namespace tessaly {

class frmCheckBox : public PropertyDialog {
 public:
  explicit frmCheckBox(forms::Runtime& runtime);
};

}  // namespace tessaly
