// The designer part of the registration record as the bytes the add-in
// designer reads.
//
// Layout: the designer's class id (16 bytes, COM order), a 32-bit size of all
// that follows, the host key, the display name and the description as texts,
// then the load behaviour and the six further load values as 32-bit numbers.
// A text is a 32-bit length and the text's single-byte (Windows-1252)
// characters with a closing zero byte, the length counting that byte. All
// numbers are little-endian.
//
// The display name field is at least kDisplayNameWidth bytes wide: the name,
// its closing zero and zero padding. The designer reserves that width for the
// name it shows, so a short name such as "Tessaly" still takes 24 bytes, and
// the size field counts them; a longer name widens the field.
#pragma once

#include <cstddef>

#include "packaging/little_endian.hpp"
#include "packaging/registration_record.hpp"

namespace packaging {

inline constexpr std::size_t kDisplayNameWidth = 24;

Bytes DesignerPartBytes(const DesignerPart& part);

}  // namespace packaging
