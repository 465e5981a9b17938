// The key filters of the property dialogs: small functions on a KeyPress code,
// each returning the code that passes (0 discards the key).
#pragma once

#include <cstdint>

namespace tessaly {

// Only the digits 0 to 9 pass; everything else, Backspace included, is discarded.
std::int16_t DigitFilter(std::int16_t key_ascii);
// A space or a dot is discarded; everything else passes.
std::int16_t DroppingFilter(std::int16_t key_ascii);
// Whether a key is one that the name field hands on to the caption (space, dot).
bool FeedsCaption(std::int16_t key_ascii);

}  // namespace tessaly
