// A folder of its own for a fuzz target that reads files: in memory where
// /dev/shm is, named for the process so targets run side by side, and
// removed when the fuzzer exits. A fuzzer that crashes, or a child of its
// fork mode, ends without removing its folder: the next one removes the
// folders of processes that are gone.
#pragma once

#include <signal.h>
#include <unistd.h>

#include <cerrno>

#include <cstdlib>
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
    const std::string prefix = "tessaly-" + std::string(target) + "-fuzz-";
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(base, ignored)) {
      const std::string name = entry.path().filename().string();
      if (!name.starts_with(prefix)) continue;
      const long pid = std::strtol(name.c_str() + prefix.size(), nullptr, 10);
      if (pid > 0 && ::kill(static_cast<pid_t>(pid), 0) != 0 && errno == ESRCH) {
        fs::remove_all(entry.path(), ignored);
      }
    }
    path = base / (prefix + std::to_string(::getpid()));
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
