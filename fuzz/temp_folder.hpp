// A folder of its own for a fuzz target that reads files: in memory where
// /dev/shm is, named for the process so targets run side by side, and
// removed when the fuzzer exits.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace fuzz {

struct TempFolder {
  explicit TempFolder(std::string_view target) {
    namespace fs = std::filesystem;
    const fs::path base =
        fs::is_directory("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path();
    path = base / ("tessaly-" + std::string(target) + "-fuzz-" + std::to_string(::getpid()));
    fs::create_directories(path);
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  std::filesystem::path path;
};

}  // namespace fuzz
