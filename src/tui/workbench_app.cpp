// The workbench screen's loop: keys to the command line or to the focused
// panel, typed lines to the session, and the screen state rebuilt after each.
#include "tui/workbench_app.hpp"

#include <algorithm>
#include <map>
#include <sstream>

#include "tui/command_line.hpp"
#include "tui/screen_terminal.hpp"
#include "workbench/class_rules.hpp"

namespace tui {
namespace {

// Lines of output kept for the panel.
constexpr std::size_t kOutputKept = 200;
constexpr int kCodePage = 8;
// Verbs that never show a dialog, so the screen stays up while they run.
bool Quiet(const std::string& verb) {
  return verb == "form" || verb == "dump" || verb == "state" || verb == "listing" ||
         verb == "echo" || verb == "mark" || verb == "store" || verb == "unstore" ||
         verb == "refuse" || verb == "new-form" || verb == "new-project";
}

std::vector<std::string> SplitLines(const char* text) {
  std::vector<std::string> out;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) out.push_back(line);
  return out;
}

class App {
 public:
  explicit App(PromptOptions options)
      : runner_(std::move(options.session), options.verbosity),
        line_([this](const std::vector<std::string>& words) { return Offer(words); }) {
    Refresh();
    Paint();
    if (!options.project.empty()) Show("open " + options.project, runner_.Open(options.project));
    Show("connect startup", Paused([&] { return runner_.ConnectAtStartup(); }));
    Refresh();
  }

  void Loop() {
    for (;;) {
      Paint();
      const Press press = terminal_.Read();
      if (asking_) {
        if (Answer(press)) return;
        continue;
      }
      switch (press.kind) {
        case Press::Kind::Closed:
          return;
        case Press::Kind::Interrupt:
          if (Leave()) return;
          break;
        case Press::Kind::Undo:
          Execute("undo");
          break;
        case Press::Kind::Redo:
          Execute("redo");
          break;
        case Press::Kind::Tree:
          state_.focus = state_.focus == Focus::Tree ? Focus::Command : Focus::Tree;
          break;
        case Press::Kind::Menu:
          state_.focus = state_.focus == Focus::Menu ? Focus::Command : Focus::Menu;
          break;
        case Press::Kind::PageUp:
          state_.code_first = std::max(state_.code_first - kCodePage, 0);
          break;
        case Press::Kind::PageDown:
          state_.code_first += kCodePage;
          break;
        case Press::Kind::Resize:
          break;
        case Press::Kind::Text:
          if (state_.focus == Focus::Tree) {
            Tree(press.nav);
          } else if (state_.focus == Focus::Menu) {
            Menu(press.nav);
          } else if (auto ended = line_.Feed(press.bytes)) {
            if (!ended->line) {
              if (Leave()) return;
            } else if (Execute(*ended->line)) {
              return;
            }
          }
          break;
      }
    }
  }

 private:
  template <typename Fn>
  ActionRunner::Outcome Paused(Fn fn) {
    terminal_.Pause();
    ActionRunner::Outcome outcome = fn();
    terminal_.Resume();
    return outcome;
  }

  // Runs a typed line; true when it ends the workbench.
  bool Execute(const std::string& text) {
    const std::string verb = FirstWord(text);
    state_.overlay.clear();
    if (verb.empty()) return false;
    if (verb == "quit" || verb == "exit") return Leave();
    if (verb == "help" || verb == "?") {
      Overlay("Help", SplitLines(PromptHelp()));
      return false;
    }
    if (verb == "select") {
      Select(text.substr(text.find(verb) + verb.size()));
      return false;
    }
    Snapshot();
    const auto outcome =
        Quiet(verb) ? runner_.Run(text) : Paused([&] { return runner_.Run(text); });
    const std::size_t shown = outcome.lines.size();
    Show(text, outcome);
    if (shown > 3) Overlay(text, outcome.lines);
    if (outcome.ok && (verb == "drop" || verb == "drop-exact")) select_last_ = true;
    Refresh();
    return false;
  }

