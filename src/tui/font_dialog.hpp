// The terminal's font service: a small form with a family text box that
// takes any name and the list of families beside it (choosing a row fills
// the box), a size field and the four style toggles.
//
// The dialog is an ordinary form of the forms runtime, so the terminal shows
// it and takes its keys as it does for the add-in's dialogs. Enter presses
// OK, Esc presses Cancel. OK with a size that is no number from 1 to 2048
// says so in a message box and keeps the dialog open. OK chooses the family
// the box says: the given one until the user types or picks another, even
// when the system lacks it.
#pragma once

#include <vector>

#include "forms/font_catalog.hpp"
#include "forms/form.hpp"
#include "forms/frontend.hpp"

namespace tui {

class FontDialog : public forms::Form {
 public:
  // `runtime` shows the dialog; `fonts` gives the families the list offers
  // and which system family shows a family the system lacks.
  FontDialog(forms::Runtime& runtime, forms::FontCatalog& fonts, const forms::FontChoice& given);
  // Whether the user closed the dialog with OK.
  bool Chosen() const { return chosen_; }
  // The font as the dialog shows it now.
  forms::FontChoice Choice() const;

 protected:
  void Form_Load() override;

 private:
  void cmdOK_Click();
  void ShowDisplayFamily();
  forms::FontCatalog* fonts_;
  forms::FontChoice given_;
  bool chosen_ = false;
};

}  // namespace tui
