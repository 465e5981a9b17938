// Reading and writing a project's files as a whole.
//
// Sections: paths; forms; reading; writing.
#include "vbfiles/project_files.hpp"

#include <system_error>

#include "vbfiles/file_commit.hpp"

#include "vb/convert.hpp"
#include "vb/failure.hpp"
#include "vbfiles/file_lines.hpp"
#include "vbfiles/frm_value.hpp"

namespace vbfiles {
namespace fs = std::filesystem;

namespace {

// ------------------------------------------------- paths

bool SameFileName(const std::string& a, const std::string& b) {
  return vb::SameName(vb::FromUtf8(a), vb::FromUtf8(b));
}

// `relative` as it exists under `folder`, matching each part without case
// when the exact spelling is missing; nullopt when there is no such file.
std::optional<std::string> FindExisting(const fs::path& folder, const std::string& relative) {
  std::error_code error;
  if (fs::exists(folder / relative, error)) return relative;
  fs::path current = folder;
  fs::path found;
  for (const auto& part : fs::path(relative)) {
    if (part == "." || part == ".." || fs::exists(current / part, error)) {
      current /= part;
      found /= part;
      continue;
    }
    std::optional<fs::path> match;
    for (fs::directory_iterator it(current, error), end; !error && it != end; it.increment(error)) {
      if (SameFileName(it->path().filename().string(), part.string())) {
        match = it->path().filename();
        break;
      }
    }
    if (!match) return std::nullopt;
    current /= *match;
    found /= *match;
  }
  return found.generic_string();
}

// The member the project file names by `path` (backslashes and all), its name
// spelled in UTF-8 as this system names files, or else in the bytes of the
// project's code page as a copy from the other system may have kept it.
std::string RequireExisting(const fs::path& folder, vb::TextView path, const CodePage& code_page) {
  const std::string generic = MemberPathToGeneric(path);
  if (auto found = FindExisting(folder, generic)) return *found;
  if (auto found = FindExisting(folder, code_page.Encode(vb::FromUtf8(generic)))) return *found;
  throw vb::Failure(vb::kFileNotFound, u"File not found: " + vb::Text(path));
}

// The binary companion the IDE keeps beside a designer file: frmMain.frm ->
// frmMain.frx. Empty for files without one.
std::string CompanionOf(const std::string& relative) {
  static constexpr std::pair<std::u16string_view, std::string_view> kCompanions[] = {
      {u".frm", ".frx"}, {u".ctl", ".ctx"}, {u".dsr", ".dsx"}, {u".pag", ".pgx"}, {u".dob", ".dox"},
  };
  const auto extension = vb::FromUtf8(fs::path(relative).extension().string());
  for (const auto& [designer, companion] : kCompanions) {
    if (vb::SameName(extension, designer)) {
      return fs::path(relative).replace_extension(companion).generic_string();
    }
  }
  return {};
}

// The file's bytes, read once.
const std::string& BytesOf(const fs::path& folder, const std::string& relative,
                           std::map<std::string, std::string>& as_read) {
  auto it = as_read.find(relative);
  if (it == as_read.end()) it = as_read.emplace(relative, ReadWholeFile(folder / relative)).first;
  return it->second;
}

FormFile ReadFormFile(const fs::path& folder, const std::string& relative, vb::TextView shown_name,
                      std::map<std::string, std::string>& as_read, const CodePage& code_page) {
  FormFile form;
  form.relative_path = relative;
  form.document = FrmDocument::Parse(BytesOf(folder, relative, as_read), shown_name, code_page);
  form.frx_relative_path = CompanionOf(relative);
  if (const auto frx = FindExisting(folder, form.frx_relative_path)) {
    form.frx_relative_path = *frx;
    form.frx = FrxFile(BytesOf(folder, *frx, as_read), code_page);
  }
  return form;
}

// The code page of a project whose project file holds `vbp_bytes`: what the
// project file and its forms (found as that code page reads their names) say.
CodePage DetectProjectCodePage(const fs::path& folder, const std::string& vbp_bytes,
                               vb::TextView file_name,
                               std::map<std::string, std::string>& as_read) {
  const CodePage first = DetectCodePage({vbp_bytes});
  std::vector<std::string_view> texts{vbp_bytes};
  for (const auto& member : VbpFile::Parse(vbp_bytes, file_name, first).Members()) {
    if (!vb::SameName(member.key, u"Form")) continue;
    try {
      texts.push_back(BytesOf(folder, RequireExisting(folder, member.path, first), as_read));
    } catch (const vb::Failure&) {
      // Reading the project reports it.
    }
  }
  return DetectCodePage(texts);
}

// Whether `bytes` are already what the file holds: what it was read as, when
// it was read, or else what the disk has.
bool Unchanged(const fs::path& path, const std::string& relative, const std::string& bytes,
               const std::map<std::string, std::string>* as_read) {
  if (as_read != nullptr) {
    if (const auto it = as_read->find(relative); it != as_read->end()) return it->second == bytes;
  }
  std::error_code error;
  if (!fs::is_regular_file(path, error)) return false;
  try {
    return ReadWholeFile(path) == bytes;
  } catch (const vb::Failure&) {
    return false;  // unreadable: writing it reports the trouble if it persists
  }
}

}  // namespace

// ------------------------------------------------- forms

FormFile FormFile::New(const vb::Text& name) {
  FormFile form;
  form.relative_path = vb::ToUtf8(name) + ".frm";
  form.frx_relative_path = vb::ToUtf8(name) + ".frx";
  const vb::Text text = u"VERSION 5.00\r\nBegin VB.Form " + name + u" \r\nEnd\r\n" +
                        u"Attribute VB_Name = " + QuoteFrmString(name) +
                        u"\r\n"
                        u"Attribute VB_GlobalNameSpace = False\r\n"
                        u"Attribute VB_Creatable = False\r\n"
                        u"Attribute VB_PredeclaredId = True\r\n"
                        u"Attribute VB_Exposed = False\r\n";
  form.document = FrmDocument::Parse(vb::ToCp1252(text), name);
  return form;
}

vb::Text FormFile::StoreString(const vb::Text& text) {
  const std::string bytes = document.GetCodePage().Encode(text);
  std::string blob(4, '\0');
  for (std::size_t i = 0; i < 4; ++i) blob[i] = static_cast<char>((bytes.size() >> (8 * i)) & 0xFF);
  blob += bytes;
  if (!frx) frx = FrxFile({}, document.GetCodePage());
  auto offset = frx->Bytes().find(blob);
  if (offset == std::string::npos) {
    offset = frx->Bytes().size();
    frx = FrxFile(frx->Bytes() + blob, document.GetCodePage());
  }
  const auto file = vb::FromUtf8(fs::path(frx_relative_path).filename().string());
  return FormatFrxReference({file, static_cast<std::uint32_t>(offset), true});
}

// ------------------------------------------------- reading

vb::Text ProjectFiles::Name() const {
  vb::Text name = vbp.ProjectName();
  return name.empty() ? vb::FromUtf8(vbp_path.stem().string()) : name;
}

ProjectFiles ReadProjectFiles(const fs::path& vbp_path, std::optional<CodePage> code_page) {
  ProjectFiles files;
  files.vbp_path = vbp_path;
  const fs::path folder = vbp_path.parent_path();
  const std::string vbp_bytes = ReadWholeFile(vbp_path);
  const vb::Text vbp_name = DisplayName(vbp_path.filename());
  files.code_page =
      code_page ? *code_page : DetectProjectCodePage(folder, vbp_bytes, vbp_name, files.as_read);
  files.vbp = VbpFile::Parse(vbp_bytes, vbp_name, files.code_page);
  files.as_read[vbp_path.filename().string()] = vbp_bytes;
  const auto keep_file = [&](const std::string& relative) {
    files.other_files.emplace_back(relative, BytesOf(folder, relative, files.as_read));
  };
  for (const auto& member : files.vbp.Members()) {
    const auto relative = RequireExisting(folder, member.path, files.code_page);
    if (vb::SameName(member.key, u"Form")) {
      files.forms.push_back(
          ReadFormFile(folder, relative, member.path, files.as_read, files.code_page));
      continue;
    }
    keep_file(relative);
    const auto companion = CompanionOf(relative);
    if (companion.empty()) continue;
    if (const auto found = FindExisting(folder, companion)) keep_file(*found);
  }
  if (const auto resources = files.vbp.Get(u"ResFile32")) {
    const auto parsed = ParseFrmValue(*resources);
    if (!parsed.text.empty()) keep_file(RequireExisting(folder, parsed.text, files.code_page));
  }
  return files;
}

// ------------------------------------------------- writing

VbpFile NewProjectFile(const vb::Text& name, const std::optional<vb::Text>& startup_form) {
  vb::Text text =
      u"Type=Exe\r\n"
      u"Reference=*\\G{00020430-0000-0000-C000-000000000046}#2.0#0#..\\..\\..\\WINDOWS\\system32\\"
      u"stdole2.tlb#OLE Automation\r\n";
  if (startup_form) text += u"Startup=" + QuoteFrmString(*startup_form) + u"\r\n";
  text += u"Name=" + QuoteFrmString(name) + u"\r\n";
  return VbpFile::Parse(vb::ToCp1252(text), name);
}

std::vector<FileWrite> ProjectWrites(const fs::path& vbp_path,
                                     const std::map<std::string, std::string>& members,
                                     const std::string& vbp_bytes,
                                     const std::map<std::string, std::string>* as_read) {
  const fs::path folder = vbp_path.parent_path();
  std::vector<FileWrite> writes;
  for (const auto& [relative, bytes] : members) {
    if (!Unchanged(folder / relative, relative, bytes, as_read)) {
      writes.push_back({folder / relative, bytes});
    }
  }
  if (!Unchanged(vbp_path, vbp_path.filename().string(), vbp_bytes, as_read)) {
    writes.push_back({vbp_path, vbp_bytes});
  }
  return writes;
}

}  // namespace vbfiles
