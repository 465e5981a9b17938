// The classes of controls the workbench knows, and the rules for their
// design-time properties: each property's kind, range and extra check, its
// default, and how a written value is coerced to the property's kind.
//
// Class tables follow VB6: a class lacks what VB6 lacks (a Timer has no
// Visible and no Font; Line and Shape have no Enabled, Font, Caption or Text;
// Image has no Font, Caption or Text; scroll bars have no Font). A control of
// a class outside the table (an OCX the workbench does not model) gets the
// generic set: Name, Index, Tag, Left, Top, Width, Height, Visible, Enabled,
// TabIndex.
//
// Places where the IDE's answer is a guess, written down so they can be
// checked against the real IDE:
//  - Left, Top, Width, Height (and a Line's X1, Y1, X2, Y2) are Singles in
//    twips in VB6; values here have no Single kind, so they are kept as Long.
//  - Index reads as Integer -1 on a control that is in no control array.
//    Writing empty text to Index takes the control out of its array (refused
//    while another control shares its name).
//  - TabIndex takes 0..32767; writing it does not renumber other controls.
//  - A scroll bar's Value must lie between its Min and Max (either order).
//  - ClassName of a class outside the table is the part after the last dot
//    of its file name ("MSComCtl2.DTPicker" answers "DTPicker").
//  - A RichTextBox's Text and an SSTab's Caption ("Tab 0") start as VB6
//    shows them for a new control: the name, and "Tab 0".
//  - Data has no TabIndex; Label, Image and Frame have no CausesValidation.
#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <vector>

#include "vb/failure.hpp"
#include "vb/text.hpp"
#include "vb/value.hpp"

namespace workbench {

// How a property holds its value. Font holds an object (see font.hpp); the
// others hold a vb::Value of the matching kind.
enum class PropertyType { Text, Boolean, Integer, Long, Font };

// Checks beyond kind and range.
enum class ValueCheck {
  None,
  ControlName,   // Name: an identifier; uniqueness is the form's business
  ArrayIndex,    // Index: 0..32767, or empty text for "no array"
  OneCharacter,  // exactly one character (MaskEdBox PromptChar)
  MinMaxBound,   // a scroll bar's Value: between the control's Min and Max
};

// What a new control's property starts as.
enum class DefaultFrom { Value, ControlName };

struct PropertyRule {
  vb::Text name;
  PropertyType type = PropertyType::Text;
  std::int32_t min = std::numeric_limits<std::int32_t>::min();  // Integer / Long only
  std::int32_t max = std::numeric_limits<std::int32_t>::max();
  ValueCheck check = ValueCheck::None;
  vb::Value default_value;  // of the property's kind; unused for Font
  DefaultFrom default_from = DefaultFrom::Value;
};

struct ClassRules {
  vb::Text class_name;                   // VB6's ClassName: "CheckBox"
  vb::Text file_class;                   // the name in .frm files: "VB.CheckBox"
  vb::Text stem;                         // default-name stem: "Check"
  bool known = true;                     // false for the generic set of an unmodelled class
  std::vector<PropertyRule> properties;  // in the order the property sheet lists them

  // The rule called `name` (case-insensitive), or null.
  const PropertyRule* Find(vb::TextView name) const;
  bool HasFont() const { return Find(u"Font") != nullptr; }
};

// The known classes, in a fixed order.
const std::vector<std::shared_ptr<const ClassRules>>& AllClasses();
// A known class by ClassName ("TextBox") or file name ("VB.TextBox"),
// case-insensitive; null when unknown.
std::shared_ptr<const ClassRules> FindClass(vb::TextView name);
// The rules of a class the workbench does not model: the generic set.
std::shared_ptr<const ClassRules> GenericClass(vb::TextView file_class);
// FindClass, or the generic set when unknown.
std::shared_ptr<const ClassRules> ClassOrGeneric(vb::TextView name);
// The form's own properties (VB.Form), kept for files.
std::shared_ptr<const ClassRules> FormClass();

// A letter first, then letters, digits or underscores; 1..40 characters.
bool IsValidControlName(vb::TextView name);

// The property type's value kind (Font holds its name: Text).
vb::Kind KindOf(PropertyType type);

// The failure of a refused write: 380 "Invalid property value", optionally
// followed by a detail ("Invalid property value: ...").
vb::Failure InvalidValue(const vb::Text& detail = {});

// Coerces `value` to the rule's kind as the runtime would (text through
// CBool / CInt / CLng, numbers to Boolean non-zero True, Boolean to numbers
// -1/0, Integer into Long) and checks range, identifier and one-character
// rules. Fails with 380 when the value cannot be coerced or is out of range.
// ArrayIndex gives Integer -1 for empty text. MinMaxBound is left to the
// control, which knows its Min and Max.
vb::Value CoerceValue(const PropertyRule& rule, const vb::Value& value);
// Coercion to a kind without any rule (properties a file gave that the class
// table lacks keep the kind they were read with).
vb::Value CoerceToKind(vb::Kind kind, const vb::Value& value);

}  // namespace workbench
