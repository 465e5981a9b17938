#include "win32/guid.hpp"

#include <algorithm>

namespace win32 {

GUID ToGuid(const packaging::Guid& guid) {
  GUID out{};
  out.Data1 = guid.data1;
  out.Data2 = guid.data2;
  out.Data3 = guid.data3;
  std::copy(guid.data4.begin(), guid.data4.end(), out.Data4);
  return out;
}

}  // namespace win32
