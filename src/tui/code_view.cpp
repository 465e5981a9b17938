// The line comparison and the code panel.
#include "tui/code_view.hpp"

#include <algorithm>
#include <string>

namespace tui {

bool CodeChanges::Any() const {
  return std::find(changed.begin(), changed.end(), true) != changed.end() ||
         std::find(removed.begin(), removed.end(), true) != removed.end();
}

int CodeChanges::First() const {
  for (std::size_t i = 0; i < removed.size(); ++i) {
    if ((i < changed.size() && changed[i]) || removed[i]) return static_cast<int>(i);
  }
  return -1;
}

CodeChanges CompareLines(const std::vector<vb::Text>& before, const std::vector<vb::Text>& after) {
  // The common head and tail are cut first: an edit of a module touches a
  // few lines, and the table below then stays small.
  std::size_t head = 0;
  while (head < before.size() && head < after.size() && before[head] == after[head]) ++head;
  std::size_t tail = 0;
  while (tail < before.size() - head && tail < after.size() - head &&
         before[before.size() - 1 - tail] == after[after.size() - 1 - tail]) {
    ++tail;
  }
  const std::size_t n = before.size() - head - tail;
  const std::size_t m = after.size() - head - tail;
  // lcs[i][j]: the longest common subsequence of before's and after's
  // middles from i and j on.
  std::vector<std::vector<int>> lcs(n + 1, std::vector<int>(m + 1, 0));
  for (std::size_t i = n; i-- > 0;) {
    for (std::size_t j = m; j-- > 0;) {
      lcs[i][j] = before[head + i] == after[head + j] ? lcs[i + 1][j + 1] + 1
                                                      : std::max(lcs[i + 1][j], lcs[i][j + 1]);
    }
  }
  CodeChanges out{std::vector<bool>(after.size(), false),
                  std::vector<bool>(after.size() + 1, false)};
  std::size_t i = 0, j = 0;
  while (i < n || j < m) {
    if (i < n && j < m && before[head + i] == after[head + j]) {
      ++i, ++j;
    } else if (j < m && (i == n || lcs[i][j + 1] >= lcs[i + 1][j])) {
      out.changed[head + j++] = true;
    } else {
      out.removed[head + j] = true;
      ++i;
    }
  }
  return out;
}

void DrawCode(Canvas& canvas, Rect area, const std::vector<vb::Text>& lines,
              const CodeChanges& changes, int first) {
  const int count = static_cast<int>(lines.size());
  const int digits = static_cast<int>(std::to_string(std::max(count, 1)).size());
  for (int row = 0; row < area.height && first + row <= count; ++row) {
    const auto at = static_cast<std::size_t>(first + row);
    const bool removed = at < changes.removed.size() && changes.removed[at];
    if (first + row == count) {
      // Past the last line only a removal at the end has anything to show.
      if (removed) canvas.Put(area.top + row, area.left + digits, u"-", kBold);
      break;
    }
    const bool changed = at < changes.changed.size() && changes.changed[at];
    const std::string number = std::to_string(first + row + 1);
    const int y = area.top + row;
    canvas.Put(y, area.left + digits - static_cast<int>(number.size()), vb::FromUtf8(number), kDim);
    canvas.Put(y, area.left + digits, changed ? u"+" : removed ? u"-" : u" ", kBold);
    const int x = area.left + digits + 2;
    canvas.Put(y, x, lines[at], changed ? kBold | kReverse : kPlain, area.Right() - x);
  }
}

}  // namespace tui
