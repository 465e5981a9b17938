#include "session/session.hpp"

#include <algorithm>
#include <cctype>

#include "session/form_state.hpp"
#include "session/project_dump.hpp"
#include "vb/convert.hpp"
#include "workbench/project_loader.hpp"
#include "workbench/project_saver.hpp"

namespace session {

using workbench::CodeEdit;
using workbench::CodeModule;
using workbench::FormComponent;
using workbench::Ide;
using workbench::Project;

namespace {

vb::Text W(const std::string& utf8) { return vb::FromUtf8(utf8); }

[[noreturn]] void Fail(const ScriptLine& line, const std::string& what) {
  throw SessionError(line.origin + ": " + what);
}

void Need(const ScriptLine& line, std::size_t min, std::size_t max, const char* usage) {
  if (line.args.size() < min || line.args.size() > max) Fail(line, std::string("usage: ") + usage);
}

// "Text1" or "Text1(2)".
std::pair<vb::Text, std::optional<vb::Integer>> ControlRef(const ScriptLine& line,
                                                           const std::string& ref) {
  const auto open = ref.find('(');
  if (open == std::string::npos) return {W(ref), std::nullopt};
  if (ref.back() != ')') Fail(line, "bad control reference '" + ref + "'");
  try {
    return {W(ref.substr(0, open)),
            static_cast<vb::Integer>(std::stoi(ref.substr(open + 1, ref.size() - open - 2)))};
  } catch (const std::exception&) {
    Fail(line, "bad control index in '" + ref + "'");
  }
}

// "... [in CONTAINER [tab N]]" after the `words` words of a drop.
workbench::DropTarget DropInto(const ScriptLine& line, const FormComponent& form, std::size_t words,
                               const std::string& usage) {
  const auto& a = line.args;
  Need(line, words, words + 4, (usage + " [in CONTAINER [tab N]]").c_str());
  workbench::DropTarget target;
  if (a.size() == words) return target;
  if (a[words] != "in" || a.size() == words + 1 || a.size() == words + 3 ||
      (a.size() == words + 4 && a[words + 2] != "tab")) {
    Fail(line, "usage: " + usage + " [in CONTAINER [tab N]]");
  }
  auto [name, index] = ControlRef(line, a[words + 1]);
  target.container = form.FindControl(name, index);
  if (!target.container) Fail(line, "the form has no control '" + a[words + 1] + "'");
  if (a.size() == words + 4) {
    try {
      target.tab = std::stoi(a[words + 3]);
    } catch (const std::exception&) {
      Fail(line, "bad tab number '" + a[words + 3] + "'");
    }
  }
  return target;
}

ide::ConnectMode ParseMode(const ScriptLine& line, const std::string& word) {
  if (word == "after-startup") return ide::ConnectMode::AfterStartup;
  if (word == "startup") return ide::ConnectMode::Startup;
  if (word == "external") return ide::ConnectMode::External;
  if (word == "command-line") return ide::ConnectMode::CommandLine;
  Fail(line, "unknown connect mode '" + word + "'");
}

}  // namespace

Session::Session(SessionOptions options)
    : options_(std::move(options)),
      own_fonts_(options_.fonts ? nullptr : std::make_unique<linux_platform::FontconfigCatalog>()),
      fonts_(options_.fonts ? *options_.fonts : *own_fonts_),
      store_(options_.settings_file.empty() ? linux_platform::FileSettingsStore::DefaultPath()
                                            : options_.settings_file),
      frontend_(*this, fonts_),
      runtime_(options_.frontend ? *options_.frontend : frontend_, store_, options_.app_title),
      trace_(options_.trace, options_.transcript),
      ide_(Ide::Create(options_.ide)) {
  runtime_.SetObserver(&trace_);
  ide_->SetObserver(&trace_);
}

Session::~Session() {
  // The IDE shuts down: a connected add-in is disconnected and released
  // before the runtime its dialogs live in goes.
  try {
    if (ide_->AddIn()) ide_->Disconnect(ide::DisconnectMode::HostShutdown);
  } catch (const std::exception&) {
    // Shutting down goes on whatever the add-in says.
  }
  ide_.reset();
}

std::filesystem::path Session::Resolve(const std::string& path) const {
  std::filesystem::path p(path);
  return p.is_absolute() ? p : options_.base_dir / p;
}

void Session::Enter(const ScriptLine& line) {
  trace_.SetLine(line.number);
  trace_.Say("> " + line.text);
}

void Session::Run(const std::vector<ScriptLine>& lines) {
  lines_ = &lines;
  next_ = 0;
  while (next_ < lines.size()) Step(lines[next_++]);
}

void Session::RunLine(const ScriptLine& line) {
  // No script follows the line: a headless dialog finds no user input.
  lines_ = nullptr;
  pending_.clear();
  Step(line);
}

void Session::Step(const ScriptLine& line) {
  Enter(line);
  switch (SortOf(line)) {
    case LineSort::Inspection:
      Inspect(line);
      break;
    case LineSort::User:
      Fail(line, "'" + line.verb +
                     "' is a user action, but no dialog, message box or font service is open");
    case LineSort::Ide:
      try {
        RunUndoable(line);
      } catch (const vb::Failure& failure) {
        if (line.verb == "save") save_failed_ = true;
        trace_.Emit({{"event", "failure"},
                     {"action", line.verb},
                     {"number", failure.Number()},
                     {"description", vb::ToUtf8(failure.Description())}});
      } catch (const forms::InputExhausted& e) {
        throw SessionError(e.what());
      } catch (const forms::ScriptError& e) {
        throw SessionError(e.what());
      }
      ListenToModules();
      break;
  }
}

std::optional<forms::UserAction> Session::Next(forms::Waiting /*waiting*/,
                                               const std::string& description) {
  if (!pending_.empty()) {
    auto action = pending_.front();
    pending_.pop_front();
    return action;
  }
  while (lines_ && next_ < lines_->size()) {
    const ScriptLine& line = (*lines_)[next_];
    const LineSort sort = SortOf(line);
    if (sort == LineSort::Ide) {
      throw forms::InputExhausted(line.origin + ": '" + line.verb + "' is an IDE action, but " +
                                  description + " still waits for the user");
    }
    ++next_;
    Enter(line);
    if (sort == LineSort::Inspection) {
      Inspect(line);
      continue;
    }
    try {
      forms::UserAction action = ToUserAction(line);
      // "key NAME COUNT" presses the key COUNT times.
      int count = 1;
      if (line.verb == "key" && line.args.size() > 1) count = std::stoi(line.args[1]);
      for (int i = 1; i < count; ++i) pending_.push_back(action);
      return action;
    } catch (const std::invalid_argument&) {
      Fail(line, "bad repeat count");
    } catch (const std::runtime_error& e) {
      throw SessionError(e.what());
    }
  }
  return std::nullopt;
}

std::shared_ptr<Project> Session::RequireProject(const ScriptLine& line) const {
  auto project = ide_->ActiveProject();
  if (!project) Fail(line, "no project is open (use 'open' or 'new-project')");
  return project;
}

std::shared_ptr<FormComponent> Session::RequireForm(const ScriptLine& line) const {
  if (!form_) Fail(line, "no form is selected (use 'form' or 'new-form')");
  return form_;
}

void Session::ListenToModules() {
  for (const auto& project : ide_->Projects()) {
    for (const auto& form : project->Forms()) {
      if (auto module = form->Module()) {
        module->SetEditListener(
            [this](const CodeModule& m, const CodeEdit& edit) { trace_.CodeEdited(m, edit); });
      }
    }
  }
}

void Session::RunUndoable(const ScriptLine& line) {
  // Everything one line does (with the dialogs it opens) is one step.
  auto project = ide_->ActiveProject();
  if (!project || line.verb == "undo" || line.verb == "redo") return RunIde(line);
  project->History().Begin(*project);
  try {
    RunIde(line);
  } catch (...) {
    project->History().Commit(*project, line.text);
    throw;
  }
  project->History().Commit(*project, line.text);
}

void Session::UndoRedo(const ScriptLine& line) {
  Need(line, 0, 0, line.verb == "undo" ? "undo" : "redo");
  auto project = RequireProject(line);
  auto& history = project->History();
  const std::string step = line.verb == "undo" ? history.Undo(*project) : history.Redo(*project);
  // The selected form may be one the step added.
  const auto& forms = project->Forms();
  if (std::find(forms.begin(), forms.end(), form_) == forms.end()) {
    form_ = forms.empty() ? nullptr : forms.front();
  }
  trace_.Emit({{"event", line.verb}, {"step", step}});
}

void Session::RunIde(const ScriptLine& line) {
  const std::string& v = line.verb;
  const auto& a = line.args;
  if (v == "open") {
    Need(line, 1, 1, "open PROJECT.vbp");
    const auto path = Resolve(a[0]);
    auto project = workbench::OpenProject(path, options_.code_page);
    ide_->AddProject(project);
    ide_->SetActiveProject(project);
    form_ = project->Forms().empty() ? nullptr : project->Forms().front();
    trace_.Emit({{"event", "opened"}, {"path", path.string()}, {"forms", project->Forms().size()}});
  } else if (v == "new-project") {
    Need(line, 1, 1, "new-project NAME");
    auto project = Project::Create(W(a[0]));
    ide_->AddProject(project);
    ide_->SetActiveProject(project);
    form_ = nullptr;
  } else if (v == "new-form") {
    Need(line, 1, 1, "new-form NAME");
    form_ = RequireProject(line)->AddForm(W(a[0]));
  } else if (v == "form") {
    Need(line, 1, 1, "form NAME");
    auto form = RequireProject(line)->FindForm(W(a[0]));
    if (!form) Fail(line, "the project has no form '" + a[0] + "'");
    form_ = form;
  } else if (v == "connect") {
    Need(line, 0, 2, "connect [MODE] [non-vbe]");
    if (!ide_->AddIn()) {
      if (!options_.addin) Fail(line, "this session has no add-in to connect");
      ide_->LoadAddIn(options_.addin(runtime_));
    }
    ide::ConnectMode mode = ide::ConnectMode::AfterStartup;
    ide::ObjectPtr application;
    for (const auto& word : a) {
      if (word == "non-vbe") {
        application = std::make_shared<ide::Object>();
      } else {
        mode = ParseMode(line, word);
      }
    }
    ide_->Connect(mode, application);
  } else if (v == "disconnect") {
    Need(line, 0, 0, "disconnect");
    ide_->Disconnect();
  } else if (v == "menu") {
    Need(line, 1, 1, "menu CAPTION");
    ide_->ClickMenuEntry(W(a[0]));
  } else if (v == "drop") {
    Need(line, 1, 5, "drop CLASS [in CONTAINER [tab N]]");
    auto form = RequireForm(line);
    form->AddControl(W(a[0]), DropInto(line, *form, 1, "drop CLASS"));
  } else if (v == "drop-exact") {
    Need(line, 2, 6, "drop-exact CLASS NAME [in CONTAINER [tab N]]");
    auto form = RequireForm(line);
    auto target = DropInto(line, *form, 2, "drop-exact CLASS NAME");
    form->AddControlExact(W(a[0]), W(a[1]), target);
  } else if (v == "delete") {
    Need(line, 1, 1, "delete CONTROL");
    auto [name, index] = ControlRef(line, a[0]);
    RequireForm(line)->DeleteControl(name, index);
  } else if (v == "rename") {
    Need(line, 2, 2, "rename CONTROL NEWNAME");
    auto [name, index] = ControlRef(line, a[0]);
    RequireForm(line)->RenameControl(name, W(a[1]), index);
  } else if (v == "set") {
    Need(line, 3, 3, "set CONTROL PROPERTY VALUE");
    auto form = RequireForm(line);
    auto [name, index] = ControlRef(line, a[0]);
    auto control = form->FindControl(name, index);
    if (!control) Fail(line, "the form has no control '" + a[0] + "'");
    form->SetPropertyFromSheet(*control, W(a[1]), W(a[2]));
  } else if (v == "code") {
    if (a.empty())
      Fail(line, "usage: code add TEXT | code insert LINE TEXT | code delete FIRST COUNT");
    auto form = RequireForm(line);
    auto module = form->Module();
    if (!module) Fail(line, "form '" + vb::ToUtf8(form->FormName()) + "' has no code module");
    if (a[0] == "add") {
      Need(line, 2, 2, "code add TEXT");
      module->InsertLines(module->CountOfLines() + 1, W(a[1]));
    } else if (a[0] == "insert") {
      Need(line, 3, 3, "code insert LINE TEXT");
      module->InsertLines(std::stoi(a[1]), W(a[2]));
    } else if (a[0] == "delete") {
      Need(line, 3, 3, "code delete FIRST COUNT");
      module->DeleteLines(std::stoi(a[1]), std::stoi(a[2]));
    } else {
      Fail(line, "code takes add, insert or delete");
    }
  } else if (v == "undo" || v == "redo") {
    UndoRedo(line);
  } else if (v == "refuse") {
    Refuse(line);
  } else if (v == "store" || v == "unstore") {
    Store(line);
  } else if (v == "fonts") {
    Fonts(line);
  } else if (v == "save") {
    Need(line, 0, 1, "save [PATH.vbp]");
    auto project = RequireProject(line);
    const auto saved = a.empty() ? workbench::SaveProject(*project)
                                 : workbench::SaveProject(*project, Resolve(a[0]));
    trace_.Emit({{"event", "saved"},
                 {"path", saved.vbp_path.string()},
                 {"written", saved.files_written},
                 {"backup", saved.backup ? Json(saved.backup->string() + "/") : Json()}});
  }
}

void Session::Refuse(const ScriptLine& line) {
  const auto& a = line.args;
  Need(line, 3, 4, "refuse CONTROL|next PROPERTY \"DESCRIPTION\" [always]");
  workbench::Refusal refusal{W(a[0]), W(a[1]), W(a[2])};
  if (a.size() == 4) {
    if (a[3] != "always") Fail(line, "the last word of 'refuse' can only be 'always'");
    refusal.always = true;
  }
  if (a[0] != "next") {
    ide_->InjectRefusal(refusal);
    return;
  }
  // "Next" is no control name VB allows: the next control dropped, which
  // joins the active project.
  refusal.control.clear();
  refusal.next_added = true;
  RequireProject(line)->InjectRefusal(std::move(refusal));
}

void Session::Store(const ScriptLine& line) {
  const auto& a = line.args;
  Json event;
  if (line.verb == "store") {
    Need(line, 4, 4, "store APP SECTION KEY TEXT");
    store_.Save(W(a[0]), W(a[1]), W(a[2]), W(a[3]));
    event = {{"event", "store_set"}, {"text", a[3]}};
  } else {
    Need(line, 3, 3, "unstore APP SECTION KEY");
    event = {{"event", "store_removed"}, {"existed", store_.Remove(W(a[0]), W(a[1]), W(a[2]))}};
  }
  event["app"] = a[0];
  event["section"] = a[1];
  event["key"] = a[2];
  trace_.Emit(std::move(event));
}

void Session::Fonts(const ScriptLine& line) {
  const auto& a = line.args;
  if (a.empty() || (a[0] != "add" && a[0] != "only")) {
    Fail(line, "usage: fonts add|only \"FAMILY\" ...");
  }
  // A front end of its own (a terminal) offers the system's fonts.
  if (options_.frontend) Fail(line, "'fonts' applies to the scripted font service only");
  std::vector<vb::Text> families;
  for (std::size_t i = 1; i < a.size(); ++i) families.push_back(W(a[i]));
  if (a[0] == "add") {
    fonts_.Add(families);
  } else {
    fonts_.Only(std::move(families));
  }
}

void Session::Inspect(const ScriptLine& line) {
  if (line.verb == "echo") {
    trace_.Say(line.args.empty() ? std::string() : line.args[0]);
  } else if (line.verb == "mark") {
    Need(line, 1, 1, "mark \"TEXT\"");
    trace_.Emit({{"event", "mark"}, {"text", line.args[0]}});
  } else if (line.verb == "dump") {
    auto project = ide_->ActiveProject();
    Json dump = project ? Json(DumpProject(*project)) : Json();
    trace_.Emit({{"event", "dump"}, {"project", dump}});
  } else if (line.verb == "listing") {
    // The selected form's code, line by line.
    Json lines = Json::array();
    if (form_ && form_->Module()) {
      for (const auto& text : form_->Module()->AllLines()) lines.push_back(vb::ToUtf8(text));
    }
    trace_.Emit({{"event", "listing"},
                 {"form", form_ ? vb::ToUtf8(form_->FormName()) : std::string()},
                 {"lines", std::move(lines)}});
  } else if (line.verb == "state") {
    forms::Form* form = runtime_.ActiveForm();
    Json event{{"event", "state"}, {"state", form ? Json(FormState(*form)) : Json()}};
    if (const forms::MessageBox* box = frontend_.WaitingMessageBox()) {
      event["msgbox"] = MessageBoxState(*box);
    }
    trace_.Emit(std::move(event));
  }
}

}  // namespace session
