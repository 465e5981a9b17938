// Fuzz target for the project file (.vbp) reader (libFuzzer).
//
// Whatever the bytes, reading succeeds or fails with vb::Failure; a file that
// was read writes back its own bytes, and the values read are the ones its
// members and name come from, so asking for them never fails.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "vb/failure.hpp"
#include "vbfiles/vbp_file.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  try {
    auto file = vbfiles::VbpFile::Parse(bytes, u"fuzz.vbp");
    if (file.Write() != bytes) std::abort();
    for (const auto& member : file.Members()) (void)vbfiles::MemberPathToGeneric(member.path);
    (void)file.ProjectName();
    // Setting a key to the value it has keeps the file as read.
    if (const auto name = file.Get(u"Name")) {
      file.Set(u"Name", *name);
      if (file.Write() != bytes) std::abort();
    }
  } catch (const vb::Failure&) {
  }
  return 0;
}
