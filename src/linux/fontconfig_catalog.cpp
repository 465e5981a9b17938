// The font families fontconfig knows, as the font service offers them.
#include "linux/fontconfig_catalog.hpp"

#include <fontconfig/fontconfig.h>

#include <memory>
#include <string>

namespace linux_platform {
namespace {

// Owners for fontconfig's objects, so every path out frees them.
struct ConfigDeleter {
  void operator()(FcConfig* p) const { FcConfigDestroy(p); }
};
struct PatternDeleter {
  void operator()(FcPattern* p) const { FcPatternDestroy(p); }
};
struct ObjectSetDeleter {
  void operator()(FcObjectSet* p) const { FcObjectSetDestroy(p); }
};
struct FontSetDeleter {
  void operator()(FcFontSet* p) const { FcFontSetDestroy(p); }
};

// Every family name of every font; a font may give several (its family in
// more than one language, or a family and a narrower one for its styles).
std::vector<vb::Text> ListFamilies() {
  std::vector<vb::Text> families;
  std::unique_ptr<FcConfig, ConfigDeleter> config(FcInitLoadConfigAndFonts());
  std::unique_ptr<FcPattern, PatternDeleter> pattern(FcPatternCreate());
  std::unique_ptr<FcObjectSet, ObjectSetDeleter> objects(
      FcObjectSetBuild(FC_FAMILY, static_cast<char*>(nullptr)));
  if (!config || !pattern || !objects) return families;
  std::unique_ptr<FcFontSet, FontSetDeleter> fonts(
      FcFontList(config.get(), pattern.get(), objects.get()));
  if (!fonts) return families;
  for (int i = 0; i < fonts->nfont; ++i) {
    FcChar8* name = nullptr;
    for (int n = 0; FcPatternGetString(fonts->fonts[i], FC_FAMILY, n, &name) == FcResultMatch;
         ++n) {
      families.push_back(vb::FromUtf8(reinterpret_cast<const char*>(name)));
    }
  }
  return families;
}

}  // namespace

vb::Text FontconfigCatalog::DisplayFamily(const vb::Text& family) {
  std::unique_ptr<FcPattern, PatternDeleter> pattern(FcPatternCreate());
  const std::string utf8 = vb::ToUtf8(family);
  if (!pattern || !FcPatternAddString(pattern.get(), FC_FAMILY,
                                      reinterpret_cast<const FcChar8*>(utf8.c_str()))) {
    return family;
  }
  FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
  FcDefaultSubstitute(pattern.get());
  FcResult result = FcResultNoMatch;
  std::unique_ptr<FcPattern, PatternDeleter> match(FcFontMatch(nullptr, pattern.get(), &result));
  FcChar8* name = nullptr;
  if (!match || FcPatternGetString(match.get(), FC_FAMILY, 0, &name) != FcResultMatch) {
    return family;
  }
  return vb::FromUtf8(reinterpret_cast<const char*>(name));
}

const std::vector<vb::Text>& FontconfigCatalog::Families() {
  if (!loaded_) {
    families_ = ListFamilies();
    families_.insert(families_.end(), forms::kVbFamilies.begin(), forms::kVbFamilies.end());
    forms::SortFamilies(families_);
    loaded_ = true;
  }
  return families_;
}

}  // namespace linux_platform
