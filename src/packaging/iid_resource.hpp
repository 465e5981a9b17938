// The _IID_CONNECT resource: the interface identifiers of Connect.
//
// A 32-bit size, then the alias's identifier, then _Connect's, 16 bytes each
// in COM order; the size counts the 32 bytes of identifiers that follow it,
// so the resource is 36 bytes in all. Numbers are little-endian.
#pragma once

#include "packaging/little_endian.hpp"
#include "packaging/type_library.hpp"

namespace packaging {

Bytes IidResourceBytes(const TypeLibrary& library);

}  // namespace packaging
