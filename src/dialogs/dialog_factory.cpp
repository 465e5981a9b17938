#include "dialogs/dialog_factory.hpp"

#include "dialogs/checkbox_dialog.hpp"
#include "dialogs/combobox_dialog.hpp"
#include "dialogs/command_button_dialog.hpp"
#include "dialogs/frame_dialog.hpp"
#include "dialogs/label_dialog.hpp"
#include "dialogs/listbox_dialog.hpp"
#include "dialogs/listview_dialog.hpp"
#include "dialogs/masked_edit_dialog.hpp"
#include "dialogs/option_dialog.hpp"
#include "dialogs/other_control_dialog.hpp"
#include "dialogs/rich_textbox_dialog.hpp"
#include "dialogs/scroll_bar_dialogs.hpp"
#include "dialogs/sstab_dialog.hpp"
#include "dialogs/textbox_dialog.hpp"
#include "dialogs/timer_dialog.hpp"
#include "dialogs/treeview_dialog.hpp"

namespace tessaly {

std::unique_ptr<PropertyDialog> CreateDialog(DialogKind kind, forms::Runtime& runtime) {
  switch (kind) {
    case DialogKind::TextBox:
      return std::make_unique<frmTextBox>(runtime);
    case DialogKind::CommandButton:
      return std::make_unique<frmCommandButton>(runtime);
    case DialogKind::CheckBox:
      return std::make_unique<frmCheckBox>(runtime);
    case DialogKind::Label:
      return std::make_unique<frmLabel>(runtime);
    case DialogKind::ListBox:
      return std::make_unique<frmListBox>(runtime);
    case DialogKind::ComboBox:
      return std::make_unique<frmComboBox>(runtime);
    case DialogKind::ListView:
      return std::make_unique<frmListView>(runtime);
    case DialogKind::OptionButton:
      return std::make_unique<frmOption>(runtime);
    case DialogKind::Timer:
      return std::make_unique<frmTimer>(runtime);
    case DialogKind::Frame:
      return std::make_unique<frmFrame>(runtime);
    case DialogKind::TreeView:
      return std::make_unique<frmTreeView>(runtime);
    case DialogKind::MaskedEdit:
      return std::make_unique<frmMaskedEdit>(runtime);
    case DialogKind::RichTextBox:
      return std::make_unique<frmRichTextBox>(runtime);
    case DialogKind::SSTab:
      return std::make_unique<frmSSTab>(runtime);
    case DialogKind::HScrollBar:
      return std::make_unique<frmHScrollBar>(runtime);
    case DialogKind::VScrollBar:
      return std::make_unique<frmVScrollBar>(runtime);
    case DialogKind::OtherControl:
      return std::make_unique<frmOtherControl>(runtime);
  }
  return nullptr;
}

}  // namespace tessaly
