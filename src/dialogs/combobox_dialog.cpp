#include "dialogs/combobox_dialog.hpp"

#include <array>

#include "dialogs/common_rows.hpp"

namespace tessaly {
namespace {

using K = forms::ControlKind;
using S = forms::ControlSpec;

constexpr std::array<forms::ControlSpec, 22> kControls = {{
    S{K::Label, "Label1", -1, u"Combo &Box Name:"}.At({120, 240, 3240, 240}),
    S{K::TextBox, "txtName", -1, u"cbo"}.At({3480, 240, 3600, 240}),
    S{K::Label, "lblText", -1, u"Combo Box Te&xt:", nullptr, 0, u"", 0, forms::kAlignRight}.At(
        {120, 720, 3240, 240}),
    S{K::TextBox, "txtText"}.At({3480, 720, 3600, 240}),
    S{K::Frame, "Frame2", -1, u"Style"}.At({3720, 1200, 3360, 1200}),
    S{K::OptionButton, "optDDCombo", -1, u"&Dropdown Combo", "Frame2", 1, u"0"}.At(
        {240, 240, 3000, 240}),
    S{K::OptionButton, "optSimple", -1, u"Si&mple Combo", "Frame2", 0, u"1"}.At(
        {240, 480, 3000, 240}),
    S{K::OptionButton, "optDDList", -1, u"Dro&pdown List", "Frame2", 0, u"2"}.At(
        {240, 720, 3000, 240}),
    rows::kOptionsFrame.At({120, 1200, 3360, 1680}),
    rows::kEnabledBox,
    rows::kVisibleBox,
    S{K::CheckBox, "chkSorted", -1, u"So&rted?", "Frame1", 1}.At({240, 720, 3000, 240}),
    rows::kIndexLabel.At({240, 960, 720, 240}),
    rows::kIndexField.At({1080, 960, 960, 240}),
    rows::kTagLabel.At({240, 1200, 720, 240}),
    rows::kTagField.At({1080, 1200, 2040, 240}),
    rows::kOKButton.At({3960, 3600, 1800, 360}),
    rows::kCancelButton.At({5880, 3600, 1200, 360}),
    rows::kFontButton.At({3480, 3120, 600, 240}),
    rows::kFontField.At({840, 3120, 2520, 240}),
    S{K::Label, "Label5", -1, u"Font:"}.At({120, 3120, 600, 240}),
    rows::kFontService,
}};

// Dropdown List is tested first: it is the style that withholds the text.
constexpr std::array<FieldRef, 3> kStyles = {{{"optDDList"}, {"optDDCombo"}, {"optSimple"}}};

// Text follows the style button, not the Enabled state of txtText, and goes
// also when empty. This is the one sequence with Visible before Enabled.
constexpr std::array<Write, 9> kWrites = {{
    rows::kNameWrite,
    {.property = u"Text",
     .from = From::FieldText,
     .field = {"txtText"},
     .when = When::OptionOff,
     .guard = {"optDDList"}},
    rows::kVisibleWrite,
    rows::kEnabledWrite,
    {.property = u"Sorted", .from = From::CheckBoolean, .field = {"chkSorted"}},
    rows::kFontStage,
    {.property = u"Style", .from = From::OptionTag, .options = kStyles},
    rows::kIndexWrite,
    rows::kTagWrite,
}};

constexpr std::array<const char*, 1> kDigitFields = {"txtIndex"};

constexpr DialogDesign kDesign = {
    .form_name = "frmComboBox",
    .title = u"New ComboBox Control",
    .controls = kControls,
    .client = {7200, 4320},
    .activate = ActivateVariant::FocusAndFont,
    .name_link = NameLink::None,
    .name_filter = NameFilter::Dropping,
    .digit_filtered = kDigitFields,
    .writes = kWrites,
};

}  // namespace

frmComboBox::frmComboBox(forms::Runtime& runtime) : PropertyDialog(runtime, kDesign) {
  Get<forms::OptionButton>("optDDCombo").Click = [this](forms::Control&) { optDDCombo_Click(); };
  Get<forms::OptionButton>("optSimple").Click = [this](forms::Control&) { optSimple_Click(); };
  Get<forms::OptionButton>("optDDList").Click = [this](forms::Control&) { optDDList_Click(); };
}

// Each routine acts only for its own button being on; a Click that comes
// from clearing a button must not touch the field.
void frmComboBox::optDDCombo_Click() {
  if (Get<forms::OptionButton>("optDDCombo").Value()) OfferText(true);
}

void frmComboBox::optSimple_Click() {
  if (Get<forms::OptionButton>("optSimple").Value()) OfferText(true);
}

void frmComboBox::optDDList_Click() {
  if (Get<forms::OptionButton>("optDDList").Value()) OfferText(false);
}

void frmComboBox::OfferText(bool offered) {
  auto& text = Get<forms::TextBox>("txtText");
  auto& label = Get<forms::Label>("lblText");
  // Enabling goes field first, disabling label first.
  if (offered) {
    text.SetEnabled(true);
    label.SetEnabled(true);
  } else {
    label.SetEnabled(false);
    text.SetEnabled(false);
  }
}

}  // namespace tessaly
