#include "settings/options_dialog.hpp"

#include <array>

#include "settings/font_info.hpp"
#include "vb/convert.hpp"

namespace tessaly {
namespace {

using forms::ControlKind;
using forms::ControlSpec;
using S = forms::ControlSpec;

constexpr forms::ClientSize kClient = {7920, 4080};

constexpr std::array<ControlSpec, 13> kDesign = {{
    S{ControlKind::Label, "lblInstructions", -1, u"Select the controls to prompt for:", nullptr, 0,
      u"", 0, forms::kAlignCenter}
        .At({120, 240, 4080, 240}),
    S{ControlKind::ListBox, "lstControls", -1, u"", nullptr, 0, u"", 0,
      forms::kSorted | forms::kCheckBoxStyle}
        .At({120, 480, 4080, 3360}),
    S{ControlKind::Frame, "fraOptions", -1, u"Options"}.At({4440, 240, 3360, 1920}),
    S{ControlKind::CheckBox, "chkRemove", -1, u"&Remove Code", "fraOptions", 1}.At(
        {240, 240, 3000, 240}),
    S{ControlKind::CheckBox, "chkRename", -1, u"Rename &Code", "fraOptions", 1}.At(
        {240, 480, 3000, 240}),
    S{ControlKind::CommandButton, "cmdOK", -1, u"&Ok", nullptr, 0, u"", 0, forms::kDefault}.At(
        {6360, 3360, 1440, 360}),
    S{ControlKind::CommandButton, "cmdPromtAll", -1, u"&Promt All"}.At({4440, 2400, 1560, 360}),
    S{ControlKind::CommandButton, "cmdPromptNone", -1, u"Prompt &None"}.At({6120, 2400, 1680, 360}),
    S{ControlKind::Frame, "Frame1", -1, u"Default F&ont", "fraOptions"}.At({240, 960, 2880, 720}),
    S{ControlKind::Label, "Label1", -1, u"Font :", "Frame1"}.At({240, 240, 720, 240}),
    S{ControlKind::TextBox, "txtFont", -1, u"", "Frame1", 0, u"", 0, forms::kDisabled}.At(
        {1080, 240, 960, 240}),
    S{ControlKind::CommandButton, "cmdFont", -1, u"...", "Frame1"}.At({2040, 240, 600, 240}),
    {ControlKind::CommonDialog, "cdlgFont"},
}};

vb::Text Setting(forms::Runtime& rt, const char16_t* key, const char16_t* fallback) {
  return rt.GetSetting(kAppName, kSection, key, fallback);
}

}  // namespace

frmAddInOptions::frmAddInOptions(forms::Runtime& runtime, Globals& globals)
    : Form(runtime, "frmAddInOptions", u"Tessaly Options", kDesign,
           forms::StartUpPosition::WindowsDefault, kClient),
      globals_(globals) {
  Get<forms::CommandButton>("cmdOK").Click = [this](forms::Control&) { cmdOK_Click(); };
  Get<forms::CommandButton>("cmdPromtAll").Click = [this](forms::Control&) { cmdPromtAll_Click(); };
  Get<forms::CommandButton>("cmdPromptNone").Click = [this](forms::Control&) {
    cmdPromptNone_Click();
  };
  Get<forms::CheckBox>("chkRemove").Click = [this](forms::Control&) { chkRemove_Click(); };
  Get<forms::CheckBox>("chkRename").Click = [this](forms::Control&) { chkRename_Click(); };
  Get<forms::CommandButton>("cmdFont").Click = [this](forms::Control&) { cmdFont_Click(); };
}

void frmAddInOptions::Form_Load() {
  if (globals_.CtlNames.empty()) {
    // The settings never loaded: none of the flags is known, so the dialog
    // shows no rows and leaves the check boxes alone rather than store
    // values that were never read.
    Get<forms::TextBox>("txtFont").SetText(Setting(GetRuntime(), u"FontName", kDefaultFontName));
    return;
  }
  auto& list = Get<forms::ListBox>("lstControls");
  for (std::size_t i = 0; i < globals_.CtlNames.size(); ++i) {
    list.AddItem(globals_.CtlNames[i]);
    list.SetSelected(list.NewIndex(), vb::IsTrue(globals_.UseCtl[i]));
    list.SetItemData(list.NewIndex(), static_cast<std::int32_t>(i));
  }
  // Setting a value that differs raises Click, which stores the flag again.
  Get<forms::CheckBox>("chkRename").SetValue(vb::IsTrue(globals_.RenameCode) ? 1 : 0);
  Get<forms::CheckBox>("chkRemove").SetValue(vb::IsTrue(globals_.RemoveCode) ? 1 : 0);
  Get<forms::TextBox>("txtFont").SetText(Setting(GetRuntime(), u"FontName", kDefaultFontName));
}

void frmAddInOptions::cmdOK_Click() {
  auto& list = Get<forms::ListBox>("lstControls");
  for (std::int32_t i = 0; i < list.ListCount(); ++i) {
    const auto row = static_cast<std::size_t>(list.ItemData(i));
    const vb::Boolean flag = vb::ToBoolean(list.Selected(i));
    globals_.UseCtl.at(row) = flag;
    GetRuntime().SaveSetting(kAppName, kSection, UseCtlKey(row),
                             vb::IntegerToText(static_cast<vb::Integer>(flag)));
  }
  Hide();
  Unload();
}

void frmAddInOptions::SelectAll(bool selected) {
  auto& list = Get<forms::ListBox>("lstControls");
  for (std::int32_t i = 0; i < list.ListCount(); ++i) list.SetSelected(i, selected);
}

void frmAddInOptions::cmdPromtAll_Click() { SelectAll(true); }

void frmAddInOptions::cmdPromptNone_Click() { SelectAll(false); }

void frmAddInOptions::chkRemove_Click() {
  const auto value = Get<forms::CheckBox>("chkRemove").Value();
  globals_.RemoveCode = vb::ToBoolean(value != 0);
  GetRuntime().SaveSetting(kAppName, kSection, u"RemoveCode", vb::IntegerToText(value));
}

void frmAddInOptions::chkRename_Click() {
  const auto value = Get<forms::CheckBox>("chkRename").Value();
  globals_.RenameCode = vb::ToBoolean(value != 0);
  GetRuntime().SaveSetting(kAppName, kSection, u"RenameCode", vb::IntegerToText(value));
}

void frmAddInOptions::cmdFont_Click() {
  forms::Runtime& rt = GetRuntime();
  auto& dialog = Get<forms::CommonDialog>("cdlgFont");
  // Straight from the store: the size goes to the service unrounded.
  dialog.FontBold = vb::IsTrue(vb::CBool(Setting(rt, u"FontBold", kDefaultFontStyle)));
  dialog.FontItalic = vb::IsTrue(vb::CBool(Setting(rt, u"FontItalic", kDefaultFontStyle)));
  dialog.FontName = Setting(rt, u"FontName", kDefaultFontName);
  dialog.FontSize = vb::CSng(Setting(rt, u"FontSize", kDefaultFontSize));
  dialog.FontStrikeThru = vb::IsTrue(vb::CBool(Setting(rt, u"FontStrikeThru", kDefaultFontStyle)));
  dialog.FontUnderline = vb::IsTrue(vb::CBool(Setting(rt, u"FontUnderline", kDefaultFontStyle)));
  dialog.Flags = 1;
  // Cancel leaves the dialog as prepared, so the same values are stored.
  dialog.ShowFont();
  auto word = [](bool b) { return vb::BooleanToText(vb::ToBoolean(b)); };
  rt.SaveSetting(kAppName, kSection, u"FontName", dialog.FontName);
  rt.SaveSetting(kAppName, kSection, u"FontSize", vb::SingleToText(dialog.FontSize));
  rt.SaveSetting(kAppName, kSection, u"FontBold", word(dialog.FontBold));
  rt.SaveSetting(kAppName, kSection, u"FontItalic", word(dialog.FontItalic));
  rt.SaveSetting(kAppName, kSection, u"FontUnderline", word(dialog.FontUnderline));
  rt.SaveSetting(kAppName, kSection, u"FontStrikeThru", word(dialog.FontStrikeThru));
  Get<forms::TextBox>("txtFont").SetText(dialog.FontName);
}

}  // namespace tessaly
