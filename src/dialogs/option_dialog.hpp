// frmOption: "New OptionButton Control", the dialog for a new option button.
//
// It asks what the check box dialog asks and writes in the same order; the
// difference is the kind of Value: an option button's Value is a Boolean, so
// the check box chkChecked goes out as True (-1) or False (0), never as the
// 0 or 1 it holds.
#pragma once

#include "dialogs/property_dialog.hpp"

namespace tessaly {

class frmOption : public PropertyDialog {
 public:
  explicit frmOption(forms::Runtime& runtime);
};

}  // namespace tessaly
