// frmComboBox: "New ComboBox Control", the dialog for a new combo box.
//
// The chosen style governs the text field: with Dropdown List the field and
// its label are disabled (the text is kept) and the save writes no Text.
#pragma once

#include "dialogs/property_dialog.hpp"

namespace tessaly {

class frmComboBox : public PropertyDialog {
 public:
  explicit frmComboBox(forms::Runtime& runtime);

 private:
  void optDDCombo_Click();
  void optSimple_Click();
  void optDDList_Click();
  // Enables or disables txtText and lblText together, in the order each
  // routine names them.
  void OfferText(bool offered);
};

}  // namespace tessaly
