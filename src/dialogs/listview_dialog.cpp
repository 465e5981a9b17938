#include "dialogs/listview_dialog.hpp"

#include <array>

#include "dialogs/common_rows.hpp"

namespace tessaly {
namespace {

using K = forms::ControlKind;
using S = forms::ControlSpec;

constexpr std::array<forms::ControlSpec, 23> kControls = {{
    S{K::Label, "Label1", -1, u"List View &Name:"}.At({120, 240, 3240, 240}),
    S{K::TextBox, "txtName", -1, u"lv"}.At({3480, 240, 3600, 240}),
    S{K::Frame, "Frame3", -1, u"View"}.At({3720, 720, 3360, 1440}),
    S{K::OptionButton, "optIcon", -1, u"Ic&on", "Frame3", 0, u"0"}.At({240, 240, 3000, 240}),
    S{K::OptionButton, "optSmallIcon", -1, u"S&mall Icon", "Frame3", 0, u"1"}.At(
        {240, 480, 3000, 240}),
    S{K::OptionButton, "optList", -1, u"&List", "Frame3", 0, u"2"}.At({240, 720, 3000, 240}),
    S{K::OptionButton, "optReport", -1, u"Re&port", "Frame3", 1, u"3"}.At({240, 960, 3000, 240}),
    rows::kOptionsFrame.At({120, 720, 3360, 2160}),
    rows::kEnabledBox,
    rows::kVisibleBox,
    S{K::CheckBox, "chkSorted", -1, u"So&rted?", "Frame1", 1}.At({240, 720, 3000, 240}),
    S{K::CheckBox, "chkHideHdrs", -1, u"&Hide Column Headers?", "Frame1", 0}.At(
        {240, 960, 3000, 240}),
    S{K::CheckBox, "chkMulti", -1, u"M&ultiSelect?", "Frame1", 0}.At({240, 1200, 3000, 240}),
    rows::kIndexLabel.At({240, 1440, 720, 240}),
    rows::kIndexField.At({1080, 1440, 960, 240}),
    rows::kTagLabel.At({240, 1680, 720, 240}),
    rows::kTagField.At({1080, 1680, 2040, 240}),
    rows::kOKButton.At({3960, 3600, 1800, 360}),
    rows::kCancelButton.At({5880, 3600, 1200, 360}),
    rows::kFontButton.At({3480, 3120, 600, 240}),
    rows::kFontField.At({840, 3120, 2520, 240}),
    S{K::Label, "Label5", -1, u"Font:"}.At({120, 3120, 600, 240}),
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
    .client = {7200, 4320},
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
