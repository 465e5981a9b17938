#include "vb/value.hpp"

#include "vb/convert.hpp"

namespace vb {

const char* KindName(Kind kind) {
  switch (kind) {
    case Kind::Text:
      return "text";
    case Kind::Boolean:
      return "boolean";
    case Kind::Integer:
      return "integer16";
    case Kind::Long:
      return "integer32";
  }
  return "?";
}

Text Value::ToText() const {
  switch (GetKind()) {
    case Kind::Text:
      return AsText();
    case Kind::Boolean:
      return BooleanToText(AsBoolean());
    case Kind::Integer:
      return IntegerToText(AsInteger());
    case Kind::Long:
      return IntegerToText(AsLong());
  }
  return Text();
}

}  // namespace vb
