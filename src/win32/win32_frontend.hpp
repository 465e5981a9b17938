// The forms runtime's front end on Windows: message boxes and the font
// service are the system's own (MessageBoxW, ChooseFontW), owned by the
// IDE's main window when the IDE names it, else by the window that is active
// in the IDE's thread.
//
// Forms are not drawn as windows yet: RunModal says so in a message box and
// fails, so the event that wanted the dialog changes nothing.
#pragma once

#include "win32/system.hpp"

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
};

}  // namespace win32
