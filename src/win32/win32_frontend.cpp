#include "win32/win32_frontend.hpp"

#include "win32/system.hpp"

#include <commdlg.h>

#include <algorithm>
#include <cmath>

#include "forms/form.hpp"
#include "vb/failure.hpp"
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

}  // namespace

HWND Win32Frontend::Owner() const {
  return owner_ && IsWindow(owner_) ? owner_ : GetActiveWindow();
}

void Win32Frontend::RunModal(forms::Form& form) {
  // The IDE may keep a failed event to itself, so the user is told here.
  const vb::Text words = u"This build of Tessaly cannot show its dialog \"" + form.Caption() +
                         u"\" in the IDE yet. Nothing was changed.";
  MessageBoxW(Owner(), Wide(words), L"Tessaly", MB_OK | MB_ICONINFORMATION | MB_TASKMODAL);
  throw vb::Failure(vb::kInvalidProcedureCall, words);
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
