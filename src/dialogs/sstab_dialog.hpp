// frmSSTab: "New Tabbed Dialog Control", the dialog for a new tabbed dialog
// control.
//
// Style and tab orientation are option groups whose clicks store the chosen
// index in intStyle and intTabOrientation; the save writes those members. A
// refusal of either puts the focus on element 0 of its array. Tabs and
// TabsPerRow go as the text of their two-digit fields, unchecked; Index goes
// as a 16-bit integer.
#pragma once

#include "dialogs/property_dialog.hpp"

namespace tessaly {

class frmSSTab : public PropertyDialog {
 public:
  explicit frmSSTab(forms::Runtime& runtime);

 protected:
  // Both groups start at 0, the buttons that start selected.
  void Presets() override;

 private:
  void optStyle_Click(vb::Integer Index);
  void optTO_Click(vb::Integer Index);
  // The save sequence's sources of Style and TabOrientation.
  friend vb::Value SSTabStyle(const PropertyDialog& dialog);
  friend vb::Value SSTabTabOrientation(const PropertyDialog& dialog);

  // The index of the clicked optStyle, also the Style value.
  vb::Integer intStyle = 0;
  // The index of the clicked optTO, also the TabOrientation value.
  vb::Integer intTabOrientation = 0;
};

}  // namespace tessaly
