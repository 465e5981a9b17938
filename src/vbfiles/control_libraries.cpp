#include "vbfiles/control_libraries.hpp"

#include <algorithm>

namespace vbfiles {
namespace {

constexpr ControlLibrary kLibraries[] = {
    {u"MSComctlLib.", u"{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0", u"MSCOMCTL.OCX"},
    {u"MSMask.", u"{C932BA88-4374-101B-A56C-00AA003668DC}#1.1#0", u"MSMASK32.OCX"},
    {u"RichTextLib.", u"{3B7C8863-D78F-101B-B9B5-04021C009402}#1.2#0", u"RICHTX32.OCX"},
    {u"TabDlg.", u"{BDC217C8-ED16-11CD-956C-0000C04E4C0A}#1.1#0", u"TABCTL32.OCX"},
};

// The braced GUID: what a line must hold to name the library.
vb::TextView Guid(const ControlLibrary& library) { return library.object.substr(0, 38); }

}  // namespace

const ControlLibrary* LibraryOf(vb::TextView file_class) {
  for (const auto& library : kLibraries) {
    if (file_class.size() > library.prefix.size() &&
        vb::SameName(file_class.substr(0, library.prefix.size()), library.prefix)) {
      return &library;
    }
  }
  return nullptr;
}

void AddLibraryTo(FrmDocument& document, const ControlLibrary& library) {
  auto& header = document.Header();
  const bool named = std::any_of(header.begin(), header.end(), [&](const SourceLine& line) {
    return line.text.find(Guid(library)) != vb::Text::npos;
  });
  if (named) return;
  const auto after = std::find_if(header.rbegin(), header.rend(),
                                  [](const SourceLine& line) { return !line.text.empty(); });
  header.insert(after.base(), {u"Object = " + QuoteFrmString(library.object) + u"; " +
                                   QuoteFrmString(library.file),
                               document.LineEnd()});
}

void AddLibraryTo(VbpFile& vbp, const ControlLibrary& library) {
  const auto objects = vbp.GetAll(u"Object");
  const bool listed = std::any_of(objects.begin(), objects.end(), [&](const vb::Text& line) {
    return line.find(Guid(library)) != vb::Text::npos;
  });
  if (!listed) vbp.Add(u"Object", vb::Text(library.object) + u"; " + vb::Text(library.file));
}

}  // namespace vbfiles
