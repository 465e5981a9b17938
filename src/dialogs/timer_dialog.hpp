// frmTimer: "New Timer Control", the dialog for a new timer.
//
// The smallest dialog: no font fields and no font stage, no Visible write.
// The interval goes as a 16-bit integer converted before the write, so a text
// that does not fit (empty, above 32767) ends the save without a message.
#pragma once

#include "dialogs/property_dialog.hpp"

namespace tessaly {

class frmTimer : public PropertyDialog {
 public:
  explicit frmTimer(forms::Runtime& runtime);
};

}  // namespace tessaly
