// The intrinsic controls: state, design snapshots and the events their setters
// raise. Keyboard dispatch across controls (Tab, Enter, access keys) lives in
// form_input.cpp; what is here concerns one control at a time.
//
// Sections: Control - TextBox - CheckBox - OptionButton - CommandButton -
// ListBox - CommonDialog.
#include "forms/control.hpp"

#include <algorithm>

#include "forms/case_fold.hpp"
#include "forms/form.hpp"
#include "forms/frontend.hpp"
#include "forms/runtime.hpp"
#include "vb/failure.hpp"

namespace forms {

namespace {

void Raise(const EventHandler& handler, Control& sender) {
  if (handler) handler(sender);
}

}  // namespace

const char* ControlKindName(ControlKind kind) {
  switch (kind) {
    case ControlKind::Label:
      return "Label";
    case ControlKind::TextBox:
      return "TextBox";
    case ControlKind::CheckBox:
      return "CheckBox";
    case ControlKind::OptionButton:
      return "OptionButton";
    case ControlKind::CommandButton:
      return "CommandButton";
    case ControlKind::ListBox:
      return "ListBox";
    case ControlKind::Frame:
      return "Frame";
    case ControlKind::CommonDialog:
      return "CommonDialog";
  }
  return "Control";
}

// ---------------------------------------------------------------- Control

Control::Control(ControlKind kind, Form& form, std::string name, std::int16_t index)
    : kind_(kind), form_(&form), name_(std::move(name)), index_(index) {}

std::string Control::Path() const {
  if (index_ < 0) return name_;
  return name_ + "(" + std::to_string(index_) + ")";
}

void Control::SetEnabled(bool enabled) { enabled_ = enabled; }
void Control::SetVisible(bool visible) { visible_ = visible; }

bool Control::EffectivelyEnabled() const {
  for (const Control* c = this; c; c = c->container_) {
    if (!c->enabled_) return false;
  }
  return true;
}

bool Control::EffectivelyVisible() const {
  for (const Control* c = this; c; c = c->container_) {
    if (!c->visible_) return false;
  }
  return true;
}

bool Control::CanTakeFocus() const {
  return Focusable() && EffectivelyEnabled() && EffectivelyVisible();
}

void Control::SetFocus() {
  if (!CanTakeFocus() || !form_->IsShown()) throw vb::Failure::Of(vb::kInvalidProcedureCall);
  form_->MoveFocus(this);
}

std::optional<char16_t> Control::AccessKey() const {
  for (std::size_t i = 0; i + 1 < caption_.size(); ++i) {
    if (caption_[i] != u'&') continue;
    // "&&" shows a plain ampersand and marks nothing.
    if (caption_[i + 1] == u'&') {
      ++i;
      continue;
    }
    return detail::FoldUpper(caption_[i + 1]);
  }
  return std::nullopt;
}

void Control::TakeDesign() { design_ = {enabled_, visible_, tag_, caption_}; }

void Control::RestoreDesign() {
  enabled_ = design_.enabled;
  visible_ = design_.visible;
  tag_ = design_.tag;
  caption_ = design_.caption;
}

Label::Label(Form& form, std::string name, std::int16_t index)
    : Control(ControlKind::Label, form, std::move(name), index) {}

Frame::Frame(Form& form, std::string name, std::int16_t index)
    : Control(ControlKind::Frame, form, std::move(name), index) {}

// ---------------------------------------------------------------- TextBox

TextBox::TextBox(Form& form, std::string name, std::int16_t index)
    : Control(ControlKind::TextBox, form, std::move(name), index) {}

void TextBox::SetText(vb::Text text) {
  // Assigning Text always leaves the caret at the start, changed or not.
  sel_start_ = 0;
  sel_length_ = 0;
  caret_at_start_ = false;
  if (text == text_) return;
  text_ = std::move(text);
  Raise(Change, *this);
}

void TextBox::SetSelStart(std::int32_t start) {
  if (start < 0) throw vb::Failure::Of(vb::kInvalidPropertyValue);
  sel_start_ = std::min(start, static_cast<std::int32_t>(text_.size()));
  sel_length_ = 0;
  caret_at_start_ = false;
}

void TextBox::SetSelLength(std::int32_t length) {
  if (length < 0) throw vb::Failure::Of(vb::kInvalidPropertyValue);
  sel_length_ = std::min(length, static_cast<std::int32_t>(text_.size()) - sel_start_);
  caret_at_start_ = false;
}

vb::Text TextBox::SelText() const { return text_.substr(sel_start_, sel_length_); }

void TextBox::ReplaceSelection(const vb::Text& with) {
  vb::Text next = text_.substr(0, sel_start_) + with + text_.substr(sel_start_ + sel_length_);
  sel_start_ += static_cast<std::int32_t>(with.size());
  sel_length_ = 0;
  caret_at_start_ = false;
  if (next == text_) return;
  text_ = std::move(next);
  Raise(Change, *this);
}

void TextBox::TypeChar(char16_t ch) {
  if (!EffectivelyEnabled()) return;
  KeyPressArgs args{static_cast<std::int16_t>(ch)};
  if (KeyPress) KeyPress(*this, args);
  if (args.KeyAscii == 0) return;
  // The handler may have replaced the key with another one.
  const auto key = static_cast<char16_t>(args.KeyAscii);
  if (key == 8) {
    if (sel_length_ == 0) {
      if (sel_start_ == 0) return;
      --sel_start_;
      sel_length_ = 1;
    }
    ReplaceSelection(vb::Text());
    return;
  }
  // Other control characters (Enter, Tab, Ctrl+letter) insert nothing into a
  // single-line box; the form has already acted on the keys that mean something.
  if (key < 32) return;
  const auto length = static_cast<std::int32_t>(text_.size()) - sel_length_ + 1;
  if (max_length_ > 0 && length > max_length_) return;
  ReplaceSelection(vb::Text(1, key));
}

void TextBox::Paste(const vb::Text& text) {
  if (!EffectivelyEnabled() || text.empty()) return;
  vb::Text insert = text;
  if (max_length_ > 0) {
    const auto room = max_length_ - (static_cast<std::int32_t>(text_.size()) - sel_length_);
    if (room <= 0) return;
    if (static_cast<std::int32_t>(insert.size()) > room) insert.resize(room);
  }
  ReplaceSelection(insert);
}

void TextBox::DeleteKey() {
  if (!EffectivelyEnabled()) return;
  if (sel_length_ == 0) {
    if (sel_start_ >= static_cast<std::int32_t>(text_.size())) return;
    sel_length_ = 1;
  }
  ReplaceSelection(vb::Text());
}

void TextBox::MoveCaret(std::int32_t to, bool extend) {
  const auto size = static_cast<std::int32_t>(text_.size());
  to = std::clamp(to, 0, size);
  if (!extend) {
    sel_start_ = to;
    sel_length_ = 0;
    caret_at_start_ = false;
    return;
  }
  // The anchor is the end of the selection the caret is not at.
  const std::int32_t anchor = caret_at_start_ ? sel_start_ + sel_length_ : sel_start_;
  sel_start_ = std::min(anchor, to);
  sel_length_ = std::max(anchor, to) - sel_start_;
  caret_at_start_ = to < anchor;
}

void TextBox::TakeDesign() {
  Control::TakeDesign();
  design_text_ = {text_, max_length_};
}

void TextBox::RestoreDesign() {
  Control::RestoreDesign();
  // Unloading runs none of the form's code, so no Change here.
  text_ = design_text_.text;
  max_length_ = design_text_.max_length;
  sel_start_ = 0;
  sel_length_ = 0;
  caret_at_start_ = false;
}

// ---------------------------------------------------------------- CheckBox

CheckBox::CheckBox(Form& form, std::string name, std::int16_t index)
    : Control(ControlKind::CheckBox, form, std::move(name), index) {}

void CheckBox::SetValue(std::int16_t value) {
  if (value < 0 || value > 2) throw vb::Failure::Of(vb::kInvalidPropertyValue);
  if (value == value_) return;
  value_ = value;
  Raise(Click, *this);
}

void CheckBox::UserClick() {
  if (!EffectivelyEnabled()) return;
  // A grayed box clears on a click, as a checked one does.
  SetValue(value_ == 0 ? 1 : 0);
}

void CheckBox::TakeDesign() {
  Control::TakeDesign();
  design_value_ = value_;
}

void CheckBox::RestoreDesign() {
  Control::RestoreDesign();
  value_ = design_value_;
}

// ---------------------------------------------------------------- OptionButton

OptionButton::OptionButton(Form& form, std::string name, std::int16_t index)
    : Control(ControlKind::OptionButton, form, std::move(name), index) {}

void OptionButton::SetValue(bool value) {
  if (value == value_) return;
  value_ = value;
  if (!value) return;
  // The group is the container, whatever the buttons are called: two frames
  // hold two independent groups, and the form itself holds one more.
  for (const auto& c : Parent().Controls()) {
    if (c.get() == this || c->Kind() != ControlKind::OptionButton) continue;
    if (c->Container() != Container()) continue;
    static_cast<OptionButton&>(*c).value_ = false;
  }
  Raise(Click, *this);
}

void OptionButton::UserClick() {
  if (!EffectivelyEnabled()) return;
  if (value_) {
    Raise(Click, *this);
    return;
  }
  SetValue(true);
}

void OptionButton::TakeDesign() {
  Control::TakeDesign();
  design_value_ = value_;
}

void OptionButton::RestoreDesign() {
  Control::RestoreDesign();
  value_ = design_value_;
}

// ---------------------------------------------------------------- CommandButton

CommandButton::CommandButton(Form& form, std::string name, std::int16_t index)
    : Control(ControlKind::CommandButton, form, std::move(name), index) {}

void CommandButton::UserClick() {
  if (!EffectivelyEnabled()) return;
  Raise(Click, *this);
}

// ---------------------------------------------------------------- ListBox

ListBox::ListBox(Form& form, std::string name, std::int16_t index)
    : Control(ControlKind::ListBox, form, std::move(name), index) {}

void ListBox::AddItem(vb::Text item) {
  auto at = rows_.end();
  if (sorted_) {
    // After rows that compare equal, so equal rows keep the order of adding.
    at = std::upper_bound(rows_.begin(), rows_.end(), item, [](const vb::Text& t, const Row& r) {
      return detail::CompareNoCase(t, r.text) < 0;
    });
  }
  const auto pos = static_cast<std::int32_t>(at - rows_.begin());
  rows_.insert(at, Row{std::move(item)});
  new_index_ = pos;
  // The selected row stays selected when a row goes in above it, and the
  // caret with it; with nothing selected the caret stays on the first row.
  if (list_index_ >= pos) ++list_index_;
  if (list_index_ >= 0 && caret_ >= pos) ++caret_;
}

void ListBox::Clear() {
  rows_.clear();
  new_index_ = -1;
  list_index_ = -1;
  caret_ = 0;
}

const ListBox::Row& ListBox::At(std::int32_t i) const {
  if (i < 0 || i >= ListCount()) throw vb::Failure(381, u"Invalid property array index");
  return rows_[static_cast<std::size_t>(i)];
}

ListBox::Row& ListBox::At(std::int32_t i) {
  return const_cast<Row&>(static_cast<const ListBox&>(*this).At(i));
}

const vb::Text& ListBox::List(std::int32_t i) const { return At(i).text; }
bool ListBox::Selected(std::int32_t i) const { return At(i).selected; }
void ListBox::SetSelected(std::int32_t i, bool selected) { At(i).selected = selected; }
std::int32_t ListBox::ItemData(std::int32_t i) const { return At(i).item_data; }
void ListBox::SetItemData(std::int32_t i, std::int32_t data) { At(i).item_data = data; }

void ListBox::SetListIndex(std::int32_t i) {
  if (i < -1 || i >= ListCount()) throw vb::Failure::Of(vb::kInvalidPropertyValue);
  if (i >= 0) caret_ = i;
  if (i == list_index_) return;
  list_index_ = i;
  Raise(Click, *this);
}

std::int32_t ListBox::Caret() const {
  return rows_.empty() ? -1 : std::clamp(caret_, 0, ListCount() - 1);
}

void ListBox::UserMoveCaret(std::int32_t to) {
  if (rows_.empty() || !EffectivelyEnabled()) return;
  SetListIndex(std::clamp(to, 0, ListCount() - 1));
}

void ListBox::UserSeek(char16_t letter) {
  if (!EffectivelyEnabled()) return;
  const std::int32_t n = ListCount();
  const char16_t wanted = detail::FoldUpper(letter);
  const std::int32_t from = ListIndex() < 0 ? Caret() - 1 : Caret();
  for (std::int32_t step = 1; step <= n; ++step) {
    const std::int32_t i = (from + step + n) % n;
    const vb::Text& row = List(i);
    if (!row.empty() && detail::FoldUpper(row.front()) == wanted) {
      SetListIndex(i);
      return;
    }
  }
}

void ListBox::UserToggleRow(std::int32_t i) {
  Row& row = At(i);
  if (!EffectivelyEnabled()) return;
  row.selected = !row.selected;
  if (ItemCheck) ItemCheck(*this, i);
}

void ListBox::TakeDesign() { Control::TakeDesign(); }

void ListBox::RestoreDesign() {
  Control::RestoreDesign();
  // Rows are never part of a design table: a fresh form has an empty list.
  Clear();
}

// ---------------------------------------------------------------- CommonDialog

CommonDialog::CommonDialog(Form& form, std::string name, std::int16_t index)
    : Control(ControlKind::CommonDialog, form, std::move(name), index) {}

void CommonDialog::ShowFont() {
  FontChoice font{FontName, FontSize, FontBold, FontItalic, FontUnderline, FontStrikeThru, Flags};
  if (!Parent().GetRuntime().ShowFont(font)) return;
  FontName = font.name;
  FontSize = font.size;
  FontBold = font.bold;
  FontItalic = font.italic;
  FontUnderline = font.underline;
  FontStrikeThru = font.strike_thru;
  Flags = font.flags;
}

void CommonDialog::TakeDesign() {
  Control::TakeDesign();
  design_font_ = {FontName, FontSize, FontBold, FontItalic, FontUnderline, FontStrikeThru, Flags};
}

void CommonDialog::RestoreDesign() {
  Control::RestoreDesign();
  FontName = design_font_.name;
  FontSize = design_font_.size;
  FontBold = design_font_.bold;
  FontItalic = design_font_.italic;
  FontUnderline = design_font_.underline;
  FontStrikeThru = design_font_.strike_thru;
  Flags = design_font_.flags;
}

}  // namespace forms
