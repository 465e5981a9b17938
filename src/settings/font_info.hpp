// The add-in's default font: the record that carries a font through a dialog,
// how it is read from the store, and how it goes to and from the font
// service of a common dialog.
#pragma once

#include "forms/control.hpp"
#include "forms/runtime.hpp"
#include "vb/text.hpp"
#include "vb/value.hpp"

namespace tessaly {

// A font, copied by value. Size is in whole points.
struct FontInfo {
  vb::Text Name;
  vb::Integer Size = 0;
  vb::Boolean Bold = vb::Boolean::False;
  vb::Boolean Italic = vb::Boolean::False;
  vb::Boolean Underline = vb::Boolean::False;
  vb::Boolean StrikeThru = vb::Boolean::False;
  friend bool operator==(const FontInfo&, const FontInfo&) = default;
};

// Default texts of the font keys when the store lacks them.
inline constexpr const char16_t* kDefaultFontName = u"Times New Roman";
inline constexpr const char16_t* kDefaultFontSize = u"10";
inline constexpr const char16_t* kDefaultFontStyle = u"False";

// Reads FontBold, FontItalic, FontName, FontSize, FontStrikeThru and
// FontUnderline, in that order. A stored text its conversion refuses passes
// the failure to the caller. The size is rounded half to even.
FontInfo GetDefaultFont(forms::Runtime& runtime);
// Gives the record to the font service, limited to screen fonts (Flags 1).
void FontToDialog(forms::CommonDialog& dialog, const FontInfo& font);
// Takes the font back from the service, its size rounded half to even.
FontInfo FontFromDialog(const forms::CommonDialog& dialog);

}  // namespace tessaly
