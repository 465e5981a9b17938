// Doubles for the terminal front end's tests: a front end that hands a queue
// of presses to a shown form through Deliver, as the terminal would, and
// answers message boxes from a queue.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "forms/forms_harness.hpp"
#include "forms/runtime.hpp"
#include "tui/input.hpp"

namespace tui::testing {

class ScriptedFrontend : public forms::Frontend {
 public:
  std::deque<Input> presses;
  // Runs while the form is still shown after the presses; the form is then
  // hidden, as if its close box had been used without unloading it.
  std::function<void(forms::Form&)> at_end;
  std::deque<std::int32_t> answers;
  std::vector<std::string> prompts;

  void RunModal(forms::Form& form) override {
    while (form.IsShown() && !presses.empty()) {
      const Input press = presses.front();
      presses.pop_front();
      Deliver(form, press);
    }
    if (!form.IsShown()) return;
    if (at_end) at_end(form);
    form.Hide();
  }
  std::int32_t ShowMessageBox(const forms::MessageBox& box) override {
    prompts.push_back(vb::ToUtf8(box.prompt));
    if (answers.empty()) return forms::MsgBoxButtons(box.buttons).front();
    const std::int32_t answer = answers.front();
    answers.pop_front();
    return answer;
  }
  bool ShowFont(forms::FontChoice&) override { return false; }
};

struct Shown {
  forms::testing::MemorySettings settings;
  ScriptedFrontend frontend;
  forms::Runtime runtime{frontend, settings, u"Test"};
};

inline Input Key(forms::Key k) { return Input::Pressed(k); }
inline Input Char(char16_t c) { return Input::Typed(c); }
inline Input Alt(char16_t c) { return Input::AltLetter(c); }

}  // namespace tui::testing
