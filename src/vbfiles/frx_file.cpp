#include "vbfiles/frx_file.hpp"

namespace vbfiles {

std::optional<std::uint32_t> FrxFile::ReadCount(std::size_t offset, std::size_t size) const {
  if (offset > Bytes().size() || Bytes().size() - offset < size) return std::nullopt;
  std::uint32_t value = 0;
  for (std::size_t i = size; i-- > 0;) {
    value = (value << 8) | static_cast<unsigned char>(Bytes()[offset + i]);
  }
  return value;
}

std::optional<std::string> FrxFile::ReadBytes(std::size_t offset, std::size_t size) const {
  if (offset > Bytes().size() || Bytes().size() - offset < size) return std::nullopt;
  return Bytes().substr(offset, size);
}

std::optional<vb::Text> FrxFile::ReadString(std::uint32_t offset) const {
  const auto count = ReadCount(offset, 4);
  if (!count) return std::nullopt;
  const auto bytes = ReadBytes(std::size_t{offset} + 4, *count);
  if (!bytes) return std::nullopt;
  return code_page_.Decode(*bytes);
}

std::optional<vb::Text> FrxFile::ReadShortString(std::uint32_t offset) const {
  const auto count = ReadCount(offset, 1);
  if (!count) return std::nullopt;
  const auto bytes = ReadBytes(std::size_t{offset} + 1, *count);
  if (!bytes) return std::nullopt;
  return code_page_.Decode(*bytes);
}

std::optional<std::vector<vb::Text>> FrxFile::ReadList(std::uint32_t offset) const {
  const auto items = ReadCount(offset, 2);
  if (!items) return std::nullopt;
  std::vector<vb::Text> list;
  std::size_t at = std::size_t{offset} + 2;
  for (std::uint32_t i = 0; i < *items; ++i) {
    const auto count = ReadCount(at, 2);
    if (!count) return std::nullopt;
    const auto bytes = ReadBytes(at + 2, *count);
    if (!bytes) return std::nullopt;
    list.push_back(code_page_.Decode(*bytes));
    at += 2 + *count;
  }
  return list;
}

std::optional<std::vector<vb::Long>> FrxFile::ReadItemData(std::uint32_t offset) const {
  const auto items = ReadCount(offset, 2);
  if (!items) return std::nullopt;
  std::vector<vb::Long> values;
  for (std::uint32_t i = 0; i < *items; ++i) {
    const auto value = ReadCount(std::size_t{offset} + 2 + std::size_t{i} * 4, 4);
    if (!value) return std::nullopt;
    values.push_back(static_cast<vb::Long>(*value));
  }
  return values;
}

std::optional<std::string> FrxFile::ReadBlob(std::uint32_t offset) const {
  const auto count = ReadCount(offset, 4);
  if (!count) return std::nullopt;
  return ReadBytes(std::size_t{offset} + 4, *count);
}

}  // namespace vbfiles
