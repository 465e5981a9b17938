// The members of a code module, found in its text the way the IDE lists them.
//
// A member is a procedure (Sub, Function, Property), a module-level variable,
// constant, Declare statement, Event, Type or Enum. The scan reads the text as
// the language does: keywords in any case, blanks and tabs as white space,
// " _" at the end of a line joining the next line, ':' separating statements,
// and a "'" or Rem starting a comment only outside a string literal. Comment
// lines, Option and Attribute lines, labels, the inner lines of Type and Enum
// blocks and everything inside procedure bodies give no member.
//
// Promises: members come in order of appearance; the Property procedures of one
// name (a Get and Let pair, say) are one member at the first one's line; the
// scan is linear in the size of the text. Lines count from 1.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "vb/text.hpp"
#include "workbench/member_names.hpp"
#include "workbench/module_text.hpp"

namespace workbench {

enum class MemberKind { Sub, Function, Property, Variable, Constant, Declare, Event, Type, Enum };

// Sub, Function and Property members have bodies closed by an End line.
bool IsProcedure(MemberKind kind);
// "Sub", "Function", "Property", "Variable", ... for traces and messages.
std::string_view MemberKindName(MemberKind kind);

// Where one procedure (or block) sits: its declaration line and its closing
// line, or none when the module ends (or another procedure begins) first.
struct CodeExtent {
  std::int32_t line = 0;
  std::optional<std::int32_t> end_line;

  friend bool operator==(const CodeExtent&, const CodeExtent&) = default;
};

struct ScannedMember {
  vb::Text name;  // as written, without a type character or brackets
  MemberKind kind = MemberKind::Sub;
  // Declaration line: the first line of a continued declaration.
  std::int32_t line = 0;
  // The "End Sub" / "End Function" / "End Property" line of a procedure (the
  // declaration line itself for a one-line procedure), the "End Type" /
  // "End Enum" line of a block; always none for the other kinds.
  std::optional<std::int32_t> end_line;
  // The further Property procedures of the same name (a Let after a Get), in
  // order. The member's own line and end_line are those of the first one.
  std::vector<CodeExtent> more_parts;
};

// Scans the lines of a module (without line ends).
std::vector<ScannedMember> ScanMembers(std::span<const vb::Text> lines);

// Identifiers compare without regard to case. FoldCase maps the letters of
// ASCII and Latin-1 (the project files' code page covers these) to lower case.
vb::Text FoldCase(vb::TextView name);

struct ScanOutcome;

// The members of one module text, with look-up by name.
//
// A table can follow an edit of its text instead of being scanned anew, but
// only where the result is exactly what a new scan would give; otherwise the
// Follow call says so and changes nothing, and the caller scans again. It
// can follow when the edit sits between two top-level statements (at the
// start of a logical line, outside any procedure, Type or Enum body), when
// what the edit removes or adds closes every body it opens, and when it
// removes or adds no Property procedure (those of one name group into one
// member, so they reach beyond the edit). Deleting whole procedures and
// adding code after the last one are such edits.
class MemberTable {
 public:
  explicit MemberTable(std::span<const vb::Text> lines);
  explicit MemberTable(const ModuleText& text);

  const std::vector<ScannedMember>& All() const { return members_; }
  // The first member called `name` in any case, or null.
  const ScannedMember* Find(vb::TextView name) const;

  // Lines first..first+count-1 (from 1) were deleted from the text. Returns
  // whether the table now holds what a scan of the new text would give.
  bool FollowDeletion(std::int32_t first, std::int32_t count);
  // Lines first..first+count-1 of `text` were inserted (or appended). Same
  // promise.
  bool FollowInsertion(const ModuleText& text, std::int32_t first, std::int32_t count);

 private:
  void Take(ScanOutcome outcome);

  std::vector<ScannedMember> members_;
  MemberNameIndex names_;
  // Property members group across the text: edits that touch one are not
  // followed. Edits that are followed neither remove nor add one.
  bool has_property_ = false;
  // top_level_[i]: line i (from 0) begins a statement outside any body; the
  // last entry is for the end of the text. Where edits can be followed.
  std::vector<std::uint8_t> top_level_;
};

}  // namespace workbench
