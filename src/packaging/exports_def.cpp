#include "packaging/exports_def.hpp"

#include "packaging/registration_record.hpp"

namespace packaging {

std::string EmitDef() {
  std::string def = "LIBRARY " + vb::ToUtf8(FileName(Registration())) + "\nEXPORTS\n";
  for (std::string_view name : kExports) def += "    " + std::string(name) + " PRIVATE\n";
  return def;
}

}  // namespace packaging
