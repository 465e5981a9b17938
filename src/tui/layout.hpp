// What the terminal shows of a form, a message box or a list, as plain data:
// rows of text spans with attributes. Nothing here touches the terminal, so
// the look of every control can be checked in tests.
//
// A form is laid out one control a row, in tab order, each frame as a heading
// with its controls indented below it; controls that are not visible and the
// common dialog take no row. Captions show their access key underlined and
// drop the '&' that marks it ("&&" shows one '&'). Disabled controls are dim,
// the focused control is reversed, and a focused text box gives the caret.
// Columns count UTF-16 units: the dialogs' text is Western and one unit a cell.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "forms/form.hpp"
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

struct Row {
  std::vector<Span> spans;
  // The control the row shows, or null (a message box's rows).
  const forms::Control* control = nullptr;
};

// The row's text without attributes, and its width in cells.
vb::Text RowText(const Row& row);
int RowWidth(const Row& row);

struct Caret {
  int row = 0;
  int column = 0;
};

struct LayoutOptions {
  // Cells a row may use; text boxes stretch to it, labels align within it.
  int width = 60;
  // Rows a list box shows at most; a longer list scrolls with its cursor.
  int list_rows = 6;
  // Cells a frame's controls stand in from the frame's heading.
  int indent = 2;
  // Cells a text box's field has at least, however narrow the width.
  int min_field = 4;
};

struct FormLayout {
  vb::Text title;
  std::vector<Row> rows;
  // Where the terminal's cursor goes: the caret of the focused text box.
  std::optional<Caret> caret;
  // The row of the focus (a list box's cursor row), or -1.
  int focus_row = -1;
};

FormLayout LayoutForm(const forms::Form& form, const LayoutOptions& options = {});

// The cells the form's rows need when nothing stretches: whole captions and
// list rows, text boxes of `options.min_field`. A front end sizes a dialog
// from it.
int NaturalWidth(const forms::Form& form, const LayoutOptions& options = {});

// The row of a list box that Space ticks and that shows the focus: the
// ListIndex, or the first row while there is none.
std::int32_t ListCursor(const forms::ListBox& list);

// Spans of a caption: the access key underlined, the '&' dropped; `attrs`
// apply to all of it.
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
