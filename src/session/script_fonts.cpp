#include "session/script_fonts.hpp"

namespace session {

void ScriptFonts::Add(const std::vector<vb::Text>& families) {
  named_.insert(named_.end(), families.begin(), families.end());
  current_ = false;
}

void ScriptFonts::Only(std::vector<vb::Text> families) {
  named_ = std::move(families);
  only_ = true;
  current_ = false;
}

const std::vector<vb::Text>& ScriptFonts::Families() {
  if (!current_) {
    families_ = only_ ? std::vector<vb::Text>() : given_->Families();
    families_.insert(families_.end(), named_.begin(), named_.end());
    forms::SortFamilies(families_);
    current_ = true;
  }
  return families_;
}

}  // namespace session
