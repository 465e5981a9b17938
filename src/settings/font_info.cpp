#include "settings/font_info.hpp"

#include "settings/globals.hpp"
#include "vb/convert.hpp"

namespace tessaly {

FontInfo GetDefaultFont(forms::Runtime& runtime) {
  auto read = [&](const char16_t* key, const char16_t* fallback) {
    return runtime.GetSetting(kAppName, kSection, key, fallback);
  };
  FontInfo font;
  font.Bold = vb::CBool(read(u"FontBold", kDefaultFontStyle));
  font.Italic = vb::CBool(read(u"FontItalic", kDefaultFontStyle));
  font.Name = read(u"FontName", kDefaultFontName);
  font.Size = vb::CInt(read(u"FontSize", kDefaultFontSize));
  font.StrikeThru = vb::CBool(read(u"FontStrikeThru", kDefaultFontStyle));
  font.Underline = vb::CBool(read(u"FontUnderline", kDefaultFontStyle));
  return font;
}

void FontToDialog(forms::CommonDialog& dialog, const FontInfo& font) {
  dialog.FontBold = vb::IsTrue(font.Bold);
  dialog.FontItalic = vb::IsTrue(font.Italic);
  dialog.FontName = font.Name;
  dialog.FontSize = static_cast<vb::Single>(font.Size);
  dialog.FontStrikeThru = vb::IsTrue(font.StrikeThru);
  dialog.FontUnderline = vb::IsTrue(font.Underline);
  dialog.Flags = 1;
}

FontInfo FontFromDialog(const forms::CommonDialog& dialog) {
  FontInfo font;
  font.Bold = vb::ToBoolean(dialog.FontBold);
  font.Italic = vb::ToBoolean(dialog.FontItalic);
  font.Name = dialog.FontName;
  font.Size = vb::CInt(dialog.FontSize);
  font.StrikeThru = vb::ToBoolean(dialog.FontStrikeThru);
  font.Underline = vb::ToBoolean(dialog.FontUnderline);
  return font;
}

}  // namespace tessaly
