// frmAddInOptions: the dialog behind the add-in's menu entry. The developer
// chooses the control types to prompt for, turns code removal and renaming on
// or off, and sets the default font.
//
// The list is saved by OK only; the two check boxes and the font are stored
// the moment they change, so closing the dialog any other way keeps them but
// loses changes to the list. If the control names were never loaded (the
// settings failed to load at connection), the list comes up empty, the check
// boxes are not set from flags that were never read (so opening the dialog
// stores nothing), and OK stores nothing: there is no row whose flag is known.
#pragma once

#include "forms/form.hpp"
#include "settings/globals.hpp"

namespace tessaly {

class frmAddInOptions : public forms::Form {
 public:
  frmAddInOptions(forms::Runtime& runtime, Globals& globals);

 protected:
  void Form_Load() override;

 private:
  void cmdOK_Click();
  void cmdPromtAll_Click();
  void cmdPromptNone_Click();
  void chkRemove_Click();
  void chkRename_Click();
  void cmdFont_Click();
  void SelectAll(bool selected);

  Globals& globals_;
};

}  // namespace tessaly
