// The ANSI code page a project's files are written in, and text in it.
//
// The IDE writes project files in the code page of the system it runs on:
// Windows-1252 in the West, and on Asian systems a double-byte code page --
// 932 (Japanese), 936 (Simplified Chinese), 949 (Korean), 950 (Traditional
// Chinese) -- where a lead byte and the byte after it make one character, and
// that second byte may be a backslash or any other ASCII byte.
//
// The promise: Encode(Decode(bytes)) == bytes for every code page and every
// input. A byte sequence that is no character of the page, or one whose
// character the page would write with other bytes (the double-byte pages
// have duplicates), decodes to U+F700 plus the byte, one per byte, and is
// written back as that byte. A character the page lacks is written as '?'.
//
// The double-byte pages are read through the system's iconv where it has one;
// a build without it (the Windows one) knows Windows-1252 only.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "vb/text.hpp"

namespace vbfiles {

class CodePage {
 public:
  // Windows-1252.
  CodePage() = default;
  // 1252, 932, 936, 949 or 950, where this build supports it; nullopt else.
  static std::optional<CodePage> FromNumber(int number);
  // Every number FromNumber takes in this build.
  static std::vector<int> Supported();

  int Number() const { return number_; }
  vb::Text Decode(std::string_view bytes) const;
  std::string Encode(vb::TextView text) const;
  // Encode's bytes appended to `bytes`.
  void EncodeTo(vb::TextView text, std::string& bytes) const;
  // Whether `byte` begins a two-byte character.
  bool IsLeadByte(unsigned char byte) const;

  friend bool operator==(const CodePage&, const CodePage&) = default;

 private:
  explicit CodePage(int number) : number_(number) {}
  int number_ = 1252;
};

// The code page the files' bytes say they are in. A font block's character
// set decides first: Charset = 128, 134, 129 or 136 gives 932, 936, 949 or
// 950, Charset = 0 Windows-1252. Lacking one, code page 932 when every byte
// above 127 of every file is part of a character of it and some character
// takes two bytes; Windows-1252 otherwise. Each of `texts` is one file.
CodePage DetectCodePage(const std::vector<std::string_view>& texts);

}  // namespace vbfiles
