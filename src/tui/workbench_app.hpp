// The interactive workbench in a terminal: the workbench screen
// (workbench_screen.hpp) over a session, the command line at its foot, and
// the keys that select a form or a control, click an Add-Ins entry, scroll
// the code, undo and redo. The add-in's dialogs take the whole terminal
// while they are open. Leaving (quit, exit, Ctrl+C, Ctrl+D) asks first when
// the project has changes not saved.
#pragma once

#include "tui/prompt.hpp"

namespace tui {

// Runs until the user leaves; the exit status, 0. Throws
// forms::InputExhausted when there is no terminal to draw on.
int RunWorkbenchScreen(PromptOptions options);

}  // namespace tui
