// frmListBox: "New ListBox Control", the dialog for a new list box.
//
// Two option groups, selection mode and style, each written from the Tag of
// its selected button; both are always written, MultiSelect first. The
// buttons have no routines of their own.
#pragma once

#include "dialogs/property_dialog.hpp"

namespace tessaly {

class frmListBox : public PropertyDialog {
 public:
  explicit frmListBox(forms::Runtime& runtime);
};

}  // namespace tessaly
