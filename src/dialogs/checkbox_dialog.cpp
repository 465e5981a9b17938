#include "dialogs/checkbox_dialog.hpp"

#include <array>

namespace tessaly {
namespace {

using forms::ControlKind;
using K = forms::ControlKind;

constexpr std::array<forms::ControlSpec, 18> kControls = {{
    {K::Label, "Label1", -1, u"Check &Box Name:"},
    {K::TextBox, "txtName", -1, u"chk"},
    {K::Label, "Label2", -1, u"Chec&k Box Caption:"},
    {K::TextBox, "txtCaption"},
    {K::Frame, "Frame1", -1, u"Options"},
    {K::CheckBox, "chkEnabled", -1, u"&Enabled?", "Frame1", 1},
    {K::CheckBox, "chkVisible", -1, u"&Visible?", "Frame1", 1},
    {K::CheckBox, "chkChecked", -1, u"C&hecked?", "Frame1", 0},
    {K::Label, "Label3", -1, u"&Index:", "Frame1"},
    {K::TextBox, "txtIndex", -1, u"", "Frame1"},
    {K::Label, "Label4", -1, u"&Tag:", "Frame1"},
    {K::TextBox, "txtTag", -1, u"", "Frame1"},
    {K::CommandButton, "OKButton", -1, u"&Save Settings", nullptr, 0, u"", 0, forms::kDefault},
    {K::CommandButton, "CancelButton", -1, u"&Cancel", nullptr, 0, u"", 0, forms::kCancel},
    {K::Label, "Label5", -1, u"Font:"},
    {K::TextBox, "txtFont", -1, u"", nullptr, 0, u"", 0, forms::kDisabled},
    {K::CommandButton, "cmdFont", -1, u"..."},
    {K::CommonDialog, "cdlgFont"},
}};

constexpr std::array<Write, 8> kWrites = {{
    {.property = u"Name", .from = From::FieldText, .field = {"txtName"}},
    {.property = u"Enabled", .from = From::CheckBoolean, .field = {"chkEnabled"}},
    {.property = u"Visible", .from = From::CheckBoolean, .field = {"chkVisible"}},
    {.property = u"Caption", .from = From::FieldText, .field = {"txtCaption"}},
    {.property = u"Value", .from = From::CheckValue, .field = {"chkChecked"}},
    {.from = From::FontStage},
    {.property = u"Index", .from = From::FieldText, .field = {"txtIndex"}, .when = When::NonBlank},
    {.property = u"Tag", .from = From::FieldText, .field = {"txtTag"}, .when = When::NonBlank},
}};

constexpr std::array<const char*, 1> kDigitFields = {"txtIndex"};

constexpr DialogDesign kDesign = {
    .form_name = "frmCheckBox",
    .title = u"New CheckBox Control",
    .controls = kControls,
    .activate = ActivateVariant::FocusAndFont,
    .name_link = NameLink::Caption,
    .name_filter = NameFilter::CaptionFeeding,
    .digit_filtered = kDigitFields,
    .writes = kWrites,
};

}  // namespace

frmCheckBox::frmCheckBox(forms::Runtime& runtime) : PropertyDialog(runtime, kDesign) {}

}  // namespace tessaly
