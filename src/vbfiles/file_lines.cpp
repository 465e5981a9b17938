#include "vbfiles/file_lines.hpp"

#include <cstdio>
#include <fstream>
#include <sstream>
#include <system_error>

#include "vb/convert.hpp"

namespace vbfiles {

std::vector<SourceLine> SplitLines(std::string_view bytes) {
  std::vector<SourceLine> lines;
  std::size_t start = 0;
  while (start < bytes.size()) {
    std::size_t end = start;
    while (end < bytes.size() && bytes[end] != '\r' && bytes[end] != '\n') ++end;
    std::size_t eol_size = 0;
    if (end < bytes.size()) {
      eol_size = (bytes[end] == '\r' && end + 1 < bytes.size() && bytes[end + 1] == '\n') ? 2 : 1;
    }
    lines.push_back({vb::FromCp1252(bytes.substr(start, end - start)),
                     std::string(bytes.substr(end, eol_size))});
    start = end + eol_size;
  }
  return lines;
}

std::string JoinLines(const std::vector<SourceLine>& lines) {
  std::string out;
  for (const auto& line : lines) {
    out += vb::ToCp1252(line.text);
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
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    throw vb::Failure(vb::kFileNotFound, u"File not found: " + DisplayName(path));
  }
  std::ostringstream bytes;
  bytes << in.rdbuf();
  if (in.bad()) {
    throw vb::Failure(vb::kPathFileAccess, u"Path/File access error: " + DisplayName(path));
  }
  return std::move(bytes).str();
}

void ReplaceFile(const std::filesystem::path& path, std::string_view bytes) {
  const auto failure = [&] {
    return vb::Failure(vb::kPathFileAccess, u"Path/File access error: " + DisplayName(path));
  };
  auto temp = path;
  temp += ".tessaly-new";
  {
    std::ofstream out(temp, std::ios::binary | std::ios::trunc);
    if (!out) throw failure();
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out) {
      std::error_code ignored;
      std::filesystem::remove(temp, ignored);
      throw failure();
    }
  }
  std::error_code error;
  std::filesystem::rename(temp, path, error);
  if (error) {
    std::filesystem::remove(temp, error);
    throw failure();
  }
}

}  // namespace vbfiles
