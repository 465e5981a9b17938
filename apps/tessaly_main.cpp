// tessaly: the workbench's command line.
//
//   tessaly run SCRIPT [--trace FILE] [--settings FILE] [--quiet]
//   tessaly interactive [PROJECT.vbp] [--settings FILE]
//   tessaly addins
//
// `run` runs a session script against the workbench IDE with the Tessaly
// add-in loaded, printing a transcript; --trace writes the JSON Lines trace.
// `interactive` gives a prompt for the same IDE actions and shows the add-in's
// dialogs in the terminal. `addins` lists the add-ins the workbench offers.
//
// The workbench's add-in list is the registration record of the component:
// its display name, description and load behaviour are the record's.
#include <CLI/CLI.hpp>

#include <fstream>
#include <iostream>
#include <sstream>

#include "host/connect.hpp"
#include "linux/fontconfig_catalog.hpp"
#include "packaging/registration_record.hpp"
#include "session/addin_list.hpp"
#include "session/session.hpp"
#include "tui/prompt.hpp"
#include "tui/terminal_frontend.hpp"

namespace {

ide::AddInListing TessalyListing() {
  const auto& record = packaging::Registration();
  return {packaging::ProgId(record), record.designer.display_name, record.designer.description,
          static_cast<std::uint32_t>(record.designer.load_behaviour)};
}

// Loads Tessaly into a session as the IDE loads the registered component.
void UseTessaly(session::SessionOptions& options) {
  options.addin = [](forms::Runtime& runtime) { return tessaly::MakeConnectFactory(runtime); };
  options.addin_listing = TessalyListing();
  options.app_title = packaging::Registration().project.name;
}

int RunScript(const std::string& script_path, const std::string& trace_path,
              const std::string& settings_path, bool quiet) {
  std::ifstream in(script_path, std::ios::binary);
  if (!in) {
    std::cerr << "tessaly: cannot open the script " << script_path << '\n';
    return 2;
  }
  std::stringstream text;
  text << in.rdbuf();
  std::ofstream trace_file;
  if (!trace_path.empty()) {
    trace_file.open(trace_path, std::ios::binary | std::ios::trunc);
    if (!trace_file) {
      std::cerr << "tessaly: cannot write the trace " << trace_path << '\n';
      return 2;
    }
  }
  try {
    const auto lines = session::ParseScript(text.str(), script_path);
    session::SessionOptions options;
    options.base_dir = std::filesystem::path(script_path).parent_path();
    if (options.base_dir.empty()) options.base_dir = ".";
    options.settings_file = settings_path;
    options.transcript = quiet ? nullptr : &std::cout;
    options.trace = trace_path.empty() ? nullptr : &trace_file;
    UseTessaly(options);
    session::Session session(std::move(options));
    session.Run(lines);
    if (session.SaveFailed()) {
      std::cerr << "tessaly: a save failed; see the failure in the transcript\n";
      return 1;
    }
  } catch (const std::exception& e) {
    std::cerr << "tessaly: " << e.what() << '\n';
    return 1;
  }
  return 0;
}

int RunInteractive(const std::string& project, const std::string& settings_path) {
  linux_platform::FontconfigCatalog fonts;
  tui::TerminalFrontend terminal(fonts);
  tui::PromptOptions options;
  options.session.settings_file = settings_path;
  options.session.fonts = &fonts;
  options.session.frontend = &terminal;
  UseTessaly(options.session);
  options.project = project;
  options.in = &std::cin;
  options.out = &std::cout;
  try {
    return tui::RunPrompt(std::move(options));
  } catch (const std::exception& e) {
    std::cerr << "tessaly: " << e.what() << '\n';
    return 1;
  }
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{"Tessaly workbench: a stand-in VB6 IDE with the Tessaly add-in"};
  app.require_subcommand(1);
  auto* run = app.add_subcommand("run", "Run a session script");
  std::string script, trace, settings;
  bool quiet = false;
  run->add_option("script", script, "The session script")->required();
  run->add_option("--trace", trace, "Write the JSON Lines trace to this file");
  run->add_option("--settings", settings,
                  "The settings file (default: $XDG_CONFIG_HOME/tessaly/settings.json)");
  run->add_flag("--quiet", quiet, "Print no transcript");
  auto* interactive = app.add_subcommand(
      "interactive", "Work in the workbench at a prompt, dialogs in the terminal");
  std::string project;
  interactive->add_option("project", project, "A project to open first (.vbp)");
  interactive->add_option("--settings", settings,
                          "The settings file (default: $XDG_CONFIG_HOME/tessaly/settings.json)");
  auto* addins = app.add_subcommand("addins", "List the add-ins the workbench offers");
  CLI11_PARSE(app, argc, argv);
  if (addins->parsed()) {
    session::PrintAddInList({TessalyListing()}, std::cout);
    return 0;
  }
  if (interactive->parsed()) return RunInteractive(project, settings);
  return RunScript(script, trace, settings, quiet);
}
