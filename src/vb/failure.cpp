#include "vb/failure.hpp"

namespace vb {

Text StandardDescription(std::int32_t number) {
  switch (number) {
    case kInvalidProcedureCall:
      return u"Invalid procedure call or argument";
    case kOverflow:
      return u"Overflow";
    case kSubscriptOutOfRange:
      return u"Subscript out of range";
    case kTypeMismatch:
      return u"Type mismatch";
    case kFileNotFound:
      return u"File not found";
    case kPathFileAccess:
      return u"Path/File access error";
    case kObjectNotSet:
      return u"Object variable or With block variable not set";
    case kBadFileFormat:
      return u"Invalid file format";
    case kInvalidPropertyValue:
      return u"Invalid property value";
    case kFormAlreadyDisplayed:
      return u"Form already displayed; can't show modally";
    case kCantShowNonModal:
      return u"Can't show non-modal form when modal form is displayed";
    case kObjectLacksMember:
      return u"Object doesn't support this property or method";
    default:
      return u"Application-defined or object-defined error";
  }
}

Failure::Failure(std::int32_t number, Text description)
    : number_(number), description_(std::move(description)), what_(ToUtf8(description_)) {}

Failure Failure::Of(ErrorNumber number) { return Failure(number, StandardDescription(number)); }

}  // namespace vb
