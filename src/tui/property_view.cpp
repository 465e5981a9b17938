// Rows of the property view.
#include "tui/property_view.hpp"

#include <algorithm>

namespace tui {
namespace {

constexpr int kNameColumn = 16;

void DrawSlots(Canvas& canvas, Rect area, const std::vector<workbench::PropertySlot>& slots,
               const workbench::Control* control) {
  int y = area.top;
  for (const auto& slot : slots) {
    if (y >= area.Bottom()) break;
    // A font slot keeps its value in the control's font object.
    const vb::Text value = control ? control->Get(slot.name).ToText() : slot.value.ToText();
    const int name_width = std::min(kNameColumn, area.width / 2);
    canvas.Put(y, area.left, slot.name, slot.written ? kBold : kPlain, name_width - 1);
    canvas.Put(y, area.left + name_width, value, slot.written ? kBold : kPlain,
               area.width - name_width);
    ++y;
  }
}

}  // namespace

void DrawProperties(Canvas& canvas, Rect area, const workbench::FormComponent& form,
                    const workbench::Control* control) {
  if (control) {
    DrawSlots(canvas, area, control->Slots(), control);
  } else {
    DrawSlots(canvas, area, form.FormSlots(), nullptr);
  }
}

}  // namespace tui
