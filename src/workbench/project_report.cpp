// Round trips and checks of a project. Sections: round trip; check.
#include "workbench/project_report.hpp"

#include <any>

#include "vb/text.hpp"
#include "vbfiles/file_lines.hpp"
#include "vbfiles/frm_file.hpp"
#include "vbfiles/project_files.hpp"
#include "workbench/class_rules.hpp"
#include "workbench/member_scan.hpp"
#include "workbench/project_loader.hpp"
#include "workbench/project_saver.hpp"

namespace workbench {
namespace fs = std::filesystem;

// ------------------------------------------------- round trip

namespace {

// The line of `bytes` that holds `offset`, without its end.
std::string LineAt(const std::string& bytes, std::size_t offset) {
  const auto start = offset == 0 ? 0 : bytes.find_last_of("\r\n", offset - 1);
  const auto from = start == std::string::npos || offset == 0 ? 0 : start + 1;
  const auto end = bytes.find_first_of("\r\n", from);
  return bytes.substr(from, end == std::string::npos ? std::string::npos : end - from);
}

std::size_t LineNumber(const std::string& bytes, std::size_t offset) {
  return vbfiles::SplitLines(std::string_view(bytes).substr(0, offset)).size() +
         (offset == 0 || bytes[offset - 1] == '\n' || bytes[offset - 1] == '\r' ? 1 : 0);
}

}  // namespace

std::optional<ByteDifference> FirstDifference(const std::string& file, const std::string& read,
                                              const std::string& written,
                                              const vbfiles::CodePage& code_page) {
  if (read == written) return std::nullopt;
  std::size_t at = 0;
  while (at < read.size() && at < written.size() && read[at] == written[at]) ++at;
  // A line end that differs belongs to the line it ends.
  while (at > 0 && (read[at - 1] == '\r' || read[at - 1] == '\n') &&
         (at >= read.size() || read[at] == '\n' || read[at] == '\r')) {
    --at;
  }
  const auto show = [&](const std::string& bytes) {
    std::string line = vb::ToUtf8(code_page.Decode(LineAt(bytes, at)));
    if (at >= bytes.size()) line += "(end of file)";
    return line;
  };
  return ByteDifference{file, LineNumber(read, at), show(read), show(written)};
}

std::vector<ByteDifference> RoundTrip(const fs::path& path,
                                      std::optional<vbfiles::CodePage> code_page) {
  std::vector<ByteDifference> differences;
  const auto compare = [&](const std::string& file, const std::string& read,
                           const std::string& written, const vbfiles::CodePage& page) {
    if (auto difference = FirstDifference(file, read, written, page)) {
      differences.push_back(std::move(*difference));
    }
  };
  if (vb::SameName(vb::FromUtf8(path.extension().string()), u".vbp")) {
    const auto project = OpenProject(path, code_page);
    const auto& data = *KeptFileData<vbfiles::ProjectFiles>(project->FileData());
    for (const auto& [relative, bytes] : ProjectFileBytes(*project)) {
      const auto read = data.as_read.find(relative);
      compare(relative, read != data.as_read.end() ? read->second : std::string(), bytes,
              data.code_page);
    }
    return differences;
  }
  const std::string bytes = vbfiles::ReadWholeFile(path);
  const auto page = code_page ? *code_page : vbfiles::DetectCodePage({bytes});
  const auto document =
      vbfiles::FrmDocument::Parse(bytes, vbfiles::DisplayName(path.filename()), page);
  compare(path.generic_string(), bytes, document.Write(), page);
  return differences;
}

// ------------------------------------------------- check

namespace {

// Procedures of the form itself, not of a control.
bool IsFormEvent(vb::TextView owner) {
  static constexpr std::u16string_view kOwners[] = {u"Form", u"MDIForm", u"UserControl",
                                                    u"UserDocument", u"PropertyPage"};
  for (const auto name : kOwners) {
    if (vb::SameName(owner, name)) return true;
  }
  return false;
}

bool IsDefaultName(const Control& control) {
  const vb::Text& stem = control.Rules().stem;
  const vb::Text& name = control.Name();
  if (!control.Rules().known || stem.empty() || name.size() <= stem.size()) return false;
  if (!vb::SameName(vb::TextView(name).substr(0, stem.size()), stem)) return false;
  for (std::size_t i = stem.size(); i < name.size(); ++i) {
    if (name[i] < u'0' || name[i] > u'9') return false;
  }
  return true;
}

}  // namespace

std::vector<CheckFinding> CheckProject(const fs::path& vbp_path,
                                       std::optional<vbfiles::CodePage> code_page) {
  std::vector<CheckFinding> findings;
  const auto project = OpenProject(vbp_path, code_page);
  for (const auto& form : project->Forms()) {
    const auto& file = *KeptFileData<vbfiles::FormFile>(form->FileData());
    const auto& controls = form->Controls();
    const auto on_form = [&](vb::TextView name) {
      for (const auto& control : controls) {
        if (vb::SameName(control->Name(), name)) return true;
      }
      return false;
    };
    // Code lines count from the line after the form's Attribute lines.
    const auto code_start =
        vbfiles::SplitLines(file.document.Write()).size() - file.document.CodeLines().size();
    const auto lines = form->Module() ? form->Module()->AllLines() : std::vector<vb::Text>{};
    for (const auto& member : ScanMembers(lines)) {
      if (member.kind != MemberKind::Sub) continue;
      const auto underscore = member.name.rfind(u'_');
      if (underscore == vb::Text::npos || underscore == 0) continue;
      const vb::TextView owner = vb::TextView(member.name).substr(0, underscore);
      if (IsFormEvent(owner) || on_form(owner)) continue;
      findings.push_back({file.relative_path, code_start + static_cast<std::size_t>(member.line),
                          vb::ToUtf8(member.name) + " handles " + vb::ToUtf8(owner) +
                              ", which is not on the form"});
    }
    for (const auto& control : controls) {
      if (!IsDefaultName(*control)) continue;
      findings.push_back({file.relative_path, 0,
                          vb::ToUtf8(control->Name()) + " (" +
                              vb::ToUtf8(control->Rules().class_name) +
                              ") still has its default name"});
    }
  }
  return findings;
}

}  // namespace workbench
