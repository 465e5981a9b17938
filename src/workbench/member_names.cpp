#include "workbench/member_names.hpp"

#include <algorithm>
#include <bit>

#include "workbench/member_scan.hpp"

namespace workbench {
namespace {

// FNV-1a over the folded characters: equal for names that differ in case only.
std::uint32_t FoldedHash(vb::TextView name) {
  std::uint32_t hash = 2166136261u;
  for (const char16_t c : name) hash = (hash ^ FoldChar(c)) * 16777619u;
  return hash;
}

}  // namespace

char16_t FoldChar(char16_t c) {
  if (c >= u'A' && c <= u'Z') return static_cast<char16_t>(c + 32);
  if (c < 0xC0) return c;
  if (c <= 0xDE && c != 0xD7) return static_cast<char16_t>(c + 32);
  switch (c) {  // the upper-case letters Windows-1252 places in 0x80..0x9F
    case 0x0152:
    case 0x0160:
    case 0x017D:
      return static_cast<char16_t>(c + 1);
    case 0x0178:
      return 0x00FF;
    default:
      return c;
  }
}

bool SameMemberName(vb::TextView a, vb::TextView b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (a[i] != b[i] && FoldChar(a[i]) != FoldChar(b[i])) return false;
  }
  return true;
}

void MemberNameIndex::Build(std::span<const ScannedMember> rows) {
  hashes_.clear();
  hashes_.reserve(rows.size());
  for (const ScannedMember& row : rows) hashes_.push_back(FoldedHash(row.name));
  Rehash(rows);
}

void MemberNameIndex::Rehash(std::span<const ScannedMember> rows) {
  slots_.assign(std::bit_ceil(std::max<std::size_t>(16, rows.size() * 2)), 0);
  for (std::size_t row = 0; row < rows.size(); ++row) {
    Place(row, [&](std::size_t r) { return vb::TextView(rows[r].name); });
  }
}

// Enters `row` unless an earlier row of its name is in; a later one gives way.
template <typename NameAt>
void MemberNameIndex::Place(std::size_t row, NameAt&& name_at) {
  for (std::size_t at = hashes_[row] & Mask();; at = (at + 1) & Mask()) {
    const std::uint32_t slot = slots_[at];
    if (slot == 0) {
      slots_[at] = static_cast<std::uint32_t>(row + 1);
      return;
    }
    if (hashes_[slot - 1] == hashes_[row] && SameMemberName(name_at(slot - 1), name_at(row))) {
      if (slot - 1 > row) slots_[at] = static_cast<std::uint32_t>(row + 1);
      return;
    }
  }
}

std::size_t MemberNameIndex::Find(vb::TextView name, std::span<const ScannedMember> rows) const {
  if (slots_.empty()) return kNone;
  const std::uint32_t hash = FoldedHash(name);
  for (std::size_t at = hash & Mask();; at = (at + 1) & Mask()) {
    const std::uint32_t slot = slots_[at];
    if (slot == 0) return kNone;
    if (hashes_[slot - 1] == hash && SameMemberName(rows[slot - 1].name, name)) return slot - 1;
  }
}

// Frees a slot and moves up the entries after it that would otherwise no
// longer be found from their home slot (deletion without markers).
void MemberNameIndex::EraseSlot(std::size_t hole) {
  for (std::size_t at = (hole + 1) & Mask(); slots_[at] != 0; at = (at + 1) & Mask()) {
    const std::size_t home = hashes_[slots_[at] - 1] & Mask();
    // The entry may stay where it is if its home lies cyclically in (hole, at].
    const bool stays = hole < at ? (hole < home && home <= at) : (hole < home || home <= at);
    if (!stays) {
      slots_[hole] = slots_[at];
      hole = at;
    }
  }
  slots_[hole] = 0;
}

void MemberNameIndex::Remove(std::span<const ScannedMember> rows, std::size_t gone,
                             std::size_t kept) {
  const std::size_t removed = kept - gone;
  // A removed row that was first of its name hands the name on to the next
  // row of that name, which can only come after the removed ones.
  std::vector<std::size_t> heirs;
  for (std::size_t row = gone; row < kept; ++row) {
    std::size_t at = hashes_[row] & Mask();
    while (slots_[at] != 0 && slots_[at] != row + 1) at = (at + 1) & Mask();
    if (slots_[at] == 0) continue;  // an earlier row has the name
    EraseSlot(at);
    for (std::size_t other = kept; other < rows.size(); ++other) {
      if (hashes_[other] == hashes_[row] && SameMemberName(rows[other].name, rows[row].name)) {
        heirs.push_back(other - removed);
        break;
      }
    }
  }
  const auto by = static_cast<std::uint32_t>(removed);
  const auto last_gone = static_cast<std::uint32_t>(kept);  // slot value of row kept - 1
  for (std::uint32_t& slot : slots_) slot -= static_cast<std::uint32_t>(slot > last_gone) * by;
  hashes_.erase(hashes_.begin() + static_cast<std::ptrdiff_t>(gone),
                hashes_.begin() + static_cast<std::ptrdiff_t>(kept));
  for (const std::size_t heir : heirs) {
    Place(heir, [&](std::size_t r) { return vb::TextView(rows[r < gone ? r : r + removed].name); });
  }
}

void MemberNameIndex::Insert(std::span<const ScannedMember> rows, std::size_t at,
                             std::size_t count) {
  const auto by = static_cast<std::uint32_t>(count);
  const auto before = static_cast<std::uint32_t>(at);  // slot value of row at - 1
  for (std::uint32_t& slot : slots_) slot += static_cast<std::uint32_t>(slot > before) * by;
  std::vector<std::uint32_t> added;
  added.reserve(count);
  for (std::size_t row = at; row < at + count; ++row) added.push_back(FoldedHash(rows[row].name));
  hashes_.insert(hashes_.begin() + static_cast<std::ptrdiff_t>(at), added.begin(), added.end());
  if (rows.size() * 2 > slots_.size()) {
    Rehash(rows);
    return;
  }
  for (std::size_t row = at; row < at + count; ++row) {
    Place(row, [&](std::size_t r) { return vb::TextView(rows[r].name); });
  }
}

}  // namespace workbench
