// Sections: splitting; building and reading; edits.
#include "workbench/module_text.hpp"

#include <algorithm>

#include "vb/text_scan.hpp"

namespace workbench {
namespace {

constexpr vb::TextView kCrLf = u"\r\n";

// --- Splitting -------------------------------------------------------------------

// Text with a lone CR or LF: each piece between line ends (CR LF, LF or CR)
// followed by CR LF, and base + the offset of each piece after the first
// appended to `starts`.
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

ModuleText::ModuleText(std::span<const vb::Text> lines) : count_(lines.size()) {
  std::size_t size = 0;
  for (const vb::Text& line : lines) size += line.size() + kCrLf.size();
  buffer_.reserve(size);
  starts_.reserve(lines.size() + 1);
  for (const vb::Text& line : lines) {
    buffer_.append(line).append(kCrLf);
    starts_.push_back(buffer_.size());
  }
}

vb::TextView ModuleText::Line(std::size_t index) const {
  if (index + 1 >= starts_.size()) IndexAll();
  return Stretch(starts_[index], starts_[index + 1]);
}

vb::TextView ModuleText::Lines(std::size_t index, std::size_t count) const {
  if (count == 0) return {};
  if (index == 0 && count == count_) return Stretch(0, buffer_.size());
  if (index + count >= starts_.size()) IndexAll();
  return Stretch(starts_[index], starts_[index + count]);
}

std::vector<vb::Text> ModuleText::Copy() const {
  IndexAll();
  std::vector<vb::Text> lines;
  lines.reserve(count_);
  for (std::size_t i = 0; i < count_; ++i) lines.emplace_back(Line(i));
  return lines;
}

void ModuleText::IndexAll() const {
  if (starts_.size() == count_ + 1) return;
  // Each line not yet indexed ends in CR LF: the position after each LF is
  // where the next one starts, the last being the buffer's end.
  const std::size_t from = starts_.back();
  vb::AppendLineStarts(vb::TextView(buffer_).substr(from), from, starts_);
}

// --- Edits ------------------------------------------------------------------------

void ModuleText::Erase(std::size_t index, std::size_t count) {
  if (count == 0) return;
  if (count == count_) {
    // Everything goes (a rename clears the module before adding it back):
    // give the memory back too, so that the text added next gets a buffer of
    // its own size rather than double the old one.
    buffer_.clear();
    buffer_.shrink_to_fit();
    starts_.assign(1, 0);
    count_ = 0;
    return;
  }
  IndexAll();
  const std::size_t from = starts_[index];
  const std::size_t removed = starts_[index + count] - from;
  buffer_.erase(from, removed);
  const auto first = starts_.begin() + static_cast<std::ptrdiff_t>(index);
  const auto kept = starts_.erase(first, first + static_cast<std::ptrdiff_t>(count));
  for (auto it = kept; it != starts_.end(); ++it) *it -= removed;
  count_ -= count;
}

std::size_t ModuleText::Insert(std::size_t index, vb::TextView text) {
  const vb::CrLfCount ends = vb::CountCrLf(text);
  if (ends.crlf_only && index == count_) {
    // Appending text as the module gives it out: one copy, and the new
    // lines are indexed when first asked for.
    buffer_.reserve(buffer_.size() + text.size() + kCrLf.size());
    buffer_.append(text).append(kCrLf);
    count_ += ends.line_ends + 1;
    return ends.line_ends + 1;
  }

  IndexAll();
  const std::size_t at = starts_[index];
  const std::size_t old_size = starts_.size();
  // The starts of the new lines after the first go to the end of starts_
  // for now, as if the block were in place; the first new line starts where
  // line `index` did.
  vb::Text normalized;
  if (ends.crlf_only) {
    vb::AppendLineStarts(text, at, starts_);
  } else {
    normalized = Normalized(text, at, starts_);
  }
  const bool as_given = ends.crlf_only;
  const vb::TextView block_text = as_given ? text : vb::TextView(normalized);
  const std::size_t block_size = block_text.size() + (as_given ? kCrLf.size() : 0);
  const std::size_t added = starts_.size() - old_size + 1;
  count_ += added;

  if (at == buffer_.size()) {
    buffer_.append(block_text);
    if (as_given) buffer_.append(kCrLf);
    starts_.push_back(buffer_.size());
    return added;
  }

  // Open a gap for the block once, then fill it: the text and, for text
  // taken as given, the CR LF after its last line (the gap's last '\n').
  buffer_.insert(at, block_size, u'\n');
  std::copy(block_text.begin(), block_text.end(),
            buffer_.begin() + static_cast<std::ptrdiff_t>(at));
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
