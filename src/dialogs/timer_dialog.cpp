#include "dialogs/timer_dialog.hpp"

#include <array>

#include "dialogs/common_rows.hpp"

namespace tessaly {
namespace {

using K = forms::ControlKind;
using S = forms::ControlSpec;

constexpr std::array<forms::ControlSpec, 12> kControls = {{
    S{K::Label, "Label1", -1, u"Timer &Name:"}.At({120, 240, 3240, 240}),
    S{K::TextBox, "txtName", -1, u"tmr"}.At({3480, 240, 3600, 240}),
    rows::kOptionsFrame.At({120, 720, 3360, 1440}),
    rows::kEnabledBox,
    S{K::Label, "Label2", -1, u"Inter&val:", "Frame1"}.At({240, 480, 1080, 240}),
    S{K::TextBox, "txtInterval", -1, u"500", "Frame1"}.At({1440, 480, 960, 240}),
    rows::kIndexLabel.At({240, 720, 720, 240}),
    rows::kIndexField.At({1080, 720, 960, 240}),
    rows::kTagLabel.At({240, 960, 720, 240}),
    rows::kTagField.At({1080, 960, 2040, 240}),
    rows::kOKButton.At({3960, 2400, 1800, 360}),
    rows::kCancelButton.At({5880, 2400, 1200, 360}),
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
    .client = {7200, 3120},
    .activate = ActivateVariant::FocusOnly,
    .name_link = NameLink::None,
    .name_filter = NameFilter::Dropping,
    .digit_filtered = kDigitFields,
    .writes = kWrites,
};

}  // namespace

frmTimer::frmTimer(forms::Runtime& runtime) : PropertyDialog(runtime, kDesign) {}

}  // namespace tessaly
