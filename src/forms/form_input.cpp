// User input to a form, as a front end delivers it. Every entry applies the
// rules that hold across controls first -- a form that is not shown takes
// nothing, disabled controls take nothing, Tab walks the tab order, Enter and
// Esc press the default and cancel buttons, Alt+letter finds an access key --
// and only then hands the input to the one control it is for.
#include <algorithm>

#include "forms/case_fold.hpp"
#include "forms/form.hpp"

namespace forms {

namespace {

// The option buttons a group of `button` holds: those of the same container,
// in tab order.
std::vector<OptionButton*> GroupOf(const std::vector<Control*>& order, const Control& button) {
  std::vector<OptionButton*> group;
  for (Control* c : order) {
    if (c->Kind() == ControlKind::OptionButton && c->Container() == button.Container())
      group.push_back(static_cast<OptionButton*>(c));
  }
  return group;
}

// Tab enters an option group at its selected button: the others are no tab
// stops while a button of the group that can take the focus is selected.
bool IsTabStop(const std::vector<Control*>& order, Control& c) {
  if (!c.CanTakeFocus()) return false;
  if (c.Kind() != ControlKind::OptionButton || static_cast<OptionButton&>(c).Value()) return true;
  for (OptionButton* other : GroupOf(order, c)) {
    if (other != &c && other->Value() && other->CanTakeFocus()) return false;
  }
  return true;
}

// The next tab stop after position `from` (or before it, backwards),
// wrapping; `from` may be -1 for "before the first". Null when there is none.
Control* NextTabStop(const std::vector<Control*>& order, std::ptrdiff_t from, bool backwards) {
  const auto n = static_cast<std::ptrdiff_t>(order.size());
  if (n == 0) return nullptr;
  if (from < 0) from = backwards ? 0 : n - 1;
  for (std::ptrdiff_t step = 1; step <= n; ++step) {
    const std::ptrdiff_t i = ((backwards ? from - step : from + step) % n + n) % n;
    if (IsTabStop(order, *order[i])) return order[i];
  }
  return nullptr;
}

std::ptrdiff_t PositionOf(const std::vector<Control*>& order, const Control* c) {
  auto it = std::find(order.begin(), order.end(), c);
  return it == order.end() ? -1 : it - order.begin();
}

void Press(CommandButton* button) {
  if (button && button->EffectivelyEnabled()) button->UserClick();
}

}  // namespace

void Form::TabFrom(bool backwards) {
  const auto order = TabOrder();
  if (Control* next = NextTabStop(order, PositionOf(order, active_), backwards)) MoveFocus(next);
}

void Form::UserKey(Key key) {
  if (!shown_) return;
  if (key == Key::Tab || key == Key::ShiftTab) {
    TabFrom(key == Key::ShiftTab);
    return;
  }
  if (key == Key::Enter) {
    // A focused button takes Enter itself; elsewhere Enter means the default.
    if (active_ && active_->Kind() == ControlKind::CommandButton)
      Press(static_cast<CommandButton*>(active_));
    else
      Press(DefaultButton());
    return;
  }
  if (key == Key::Escape) {
    Press(CancelButton());
    return;
  }
  if (key == Key::Space) {
    UserChar(u' ');
    return;
  }
  if (!active_ || !active_->EffectivelyEnabled()) return;

  switch (active_->Kind()) {
    case ControlKind::TextBox: {
      auto& text = static_cast<TextBox&>(*active_);
      const auto start = text.SelStart();
      const auto end = start + text.SelLength();
      const auto size = static_cast<std::int32_t>(text.Text().size());
      // Left and Right with a selection collapse it to its edge.
      if (key == Key::Backspace) text.TypeChar(8);
      if (key == Key::Delete) text.DeleteKey();
      if (key == Key::Left) text.MoveCaret(text.SelLength() > 0 ? start : start - 1, false);
      if (key == Key::Right) text.MoveCaret(text.SelLength() > 0 ? end : end + 1, false);
      if (key == Key::Home) text.MoveCaret(0, false);
      if (key == Key::End) text.MoveCaret(size, false);
      break;
    }
    case ControlKind::OptionButton: {
      const bool back = key == Key::Up || key == Key::Left;
      if (!back && key != Key::Down && key != Key::Right) break;
      // Arrows move round the group, selecting as they go.
      const auto group = GroupOf(TabOrder(), *active_);
      const auto n = static_cast<std::ptrdiff_t>(group.size());
      const auto at = std::find(group.begin(), group.end(), active_) - group.begin();
      for (std::ptrdiff_t step = 1; step < n; ++step) {
        OptionButton* next = group[((back ? at - step : at + step) % n + n) % n];
        if (!next->CanTakeFocus()) continue;
        MoveFocus(next);
        next->SetValue(true);
        break;
      }
      break;
    }
    case ControlKind::ListBox: {
      auto& list = static_cast<ListBox&>(*active_);
      if (key == Key::Up) list.UserMoveCaret(list.Caret() - 1);
      if (key == Key::Down) list.UserMoveCaret(list.Caret() + 1);
      if (key == Key::Home) list.UserMoveCaret(0);
      if (key == Key::End) list.UserMoveCaret(list.ListCount() - 1);
      break;
    }
    default:
      break;
  }
}

void Form::UserChar(char16_t ch) {
  if (!shown_ || !active_) return;
  switch (active_->Kind()) {
    case ControlKind::TextBox:
      static_cast<TextBox&>(*active_).TypeChar(ch);
      break;
    case ControlKind::CheckBox:
      if (ch == u' ') static_cast<CheckBox&>(*active_).UserClick();
      break;
    case ControlKind::OptionButton:
      if (ch == u' ') static_cast<OptionButton&>(*active_).UserClick();
      break;
    case ControlKind::CommandButton:
      if (ch == u' ') Press(static_cast<CommandButton*>(active_));
      break;
    case ControlKind::ListBox: {
      // Space ticks the caret's row of a list with check boxes; a letter
      // seeks a row.
      auto& list = static_cast<ListBox&>(*active_);
      if (ch != u' ')
        list.UserSeek(ch);
      else if (list.CheckBoxStyle() && list.ListCount() > 0)
        UserToggleRow(list, list.Caret());
      break;
    }
    default:
      break;
  }
}

void Form::UserPaste(const vb::Text& text) {
  if (!shown_ || !active_ || active_->Kind() != ControlKind::TextBox) return;
  static_cast<TextBox&>(*active_).Paste(text);
}

void Form::UserAltKey(char16_t letter) {
  if (!shown_) return;
  letter = detail::FoldUpper(letter);
  const auto order = TabOrder();
  std::vector<std::ptrdiff_t> sharing;
  for (std::ptrdiff_t i = 0; i < static_cast<std::ptrdiff_t>(order.size()); ++i) {
    const Control& c = *order[i];
    if (c.EffectivelyEnabled() && c.EffectivelyVisible() && c.AccessKey() == letter)
      sharing.push_back(i);
  }
  if (sharing.empty()) return;
  // The first of them after the focus, so that a letter used twice moves
  // between its controls on each press.
  const auto after = std::upper_bound(sharing.begin(), sharing.end(), PositionOf(order, active_));
  const std::ptrdiff_t i = after == sharing.end() ? sharing.front() : *after;
  Control& c = *order[i];
  if (c.Kind() == ControlKind::Label || c.Kind() == ControlKind::Frame) {
    // A label names the control that follows it.
    if (Control* next = NextTabStop(order, i, false)) MoveFocus(next);
    return;
  }
  // A key that several controls share only moves the focus: pressing or
  // ticking the wrong one would do what the user never meant.
  if (sharing.size() > 1) {
    if (c.CanTakeFocus()) MoveFocus(&c);
    return;
  }
  switch (c.Kind()) {
    case ControlKind::CommandButton:
      Press(static_cast<CommandButton*>(&c));
      break;
    case ControlKind::CheckBox:
      MoveFocus(&c);
      static_cast<CheckBox&>(c).UserClick();
      break;
    case ControlKind::OptionButton:
      MoveFocus(&c);
      static_cast<OptionButton&>(c).UserClick();
      break;
    default:
      break;
  }
}

void Form::UserClick(Control& control) {
  if (!shown_ || &control.Parent() != this) return;
  if (!control.EffectivelyEnabled() || !control.EffectivelyVisible()) return;
  if (control.Focusable()) MoveFocus(&control);
  switch (control.Kind()) {
    case ControlKind::CheckBox:
      static_cast<CheckBox&>(control).UserClick();
      break;
    case ControlKind::OptionButton:
      static_cast<OptionButton&>(control).UserClick();
      break;
    case ControlKind::CommandButton:
      static_cast<CommandButton&>(control).UserClick();
      break;
    case ControlKind::TextBox: {
      auto& text = static_cast<TextBox&>(control);
      text.MoveCaret(static_cast<std::int32_t>(text.Text().size()), false);
      break;
    }
    default:
      break;
  }
}

void Form::UserToggleRow(ListBox& list, std::int32_t row) {
  if (!shown_ || &list.Parent() != this) return;
  if (!list.EffectivelyEnabled() || !list.EffectivelyVisible()) return;
  MoveFocus(&list);
  list.UserToggleRow(row);
}

void Form::UserClose() {
  Hide();
  Unload();
}

}  // namespace forms
