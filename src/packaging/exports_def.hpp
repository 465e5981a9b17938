// The module-definition file that names the DLL's exports for the linker.
//
// The four COM entry points and DllInstall (per-user registration) are
// exported by name only (PRIVATE): they are found with GetProcAddress and must
// not reach an import library.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace packaging {

inline constexpr std::array<std::string_view, 5> kExports = {"DllCanUnloadNow", "DllGetClassObject",
                                                             "DllRegisterServer",
                                                             "DllUnregisterServer", "DllInstall"};

std::string EmitDef();

}  // namespace packaging
