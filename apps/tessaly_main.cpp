// tessaly: the workbench's command line.
//
//   tessaly run SCRIPT [--trace FILE] [--settings FILE] [--quiet]
//   tessaly interactive [PROJECT.vbp] [--settings FILE] [--trace FILE] [--quiet|--verbose]
//                       [--codepage N]
//   tessaly addins
//   tessaly roundtrip PROJECT.vbp|FORM.frm... [--codepage N]
//   tessaly check PROJECT.vbp [--codepage N]
//
// `run` runs a session script against the workbench IDE with the Tessaly
// add-in loaded, printing a transcript; --trace writes the JSON Lines trace.
// `interactive` gives the workbench screen (project tree, form, code,
// properties, a command line for the same IDE actions) and shows the add-in's
// dialogs in the terminal; a plain prompt when standard input or output is not
// a terminal. `addins` lists the add-ins the workbench offers.
// `roundtrip` writes projects or forms into memory and reports every file
// whose bytes would differ (exit status 1 when one would). `check` reports
// event procedures left without their control, and default control names.
// --codepage gives the ANSI code page projects are read in (1252, 932, 936,
// 949, 950) where the one the files say is wrong.
//
// The workbench's add-in list is the registration record of the component:
// its display name, description and load behaviour are the record's.
#include <CLI/CLI.hpp>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <system_error>

#include <unistd.h>

#include "host/connect.hpp"
#include "linux/fontconfig_catalog.hpp"
#include "packaging/registration_record.hpp"
#include "session/addin_list.hpp"
#include "session/session.hpp"
#include "tui/prompt.hpp"
#include "tui/terminal_frontend.hpp"
#include "tui/workbench_app.hpp"
#include "vbfiles/code_page.hpp"
#include "workbench/project_report.hpp"

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

// Prints what the round trip of each path found; 1 when a byte would differ.
int RunRoundTrip(const std::vector<std::string>& paths,
                 const std::optional<vbfiles::CodePage>& code_page) {
  int status = 0;
  for (const auto& path : paths) {
    try {
      const auto differences = workbench::RoundTrip(path, code_page);
      for (const auto& d : differences) {
        std::cout << path << ": " << d.file << " line " << d.line << "\n  expected: " << d.expected
                  << "\n  got:      " << d.got << '\n';
      }
      if (differences.empty()) std::cout << path << ": every byte the same\n";
      if (!differences.empty()) status = 1;
    } catch (const std::exception& e) {
      std::cerr << "tessaly: " << path << ": " << e.what() << '\n';
      status = 1;
    }
  }
  return status;
}

int RunCheck(const std::string& path, const std::optional<vbfiles::CodePage>& code_page) {
  try {
    for (const auto& finding : workbench::CheckProject(path, code_page)) {
      std::cout << finding.file;
      if (finding.line != 0) std::cout << " line " << finding.line;
      std::cout << ": " << finding.text << '\n';
    }
  } catch (const std::exception& e) {
    std::cerr << "tessaly: " << path << ": " << e.what() << '\n';
    return 1;
  }
  return 0;
}

// "No space left on device" for an errno value; 0 is a failure the system
// gave no reason for.
std::string Reason(int error) {
  return error != 0 ? std::error_code(error, std::generic_category()).message()
                    : "the system gave no reason";
}

// Closes the trace file and flushes the transcript: 0 when everything
// written reached them, else 1 with a message naming what could not be
// written and why. A full disk often shows only here, when the last buffer
// goes out.
int FinishOutputs(const session::Trace& trace, std::ofstream& trace_file,
                  const std::string& trace_path, bool transcript) {
  int status = 0;
  auto check = [&status](bool failed, int error_seen, const std::string& what) {
    if (!failed) return;
    std::cerr << "tessaly: cannot write " << what << ": "
              << Reason(error_seen != 0 ? error_seen : errno) << '\n';
    status = 1;
  };
  if (!trace_path.empty()) {
    errno = 0;
    trace_file.close();
    check(trace_file.fail(), trace.TraceError(), "the trace " + trace_path);
  }
  if (transcript) {
    errno = 0;
    std::cout.flush();
    check(std::cout.fail(), trace.TranscriptError(), "the transcript (standard output)");
  }
  return status;
}

