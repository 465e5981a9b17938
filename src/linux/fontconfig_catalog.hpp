// The font catalog of the Linux front ends: the VB6 families and the system's
// font families as fontconfig lists them. A family is shown in the font
// fontconfig matches for it, through its aliases ("Arial" in a
// metric-compatible family where one is installed).
#pragma once

#include <vector>

#include "forms/font_catalog.hpp"

namespace linux_platform {

// The families fontconfig knows on this system, read once on first use.
class FontconfigCatalog : public forms::FontCatalog {
 public:
  const std::vector<vb::Text>& Families() override;
  vb::Text DisplayFamily(const vb::Text& family) override;

 private:
  bool loaded_ = false;
  std::vector<vb::Text> families_;
};

}  // namespace linux_platform
