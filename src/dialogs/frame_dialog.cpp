#include "dialogs/frame_dialog.hpp"

#include <array>

#include "dialogs/common_rows.hpp"

namespace tessaly {
namespace {

using K = forms::ControlKind;
using S = forms::ControlSpec;

constexpr std::array<forms::ControlSpec, 17> kControls = {{
    S{K::Label, "Label1", -1, u"Frame &Name:"}.At({120, 240, 3240, 240}),
    S{K::TextBox, "txtName", -1, u"fra"}.At({3480, 240, 3600, 240}),
    S{K::Label, "Label2", -1, u"Fra&me Caption:"}.At({120, 720, 3240, 240}),
    S{K::TextBox, "txtCaption"}.At({3480, 720, 3600, 240}),
    rows::kOptionsFrame.At({120, 1200, 3360, 1440}),
    rows::kEnabledBox,
    rows::kVisibleBox,
    rows::kIndexLabel.At({240, 720, 720, 240}),
    rows::kIndexField.At({1080, 720, 960, 240}),
    rows::kTagLabel.At({240, 960, 720, 240}),
    rows::kTagField.At({1080, 960, 2040, 240}),
    rows::kOKButton.At({3960, 3360, 1800, 360}),
    rows::kCancelButton.At({5880, 3360, 1200, 360}),
    rows::kFontButton.At({3480, 2880, 600, 240}),
    rows::kFontField.At({840, 2880, 2520, 240}),
    S{K::Label, "Label5", -1, u"Font:"}.At({120, 2880, 600, 240}),
    rows::kFontService,
}};

constexpr std::array<Write, 7> kWrites = {{
    rows::kNameWrite,
    rows::kEnabledWrite,
    rows::kVisibleWrite,
    {.property = u"Caption", .from = From::FieldText, .field = {"txtCaption"}},
    rows::kFontStage,
    rows::kIndexWrite,
    rows::kTagWrite,
}};

constexpr std::array<const char*, 1> kDigitFields = {"txtIndex"};

constexpr DialogDesign kDesign = {
    .form_name = "frmFrame",
    .title = u"New Frame Control",
    .controls = kControls,
    .client = {7200, 4080},
    .activate = ActivateVariant::FocusAndFont,
    .name_link = NameLink::Caption,
    .name_filter = NameFilter::CaptionFeeding,
    .digit_filtered = kDigitFields,
    .writes = kWrites,
};

}  // namespace

frmFrame::frmFrame(forms::Runtime& runtime) : PropertyDialog(runtime, kDesign) {}

}  // namespace tessaly
