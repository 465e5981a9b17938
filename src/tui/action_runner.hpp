// What both interactive front ends (the line prompt and the workbench
// screen) share: a session that runs the lines a user types, what of its
// transcript the user sees, and whether the project has changes not saved.
//
// Quiet shows only failures and the answers the user asked for (dump, state,
// listing, echo); the normal level shows the rest of the transcript but the
// settings read and the focus moving in a dialog, which only verbose shows.
// `open` and `save` say when they succeeded. Every error is reported in the
// outcome and the session stays usable.
#pragma once

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "session/session.hpp"

namespace tui {

enum class Verbosity { Quiet, Normal, Verbose };

// The verbs the line prompt and the screen complete, in the order `help`
// lists them.
const std::vector<std::string>& ActionVerbs();

// The first word of a typed line: its verb.
std::string FirstWord(const std::string& text);

class ActionRunner {
 public:
  ActionRunner(session::SessionOptions options, Verbosity verbosity);

  struct Outcome {
    // What to show, line by line.
    std::vector<std::string> lines;
    bool ok = true;
  };
  // Runs what the user typed (one line, or several separated as a script
  // separates them).
  Outcome Run(const std::string& typed);
  // Opens the project at `path` as `open` would, whatever its name holds.
  Outcome Open(const std::string& path);
  // Connects an add-in registered to load at startup, once a project the
  // user named has been opened, so that its control events come from it.
  Outcome ConnectAtStartup();

  // Changes since the project was opened, made or saved.
  bool Modified() const { return modified_; }
  session::Session& GetSession() { return session_; }
  std::shared_ptr<workbench::Project> Project() { return session_.GetIde().ActiveProject(); }

 private:
  Outcome RunLine(session::ScriptLine line, const std::string& typed);
  std::vector<std::string> Shown(const session::ScriptLine& line, bool is_inspection);
  void Account(const session::ScriptLine& line, std::size_t first_event, bool ran);

  // Declared before the session, which writes to it until it is destroyed.
  std::ostringstream recorded_;
  Verbosity verbosity_;
  bool startup_addin_;
  session::Session session_;
  int number_ = 0;
  bool modified_ = false;
};

}  // namespace tui
