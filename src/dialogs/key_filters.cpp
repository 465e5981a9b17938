#include "dialogs/key_filters.hpp"

namespace tessaly {

std::int16_t DigitFilter(std::int16_t key_ascii) {
  return key_ascii >= 48 && key_ascii <= 57 ? key_ascii : 0;
}

bool FeedsCaption(std::int16_t key_ascii) { return key_ascii == 32 || key_ascii == 46; }

std::int16_t DroppingFilter(std::int16_t key_ascii) {
  return FeedsCaption(key_ascii) ? 0 : key_ascii;
}

}  // namespace tessaly
