// The names the IDE writes after enumerated values of the intrinsic controls
// in form files: "Alignment       =   2  'Center".
//
// Only intrinsic classes (VB.*) get names; controls from other libraries save
// their properties themselves and the IDE writes their numbers bare. A value
// with no name in the table is written bare too.
#pragma once

#include "vb/text.hpp"
#include "vb/value.hpp"

namespace vbfiles {

// The name for `value` of `property` on a control of `file_class`
// ("VB.Label"), or empty.
vb::TextView EnumValueName(vb::TextView file_class, vb::TextView property, vb::Long value);

}  // namespace vbfiles