  void Show(const std::string& typed, const ActionRunner::Outcome& outcome) {
    if (typed != "connect startup" || !outcome.lines.empty()) state_.output.push_back("> " + typed);
    state_.output.insert(state_.output.end(), outcome.lines.begin(), outcome.lines.end());
    if (state_.output.size() > kOutputKept) {
      state_.output.erase(state_.output.begin(),
                          state_.output.end() - static_cast<std::ptrdiff_t>(kOutputKept));
    }
  }

  void Overlay(const std::string& title, std::vector<std::string> lines) {
    state_.overlay = std::move(lines);
    state_.overlay_title = title + " (PgUp/PgDn, Esc)";
    state_.code_first = 0;
  }

  // The code of every form before an action, to show what it changed.
  void Snapshot() {
    before_.clear();
    if (auto project = runner_.Project()) {
      for (const auto& form : project->Forms()) {
        if (form->Module()) before_[form.get()] = form->Module()->AllLines();
      }
    }
  }

  // The screen state from the session, keeping the selection where it can.
  void Refresh() {
    auto project = runner_.Project();
    const TreeEntry* old = SelectedEntry(state_);
    const auto old_form = old ? old->form : nullptr;
    const auto old_control = old ? old->control : nullptr;
    state_.project = project.get();
    state_.tree = project ? ProjectTree(*project) : std::vector<TreeEntry>{};
    state_.menu = runner_.GetSession().GetIde().MenuCaptions(u"Add-Ins");
    state_.modified = runner_.Modified();
    const auto current = runner_.GetSession().CurrentForm();
    int pick = -1;
    for (int i = 0; i < static_cast<int>(state_.tree.size()); ++i) {
      const TreeEntry& e = state_.tree[static_cast<std::size_t>(i)];
      if (e.form != current) continue;
      if (pick < 0 && !e.control) pick = i;
      if (old_form == current && e.control && e.control == old_control) pick = i;
      if (select_last_ && e.control) pick = i;
    }
    select_last_ = false;
    state_.selected = std::max(pick, 0);
    Code();
  }

  void Code() {
    const TreeEntry* entry = SelectedEntry(state_);
    const auto module = entry ? entry->form->Module() : nullptr;
    const bool had = state_.changes.Any();
    state_.code = module ? module->AllLines() : std::vector<vb::Text>{};
    const auto before = entry ? before_.find(entry->form.get()) : before_.end();
    state_.changes =
        CompareLines(before == before_.end() ? state_.code : before->second, state_.code);
    if (state_.changes.Any() && state_.overlay.empty()) {
      state_.code_first = std::max(state_.changes.First() - 2, 0);
    } else if (had && !state_.changes.Any()) {
      state_.code_first = 0;
    }
  }

  void Paint() {
    state_.command = line_.Text();
    state_.cursor = line_.Cursor();
    if (!line_.Candidates().empty()) {
      std::string all;
      for (const auto& c : line_.Candidates()) all += c + "  ";
      state_.output.push_back(all);
    }
    terminal_.Paint(ComposeScreen(state_, terminal_.Lines(), terminal_.Columns()));
  }

  // Makes the entry the selection and its form the session's.
  void Pick(int index) {
    if (state_.tree.empty()) return;
    state_.selected = std::clamp(index, 0, static_cast<int>(state_.tree.size()) - 1);
    const TreeEntry& entry = *SelectedEntry(state_);
    if (entry.form != runner_.GetSession().CurrentForm()) {
      runner_.Run("form " + vb::ToUtf8(entry.form->FormName()));
    }
    Code();
  }

  void Select(const std::string& words) {
    const vb::Text name = vb::Trim(vb::FromUtf8(words));
    for (int i = 0; i < static_cast<int>(state_.tree.size()); ++i) {
      const TreeEntry& e = state_.tree[static_cast<std::size_t>(i)];
      const vb::Text shown = e.control ? e.control->DisplayName() : e.form->FormName();
      if (vb::SameName(shown, name)) return Pick(i);
    }
    state_.output.push_back("select: no form or control '" + vb::ToUtf8(name) + "'");
  }

