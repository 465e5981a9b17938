// Globally unique identifiers as the registry writes them and as COM holds them.
//
// A Guid is four fields. Its text form is the registry's
// "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}", written in upper case and read in
// either case; its 16 bytes are the in-memory order COM uses, the first three
// fields little-endian and the last eight bytes as they stand. The component's
// own identifiers are written once, as text, through GuidOf, which rejects a
// malformed one at compile time.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace packaging {

struct Guid {
  std::uint32_t data1 = 0;
  std::uint16_t data2 = 0;
  std::uint16_t data3 = 0;
  std::array<std::uint8_t, 8> data4{};

  friend bool operator==(const Guid&, const Guid&) = default;
};

// The Guid of a registry text, or nothing if the text has any other shape.
constexpr std::optional<Guid> ParseGuid(std::string_view text) {
  constexpr std::string_view kShape = "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}";
  if (text.size() != kShape.size()) return std::nullopt;
  std::array<std::uint8_t, 16> bytes{};  // in text order
  std::size_t count = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (kShape[i] != 'X') {
      if (c != kShape[i]) return std::nullopt;
      continue;
    }
    int digit = -1;
    if (c >= '0' && c <= '9') digit = c - '0';
    if (c >= 'A' && c <= 'F') digit = c - 'A' + 10;
    if (c >= 'a' && c <= 'f') digit = c - 'a' + 10;
    if (digit < 0) return std::nullopt;
    bytes[count / 2] = static_cast<std::uint8_t>(bytes[count / 2] << 4 | digit);
    ++count;
  }
  Guid guid;
  guid.data1 = std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 |
               std::uint32_t{bytes[2]} << 8 | bytes[3];
  guid.data2 = static_cast<std::uint16_t>(bytes[4] << 8 | bytes[5]);
  guid.data3 = static_cast<std::uint16_t>(bytes[6] << 8 | bytes[7]);
  for (std::size_t i = 0; i < 8; ++i) guid.data4[i] = bytes[8 + i];
  return guid;
}

// A Guid written in the source as registry text; a malformed text does not
// compile (value() throws during constant evaluation).
consteval Guid GuidOf(std::string_view text) { return ParseGuid(text).value(); }

// The registry text, upper case, with braces.
std::string FormatGuid(const Guid& guid);

// The 16 bytes in COM's in-memory order.
std::array<std::uint8_t, 16> GuidBytes(const Guid& guid);

}  // namespace packaging
