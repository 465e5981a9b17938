// Backups of the files a save replaces.
#include "vbfiles/project_backup.hpp"

#include <algorithm>
#include <string>
#include <system_error>

#include "vbfiles/file_system.hpp"

namespace vbfiles {
namespace fs = std::filesystem;
namespace {

// The numbered backups there are, oldest first.
std::vector<unsigned long> Numbers(const fs::path& root) {
  std::vector<unsigned long> numbers;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(root, error)) {
    const std::string name = entry.path().filename().string();
    if (!name.empty() && name.size() < 10 &&
        std::all_of(name.begin(), name.end(), [](char c) { return c >= '0' && c <= '9'; })) {
      numbers.push_back(std::stoul(name));
    }
  }
  std::sort(numbers.begin(), numbers.end());
  return numbers;
}

}  // namespace

std::optional<fs::path> BackUpFiles(const fs::path& vbp_path, const std::vector<fs::path>& files) {
  std::error_code error;
  std::vector<fs::path> existing;
  for (const auto& file : files) {
    if (fs::is_regular_file(file, error)) existing.push_back(file);
  }
  if (existing.empty()) return std::nullopt;
  const fs::path folder = vbp_path.parent_path();
  const fs::path root = folder / (vbp_path.filename().string() + ".bak");
  auto numbers = Numbers(root);
  const fs::path backup = root / std::to_string(numbers.empty() ? 1 : numbers.back() + 1);
  for (const auto& file : existing) {
    const fs::path copy = backup / fs::relative(file, folder, error);
    if (!error) fs::create_directories(copy.parent_path(), error);
    if (!error) fs::copy_file(file, copy, fs::copy_options::overwrite_existing, error);
    if (error) {
      const auto failure = FileFailure("back up", file, error);
      fs::remove_all(backup, error);
      throw failure;
    }
  }
  // The oldest go once there are more than kKeptBackups.
  for (std::size_t i = 0; i + kKeptBackups < numbers.size() + 1; ++i) {
    fs::remove_all(root / std::to_string(numbers[i]), error);
  }
  return backup;
}

}  // namespace vbfiles
