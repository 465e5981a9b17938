// Where each panel goes for the terminal's size, and the bars.
#include "tui/workbench_screen.hpp"

#include <algorithm>

#include "tui/form_view.hpp"
#include "tui/property_view.hpp"

namespace tui {

const char* const kScreenKeys =
    "F2 tree  F3 Add-Ins  PgUp/PgDn code  Tab complete  ^Z undo  ^Y redo  ^D quit";

namespace {

// Wide terminals give the property view a column of its own.
constexpr int kWideColumns = 110;
constexpr int kTallRows = 36;

void DrawMenuBar(Canvas& canvas, const ScreenState& state) {
  int x = canvas.Put(0, 0, u"Add-Ins:", kBold);
  if (state.menu.empty()) canvas.Put(0, x + 1, u"(no entries: connect the add-in)", kDim);
  for (std::size_t i = 0; i < state.menu.size(); ++i) {
    const bool chosen = state.focus == Focus::Menu && static_cast<int>(i) == state.menu_choice;
    x = canvas.Put(0, x + 2, WithoutAccessKey(state.menu[i]), chosen ? kReverse : kPlain);
  }
}

unsigned TitleAttrs(bool focused) { return focused ? kBold | kReverse : kBold; }

void DrawStatus(Canvas& canvas, int y, const ScreenState& state) {
  vb::Text text = u" ";
  if (state.project) {
    text += state.project->Name();
    if (const TreeEntry* entry = SelectedEntry(state)) text += u"  " + entry->form->FormName();
    if (state.modified) text += u"  [modified]";
  } else {
    text += u"no project";
  }
  text += u"  |  " + vb::FromUtf8(kScreenKeys);
  canvas.Put(y, 0, text, kReverse);
  canvas.Mark(y, 0, canvas.Columns(), kReverse);
}

// The command line scrolls sideways to keep the cursor in view.
Caret DrawCommand(Canvas& canvas, int y, const ScreenState& state) {
  const vb::Text prompt = vb::FromUtf8(state.prompt);
  const vb::Text command = vb::FromUtf8(state.command);
  const int cursor = static_cast<int>(
      vb::FromUtf8(
          state.command.substr(0, static_cast<std::size_t>(std::clamp(
                                      state.cursor, 0, static_cast<int>(state.command.size())))))
          .size());
  const int room = std::max(canvas.Columns() - static_cast<int>(prompt.size()) - 1, 1);
  const int shift = cursor > room ? cursor - room : 0;
  const int x = canvas.Put(y, 0, prompt, kBold);
  canvas.Put(y, x, vb::TextView(command).substr(static_cast<std::size_t>(shift)));
  return {y, x + cursor - shift};
}

}  // namespace

const TreeEntry* SelectedEntry(const ScreenState& state) {
  if (state.selected < 0 || state.selected >= static_cast<int>(state.tree.size())) return nullptr;
  return &state.tree[static_cast<std::size_t>(state.selected)];
}

ScreenPicture ComposeScreen(const ScreenState& state, int rows, int columns) {
  Canvas canvas(rows, columns);
  DrawMenuBar(canvas, state);
  const int output_height = rows >= kTallRows ? 8 : 5;
  const int middle = rows - 3 - output_height;
  const bool wide = columns >= kWideColumns;
  const int tree_width = wide ? 28 : 24;
  const int props_width = wide ? 32 : 0;
  const int tree_height = wide ? middle : middle / 2;
  const Rect tree{1, 0, tree_height, tree_width};
  const Rect props = wide ? Rect{1, columns - props_width, middle, props_width}
                          : Rect{1 + tree_height, 0, middle - tree_height, tree_width};
  const int main_width = columns - tree_width - props_width;
  const int form_height = std::max(middle / 2, 4);
  const Rect form{1, tree_width, form_height, main_width};
  const Rect code{1 + form_height, tree_width, middle - form_height, main_width};
  const Rect output{1 + middle, 0, output_height, columns};
  auto inner = [](Rect r) { return Rect{r.top + 1, r.left + 1, r.height - 2, r.width - 2}; };

  const TreeEntry* entry = SelectedEntry(state);
  canvas.Box(tree, u"Project", TitleAttrs(state.focus == Focus::Tree));
  canvas.Box(props, u"Properties", kBold);
  canvas.Box(form, entry ? u"Form " + entry->form->FormName() : u"Form", kBold);
  canvas.Box(code, state.overlay.empty() ? u"Code" : vb::FromUtf8(state.overlay_title), kBold);
  canvas.Box(output, u"Output", kBold);
  if (state.project) {
    DrawTree(canvas, inner(tree), state.tree, state.selected);
  } else {
    canvas.Put(tree.top + 1, 1, u"open PATH.vbp", kDim, tree.width - 2);
    canvas.Put(tree.top + 2, 1, u"new-project NAME", kDim, tree.width - 2);
  }
  if (entry) {
    const workbench::Control* control = entry->control.get();
    DrawFormView(canvas, inner(form), *entry->form, control);
    DrawProperties(canvas, inner(props), *entry->form, control);
    if (state.overlay.empty()) {
      DrawCode(canvas, inner(code), state.code, state.changes, state.code_first);
    }
  }
  const Rect over = inner(code);
  for (int i = 0; i < over.height && state.code_first + i < static_cast<int>(state.overlay.size());
       ++i) {
    const auto& line = state.overlay[static_cast<std::size_t>(state.code_first + i)];
    canvas.Put(over.top + i, over.left, vb::FromUtf8(line), kPlain, over.width);
  }
  const Rect out = inner(output);
  const int shown = std::min(out.height, static_cast<int>(state.output.size()));
  for (int i = 0; i < shown; ++i) {
    const std::string& line =
        state.output[state.output.size() - static_cast<std::size_t>(shown - i)];
    canvas.Put(out.top + i, out.left, vb::FromUtf8(line), kPlain, out.width);
  }
  DrawStatus(canvas, rows - 2, state);
  const Caret caret = DrawCommand(canvas, rows - 1, state);
  return {canvas.ToRows(), caret};
}

}  // namespace tui
