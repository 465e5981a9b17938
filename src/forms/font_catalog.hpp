// The font families the font service offers: the system's fonts, through a
// catalog each platform provides.
//
// Families are sorted ignoring case (ASCII and Latin-1 letters, as sorted
// list boxes order rows), then exactly, and hold no exact duplicates. A
// system with no fonts has an empty list, which is no failure.
#pragma once

#include <vector>

#include "vb/text.hpp"

namespace forms {

class FontCatalog {
 public:
  virtual ~FontCatalog() = default;
  // Family names, sorted, without duplicates.
  virtual const std::vector<vb::Text>& Families() = 0;
  // True when a family matches `family` with case ignored as in the order.
  bool Has(const vb::Text& family);
};

// Puts `families` in the order Families() promises and drops exact duplicates.
void SortFamilies(std::vector<vb::Text>& families);

}  // namespace forms
