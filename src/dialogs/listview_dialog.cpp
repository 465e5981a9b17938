#include "dialogs/listview_dialog.hpp"

#include <array>

#include "dialogs/common_rows.hpp"

namespace tessaly {
namespace {

using K = forms::ControlKind;

constexpr std::array<forms::ControlSpec, 23> kControls = {{
    {K::Label, "Label1", -1, u"List View &Name:"},
    {K::TextBox, "txtName", -1, u"lv"},
    {K::Frame, "Frame3", -1, u"View"},
    {K::OptionButton, "optIcon", -1, u"Ic&on", "Frame3", 0, u"0"},
    {K::OptionButton, "optSmallIcon", -1, u"S&mall Icon", "Frame3", 0, u"1"},
    {K::OptionButton, "optList", -1, u"&List", "Frame3", 0, u"2"},
    {K::OptionButton, "optReport", -1, u"Re&port", "Frame3", 1, u"3"},
    rows::kOptionsFrame,
    rows::kEnabledBox,
    rows::kVisibleBox,
    {K::CheckBox, "chkSorted", -1, u"So&rted?", "Frame1", 1},
    {K::CheckBox, "chkHideHdrs", -1, u"&Hide Column Headers?", "Frame1", 0},
    {K::CheckBox, "chkMulti", -1, u"M&ultiSelect?", "Frame1", 0},
    rows::kIndexLabel,
    rows::kIndexField,
    rows::kTagLabel,
    rows::kTagField,
    rows::kOKButton,
    rows::kCancelButton,
    rows::kFontButton,
    rows::kFontField,
    {K::Label, "Label5", -1, u"Font:"},
    rows::kFontService,
}};

constexpr std::array<FieldRef, 4> kViews = {
    {{"optIcon"}, {"optSmallIcon"}, {"optList"}, {"optReport"}}};

// MultiSelect goes before HideColumnHeaders, the reverse of their tab order.
constexpr std::array<Write, 10> kWrites = {{
    rows::kNameWrite,
    rows::kEnabledWrite,
    rows::kVisibleWrite,
    {.property = u"Sorted", .from = From::CheckBoolean, .field = {"chkSorted"}},
    {.property = u"MultiSelect", .from = From::CheckBoolean, .field = {"chkMulti"}},
    {.property = u"HideColumnHeaders", .from = From::CheckBoolean, .field = {"chkHideHdrs"}},
    rows::kFontStage,
    {.property = u"View", .from = From::OptionTag, .options = kViews},
    rows::kIndexWrite,
    rows::kTagWrite,
}};

constexpr std::array<const char*, 1> kDigitFields = {"txtIndex"};

constexpr DialogDesign kDesign = {
    .form_name = "frmListView",
    .title = u"New ListView Control",
    .controls = kControls,
    .position = forms::StartUpPosition::CenterScreen,
    .activate = ActivateVariant::FocusAndFont,
    .name_link = NameLink::None,
    .name_filter = NameFilter::Dropping,
    .digit_filtered = kDigitFields,
    .writes = kWrites,
};

}  // namespace

frmListView::frmListView(forms::Runtime& runtime) : PropertyDialog(runtime, kDesign) {}

}  // namespace tessaly
