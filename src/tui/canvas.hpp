// The terminal's drawing material as plain data: spans of attributed text,
// and a canvas of character cells that dialogs and the workbench's panels
// draw into and that becomes rows of spans for a painter or a test to read.
// Nothing here touches the terminal.
//
// Writes outside the grid or outside the clip rectangle are dropped, so a
// panel may draw a form larger than its room and show only what fits.
// Columns count UTF-16 units: the text shown is Western, one unit a cell.
#pragma once

#include <vector>

#include "vb/text.hpp"

namespace tui {

// Attributes of a span; they combine.
enum Attr : unsigned {
  kPlain = 0,
  kReverse = 1u << 0,
  kBold = 1u << 1,
  kDim = 1u << 2,
  kUnderline = 1u << 3,
};

struct Span {
  vb::Text text;
  unsigned attrs = kPlain;
  friend bool operator==(const Span&, const Span&) = default;
};

// One line of spans, as the terminal draws it.
struct Row {
  std::vector<Span> spans;
};

vb::Text RowText(const Row& row);
// Cells the spans take.
int Width(const std::vector<Span>& spans);

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

  // Text from (y, x) rightwards, at most `limit` cells; a control character
  // shows as a middle dot, so columns still match positions in the text.
  // Returns the column after the text.
  int Put(int y, int x, vb::TextView text, unsigned attrs = kPlain, int limit = 1 << 30);
  void Put(int y, int x, const std::vector<Span>& spans, unsigned extra = kPlain,
           int limit = 1 << 30);
  // Adds attributes to cells already drawn.
  void Mark(int y, int x, int width, unsigned attrs);
  // A line border around `r` with `title` in its top edge.
  void Box(Rect r, vb::TextView title, unsigned title_attrs = kBold);
  void Fill(Rect r, char16_t ch = u' ');
  // Copies `count` rows of `from`, its row `first` on, to (y, x).
  void Draw(int y, int x, const Canvas& from, int first, int count);

  char16_t At(int y, int x) const { return cells_[Index(y, x)].ch; }
  unsigned AttrsAt(int y, int x) const { return cells_[Index(y, x)].attrs; }
  // Row y as spans of equal attributes.
  Row RowAt(int y) const;
  std::vector<Row> ToRows() const;
  // The characters, a line a row, blanks at the ends of lines dropped.
  vb::Text Text() const;

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
