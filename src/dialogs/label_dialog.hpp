// frmLabel: "New Label Control", the dialog for a new label.
//
// A label's caption is plain text, so the name reaches the caption without an
// "&" in front. Beside the frame's writes the dialog asks for AutoSize and
// WordWrap (in that order, before the font) and for the alignment, which
// three option buttons offer: each holds in its Tag the number that Alignment
// takes (0 left, 1 right, 2 centre), so the value is read from the selected
// button's Tag at save time and written after the font as a 16-bit integer.
// A refused Alignment puts the focus on the selected button.
//
// The tab order is the dialog's own: Save follows the caption directly, and
// the frames and the labels of the name and caption come late.
#pragma once

#include "dialogs/property_dialog.hpp"

namespace tessaly {

class frmLabel : public PropertyDialog {
 public:
  explicit frmLabel(forms::Runtime& runtime);
};

}  // namespace tessaly
