#include "vbfiles/file_commit.hpp"

#include <algorithm>

namespace vbfiles {
namespace fs = std::filesystem;

namespace {

struct Step {
  fs::path target;
  fs::path temp;
  fs::path backup;  // empty: the file is new
  bool replaced = false;
};

// Makes the folders missing above `file`, outermost first, noting each.
void MakeFolders(FileSystem& files, const fs::path& file, std::vector<fs::path>& made) {
  std::vector<fs::path> missing;
  for (fs::path folder = file.parent_path(); !folder.empty() && !files.Exists(folder);
       folder = folder.parent_path()) {
    missing.push_back(folder);
    if (folder == folder.parent_path()) break;
  }
  for (auto it = missing.rbegin(); it != missing.rend(); ++it) {
    files.CreateFolder(*it);
    made.push_back(*it);
  }
}

// Puts everything back as it was before the commit began.
void Undo(FileSystem& files, std::vector<Step>& steps, const std::vector<fs::path>& made) {
  for (auto it = steps.rbegin(); it != steps.rend(); ++it) {
    if (!it->replaced) {
      files.Remove(it->temp);
      if (!it->backup.empty()) files.Remove(it->backup);
    } else if (it->backup.empty()) {
      files.Remove(it->target);
    } else {
      try {
        files.Rename(it->backup, it->target);
      } catch (const vb::Failure&) {
        // The old bytes stay under the backup name: nothing is lost.
      }
    }
  }
  for (auto it = made.rbegin(); it != made.rend(); ++it) files.RemoveEmptyFolder(*it);
}

}  // namespace

void CommitFiles(const std::vector<FileWrite>& writes, FileSystem& files) {
  std::vector<Step> steps;
  std::vector<fs::path> made;
  try {
    for (const auto& write : writes) {
      Step step;
      step.target = files.Target(write.path);
      MakeFolders(files, step.target, made);
      step.temp = files.WriteTemporary(step.target, write.bytes);
      steps.push_back(std::move(step));
    }
    for (auto& step : steps) {
      if (files.Exists(step.target)) step.backup = files.KeepBackup(step.target);
      files.Rename(step.temp, step.target);
      step.replaced = true;
    }
  } catch (...) {
    Undo(files, steps, made);
    throw;
  }
  std::vector<fs::path> folders;
  for (const auto& step : steps) {
    if (!step.backup.empty()) files.Remove(step.backup);
    if (std::find(folders.begin(), folders.end(), step.target.parent_path()) == folders.end()) {
      folders.push_back(step.target.parent_path());
    }
  }
  for (const auto& folder : folders) files.SyncFolder(folder);
}

}  // namespace vbfiles
