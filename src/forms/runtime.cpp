// The runtime's services to a form's code: message boxes, settings, the font
// service, and the stack of shown forms that decides which form is active.
#include "forms/runtime.hpp"

#include "forms/form.hpp"

namespace forms {

Runtime::Runtime(Frontend& frontend, SettingsStore& store, vb::Text app_title)
    : frontend_(&frontend), store_(&store), app_title_(std::move(app_title)) {}

std::int32_t Runtime::MsgBox(const vb::Text& prompt, std::int32_t buttons,
                             std::optional<vb::Text> title) {
  MessageBox box{prompt, buttons, title ? *title : app_title_, title.has_value()};
  const std::int32_t answer = frontend_->ShowMessageBox(box);
  observer_->MessageBoxShown(box, answer);
  return answer;
}

vb::Text Runtime::GetSetting(const vb::Text& app, const vb::Text& section, const vb::Text& key,
                             const vb::Text& default_text) {
  std::optional<vb::Text> stored = store_->Get(app, section, key);
  vb::Text text = stored ? *stored : default_text;
  observer_->SettingRead(app, section, key, text, stored.has_value());
  return text;
}

void Runtime::SaveSetting(const vb::Text& app, const vb::Text& section, const vb::Text& key,
                          const vb::Text& text) {
  store_->Save(app, section, key, text);
  observer_->SettingWritten(app, section, key, text);
}

bool Runtime::ShowFont(FontChoice& font) {
  const FontChoice given = font;
  const bool ok = frontend_->ShowFont(font);
  // Cancel leaves the font as given, whatever the front end did with it.
  if (!ok) font = given;
  observer_->FontServiceClosed(given, font, ok);
  return ok;
}

void Runtime::FormShown(Form& form) {
  shown_.push_back(&form);
  observer_->FormShown(form);
}

void Runtime::FormHidden(Form& form) {
  const bool was_active = ActiveForm() == &form;
  std::erase(shown_, &form);
  observer_->FormClosed(form);
  // The form under a closed active one becomes active again. Message boxes
  // and the font service never get here, so they cause no Activate.
  if (was_active && !shown_.empty()) shown_.back()->RaiseActivate();
}

}  // namespace forms
