#include "vbfiles/file_lines.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

#include "vb/convert.hpp"
#include "vbfiles/file_system.hpp"

namespace vbfiles {

std::vector<SourceLine> SplitLines(std::string_view bytes, const CodePage& code_page) {
  std::vector<SourceLine> lines;
  // Most files end their lines in LF or CR LF: one LF a line is room enough.
  lines.reserve(static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n')) + 1);
  std::size_t start = 0;
  while (start < bytes.size()) {
    std::size_t end = start;
    while (end < bytes.size() && bytes[end] != '\r' && bytes[end] != '\n') ++end;
    std::size_t eol_size = 0;
    if (end < bytes.size()) {
      eol_size = (bytes[end] == '\r' && end + 1 < bytes.size() && bytes[end + 1] == '\n') ? 2 : 1;
    }
    lines.push_back({code_page.Decode(bytes.substr(start, end - start)),
                     std::string(bytes.substr(end, eol_size))});
    start = end + eol_size;
  }
  return lines;
}

std::string JoinLines(const std::vector<SourceLine>& lines, const CodePage& code_page) {
  std::string out;
  for (const auto& line : lines) {
    code_page.EncodeTo(line.text, out);
    out += line.eol;
  }
  return out;
}

std::string CommonLineEnd(const std::vector<SourceLine>& lines) {
  std::size_t crlf = 0, lf = 0, cr = 0;
  for (const auto& line : lines) {
    if (line.eol == kCrLf) ++crlf;
    if (line.eol == "\n") ++lf;
    if (line.eol == "\r") ++cr;
  }
  if (lf > crlf && lf >= cr) return "\n";
  if (cr > crlf && cr > lf) return "\r";
  return std::string(kCrLf);
}

vb::Failure FileFormatFailure(vb::TextView file, std::size_t line, vb::TextView what) {
  vb::Text description(file);
  if (line != 0) description += u" line " + vb::IntegerToText(static_cast<vb::Long>(line));
  description += u": ";
  description += what;
  return vb::Failure(vb::kBadFileFormat, description);
}

vb::Text DisplayName(const std::filesystem::path& path) {
  return vb::FromUtf8(path.generic_string());
}

std::string ReadWholeFile(const std::filesystem::path& path) {
  errno = 0;
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> in(std::fopen(path.string().c_str(), "rb"),
                                                     &std::fclose);
  if (!in) {
    if (errno == ENOENT || errno == ENOTDIR) {
      throw vb::Failure(vb::kFileNotFound, u"File not found: " + DisplayName(path));
    }
    throw FileFailure("read", path, {errno, std::generic_category()});
  }
  std::string bytes;
  // Room for the whole file at once where its size is known.
  std::error_code ignored;
  if (const auto size = std::filesystem::file_size(path, ignored); !ignored) bytes.reserve(size);
  char buffer[1 << 16];
  for (std::size_t got; (got = std::fread(buffer, 1, sizeof buffer, in.get())) > 0;) {
    bytes.append(buffer, got);
  }
  if (std::ferror(in.get())) throw FileFailure("read", path, {errno, std::generic_category()});
  return bytes;
}

}  // namespace vbfiles
