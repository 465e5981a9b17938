// The control events: a new control gets the dialog of its class, a deleted
// one may get Remove Code, a renamed one Rename Code.
#include "code/control_members.hpp"
#include "dialogs/dialog_factory.hpp"
#include "host/connect.hpp"
#include "host/dispatch_table.hpp"

namespace tessaly {

void Connect::ItemAdded(const std::shared_ptr<ide::VBControl>& control) {
  CompHandler_ItemAdded(control);
}

void Connect::ItemRemoved(const std::shared_ptr<ide::VBControl>& control) {
  CompHandler_ItemRemoved(control);
}

void Connect::ItemRenamed(const std::shared_ptr<ide::VBControl>& control, const vb::Text& old_name,
                          std::int32_t /*old_index*/) {
  CompHandler_ItemRenamed(control, old_name);
}

void Connect::CompHandler_ItemAdded(const std::shared_ptr<ide::VBControl>& control) {
  const vb::Text class_name = control->ClassName();
  const DispatchRow& row = FindDispatchRow(class_name);
  if (!vb::IsTrue(globals_.UseCtl[row.index])) return;
  auto dialog = CreateDialog(row.dialog, runtime_);
  dialog->objControl = control;
  dialog->VBInstance = VBInstance;
  dialog->Show(1);
  // The dialog is released here, whatever the user did.
}

void Connect::CompHandler_ItemRemoved(const std::shared_ptr<ide::VBControl>& control) {
  if (!vb::IsTrue(globals_.RemoveCode)) return;
  auto module = FindCodeModule(*control);
  if (!module) throw vb::Failure::Of(vb::kObjectNotSet);
  const vb::Text name = ControlName(*control);
  if (!HasMemberOfControl(*module->Members(), name)) return;
  if (!remove_dialog_) remove_dialog_ = std::make_unique<frmRemoveControl>(runtime_);
  remove_dialog_->objControl = control;
  remove_dialog_->Show(1);
}

void Connect::CompHandler_ItemRenamed(const std::shared_ptr<ide::VBControl>& control,
                                      const vb::Text& old_name) {
  if (!vb::IsTrue(globals_.RenameCode)) return;
  auto module = FindCodeModule(*control);
  if (!module) return;
  try {
    if (!CodeMentions(*module, old_name)) return;
    if (!rename_dialog_) rename_dialog_ = std::make_unique<frmRenameCode>(runtime_);
    rename_dialog_->objCode = module;
    rename_dialog_->OldName = old_name;
    rename_dialog_->NewName = ControlName(*control);
    rename_dialog_->Show(1);
  } catch (const vb::Failure&) {
    // From here on a failure ends the event in silence.
  }
}

}  // namespace tessaly
