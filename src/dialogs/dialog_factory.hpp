// Makes the property dialog of a given kind: the dispatch table of the control
// events names dialogs by kind.
#pragma once

#include <memory>

#include "dialogs/property_dialog.hpp"

namespace tessaly {

enum class DialogKind {
  TextBox,
  CommandButton,
  CheckBox,
  Label,
  ListBox,
  ComboBox,
  ListView,
  OptionButton,
  Timer,
  Frame,
  TreeView,
  MaskedEdit,
  RichTextBox,
  SSTab,
  HScrollBar,
  VScrollBar,
  OtherControl,
};

std::unique_ptr<PropertyDialog> CreateDialog(DialogKind kind, forms::Runtime& runtime);

}  // namespace tessaly
