#include "dialogs/treeview_dialog.hpp"

#include <array>

#include "dialogs/common_rows.hpp"

namespace tessaly {
namespace {

using K = forms::ControlKind;
using S = forms::ControlSpec;

constexpr std::array<forms::ControlSpec, 21> kControls = {{
    S{K::Label, "Label1", -1, u"Tree View &Name:"}.At({120, 240, 3240, 240}),
    S{K::TextBox, "txtName", -1, u"tv"}.At({3480, 240, 3600, 240}),
    S{K::Frame, "Frame3", -1, u"Line Style"}.At({3720, 720, 3360, 960}),
    S{K::OptionButton, "optLineStyle", 0, u"&Tree Lines", "Frame3", 1}.At({240, 240, 3000, 240}),
    S{K::OptionButton, "optLineStyle", 1, u"&Root Lines", "Frame3", 0}.At({240, 480, 3000, 240}),
    rows::kOptionsFrame.At({120, 720, 3360, 2160}),
    rows::kEnabledBox,
    rows::kVisibleBox,
    S{K::CheckBox, "chkSorted", -1, u"S&orted?", "Frame1", 0}.At({240, 720, 3000, 240}),
    S{K::CheckBox, "chkHideSel", -1, u"&Hide Selection?", "Frame1", 1}.At({240, 960, 3000, 240}),
    S{K::CheckBox, "chkFullRowSelect", -1, u"&Full Row Select?", "Frame1", 0}.At(
        {240, 1200, 3000, 240}),
    rows::kIndexLabel.At({240, 1440, 720, 240}),
    rows::kIndexField.At({1080, 1440, 960, 240}),
    S{K::Label, "Label4", -1, u"T&ag:", "Frame1"}.At({240, 1680, 720, 240}),
    rows::kTagField.At({1080, 1680, 2040, 240}),
    rows::kOKButton.At({3960, 3600, 1800, 360}),
    rows::kCancelButton.At({5880, 3600, 1200, 360}),
    rows::kFontButton.At({3480, 3120, 600, 240}),
    rows::kFontField.At({840, 3120, 2520, 240}),
    S{K::Label, "Label5", -1, u"Font:"}.At({120, 3120, 600, 240}),
    rows::kFontService,
}};

// The elements stand in the order of their LineStyle values: the place of the
// selected one is the value written.
constexpr std::array<FieldRef, 2> kLineStyles = {{{"optLineStyle", 0}, {"optLineStyle", 1}}};

// FullRowSelect goes before HideSelection, the reverse of their tab order.
constexpr std::array<Write, 10> kWrites = {{
    rows::kNameWrite,
    rows::kEnabledWrite,
    rows::kVisibleWrite,
    {.property = u"Sorted", .from = From::CheckBoolean, .field = {"chkSorted"}},
    {.property = u"FullRowSelect", .from = From::CheckBoolean, .field = {"chkFullRowSelect"}},
    {.property = u"HideSelection", .from = From::CheckBoolean, .field = {"chkHideSel"}},
    rows::kFontStage,
    {.property = u"LineStyle", .from = From::OptionPosition, .options = kLineStyles},
    rows::kIndexWrite,
    rows::kTagWrite,
}};

constexpr std::array<const char*, 1> kDigitFields = {"txtIndex"};

constexpr DialogDesign kDesign = {
    .form_name = "frmTreeView",
    .title = u"New TreeView Control",
    .controls = kControls,
    .client = {7200, 4320},
    .activate = ActivateVariant::FocusAndFont,
    .name_link = NameLink::None,
    .name_filter = NameFilter::Dropping,
    .digit_filtered = kDigitFields,
    .writes = kWrites,
};

}  // namespace

frmTreeView::frmTreeView(forms::Runtime& runtime) : PropertyDialog(runtime, kDesign) {}

}  // namespace tessaly
