#include "dialogs/scroll_bar_dialogs.hpp"

#include <array>

#include "dialogs/common_rows.hpp"

namespace tessaly {
namespace {

using K = forms::ControlKind;
using S = forms::ControlSpec;

// What sets the horizontal dialog apart from the vertical one.
struct ScrollBarTexts {
  const char16_t* name_label;
  const char16_t* name_default;
  const char16_t* small_label;
  const char16_t* large_label;
};

constexpr std::array<forms::ControlSpec, 20> Controls(const ScrollBarTexts& t) {
  return {{
      S{K::Label, "Label1", -1, t.name_label}.At({120, 240, 3240, 240}),
      S{K::TextBox, "txtName", -1, t.name_default, nullptr, 0, u"", 40}.At({3480, 240, 3600, 240}),
      S{K::Frame, "Frame2", -1, u"Scroll Bar Info:"}.At({3720, 720, 3360, 1440}),
      S{K::Label, "Label2", -1, u"Minim&um:", "Frame2", 0, u"", 0, forms::kAlignRight}.At(
          {240, 240, 1680, 240}),
      S{K::TextBox, "txtMin", -1, u"0", "Frame2"}.At({2040, 240, 1080, 240}),
      S{K::Label, "Label5", -1, u"Ma&ximum:", "Frame2", 0, u"", 0, forms::kAlignRight}.At(
          {240, 480, 1680, 240}),
      S{K::TextBox, "txtMax", -1, u"32767", "Frame2"}.At({2040, 480, 1080, 240}),
      S{K::Label, "Label6", -1, t.small_label, "Frame2", 0, u"", 0, forms::kAlignRight}.At(
          {240, 720, 1680, 240}),
      S{K::TextBox, "txtSmall", -1, u"1", "Frame2"}.At({2040, 720, 1080, 240}),
      S{K::Label, "Label7", -1, t.large_label, "Frame2", 0, u"", 0, forms::kAlignRight}.At(
          {240, 960, 1680, 240}),
      S{K::TextBox, "txtLarge", -1, u"1", "Frame2"}.At({2040, 960, 1080, 240}),
      rows::kOptionsFrame.At({120, 720, 3360, 1440}),
      rows::kEnabledBox,
      rows::kVisibleBox,
      rows::kIndexLabel.At({240, 720, 720, 240}),
      rows::kIndexField.At({1080, 720, 960, 240}),
      rows::kTagLabel.At({240, 960, 720, 240}),
      rows::kTagField.At({1080, 960, 2040, 240}),
      rows::kOKButton.At({3960, 2400, 1800, 360}),
      rows::kCancelButton.At({5880, 2400, 1200, 360}),
  }};
}

constexpr auto kHControls = Controls({.name_label = u"Horizontal Scroll Bar &Name:",
                                      .name_default = u"hsb",
                                      .small_label = u"Small Chan&ge:",
                                      .large_label = u"La&rge Change:"});

constexpr auto kVControls = Controls({.name_label = u"Vertical Scroll Bar &Name:",
                                      .name_default = u"vsb",
                                      .small_label = u"Sm&all Change:",
                                      .large_label = u"Large C&hange:"});

// No range test of any kind: Max may stand below Min, LargeChange below
// SmallChange; the IDE judges each number.
constexpr std::array<Write, 9> kWrites = {{
    rows::kNameWrite,
    rows::kEnabledWrite,
    rows::kVisibleWrite,
    {.property = u"Min", .from = From::TextLong, .field = {"txtMin"}},
    {.property = u"Max", .from = From::TextLong, .field = {"txtMax"}},
    {.property = u"SmallChange", .from = From::TextLong, .field = {"txtSmall"}},
    {.property = u"LargeChange", .from = From::TextLong, .field = {"txtLarge"}},
    {.property = u"Index",
     .from = From::TextInteger,
     .field = {"txtIndex"},
     .when = When::NonBlank},
    rows::kTagWrite,
}};

constexpr std::array<const char*, 5> kDigitFields = {"txtIndex", "txtLarge", "txtMax", "txtMin",
                                                     "txtSmall"};

constexpr DialogDesign kHDesign = {
    .form_name = "frmHScrollBar",
    .title = u"New Horizontal Scroll Bar",
    .controls = kHControls,
    .client = {7200, 3120},
    .position = forms::StartUpPosition::CenterScreen,
    .activate = ActivateVariant::FocusOnly,
    .name_link = NameLink::None,
    .name_filter = NameFilter::Dropping,
    .digit_filtered = kDigitFields,
    .writes = kWrites,
};

constexpr DialogDesign kVDesign = {
    .form_name = "frmVScrollBar",
    .title = u"New Vertical Scroll Bar",
    .controls = kVControls,
    .client = {7200, 3120},
    .position = forms::StartUpPosition::CenterScreen,
    .activate = ActivateVariant::FocusOnly,
    .name_link = NameLink::None,
    .name_filter = NameFilter::Dropping,
    .digit_filtered = kDigitFields,
    .writes = kWrites,
};

}  // namespace

frmHScrollBar::frmHScrollBar(forms::Runtime& runtime) : PropertyDialog(runtime, kHDesign) {}

frmVScrollBar::frmVScrollBar(forms::Runtime& runtime) : PropertyDialog(runtime, kVDesign) {}

}  // namespace tessaly
