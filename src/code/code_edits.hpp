// Edits of a form's code module for the Remove Code and Rename Code dialogs,
// computed first and applied second.
//
// Planning reads the module through the IDE's interface and never changes it;
// applying makes the edit. The dialogs only apply what was planned, so every
// rule about which lines go is here and is tested without a dialog.
//
// Which lines hold a member's own text (PlanMemberRemoval):
//  - The member is looked up by name afresh (earlier edits move it). None:
//    nothing to do (MemberGone).
//  - Its region runs from its CodeLocation to the line before the next member
//    (the nearest larger CodeLocation of any member), or to the module's last
//    line. No search ever leaves the region, so no other member's text can go.
//  - The usual rule: the first line after the declaration line whose text,
//    blanks (spaces) stripped, begins with "End Sub" exactly; the member's
//    lines are its declaration line to that one.
//  - A member whose region holds no such line has no "End Sub" of its own: a
//    Function, a Property, a Sub whose "End Sub" is tab-indented or not in
//    the usual case, a one-line procedure ("Private Sub X(): End Sub"), a
//    variable, constant, Declare or Event. For a procedure not closed on its
//    own declaration line, its closing line is the first line of the region
//    whose text, blanks and tabs stripped, begins with "End Sub",
//    "End Function" or "End Property" in any case; Type and Enum blocks close
//    with "End Type" / "End Enum" the same way. Everything else is one line:
//    the declaration line with its " _" continuation lines.
//  - A Property whose Get, Let or Set procedures the IDE lists as one member
//    loses all of those that stand in its region, up to the last one's
//    closing line.
//  - A region without a closing line (the search reached the next member or
//    the module's end) gives nothing to delete (NoClosingLine): without its
//    end the member's extent is a guess, and a guess could take code.
//  - A member declared on the same line as another ("Dim a, b") gives
//    nothing to delete (SharedLine): the line is the other member's text too.
//
// Renaming (RenameInModule) replaces the whole text and never loses it: if
// adding the renamed text fails after the module was cleared, the original
// text goes back in and the failure is returned for the user to read.
#pragma once

#include <cstdint>
#include <optional>
#include <variant>

#include "ide/object_model.hpp"
#include "vb/failure.hpp"
#include "vb/text.hpp"

namespace tessaly {

// Lines first..last of a module, from 1, both included.
struct LineRange {
  std::int32_t first = 0;
  std::int32_t last = 0;

  std::int32_t Count() const { return last - first + 1; }
  friend bool operator==(const LineRange&, const LineRange&) = default;
};

// Why a member's lines are left alone.
enum class NoRemoval {
  MemberGone,     // the module has no member of that name (any more)
  NoClosingLine,  // the member's region holds no line that closes it
  SharedLine,     // another member is declared on the member's first line
};

// What a user or a trace reads for a reason.
vb::Text DescribeNoRemoval(NoRemoval reason);

// The lines to delete for one member, or why there are none.
using RemovalPlan = std::variant<LineRange, NoRemoval>;

// Plans the removal of the member called `member_name` (see the rules above).
// Reads the module only. Failures of the IDE's objects pass to the caller.
RemovalPlan PlanMemberRemoval(ide::CodeModule& module, const vb::Text& member_name);

// Deletes the planned lines with one DeleteLines; a plan with a reason
// changes nothing. Returns whether lines were deleted. Failures pass to the
// caller.
bool ApplyRemoval(ide::CodeModule& module, const RemovalPlan& plan);

// `text` with every `old_name` replaced by `new_name`: plain, case-sensitive,
// left to right, inside longer words, comments and strings too.
vb::Text RenamedText(vb::TextView text, vb::TextView old_name, vb::TextView new_name);

// Renames throughout the module: reads all its lines, deletes them, adds the
// renamed text. If adding fails, the module is cleared of whatever the failed
// add left and the original text is added back; the failure is returned (the
// module then reads as before). Returns nothing on success. Failures before
// the module was cleared, and a failure to put the original back, pass to
// the caller. An empty module is left alone: there is nothing to rename, and
// adding an empty text would give it an empty line.
std::optional<vb::Failure> RenameInModule(ide::CodeModule& module, const vb::Text& old_name,
                                          const vb::Text& new_name);

}  // namespace tessaly
