// Where the designer puts a control the user drops: into the container the
// user chose (a Frame, a PictureBox, or one tab of an SSTab; the form when
// none), at the first free place on the designer's 120-twip grid, scanning
// rows from the top left, where the control at its default size overlaps
// none of the controls already in that container and fits inside it (the
// form's ScaleWidth and ScaleHeight; a container's size, below a Frame's
// caption and an SSTab's tab strip). When nothing fits it goes below the
// lowest of them.
//
// An SSTab holds the controls of all its tabs; those not on its current tab
// (its Tab property, 0 when it has none) stand 75000 twips to the left, as
// VB keeps them, so a control dropped on another tab gets Left - 75000, and
// the controls it must not overlap are those with the same offset.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

namespace workbench {

class Control;
class FormComponent;

struct DropTarget {
  std::shared_ptr<Control> container;  // Frame, PictureBox or SSTab; null: the form
  std::optional<std::int32_t> tab;     // a tab of an SSTab container (from 0)
};

// Fails (5, naming the control or the tab) unless `target` is a container
// on `form` and any tab one its SSTab has.
void CheckDropTarget(const FormComponent& form, const DropTarget& target);

// Puts the new `control`, already in the form's list, into the target at a
// free place: container, Left and Top, stored without reports.
void PlaceDropped(const FormComponent& form, Control& control, const DropTarget& target);

}  // namespace workbench
