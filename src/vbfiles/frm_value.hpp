// The text forms of property values in form files, both ways.
//
// A property line of a form file is `Name = value` where the value is one of:
// a quoted string with "" standing for a quote ("Check1"), a reference into
// the form's binary side file ("Form1.frx":0000, or $"Form1.frx":0000 for a
// string kept there), or bare text (3195, &H8000000F&, 8.25, ^S). Bare
// values may carry a comment after an apostrophe, as the IDE writes for
// Booleans and enumerations: -1  'True, 0   'False, 2  'Center.
//
// The formatting functions write values and lines exactly as the IDE writes
// them for a property it saves, so that a changed property looks as if the IDE
// had saved it.
#pragma once

#include <cstdint>
#include <optional>

#include "vb/text.hpp"
#include "vb/value.hpp"

namespace vbfiles {

// A reference into the binary side file: $"Form1.frx":0000.
struct FrxReference {
  vb::Text file;             // "Form1.frx", as written
  std::uint32_t offset = 0;  // byte offset in that file
  bool is_string = false;    // written with a leading $: a string kept in the file
  friend bool operator==(const FrxReference&, const FrxReference&) = default;
};

// A property value read from its text.
struct FrmValue {
  enum class Form { Quoted, Frx, Bare };
  Form form = Form::Bare;
  vb::Text text;     // Quoted: the string without quotes; Bare: the value before any comment
  FrxReference frx;  // Frx only
  vb::Text comment;  // what follows the apostrophe, blanks trimmed ("True", "Windows Default")
};

// Reads the text after "=" (blanks around already trimmed or not). An opening
// quote without its closing quote reads as far as the text goes, so a damaged
// value still shows.
FrmValue ParseFrmValue(vb::TextView value_text);
// &H8000000F& as the IDE writes colours (32 bits, two's complement, the
// closing & optional) as its value; nullopt for any other text.
std::optional<vb::Long> ParseFrmHex(vb::TextView text);
// A bare value with the kind its text shows, for a property nothing else
// gives a kind: -1  'True and 0   'False are Booleans, &H...& and whole
// numbers Longs, anything else the text as `written`.
vb::Value UntypedFrmValue(const FrmValue& value, vb::TextView written);

// "Check1" with quotes doubled.
vb::Text QuoteFrmString(vb::TextView text);
// -1  'True or 0   'False.
vb::Text FormatFrmBoolean(vb::Boolean value);
// A value of the given kind as the IDE writes it; `enum_name` (for integers)
// becomes the comment: 2  'Center.
vb::Text FormatFrmValue(const vb::Value& value, vb::TextView enum_name = {});
// A Single the way the IDE writes it (8.25, 12, 9.75).
vb::Text FormatFrmSingle(vb::Single value);
// A colour as the IDE writes it: &H8000000F&.
vb::Text FormatFrmColor(vb::Long value);
// A reference into the side file as the IDE writes it: $"Form1.frx":0000.
vb::Text FormatFrxReference(const FrxReference& reference);

// A property line without its line end: three blanks per nesting level, the
// name padded to 16 columns, "=", three blanks and the value text:
// "      Caption         =   \"Check1\"".
vb::Text FormatPropertyLine(int depth, vb::TextView name, vb::TextView value_text);

}  // namespace vbfiles
