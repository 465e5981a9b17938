// Placing a dropped control.
#include "workbench/drop_placement.hpp"

#include <algorithm>
#include <vector>

#include "vb/convert.hpp"
#include "workbench/form_component.hpp"

namespace workbench {
namespace {

constexpr std::int32_t kGrid = 120;
constexpr std::int32_t kOffTab = 75000;

struct Box {
  std::int32_t left, top, width, height;
  bool Overlaps(const Box& o) const {
    return left < o.left + o.width && o.left < left + width && top < o.top + o.height &&
           o.top < top + height;
  }
};

std::int32_t Number(const std::vector<PropertySlot>& slots, vb::TextView name,
                    std::int32_t otherwise = 0) {
  for (const auto& slot : slots) {
    if (vb::SameName(slot.name, name)) return NumberOf(slot.value);
  }
  return otherwise;
}

Box BoxOf(const Control& control) {
  const auto& s = control.Slots();
  return {Number(s, u"Left"), Number(s, u"Top"), Number(s, u"Width"), Number(s, u"Height")};
}

bool IsClass(const Control& control, vb::TextView name) {
  return vb::SameName(control.ClassName(), name);
}

// The SSTab tab a target stands for: the one given, else the current one.
std::int32_t TabOf(const DropTarget& target) {
  return target.tab.value_or(Number(target.container->Slots(), u"Tab"));
}

// The room inside the target where controls go, in its own coordinates.
Box Room(const FormComponent& form, const DropTarget& target) {
  if (!target.container) {
    const auto& s = form.FormSlots();
    return {0, 0, Number(s, u"ScaleWidth"), Number(s, u"ScaleHeight")};
  }
  const Control& c = *target.container;
  const Box outer = BoxOf(c);
  const std::int32_t top = IsClass(c, u"Frame") ? 2 * kGrid : IsClass(c, u"SSTab") ? 4 * kGrid : 0;
  const auto& s = c.Slots();
  if (IsClass(c, u"PictureBox")) {
    return {0, 0, Number(s, u"ScaleWidth", outer.width), Number(s, u"ScaleHeight", outer.height)};
  }
  return {0, top, outer.width, outer.height - top};
}

vb::Failure CannotDrop(const vb::Text& why) {
  return vb::Failure(vb::kInvalidProcedureCall,
                     u"Invalid procedure call or argument: cannot drop into " + why);
}

}  // namespace

void CheckDropTarget(const FormComponent& form, const DropTarget& target) {
  if (!target.container) return;
  const Control& c = *target.container;
  const auto& on_form = form.Controls();
  if (std::find(on_form.begin(), on_form.end(), target.container) == on_form.end()) {
    throw CannotDrop(c.DisplayName() + u": it is not on " + form.FormName());
  }
  if (!IsClass(c, u"Frame") && !IsClass(c, u"PictureBox") && !IsClass(c, u"SSTab")) {
    throw CannotDrop(c.DisplayName() + u": a " + c.ClassName() + u" holds no controls");
  }
  if (!target.tab) return;
  if (!IsClass(c, u"SSTab")) throw CannotDrop(c.DisplayName() + u": only an SSTab has tabs");
  const std::int32_t tabs = Number(c.Slots(), u"Tabs");
  if (*target.tab < 0 || *target.tab >= tabs) {
    throw CannotDrop(c.DisplayName() + u" tab " + vb::IntegerToText(*target.tab) + u": it has " +
                     vb::IntegerToText(tabs) + u" tabs (0 to " + vb::IntegerToText(tabs - 1) +
                     u")");
  }
}

void PlaceDropped(const FormComponent& form, Control& control, const DropTarget& target) {
  control.SetContainer(target.container);
  PropertySlot* left = control.FindSlot(u"Left");
  PropertySlot* top = control.FindSlot(u"Top");
  if (!left || !top) return;
  const bool on_tab = target.container && IsClass(*target.container, u"SSTab");
  const bool off_tab = on_tab && TabOf(target) != Number(target.container->Slots(), u"Tab");

  // The controls already in the same place, in the room's coordinates.
  std::vector<Box> taken;
  for (const auto& other : form.Controls()) {
    if (other.get() == &control || other->Container() != target.container) continue;
    Box box = BoxOf(*other);
    if (on_tab && (box.left <= -kOffTab / 2) != off_tab) continue;
    if (off_tab) box.left += kOffTab;
    taken.push_back(box);
  }
  const Box room = Room(form, target);
  Box box = BoxOf(control);
  auto free = [&](const Box& b) {
    return std::none_of(taken.begin(), taken.end(), [&](const Box& t) { return t.Overlaps(b); });
  };
  auto place = [&]() -> std::pair<std::int32_t, std::int32_t> {
    const std::int32_t first_top = std::max(kGrid, room.top);
    for (std::int32_t y = first_top; y + box.height <= room.top + room.height; y += kGrid) {
      for (std::int32_t x = kGrid; x + box.width <= room.width; x += kGrid) {
        if (free({x, y, box.width, box.height})) return {x, y};
      }
    }
    // Nothing fits: below everything there.
    std::int32_t bottom = first_top - kGrid;
    for (const Box& t : taken) bottom = std::max(bottom, t.top + t.height);
    return {kGrid, (bottom / kGrid + 1) * kGrid};
  };
  const auto [x, y] = place();
  left->value = vb::Value(static_cast<vb::Long>(off_tab ? x - kOffTab : x));
  top->value = vb::Value(static_cast<vb::Long>(y));
}

}  // namespace workbench
