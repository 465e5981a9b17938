// The selected form as the designer shows it, in character cells: the form
// client area as a frame, each control at its Left, Top, Width and Height
// (twips to cells as cells.hpp says), a control inside a Frame, PictureBox or
// SSTab placed relative to it. Each control shows its class's look with its
// caption or text (a check box "[x] Caption", a button "[ OK ]", a frame as
// a box with its caption in the border) and the selected control is
// reversed. What does not fit the area is cut off.
#pragma once

#include "tui/canvas.hpp"
#include "workbench/form_component.hpp"

namespace tui {

// A caption as shown: "&&" gives one '&', a lone '&' marks the access key
// and goes.
vb::Text WithoutAccessKey(vb::TextView caption);

// Where a control stands in cells from the form's client area's corner.
Rect ControlCells(const workbench::Control& control);

void DrawFormView(Canvas& canvas, Rect area, const workbench::FormComponent& form,
                  const workbench::Control* selected);

}  // namespace tui
