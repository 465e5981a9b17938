// A session: the workbench IDE, the forms runtime with the headless front end,
// the settings store and an add-in, driven by a script of IDE and user actions,
// with everything recorded in a trace.
//
// A session may instead be given another front end (a terminal) and be driven
// one line at a time with RunLine: the user then answers dialogs through that
// front end, and script lines carry IDE actions and inspections only.
//
// IDE actions run when their line is reached. When the add-in shows a dialog,
// a message box or the font service, the front end takes the following lines
// as the user's actions until it closes; an IDE action while something waits
// for the user, or a user action while nothing does, is an error in the
// script and ends the session. A failure that comes out of an IDE action (the
// add-in's event failed, or the IDE refused the action) is recorded as a
// "failure" event and the session goes on.
#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <vector>

#include "forms/headless.hpp"
#include "forms/runtime.hpp"
#include "ide/addin.hpp"
#include "linux/file_settings_store.hpp"
#include "linux/fontconfig_catalog.hpp"
#include "session/script_fonts.hpp"
#include "session/session_script.hpp"
#include "session/trace.hpp"
#include "vbfiles/code_page.hpp"
#include "workbench/ide.hpp"

namespace session {

// An error in the script or in what it asks for: it names the line.
class SessionError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct SessionOptions {
  // Relative paths in the script are taken from here.
  std::filesystem::path base_dir = ".";
  // The settings store's file.
  std::filesystem::path settings_file;
  std::ostream* transcript = nullptr;
  std::ostream* trace = nullptr;
  workbench::IdeOptions ide;
  // How to make the add-in, given the session's forms runtime, and what the
  // IDE's add-in list shows of it.
  std::function<ide::AddInFactory(forms::Runtime&)> addin;
  ide::AddInListing addin_listing;
  // Font families; the system's (fontconfig) when null. The script's
  // `fonts` lines change what the headless font service offers of them.
  forms::FontCatalog* fonts = nullptr;
  // What a message box shows when its caller gives no title.
  vb::Text app_title = u"Vorrel";
  // The front end that shows the add-in's dialogs; the headless one, fed
  // from the script's user lines, when null. Must outlive the session.
  forms::Frontend* frontend = nullptr;
  // The code page projects are opened in; the one their files say when none.
  std::optional<vbfiles::CodePage> code_page;
};

class Session : private forms::ActionSource {
 public:
  explicit Session(SessionOptions options);
  ~Session() override;

  // Runs the lines in order. Throws SessionError for a script error.
  void Run(const std::vector<ScriptLine>& lines);
  // Runs one IDE action or inspection on its own, as a prompt does. A user
  // line is an error here: dialogs take their input from the front end.
  // Throws SessionError for an error in the line; the session stays usable.
  void RunLine(const ScriptLine& line);

  const Trace& GetTrace() const { return trace_; }
  workbench::Ide& GetIde() { return *ide_; }
  forms::Runtime& GetRuntime() { return runtime_; }
  std::shared_ptr<workbench::FormComponent> CurrentForm() const { return form_; }
  // Whether a `save` failed: the session went on, but its run did not succeed.
  bool SaveFailed() const { return save_failed_; }

 private:
  std::optional<forms::UserAction> Next(forms::Waiting waiting,
                                        const std::string& description) override;
  void Step(const ScriptLine& line);
  // Runs an IDE line as one step of the active project's undo history.
  void RunUndoable(const ScriptLine& line);
  void RunIde(const ScriptLine& line);
  void UndoRedo(const ScriptLine& line);
  void Inspect(const ScriptLine& line);
  void Refuse(const ScriptLine& line);
  void Store(const ScriptLine& line);
  void Fonts(const ScriptLine& line);
  void Enter(const ScriptLine& line);
  std::shared_ptr<workbench::Project> RequireProject(const ScriptLine& line) const;
  std::shared_ptr<workbench::FormComponent> RequireForm(const ScriptLine& line) const;
  void ListenToModules();
  std::filesystem::path Resolve(const std::string& path) const;

  SessionOptions options_;
  std::unique_ptr<forms::FontCatalog> own_fonts_;
  ScriptFonts fonts_;
  linux_platform::FileSettingsStore store_;
  forms::HeadlessFrontend frontend_;
  forms::Runtime runtime_;
  Trace trace_;
  std::shared_ptr<workbench::Ide> ide_;
  std::shared_ptr<workbench::FormComponent> form_;
  const std::vector<ScriptLine>* lines_ = nullptr;
  std::size_t next_ = 0;
  std::deque<forms::UserAction> pending_;
  bool save_failed_ = false;
};

}  // namespace session
