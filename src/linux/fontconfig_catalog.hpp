// The system's font families as fontconfig lists them: the font catalog of the
// Linux front ends.
#pragma once

#include <vector>

#include "forms/font_catalog.hpp"

namespace linux_platform {

// The families fontconfig knows on this system, read once on first use.
class FontconfigCatalog : public forms::FontCatalog {
 public:
  const std::vector<vb::Text>& Families() override;

 private:
  bool loaded_ = false;
  std::vector<vb::Text> families_;
};

}  // namespace linux_platform
