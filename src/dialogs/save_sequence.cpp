// The save sequence: one routine walks a dialog's table of writes.
#include <stdexcept>

#include "dialogs/property_dialog.hpp"
#include "vb/convert.hpp"
#include "vb/text.hpp"

namespace tessaly {
namespace {

const forms::OptionButton* FirstSelected(const PropertyDialog& dialog,
                                         std::span<const FieldRef> options, std::size_t& place) {
  for (place = 0; place < options.size(); ++place) {
    const auto& option = dialog.Get<forms::OptionButton>(options[place].name, options[place].index);
    if (option.Value()) return &option;
  }
  return nullptr;
}

const vb::Text& TextOf(const forms::Control& control) {
  return dynamic_cast<const forms::TextBox&>(control).Text();
}

}  // namespace

bool PropertyDialog::Applies(const Write& write) const {
  const FieldRef guard = write.guard ? write.guard : write.field;
  auto non_blank = [&] { return !vb::Trim(TextOf(Field(guard))).empty(); };
  switch (write.when) {
    case When::Always:
      break;
    case When::NonBlank:
      if (!non_blank()) return false;
      break;
    case When::OptionOff:
      if (Get<forms::OptionButton>(guard.name, guard.index).Value()) return false;
      break;
    case When::Enabled:
      if (!Field(guard).Enabled()) return false;
      break;
    case When::EnabledNonBlank:
      if (!Field(guard).Enabled() || !non_blank()) return false;
      break;
  }
  // An option group writes only when one of its buttons is selected.
  if (write.from == From::OptionTag || write.from == From::OptionPosition) {
    std::size_t place;
    return FirstSelected(*this, write.options, place) != nullptr;
  }
  return true;
}

vb::Value PropertyDialog::ReadValue(const Write& write, forms::Control*& field) const {
  field = write.field ? &Field(write.field) : nullptr;
  switch (write.from) {
    case From::FieldText:
      return TextOf(*field);
    case From::FieldTextTrimmed:
      return vb::Trim(TextOf(*field));
    case From::CheckBoolean:
      return vb::ToBoolean(dynamic_cast<const forms::CheckBox&>(*field).Value() != 0);
    case From::CheckValue:
      return dynamic_cast<const forms::CheckBox&>(*field).Value();
    case From::TextInteger:
      return vb::CInt(TextOf(*field));
    case From::TextLong:
      return vb::CLng(TextOf(*field));
    case From::OptionTag:
    case From::OptionPosition: {
      std::size_t place;
      const auto* option = FirstSelected(*this, write.options, place);
      field = &Field(write.options[place]);
      return write.from == From::OptionTag ? vb::Value(vb::CInt(option->Tag()))
                                           : vb::Value(static_cast<vb::Integer>(place));
    }
    case From::Custom:
      return write.custom(*this);
    case From::FontStage:
      break;
  }
  return vb::Value();
}

void PropertyDialog::FontStage() {
  auto property = objControl->Properties()->Item(u"Font");
  if (!property) throw vb::Failure::Of(vb::kObjectNotSet);
  auto font = std::dynamic_pointer_cast<ide::FontObject>(property->Object());
  if (!font) throw vb::Failure::Of(vb::kTypeMismatch);
  const FontInfo& f = recFont.value();
  font->Put(ide::FontDispId::Name, f.Name);
  font->Put(ide::FontDispId::Bold, f.Bold);
  font->Put(ide::FontDispId::Italic, f.Italic);
  font->Put(ide::FontDispId::Size, f.Size);
  font->Put(ide::FontDispId::Strikethrough, f.StrikeThru);
  font->Put(ide::FontDispId::Underline, f.Underline);
}

void PropertyDialog::StopPath() {
  if (!objFailed) return;
  try {
    objFailed->SetFocus();
  } catch (const vb::Failure&) {
    // A field that cannot take the focus leaves it where it was.
  }
}

void PropertyDialog::OKButton_Click() {
  try {
    for (const Write& write : design_.writes) {
      if (!Applies(write)) continue;
      if (write.from == From::FontStage) {
        FontStage();
        continue;
      }
      forms::Control* field = nullptr;
      const vb::Value value = ReadValue(write, field);
      if (write.focus) field = &Field(write.focus);
      if (!field) throw std::logic_error("a write of the save sequence names no field");
      if (!SetProperty(write.property, value, *field)) return StopPath();
    }
  } catch (const vb::Failure&) {
    // A conversion or the font stage failed: the save stops without a message.
    return StopPath();
  }
  CancelButton_Click();
}

}  // namespace tessaly
