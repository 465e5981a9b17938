// The runtime's conversions of text to numbers and Booleans, and back.
//
// Conversions that fail throw vb::Failure with the description a user would
// read: "Type mismatch" (13) for text that is no number, "Overflow" (6) for a
// number that does not fit.
#pragma once

#include "vb/failure.hpp"
#include "vb/value.hpp"

namespace vb {

// Text to Boolean: a number is True unless it is 0; the words "True" and
// "False" count (any case); blanks around are ignored; all else is a Type
// mismatch.
Boolean CBool(TextView text);
// Text to a 16-bit integer: the text is read as a number and rounded to the
// nearest whole number, a half going to the even neighbour. Overflow if the
// result does not fit; Type mismatch if the text is no number.
Integer CInt(TextView text);
// The same for a 32-bit integer.
Long CLng(TextView text);
// Text to a single-precision number.
Single CSng(TextView text);
// A single rounded half to even into a 16-bit integer; Overflow if it does not fit.
Integer CInt(Single value);

// The shortest decimal text that reads back as the same single: "10", "10.5",
// "9.75". Large and small magnitudes use the runtime's exponent form ("1E+20").
Text SingleToText(Single value);
// "True" or "False".
Text BooleanToText(Boolean value);
// Decimal text of an integer, with a leading "-" when negative.
Text IntegerToText(Long value);

}  // namespace vb
