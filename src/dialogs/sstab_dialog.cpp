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

// optTO stands in the tab order as Top, Left, Bottom, Right: elements 0, 2, 1, 3.
constexpr std::array<forms::ControlSpec, 27> kControls = {{
    {K::Label, "Label1", -1, u"Tabbed Dialog &Name:"},
    {K::TextBox, "txtName", -1, u"tab", nullptr, 0, u"", 40},
    {K::Frame, "Frame2", -1, u"Style:"},
    {K::OptionButton, "optStyle", 0, u"Ta&bbed Dialog", "Frame2", 1},
    {K::OptionButton, "optStyle", 1, u"Propert&y Page", "Frame2", 0},
    {K::Frame, "Frame3", -1, u"Tab Orientation:"},
    {K::OptionButton, "optTO", 0, u"To&p", "Frame3", 1},
    {K::OptionButton, "optTO", 2, u"Le&ft", "Frame3", 0},
    {K::OptionButton, "optTO", 1, u"Botto&m", "Frame3", 0},
    {K::OptionButton, "optTO", 3, u"Rig&ht", "Frame3", 0},
    rows::kOptionsFrame,
    rows::kEnabledBox,
    rows::kVisibleBox,
    {K::Label, "Label2", -1, u"T&abs:", "Frame1"},
    {K::TextBox, "txtTabs", -1, u"3", "Frame1", 0, u"", 2},
    {K::Label, "Label5", -1, u"Tabs P&er Row:", "Frame1"},
    {K::TextBox, "txtTabsPerRow", -1, u"3", "Frame1", 0, u"", 2},
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
