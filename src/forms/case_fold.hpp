// Case folding as the forms runtime needs it: access keys, sorted list boxes
// and control names ignore case. Folding covers ASCII and the Latin-1 letters,
// the characters a Western dialog's captions and list rows use; other
// characters compare as they are.
#pragma once

#include <cstddef>
#include <string_view>

#include "vb/text.hpp"

namespace forms::detail {

constexpr char16_t FoldUpper(char16_t c) {
  if (c >= u'a' && c <= u'z') return static_cast<char16_t>(c - 0x20);
  // Latin-1 lower-case letters sit 0x20 above their capitals; the division
  // sign between them is no letter, and y-diaeresis (0xFF) has its capital
  // outside the block.
  if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return static_cast<char16_t>(c - 0x20);
  return c;
}

// <0, 0 or >0 as `a` sorts before, with or after `b`, case ignored.
inline int CompareNoCase(vb::TextView a, vb::TextView b) {
  const std::size_t n = a.size() < b.size() ? a.size() : b.size();
  for (std::size_t i = 0; i < n; ++i) {
    const char16_t x = FoldUpper(a[i]);
    const char16_t y = FoldUpper(b[i]);
    if (x != y) return x < y ? -1 : 1;
  }
  if (a.size() == b.size()) return 0;
  return a.size() < b.size() ? -1 : 1;
}

// Control names are ASCII; VB matches them without regard to case.
inline bool SameName(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (FoldUpper(static_cast<unsigned char>(a[i])) != FoldUpper(static_cast<unsigned char>(b[i])))
      return false;
  }
  return true;
}

}  // namespace forms::detail
