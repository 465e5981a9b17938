// frmListView: "New ListView Control", the dialog for a new list view.
//
// Opens centred on the screen. A new list view comes out in Report view
// unless the user picks another; MultiSelect is a Boolean here, from a check
// box, and goes before HideColumnHeaders.
#pragma once

#include "dialogs/property_dialog.hpp"

namespace tessaly {

class frmListView : public PropertyDialog {
 public:
  explicit frmListView(forms::Runtime& runtime);
};

}  // namespace tessaly
