// A form drawn from its geometry into character cells, and the terminal's
// whole screen of shown dialogs, as plain data for the front end and tests.
//
// A form shows as a window: a reversed title bar, a border, and each control
// where its Bounds put it, scaled to cells by cells.hpp (a frame's controls
// relative to the frame). Frames are boxes with their caption in the top
// border; labels wrap within their width at blanks as VB labels do, a word
// longer than the width breaking, and show no more lines than their height;
// text boxes are bracketed fields that scroll with the caret; check boxes
// "[x]", option buttons "(o)", command buttons "< Caption >"; a list box
// shows as many rows as it is high, scrolled so its caret row shows, with "^"
// and "v" where more rows lie. Controls that are not visible and the common
// dialog show nothing. Disabled controls are dim, the default button bold;
// the focused control is reversed (a list: its selected row), and a list's
// caret row carries a ">" mark while the list has the focus, so a caret on a
// row nobody selected never looks like a selection.
#pragma once

#include <map>
#include <optional>
#include <span>

#include "forms/form.hpp"
#include "tui/layout.hpp"

namespace tui {

struct FormPicture {
  Canvas canvas{0, 0};
  // Where the terminal's cursor goes: the caret of the focused text box.
  std::optional<Caret> caret;
  // The top row of the focused control (a list: its caret row), or -1.
  int focus_row = -1;
};

// The form as a window of ColumnsOf(ClientWidth) + 2 by RowsOf(ClientHeight)
// + 2 cells: the title bar, the client area, the bottom border.
FormPicture PictureForm(const forms::Form& form);

// The keys that do something in the form, for the footer: Enter only with a
// default button, Esc only with a cancel button, and the close box (F10)
// named where no cancel button offers a way out.
vb::Text FormHint(const forms::Form& form);

struct Screen {
  Canvas canvas{0, 0};
  std::optional<Caret> caret;
};

// A terminal of `rows` by `columns` showing `shown`, bottom first: each
// window centred, one opened from another a little lower and to the right so
// the title under it still shows; the top one's hint on the last line. A
// window taller than the room above the hint scrolls no further than keeps
// the focus in view; `scroll` keeps each form's first row between draws.
Screen ComposeScreen(std::span<forms::Form* const> shown, int rows, int columns,
                     std::map<const forms::Form*, int>& scroll);

}  // namespace tui
