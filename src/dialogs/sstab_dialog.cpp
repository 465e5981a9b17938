#include "dialogs/sstab_dialog.hpp"

#include <array>

#include "dialogs/common_rows.hpp"

namespace tessaly {

vb::Value SSTabStyle(const PropertyDialog& dialog) {
  return static_cast<const frmSSTab&>(dialog).intStyle;
}

vb::Value SSTabTabOrientation(const PropertyDialog& dialog) {
  return static_cast<const frmSSTab&>(dialog).intTabOrientation;
}

namespace {

using K = forms::ControlKind;
using S = forms::ControlSpec;

// optTO stands in the tab order as Top, Left, Bottom, Right: elements 0, 2, 1, 3.
constexpr std::array<forms::ControlSpec, 27> kControls = {{
    S{K::Label, "Label1", -1, u"Tabbed Dialog &Name:"}.At({120, 240, 3240, 240}),
    S{K::TextBox, "txtName", -1, u"tab", nullptr, 0, u"", 40}.At({3480, 240, 3600, 240}),
    S{K::Frame, "Frame2", -1, u"Style:"}.At({3720, 720, 3360, 960}),
    S{K::OptionButton, "optStyle", 0, u"Ta&bbed Dialog", "Frame2", 1}.At({240, 240, 3000, 240}),
    S{K::OptionButton, "optStyle", 1, u"Propert&y Page", "Frame2", 0}.At({240, 480, 3000, 240}),
    S{K::Frame, "Frame3", -1, u"Tab Orientation:"}.At({3720, 1680, 3360, 1440}),
    S{K::OptionButton, "optTO", 0, u"To&p", "Frame3", 1}.At({240, 240, 3000, 240}),
    S{K::OptionButton, "optTO", 2, u"Le&ft", "Frame3", 0}.At({240, 480, 3000, 240}),
    S{K::OptionButton, "optTO", 1, u"Botto&m", "Frame3", 0}.At({240, 720, 3000, 240}),
    S{K::OptionButton, "optTO", 3, u"Rig&ht", "Frame3", 0}.At({240, 960, 3000, 240}),
    rows::kOptionsFrame.At({120, 720, 3360, 1920}),
    rows::kEnabledBox,
    rows::kVisibleBox,
    S{K::Label, "Label2", -1, u"T&abs:", "Frame1"}.At({240, 720, 1560, 240}),
    S{K::TextBox, "txtTabs", -1, u"3", "Frame1", 0, u"", 2}.At({1920, 720, 480, 240}),
    S{K::Label, "Label5", -1, u"Tabs P&er Row:", "Frame1"}.At({240, 960, 1560, 240}),
    S{K::TextBox, "txtTabsPerRow", -1, u"3", "Frame1", 0, u"", 2}.At({1920, 960, 480, 240}),
    rows::kIndexLabel.At({240, 1200, 720, 240}),
    rows::kIndexField.At({1080, 1200, 960, 240}),
    rows::kTagLabel.At({240, 1440, 720, 240}),
    rows::kTagField.At({1080, 1440, 2040, 240}),
    rows::kOKButton.At({3960, 3840, 1800, 360}),
    rows::kCancelButton.At({5880, 3840, 1200, 360}),
    rows::kFontButton.At({3480, 3360, 600, 240}),
    rows::kFontField.At({840, 3360, 2520, 240}),
    S{K::Label, "Label6", -1, u"Font:"}.At({120, 3360, 600, 240}),
    rows::kFontService,
}};

// Tabs and TabsPerRow go as typed, empty or "00" included: the IDE judges them.
constexpr std::array<Write, 10> kWrites = {{
    rows::kNameWrite,
    rows::kEnabledWrite,
    rows::kVisibleWrite,
    {.property = u"Tabs", .from = From::FieldText, .field = {"txtTabs"}},
    {.property = u"TabsPerRow", .from = From::FieldText, .field = {"txtTabsPerRow"}},
    {.property = u"Style", .from = From::Custom, .focus = {"optStyle", 0}, .custom = SSTabStyle},
    {.property = u"TabOrientation",
     .from = From::Custom,
     .focus = {"optTO", 0},
     .custom = SSTabTabOrientation},
    rows::kFontStage,
    {.property = u"Index",
     .from = From::TextInteger,
     .field = {"txtIndex"},
     .when = When::NonBlank},
    rows::kTagWrite,
}};

constexpr std::array<const char*, 3> kDigitFields = {"txtIndex", "txtTabs", "txtTabsPerRow"};

constexpr DialogDesign kDesign = {
    .form_name = "frmSSTab",
    .title = u"New Tabbed Dialog Control",
    .controls = kControls,
    .client = {7200, 4560},
    .position = forms::StartUpPosition::CenterScreen,
    .activate = ActivateVariant::FocusAndFont,
    .name_link = NameLink::None,
    .name_filter = NameFilter::Dropping,
    .digit_filtered = kDigitFields,
    .writes = kWrites,
};

}  // namespace

frmSSTab::frmSSTab(forms::Runtime& runtime) : PropertyDialog(runtime, kDesign) {
  for (vb::Integer i = 0; i < 2; ++i) {
    Get<forms::OptionButton>("optStyle", i).Click = [this](forms::Control& sender) {
      optStyle_Click(sender.Index());
    };
  }
  for (vb::Integer i = 0; i < 4; ++i) {
    Get<forms::OptionButton>("optTO", i).Click = [this](forms::Control& sender) {
      optTO_Click(sender.Index());
    };
  }
}

void frmSSTab::Presets() {
  intStyle = 0;
  intTabOrientation = 0;
}

void frmSSTab::optStyle_Click(vb::Integer Index) { intStyle = Index; }

void frmSSTab::optTO_Click(vb::Integer Index) { intTabOrientation = Index; }

}  // namespace tessaly