int RunScript(const std::string& script_path, const std::string& trace_path,
              const std::string& settings_path, bool quiet,
              const std::optional<vbfiles::CodePage>& code_page) {
  std::error_code ec;
  if (std::filesystem::is_directory(script_path, ec)) {
    std::cerr << "tessaly: " << script_path << " is a folder, not a session script\n";
    return 2;
  }
  std::ifstream in(script_path, std::ios::binary);
  if (!in) {
    std::cerr << "tessaly: cannot open the script " << script_path << ": "
              << std::error_code(errno, std::generic_category()).message() << '\n';
    return 2;
  }
  std::stringstream text;
  text << in.rdbuf();
  if (in.bad()) {
    std::cerr << "tessaly: cannot read the script " << script_path << '\n';
    return 2;
  }
  std::ofstream trace_file;
  if (!trace_path.empty()) {
    trace_file.open(trace_path, std::ios::binary | std::ios::trunc);
    if (!trace_file) {
      std::cerr << "tessaly: cannot write the trace " << trace_path << ": " << Reason(errno)
                << '\n';
      return 2;
    }
  }
  try {
    const auto lines = session::ParseScript(text.str(), script_path);
    session::SessionOptions options;
    options.base_dir = std::filesystem::path(script_path).parent_path();
    if (options.base_dir.empty()) options.base_dir = ".";
    options.settings_file = settings_path;
    options.code_page = code_page;
    options.transcript = quiet ? nullptr : &std::cout;
    options.trace = trace_path.empty() ? nullptr : &trace_file;
    UseTessaly(options);
    session::Session session(std::move(options));
    session.Run(lines);
    if (FinishOutputs(session.GetTrace(), trace_file, trace_path, !quiet) != 0) return 1;
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

struct InteractiveArgs {
  std::string project;
  std::string settings;
  std::string trace;
  tui::Verbosity verbosity = tui::Verbosity::Normal;
  std::optional<vbfiles::CodePage> code_page;
};

int RunInteractive(const InteractiveArgs& args) {
  std::ofstream trace_file;
  if (!args.trace.empty()) {
    trace_file.open(args.trace, std::ios::binary | std::ios::trunc);
    if (!trace_file) {
      std::cerr << "tessaly: cannot write the trace " << args.trace << '\n';
      return 2;
    }
  }
  linux_platform::FontconfigCatalog fonts;
  tui::TerminalFrontend terminal(fonts);
  tui::PromptOptions options;
  options.session.settings_file = args.settings;
  options.session.fonts = &fonts;
  options.session.frontend = &terminal;
  options.session.code_page = args.code_page;
  options.session.trace = args.trace.empty() ? nullptr : &trace_file;
  UseTessaly(options.session);
  options.project = args.project;
  options.verbosity = args.verbosity;
  options.in = &std::cin;
  options.out = &std::cout;
  try {
    // The screen needs a terminal both ways; piped input gets the prompt.
    if (isatty(STDIN_FILENO) && isatty(STDOUT_FILENO)) {
      return tui::RunWorkbenchScreen(std::move(options));
    }
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
  InteractiveArgs interactive_args;
  bool interactive_quiet = false, verbose = false;
  interactive->add_option("project", interactive_args.project, "A project to open first (.vbp)");
  interactive->add_option("--settings", interactive_args.settings,
                          "The settings file (default: $XDG_CONFIG_HOME/tessaly/settings.json)");
  interactive->add_option("--trace", interactive_args.trace,
                          "Write the JSON Lines trace to this file");
  auto* quiet_flag = interactive->add_flag("--quiet", interactive_quiet,
                                           "Show only failures and the answers asked for");
  interactive->add_flag("--verbose", verbose, "Also show settings read and focus moves")
      ->excludes(quiet_flag);
  auto* addins = app.add_subcommand("addins", "List the add-ins the workbench offers");
  auto* roundtrip = app.add_subcommand(
      "roundtrip", "Read and write projects or forms in memory; report every byte that differs");
  std::vector<std::string> roundtrip_paths;
  roundtrip->add_option("files", roundtrip_paths, "Projects (.vbp) or forms (.frm)")->required();
  auto* check = app.add_subcommand(
      "check", "Report event procedures without their control, and default control names");
  std::string check_path;
  check->add_option("project", check_path, "The project (.vbp)")->required();
  int code_page_number = 0;
  const std::string code_page_help = "The projects' ANSI code page: 1252, 932, 936, 949 or 950";
  for (auto* command : {run, interactive, roundtrip, check}) {
    command->add_option("--codepage", code_page_number, code_page_help);
  }
  CLI11_PARSE(app, argc, argv);
  std::optional<vbfiles::CodePage> code_page;
  if (code_page_number != 0) {
    code_page = vbfiles::CodePage::FromNumber(code_page_number);
    if (!code_page) {
      std::cerr << "tessaly: code page " << code_page_number << " is not supported\n";
      return 2;
    }
  }
  if (roundtrip->parsed()) return RunRoundTrip(roundtrip_paths, code_page);
  if (check->parsed()) return RunCheck(check_path, code_page);
  if (addins->parsed()) {
    session::PrintAddInList({TessalyListing()}, std::cout);
    return 0;
  }
  if (interactive->parsed()) {
    interactive_args.code_page = code_page;
    if (interactive_quiet) interactive_args.verbosity = tui::Verbosity::Quiet;
    if (verbose) interactive_args.verbosity = tui::Verbosity::Verbose;
    return RunInteractive(interactive_args);
  }
  return RunScript(script, trace, settings, quiet, code_page);
}
