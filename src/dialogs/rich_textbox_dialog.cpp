#include "dialogs/rich_textbox_dialog.hpp"

#include <array>

#include "dialogs/common_rows.hpp"

namespace tessaly {

vb::Value RichTextBoxScrollBars(const PropertyDialog& dialog) {
  return static_cast<const frmRichTextBox&>(dialog).intScrollBars;
}

namespace {

using K = forms::ControlKind;

constexpr std::array<forms::ControlSpec, 21> kControls = {{
    {K::Label, "Label1", -1, u"Rich Text Box &Name:"},
    {K::TextBox, "txtName", -1, u"rtf", nullptr, 0, u"", 40},
    {K::Frame, "Frame2", -1, u"Scroll Bars"},
    {K::OptionButton, "optSB", 0, u"N&one", "Frame2", 0},
    {K::OptionButton, "optSB", 1, u"&Horizontal", "Frame2", 0},
    {K::OptionButton, "optSB", 2, u"&Vertical", "Frame2", 0},
    {K::OptionButton, "optSB", 3, u"&Both", "Frame2", 1},
    rows::kOptionsFrame,
    rows::kEnabledBox,
    rows::kVisibleBox,
    {K::CheckBox, "chkMultiLine", -1, u"&MultiLine?", "Frame1", 1},
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
