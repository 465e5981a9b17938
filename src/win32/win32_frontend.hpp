// The forms runtime's front end on Windows: message boxes and the font
// service are the system's own (MessageBoxW, ChooseFontW), owned by the
// IDE's main window when the IDE names it, else by the window that is active
// in the IDE's thread.
//
// A form shows as a modal dialog window (dialog_window.hpp) owned by the
// dialog it was opened from, or by the IDE's main window; message boxes and
// the font service are owned by the top dialog in the same way. The modal
// loop ends when the form is hidden or unloaded; a WM_QUIT (the IDE closing)
// ends it too, with forms::InputExhausted, and is posted again for the IDE.
#pragma once

#include "win32/system.hpp"

#include <vector>

#include "forms/frontend.hpp"

namespace win32 {

class Win32Frontend : public forms::Frontend {
 public:
  // The IDE's main window, or null when it is not known.
  void SetOwner(HWND owner) { owner_ = owner; }

  void RunModal(forms::Form& form) override;
  std::int32_t ShowMessageBox(const forms::MessageBox& box) override;
  bool ShowFont(forms::FontChoice& font) override;

 private:
  HWND Owner() const;
  HWND owner_ = nullptr;
  // The dialog windows shown, bottom first.
  std::vector<HWND> shown_;
};

}  // namespace win32
