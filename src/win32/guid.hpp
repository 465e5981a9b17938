// The packaging layer's identifiers as the system's GUID type.
#pragma once

#include <guiddef.h>

#include "packaging/guid.hpp"

namespace win32 {

GUID ToGuid(const packaging::Guid& guid);
inline CLSID ToClsid(const packaging::Guid& guid) { return ToGuid(guid); }

}  // namespace win32
