// frmFrame: "New Frame Control", the dialog for a new frame.
//
// The shortest of the caption dialogs: name, enablement, visibility, caption,
// font, index and tag. A frame has no Value, so none is written.
#pragma once

#include "dialogs/property_dialog.hpp"

namespace tessaly {

class frmFrame : public PropertyDialog {
 public:
  explicit frmFrame(forms::Runtime& runtime);
};

}  // namespace tessaly
