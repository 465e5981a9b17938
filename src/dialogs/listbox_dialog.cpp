#include "dialogs/listbox_dialog.hpp"

#include <array>

#include "dialogs/common_rows.hpp"

namespace tessaly {
namespace {

using K = forms::ControlKind;
using S = forms::ControlSpec;

constexpr std::array<forms::ControlSpec, 23> kControls = {{
    S{K::Label, "Label1", -1, u"List Box &Name:"}.At({120, 240, 3240, 240}),
    S{K::TextBox, "txtName", -1, u"lst"}.At({3480, 240, 3600, 240}),
    S{K::Frame, "Frame2", -1, u"Multi-Select"}.At({3720, 720, 3360, 1200}),
    S{K::OptionButton, "optNone", -1, u"N&one", "Frame2", 1, u"0"}.At({240, 240, 3000, 240}),
    S{K::OptionButton, "optSimple", -1, u"Si&mple", "Frame2", 0, u"1"}.At({240, 480, 3000, 240}),
    S{K::OptionButton, "optExtended", -1, u"E&xtended", "Frame2", 0, u"2"}.At(
        {240, 720, 3000, 240}),
    S{K::Frame, "Frame3", -1, u"Style"}.At({3720, 1920, 3360, 960}),
    S{K::OptionButton, "optStandard", -1, u"Stan&dard", "Frame3", 1, u"0"}.At(
        {240, 240, 3000, 240}),
    S{K::OptionButton, "optCheckBox", -1, u"Check&Box", "Frame3", 0, u"1"}.At(
        {240, 480, 3000, 240}),
    rows::kOptionsFrame.At({120, 720, 3360, 1680}),
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

constexpr std::array<FieldRef, 3> kMultiSelect = {{{"optNone"}, {"optSimple"}, {"optExtended"}}};
constexpr std::array<FieldRef, 2> kStyles = {{{"optStandard"}, {"optCheckBox"}}};

// Extended selection with check boxes is not the dialog's to forbid: the IDE
// answers the Style write, and a refusal lands on the style button.
constexpr std::array<Write, 9> kWrites = {{
    rows::kNameWrite,
    rows::kEnabledWrite,
    rows::kVisibleWrite,
    {.property = u"Sorted", .from = From::CheckBoolean, .field = {"chkSorted"}},
    rows::kFontStage,
    {.property = u"MultiSelect", .from = From::OptionTag, .options = kMultiSelect},
    {.property = u"Style", .from = From::OptionTag, .options = kStyles},
    rows::kIndexWrite,
    rows::kTagWrite,
}};

constexpr std::array<const char*, 1> kDigitFields = {"txtIndex"};

constexpr DialogDesign kDesign = {
    .form_name = "frmListBox",
    .title = u"New ListBox Control",
    .controls = kControls,
    .client = {7200, 4320},
    .activate = ActivateVariant::FocusAndFont,
    .name_link = NameLink::None,
    .name_filter = NameFilter::Dropping,
    .digit_filtered = kDigitFields,
    .writes = kWrites,
};

}  // namespace

frmListBox::frmListBox(forms::Runtime& runtime) : PropertyDialog(runtime, kDesign) {}

}  // namespace tessaly
