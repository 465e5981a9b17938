// The workbench screen as data: the Add-Ins menu bar, the project tree, the
// selected form drawn from its controls, the code view, the property view,
// the output of the last actions, a status line and the command line, laid
// out for the terminal's size (80 by 24 and up). A thin painter
// (screen_terminal.hpp) puts the rows on the terminal; tests read them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tui/code_view.hpp"
#include "tui/layout.hpp"
#include "tui/project_tree.hpp"

namespace tui {

// Which part takes the keys that are not the command line's.
enum class Focus { Command, Tree, Menu };

struct ScreenState {
  // Null when no project is open.
  const workbench::Project* project = nullptr;
  std::vector<TreeEntry> tree;
  int selected = 0;
  Focus focus = Focus::Command;
  // The "Add-Ins" bar's captions as the IDE has them, and the one chosen.
  std::vector<vb::Text> menu;
  int menu_choice = 0;
  // The selected form's code, what the last action changed in it, and the
  // first line shown.
  std::vector<vb::Text> code;
  CodeChanges changes;
  int code_first = 0;
  // What the last actions printed, oldest first; the screen shows the end.
  std::vector<std::string> output;
  // A long answer (help, dump, listing) shown over the code until the next
  // action, with its title.
  std::vector<std::string> overlay;
  std::string overlay_title;
  bool modified = false;
  // The command line: its prompt, text and the cursor's place in it.
  std::string prompt = "tessaly> ";
  std::string command;
  int cursor = 0;
};

struct ScreenPicture {
  std::vector<Row> rows;
  Caret caret;
};

ScreenPicture ComposeScreen(const ScreenState& state, int rows, int columns);

// The entry of the tree the state selects, or null.
const TreeEntry* SelectedEntry(const ScreenState& state);

// The keys, as the status line lists them.
extern const char* const kScreenKeys;

}  // namespace tui
