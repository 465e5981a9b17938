// The libraries of controls outside VB itself that the workbench models, and
// the Object lines that make a form and a project load them.
//
// A form file names each library its controls come from in its header
// (Object = "{GUID}#2.0#0"; "MSCOMCTL.OCX"), the project file once more
// (Object={GUID}#2.0#0; MSCOMCTL.OCX). A library is recognised by the first
// 38 characters of its object text, the braced GUID, so a line that names
// another version of it counts.
#pragma once

#include <string_view>

#include "vb/text.hpp"
#include "vbfiles/frm_file.hpp"
#include "vbfiles/vbp_file.hpp"

namespace vbfiles {

struct ControlLibrary {
  std::u16string_view prefix;  // of the file class: "MSComctlLib."
  std::u16string_view object;  // "{GUID}#2.0#0"
  std::u16string_view file;    // "MSCOMCTL.OCX"
};

// The library a control of `file_class` ("MSComctlLib.ListView") comes
// from, or null for VB's own classes and libraries not in the table.
const ControlLibrary* LibraryOf(vb::TextView file_class);

// Adds the library's Object line after the last line of the form's header
// that is not blank, unless the header names the library already.
void AddLibraryTo(FrmDocument& document, const ControlLibrary& library);
// Adds the library's Object line to the project file, unless it lists the
// library already.
void AddLibraryTo(VbpFile& vbp, const ControlLibrary& library);

}  // namespace vbfiles
