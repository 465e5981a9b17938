#include "win32/win32_frontend.hpp"

#include "win32/system.hpp"

#include <commdlg.h>

#include <algorithm>
#include <cmath>

#include "forms/form.hpp"
#include "vb/failure.hpp"
#include "win32/dialog_window.hpp"
#include "win32/wide.hpp"

namespace win32 {
namespace {

// The VB names of the font service's flags are the system's CF_ values.
constexpr DWORD kInitToLogFont = CF_INITTOLOGFONTSTRUCT;

// Points to the logical height of a font on this screen, and back.
LONG HeightOfPoints(double points) {
  HDC screen = GetDC(nullptr);
  const int dpi = screen ? GetDeviceCaps(screen, LOGPIXELSY) : 96;
  if (screen) ReleaseDC(nullptr, screen);
  return -static_cast<LONG>(std::lround(points * dpi / 72.0));
}

// What the window procedure saw, handed to the form's user-input entry
// points; the form applies its rules (a disabled control takes nothing).
void Apply(forms::Form& form, const PendingInput& input) {
  using T = PendingInput::Type;
  switch (input.type) {
    case T::Close:
      form.UserClose();
      return;
    case T::Click:
      form.UserClick(*input.control);
      return;
    case T::Focus:
      // Only the focus: the mouse places a text box's caret itself.
      if (form.ActiveControl() != input.control && input.control->CanTakeFocus())
        input.control->SetFocus();
      return;
    case T::ListSelect: {
      auto& list = static_cast<forms::ListBox&>(*input.control);
      form.UserClick(list);
      if (input.row >= 0 && form.ActiveControl() == &list) list.SetListIndex(input.row);
      return;
    }
    case T::ListToggle:
      form.UserToggleRow(static_cast<forms::ListBox&>(*input.control), input.row);
      return;
    case T::Selection: {
      auto& text = static_cast<forms::TextBox&>(*input.control);
      if (form.ActiveControl() != &text) return;
      text.SetSelStart(input.row);
      text.SetSelLength(input.length);
      return;
    }
  }
}

}  // namespace

HWND Win32Frontend::Owner() const {
  if (!shown_.empty()) return shown_.back();
  return owner_ && IsWindow(owner_) ? owner_ : GetActiveWindow();
}

void Win32Frontend::RunModal(forms::Form& form) {
  DialogWindow window(form, Owner());
  shown_.push_back(window.Handle());
  struct Forget {
    std::vector<HWND>* shown;
    ~Forget() { shown->pop_back(); }
  } forget{&shown_};
  MSG msg{};
  while (form.IsShown()) {
    const BOOL got = GetMessageW(&msg, nullptr, 0, 0);
    if (got == -1) throw vb::Failure(vb::kInvalidProcedureCall, u"The dialog's messages failed");
    if (got == 0) {
      PostQuitMessage(static_cast<int>(msg.wParam));
      throw forms::InputExhausted("the IDE is closing");
    }
    if (!window.Owns(msg.hwnd) || !window.Take(msg)) {
      TranslateMessage(&msg);
      DispatchMessageW(&msg);
    }
    for (const PendingInput& input : window.TakePending()) Apply(form, input);
    if (form.IsShown()) window.Sync();
  }
}

std::int32_t Win32Frontend::ShowMessageBox(const forms::MessageBox& box) {
  // The style's button and icon bits are the system's MB_ values.
  const int answer = MessageBoxW(Owner(), Wide(box.prompt), Wide(box.title),
                                 static_cast<UINT>(box.buttons) | MB_TASKMODAL);
  if (answer == 0) return forms::vbCancel;
  return answer;  // IDOK..IDNO are vbOK..vbNo
}

bool Win32Frontend::ShowFont(forms::FontChoice& font) {
  LOGFONTW log{};
  log.lfHeight = HeightOfPoints(font.size);
  log.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
  log.lfItalic = font.italic;
  log.lfUnderline = font.underline;
  log.lfStrikeOut = font.strike_thru;
  log.lfCharSet = DEFAULT_CHARSET;
  const std::size_t length = std::min<std::size_t>(font.name.size(), LF_FACESIZE - 1);
  std::copy_n(Wide(font.name), length, log.lfFaceName);

  CHOOSEFONTW choose{};
  choose.lStructSize = sizeof choose;
  choose.hwndOwner = Owner();
  choose.lpLogFont = &log;
  choose.Flags = static_cast<DWORD>(font.flags) | kInitToLogFont;
  if (!ChooseFontW(&choose)) return false;

  font.name = FromWide(log.lfFaceName);
  font.size = static_cast<vb::Single>(choose.iPointSize) / 10.0F;
  font.bold = log.lfWeight >= FW_BOLD;
  font.italic = log.lfItalic != 0;
  font.underline = log.lfUnderline != 0;
  font.strike_thru = log.lfStrikeOut != 0;
  return true;
}

}  // namespace win32
