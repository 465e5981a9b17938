// Wide text as the add-in sees it, and the text functions it relies on.
//
// Text is UTF-16 (`std::u16string`) everywhere inside; UTF-8 appears only at the
// edges (terminal, JSON, command line). Comparisons are case-sensitive, all but
// SameName's.
// Positions given to and returned by these functions count from 1, as the
// language does; 0 means "not found".
#pragma once

#include <string>
#include <string_view>

namespace vb {

using Text = std::u16string;
using TextView = std::u16string_view;

// UTF-8 <-> UTF-16 at the edges. Invalid UTF-8 bytes become U+FFFD; lone
// surrogates are written as U+FFFD.
Text FromUtf8(std::string_view utf8);
std::string ToUtf8(TextView text);

// Windows-1252 <-> UTF-16, for project files on disk. Characters that the code
// page lacks are written as '?'.
Text FromCp1252(std::string_view bytes);
std::string ToCp1252(TextView text);

// Strips blanks (U+0020 only, not tabs) from both ends.
Text Trim(TextView text);
Text LTrim(TextView text);
Text RTrim(TextView text);
// The first `length` characters, or all of them.
Text Left(TextView text, std::size_t length);
// From position `start` (1-based), `length` characters or to the end.
Text Mid(TextView text, std::size_t start);
Text Mid(TextView text, std::size_t start, std::size_t length);
// 1-based position of `find` in `text` at or after `start`, or 0.
std::size_t InStr(std::size_t start, TextView text, TextView find);
// Every occurrence of `find` replaced by `with`, scanning left to right from
// the first character; an empty `find` leaves the text unchanged.
Text Replace(TextView text, TextView find, TextView with);
// Names as the IDE compares them (controls, properties, keys and classes in
// project files): the ASCII letters without regard to case.
bool SameName(TextView a, TextView b);
// The pattern rule the add-in uses: `*` matches any text, even none; every
// other character stands for itself, case-sensitively.
bool Like(TextView text, TextView pattern);

}  // namespace vb
