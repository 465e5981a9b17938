// The project as JSON, for the session's "dump" action: name; forms with name,
// their own properties and font, code line count and members (name, line)
// when the form has code; controls with class, name, index (null when none),
// container, every property with value and kind, and font.
#pragma once

#include <nlohmann/json.hpp>

#include "workbench/project.hpp"

namespace session {

nlohmann::ordered_json DumpProject(const workbench::Project& project);

}  // namespace session
