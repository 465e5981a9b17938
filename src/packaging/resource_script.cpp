#include "packaging/resource_script.hpp"

namespace packaging {

std::string EmitResourceScript(const VersionBlock& block) {
  const auto file = [](std::string_view name) { return "\"" + std::string(name) + "\"\n"; };
  return "// Resources of the component, written by tessaly-packaging.\n" + EmitVersionRc(block) +
         "\n1 TYPELIB " + file(kTypeLibraryFile) + "_IID_CONNECT RCDATA " + file(kIidResourceFile) +
         "CONNECT_DESIGNER RCDATA " + file(kDesignerFile);
}

}  // namespace packaging
