// Running typed lines, sifting the transcript and keeping the modified flag.
#include "tui/action_runner.hpp"

#include <algorithm>

#include "session/session_script.hpp"

namespace tui {
namespace {

// Script lines name where they come from; at the prompt that is the prompt.
constexpr const char* kOrigin = "tessaly";

session::SessionOptions WithTranscript(session::SessionOptions options, std::ostream& out) {
  options.transcript = &out;
  return options;
}

// A script parser's message starts with the origin ("tessaly:1: "), which
// says nothing at a prompt.
std::string WithoutOrigin(const std::string& message) {
  const std::string prefix = std::string(kOrigin) + ":1: ";
  return message.rfind(prefix, 0) == 0 ? message.substr(prefix.size()) : message;
}

bool Starts(const std::string& text, const char* prefix) { return text.rfind(prefix, 0) == 0; }

// Events that change what a save would write.
bool Modifies(const session::Json& event) {
  const std::string kind = event.value("event", "");
  if (kind == "property_write" || kind == "font_write") return event.value("outcome", "") == "ok";
  return kind == "control_added" || kind == "control_removed" || kind == "control_renamed" ||
         kind == "code_edit";
}

}  // namespace

std::string FirstWord(const std::string& text) {
  std::istringstream words(text);
  std::string word;
  words >> word;
  return word;
}

const std::vector<std::string>& ActionVerbs() {
  static const std::vector<std::string> verbs = {
      "open",    "new-project", "new-form", "form",   "connect", "disconnect", "menu",
      "drop",    "drop-exact",  "delete",   "rename", "set",     "code",       "refuse",
      "store",   "unstore",     "save",     "undo",   "redo",    "dump",       "state",
      "listing", "echo",        "mark",     "select", "help",    "quit"};
  return verbs;
}

ActionRunner::ActionRunner(session::SessionOptions options, Verbosity verbosity)
    : verbosity_(verbosity),
      startup_addin_(options.addin &&
                     (options.addin_listing.load_behavior & ide::kLoadAtStartup) != 0),
      session_(WithTranscript(std::move(options), recorded_)) {}

ActionRunner::Outcome ActionRunner::ConnectAtStartup() {
  if (!startup_addin_) return {};
  return RunLine({0, "connect", {"startup"}, kOrigin, "connect startup"}, "connect startup");
}

ActionRunner::Outcome ActionRunner::Open(const std::string& path) {
  return RunLine({0, "open", {path}, kOrigin, "open " + path}, "open " + path);
}

ActionRunner::Outcome ActionRunner::Run(const std::string& typed) {
  std::vector<session::ScriptLine> lines;
  try {
    lines = session::ParseScript(typed, kOrigin);
  } catch (const std::exception& e) {
    return {{WithoutOrigin(e.what()) + " (help lists the actions)"}, false};
  }
  Outcome all;
  for (auto& line : lines) {
    Outcome one = RunLine(std::move(line), typed);
    all.lines.insert(all.lines.end(), one.lines.begin(), one.lines.end());
    all.ok = all.ok && one.ok;
  }
  return all;
}

ActionRunner::Outcome ActionRunner::RunLine(session::ScriptLine line, const std::string& typed) {
  line.number = ++number_;
  line.origin = kOrigin;
  line.text = typed;
  const std::size_t first_event = session_.GetTrace().Events().size();
  const bool inspection = session::SortOf(line) == session::LineSort::Inspection;
  Outcome outcome;
  try {
    session_.RunLine(line);
  } catch (const std::exception& e) {
    outcome.lines = Shown(line, inspection);
    outcome.lines.push_back(e.what());
    outcome.ok = false;
    Account(line, first_event, false);
    return outcome;
  }
  const auto& events = session_.GetTrace().Events();
  outcome.ok =
      std::none_of(events.begin() + static_cast<std::ptrdiff_t>(first_event), events.end(),
                   [](const session::Json& e) { return e.value("event", "") == "failure"; });
  outcome.lines = Shown(line, inspection);
  Account(line, first_event, outcome.ok);
  if (outcome.ok && line.verb == "open") {
    const auto project = Project();
    outcome.lines.push_back("opened " + vb::ToUtf8(project->Name()) + ": " +
                            std::to_string(project->Forms().size()) + " form(s)");
  }
  // The session may say nothing of a save; silence would leave the user
  // wondering whether it happened.
  if (outcome.ok && line.verb == "save" && outcome.lines.empty()) {
    outcome.lines.push_back("saved " +
                            (line.args.empty() ? vb::ToUtf8(Project()->Name()) : line.args[0]));
  }
  return outcome;
}

// The transcript of the line, less the echo of what the user has just typed
// and what the verbosity leaves out. A transcript entry is a line indented
// by two, continued by lines indented further.
std::vector<std::string> ActionRunner::Shown(const session::ScriptLine& line, bool inspection) {
  std::istringstream text(recorded_.str());
  recorded_.str({});
  std::vector<std::string> out;
  bool keep = false;
  for (std::string row; std::getline(text, row);) {
    if (Starts(row, "> ")) continue;
    if (!Starts(row, "   ")) {
      const bool chatter = Starts(row, "  focus -> ") ||
                           (Starts(row, "  setting ") && row.find(" read: ") != std::string::npos);
      keep = verbosity_ == Verbosity::Verbose || !chatter;
      if (verbosity_ == Verbosity::Quiet) {
        keep = Starts(row, "  FAILED") || row.find(" REFUSED: ") != std::string::npos ||
               (inspection && !chatter) || (line.verb == "echo" && !Starts(row, "  "));
      }
    }
    if (keep) out.push_back(row);
  }
  return out;
}

void ActionRunner::Account(const session::ScriptLine& line, std::size_t first_event, bool ran) {
  if (ran && (line.verb == "open" || line.verb == "new-project" ||
              (line.verb == "save" && line.args.empty()))) {
    modified_ = false;
    return;
  }
  if (ran && (line.verb == "new-form" || line.verb == "undo" || line.verb == "redo")) {
    modified_ = true;
  }
  const auto& events = session_.GetTrace().Events();
  for (std::size_t i = first_event; i < events.size(); ++i)
    modified_ = modified_ || Modifies(events[i]);
}

}  // namespace tui
