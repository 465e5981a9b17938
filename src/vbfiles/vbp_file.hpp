// Project files (.vbp): Key=Value lines kept line by line.
//
// A project file lists the project's settings and members: Type=Exe,
// Reference=..., Object=..., Form=frmMain.frm, Module=modUtil; modUtil.bas,
// Class=..., Startup="frmMain", Name="Sample", and so on, then optional
// [Section] blocks that belong to tools. Every line is kept as read, so writing
// an unchanged file gives its bytes back; Set changes one line in place and
// Add puts a new one after the lines of the same key, as the IDE groups them.
//
// Parse fails with "Invalid file format" (321) naming the file and line for a
// line that is neither Key=Value, a [Section] heading, nor blank.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "vb/text.hpp"
#include "vbfiles/file_lines.hpp"

namespace vbfiles {

// A member of the project as a Form=, Module=, Class=... line names it.
struct VbpMember {
  vb::Text key;   // "Form", "Module", "Class", "UserControl", ...
  vb::Text name;  // "modUtil" for Module=modUtil; modUtil.bas; empty for Form=
  vb::Text path;  // as written, backslashes and all: "frmMain.frm", "..\lib\x.bas"
};

class VbpFile {
 public:
  static VbpFile Parse(std::string_view bytes, vb::TextView file_name,
                       const CodePage& code_page = {});
  std::string Write() const;

  // The value text (as written, quotes kept) of the first `key` line of the
  // main part (before any [Section]); keys compare without case.
  std::optional<vb::Text> Get(vb::TextView key) const;
  // Every value of `key` in the main part, in order.
  std::vector<vb::Text> GetAll(vb::TextView key) const;
  // Sets the first `key` line's value; adds the line when there is none. An
  // equal value keeps the line as read.
  void Set(vb::TextView key, vb::Text value);
  // A new `key` line after the last line of that key in the main part, or at
  // the end of the main part.
  void Add(vb::TextView key, vb::Text value);

  // Name="Sample" without its quotes, or empty.
  vb::Text ProjectName() const;
  // The Form, Module, Class, UserControl, PropertyPage, UserDocument and
  // Designer lines, in file order.
  std::vector<VbpMember> Members() const;

 private:
  struct Line {
    SourceLine source;
    vb::Text key;    // empty for a blank line or a [Section] heading
    vb::Text value;  // the text after the first "="
    bool in_main = true;
  };
  std::size_t EndOfMain() const;

  std::vector<Line> lines_;
  std::string line_end_ = std::string(kCrLf);
  bool ends_with_line_end_ = true;
  CodePage code_page_;
};

// "frmMain.frm" or "..\lib\x.bas" as a relative path of this system.
std::string MemberPathToGeneric(vb::TextView path);

}  // namespace vbfiles
