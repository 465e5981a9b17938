#include "packaging/guid.hpp"

#include <algorithm>

#include "packaging/little_endian.hpp"

namespace packaging {
namespace {

constexpr char kDigits[] = "0123456789ABCDEF";

}  // namespace

std::string FormatGuid(const Guid& guid) {
  std::string text = "{";
  const auto put = [&text](std::uint32_t value, int digits) {
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
      text += kDigits[value >> shift & 0xF];
  };
  put(guid.data1, 8);
  text += '-';
  put(guid.data2, 4);
  text += '-';
  put(guid.data3, 4);
  text += '-';
  for (std::size_t i = 0; i < 8; ++i) {
    if (i == 2) text += '-';
    put(guid.data4[i], 2);
  }
  return text + "}";
}

std::array<std::uint8_t, 16> GuidBytes(const Guid& guid) {
  Bytes bytes;
  AppendLe(bytes, guid.data1);
  AppendLe(bytes, guid.data2);
  AppendLe(bytes, guid.data3);
  bytes.insert(bytes.end(), guid.data4.begin(), guid.data4.end());
  std::array<std::uint8_t, 16> result{};
  std::copy(bytes.begin(), bytes.end(), result.begin());
  return result;
}

}  // namespace packaging
