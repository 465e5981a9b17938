// frmRichTextBox: "New Rich Text Box Control", the dialog for a new rich text
// box.
//
// The scroll bars are an option group whose clicks store the chosen index in
// intScrollBars; the save writes that member, never what the buttons show.
// A refused ScrollBars puts the focus on optSB(0), whichever is selected.
// Index goes as a 16-bit integer, so a number beyond it ends the save without
// a message.
#pragma once

#include "dialogs/property_dialog.hpp"

namespace tessaly {

class frmRichTextBox : public PropertyDialog {
 public:
  explicit frmRichTextBox(forms::Runtime& runtime);

 protected:
  // intScrollBars starts at 3, the button that starts selected.
  void Presets() override;

 private:
  void optSB_Click(vb::Integer Index);
  // The save sequence's source of ScrollBars.
  friend vb::Value RichTextBoxScrollBars(const PropertyDialog& dialog);

  // The index of the clicked scroll-bar option, also the ScrollBars value.
  vb::Integer intScrollBars = 0;
};

}  // namespace tessaly
