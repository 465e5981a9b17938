// Presses, delivered: to a form through its user-input entry points, to a
// message box through its choice of buttons.
#include "tui/input.hpp"

#include "forms/case_fold.hpp"
#include "forms/frontend.hpp"

namespace tui {

void Deliver(forms::Form& form, const Input& input) {
  switch (input.type) {
    case Input::Type::Key:
      form.UserKey(input.key);
      return;
    case Input::Type::Char:
      form.UserChar(input.ch);
      return;
    case Input::Type::Alt:
      form.UserAltKey(input.ch);
      return;
    case Input::Type::Close:
      form.UserClose();
      return;
    case Input::Type::Resize:
    case Input::Type::None:
      return;
  }
}

ButtonChoice::ButtonChoice(std::int32_t style) : buttons_(forms::MsgBoxButtons(style)) {
  const auto second = static_cast<std::size_t>((style >> 8) & 3);
  if (second < buttons_.size()) chosen_ = second;
}

std::optional<std::int32_t> ButtonChoice::Press(const Input& input) {
  const std::size_t n = buttons_.size();
  if (input.type == Input::Type::Key) {
    switch (input.key) {
      case forms::Key::Left:
      case forms::Key::Up:
      case forms::Key::ShiftTab:
        chosen_ = (chosen_ + n - 1) % n;
        return std::nullopt;
      case forms::Key::Right:
      case forms::Key::Down:
      case forms::Key::Tab:
        chosen_ = (chosen_ + 1) % n;
        return std::nullopt;
      case forms::Key::Enter:
      case forms::Key::Space:
        return buttons_[chosen_];
      case forms::Key::Escape:
        for (std::int32_t b : buttons_) {
          if (b == forms::vbCancel) return b;
        }
        if (n == 1 && buttons_[0] == forms::vbOK) return forms::vbOK;
        return std::nullopt;
      default:
        return std::nullopt;
    }
  }
  if (input.type == Input::Type::Char || input.type == Input::Type::Alt) {
    if (input.ch == u' ') return buttons_[chosen_];
    const char16_t letter = forms::detail::FoldUpper(input.ch);
    for (std::int32_t b : buttons_) {
      if (static_cast<char16_t>(forms::MsgBoxResultName(b)[0]) == letter) return b;
    }
  }
  return std::nullopt;
}

}  // namespace tui
