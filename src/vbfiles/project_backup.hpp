// Keeping the files a save over a project replaces: before the save, each
// file it is about to replace is copied into a new numbered folder beside the
// project file, "Sample.vbp.bak/1/", "Sample.vbp.bak/2/", ..., at the same
// relative path. A new save never writes into an older backup; the kKept
// newest are kept and older ones removed, so backups do not pile up.
//
// Failures: 75 naming the file that could not be copied; the new backup
// folder is then removed again and the save must not go on.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <vector>

namespace vbfiles {

inline constexpr std::size_t kKeptBackups = 10;

// Copies those of `files` (absolute paths inside the project file's folder)
// that exist into the next backup folder of `vbp_path`; returns the folder,
// or nullopt when none of them exists yet.
std::optional<std::filesystem::path> BackUpFiles(const std::filesystem::path& vbp_path,
                                                 const std::vector<std::filesystem::path>& files);

}  // namespace vbfiles
