// The version block of Vorrel.dll and its resource-script form.
//
// The block gives the file and product version as four numbers and a table
// of strings. The version strings are derived from the numbers in the form
// the IDE's projects show, major.minor.revision with two and four digits
// ("1.00.0021" for 1.0.0.21; the third number is not part of that form). The
// product and internal names and the original file name come from the
// registration record. An empty OLESelfRegister string is kept on purpose:
// its presence marks the file as self-registering.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "vb/text.hpp"

namespace packaging {

using FourPartVersion = std::array<std::uint16_t, 4>;

struct VersionString {
  vb::Text key;
  vb::Text value;
};

struct VersionBlock {
  FourPartVersion file_version{};
  FourPartVersion product_version{};
  std::uint16_t language = 0;   // of the string table
  std::uint16_t code_page = 0;  // of the string table
  std::vector<VersionString> strings;
};

const VersionBlock& ComponentVersion();

// "1.00.0021" for 1.0.0.21.
vb::Text VersionText(const FourPartVersion& version);

// A VERSIONINFO statement for windres.
std::string EmitVersionRc(const VersionBlock& block);

}  // namespace packaging
