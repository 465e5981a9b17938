// The text of a code module: one buffer that holds every line followed by
// CR LF, and the offset at which each line starts.
//
// With that layout the lines first..last joined by CR LF are one contiguous
// stretch of the buffer, so reading any range is one copy and reading the
// whole module is a copy of the buffer less its final line end. Deleting or
// inserting lines moves the buffer's tail once and shifts the offsets after
// the edit once.
//
// Appending text whose line ends are all CR LF (text the module gave out
// with Lines is such text) copies it as it stands; the offsets of the lines
// it brings are found when something first asks for one of them. A rename,
// which reads the whole module, clears it and adds it back, never does.
//
// Text added is split at CR LF, LF or CR: n line ends give n + 1 lines. A
// line given as a whole (the constructor) is kept as it is, even if it holds
// a CR or LF; the offsets, not the characters, say where such lines end.
//
// Lines are numbered from 0 here; the code module adds the IDE's 1.
// Preconditions on ranges are the caller's: nothing here checks them.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "vb/text.hpp"

namespace workbench {

class ModuleText {
 public:
  ModuleText() = default;
  explicit ModuleText(std::span<const vb::Text> lines);

  std::size_t Count() const { return count_; }
  // Line `index` (< Count()) without its line end.
  vb::TextView Line(std::size_t index) const;
  // Lines index..index+count-1 joined by CR LF, no line end after the last;
  // empty for count 0. Requires index + count <= Count().
  vb::TextView Lines(std::size_t index, std::size_t count) const;
  // A copy of every line, for writers and tests.
  std::vector<vb::Text> Copy() const;

  // Removes lines index..index+count-1 (index + count <= Count()).
  void Erase(std::size_t index, std::size_t count);
  // Inserts the lines of `text` before line `index` (Count() appends) and
  // returns how many there were. `text` must not point into this text.
  std::size_t Insert(std::size_t index, vb::TextView text);

 private:
  // Finds the offsets of the lines appended without them.
  void IndexAll() const;
  // The characters from `begin` to `end` less the line end that closes them.
  vb::TextView Stretch(std::size_t begin, std::size_t end) const {
    return vb::TextView(buffer_).substr(begin, end - begin - 2);
  }

  vb::Text buffer_;
  std::size_t count_ = 0;
  // starts_[i] is where line i begins, for the lines indexed so far; the
  // last entry is where the lines not yet indexed begin (the buffer's end
  // when all are). Those lines came from CR LF text, so each is followed by
  // CR LF and holds none inside: their ends can be found again.
  mutable std::vector<std::size_t> starts_{0};
};

}  // namespace workbench
