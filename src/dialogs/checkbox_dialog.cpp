#include "dialogs/checkbox_dialog.hpp"

#include <array>

#include "dialogs/common_rows.hpp"

namespace tessaly {
namespace {

using K = forms::ControlKind;

constexpr std::array<forms::ControlSpec, 18> kControls = {{
    {K::Label, "Label1", -1, u"Check &Box Name:"},
    {K::TextBox, "txtName", -1, u"chk"},
    {K::Label, "Label2", -1, u"Chec&k Box Caption:"},
    {K::TextBox, "txtCaption"},
    rows::kOptionsFrame,
    rows::kEnabledBox,
    rows::kVisibleBox,
    {K::CheckBox, "chkChecked", -1, u"C&hecked?", "Frame1", 0},
    rows::kIndexLabel,
    rows::kIndexField,
    rows::kTagLabel,
    rows::kTagField,
    rows::kOKButton,
    rows::kCancelButton,
    {K::Label, "Label5", -1, u"Font:"},
    rows::kFontField,
    rows::kFontButton,
    rows::kFontService,
}};

constexpr std::array<Write, 8> kWrites = {{
    rows::kNameWrite,
    rows::kEnabledWrite,
    rows::kVisibleWrite,
    {.property = u"Caption", .from = From::FieldText, .field = {"txtCaption"}},
    {.property = u"Value", .from = From::CheckValue, .field = {"chkChecked"}},
    rows::kFontStage,
    rows::kIndexWrite,
    rows::kTagWrite,
}};

constexpr std::array<const char*, 1> kDigitFields = {"txtIndex"};

constexpr DialogDesign kDesign = {
    .form_name = "frmCheckBox",
    .title = u"New CheckBox Control",
    .controls = kControls,
    .activate = ActivateVariant::FocusAndFont,
    .name_link = NameLink::Caption,
    .name_filter = NameFilter::CaptionFeeding,
    .digit_filtered = kDigitFields,
    .writes = kWrites,
};

}  // namespace

frmCheckBox::frmCheckBox(forms::Runtime& runtime) : PropertyDialog(runtime, kDesign) {}

}  // namespace tessaly
