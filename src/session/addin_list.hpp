// The workbench's add-in list, printed as the IDE's add-in manager shows it:
// each add-in's display name, its load behaviour in words, its ProgID, and
// its description below.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "ide/addin.hpp"

namespace session {

// "Startup", "Command line", "Startup, command line" or "None", from the
// IDE's load behaviour bits.
std::string LoadBehaviorWords(std::uint32_t load_behavior);

void PrintAddInList(const std::vector<ide::AddInListing>& addins, std::ostream& out);

}  // namespace session
