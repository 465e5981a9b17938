#include "dialogs/label_dialog.hpp"

#include <array>

#include "dialogs/common_rows.hpp"

namespace tessaly {
namespace {

using K = forms::ControlKind;

// The buttons stand left, centre, right; their Tags are Alignment's numbers,
// which do not rise along that order.
constexpr std::array<forms::ControlSpec, 23> kControls = {{
    {K::TextBox, "txtName", -1, u"lbl"},
    {K::TextBox, "txtCaption"},
    rows::kOKButton,
    {K::OptionButton, "optLeft", -1, u"&Left", "Frame2", 1, u"0"},
    {K::OptionButton, "optCenter", -1, u"Cen&ter", "Frame2", 0, u"2"},
    {K::OptionButton, "optRight", -1, u"&Right", "Frame2", 0, u"1"},
    rows::kEnabledBox,
    rows::kVisibleBox,
    {K::CheckBox, "chkAutoSize", -1, u"&Auto Size?", "Frame1", 0},
    {K::CheckBox, "chkWordWrap", -1, u"&Word Wrap?", "Frame1", 0},
    rows::kCancelButton,
    rows::kOptionsFrame,
    {K::Label, "Label1", -1, u"Label &Name:"},
    {K::Label, "Label2", -1, u"Label Capti&on:"},
    {K::Frame, "Frame2", -1, u"Alignment"},
    {K::Label, "Label3", -1, u"Index:", "Frame1"},
    rows::kIndexField,
    {K::Label, "Label4", -1, u"Tag:", "Frame1"},
    rows::kTagField,
    rows::kFontButton,
    rows::kFontField,
    {K::Label, "Label5", -1, u"Font:"},
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
    .activate = ActivateVariant::FocusAndFont,
    .name_link = NameLink::PlainCaption,
    .name_filter = NameFilter::CaptionFeeding,
    .digit_filtered = kDigitFields,
    .writes = kWrites,
};

}  // namespace

frmLabel::frmLabel(forms::Runtime& runtime) : PropertyDialog(runtime, kDesign) {}

}  // namespace tessaly
