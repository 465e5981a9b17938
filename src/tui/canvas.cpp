// Cells, clipping, boxes, copies, and the cells' turn into spans and text.
#include "tui/canvas.hpp"

#include <algorithm>

namespace tui {

Canvas::Canvas(int rows, int columns)
    : rows_(std::max(rows, 0)),
      columns_(std::max(columns, 0)),
      clip_{0, 0, rows_, columns_},
      cells_(static_cast<std::size_t>(rows_ * columns_)) {}

bool Canvas::Inside(int y, int x) const {
  return y >= 0 && x >= 0 && y < rows_ && x < columns_ && y >= clip_.top && y < clip_.Bottom() &&
         x >= clip_.left && x < clip_.Right();
}

int Canvas::Put(int y, int x, vb::TextView text, unsigned attrs, int limit) {
  const int n = std::max(std::min(static_cast<int>(text.size()), limit), 0);
  for (int i = 0; i < n; ++i) {
    if (!Inside(y, x + i)) continue;
    // Control characters would move the terminal's cursor.
    const char16_t c = text[static_cast<std::size_t>(i)];
    cells_[Index(y, x + i)] = {c < 0x20 || c == 0x7F ? u'\u00B7' : c, attrs};
  }
  return x + n;
}

void Canvas::Put(int y, int x, const std::vector<Span>& spans, unsigned extra, int limit) {
  for (const Span& s : spans) {
    if (limit <= 0) return;
    x = Put(y, x, s.text, s.attrs | extra, limit);
    limit -= static_cast<int>(s.text.size());
  }
}

void Canvas::Draw(int y, int x, const Canvas& from, int first, int count) {
  for (int row = std::max(first, 0); row < first + count && row < from.rows_; ++row) {
    for (int column = 0; column < from.columns_; ++column) {
      const int to_y = y + row - first;
      if (Inside(to_y, x + column))
        cells_[Index(to_y, x + column)] = from.cells_[from.Index(row, column)];
    }
  }
}

void Canvas::Mark(int y, int x, int width, unsigned attrs) {
  for (int i = 0; i < width; ++i) {
    if (Inside(y, x + i)) cells_[Index(y, x + i)].attrs |= attrs;
  }
}

void Canvas::Fill(Rect r, char16_t ch) {
  for (int y = r.top; y < r.Bottom(); ++y) {
    for (int x = r.left; x < r.Right(); ++x) {
      if (Inside(y, x)) cells_[Index(y, x)] = {ch, kPlain};
    }
  }
}

void Canvas::Box(Rect r, vb::TextView title, unsigned title_attrs) {
  if (r.height < 2 || r.width < 2) return;
  const int bottom = r.Bottom() - 1;
  const int right = r.Right() - 1;
  for (int x = r.left + 1; x < right; ++x) {
    Put(r.top, x, u"\u2500");
    Put(bottom, x, u"\u2500");
  }
  for (int y = r.top + 1; y < bottom; ++y) {
    Put(y, r.left, u"\u2502");
    Put(y, right, u"\u2502");
  }
  Put(r.top, r.left, u"\u250c");
  Put(r.top, right, u"\u2510");
  Put(bottom, r.left, u"\u2514");
  Put(bottom, right, u"\u2518");
  if (!title.empty() && r.width > 4) {
    Put(r.top, r.left + 1, u" ");
    const int end = Put(r.top, r.left + 2, title, title_attrs, r.width - 4);
    Put(r.top, end, u" ");
  }
}

Row Canvas::RowAt(int y) const {
  Row row;
  for (int x = 0; x < columns_; ++x) {
    const Cell& cell = cells_[Index(y, x)];
    if (row.spans.empty() || row.spans.back().attrs != cell.attrs) {
      row.spans.push_back({{}, cell.attrs});
    }
    row.spans.back().text.push_back(cell.ch);
  }
  return row;
}

vb::Text Canvas::Text() const {
  vb::Text out;
  for (int y = 0; y < rows_; ++y) {
    vb::Text line = RowText(RowAt(y));
    line.erase(line.find_last_not_of(u' ') + 1);
    out += line + u"\n";
  }
  return out;
}

int Width(const std::vector<Span>& spans) {
  int n = 0;
  for (const Span& s : spans) n += static_cast<int>(s.text.size());
  return n;
}

vb::Text RowText(const Row& row) {
  vb::Text text;
  for (const Span& s : row.spans) text += s.text;
  return text;
}

std::vector<Row> Canvas::ToRows() const {
  std::vector<Row> rows;
  rows.reserve(static_cast<std::size_t>(rows_));
  for (int y = 0; y < rows_; ++y) rows.push_back(RowAt(y));
  return rows;
}

}  // namespace tui
