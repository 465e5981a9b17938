// Lines of a project file exactly as they are on disk, and whole-file I/O.
//
// Project files are text in the project's code page (code_page.hpp). Their lines end in CR LF as
// the IDE writes them, but files edited elsewhere may end lines in LF alone, and the last line may
// have no end at all. SplitLines keeps each line's own end so that JoinLines gives back the very
// same bytes: decoding is lossless because every byte has a character (the five bytes the code page
// leaves undefined become the C1 controls of the same number).
//
// Failures here name the file (and line, where there is one) so that a user
// can find what was wrong.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "vb/failure.hpp"
#include "vb/text.hpp"
#include "vbfiles/code_page.hpp"

namespace vbfiles {

inline constexpr std::string_view kCrLf = "\r\n";

struct SourceLine {
  vb::Text text;    // without the line end
  std::string eol;  // "\r\n", "\n", "\r", or "" for a last line without one
  friend bool operator==(const SourceLine&, const SourceLine&) = default;
};

// Splits at CR LF, LF or a lone CR. A final line end does not make an extra
// empty line; an empty file has no lines.
std::vector<SourceLine> SplitLines(std::string_view bytes, const CodePage& code_page = {});
// The bytes of the lines, each with its own end.
std::string JoinLines(const std::vector<SourceLine>& lines, const CodePage& code_page = {});
// The line end most lines use (CR LF when there is a tie or no line end at
// all): what new lines of the file get.
std::string CommonLineEnd(const std::vector<SourceLine>& lines);

// "Invalid file format" (321) with a description naming the file and, when
// `line` is not 0, the line: "frmMain.frm line 12: Begin without End".
vb::Failure FileFormatFailure(vb::TextView file, std::size_t line, vb::TextView what);

// The whole file. Fails with "File not found" (53) naming the file when there
// is none, and otherwise with "Path/File access error" (75) naming the file
// and the reason: "Cannot read /x/Form1.frm: Permission denied".
std::string ReadWholeFile(const std::filesystem::path& path);

// A path as users read it in messages.
vb::Text DisplayName(const std::filesystem::path& path);

}  // namespace vbfiles
