#include "dialogs/textbox_dialog.hpp"

#include <array>

#include "dialogs/common_rows.hpp"

namespace tessaly {
namespace {

using K = forms::ControlKind;

constexpr std::array<forms::ControlSpec, 18> kControls = {{
    {K::Label, "Label1", -1, u"Text Box &Name:"},
    {K::TextBox, "txtName", -1, u"txt"},
    {K::Label, "Label2", -1, u"Text Box Te&xt:"},
    {K::TextBox, "txtText"},
    rows::kOptionsFrame,
    {K::CheckBox, "chkMulti", -1, u"&Multi-Line?", "Frame1", 0},
    rows::kVisibleBox,
    rows::kEnabledBox,
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
    .activate = ActivateVariant::FocusAndFont,
    .name_link = NameLink::None,
    .name_filter = NameFilter::Dropping,
    .digit_filtered = kDigitFields,
    .writes = kWrites,
};

}  // namespace

frmTextBox::frmTextBox(forms::Runtime& runtime) : PropertyDialog(runtime, kDesign) {}

}  // namespace tessaly
