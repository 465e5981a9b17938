// Saving the workbench's model as a VB6 project: the model turned back into
// the project files of src/vbfiles, which writes them.
//
// What nobody changed is written as it was read, byte for byte; a changed
// property gets a line as the IDE writes it; a deleted control's block is
// gone; a new control gets a block at the end of its container's block with
// the properties the IDE writes for a new control (those that differ from the
// class default, plus position, size and TabIndex); the code section is the
// module's lines with the file's line ends. A changed string with line breaks
// cannot stand on a line: it is added to the end of the form's .frx, whose
// existing bytes never change. A new control of another library adds that
// library's Object lines. Other members (modules, classes) are copied
// unchanged when the project is saved to another place. Each file is replaced
// only by an atomic rename of a complete new one, and only when its bytes
// differ.
//
// Failures: 75 naming the file that cannot be written, or the project when
// it has no project file yet.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include "workbench/project.hpp"

namespace workbench {

// What a save did.
struct SaveResult {
  std::filesystem::path vbp_path;
  std::size_t files_written = 0;
  // Where the files it replaced were kept, if it replaced any and kept them.
  std::optional<std::filesystem::path> backup;
};

// Saves the project over the files it was opened from, the files it
// replaces kept first in a backup beside them (vbfiles/project_backup.hpp).
SaveResult SaveProject(const Project& project);
// Saves the project as `vbp_path`, its members beside it at the same
// relative paths. A project that was never opened from files gets a new
// project file there. No backup is kept: this is a copy.
SaveResult SaveProject(const Project& project, const std::filesystem::path& vbp_path);

// The bytes of every file SaveProject would write, by path relative to the
// project file's folder ("Sample.vbp", "frmMain.frm", "frmMain.frx", ...).
std::map<std::string, std::string> ProjectFileBytes(const Project& project);

}  // namespace workbench
