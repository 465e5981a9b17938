// Opening a VB6 project into the workbench's model: the project files as
// src/vbfiles reads them, turned into a project, its forms, their controls
// and code modules.
//
// Each form's own properties, its controls (nested as the file nests them,
// classes the workbench does not model kept with all their properties), and
// its code section as the form's code module. Every property keeps the exact
// text of its line (the model's opaque `raw`), the font its block.
//
// What the model keeps of the files, for project_saver.hpp: the project its
// vbfiles::ProjectFiles (less the forms), each form its vbfiles::FormFile
// (the form block with each control's block reduced to its place: an Object
// node holding only its line number), each control read from the file its
// vbfiles::FrmNode (its block, the blocks inside it reduced to places). Each
// is held as a std::shared_ptr<const T>, never changed, so that copies of the
// model (undo's snapshots) share it; KeptFileData reads it.
//
// Failures: a file that is missing or unreadable fails with 53 or 75 naming
// it; a malformed file fails with 321 naming the file and the line.
#pragma once

#include <any>
#include <filesystem>
#include <memory>
#include <optional>

#include "vbfiles/code_page.hpp"

#include "workbench/project.hpp"

namespace workbench {

// What the loader kept of the files in `data` (a FileData()), or null when
// it kept no T there.
template <typename T>
const T* KeptFileData(const std::any& data) {
  const auto* kept = std::any_cast<std::shared_ptr<const T>>(&data);
  return kept != nullptr ? kept->get() : nullptr;
}

// Opens the project whose .vbp is at `vbp_path`, its text in `code_page` or,
// when none is given, in the one its files say (vbfiles/code_page.hpp).
std::shared_ptr<Project> OpenProject(const std::filesystem::path& vbp_path,
                                     std::optional<vbfiles::CodePage> code_page = std::nullopt);

}  // namespace workbench
