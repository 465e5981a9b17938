// Text between the add-in's vb::Text and the Windows API's wide strings.
//
// On Windows wchar_t is 16 bits wide and holds UTF-16, as vb::Text does, so
// the two views share their storage; only the pointer type differs.
#pragma once

#include "win32/system.hpp"

#include <string>

#include "vb/text.hpp"

namespace win32 {

static_assert(sizeof(wchar_t) == sizeof(char16_t), "Windows wide text is UTF-16");

inline const wchar_t* Wide(const vb::Text& text) {
  return reinterpret_cast<const wchar_t*>(text.c_str());
}

inline vb::Text FromWide(const wchar_t* text) {
  return text ? vb::Text(reinterpret_cast<const char16_t*>(text)) : vb::Text();
}

inline vb::Text FromWide(const wchar_t* text, std::size_t length) {
  return vb::Text(reinterpret_cast<const char16_t*>(text), length);
}

}  // namespace win32
