// A form's binary side file (.frx): kept byte for byte, and read where its
// contents can be shown.
//
// The IDE keeps there what does not fit on a property line: pictures and
// icons, strings with line breaks or of great length ($"Form1.frx":0000 on
// the line), the items of a list box or combo box (List) and their ItemData.
// What the file holds never changes: it is written back exactly as read, and
// a property the user changes is written inline on its line instead of
// pointing into the file -- except a string with line breaks, which no line
// can hold: that one is added at the end (FormFile::StoreString in
// project_files.hpp).
//
// Layouts read here, all little-endian, at the offset the property line gives:
//  - a string property ($ form): a 32-bit byte count, then the bytes;
//  - a short string (no $): an 8-bit byte count, then the bytes;
//  - List: a 16-bit item count, then per item a 16-bit byte count and bytes;
//  - ItemData: a 16-bit item count, then a 32-bit value per item;
//  - a picture: a 32-bit count of what follows, then that many bytes (the
//    picture's own header and data).
// Strings are in the project's code page. Reads never fail: a count that runs past the end
// of the file gives nullopt, so a damaged file still opens.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "vb/text.hpp"
#include "vb/value.hpp"
#include "vbfiles/code_page.hpp"

namespace vbfiles {

class FrxFile {
 public:
  FrxFile() = default;
  explicit FrxFile(std::string bytes, const CodePage& code_page = {})
      : bytes_(std::make_shared<const std::string>(std::move(bytes))), code_page_(code_page) {}

  const std::string& Bytes() const { return *bytes_; }
  const CodePage& GetCodePage() const { return code_page_; }

  // The string at `offset` with a 32-bit count ($"Form1.frx":0000).
  std::optional<vb::Text> ReadString(std::uint32_t offset) const;
  // The string at `offset` with an 8-bit count.
  std::optional<vb::Text> ReadShortString(std::uint32_t offset) const;
  // List items at `offset`.
  std::optional<std::vector<vb::Text>> ReadList(std::uint32_t offset) const;
  // ItemData values at `offset`.
  std::optional<std::vector<vb::Long>> ReadItemData(std::uint32_t offset) const;
  // A picture's bytes at `offset` (what follows the 32-bit count).
  std::optional<std::string> ReadBlob(std::uint32_t offset) const;

 private:
  // Little-endian unsigned of `size` bytes at `offset`, or nullopt past the end.
  std::optional<std::uint32_t> ReadCount(std::size_t offset, std::size_t size) const;
  std::optional<std::string> ReadBytes(std::size_t offset, std::size_t size) const;

  // Never changed once read: copies of the file (of pictures, megabytes) share it.
  std::shared_ptr<const std::string> bytes_ = std::make_shared<const std::string>();
  CodePage code_page_;
};

}  // namespace vbfiles
