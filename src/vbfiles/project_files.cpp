// Reading and writing a project's files as a whole.
//
// Sections: paths; forms; reading; writing.
#include "vbfiles/project_files.hpp"

#include <system_error>

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

std::string RequireExisting(const fs::path& folder, const std::string& relative) {
  auto found = FindExisting(folder, relative);
  if (!found) {
    throw vb::Failure(vb::kFileNotFound, u"File not found: " + vb::FromUtf8(relative));
  }
  return *found;
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

FormFile ReadFormFile(const fs::path& folder, const std::string& relative,
                      vb::TextView shown_name) {
  FormFile form;
  form.relative_path = relative;
  form.document = FrmDocument::Parse(ReadWholeFile(folder / relative), shown_name);
  form.frx_relative_path = CompanionOf(relative);
  if (const auto frx = FindExisting(folder, form.frx_relative_path)) {
    form.frx_relative_path = *frx;
    form.frx = FrxFile(ReadWholeFile(folder / *frx));
  }
  return form;
}

void WriteIfChanged(const fs::path& path, const std::string& bytes) {
  std::error_code error;
  if (fs::exists(path, error)) {
    try {
      if (ReadWholeFile(path) == bytes) return;
    } catch (const vb::Failure&) {
      // Unreadable: replacing it below reports the trouble if it persists.
    }
  }
  if (path.has_parent_path()) fs::create_directories(path.parent_path(), error);
  ReplaceFile(path, bytes);
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
  const std::string bytes = vb::ToCp1252(text);
  std::string blob(4, '\0');
  for (std::size_t i = 0; i < 4; ++i) blob[i] = static_cast<char>((bytes.size() >> (8 * i)) & 0xFF);
  blob += bytes;
  if (!frx) frx = FrxFile();
  std::string all = frx->Bytes();
  auto offset = all.find(blob);
  if (offset == std::string::npos) {
    offset = all.size();
    all += blob;
    frx = FrxFile(std::move(all));
  }
  const auto file = vb::FromUtf8(fs::path(frx_relative_path).filename().string());
  return FormatFrxReference({file, static_cast<std::uint32_t>(offset), true});
}

// ------------------------------------------------- reading

vb::Text ProjectFiles::Name() const {
  vb::Text name = vbp.ProjectName();
  return name.empty() ? vb::FromUtf8(vbp_path.stem().string()) : name;
}

ProjectFiles ReadProjectFiles(const fs::path& vbp_path) {
  ProjectFiles files;
  files.vbp_path = vbp_path;
  files.vbp = VbpFile::Parse(ReadWholeFile(vbp_path), DisplayName(vbp_path.filename()));
  const fs::path folder = vbp_path.parent_path();
  const auto keep_file = [&](const std::string& relative) {
    files.other_files.emplace_back(relative, ReadWholeFile(folder / relative));
  };
  for (const auto& member : files.vbp.Members()) {
    const auto relative = RequireExisting(folder, MemberPathToGeneric(member.path));
    if (vb::SameName(member.key, u"Form")) {
      files.forms.push_back(ReadFormFile(folder, relative, member.path));
      continue;
    }
    keep_file(relative);
    if (const auto companion = FindExisting(folder, CompanionOf(relative))) keep_file(*companion);
  }
  if (const auto resources = files.vbp.Get(u"ResFile32")) {
    const auto parsed = ParseFrmValue(*resources);
    if (!parsed.text.empty()) keep_file(RequireExisting(folder, MemberPathToGeneric(parsed.text)));
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

void WriteProjectFiles(const fs::path& vbp_path, const std::map<std::string, std::string>& members,
                       const std::string& vbp_bytes) {
  const fs::path folder = vbp_path.parent_path();
  for (const auto& [relative, bytes] : members) WriteIfChanged(folder / relative, bytes);
  WriteIfChanged(vbp_path, vbp_bytes);
}

}  // namespace vbfiles
