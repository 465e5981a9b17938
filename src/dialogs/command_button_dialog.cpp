#include "dialogs/command_button_dialog.hpp"

#include <array>

#include "dialogs/common_rows.hpp"

namespace tessaly {
namespace {

using K = forms::ControlKind;
using S = forms::ControlSpec;

constexpr std::array<forms::ControlSpec, 19> kControls = {{
    S{K::Label, "Label1", -1, u"Command Button &Name:"}.At({120, 240, 3240, 240}),
    S{K::TextBox, "txtName", -1, u"cmd"}.At({3480, 240, 3600, 240}),
    S{K::Label, "Label2", -1, u"Command &Button Caption: "}.At({120, 720, 3240, 240}),
    S{K::TextBox, "txtCaption"}.At({3480, 720, 3600, 240}),
    rows::kOptionsFrame.At({120, 1200, 3360, 1920}),
    rows::kEnabledBox,
    rows::kVisibleBox,
    S{K::CheckBox, "chkDefault", -1, u"&Default?", "Frame1", 0}.At({240, 720, 3000, 240}),
    S{K::CheckBox, "chkCancel", -1, u"C&ancel?", "Frame1", 0}.At({240, 960, 3000, 240}),
    rows::kIndexLabel.At({240, 1200, 720, 240}),
    rows::kIndexField.At({1080, 1200, 960, 240}),
    rows::kTagLabel.At({240, 1440, 720, 240}),
    rows::kTagField.At({1080, 1440, 2040, 240}),
    rows::kOKButton.At({3960, 3840, 1800, 360}),
    rows::kCancelButton.At({5880, 3840, 1200, 360}),
    rows::kFontButton.At({3480, 3360, 600, 240}),
    rows::kFontField.At({840, 3360, 2520, 240}),
    S{K::Label, "Label5", -1, u"Font:"}.At({120, 3360, 600, 240}),
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
    .client = {7200, 4560},
    .activate = ActivateVariant::FocusAndFont,
    .name_link = NameLink::Caption,
    .name_filter = NameFilter::CaptionFeeding,
    .digit_filtered = kDigitFields,
    .writes = kWrites,
};

}  // namespace

frmCommandButton::frmCommandButton(forms::Runtime& runtime) : PropertyDialog(runtime, kDesign) {}

}  // namespace tessaly
