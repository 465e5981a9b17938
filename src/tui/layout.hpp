// The terminal's drawing material, as plain data: captions with their access
// keys, text wrapped
// as VB labels wrap it, and the layout of a message box. Nothing here touches
// the terminal, so the look of everything can be checked in tests.
// Columns count UTF-16 units: the dialogs' text is Western and one unit a cell.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "forms/frontend.hpp"
#include "tui/canvas.hpp"
#include "vb/text.hpp"

namespace tui {

struct Caret {
  int row = 0;
  int column = 0;
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
