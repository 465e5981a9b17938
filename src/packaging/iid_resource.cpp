#include "packaging/iid_resource.hpp"

namespace packaging {

Bytes IidResourceBytes(const TypeLibrary& library) {
  const auto alias = GuidBytes(library.alias_iid);
  const auto connect = GuidBytes(library.default_interface.iid);
  Bytes bytes;
  AppendLe(bytes, static_cast<std::uint32_t>(alias.size() + connect.size()));
  bytes.insert(bytes.end(), alias.begin(), alias.end());
  bytes.insert(bytes.end(), connect.begin(), connect.end());
  return bytes;
}

}  // namespace packaging
