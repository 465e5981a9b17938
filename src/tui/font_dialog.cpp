#include "tui/font_dialog.hpp"

#include <array>

#include "forms/case_fold.hpp"
#include "forms/runtime.hpp"
#include "vb/convert.hpp"
#include "vb/failure.hpp"

namespace tui {
namespace {

using K = forms::ControlKind;
using S = forms::ControlSpec;

constexpr forms::ClientSize kClient = {7560, 3600};

// The family is a text box that takes any name, the list under it filling
// it, as the Windows font dialog has it: a form keeps the family chosen even
// when this system has no font of that name.
constexpr std::array<forms::ControlSpec, 13> kDesign = {{
    S{K::Label, "lblFont", -1, u"&Font:"}.At({120, 240, 3600, 240}),
    S{K::TextBox, "txtFont"}.At({120, 480, 3600, 240}),
    S{K::ListBox, "lstFont"}.At({120, 720, 3600, 2400}),
    S{K::Label, "lblSize", -1, u"&Size:"}.At({3960, 240, 1200, 240}),
    S{K::TextBox, "txtSize", -1, u"", nullptr, 0, u"", 6}.At({3960, 480, 960, 240}),
    S{K::Frame, "fraEffects", -1, u"Effects"}.At({3960, 960, 2160, 1440}),
    S{K::CheckBox, "chkBold", -1, u"&Bold", "fraEffects"}.At({240, 240, 1680, 240}),
    S{K::CheckBox, "chkItalic", -1, u"&Italic", "fraEffects"}.At({240, 480, 1680, 240}),
    S{K::CheckBox, "chkUnderline", -1, u"&Underline", "fraEffects"}.At({240, 720, 1680, 240}),
    S{K::CheckBox, "chkStrikethru", -1, u"S&trikethru", "fraEffects"}.At({240, 960, 1680, 240}),
    S{K::CommandButton, "cmdOK", -1, u"OK", nullptr, 0, u"", 0, forms::kDefault}.At(
        {6240, 480, 1200, 360}),
    S{K::CommandButton, "cmdCancel", -1, u"Cancel", nullptr, 0, u"", 0, forms::kCancel}.At(
        {6240, 960, 1200, 360}),
    // Which of the system's families shows the one named, when another does.
    S{K::Label, "lblShown"}.At({120, 3120, 7320, 240}),
}};

constexpr vb::Single kLargest = 2048.0F;

std::int16_t Tick(bool on) { return on ? 1 : 0; }

}  // namespace

FontDialog::FontDialog(forms::Runtime& runtime, forms::FontCatalog& fonts,
                       const forms::FontChoice& given)
    : Form(runtime, "frmFont", u"Font", kDesign, forms::StartUpPosition::CenterScreen, kClient),
      fonts_(&fonts),
      given_(given) {
  Get<forms::TextBox>("txtFont").Change = [this](forms::Control&) { ShowDisplayFamily(); };
  Get<forms::CommandButton>("cmdOK").Click = [this](forms::Control&) { cmdOK_Click(); };
  Get<forms::CommandButton>("cmdCancel").Click = [this](forms::Control&) { Hide(); };
  Get<forms::ListBox>("lstFont").Click = [this](forms::Control&) {
    const auto& list = Get<forms::ListBox>("lstFont");
    if (list.ListIndex() >= 0) Get<forms::TextBox>("txtFont").SetText(list.List(list.ListIndex()));
  };
  // The size takes digits and one decimal point; Backspace passes.
  Get<forms::TextBox>("txtSize").KeyPress = [](forms::Control&, forms::KeyPressArgs& key) {
    const auto c = key.KeyAscii;
    if (c != 8 && c != '.' && (c < '0' || c > '9')) key.KeyAscii = 0;
  };
}

void FontDialog::Form_Load() {
  auto& family_box = Get<forms::TextBox>("txtFont");
  family_box.SetText(given_.name);
  auto& list = Get<forms::ListBox>("lstFont");
  for (const vb::Text& family : fonts_->Families()) {
    list.AddItem(family);
    if (list.ListIndex() < 0 && forms::detail::CompareNoCase(family, given_.name) == 0)
      list.SetListIndex(list.NewIndex());
  }
  // Selected whole, so that typing a family or a size replaces it.
  family_box.SetSelLength(static_cast<std::int32_t>(family_box.Text().size()));
  auto& size = Get<forms::TextBox>("txtSize");
  size.SetText(vb::SingleToText(given_.size));
  size.SetSelLength(static_cast<std::int32_t>(size.Text().size()));
  Get<forms::CheckBox>("chkBold").SetValue(Tick(given_.bold));
  Get<forms::CheckBox>("chkItalic").SetValue(Tick(given_.italic));
  Get<forms::CheckBox>("chkUnderline").SetValue(Tick(given_.underline));
  Get<forms::CheckBox>("chkStrikethru").SetValue(Tick(given_.strike_thru));
}

void FontDialog::ShowDisplayFamily() {
  const vb::Text& name = Get<forms::TextBox>("txtFont").Text();
  const vb::Text shown = name.empty() ? name : fonts_->DisplayFamily(name);
  Get<forms::Label>("lblShown")
      .SetCaption(shown.empty() || forms::detail::CompareNoCase(shown, name) == 0
                      ? vb::Text()
                      : u"Shown here in " + shown + u"; the form keeps " + name + u".");
}

forms::FontChoice FontDialog::Choice() const {
  forms::FontChoice font = given_;
  if (const vb::Text& name = Get<forms::TextBox>("txtFont").Text(); !name.empty()) font.name = name;
  try {
    font.size = vb::CSng(Get<forms::TextBox>("txtSize").Text());
  } catch (const vb::Failure&) {
    // Not a number: the size stays as given; OK refuses it before this.
  }
  font.bold = Get<forms::CheckBox>("chkBold").Value() != 0;
  font.italic = Get<forms::CheckBox>("chkItalic").Value() != 0;
  font.underline = Get<forms::CheckBox>("chkUnderline").Value() != 0;
  font.strike_thru = Get<forms::CheckBox>("chkStrikethru").Value() != 0;
  return font;
}

void FontDialog::cmdOK_Click() {
  auto& size = Get<forms::TextBox>("txtSize");
  bool good = false;
  try {
    const vb::Single value = vb::CSng(size.Text());
    good = value >= 1.0F && value <= kLargest;
  } catch (const vb::Failure&) {
    // Reported below, as an empty or malformed size is.
  }
  if (!good) {
    GetRuntime().MsgBox(u"The size must be a number from 1 to 2048.", forms::vbExclamation,
                        u"Font");
    size.SetFocus();
    size.SetSelStart(0);
    size.SetSelLength(static_cast<std::int32_t>(size.Text().size()));
    return;
  }
  chosen_ = true;
  Hide();
}

}  // namespace tui
