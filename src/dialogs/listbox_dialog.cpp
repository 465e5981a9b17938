#include "dialogs/listbox_dialog.hpp"

#include <array>

#include "dialogs/common_rows.hpp"

namespace tessaly {
namespace {

using K = forms::ControlKind;

constexpr std::array<forms::ControlSpec, 23> kControls = {{
    {K::Label, "Label1", -1, u"List Box &Name:"},
    {K::TextBox, "txtName", -1, u"lst"},
    {K::Frame, "Frame2", -1, u"Multi-Select"},
    {K::OptionButton, "optNone", -1, u"N&one", "Frame2", 1, u"0"},
    {K::OptionButton, "optSimple", -1, u"Si&mple", "Frame2", 0, u"1"},
    {K::OptionButton, "optExtended", -1, u"E&xtended", "Frame2", 0, u"2"},
    {K::Frame, "Frame3", -1, u"Style"},
    {K::OptionButton, "optStandard", -1, u"Stan&dard", "Frame3", 1, u"0"},
    {K::OptionButton, "optCheckBox", -1, u"Check&Box", "Frame3", 0, u"1"},
    rows::kOptionsFrame,
    rows::kEnabledBox,
    rows::kVisibleBox,
    {K::CheckBox, "chkSorted", -1, u"So&rted?", "Frame1", 1},
    rows::kIndexLabel,
    rows::kIndexField,
    rows::kTagLabel,
    rows::kTagField,
    rows::kOKButton,
    rows::kCancelButton,
    rows::kFontButton,
    rows::kFontField,
    {K::Label, "Label5", -1, u"Font:"},
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
    .activate = ActivateVariant::FocusAndFont,
    .name_link = NameLink::None,
    .name_filter = NameFilter::Dropping,
    .digit_filtered = kDigitFields,
    .writes = kWrites,
};

}  // namespace

frmListBox::frmListBox(forms::Runtime& runtime) : PropertyDialog(runtime, kDesign) {}

}  // namespace tessaly