  void Tree(Press::Nav nav) {
    const int last = static_cast<int>(state_.tree.size()) - 1;
    switch (nav) {
      case Press::Nav::Up:
        return Pick(state_.selected - 1);
      case Press::Nav::Down:
        return Pick(state_.selected + 1);
      case Press::Nav::Home:
        return Pick(0);
      case Press::Nav::End:
        return Pick(last);
      case Press::Nav::Enter:
      case Press::Nav::Escape:
        state_.focus = Focus::Command;
        return;
      default:
        return;
    }
  }

  void Menu(Press::Nav nav) {
    const int count = static_cast<int>(state_.menu.size());
    if (nav == Press::Nav::Escape || count == 0) {
      state_.focus = Focus::Command;
      return;
    }
    if (nav == Press::Nav::Left || nav == Press::Nav::Up) {
      state_.menu_choice = (state_.menu_choice + count - 1) % count;
    } else if (nav == Press::Nav::Right || nav == Press::Nav::Down) {
      state_.menu_choice = (state_.menu_choice + 1) % count;
    } else if (nav == Press::Nav::Enter) {
      state_.focus = Focus::Command;
      const auto& caption =
          state_.menu[static_cast<std::size_t>(std::min(state_.menu_choice, count - 1))];
      Execute("menu \"" + vb::ToUtf8(caption) + "\"");
    }
  }

  // True when the user may leave now; with changes not saved, asks first.
  bool Leave() {
    if (!runner_.Modified() || !runner_.Project()) return true;
    asking_ = true;
    saved_prompt_ = state_.prompt;
    state_.prompt = LeaveQuestion(*runner_.Project());
    return false;
  }

  // The answer to the question Leave asked; true when the workbench ends.
  bool Answer(const Press& press) {
    asking_ = false;
    state_.prompt = saved_prompt_;
    const LeaveAnswer answer =
        press.kind == Press::Kind::Text ? ParseLeaveAnswer(press.bytes) : LeaveAnswer::Stay;
    if (answer == LeaveAnswer::Discard) return true;
    if (answer == LeaveAnswer::Save) {
      Snapshot();
      const auto saved = Paused([&] { return runner_.Run("save"); });
      Show("save", saved);
      Refresh();
      return saved.ok;
    }
    return false;
  }

  // Completion: actions first, then what each action takes.
  std::vector<std::string> Offer(const std::vector<std::string>& words) {
    if (words.empty()) return ActionVerbs();
    std::vector<std::string> out;
    const std::string& verb = words[0];
    const TreeEntry* entry = SelectedEntry(state_);
    if ((verb == "drop" || verb == "drop-exact") && words.size() == 1) {
      for (const auto& rules : workbench::AllClasses())
        out.push_back(vb::ToUtf8(rules->class_name));
    } else if (verb == "form" && state_.project) {
      for (const auto& form : state_.project->Forms()) out.push_back(vb::ToUtf8(form->FormName()));
    } else if (verb == "menu") {
      for (const auto& caption : state_.menu) out.push_back(vb::ToUtf8(caption));
    } else if (entry && words.size() == 1 &&
               (verb == "delete" || verb == "rename" || verb == "set" || verb == "select")) {
      for (const auto& control : entry->form->Controls()) {
        if (!control->IsDeleted()) out.push_back(vb::ToUtf8(control->DisplayName()));
      }
    } else if (entry && verb == "set" && words.size() == 2) {
      const auto control = entry->form->FindControl(vb::FromUtf8(words[1]));
      if (control) {
        for (const auto& slot : control->Slots()) out.push_back(vb::ToUtf8(slot.name));
      }
    }
    return out;
  }

  ScreenTerminal terminal_;
  ActionRunner runner_;
  CommandLine line_;
  ScreenState state_;
  std::map<const workbench::FormComponent*, std::vector<vb::Text>> before_;
  bool select_last_ = false;
  bool asking_ = false;
  std::string saved_prompt_;
};

}  // namespace

int RunWorkbenchScreen(PromptOptions options) {
  App app(std::move(options));
  app.Loop();
  return 0;
}

}  // namespace tui
