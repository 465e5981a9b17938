// The font families the font service offers.
#include "forms/font_catalog.hpp"

#include <algorithm>

#include "forms/case_fold.hpp"

namespace forms {

const std::vector<vb::Text> kVbFamilies = {
    u"Arial",          u"Comic Sans MS", u"Courier",  u"Courier New",     u"Georgia",
    u"Lucida Console", u"MS Sans Serif", u"MS Serif", u"Small Fonts",     u"Symbol",
    u"System",         u"Tahoma",        u"Terminal", u"Times New Roman", u"Trebuchet MS",
    u"Verdana",        u"Wingdings"};

bool FontCatalog::Has(const vb::Text& family) {
  const auto& families = Families();
  return std::any_of(families.begin(), families.end(), [&](const vb::Text& name) {
    return detail::CompareNoCase(name, family) == 0;
  });
}

void SortFamilies(std::vector<vb::Text>& families) {
  // Case-insensitive first so "arial" sits beside "Arial", as a sorted list
  // box would place them; exact order then makes the order total, so sorting
  // is deterministic and exact duplicates adjoin.
  std::sort(families.begin(), families.end(), [](const vb::Text& a, const vb::Text& b) {
    const int folded = detail::CompareNoCase(a, b);
    return folded != 0 ? folded < 0 : a < b;
  });
  families.erase(std::unique(families.begin(), families.end()), families.end());
}

}  // namespace forms
