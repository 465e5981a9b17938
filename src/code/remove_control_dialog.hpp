// frmRemoveControl: "Remove Code for Control". Lists the members of the form's
// code that belong to a deleted control, all checked, and deletes the checked
// ones from the module when the developer presses OK.
//
// The dialog opens centred on the screen with an empty list; Form_Activate
// fills it from the module's members in their order (a form without a module
// lists nothing). OK looks each checked member up afresh -- earlier deletions
// move the later members -- and deletes the lines that code_edits.hpp plans
// for it: normally its declaration line through its "End Sub"; for a member
// with no "End Sub" of its own (a Function, a Property, a one-line procedure,
// a variable, constant or Declare, a Sub with a tab-indented end) exactly its
// own text and never another member's; nothing when its end cannot be found,
// when it is gone, or when its line declares another member too. Nothing else
// in the module changes. There is no Cancel: the close box leaves the code as
// it is. No message boxes: failures of the IDE's objects pass to the caller,
// and members deleted before a failure stay deleted.
#pragma once

#include <memory>

#include "code/control_members.hpp"
#include "forms/form.hpp"
#include "ide/object_model.hpp"

namespace tessaly {

class frmRemoveControl : public forms::Form {
 public:
  explicit frmRemoveControl(forms::Runtime& runtime);

  // The deleted control; set before the dialog is shown.
  std::shared_ptr<ide::VBControl> objControl;

 protected:
  void Form_Activate() override;

 private:
  void cmdOK_Click();
};

// The code module of the form that holds `control`: its collection's parent
// designer, that designer's component, the component's module (null when the
// form has none). A missing object along the way fails with "Object variable
// or With block variable not set" (91); failures of the IDE's objects pass to
// the caller.
std::shared_ptr<ide::CodeModule> FindCodeModule(ide::VBControl& control);

// BelongsToControl (whether a member's name is the control's name, an
// underscore, then anything) is declared in code/control_members.hpp.

}  // namespace tessaly
