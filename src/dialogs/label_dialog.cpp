#include "dialogs/label_dialog.hpp"

#include <array>

#include "dialogs/common_rows.hpp"

namespace tessaly {
namespace {

using K = forms::ControlKind;
using S = forms::ControlSpec;

// The buttons stand left, centre, right; their Tags are Alignment's numbers,
// which do not rise along that order.
constexpr std::array<forms::ControlSpec, 23> kControls = {{
    S{K::TextBox, "txtName", -1, u"lbl"}.At({3480, 240, 3600, 240}),
    S{K::TextBox, "txtCaption"}.At({3480, 720, 3600, 240}),
    rows::kOKButton.At({3960, 3840, 1800, 360}),
    S{K::OptionButton, "optLeft", -1, u"&Left", "Frame2", 1, u"0"}.At({240, 240, 3000, 240}),
    S{K::OptionButton, "optCenter", -1, u"Cen&ter", "Frame2", 0, u"2"}.At({240, 480, 3000, 240}),
    S{K::OptionButton, "optRight", -1, u"&Right", "Frame2", 0, u"1"}.At({240, 720, 3000, 240}),
    rows::kEnabledBox,
    rows::kVisibleBox,
    S{K::CheckBox, "chkAutoSize", -1, u"&Auto Size?", "Frame1", 0}.At({240, 720, 3000, 240}),
    S{K::CheckBox, "chkWordWrap", -1, u"&Word Wrap?", "Frame1", 0}.At({240, 960, 3000, 240}),
    rows::kCancelButton.At({5880, 3840, 1200, 360}),
    rows::kOptionsFrame.At({120, 1200, 3360, 1920}),
    S{K::Label, "Label1", -1, u"Label &Name:"}.At({120, 240, 3240, 240}),
    S{K::Label, "Label2", -1, u"Label Capti&on:"}.At({120, 720, 3240, 240}),
    S{K::Frame, "Frame2", -1, u"Alignment"}.At({3720, 1200, 3360, 1200}),
    S{K::Label, "Label3", -1, u"Index:", "Frame1"}.At({240, 1200, 720, 240}),
    rows::kIndexField.At({1080, 1200, 960, 240}),
    S{K::Label, "Label4", -1, u"Tag:", "Frame1"}.At({240, 1440, 720, 240}),
    rows::kTagField.At({1080, 1440, 2040, 240}),
    rows::kFontButton.At({3480, 3360, 600, 240}),
    rows::kFontField.At({840, 3360, 2520, 240}),
    S{K::Label, "Label5", -1, u"Font:"}.At({120, 3360, 600, 240}),
    rows::kFontService,
}};

constexpr std::array<FieldRef, 3> kAlignment = {{{"optLeft"}, {"optCenter"}, {"optRight"}}};

constexpr std::array<Write, 10> kWrites = {{
    rows::kNameWrite,
    rows::kEnabledWrite,
    rows::kVisibleWrite,
    {.property = u"Caption", .from = From::FieldText, .field = {"txtCaption"}},
    {.property = u"AutoSize", .from = From::CheckBoolean, .field = {"chkAutoSize"}},
    {.property = u"WordWrap", .from = From::CheckBoolean, .field = {"chkWordWrap"}},
    rows::kFontStage,
    // The selected button is also the field that takes the focus on a refusal.
    {.property = u"Alignment", .from = From::OptionTag, .options = kAlignment},
    rows::kIndexWrite,
    rows::kTagWrite,
}};

constexpr std::array<const char*, 1> kDigitFields = {"txtIndex"};

constexpr DialogDesign kDesign = {
    .form_name = "frmLabel",
    .title = u"New Label Control",
    .controls = kControls,
    .client = {7200, 4560},
    .activate = ActivateVariant::FocusAndFont,
    .name_link = NameLink::PlainCaption,
    .name_filter = NameFilter::CaptionFeeding,
    .digit_filtered = kDigitFields,
    .writes = kWrites,
};

}  // namespace

frmLabel::frmLabel(forms::Runtime& runtime) : PropertyDialog(runtime, kDesign) {}

}  // namespace tessaly
