#include "host/connect.hpp"

namespace tessaly {

Connect::Connect(forms::Runtime& runtime) : runtime_(runtime) {}

Connect::~Connect() {
  if (MenuHandler) MenuHandler->Unadvise(this);
  if (CompHandler) CompHandler->Unadvise(this);
}

ide::AddInFactory MakeConnectFactory(forms::Runtime& runtime) {
  return [&runtime] { return std::make_unique<Connect>(runtime); };
}

void Connect::OnConnection(const ide::ObjectPtr& application, ide::ConnectMode /*mode*/,
                           const ide::ObjectPtr& /*addin_inst*/,
                           std::vector<vb::Value>& /*custom*/) {
  // The mode and the custom arguments change nothing: every way of being
  // loaded runs the same steps.
  AddinInstance_OnConnection(application);
}

void Connect::OnDisconnection(ide::DisconnectMode /*mode*/, std::vector<vb::Value>& /*custom*/) {
  AddinInstance_OnDisconnection();
}

void Connect::AddinInstance_OnConnection(const ide::ObjectPtr& application) {
  try {
    VBInstance = std::dynamic_pointer_cast<ide::VBE>(application);
    if (!VBInstance) throw vb::Failure::Of(vb::kTypeMismatch);
    MenuCommandBar = AddToAddInCommandBar(kMenuCaption);
    MenuHandler = VBInstance->Events()->CommandBarEvents(MenuCommandBar);
    MenuHandler->Advise(this);
    LoadSettings(globals_, runtime_);
    // The project active now, passed on as it comes; never renewed.
    CompHandler = VBInstance->Events()->VBControlsEvents(VBInstance->ActiveVBProject(), nullptr);
    CompHandler->Advise(this);
  } catch (const vb::Failure& failure) {
    // The add-in stays loaded with what it has.
    runtime_.MsgBox(failure.Description(), forms::vbOKOnly);
  }
}

std::shared_ptr<ide::CommandBarControl> Connect::AddToAddInCommandBar(const vb::Text& sCaption) {
  try {
    auto bar = VBInstance->CommandBars()->Item(u"Add-Ins");
    if (!bar) return nullptr;
    auto control = bar->Controls()->Add(1);
    if (!control) return nullptr;
    control->SetCaption(sCaption);
    return control;
  } catch (const vb::Failure&) {
    // Silent: an entry already added stays on the bar.
    return nullptr;
  }
}

void Connect::AddinInstance_OnDisconnection() {
  try {
    if (MenuCommandBar) MenuCommandBar->Delete();
  } catch (const vb::Failure&) {
    // Every failure of disconnection is ignored.
  }
}

void Connect::Click(const std::shared_ptr<ide::CommandBarControl>& /*control*/, bool& /*handled*/,
                    bool& /*cancel_default*/) {
  MenuHandler_Click();
}

void Connect::MenuHandler_Click() {
  if (!options_dialog_) options_dialog_ = std::make_unique<frmAddInOptions>(runtime_, globals_);
  options_dialog_->Show(1);
}

}  // namespace tessaly
