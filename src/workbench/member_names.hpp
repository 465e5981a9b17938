// Look-up of a module's members by name, without regard to case, and without
// making folded copies of names.
//
// Names compare as identifiers do: FoldChar maps the letters of ASCII and
// Latin-1 (and the Windows-1252 capitals above 0x80) to lower case. The
// index gives the first row of a name, and follows rows being removed or
// inserted without being built anew: the member table changes by a few rows
// per edit, and the module has up to tens of thousands of them.
//
// Rows are numbered as in the member table. The index keeps only numbers and
// hashes; every call is given the table's rows to compare names with.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "vb/text.hpp"

namespace workbench {

struct ScannedMember;

char16_t FoldChar(char16_t c);
// `a` and `b` are the same name in any case.
bool SameMemberName(vb::TextView a, vb::TextView b);

class MemberNameIndex {
 public:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  // Indexes `rows` anew.
  void Build(std::span<const ScannedMember> rows);
  // The first row called `name` (in any case), or kNone.
  std::size_t Find(vb::TextView name, std::span<const ScannedMember> rows) const;
  // Rows gone..kept-1 of `rows` are about to be removed; later rows move up.
  void Remove(std::span<const ScannedMember> rows, std::size_t gone, std::size_t kept);
  // Rows at..at+count-1 of `rows` were just inserted; later rows moved down.
  void Insert(std::span<const ScannedMember> rows, std::size_t at, std::size_t count);

 private:
  template <typename NameAt>
  void Place(std::size_t row, NameAt&& name_at);
  void Rehash(std::span<const ScannedMember> rows);
  void EraseSlot(std::size_t hole);
  std::size_t Mask() const { return slots_.size() - 1; }

  // The hash of each row's folded name.
  std::vector<std::uint32_t> hashes_;
  // Linear probing, at most half full: row + 1, or 0 for a free slot.
  std::vector<std::uint32_t> slots_;
};

}  // namespace workbench
