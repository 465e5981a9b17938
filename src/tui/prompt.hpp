// The workbench's interactive prompt: the user types the IDE actions and
// inspections that session scripts use, one line at a time, and answers the
// add-in's dialogs in whatever front end the session was given.
//
// Each line runs as a script line would (see docs/session-scripts.md); what
// the session records is printed after the line has run, so nothing is
// written while a dialog holds the terminal. A mistake in a line is reported
// and the prompt goes on, also when the project named at the start cannot be
// opened. `help` lists the actions; `quit`, `exit` or the end of input ends
// the prompt, after asking what to do with changes not saved.
#pragma once

#include <iosfwd>
#include <string>

#include "session/session.hpp"
#include "tui/action_runner.hpp"

namespace tui {

struct PromptOptions {
  // The session's options; its transcript is the prompt's own.
  session::SessionOptions session;
  // A project to open before the first prompt, or empty.
  std::string project;
  std::istream* in = nullptr;
  std::ostream* out = nullptr;
  Verbosity verbosity = Verbosity::Normal;
};

// Runs the prompt until the user ends it. Returns the exit status: 0.
int RunPrompt(PromptOptions options);

// What `help` prints.
const char* PromptHelp();

// The question asked before leaving with changes not saved, and what an
// answer means: save, discard, or (anything else) stay.
std::string LeaveQuestion(const workbench::Project& project);
enum class LeaveAnswer { Save, Discard, Stay };
LeaveAnswer ParseLeaveAnswer(const std::string& answer);

}  // namespace tui
