// The failure type: what the runtime's failure object carries.
//
// A failure has a number (as the runtime numbers its errors) and the
// description that a user reads. Tests assert on the number; message boxes
// show the description. This is the only exception that crosses a layer.
#pragma once

#include <cstdint>
#include <exception>
#include <string>

#include "vb/text.hpp"

namespace vb {

// Numbers of the runtime's own failures that this system raises.
enum ErrorNumber : std::int32_t {
  kInvalidProcedureCall = 5,    // "Invalid procedure call or argument"
  kOverflow = 6,                // "Overflow"
  kSubscriptOutOfRange = 9,     // "Subscript out of range"
  kTypeMismatch = 13,           // "Type mismatch"
  kFileNotFound = 53,           // "File not found"
  kPathFileAccess = 75,         // "Path/File access error"
  kObjectNotSet = 91,           // "Object variable or With block variable not set"
  kInvalidPropertyValue = 380,  // "Invalid property value"
  kFormAlreadyDisplayed = 400,  // "Form already displayed; can't show modally"
  kCantShowNonModal = 401,      // "Can't show non-modal form when modal form is displayed"
  kObjectLacksMember = 438,     // "Object doesn't support this property or method"
  kBadFileFormat = 321,         // "Invalid file format"
};

class Failure : public std::exception {
 public:
  Failure(std::int32_t number, Text description);
  // A failure of one of the runtime's own numbers, with its standard words.
  static Failure Of(ErrorNumber number);

  std::int32_t Number() const { return number_; }
  const Text& Description() const { return description_; }
  // UTF-8 form of the description.
  const char* what() const noexcept override { return what_.c_str(); }

 private:
  std::int32_t number_;
  Text description_;
  std::string what_;
};

// The standard words for one of the runtime's numbers.
Text StandardDescription(std::int32_t number);

}  // namespace vb
