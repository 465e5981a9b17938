#include "dialogs/option_dialog.hpp"

#include <array>

#include "dialogs/common_rows.hpp"

namespace tessaly {
namespace {

using K = forms::ControlKind;
using S = forms::ControlSpec;

// The selected state of the new control is asked with a check box: the
// dialog holds no option buttons of its own.
constexpr std::array<forms::ControlSpec, 18> kControls = {{
    S{K::Label, "Label1", -1, u"Option Button &Name:"}.At({120, 240, 3240, 240}),
    S{K::TextBox, "txtName", -1, u"opt"}.At({3480, 240, 3600, 240}),
    S{K::Label, "Label2", -1, u"Option Button Capti&on:"}.At({120, 720, 3240, 240}),
    S{K::TextBox, "txtCaption"}.At({3480, 720, 3600, 240}),
    rows::kOptionsFrame.At({120, 1200, 3360, 1680}),
    rows::kEnabledBox,
    rows::kVisibleBox,
    S{K::CheckBox, "chkChecked", -1, u"Selecte&d?", "Frame1", 0}.At({240, 720, 3000, 240}),
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
    .client = {7200, 4320},
    .activate = ActivateVariant::FocusAndFont,
    .name_link = NameLink::Caption,
    .name_filter = NameFilter::CaptionFeeding,
    .digit_filtered = kDigitFields,
    .writes = kWrites,
};

}  // namespace

frmOption::frmOption(forms::Runtime& runtime) : PropertyDialog(runtime, kDesign) {}

}  // namespace tessaly
