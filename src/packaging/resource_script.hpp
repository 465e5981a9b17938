// The resource script the DLL's build compiles with windres, and the names of
// the files it refers to.
//
// The script holds the version block, the type library as TYPELIB 1 (where
// LoadTypeLib looks for it in a DLL), and the two binary resources
// _IID_CONNECT and CONNECT_DESIGNER. The files it names are written beside it
// by tessaly-packaging, except the .tlb, which widl makes from the IDL.
#pragma once

#include <string>
#include <string_view>

#include "packaging/version_block.hpp"

namespace packaging {

inline constexpr std::string_view kIdlFile = "vorrel.idl";
inline constexpr std::string_view kTypeLibraryFile = "vorrel.tlb";
inline constexpr std::string_view kResourceScriptFile = "vorrel.rc";
inline constexpr std::string_view kDefFile = "vorrel.def";
inline constexpr std::string_view kIidResourceFile = "iid_connect.bin";
inline constexpr std::string_view kDesignerFile = "designer.bin";

std::string EmitResourceScript(const VersionBlock& block);

}  // namespace packaging
