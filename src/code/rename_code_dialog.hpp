// frmRenameCode: "Rename Code for Control". Offers to replace a renamed
// control's old name by its new one throughout the code module of its form.
//
// Replace reads the whole module, replaces every occurrence of the old name
// (plain and case-sensitive: inside longer words, comments and strings too,
// as the developer is warned by the question itself), clears the module and
// adds the new text (see RenameInModule in code_edits.hpp). Should adding the
// new text fail once the module is cleared, the original text is put back and
// a message box ("Rename Code for Control", exclamation icon) tells the user
// "The code could not be renamed: <description>. The code was left as it
// was." -- no code is ever lost. Other failures pass to the caller. Replace
// and Cancel both close the dialog (Hide, then Unload).
#pragma once

#include <memory>

#include "forms/form.hpp"
#include "ide/object_model.hpp"

namespace tessaly {

class frmRenameCode : public forms::Form {
 public:
  explicit frmRenameCode(forms::Runtime& runtime);

  // Set before the dialog is shown, in this order.
  std::shared_ptr<ide::CodeModule> objCode;
  vb::Text OldName;
  vb::Text NewName;

 protected:
  void Form_Activate() override;

 private:
  void cmdReplace_Click();
  void cmdCancel_Click();
};

}  // namespace tessaly
