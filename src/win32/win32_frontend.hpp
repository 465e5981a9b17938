// The forms runtime's front end on Windows: message boxes and the font
// service are the system's own (MessageBoxW, ChooseFontW), owned by the
// window that is active in the IDE's thread.
//
// Forms are not drawn as windows yet: RunModal fails with a failure that
// says so, which the add-in reports as it reports any failed event.
#pragma once

#include "forms/frontend.hpp"

namespace win32 {

class Win32Frontend : public forms::Frontend {
 public:
  void RunModal(forms::Form& form) override;
  std::int32_t ShowMessageBox(const forms::MessageBox& box) override;
  bool ShowFont(forms::FontChoice& font) override;
};

}  // namespace win32
