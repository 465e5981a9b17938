#include "dialogs/masked_edit_dialog.hpp"

#include <array>

#include "dialogs/common_rows.hpp"

namespace tessaly {
namespace {

using K = forms::ControlKind;
using S = forms::ControlSpec;

constexpr std::array<forms::ControlSpec, 21> kControls = {{
    S{K::Label, "Label1", -1, u"Masked Edit &Name:"}.At({120, 240, 3240, 240}),
    S{K::TextBox, "txtName", -1, u"msk"}.At({3480, 240, 3600, 240}),
    S{K::Label, "Label2", -1, u"&Mask:"}.At({120, 720, 3240, 240}),
    S{K::TextBox, "txtMask"}.At({3480, 720, 3600, 240}),
    S{K::Label, "Label5", -1, u"&Prompt Character:"}.At({120, 1200, 3240, 240}),
    S{K::TextBox, "txtPrompt", -1, u"_", nullptr, 0, u"", 1}.At({3480, 1200, 360, 240}),
    rows::kOptionsFrame.At({120, 1680, 3360, 1920}),
    rows::kEnabledBox,
    rows::kVisibleBox,
    S{K::CheckBox, "chkAllowPrompt", -1, u"&Allow Prompt?", "Frame1", 0}.At({240, 720, 3000, 240}),
    S{K::CheckBox, "chkCausesValidate", -1, u"Ca&uses Validation?", "Frame1", 1}.At(
        {240, 960, 3000, 240}),
    rows::kIndexLabel.At({240, 1200, 720, 240}),
    rows::kIndexField.At({1080, 1200, 960, 240}),
    rows::kTagLabel.At({240, 1440, 720, 240}),
    rows::kTagField.At({1080, 1440, 2040, 240}),
    rows::kOKButton.At({3960, 4320, 1800, 360}),
    rows::kCancelButton.At({5880, 4320, 1200, 360}),
    rows::kFontButton.At({3480, 3840, 600, 240}),
    rows::kFontField.At({840, 3840, 2520, 240}),
    S{K::Label, "Label6", -1, u"Font:"}.At({120, 3840, 600, 240}),
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
    .client = {7200, 5040},
    .activate = ActivateVariant::FocusAndFont,
    .name_link = NameLink::None,
    .name_filter = NameFilter::Dropping,
    .digit_filtered = kDigitFields,
    .writes = kWrites,
};

}  // namespace

frmMaskedEdit::frmMaskedEdit(forms::Runtime& runtime) : PropertyDialog(runtime, kDesign) {}

}  // namespace tessaly
