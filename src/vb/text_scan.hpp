// Scans of long texts: finding a text, and finding the line ends of text
// whose lines end in CR LF.
//
// A rename reads, searches and rewrites a whole code module, up to millions
// of characters, so these look at many characters per step where the
// processor allows: SSE2 (every x86-64 processor), AVX2 where the processor
// has it, plain loops elsewhere. Every width gives exactly the answers of the
// plain loops; the tests compare them. Callers use the functions without a
// width, which pick the widest one the processor runs.
#pragma once

#include <cstddef>
#include <vector>

#include "vb/text.hpp"

namespace vb {

// What TextView::find answers for a `find` that is not empty: where it first
// occurs in `text` at or after `from`, or TextView::npos.
std::size_t FindText(TextView text, TextView find, std::size_t from);

// Appends to `found` where `find` (not empty) occurs in `text`, left to right,
// each search resuming after the previous occurrence: the occurrences that
// Replace replaces ("aa" occurs once in "aaa").
void FindEach(TextView text, TextView find, std::vector<std::size_t>& found);

// The line ends of a text. `crlf_only`: every CR is followed by an LF and
// every LF follows a CR, so the text's lines can be taken as they stand.
// `line_ends`: how many CR LF pairs there are (meaningful when crlf_only).
struct CrLfCount {
  bool crlf_only = true;
  std::size_t line_ends = 0;
};
CrLfCount CountCrLf(TextView text);

// Appends base + the position after each LF of `text` to `starts`, in order:
// where the lines after the first begin, for text with CR LF ends only.
void AppendLineStarts(TextView text, std::size_t base, std::vector<std::size_t>& starts);

// The same at a given width, for tests that hold the widths to the plain
// loops. A width the processor lacks falls back to the next narrower one.
enum class ScanWidth { Plain, Sse2, Avx2 };
ScanWidth WidestScan();
std::size_t FindText(TextView text, TextView find, std::size_t from, ScanWidth width);
void FindEach(TextView text, TextView find, std::vector<std::size_t>& found, ScanWidth width);
CrLfCount CountCrLf(TextView text, ScanWidth width);
void AppendLineStarts(TextView text, std::size_t base, std::vector<std::size_t>& starts,
                      ScanWidth width);

}  // namespace vb
