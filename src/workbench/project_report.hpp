// Reports on a project that change nothing: what a save would write that
// differs from the files (`tessaly roundtrip`), and code and names left
// behind by edits (`tessaly check`).
//
// A round trip reads the files and writes them into memory as a save would;
// a user runs it before trusting the workbench with a project. A lone form
// file goes through the form reader and writer alone. Each difference names
// the file, the first line that differs, and that line as read and as it
// would be written.
//
// A check lists the event procedures whose control is no longer on their form
// (cmdGone_Click with no cmdGone) and the controls still under the name a new
// control gets (Command1).
//
// Failures: those of opening (project_loader.hpp) pass to the caller.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "vbfiles/code_page.hpp"

namespace workbench {

struct ByteDifference {
  std::string file;      // relative to the project's folder, or as given
  std::size_t line;      // from 1
  std::string expected;  // the line as read (UTF-8), without its end
  std::string got;       // the line as it would be written
};

// The files of the project at `vbp_path` (a .vbp), or the form at that path
// (a .frm), written in memory and compared with the files on disk.
std::vector<ByteDifference> RoundTrip(const std::filesystem::path& path,
                                      std::optional<vbfiles::CodePage> code_page);
// The first difference between two files' bytes, if any.
std::optional<ByteDifference> FirstDifference(const std::string& file, const std::string& read,
                                              const std::string& written,
                                              const vbfiles::CodePage& code_page);

struct CheckFinding {
  std::string file;  // the form's file
  std::size_t line;  // the procedure's line in the form file; 0 for a control
  std::string text;  // what was found, for a user
};

std::vector<CheckFinding> CheckProject(const std::filesystem::path& vbp_path,
                                       std::optional<vbfiles::CodePage> code_page);

}  // namespace workbench
