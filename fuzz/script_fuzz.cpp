// Fuzz target for the session script reader (libFuzzer).
//
// Whatever the text, reading it succeeds or fails with std::runtime_error
// naming the line; every line read has a known verb, and a user line either
// gives its action or fails the same way.
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "session/session_script.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  try {
    for (const auto& line : session::ParseScript(text, "fuzz.tess")) {
      if (session::SortOf(line) != session::LineSort::User) continue;
      try {
        (void)session::ToUserAction(line);
      } catch (const std::runtime_error&) {
      }
    }
  } catch (const std::runtime_error&) {
  }
  return 0;
}
