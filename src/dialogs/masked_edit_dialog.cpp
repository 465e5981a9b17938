#include "dialogs/masked_edit_dialog.hpp"

#include <array>

#include "dialogs/common_rows.hpp"

namespace tessaly {
namespace {

using K = forms::ControlKind;

constexpr std::array<forms::ControlSpec, 21> kControls = {{
    {K::Label, "Label1", -1, u"Masked Edit &Name:"},
    {K::TextBox, "txtName", -1, u"msk"},
    {K::Label, "Label2", -1, u"&Mask:"},
    {K::TextBox, "txtMask"},
    {K::Label, "Label5", -1, u"&Prompt Character:"},
    {K::TextBox, "txtPrompt", -1, u"_", nullptr, 0, u"", 1},
    rows::kOptionsFrame,
    rows::kEnabledBox,
    rows::kVisibleBox,
    {K::CheckBox, "chkAllowPrompt", -1, u"&Allow Prompt?", "Frame1", 0},
    {K::CheckBox, "chkCausesValidate", -1, u"Ca&uses Validation?", "Frame1", 1},
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

constexpr std::array<Write, 10> kWrites = {{
    rows::kNameWrite,
    rows::kEnabledWrite,
    rows::kVisibleWrite,
    {.property = u"AllowPrompt", .from = From::CheckBoolean, .field = {"chkAllowPrompt"}},
    {.property = u"CausesValidation", .from = From::CheckBoolean, .field = {"chkCausesValidate"}},
    {.property = u"Mask", .from = From::FieldText, .field = {"txtMask"}},
    {.property = u"PromptChar", .from = From::FieldText, .field = {"txtPrompt"}},
    rows::kFontStage,
    rows::kIndexWrite,
    rows::kTagWrite,
}};

constexpr std::array<const char*, 1> kDigitFields = {"txtIndex"};

constexpr DialogDesign kDesign = {
    .form_name = "frmMaskedEdit",
    .title = u"New Masked Edit Control",
    .controls = kControls,
    .activate = ActivateVariant::FocusAndFont,
    .name_link = NameLink::None,
    .name_filter = NameFilter::Dropping,
    .digit_filtered = kDigitFields,
    .writes = kWrites,
};

}  // namespace

frmMaskedEdit::frmMaskedEdit(forms::Runtime& runtime) : PropertyDialog(runtime, kDesign) {}

}  // namespace tessaly
