// A VB6 project as its files hold it: the project file (.vbp), each form as
// a document with its binary side file (.frx), and every other member kept
// as bytes; read from disk as a whole and written back as a whole.
//
// Reading follows the project file's member lines (Form=, Module=, Class=,
// ...) and its resource file (ResFile32=). A member's path is matched without
// regard to case when the exact spelling is missing, since projects come from
// a system whose file names ignore case. Forms are parsed (frm_file.hpp);
// other members, and the binary companions of designer files (.ctx, .dsx,
// ...), are kept byte for byte to be copied when the project is saved
// elsewhere.
//
// Writing is all or nothing for the project (file_commit.hpp): every file is
// replaced, by an atomic rename of a complete new one, or none is. A file
// whose bytes are what was read from it is not written at all, and the
// project file comes last.
//
// Failures: a member that is missing fails with "File not found" (53) naming
// it; an unreadable file with 75 naming it and the reason; a malformed
// project or form file with 321 naming the file and the line.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "vb/text.hpp"
#include "vbfiles/file_commit.hpp"
#include "vbfiles/frm_file.hpp"
#include "vbfiles/frx_file.hpp"
#include "vbfiles/vbp_file.hpp"

namespace vbfiles {

// One form of the project.
struct FormFile {
  std::string relative_path;      // "frmMain.frm", relative to the project's folder
  std::string frx_relative_path;  // where its .frx is, or would be
  FrmDocument document;
  std::optional<FrxFile> frx;  // none when the form has no side file yet

  // A form the project never had, as the IDE makes one: VERSION, an empty
  // form block, the Attribute lines; "<name>.frm" beside the project file.
  static FormFile New(const vb::Text& name);
  // Puts a string that no property line can hold (one with line breaks) at
  // the end of the side file and gives the reference to write for it:
  // $"frmMain.frx":0000. The side file's bytes so far never change, and an
  // equal string already there is used again, so saving twice gives the same
  // files.
  vb::Text StoreString(const vb::Text& text);
};

struct ProjectFiles {
  std::filesystem::path vbp_path;
  VbpFile vbp;
  std::vector<FormFile> forms;  // in the order the project file lists them
  // Every other member, its companion and the resource file: relative path
  // and bytes.
  std::vector<std::pair<std::string, std::string>> other_files;
  // Every file as read (the project file under its own name), by relative
  // path: a save leaves the files whose bytes are still these alone.
  std::map<std::string, std::string> as_read;
  CodePage code_page;  // of every text in the project's files

  // Name="Sample" of the project file, or the project file's own name
  // without its extension.
  vb::Text Name() const;
};

// Reads the project whose project file is at `vbp_path`, and its members, in
// `code_page`, or in the code page the files say (DetectCodePage) when none.
ProjectFiles ReadProjectFiles(const std::filesystem::path& vbp_path,
                              std::optional<CodePage> code_page = std::nullopt);

// The project file of a project that was never saved: Type=Exe, the OLE
// Automation reference, Startup (when the project has a form), Name.
VbpFile NewProjectFile(const vb::Text& name, const std::optional<vb::Text>& startup_form);

// The writes that put `members` (by path relative to the project file's
// folder) and the project file's bytes at `vbp_path`: every file but those
// whose bytes `as_read` holds for it (or, for a file it does not hold, the
// disk holds already). CommitFiles makes them all or nothing.
std::vector<FileWrite> ProjectWrites(const std::filesystem::path& vbp_path,
                                     const std::map<std::string, std::string>& members,
                                     const std::string& vbp_bytes,
                                     const std::map<std::string, std::string>* as_read = nullptr);

}  // namespace vbfiles
