#include "dialogs/command_button_dialog.hpp"

#include <array>

#include "dialogs/common_rows.hpp"

namespace tessaly {
namespace {

using K = forms::ControlKind;

constexpr std::array<forms::ControlSpec, 19> kControls = {{
    {K::Label, "Label1", -1, u"Command Button &Name:"},
    {K::TextBox, "txtName", -1, u"cmd"},
    {K::Label, "Label2", -1, u"Command &Button Caption: "},
    {K::TextBox, "txtCaption"},
    rows::kOptionsFrame,
    rows::kEnabledBox,
    rows::kVisibleBox,
    {K::CheckBox, "chkDefault", -1, u"&Default?", "Frame1", 0},
    {K::CheckBox, "chkCancel", -1, u"C&ancel?", "Frame1", 0},
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

constexpr std::array<Write, 9> kWrites = {{
    rows::kNameWrite,
    rows::kEnabledWrite,
    rows::kVisibleWrite,
    {.property = u"Caption", .from = From::FieldText, .field = {"txtCaption"}},
    {.property = u"Default", .from = From::CheckBoolean, .field = {"chkDefault"}},
    {.property = u"Cancel", .from = From::CheckBoolean, .field = {"chkCancel"}},
    rows::kFontStage,
    rows::kIndexWrite,
    rows::kTagWrite,
}};

constexpr std::array<const char*, 1> kDigitFields = {"txtIndex"};

constexpr DialogDesign kDesign = {
    .form_name = "frmCommandButton",
    .title = u"New CommandButton Control",
    .controls = kControls,
    .activate = ActivateVariant::FocusAndFont,
    .name_link = NameLink::Caption,
    .name_filter = NameFilter::CaptionFeeding,
    .digit_filtered = kDigitFields,
    .writes = kWrites,
};

}  // namespace

frmCommandButton::frmCommandButton(forms::Runtime& runtime) : PropertyDialog(runtime, kDesign) {}

}  // namespace tessaly
