// The font families a session's font service offers: those of the catalog it
// was given (the system's, or a test's fixed list) as changed by the script's
// `fonts` lines. `fonts add` offers more families beside the ones offered so
// far; `fonts only` offers exactly the families it names, from then on.
//
// The list keeps the catalog's promises (sorted ignoring case, no exact
// duplicates), and the given catalog is not read after `fonts only`.
#pragma once

#include <vector>

#include "forms/font_catalog.hpp"

namespace session {

class ScriptFonts : public forms::FontCatalog {
 public:
  // `given` must outlive this catalog.
  explicit ScriptFonts(forms::FontCatalog& given) : given_(&given) {}

  void Add(const std::vector<vb::Text>& families);
  void Only(std::vector<vb::Text> families);

  const std::vector<vb::Text>& Families() override;

 private:
  forms::FontCatalog* given_;
  bool only_ = false;
  std::vector<vb::Text> named_;
  std::vector<vb::Text> families_;
  bool current_ = false;
};

}  // namespace session
