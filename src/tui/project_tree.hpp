// The project tree of the workbench screen: the project's forms in order,
// each followed by its controls, a container's controls right under it and
// indented one step deeper. Each entry names what a user selects by it.
#pragma once

#include <memory>
#include <vector>

#include "tui/canvas.hpp"
#include "workbench/project.hpp"

namespace tui {

struct TreeEntry {
  std::shared_ptr<workbench::FormComponent> form;
  // Null for the form's own entry.
  std::shared_ptr<workbench::Control> control;
  // 0 for a form, 1 for a control on the form, 2 inside a container...
  int depth = 0;
};

std::vector<TreeEntry> ProjectTree(const workbench::Project& project);

// "frmMain", or "Text1(2)  TextBox" indented by depth.
vb::Text TreeLabel(const TreeEntry& entry);

// The entries in `area`, scrolled so that `selected` shows, the selected one
// reversed.
void DrawTree(Canvas& canvas, Rect area, const std::vector<TreeEntry>& entries, int selected);

}  // namespace tui
