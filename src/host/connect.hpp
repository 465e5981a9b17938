// Connect: the add-in's one class, the instance an IDE makes when it loads the
// add-in.
//
// On connection it keeps the IDE object, puts "&Tessaly Options" into the
// "Add-Ins" menu, loads the settings and subscribes to the control events of
// the project active at that moment. A step that fails shows its description in
// a message box and leaves the add-in loaded with what it has. While connected
// it answers the menu entry with the options dialog, a new control with the
// dialog made for its class, a deleted control with Remove Code and a renamed
// one with Rename Code. Disconnection deletes the menu entry and nothing else.
//
// Connect also owns what lives as long as the component: the globals, the
// default-font keys read through them, and the shared options, remove-code and
// rename-code dialogs (each made on first use).
#pragma once

#include <memory>

#include "code/remove_control_dialog.hpp"
#include "code/rename_code_dialog.hpp"
#include "forms/runtime.hpp"
#include "ide/addin.hpp"
#include "ide/object_model.hpp"
#include "settings/globals.hpp"
#include "settings/options_dialog.hpp"

namespace tessaly {

inline constexpr const char16_t* kMenuCaption = u"&Tessaly Options";

class Connect : public ide::AddIn,
                private ide::CommandBarEventsSink,
                private ide::VBControlsEventsSink {
 public:
  explicit Connect(forms::Runtime& runtime);
  ~Connect() override;

  std::shared_ptr<ide::VBE> VBInstance;
  std::shared_ptr<ide::VBControlsEvents> CompHandler;
  std::shared_ptr<ide::CommandBarEvents> MenuHandler;
  // Adds an entry to the "Add-Ins" bar; null when there is no such bar or a
  // step fails. Ends in silence.
  std::shared_ptr<ide::CommandBarControl> AddToAddInCommandBar(const vb::Text& sCaption);

  // ide::AddIn. Reports its own failures; nothing leaves.
  void OnConnection(const ide::ObjectPtr& application, ide::ConnectMode mode,
                    const ide::ObjectPtr& addin_inst, std::vector<vb::Value>& custom) override;
  void OnDisconnection(ide::DisconnectMode mode, std::vector<vb::Value>& custom) override;

  const Globals& GetGlobals() const { return globals_; }

 private:
  void AddinInstance_OnConnection(const ide::ObjectPtr& application);
  void AddinInstance_OnDisconnection();
  // Failures pass to the IDE as the failure of the event.
  void MenuHandler_Click();
  void CompHandler_ItemAdded(const std::shared_ptr<ide::VBControl>& control);
  void CompHandler_ItemRemoved(const std::shared_ptr<ide::VBControl>& control);
  void CompHandler_ItemRenamed(const std::shared_ptr<ide::VBControl>& control,
                               const vb::Text& old_name);

  // ide::CommandBarEventsSink / ide::VBControlsEventsSink
  void Click(const std::shared_ptr<ide::CommandBarControl>& control, bool& handled,
             bool& cancel_default) override;
  void ItemAdded(const std::shared_ptr<ide::VBControl>& control) override;
  void ItemRemoved(const std::shared_ptr<ide::VBControl>& control) override;
  void ItemRenamed(const std::shared_ptr<ide::VBControl>& control, const vb::Text& old_name,
                   std::int32_t old_index) override;

  forms::Runtime& runtime_;
  std::shared_ptr<ide::CommandBarControl> MenuCommandBar;
  Globals globals_;
  std::unique_ptr<frmAddInOptions> options_dialog_;
  std::unique_ptr<frmRemoveControl> remove_dialog_;
  std::unique_ptr<frmRenameCode> rename_dialog_;
};

// The factory an IDE uses to make the add-in.
ide::AddInFactory MakeConnectFactory(forms::Runtime& runtime);

}  // namespace tessaly
