// Fuzz target for the settings file reader (libFuzzer).
//
// The input is the file's content, written to a file in a temporary folder
// (in memory where /dev/shm is). Whatever it holds, a look-up gives a value,
// nothing, or vb::Failure (a file that is not JSON of the store's shape); a
// look-up that worked works again with the same answer.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "linux/file_settings_store.hpp"
#include "temp_folder.hpp"
#include "vb/failure.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const fuzz::TempFolder folder("settings");
  const std::filesystem::path file = folder.path / "settings.json";
  {
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  }
  linux_platform::FileSettingsStore store(file);
  try {
    const auto value = store.Get(u"Tessaly", u"Options", u"Key");
    if (store.Get(u"TESSALY", u"options", u"KEY") != value) std::abort();
  } catch (const vb::Failure&) {
  }
  return 0;
}
