// The terminal front end: shows the forms runtime's dialogs, message boxes and
// font service in a text terminal and takes the user's keys for them.
//
// A dialog shows as a window drawn from its geometry (see layout.hpp), centred;
// a dialog opened from another shows over it, a little lower and to the
// right; a dialog taller than the terminal scrolls to keep the focus in view.
// The bottom line names the keys that do something in the dialog. Keys: Tab
// and Shift+Tab walk the tab order, arrows move in option groups, lists and
// text, Space ticks, presses and toggles, Enter presses the default button,
// Esc the cancel button, Alt+letter (or Esc then the letter) an access key,
// F10 or Ctrl+Q the close box. The terminal is in visual mode
// only while something is shown, so the caller may use standard input and
// output in between.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "forms/font_catalog.hpp"
#include "forms/frontend.hpp"
#include "forms/runtime.hpp"
#include "forms/settings_store.hpp"
#include "tui/layout.hpp"

namespace tui {

class Terminal;

class TerminalFrontend : public forms::Frontend {
 public:
  // The font service offers the families of `fonts`, which must outlive the
  // front end.
  explicit TerminalFrontend(forms::FontCatalog& fonts);
  ~TerminalFrontend() override;

  // Each throws forms::InputExhausted when the terminal is closed or there is
  // none; failures of the form's routines pass to the caller.
  void RunModal(forms::Form& form) override;
  std::int32_t ShowMessageBox(const forms::MessageBox& box) override;
  bool ShowFont(forms::FontChoice& font) override;

 private:
  // The font dialog is a form; it lives in a runtime of its own, with no
  // settings and no observer, so the session's trace records the font
  // service as one event and nothing of the dialog that served it.
  class NoSettings : public forms::SettingsStore {
   public:
    std::optional<vb::Text> Get(const vb::Text&, const vb::Text&, const vb::Text&) override {
      return std::nullopt;
    }
    void Save(const vb::Text&, const vb::Text&, const vb::Text&, const vb::Text&) override {}
    bool Remove(const vb::Text&, const vb::Text&, const vb::Text&) override { return false; }
  };

  // Clears the screen and draws every shown dialog with the top one's hint;
  // the top one's caret goes to caret_.
  void DrawForms();
  void DrawHint(const vb::Text& hint);

  std::unique_ptr<Terminal> terminal_;
  forms::FontCatalog* fonts_;
  NoSettings no_settings_;
  forms::Runtime font_runtime_;
  // Shown dialogs, bottom first; the last one takes the keys.
  std::vector<forms::Form*> shown_;
  // First row each dialog shows, for dialogs taller than the terminal.
  std::map<const forms::Form*, int> scroll_;
  std::optional<Caret> caret_;
};

}  // namespace tui
