// What the user pressed, as the terminal front end understands it, and how
// each press reaches a form or a message box.
//
// The terminal turns its key codes into Input values (terminal.cpp); the rest
// is plain logic over the forms runtime: a form gets every press through its
// user-input entry points, which apply focus, default and cancel buttons and
// access keys and the list boxes' keys themselves, as they do for every
// front end.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "forms/form.hpp"

namespace tui {

struct Input {
  enum class Type {
    Key,     // `key`
    Char,    // `ch`, a printable character
    Alt,     // Alt plus the letter `ch` (Esc then the letter)
    Close,   // F10 or Ctrl+Q: the form's close box
    Resize,  // the terminal changed size: draw again
    None,    // nothing to do (an unknown key)
  };
  Type type = Type::None;
  forms::Key key = forms::Key::Tab;
  char16_t ch = 0;

  static Input Pressed(forms::Key k) { return {Type::Key, k, 0}; }
  static Input Typed(char16_t c) { return {Type::Char, forms::Key::Tab, c}; }
  static Input AltLetter(char16_t c) { return {Type::Alt, forms::Key::Tab, c}; }
  static Input CloseBox() { return {Type::Close, forms::Key::Tab, 0}; }
};

// Hands one press to the form. Failures of the form's routines pass to the
// caller.
void Deliver(forms::Form& form, const Input& input);

// A message box's buttons and which one is chosen; Left, Right, Tab and
// Shift+Tab move the choice round, Enter and Space answer it, Esc answers
// Cancel where there is one (and OK where it is the only button), and the
// first letter of a button answers that button.
class ButtonChoice {
 public:
  // `style` also picks the first chosen button: 256 for the second, 512 for
  // the third, as the message box's default-button bits do.
  explicit ButtonChoice(std::int32_t style);
  std::span<const std::int32_t> Buttons() const { return buttons_; }
  std::size_t Chosen() const { return chosen_; }
  // The answer, when the press gives one.
  std::optional<std::int32_t> Press(const Input& input);

 private:
  std::vector<std::int32_t> buttons_;
  std::size_t chosen_ = 0;
};

}  // namespace tui
