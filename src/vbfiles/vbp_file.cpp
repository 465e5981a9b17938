#include "vbfiles/vbp_file.hpp"

#include "vbfiles/frm_value.hpp"

namespace vbfiles {
namespace {

constexpr std::u16string_view kMemberKeys[] = {
    u"Form", u"Module", u"Class", u"UserControl", u"PropertyPage", u"UserDocument", u"Designer"};

vb::TextView TrimBlanks(vb::TextView text) {
  while (!text.empty() && (text.front() == u' ' || text.front() == u'\t')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == u' ' || text.back() == u'\t')) text.remove_suffix(1);
  return text;
}

}  // namespace

VbpFile VbpFile::Parse(std::string_view bytes, vb::TextView file_name, const CodePage& code_page) {
  VbpFile file;
  file.code_page_ = code_page;
  auto lines = SplitLines(bytes, code_page);
  file.line_end_ = CommonLineEnd(lines);
  file.ends_with_line_end_ = lines.empty() || !lines.back().eol.empty();
  bool in_main = true;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    Line line{std::move(lines[i]), {}, {}, in_main};
    const auto trimmed = TrimBlanks(line.source.text);
    if (trimmed.size() >= 2 && trimmed.front() == u'[' && trimmed.back() == u']') {
      in_main = false;
      line.in_main = false;
    } else if (!trimmed.empty()) {
      const auto equals = trimmed.find(u'=');
      if (equals == vb::TextView::npos || equals == 0) {
        throw FileFormatFailure(file_name, i + 1, u"expected Key=Value");
      }
      line.key = TrimBlanks(trimmed.substr(0, equals));
      line.value = trimmed.substr(equals + 1);
    }
    file.lines_.push_back(std::move(line));
  }
  return file;
}

std::string VbpFile::Write() const {
  std::vector<SourceLine> out;
  out.reserve(lines_.size());
  for (const auto& line : lines_) out.push_back(line.source);
  for (auto& line : out) {
    if (line.eol.empty()) line.eol = line_end_;
  }
  if (!out.empty() && !ends_with_line_end_) out.back().eol.clear();
  return JoinLines(out, code_page_);
}

std::optional<vb::Text> VbpFile::Get(vb::TextView key) const {
  for (const auto& line : lines_) {
    if (line.in_main && vb::SameName(line.key, key)) return line.value;
  }
  return std::nullopt;
}

std::vector<vb::Text> VbpFile::GetAll(vb::TextView key) const {
  std::vector<vb::Text> values;
  for (const auto& line : lines_) {
    if (line.in_main && vb::SameName(line.key, key)) values.push_back(line.value);
  }
  return values;
}

std::size_t VbpFile::EndOfMain() const {
  std::size_t end = 0;
  while (end < lines_.size() && lines_[end].in_main) ++end;
  // A blank line before the first section stays with the section.
  while (end > 0 && end < lines_.size() && lines_[end - 1].key.empty()) --end;
  return end;
}

void VbpFile::Set(vb::TextView key, vb::Text value) {
  for (auto& line : lines_) {
    if (!line.in_main || !vb::SameName(line.key, key)) continue;
    if (line.value == value) return;
    line.value = std::move(value);
    line.source.text = line.key + u"=" + line.value;
    return;
  }
  Add(key, std::move(value));
}

void VbpFile::Add(vb::TextView key, vb::Text value) {
  std::size_t at = EndOfMain();
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    if (lines_[i].in_main && vb::SameName(lines_[i].key, key)) at = i + 1;
  }
  Line line{{vb::Text(key) + u"=" + value, line_end_}, vb::Text(key), std::move(value), true};
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at), std::move(line));
}

vb::Text VbpFile::ProjectName() const {
  const auto value = Get(u"Name");
  if (!value) return {};
  const auto parsed = ParseFrmValue(*value);
  return parsed.form == FrmValue::Form::Quoted ? parsed.text : vb::Text(TrimBlanks(*value));
}

std::vector<VbpMember> VbpFile::Members() const {
  std::vector<VbpMember> members;
  for (const auto& line : lines_) {
    if (!line.in_main) continue;
    for (const auto key : kMemberKeys) {
      if (!vb::SameName(line.key, key)) continue;
      VbpMember member{vb::Text(key), {}, vb::Text(TrimBlanks(line.value))};
      // Module=modUtil; modUtil.bas names the module before the path.
      if (const auto semicolon = member.path.find(u';'); semicolon != vb::Text::npos) {
        member.name = TrimBlanks(vb::TextView(member.path).substr(0, semicolon));
        member.path = TrimBlanks(vb::TextView(member.path).substr(semicolon + 1));
      }
      members.push_back(std::move(member));
    }
  }
  return members;
}

std::string MemberPathToGeneric(vb::TextView path) {
  std::string generic = vb::ToUtf8(path);
  for (auto& c : generic) {
    if (c == '\\') c = '/';
  }
  return generic;
}

}  // namespace vbfiles
