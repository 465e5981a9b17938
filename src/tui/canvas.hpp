// A grid of character cells with attributes that the workbench screen's
// panels draw into, turned into rows of spans (layout.hpp's Row) for a
// painter or a test to read. Nothing here touches the terminal.
//
// Writes outside the grid or outside the clip rectangle are dropped, so a
// panel may draw a form larger than its room and show only what fits.
#pragma once

#include <vector>

#include "tui/layout.hpp"
#include "vb/text.hpp"

namespace tui {

struct Rect {
  int top = 0;
  int left = 0;
  int height = 0;
  int width = 0;
  int Bottom() const { return top + height; }
  int Right() const { return left + width; }
};

class Canvas {
 public:
  Canvas(int rows, int columns);
  int Rows() const { return rows_; }
  int Columns() const { return columns_; }

  // Later writes only land inside `clip` (and the grid); Unclip restores.
  void Clip(Rect clip) { clip_ = clip; }
  void Unclip() { clip_ = {0, 0, rows_, columns_}; }

  // Text from (y, x), one UTF-16 unit a cell, cut at `max_width` cells when
  // given. Returns the column after the text.
  int Put(int y, int x, vb::TextView text, unsigned attrs = kPlain, int max_width = -1);
  // Adds attributes to cells already drawn.
  void Mark(int y, int x, int width, unsigned attrs);
  // A line border around `r` with `title` in its top edge.
  void Box(Rect r, vb::TextView title, unsigned title_attrs = kBold);
  void Fill(Rect r, char16_t ch = u' ');

  char16_t At(int y, int x) const { return cells_[Index(y, x)].ch; }
  unsigned AttrsAt(int y, int x) const { return cells_[Index(y, x)].attrs; }
  // Row y as spans of equal attributes.
  Row RowAt(int y) const;
  std::vector<Row> ToRows() const;

 private:
  struct Cell {
    char16_t ch = u' ';
    unsigned attrs = kPlain;
  };
  std::size_t Index(int y, int x) const { return static_cast<std::size_t>(y * columns_ + x); }
  bool Inside(int y, int x) const;
  int rows_;
  int columns_;
  Rect clip_;
  std::vector<Cell> cells_;
};

}  // namespace tui
