// frmHScrollBar and frmVScrollBar: "New Horizontal Scroll Bar" and "New
// Vertical Scroll Bar", the dialogs for new scroll bars.
//
// The two behave alike and share one table; they differ only in their texts.
// No font fields and no font stage. Min, Max, SmallChange and LargeChange go
// as 32-bit integers with no range test of the dialog's own: a text that does
// not convert ends the save without a message, a number that converts goes to
// the IDE, which may refuse it.
#pragma once

#include "dialogs/property_dialog.hpp"

namespace tessaly {

class frmHScrollBar : public PropertyDialog {
 public:
  explicit frmHScrollBar(forms::Runtime& runtime);
};

class frmVScrollBar : public PropertyDialog {
 public:
  explicit frmVScrollBar(forms::Runtime& runtime);
};

}  // namespace tessaly
