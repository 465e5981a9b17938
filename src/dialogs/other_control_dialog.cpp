#include "dialogs/other_control_dialog.hpp"

#include <array>

#include "dialogs/common_rows.hpp"

#include "forms/runtime.hpp"

namespace tessaly {
namespace {

using K = forms::ControlKind;
using S = forms::ControlSpec;

constexpr std::array<forms::ControlSpec, 19> kControls = {{
    S{K::Label, "lblName", -1, u"Control &Name:"}.At({120, 240, 3240, 240}),
    S{K::TextBox, "txtName", -1, u"", nullptr, 0, u"", 40}.At({3480, 240, 3600, 240}),
    S{K::Label, "lblControlCaption", -1, u"Control Ca&ption:"}.At({120, 720, 3240, 240}),
    S{K::TextBox, "txtControlCaption"}.At({3480, 720, 3600, 240}),
    S{K::Label, "lblControlText", -1, u"Control Te&xt:"}.At({120, 1200, 3240, 240}),
    S{K::TextBox, "txtControlText"}.At({3480, 1200, 3600, 240}),
    rows::kOptionsFrame.At({120, 1680, 3360, 1440}),
    rows::kEnabledBox,
    rows::kVisibleBox,
    S{K::Label, "lblIndex", -1, u"&Index:", "Frame1"}.At({240, 720, 720, 240}),
    rows::kIndexField.At({1080, 720, 960, 240}),
    S{K::Label, "lblTag", -1, u"&Tag:", "Frame1"}.At({240, 960, 720, 240}),
    rows::kTagField.At({1080, 960, 2040, 240}),
    rows::kOKButton.At({3960, 3840, 1800, 360}),
    rows::kCancelButton.At({5880, 3840, 1200, 360}),
    rows::kFontButton.At({3480, 3360, 600, 240}),
    rows::kFontField.At({840, 3360, 2520, 240}),
    S{K::Label, "Label6", -1, u"Font:"}.At({120, 3360, 600, 240}),
    rows::kFontService,
}};

// Every write is guarded by its field's Enabled state as the activation left
// it. The font stage stands before Caption and Text whatever the control.
constexpr std::array<Write, 8> kWrites = {{
    {.property = u"Name", .from = From::FieldText, .field = {"txtName"}, .when = When::Enabled},
    {.property = u"Enabled",
     .from = From::CheckBoolean,
     .field = {"chkEnabled"},
     .when = When::Enabled},
    {.property = u"Visible",
     .from = From::CheckBoolean,
     .field = {"chkVisible"},
     .when = When::Enabled},
    {.from = From::FontStage, .when = When::Enabled, .guard = {"cmdFont"}},
    {.property = u"Caption",
     .from = From::FieldTextTrimmed,
     .field = {"txtControlCaption"},
     .when = When::Enabled},
    {.property = u"Text",
     .from = From::FieldTextTrimmed,
     .field = {"txtControlText"},
     .when = When::Enabled},
    {.property = u"Index",
     .from = From::TextInteger,
     .field = {"txtIndex"},
     .when = When::EnabledNonBlank},
    {.property = u"Tag",
     .from = From::FieldText,
     .field = {"txtTag"},
     .when = When::EnabledNonBlank},
}};

constexpr std::array<const char*, 1> kDigitFields = {"txtIndex"};

constexpr DialogDesign kDesign = {
    .form_name = "frmOtherControl",
    .title = u"New Misc Control",
    .controls = kControls,
    .client = {7200, 4560},
    .activate = ActivateVariant::Own,
    .name_link = NameLink::None,
    .name_filter = NameFilter::Dropping,
    .digit_filtered = kDigitFields,
    .writes = kWrites,
};

// What the activation asks the control for, in order, and the fields (label
// first) that go grey when the control lacks it.
struct Probe {
  const char16_t* property;
  std::array<const char*, 2> controls;
  std::size_t count;
};

constexpr std::array<Probe, 7> kProbes = {{
    {u"Name", {"lblName", "txtName"}, 2},
    {u"Caption", {"lblControlCaption", "txtControlCaption"}, 2},
    {u"Text", {"lblControlText", "txtControlText"}, 2},
    {u"Enabled", {"chkEnabled"}, 1},
    {u"Visible", {"chkVisible"}, 1},
    {u"Index", {"lblIndex", "txtIndex"}, 2},
    {u"Tag", {"lblTag", "txtTag"}, 2},
}};

}  // namespace

frmOtherControl::frmOtherControl(forms::Runtime& runtime) : PropertyDialog(runtime, kDesign) {}

void frmOtherControl::Form_Activate() {
  try {
    FocusName();
    for (const Probe& probe : kProbes) {
      DisableIfMissing(probe.property, std::span(probe.controls).first(probe.count));
    }
  } catch (const vb::Failure& failure) {
    // Reports and closes; the dialog itself writes nothing here.
    GetRuntime().MsgBox(u"The following error occurred : " + failure.Description());
    Hide();
    Unload();
    return;
  }
  // From here on a failing step is passed over. A control without a font
  // keeps recFont unset and txtFont empty; Label6 stays as it is.
  if (!OffersFont()) {
    Get<forms::CommandButton>("cmdFont").SetEnabled(false);
    return;
  }
  try {
    ReadDefaultFont();
  } catch (const vb::Failure&) {
    // Passed over like the probe: txtFont may stay empty.
  }
}

std::shared_ptr<ide::Property> frmOtherControl::Lookup(const vb::Text& name) const {
  try {
    if (!objControl) throw vb::Failure::Of(vb::kObjectNotSet);
    auto properties = objControl->Properties();
    if (!properties) throw vb::Failure::Of(vb::kObjectNotSet);
    return properties->Item(name);
  } catch (const vb::Failure&) {
    // Whether the collection itself fails or only the item, the property
    // is not offered.
    return nullptr;
  }
}

void frmOtherControl::DisableIfMissing(const vb::Text& name,
                                       std::span<const char* const> controls) {
  // Only presence counts, not the property's kind or value.
  if (Lookup(name)) return;
  for (const char* control : controls) {
    try {
      Field({control}).SetEnabled(false);
    } catch (const vb::Failure&) {
      // One control that cannot be disabled does not keep the next enabled.
    }
  }
}

bool frmOtherControl::OffersFont() const {
  try {
    auto property = Lookup(u"Font");
    return property && std::dynamic_pointer_cast<ide::FontObject>(property->Object()) != nullptr;
  } catch (const vb::Failure&) {
    return false;
  }
}

}  // namespace tessaly
