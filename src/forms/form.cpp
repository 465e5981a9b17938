// A form's construction from its design table, its lifecycle (Load, Show,
// Hide, Unload) and control lookup. User input is in form_input.cpp.
#include "forms/form.hpp"

#include <algorithm>
#include <charconv>
#include <stdexcept>

#include "forms/case_fold.hpp"
#include "forms/runtime.hpp"

namespace forms {

namespace {

std::unique_ptr<Control> MakeControl(ControlKind kind, Form& form, std::string name,
                                     std::int16_t index) {
  switch (kind) {
    case ControlKind::Label:
      return std::make_unique<Label>(form, std::move(name), index);
    case ControlKind::TextBox:
      return std::make_unique<TextBox>(form, std::move(name), index);
    case ControlKind::CheckBox:
      return std::make_unique<CheckBox>(form, std::move(name), index);
    case ControlKind::OptionButton:
      return std::make_unique<OptionButton>(form, std::move(name), index);
    case ControlKind::CommandButton:
      return std::make_unique<CommandButton>(form, std::move(name), index);
    case ControlKind::ListBox:
      return std::make_unique<ListBox>(form, std::move(name), index);
    case ControlKind::Frame:
      return std::make_unique<Frame>(form, std::move(name), index);
    case ControlKind::CommonDialog:
      return std::make_unique<CommonDialog>(form, std::move(name), index);
  }
  throw std::logic_error("unknown control kind");
}

// The design properties a row sets beyond name, place and container. The
// events are not wired yet, so setters that raise events raise them into
// nothing.
void ApplyRow(Control& c, const ControlSpec& row) {
  c.SetTag(row.tag ? row.tag : u"");
  if (row.flags & kDisabled) c.SetEnabled(false);
  if (row.flags & kHidden) c.SetVisible(false);
  const vb::Text caption = row.caption ? row.caption : u"";
  switch (c.Kind()) {
    case ControlKind::Label: {
      auto& label = static_cast<Label&>(c);
      label.SetCaption(caption);
      label.SetBold((row.flags & kBold) != 0);
      if (row.flags & kAlignRight) label.SetAlignment(Alignment::Right);
      if (row.flags & kAlignCenter) label.SetAlignment(Alignment::Center);
      break;
    }
    case ControlKind::Frame:
      static_cast<Frame&>(c).SetCaption(caption);
      break;
    case ControlKind::TextBox: {
      auto& text = static_cast<TextBox&>(c);
      text.SetText(caption);
      text.SetMaxLength(row.max_length);
      break;
    }
    case ControlKind::CheckBox: {
      auto& check = static_cast<CheckBox&>(c);
      check.SetCaption(caption);
      check.SetValue(row.value);
      break;
    }
    case ControlKind::OptionButton:
      // Value waits until containers are known: it clears the group.
      static_cast<OptionButton&>(c).SetCaption(caption);
      break;
    case ControlKind::CommandButton: {
      auto& button = static_cast<CommandButton&>(c);
      button.SetCaption(caption);
      button.SetDefault((row.flags & kDefault) != 0);
      button.SetCancel((row.flags & kCancel) != 0);
      break;
    }
    case ControlKind::ListBox: {
      auto& list = static_cast<ListBox&>(c);
      list.SetSorted((row.flags & kSorted) != 0);
      list.SetCheckBoxStyle((row.flags & kCheckBoxStyle) != 0);
      break;
    }
    case ControlKind::CommonDialog:
      break;
  }
}

}  // namespace

Form::Form(Runtime& runtime, std::string name, vb::Text caption,
           std::span<const ControlSpec> design, StartUpPosition position, ClientSize client)
    : runtime_(&runtime),
      name_(std::move(name)),
      caption_(std::move(caption)),
      design_caption_(caption_),
      position_(position),
      client_(client) {
  Build(design);
}

Form::~Form() {
  // A form destroyed while shown (a failure or the end of input unwound its
  // modal loop) must not stay on the runtime's stack.
  if (shown_) std::erase(runtime_->shown_, this);
}

void Form::Build(std::span<const ControlSpec> design) {
  int tab_index = 0;
  for (const ControlSpec& row : design) {
    auto c = MakeControl(row.kind, *this, row.name, row.index);
    if (row.kind != ControlKind::CommonDialog) c->tab_index_ = tab_index++;
    c->bounds_ = row.bounds;
    ApplyRow(*c, row);
    controls_.push_back(std::move(c));
  }
  // A row may name a frame that stands later in the table.
  for (std::size_t i = 0; i < design.size(); ++i) {
    if (!design[i].container) continue;
    Control* frame = nullptr;
    for (const auto& c : controls_) {
      if (c->Kind() == ControlKind::Frame && detail::SameName(c->Name(), design[i].container)) {
        frame = c.get();
        break;
      }
    }
    if (!frame) {
      throw std::logic_error("form " + name_ + ": control " + controls_[i]->Path() +
                             " names no frame '" + design[i].container + "'");
    }
    controls_[i]->container_ = frame;
  }
  for (std::size_t i = 0; i < design.size(); ++i) {
    if (design[i].kind == ControlKind::OptionButton && design[i].value == 1)
      static_cast<OptionButton&>(*controls_[i]).SetValue(true);
  }
  for (const auto& c : controls_) c->TakeDesign();
}

void Form::Load() {
  if (loaded_) return;
  loaded_ = true;
  Form_Load();
}

void Form::Show(int mode) {
  if (shown_) {
    // A modeless Show of a visible form only brings it forward.
    if (mode == 1) throw vb::Failure::Of(vb::kFormAlreadyDisplayed);
    return;
  }
  Load();
  // Form_Load may have unloaded the form again.
  if (!loaded_) return;
  shown_ = true;
  runtime_->FormShown(*this);
  // A form shown again after Hide keeps its focus; a fresh one starts at the
  // first control that can take it.
  if (!active_ || !active_->CanTakeFocus()) {
    Control* first = nullptr;
    for (Control* c : TabOrder()) {
      if (c->CanTakeFocus()) {
        first = c;
        break;
      }
    }
    MoveFocus(first);
  }
  try {
    Form_Activate();
    // Form_Activate may have hidden or unloaded the form already.
    if (mode == 1 && shown_) runtime_->GetFrontend().RunModal(*this);
  } catch (...) {
    // A failure that escapes the form's routines ends its Show: the form
    // closes so the runtime holds nothing stale, and the caller hears of it.
    if (loaded_) Unload();
    throw;
  }
}

void Form::Hide() {
  if (!shown_) return;
  shown_ = false;
  runtime_->FormHidden(*this);
}

void Form::Unload() {
  Hide();
  for (const auto& c : controls_) c->RestoreDesign();
  active_ = nullptr;
  caption_ = design_caption_;
  loaded_ = false;
}

Control* Form::Find(std::string_view name, std::int16_t index) const {
  for (const auto& c : controls_) {
    if (c->Index() == index && detail::SameName(c->Name(), name)) return c.get();
  }
  return nullptr;
}

Control* Form::FindByPath(std::string_view path) const {
  // Scripts may qualify a path with the form's name: "frmTextBox/txtName".
  if (auto slash = path.find('/'); slash != std::string_view::npos) {
    if (!detail::SameName(path.substr(0, slash), name_)) return nullptr;
    path.remove_prefix(slash + 1);
  }
  std::int16_t index = -1;
  if (auto open = path.find('('); open != std::string_view::npos) {
    if (path.back() != ')') return nullptr;
    const char* first = path.data() + open + 1;
    const char* last = path.data() + path.size() - 1;
    auto [end, ec] = std::from_chars(first, last, index);
    if (ec != std::errc() || end != last || index < 0) return nullptr;
    path = path.substr(0, open);
  }
  return Find(path, index);
}

void Form::ThrowMissing(std::string_view name, std::int16_t index) const {
  Control* same_name = nullptr;
  for (const auto& c : controls_) {
    if (detail::SameName(c->Name(), name)) same_name = c.get();
  }
  // A missing element of an existing array is a run-time failure in VB; a
  // missing name or a wrong kind is a mistake in the form's code.
  if (index >= 0 && same_name && same_name->Index() >= 0 && !Find(name, index)) {
    throw vb::Failure(
        340, u"Control array element '" + vb::FromUtf8(std::to_string(index)) + u"' doesn't exist");
  }
  std::string what(name);
  if (index >= 0) {
    what += '(';
    what += std::to_string(index);
    what += ')';
  }
  if (Control* c = Find(name, index)) {
    throw std::logic_error("form " + name_ + ": " + what + " is a " + ControlKindName(c->Kind()));
  }
  throw std::logic_error("form " + name_ + " has no control " + what);
}

std::vector<Control*> Form::TabOrder() const {
  std::vector<Control*> order;
  for (const auto& c : controls_) {
    if (c->TabIndex() >= 0) order.push_back(c.get());
  }
  std::stable_sort(order.begin(), order.end(),
                   [](Control* a, Control* b) { return a->TabIndex() < b->TabIndex(); });
  return order;
}

CommandButton* Form::DefaultButton() const {
  for (const auto& c : controls_) {
    if (auto* b = dynamic_cast<CommandButton*>(c.get()); b && b->Default()) return b;
  }
  return nullptr;
}

CommandButton* Form::CancelButton() const {
  for (const auto& c : controls_) {
    if (auto* b = dynamic_cast<CommandButton*>(c.get()); b && b->Cancel()) return b;
  }
  return nullptr;
}

void Form::MoveFocus(Control* to) {
  if (to == active_) return;
  active_ = to;
  if (to) runtime_->GetObserver().FocusChanged(*this, *to);
}

}  // namespace forms
