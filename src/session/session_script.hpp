// The session script language: one action a line, words separated by blanks,
// texts in double quotes with backslash escapes (\" \\ \n \r \t \uXXXX).
// '#' starts a comment outside quotes. See docs/session-scripts.md.
//
// Three sorts of line: IDE actions (what a developer does in the designer),
// user actions (answers to the add-in's dialogs, message boxes and the font
// service, valid only while one of them waits) and inspections (dump, state,
// listing, echo, mark), valid anywhere.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "forms/headless.hpp"

namespace session {

struct ScriptLine {
  int number = 0;
  std::string verb;
  std::vector<std::string> args;  // UTF-8, quotes and escapes resolved
  std::string origin;             // "demo.tess:12"
  std::string text;               // the line as written, for transcripts
};

enum class LineSort { Ide, User, Inspection };

// Splits a script into lines; fails (std::runtime_error naming the line) on
// an unterminated text or a bad escape. Blank and comment-only lines are left out.
std::vector<ScriptLine> ParseScript(const std::string& text, const std::string& name);

// Which sort a verb is; fails for an unknown verb.
LineSort SortOf(const ScriptLine& line);

// The forms::UserAction a user line stands for; fails (std::runtime_error
// naming the line) for bad arguments.
forms::UserAction ToUserAction(const ScriptLine& line);

}  // namespace session
