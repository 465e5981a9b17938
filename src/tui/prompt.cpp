#include "tui/prompt.hpp"

#include <istream>
#include <ostream>
#include <sstream>

#include "vb/text.hpp"

namespace tui {
namespace {

constexpr const char* kPrompt = "tessaly> ";

void Print(const ActionRunner::Outcome& outcome, std::ostream& out) {
  for (const auto& line : outcome.lines) out << line << '\n';
}

}  // namespace

const char* PromptHelp() {
  return R"(IDE actions:
  open PATH.vbp                  open a project; its first form is selected
  new-project NAME               a new empty project
  new-form NAME                  add a form and select it
  form NAME                      select a form
  connect [MODE] [non-vbe]       load the add-in and connect it
  disconnect                     disconnect the add-in
  menu "CAPTION"                 click a menu entry, e.g. menu "&Tessaly Options"
  drop CLASS [in CONTAINER]      add a control (CheckBox, TextBox, ListView...) at a
                                 free place, or inside a Frame or PictureBox
  drop CLASS in SSTAB tab N      ... on tab N of an SSTab
  drop-exact CLASS NAME [in ...] add a control under an exact class and name
  delete NAME[(INDEX)]           delete a control
  rename NAME NEWNAME            rename a control
  set NAME PROPERTY "VALUE"      type a value into the property sheet
  code add "TEXT"                append lines to the form's code
  code insert LINE "TEXT"        insert lines before LINE
  code delete FIRST COUNT        delete lines
  refuse NAME PROPERTY "TEXT" [always]   make the IDE refuse a write
  refuse next PROPERTY "TEXT" [always]   ... of the next control dropped
  store APP SECTION KEY "TEXT"   put a value into the settings store
  unstore APP SECTION KEY        remove a value from the settings store
  undo                           take back the last action (with its dialog)
  redo                           do again the last action taken back
  save [PATH.vbp]                write the project (the files replaced kept in
                                 PROJECT.vbp.bak/N/), or a copy of it
Inspections:
  dump                           the project's forms, controls and properties
  state                          the controls of the open dialog
  listing                        the selected form's code
  echo "TEXT"                    print a text
  mark "TEXT"                    a checkpoint in the trace
Prompt:
  help                           this list
  quit                           end (also exit, or Ctrl+D)
Texts with blanks go in double quotes. In a dialog: Tab and Shift+Tab move,
Space ticks and presses, Enter presses the default button, Esc cancels,
Alt+letter (or Esc, letter) uses an access key, F10 or Ctrl+Q closes.
)";
}

std::string LeaveQuestion(const workbench::Project& project) {
  return "The project " + vb::ToUtf8(project.Name()) +
         " has changes that are not saved: save, discard, or stay? [s/d/Enter] ";
}

LeaveAnswer ParseLeaveAnswer(const std::string& answer) {
  const std::string word = FirstWord(answer);
  if (word == "s" || word == "save") return LeaveAnswer::Save;
  if (word == "d" || word == "discard") return LeaveAnswer::Discard;
  return LeaveAnswer::Stay;
}

int RunPrompt(PromptOptions options) {
  std::istream& in = *options.in;
  std::ostream& out = *options.out;
  ActionRunner runner(std::move(options.session), options.verbosity);
  // A project that cannot be opened is reported; the prompt goes on without.
  if (!options.project.empty()) Print(runner.Open(options.project), out);
  Print(runner.ConnectAtStartup(), out);
  // Whether the user may leave now: asks when there are changes not saved.
  auto may_leave = [&](bool input_ended) {
    if (!runner.Modified() || !runner.Project()) return true;
    out << LeaveQuestion(*runner.Project()) << std::flush;
    std::string answer;
    if (input_ended || !std::getline(in, answer)) {
      out << "\nno answer: leaving without saving\n";
      return true;
    }
    switch (ParseLeaveAnswer(answer)) {
      case LeaveAnswer::Discard:
        return true;
      case LeaveAnswer::Save: {
        const auto saved = runner.Run("save");
        Print(saved, out);
        return saved.ok;
      }
      case LeaveAnswer::Stay:
        return false;
    }
    return false;
  };
  std::string text;
  for (;;) {
    out << kPrompt << std::flush;
    if (!std::getline(in, text)) {
      out << '\n';
      may_leave(true);
      break;
    }
    const std::string verb = FirstWord(text);
    if (verb == "quit" || verb == "exit") {
      if (may_leave(false)) break;
      continue;
    }
    if (verb == "help" || verb == "?") {
      out << PromptHelp();
      continue;
    }
    Print(runner.Run(text), out);
  }
  return 0;
}

}  // namespace tui
