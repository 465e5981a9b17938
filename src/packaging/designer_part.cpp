#include "packaging/designer_part.hpp"

#include <algorithm>
#include <string>

namespace packaging {
namespace {

// A length-prefixed, zero-terminated single-byte text, padded with zeros to
// at least `width` bytes after the length.
void AppendText(Bytes& bytes, vb::TextView text, std::size_t width = 0) {
  const std::string chars = vb::ToCp1252(text);
  const std::size_t length = std::max(chars.size() + 1, width);
  AppendLe(bytes, static_cast<std::uint32_t>(length));
  bytes.insert(bytes.end(), chars.begin(), chars.end());
  bytes.resize(bytes.size() + length - chars.size(), 0);
}

}  // namespace

Bytes DesignerPartBytes(const DesignerPart& part) {
  Bytes body;
  AppendText(body, part.host_key);
  AppendText(body, part.display_name, kDisplayNameWidth);
  AppendText(body, part.description);
  AppendLe(body, static_cast<std::uint32_t>(part.load_behaviour));
  for (std::uint32_t value : part.further_load_values) AppendLe(body, value);

  const auto class_id = GuidBytes(part.designer_class_id);
  Bytes bytes(class_id.begin(), class_id.end());
  AppendLe(bytes, static_cast<std::uint32_t>(body.size()));
  bytes.insert(bytes.end(), body.begin(), body.end());
  return bytes;
}

}  // namespace packaging
