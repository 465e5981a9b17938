// Little-endian byte output for the component's binary resources.
//
// Every number in the resources the IDE and COM read is little-endian, whatever
// the machine that writes them; AppendLe appends one unsigned number so.
#pragma once

#include <concepts>
#include <cstdint>
#include <vector>

namespace packaging {

using Bytes = std::vector<std::uint8_t>;

template <std::unsigned_integral Number>
void AppendLe(Bytes& bytes, Number value) {
  for (std::size_t i = 0; i < sizeof(Number); ++i) {
    bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
  }
}

}  // namespace packaging
