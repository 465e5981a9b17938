// The read-only code view: a form module's lines with their numbers, the
// lines the last action changed highlighted, and a mark where it removed
// lines, so that what the add-in's Remove Code and Rename Code did shows at a
// glance.
#pragma once

#include <vector>

#include "tui/canvas.hpp"
#include "vb/text.hpp"

namespace tui {

// What changed from `before` to `after`, line by line, as a longest common
// subsequence finds it: `changed[i]` when after's line i is new or edited,
// `removed[i]` when lines of before were dropped just ahead of after's line
// i (`removed` has one entry more, for the end).
struct CodeChanges {
  std::vector<bool> changed;
  std::vector<bool> removed;
  bool Any() const;
  // The first line (0-based) a change touches, or -1.
  int First() const;
};

CodeChanges CompareLines(const std::vector<vb::Text>& before, const std::vector<vb::Text>& after);

// The lines from `first` (0-based) in `area`: a number gutter, '+' on a
// changed line (bold and reversed), '-' where lines went.
void DrawCode(Canvas& canvas, Rect area, const std::vector<vb::Text>& lines,
              const CodeChanges& changes, int first);

}  // namespace tui
