#include "dialogs/timer_dialog.hpp"

#include <array>

#include "dialogs/common_rows.hpp"

namespace tessaly {
namespace {

using K = forms::ControlKind;

constexpr std::array<forms::ControlSpec, 12> kControls = {{
    {K::Label, "Label1", -1, u"Timer &Name:"},
    {K::TextBox, "txtName", -1, u"tmr"},
    rows::kOptionsFrame,
    rows::kEnabledBox,
    {K::Label, "Label2", -1, u"Inter&val:", "Frame1"},
    {K::TextBox, "txtInterval", -1, u"500", "Frame1"},
    rows::kIndexLabel,
    rows::kIndexField,
    rows::kTagLabel,
    rows::kTagField,
    rows::kOKButton,
    rows::kCancelButton,
}};

// The interval is the one number: converted before SetProperty, so the
// largest interval this dialog can write is 32767.
constexpr std::array<Write, 5> kWrites = {{
    rows::kNameWrite,
    rows::kEnabledWrite,
    {.property = u"Interval", .from = From::TextInteger, .field = {"txtInterval"}},
    rows::kIndexWrite,
    rows::kTagWrite,
}};

constexpr std::array<const char*, 2> kDigitFields = {"txtIndex", "txtInterval"};

constexpr DialogDesign kDesign = {
    .form_name = "frmTimer",
    .title = u"New Timer Control",
    .controls = kControls,
    .activate = ActivateVariant::FocusOnly,
    .name_link = NameLink::None,
    .name_filter = NameFilter::Dropping,
    .digit_filtered = kDigitFields,
    .writes = kWrites,
};

}  // namespace

frmTimer::frmTimer(forms::Runtime& runtime) : PropertyDialog(runtime, kDesign) {}

}  // namespace tessaly
