// The type library written as IDL for the cross toolchain's widl.
//
// EmitIdl writes one file that `widl -t` turns into the component's .tlb and
// `widl -h` / `widl -u` into a C header and its identifiers. oaidl.idl is
// imported outside the library block, for IDispatch and BSTR; inside, the
// library imports only stdole2.tlb. The alias is a typedef of _Connect that
// carries the alias identifier: in the .tlb it is an alias type info whose
// target is _Connect, which is what the alias is. Libraries that are not
// imported are named in a comment only; their objects are IDispatch.
#pragma once

#include <string>

#include "packaging/type_library.hpp"

namespace packaging {

std::string EmitIdl(const TypeLibrary& library);

}  // namespace packaging
