#include "tui/prompt.hpp"

#include <istream>
#include <ostream>
#include <sstream>

#include "session/session_script.hpp"

namespace tui {
namespace {

constexpr const char* kPrompt = "tessaly> ";
// Script lines name where they come from; at the prompt that is the prompt.
constexpr const char* kOrigin = "tessaly";

std::string FirstWord(const std::string& text) {
  std::istringstream words(text);
  std::string word;
  words >> word;
  return word;
}

// Prints what the session recorded for a line, less the echo of the line
// itself: the user has just typed it.
void Flush(std::ostringstream& recorded, const std::string& typed, std::ostream& out) {
  std::string text = recorded.str();
  recorded.str({});
  const std::string echo = "> " + typed + "\n";
  if (text.rfind(echo, 0) == 0) text.erase(0, echo.size());
  out << text;
}

// A script parser's message starts with the origin ("tessaly:1: "), which
// says nothing at a prompt.
std::string WithoutOrigin(const std::string& message) {
  const std::string prefix = std::string(kOrigin) + ":1: ";
  return message.rfind(prefix, 0) == 0 ? message.substr(prefix.size()) : message;
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

int RunPrompt(PromptOptions options) {
  std::istream& in = *options.in;
  std::ostream& out = *options.out;
  // Declared before the session, which writes to it until it is destroyed.
  std::ostringstream recorded;
  options.session.transcript = &recorded;
  const bool startup_addin = options.session.addin && (options.session.addin_listing.load_behavior &
                                                       ide::kLoadAtStartup) != 0;
  session::Session session(std::move(options.session));
  int number = 0;

  auto run = [&](session::ScriptLine line, const std::string& typed) {
    line.number = ++number;
    line.origin = kOrigin;
    try {
      session.RunLine(line);
    } catch (const std::exception& e) {
      Flush(recorded, typed, out);
      out << e.what() << '\n';
      return false;
    }
    Flush(recorded, typed, out);
    return true;
  };

  if (!options.project.empty()) {
    const std::string typed = "open " + options.project;
    run({0, "open", {options.project}, kOrigin, typed}, typed);
    // What went wrong is printed already; a prompt without the project the
    // user asked for would only mislead.
    if (!session.GetIde().ActiveProject()) return 1;
  }
  // An add-in registered to load at startup is connected as the IDE starts,
  // after the project the user named, so that its control events come from
  // that project.
  if (startup_addin) {
    const std::string typed = "connect startup";
    run({0, "connect", {"startup"}, kOrigin, typed}, typed);
  }
  std::string text;
  for (;;) {
    out << kPrompt << std::flush;
    if (!std::getline(in, text)) {
      out << '\n';
      break;
    }
    const std::string verb = FirstWord(text);
    if (verb == "quit" || verb == "exit") break;
    if (verb == "help" || verb == "?") {
      out << PromptHelp();
      continue;
    }
    std::vector<session::ScriptLine> lines;
    try {
      lines = session::ParseScript(text, kOrigin);
    } catch (const std::exception& e) {
      out << WithoutOrigin(e.what()) << " (help lists the actions)\n";
      continue;
    }
    for (auto& line : lines) run(std::move(line), text);
  }
  return 0;
}

}  // namespace tui
