#include "dialogs/property_dialog.hpp"

#include "dialogs/key_filters.hpp"
#include "vb/text.hpp"

namespace tessaly {

PropertyDialog::PropertyDialog(forms::Runtime& runtime, const DialogDesign& design)
    : Form(runtime, design.form_name, design.title, design.controls, design.position,
           design.client),
      design_(design) {
  WireFrame();
}

PropertyDialog::~PropertyDialog() = default;

forms::Control& PropertyDialog::Field(FieldRef ref) const {
  return Get<forms::Control>(ref.name, ref.index);
}

void PropertyDialog::WireFrame() {
  Get<forms::CommandButton>("OKButton").Click = [this](forms::Control&) { OKButton_Click(); };
  Get<forms::CommandButton>("CancelButton").Click = [this](forms::Control&) {
    CancelButton_Click();
  };
  if (auto* font = dynamic_cast<forms::CommandButton*>(Find("cmdFont"))) {
    font->Click = [this](forms::Control&) { cmdFont_Click(); };
  }
  auto& name = Get<forms::TextBox>("txtName");
  name.Change = [this](forms::Control&) { txtName_Change(); };
  name.KeyPress = [this](forms::Control&, forms::KeyPressArgs& args) { txtName_KeyPress(args); };
  for (const char* field : design_.digit_filtered) {
    Get<forms::TextBox>(field).KeyPress = [](forms::Control&, forms::KeyPressArgs& args) {
      args.KeyAscii = DigitFilter(args.KeyAscii);
    };
  }
}

void PropertyDialog::FocusName() {
  auto& name = Get<forms::TextBox>("txtName");
  name.SetFocus();
  name.SetSelStart(static_cast<std::int32_t>(name.Text().size()));
  name.SetSelLength(1);
}

void PropertyDialog::ReadDefaultFont() {
  recFont = GetDefaultFont(GetRuntime());
  Get<forms::TextBox>("txtFont").SetText(recFont->Name);
}

void PropertyDialog::Form_Activate() {
  Presets();
  switch (design_.activate) {
    case ActivateVariant::FocusAndFont:
      FocusName();
      ReadDefaultFont();
      break;
    case ActivateVariant::FocusOnly:
      FocusName();
      break;
    case ActivateVariant::Own:
      break;
  }
}

void PropertyDialog::txtName_Change() {
  if (design_.name_link == NameLink::None) return;
  // The first three characters are cut whatever they are.
  vb::Text caption = vb::Mid(Get<forms::TextBox>("txtName").Text(), 4);
  if (design_.name_link == NameLink::Caption) caption.insert(caption.begin(), u'&');
  auto& target = Get<forms::TextBox>("txtCaption");
  target.SetText(std::move(caption));
  target.SetSelStart(0);
  target.SetSelLength(static_cast<std::int32_t>(target.Text().size()));
}

void PropertyDialog::txtName_KeyPress(forms::KeyPressArgs& args) {
  if (design_.name_filter == NameFilter::CaptionFeeding && FeedsCaption(args.KeyAscii)) {
    auto& caption = Get<forms::TextBox>("txtCaption");
    caption.SetText(caption.Text() + static_cast<char16_t>(args.KeyAscii));
  }
  args.KeyAscii = DroppingFilter(args.KeyAscii);
}

bool PropertyDialog::SetProperty(const vb::Text& name, const vb::Value& value,
                                 forms::Control& field) {
  try {
    auto property = objControl->Properties()->Item(name);
    if (!property) throw vb::Failure::Of(vb::kObjectNotSet);
    property->SetValue(value);
    return true;
  } catch (const vb::Failure& failure) {
    objFailed = &field;
    GetRuntime().MsgBox(u"An error occurred trying to set the property value for " + name +
                            u".\r\nThe error was: " + failure.Description(),
                        forms::vbInformation, u"Invalid Property Value");
    return false;
  }
}

void PropertyDialog::CancelButton_Click() {
  Hide();
  Unload();
}

void PropertyDialog::cmdFont_Click() {
  auto& dialog = Get<forms::CommonDialog>("cdlgFont");
  FontToDialog(dialog, recFont.value_or(FontInfo{}));
  dialog.ShowFont();
  recFont = FontFromDialog(dialog);
  Get<forms::TextBox>("txtFont").SetText(recFont->Name);
}

}  // namespace tessaly
