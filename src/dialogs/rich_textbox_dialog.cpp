#include "dialogs/rich_textbox_dialog.hpp"

#include <array>

#include "dialogs/common_rows.hpp"

namespace tessaly {

vb::Value RichTextBoxScrollBars(const PropertyDialog& dialog) {
  return static_cast<const frmRichTextBox&>(dialog).intScrollBars;
}

namespace {

using K = forms::ControlKind;
using S = forms::ControlSpec;

constexpr std::array<forms::ControlSpec, 21> kControls = {{
    S{K::Label, "Label1", -1, u"Rich Text Box &Name:"}.At({120, 240, 3240, 240}),
    S{K::TextBox, "txtName", -1, u"rtf", nullptr, 0, u"", 40}.At({3480, 240, 3600, 240}),
    S{K::Frame, "Frame2", -1, u"Scroll Bars"}.At({3720, 720, 3360, 1440}),
    S{K::OptionButton, "optSB", 0, u"N&one", "Frame2", 0}.At({240, 240, 3000, 240}),
    S{K::OptionButton, "optSB", 1, u"&Horizontal", "Frame2", 0}.At({240, 480, 3000, 240}),
    S{K::OptionButton, "optSB", 2, u"&Vertical", "Frame2", 0}.At({240, 720, 3000, 240}),
    S{K::OptionButton, "optSB", 3, u"&Both", "Frame2", 1}.At({240, 960, 3000, 240}),
    rows::kOptionsFrame.At({120, 720, 3360, 1680}),
    rows::kEnabledBox,
    rows::kVisibleBox,
    S{K::CheckBox, "chkMultiLine", -1, u"&MultiLine?", "Frame1", 1}.At({240, 720, 3000, 240}),
    rows::kIndexLabel.At({240, 960, 720, 240}),
    rows::kIndexField.At({1080, 960, 960, 240}),
    rows::kTagLabel.At({240, 1200, 720, 240}),
    rows::kTagField.At({1080, 1200, 2040, 240}),
    rows::kOKButton.At({3960, 3120, 1800, 360}),
    rows::kCancelButton.At({5880, 3120, 1200, 360}),
    rows::kFontButton.At({3480, 2640, 600, 240}),
    rows::kFontField.At({840, 2640, 2520, 240}),
    S{K::Label, "Label6", -1, u"Font:"}.At({120, 2640, 600, 240}),
    rows::kFontService,
}};

constexpr std::array<Write, 8> kWrites = {{
    rows::kNameWrite,
    rows::kEnabledWrite,
    rows::kVisibleWrite,
    {.property = u"MultiLine", .from = From::CheckBoolean, .field = {"chkMultiLine"}},
    {.property = u"ScrollBars",
     .from = From::Custom,
     .focus = {"optSB", 0},
     .custom = RichTextBoxScrollBars},
    rows::kFontStage,
    {.property = u"Index",
     .from = From::TextInteger,
     .field = {"txtIndex"},
     .when = When::NonBlank},
    rows::kTagWrite,
}};

constexpr std::array<const char*, 1> kDigitFields = {"txtIndex"};

constexpr DialogDesign kDesign = {
    .form_name = "frmRichTextBox",
    .title = u"New Rich Text Box Control",
    .controls = kControls,
    .client = {7200, 3840},
    .position = forms::StartUpPosition::CenterScreen,
    .activate = ActivateVariant::FocusAndFont,
    .name_link = NameLink::None,
    .name_filter = NameFilter::Dropping,
    .digit_filtered = kDigitFields,
    .writes = kWrites,
};

}  // namespace

frmRichTextBox::frmRichTextBox(forms::Runtime& runtime) : PropertyDialog(runtime, kDesign) {
  for (vb::Integer i = 0; i < 4; ++i) {
    Get<forms::OptionButton>("optSB", i).Click = [this](forms::Control& sender) {
      optSB_Click(sender.Index());
    };
  }
}

void frmRichTextBox::Presets() { intScrollBars = 3; }

void frmRichTextBox::optSB_Click(vb::Integer Index) { intScrollBars = Index; }

}  // namespace tessaly
