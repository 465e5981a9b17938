// The font families the font service offers.
#include "forms/font_catalog.hpp"

#include <algorithm>

#include "forms/case_fold.hpp"

namespace forms {

bool FontCatalog::Has(const vb::Text& family) {
  const auto& families = Families();
  return std::any_of(families.begin(), families.end(), [&](const vb::Text& name) {
    return detail::CompareNoCase(name, family) == 0;
  });
}

}  // namespace forms
