// frmTextBox: "New TextBox Control", the dialog for a new text box.
//
// Its save sequence is the one that does not begin with the name: Text goes
// first, always, even when empty (so the new box comes out empty whatever
// default text the IDE gave it), then MultiLine, then Name. A refused Name
// therefore leaves the text and the multi-line flag on the control under its
// old name. txtText is a single-line field whatever chkMulti says: the flag
// is for the new control, and Enter in the field presses Save.
//
// In Frame1 the tab order runs chkVisible before chkEnabled, the reverse of
// the other dialogs. No change of the name touches another field.
//
// txtIndex takes digits only, as in every other dialog: a letter in an index
// gains the user nothing, and the IDE would refuse it at save time anyway.
#pragma once

#include "dialogs/property_dialog.hpp"

namespace tessaly {

class frmTextBox : public PropertyDialog {
 public:
  explicit frmTextBox(forms::Runtime& runtime);
};

}  // namespace tessaly
