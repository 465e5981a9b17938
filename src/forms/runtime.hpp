// The forms runtime: the services a form's code calls besides its controls.
//
// One Runtime per process (per session). It knows the front end that shows
// forms, the settings store, and an optional observer; it keeps the stack of
// shown forms so that a form that becomes active again after another form
// closed over it gets Form_Activate. Message boxes and the font service are
// not forms and never change which form is active.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "forms/frontend.hpp"
#include "forms/observer.hpp"
#include "forms/settings_store.hpp"
#include "vb/text.hpp"

namespace forms {

class Form;

class Runtime {
 public:
  // `app_title` is what a message box shows when its caller gives no title.
  Runtime(Frontend& frontend, SettingsStore& store, vb::Text app_title);

  Frontend& GetFrontend() const { return *frontend_; }
  void SetObserver(Observer* observer) { observer_ = observer ? observer : &null_observer_; }
  Observer& GetObserver() const { return *observer_; }
  const vb::Text& AppTitle() const { return app_title_; }

  // MsgBox: shows the prompt and returns the button chosen.
  std::int32_t MsgBox(const vb::Text& prompt, std::int32_t buttons = 0,
                      std::optional<vb::Text> title = std::nullopt);
  // GetSetting: the stored text, or `default_text`.
  vb::Text GetSetting(const vb::Text& app, const vb::Text& section, const vb::Text& key,
                      const vb::Text& default_text);
  // SaveSetting.
  void SaveSetting(const vb::Text& app, const vb::Text& section, const vb::Text& key,
                   const vb::Text& text);
  // Runs the font service of a common dialog on `font`.
  bool ShowFont(FontChoice& font);

  // Shown forms, bottom first; the last is the active one.
  const std::vector<Form*>& ShownForms() const { return shown_; }
  Form* ActiveForm() const { return shown_.empty() ? nullptr : shown_.back(); }

 private:
  friend class Form;
  void FormShown(Form& form);
  void FormHidden(Form& form);

  Frontend* frontend_;
  SettingsStore* store_;
  vb::Text app_title_;
  Observer null_observer_;
  Observer* observer_ = &null_observer_;
  std::vector<Form*> shown_;
};

}  // namespace forms
