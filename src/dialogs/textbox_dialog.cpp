#include "dialogs/textbox_dialog.hpp"

#include <array>

#include "dialogs/common_rows.hpp"

namespace tessaly {
namespace {

using K = forms::ControlKind;
using S = forms::ControlSpec;

constexpr std::array<forms::ControlSpec, 18> kControls = {{
    S{K::Label, "Label1", -1, u"Text Box &Name:"}.At({120, 240, 3240, 240}),
    S{K::TextBox, "txtName", -1, u"txt"}.At({3480, 240, 3600, 240}),
    S{K::Label, "Label2", -1, u"Text Box Te&xt:"}.At({120, 720, 3240, 240}),
    S{K::TextBox, "txtText"}.At({3480, 720, 3600, 240}),
    rows::kOptionsFrame.At({120, 1200, 3360, 1680}),
    S{K::CheckBox, "chkMulti", -1, u"&Multi-Line?", "Frame1", 0}.At({240, 720, 3000, 240}),
    rows::kVisibleBox,
    rows::kEnabledBox,
    rows::kIndexLabel.At({240, 960, 720, 240}),
    rows::kIndexField.At({1080, 960, 960, 240}),
    rows::kTagLabel.At({240, 1200, 720, 240}),
    rows::kTagField.At({1080, 1200, 2040, 240}),
    rows::kOKButton.At({3960, 3600, 1800, 360}),
    rows::kCancelButton.At({5880, 3600, 1200, 360}),
    rows::kFontButton.At({3480, 3120, 600, 240}),
    rows::kFontField.At({840, 3120, 2520, 240}),
    S{K::Label, "Label6", -1, u"Font:"}.At({120, 3120, 600, 240}),
    rows::kFontService,
}};

constexpr std::array<Write, 8> kWrites = {{
    {.property = u"Text", .from = From::FieldText, .field = {"txtText"}},
    {.property = u"MultiLine", .from = From::CheckBoolean, .field = {"chkMulti"}},
    rows::kNameWrite,
    rows::kEnabledWrite,
    rows::kVisibleWrite,
    rows::kFontStage,
    rows::kIndexWrite,
    rows::kTagWrite,
}};

constexpr std::array<const char*, 1> kDigitFields = {"txtIndex"};

constexpr DialogDesign kDesign = {
    .form_name = "frmTextBox",
    .title = u"New TextBox Control",
    .controls = kControls,
    .client = {7200, 4320},
    .activate = ActivateVariant::FocusAndFont,
    .name_link = NameLink::None,
    .name_filter = NameFilter::Dropping,
    .digit_filtered = kDigitFields,
    .writes = kWrites,
};

}  // namespace

frmTextBox::frmTextBox(forms::Runtime& runtime) : PropertyDialog(runtime, kDesign) {}

}  // namespace tessaly
