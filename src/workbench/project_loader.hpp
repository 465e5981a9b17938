// Opening and saving VB6 projects: the .vbp, its forms (.frm with their .frx)
// and its other members, bound to the workbench's project model.
//
// OpenProject reads the project file and every form it lists into the model:
// each form's own properties, its controls (nested as the file nests them,
// classes the workbench does not model kept with all their properties), and
// its code section as the form's code module. Every property keeps the exact
// text of its line (the model's opaque `raw`), the font its block; the form
// keeps its document for everything the model does not hold (header and
// Attribute lines, property groups of other libraries, line ends).
//
// SaveProject writes the model back. What nobody changed is written as it was
// read, byte for byte; a changed property gets a line as the IDE writes it; a
// deleted control's block is gone; a new control gets a block at the end of
// its container's block with the properties the IDE writes for a new control
// (those that differ from the class default, plus position, size and
// TabIndex); the code section is the module's lines with the file's line
// ends. A changed string with line breaks cannot stand on a line: it is added
// to the end of the form's .frx, whose existing bytes never change. Other
// members (modules, classes) are copied unchanged when the project is saved
// to another place. Each file is replaced only by an atomic rename of a
// complete new one, and only when its bytes differ.
//
// Failures: a file that is missing or unreadable fails with 53 or 75 naming
// it; a malformed file fails with 321 naming the file and the line.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "workbench/form_component.hpp"
#include "workbench/project.hpp"

namespace workbench {

// Opens the project whose .vbp is at `vbp_path`.
std::shared_ptr<Project> OpenProject(const std::filesystem::path& vbp_path);

// Saves the project over the files it was opened from.
void SaveProject(const Project& project);
// Saves the project as `vbp_path`, its members beside it at the same
// relative paths. A project that was never opened from files gets a new
// project file there.
void SaveProject(const Project& project, const std::filesystem::path& vbp_path);

// The bytes of every file SaveProject would write, by path relative to the
// project file's folder ("Sample.vbp", "frmMain.frm", "frmMain.frx", ...).
std::map<std::string, std::string> ProjectFileBytes(const Project& project);

}  // namespace workbench
