// Sections: finding line ends; building and reading; edits.
#include "workbench/module_text.hpp"

#include <algorithm>
#include <bit>

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#define TESSALY_SSE2 1
#endif

namespace workbench {
namespace {

constexpr vb::TextView kCrLf = u"\r\n";

// --- Finding line ends --------------------------------------------------------

// Text that the module itself gave out (Lines) ends every line with CR LF.
// For such text the lines go into the buffer as they are, and all there is
// to find is where each one starts. Appends base + (the position after each
// LF) to `starts` and returns true when every CR is followed by an LF and
// every LF follows a CR; returns false, having appended some starts, when a
// CR or LF stands alone.
//
// The test is that text[j] is LF exactly when text[j - 1] is CR, for every j
// from 1, and that the text neither begins with LF nor ends with CR. Eight
// characters at a time where the processor can: a module of 65,534 lines is
// millions of characters, and this runs on every AddFromString.
bool CollectCrLfStarts(vb::TextView text, std::size_t base, std::vector<std::size_t>& starts) {
  const std::size_t n = text.size();
  if (n == 0) return true;
  const char16_t* p = text.data();
  if (p[0] == u'\n' || p[n - 1] == u'\r') return false;
  std::size_t j = 1;
#ifdef TESSALY_SSE2
  const __m128i cr = _mm_set1_epi16(u'\r');
  const __m128i lf = _mm_set1_epi16(u'\n');
  __m128i mismatch = _mm_setzero_si128();
  for (; j + 16 <= n; j += 16) {
    const auto* at = reinterpret_cast<const __m128i*>(p + j);
    const auto* before = reinterpret_cast<const __m128i*>(p + j - 1);
    const __m128i lf0 = _mm_cmpeq_epi16(_mm_loadu_si128(at), lf);
    const __m128i lf1 = _mm_cmpeq_epi16(_mm_loadu_si128(at + 1), lf);
    const __m128i cr0 = _mm_cmpeq_epi16(_mm_loadu_si128(before), cr);
    const __m128i cr1 = _mm_cmpeq_epi16(_mm_loadu_si128(before + 1), cr);
    mismatch = _mm_or_si128(mismatch, _mm_or_si128(_mm_xor_si128(lf0, cr0), _mm_xor_si128(lf1, cr1)));
    auto found = static_cast<unsigned>(_mm_movemask_epi8(_mm_packs_epi16(lf0, lf1)));
    while (found != 0) {
      starts.push_back(base + j + static_cast<std::size_t>(std::countr_zero(found)) + 1);
      found &= found - 1;
    }
  }
  if (_mm_movemask_epi8(mismatch) != 0) return false;
#endif
  for (; j < n; ++j) {
    const bool is_lf = p[j] == u'\n';
    if (is_lf != (p[j - 1] == u'\r')) return false;
    if (is_lf) starts.push_back(base + j + 1);
  }
  return true;
}

// Any other text: each piece between line ends (CR LF, LF or CR) followed by
// CR LF, and base + the offset of each piece after the first in `starts`.
vb::Text Normalized(vb::TextView text, std::size_t base, std::vector<std::size_t>& starts) {
  vb::Text block;
  block.reserve(text.size() + 2);
  std::size_t piece = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != u'\r' && text[i] != u'\n') continue;
    block.append(text.substr(piece, i - piece)).append(kCrLf);
    starts.push_back(base + block.size());
    if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') ++i;
    piece = i + 1;
  }
  block.append(text.substr(piece)).append(kCrLf);
  return block;
}

}  // namespace

// --- Building and reading -------------------------------------------------------

ModuleText::ModuleText(std::span<const vb::Text> lines) {
  std::size_t size = 0;
  for (const vb::Text& line : lines) size += line.size() + kCrLf.size();
  buffer_.reserve(size);
  starts_.reserve(lines.size() + 1);
  for (const vb::Text& line : lines) {
    buffer_.append(line).append(kCrLf);
    starts_.push_back(buffer_.size());
  }
}

std::vector<vb::Text> ModuleText::Copy() const {
  std::vector<vb::Text> lines;
  lines.reserve(Count());
  for (std::size_t i = 0; i < Count(); ++i) lines.emplace_back(Line(i));
  return lines;
}

// --- Edits ------------------------------------------------------------------------

void ModuleText::Erase(std::size_t index, std::size_t count) {
  if (count == 0) return;
  if (count == Count()) {
    // Everything goes (a rename clears the module before adding it back):
    // give the memory back too, so that the text added next gets a buffer of
    // its own size rather than double the old one.
    buffer_.clear();
    buffer_.shrink_to_fit();
    starts_.assign(1, 0);
    return;
  }
  const std::size_t from = starts_[index];
  const std::size_t removed = starts_[index + count] - from;
  buffer_.erase(from, removed);
  const auto first = starts_.begin() + static_cast<std::ptrdiff_t>(index);
  const auto kept = starts_.erase(first, first + static_cast<std::ptrdiff_t>(count));
  for (auto it = kept; it != starts_.end(); ++it) *it -= removed;
}

std::size_t ModuleText::Insert(std::size_t index, vb::TextView text) {
  const std::size_t at = starts_[index];
  const std::size_t old_size = starts_.size();
  // The starts of the new lines after the first go to the end of starts_
  // for now, as if the block were in place; the first new line starts where
  // line `index` did.
  vb::Text normalized;
  if (!CollectCrLfStarts(text, at, starts_)) {
    starts_.resize(old_size);
    normalized = Normalized(text, at, starts_);
  }
  const bool as_given = normalized.empty();
  const vb::TextView block_text = as_given ? text : vb::TextView(normalized);
  const std::size_t block_size = block_text.size() + (as_given ? kCrLf.size() : 0);
  const std::size_t added = starts_.size() - old_size + 1;

  if (at == buffer_.size()) {
    // Appending, as AddFromString does: one copy, nothing moves.
    buffer_.reserve(at + block_size);
    buffer_.append(block_text);
    if (as_given) buffer_.append(kCrLf);
    starts_.push_back(buffer_.size());
    return added;
  }

  buffer_.insert(at, block_size, u'\n');
  std::copy(block_text.begin(), block_text.end(), buffer_.begin() + static_cast<std::ptrdiff_t>(at));
  if (as_given) buffer_[at + text.size()] = u'\r';
  // Lines from `index` on move down by the block; the new starts then take
  // their place before them.
  const auto moved = static_cast<std::ptrdiff_t>(index);
  const auto fresh = static_cast<std::ptrdiff_t>(old_size);
  for (auto it = starts_.begin() + moved; it != starts_.begin() + fresh; ++it) *it += block_size;
  starts_.insert(starts_.begin() + fresh, at);
  std::rotate(starts_.begin() + moved, starts_.begin() + fresh, starts_.end());
  return added;
}

}  // namespace workbench
