// The tree's order (containers before what they hold) and its drawing.
#include "tui/project_tree.hpp"

#include <algorithm>

namespace tui {
namespace {

void AddChildren(std::vector<TreeEntry>& out, const std::shared_ptr<workbench::FormComponent>& form,
                 const std::shared_ptr<workbench::Control>& container, int depth) {
  for (const auto& control : form->Controls()) {
    if (control->IsDeleted() || control->Container() != container) continue;
    out.push_back({form, control, depth});
    AddChildren(out, form, control, depth + 1);
  }
}

}  // namespace

std::vector<TreeEntry> ProjectTree(const workbench::Project& project) {
  std::vector<TreeEntry> out;
  for (const auto& form : project.Forms()) {
    out.push_back({form, nullptr, 0});
    AddChildren(out, form, nullptr, 1);
  }
  return out;
}

vb::Text TreeLabel(const TreeEntry& entry) {
  vb::Text label(static_cast<std::size_t>(entry.depth * 2), u' ');
  if (!entry.control) return label + entry.form->FormName();
  return label + entry.control->DisplayName() + u"  " + entry.control->ClassName();
}

void DrawTree(Canvas& canvas, Rect area, const std::vector<TreeEntry>& entries, int selected) {
  const int count = static_cast<int>(entries.size());
  int first = 0;
  if (selected >= area.height) first = selected - area.height + 1;
  for (int i = 0; i < area.height && first + i < count; ++i) {
    const TreeEntry& entry = entries[static_cast<std::size_t>(first + i)];
    unsigned attrs = entry.control ? kPlain : kBold;
    if (first + i == selected) attrs |= kReverse;
    const int end = canvas.Put(area.top + i, area.left, TreeLabel(entry), attrs, area.width);
    if (first + i == selected) canvas.Mark(area.top + i, end, area.Right() - end, kReverse);
  }
}

}  // namespace tui
