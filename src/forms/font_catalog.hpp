// The font families the font service offers: the families VB6 forms use
// (kVbFamilies) and the system's fonts, through a catalog each platform
// provides.
//
// A VB6 family may have no font of that name on the system: the platform
// shows it in a family it has that stands in for it (DisplayFamily), but the
// name a form keeps is always the one chosen.
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
  // The system family that shows `family` on screen; `family` itself when
  // the platform cannot tell.
  virtual vb::Text DisplayFamily(const vb::Text& family) { return family; }
};

// The families VB6 forms use and a VB6 user expects to be offered, whatever
// the system has.
extern const std::vector<vb::Text> kVbFamilies;

// Puts `families` in the order Families() promises and drops exact duplicates.
void SortFamilies(std::vector<vb::Text>& families);

}  // namespace forms
