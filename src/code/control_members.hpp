// The questions the control event handler asks before it offers to remove or
// rename code: does a member of the form's code belong to a control, and does
// the code mention a name at all.
//
// Both answer from what the IDE reports, without changing anything. A member
// belongs to a control when its name is the control's name, an underscore,
// then anything ("Text1_Click" belongs to Text1, "Text10_Click" does not);
// names compare case-sensitively and '*' is the only wildcard in the pattern, so a
// name never matches by accident through other pattern characters. Failures
// of the IDE's objects pass to the caller.
#pragma once

#include "ide/object_model.hpp"
#include "vb/text.hpp"

namespace tessaly {

// The control's current name, as its Name property gives it. A missing
// property collection or Name property is the runtime's 91.
vb::Text ControlName(ide::VBControl& control);

// Whether `member_name` is `control_name` + "_" + anything.
bool BelongsToControl(vb::TextView member_name, vb::TextView control_name);

// Whether some member of `members` belongs to the control: stops at the first
// one that does.
bool HasMemberOfControl(ide::Members& members, const vb::Text& control_name);

// Whether the module's text holds `old_name` anywhere: code, comments,
// strings, inside longer words. Plain and case-sensitive.
bool CodeMentions(ide::CodeModule& module, const vb::Text& old_name);

}  // namespace tessaly
