// The property view: the selected control's properties as the property
// sheet lists them, one "Name  value" row each in the control's order, the
// ones written since it was made or read in bold; the form's own when no
// control is selected.
#pragma once

#include "tui/canvas.hpp"
#include "workbench/form_component.hpp"

namespace tui {

void DrawProperties(Canvas& canvas, Rect area, const workbench::FormComponent& form,
                    const workbench::Control* control);

}  // namespace tui
