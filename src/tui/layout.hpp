// The terminal's drawing material, as plain data: spans of attributed text,
// a canvas of character cells, captions with their access keys, text wrapped
// as VB labels wrap it, and the layout of a message box. Nothing here touches
// the terminal, so the look of everything can be checked in tests.
// Columns count UTF-16 units: the dialogs' text is Western and one unit a cell.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "forms/frontend.hpp"
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

struct Caret {
  int row = 0;
  int column = 0;
};

// A rectangle of cells; writes outside it are cut off.
class Canvas {
 public:
  Canvas(int rows, int columns);
  int Rows() const { return rows_; }
  int Columns() const { return columns_; }
  // Writes `text` from (row, column) rightwards, at most `limit` cells.
  void Put(int row, int column, vb::TextView text, unsigned attrs, int limit = 1 << 30);
  void Put(int row, int column, const std::vector<Span>& spans, unsigned extra = kPlain,
           int limit = 1 << 30);
  // Copies `count` rows of `from`, its row `first` on, to (row, column).
  void Draw(int row, int column, const Canvas& from, int first, int count);
  // Neighbouring cells of the same attributes make one span.
  Row RowAt(int row) const;
  // The characters, a line a row, blanks at the ends of lines dropped.
  vb::Text Text() const;

 private:
  struct Cell {
    char16_t ch = u' ';
    unsigned attrs = kPlain;
  };
  int rows_, columns_;
  std::vector<Cell> cells_;
};

// Where each line of `text` starts and how long it is, broken at line breaks
// and wrapped to `width` cells at the last blank that lets a piece fit, or
// hard at the width; the blanks at a wrap belong to no line.
struct Piece {
  std::size_t start, length;
};
std::vector<Piece> WrapText(vb::TextView text, int width);

// A caption without the '&' marks ("&&" leaves one '&'), and where its access
// key (the letter after the first single '&') stands in it, or npos.
struct Caption {
  vb::Text text;
  std::size_t key = vb::Text::npos;
};
Caption StripMarks(const vb::Text& caption);
// Spans of a piece of a caption, the access key underlined; `attrs` apply to
// all of it.
std::vector<Span> CaptionSpans(const Caption& caption, Piece piece, unsigned attrs);
std::vector<Span> CaptionSpans(const vb::Text& caption, unsigned attrs);

struct BoxLayout {
  vb::Text title;
  std::vector<Row> rows;
  // Cells inside the box's border.
  int width = 0;
};

// A message box: its prompt lines (split at line breaks, wrapped to
// `max_width`), a blank row, then its buttons side by side with the
// `selected` one reversed.
BoxLayout LayoutMessageBox(const forms::MessageBox& box, std::span<const std::int32_t> buttons,
                           std::size_t selected, int max_width);

}  // namespace tui
