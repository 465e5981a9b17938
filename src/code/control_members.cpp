#include "code/control_members.hpp"

namespace tessaly {
namespace {

vb::Text MemberPattern(vb::TextView control_name) {
  vb::Text pattern(control_name);
  pattern += u"_*";
  return pattern;
}

}  // namespace

bool BelongsToControl(vb::TextView member_name, vb::TextView control_name) {
  return vb::Like(member_name, MemberPattern(control_name));
}

bool HasMemberOfControl(ide::Members& members, const vb::Text& control_name) {
  // One pattern for the whole walk: the handler runs on every deletion, and
  // a large form has thousands of members.
  const vb::Text pattern = MemberPattern(control_name);
  for (const auto& member : members.All()) {
    if (vb::Like(member->Name(), pattern)) return true;
  }
  return false;
}

bool CodeMentions(ide::CodeModule& module, const vb::Text& old_name) {
  const vb::Text text = module.Lines(1, module.CountOfLines());
  return vb::InStr(1, text, old_name) != 0;
}

vb::Text ControlName(ide::VBControl& control) {
  const auto properties = control.Properties();
  if (!properties) throw vb::Failure::Of(vb::kObjectNotSet);
  const auto name = properties->Item(u"Name");
  if (!name) throw vb::Failure::Of(vb::kObjectNotSet);
  return name->Value().ToText();
}

}  // namespace tessaly
