// frmTreeView: "New TreeView Control", the dialog for a new tree view.
//
// The line style comes from the control array optLineStyle, whose two
// elements carry no Tag: the value written is the element's place (0 tree
// lines, 1 root lines). Sorted starts off and HideSelection on;
// FullRowSelect goes before HideSelection.
#pragma once

#include "dialogs/property_dialog.hpp"

namespace tessaly {

class frmTreeView : public PropertyDialog {
 public:
  explicit frmTreeView(forms::Runtime& runtime);
};

}  // namespace tessaly
