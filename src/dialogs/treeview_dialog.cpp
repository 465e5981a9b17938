#include "dialogs/treeview_dialog.hpp"

#include <array>

#include "dialogs/common_rows.hpp"

namespace tessaly {
namespace {

using K = forms::ControlKind;

constexpr std::array<forms::ControlSpec, 21> kControls = {{
    {K::Label, "Label1", -1, u"Tree View &Name:"},
    {K::TextBox, "txtName", -1, u"tv"},
    {K::Frame, "Frame3", -1, u"Line Style"},
    {K::OptionButton, "optLineStyle", 0, u"&Tree Lines", "Frame3", 1},
    {K::OptionButton, "optLineStyle", 1, u"&Root Lines", "Frame3", 0},
    rows::kOptionsFrame,
    rows::kEnabledBox,
    rows::kVisibleBox,
    {K::CheckBox, "chkSorted", -1, u"S&orted?", "Frame1", 0},
    {K::CheckBox, "chkHideSel", -1, u"&Hide Selection?", "Frame1", 1},
    {K::CheckBox, "chkFullRowSelect", -1, u"&Full Row Select?", "Frame1", 0},
    rows::kIndexLabel,
    rows::kIndexField,
    {K::Label, "Label4", -1, u"T&ag:", "Frame1"},
    rows::kTagField,
    rows::kOKButton,
    rows::kCancelButton,
    rows::kFontButton,
    rows::kFontField,
    {K::Label, "Label5", -1, u"Font:"},
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
    .activate = ActivateVariant::FocusAndFont,
    .name_link = NameLink::None,
    .name_filter = NameFilter::Dropping,
    .digit_filtered = kDigitFields,
    .writes = kWrites,
};

}  // namespace

frmTreeView::frmTreeView(forms::Runtime& runtime) : PropertyDialog(runtime, kDesign) {}

}  // namespace tessaly
