#include "dialogs/option_dialog.hpp"

#include <array>

#include "dialogs/common_rows.hpp"

namespace tessaly {
namespace {

using K = forms::ControlKind;

// The selected state of the new control is asked with a check box: the
// dialog holds no option buttons of its own.
constexpr std::array<forms::ControlSpec, 18> kControls = {{
    {K::Label, "Label1", -1, u"Option Button &Name:"},
    {K::TextBox, "txtName", -1, u"opt"},
    {K::Label, "Label2", -1, u"Option Button Capti&on:"},
    {K::TextBox, "txtCaption"},
    rows::kOptionsFrame,
    rows::kEnabledBox,
    rows::kVisibleBox,
    {K::CheckBox, "chkChecked", -1, u"Selecte&d?", "Frame1", 0},
    rows::kIndexLabel,
    rows::kIndexField,
    rows::kTagLabel,
    rows::kTagField,
    rows::kOKButton,
    rows::kCancelButton,
    rows::kFontButton,
    rows::kFontField,
    {K::Label, "Label6", -1, u"Font:"},
    rows::kFontService,
}};

constexpr std::array<Write, 8> kWrites = {{
    rows::kNameWrite,
    rows::kEnabledWrite,
    rows::kVisibleWrite,
    {.property = u"Caption", .from = From::FieldText, .field = {"txtCaption"}},
    {.property = u"Value", .from = From::CheckBoolean, .field = {"chkChecked"}},
    rows::kFontStage,
    rows::kIndexWrite,
    rows::kTagWrite,
}};

constexpr std::array<const char*, 1> kDigitFields = {"txtIndex"};

constexpr DialogDesign kDesign = {
    .form_name = "frmOption",
    .title = u"New OptionButton Control",
    .controls = kControls,
    .activate = ActivateVariant::FocusAndFont,
    .name_link = NameLink::Caption,
    .name_filter = NameFilter::CaptionFeeding,
    .digit_filtered = kDigitFields,
    .writes = kWrites,
};

}  // namespace

frmOption::frmOption(forms::Runtime& runtime) : PropertyDialog(runtime, kDesign) {}

}  // namespace tessaly
