// The frame every property dialog shares: the two members set from outside,
// activation, SetProperty with its message box, the save sequence walked from
// the dialog's table, Cancel, the font chooser, the key filters and the
// name-to-caption link.
//
// From outside a dialog is made, given objControl and then VBInstance, and
// shown modally; nothing is read back. A refused write shows a message box,
// stops the save, puts the focus on the field named for it and leaves the
// dialog open; earlier writes stay. A failure that does not come through
// SetProperty (a number that does not convert, the font stage) stops the save
// in silence with the same effects.
//
// Choice: after the font chooser closes, txtFont shows the name of the font
// now in recFont, so the field always names the font that a save will write.
#pragma once

#include <memory>
#include <optional>

#include "dialogs/dialog_design.hpp"
#include "forms/form.hpp"
#include "ide/object_model.hpp"
#include "settings/font_info.hpp"

namespace tessaly {

class PropertyDialog : public forms::Form {
 public:
  ~PropertyDialog() override;

  // The control being edited; set before the dialog is shown.
  std::shared_ptr<ide::VBControl> objControl;
  // The IDE; held for the life of the dialog.
  std::shared_ptr<ide::VBE> VBInstance;

  const DialogDesign& Design() const { return design_; }

 protected:
  PropertyDialog(forms::Runtime& runtime, const DialogDesign& design);

  void Form_Activate() override;
  // Presets a dialog makes before the shared activation (its own members).
  virtual void Presets() {}

  // Steps 1 to 3 of activation: focus and caret into txtName.
  void FocusName();
  // Reads the default font into recFont and shows its name in txtFont.
  void ReadDefaultFont();

  // Writes one property; on a refusal shows the message box, remembers
  // `field` in objFailed and returns false. Reports and returns: no failure
  // leaves it.
  bool SetProperty(const vb::Text& name, const vb::Value& value, forms::Control& field);
  // The save sequence: the design's writes in order, then CancelButton_Click.
  void OKButton_Click();
  // Hides and unloads the dialog; writes nothing.
  void CancelButton_Click();
  // The font chooser: recFont to the service and back.
  void cmdFont_Click();

  forms::Control& Field(FieldRef ref) const;

  // The font a save gives the control; absent in dialogs without font fields.
  std::optional<FontInfo> recFont;
  // The field that takes the focus when a save stops; empty until the first
  // refused write, never cleared afterwards.
  forms::Control* objFailed = nullptr;

 private:
  void WireFrame();
  void txtName_Change();
  void txtName_KeyPress(forms::KeyPressArgs& args);
  bool Applies(const Write& write) const;
  // The value of a write and the field it names; may fail (conversion).
  vb::Value ReadValue(const Write& write, forms::Control*& field) const;
  void FontStage();
  void StopPath();

  const DialogDesign& design_;
};

}  // namespace tessaly
