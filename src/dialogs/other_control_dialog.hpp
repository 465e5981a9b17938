// frmOtherControl: "New Misc Control", the dialog for a control of any class
// that has no dialog of its own.
//
// It cannot know at build time what the control offers, so its activation
// asks the control for Name, Caption, Text, Enabled, Visible, Index, Tag and
// Font, one by one, and disables the fields (and their labels) of whatever is
// missing; the save sequence then writes only what is still enabled. The
// fields' Enabled state is the only record of what was found.
//
// A failure while the focus is placed or the properties are asked for shows
// "The following error occurred : " and the description, then closes the
// dialog without writing anything. A missing property is no failure: the
// collection refusing the lookup, or answering null, both mean "missing".
#pragma once

#include <memory>
#include <span>

#include "dialogs/property_dialog.hpp"

namespace tessaly {

class frmOtherControl : public PropertyDialog {
 public:
  explicit frmOtherControl(forms::Runtime& runtime);

 protected:
  void Form_Activate() override;

 private:
  // Disables `controls`, first to last, when the control does not offer the
  // property `name`. Ends in silence: no failure leaves it.
  void DisableIfMissing(const vb::Text& name, std::span<const char* const> controls);
  // Whether the control's Font gives a font object; any failure means no.
  bool OffersFont() const;
  // The control's property `name`, or null when asking for it fails.
  std::shared_ptr<ide::Property> Lookup(const vb::Text& name) const;
};

}  // namespace tessaly
