// The workbench's interactive prompt: the user types the IDE actions and
// inspections that session scripts use, one line at a time, and answers the
// add-in's dialogs in whatever front end the session was given.
//
// Each line runs as a script line would (see docs/session-scripts.md); what
// the session records is printed after the line has run, so nothing is
// written while a dialog holds the terminal. A mistake in a line is reported
// and the prompt goes on. `help` lists the actions; `quit`, `exit` or the end
// of input ends the prompt.
#pragma once

#include <iosfwd>
#include <string>

#include "session/session.hpp"

namespace tui {

struct PromptOptions {
  // The session's options; its transcript is the prompt's own.
  session::SessionOptions session;
  // A project to open before the first prompt, or empty.
  std::string project;
  std::istream* in = nullptr;
  std::ostream* out = nullptr;
};

// Runs the prompt until the user ends it. Returns the exit status: 0, or 1
// when the project given could not be opened.
int RunPrompt(PromptOptions options);

// What `help` prints.
const char* PromptHelp();

}  // namespace tui
