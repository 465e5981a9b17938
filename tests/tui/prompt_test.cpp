#include "tui/prompt.hpp"

#include <atomic>
#include <filesystem>
#include <sstream>

#include <gtest/gtest.h>

#include "forms/runtime.hpp"
#include "ide/addin.hpp"
#include "tui_harness.hpp"

namespace tui {
namespace {

// An add-in that asks the user one question when it connects, so a test can
// see which front end the session's dialogs go to.
class AskingAddIn : public ide::AddIn {
 public:
  explicit AskingAddIn(forms::Runtime& runtime) : runtime_(&runtime) {}
  void OnConnection(const ide::ObjectPtr&, ide::ConnectMode, const ide::ObjectPtr&,
                    std::vector<vb::Value>&) override {
    runtime_->MsgBox(u"Ready?", forms::vbYesNo, u"Asking");
  }
  void OnDisconnection(ide::DisconnectMode, std::vector<vb::Value>&) override {}

 private:
  forms::Runtime* runtime_;
};

// Parts of the output are "|"-separated; "-" starts one that must be missing.
struct PromptCase {
  const char* name;
  const char* input;
  const char* parts;
  int prompts;                     // how often "tessaly> " is printed
  const char* asked = "";          // the message box shown, if any
  const char* before_prompt = "";  // printed before the first prompt
  std::uint32_t load_behavior = 0;
  const char* project = nullptr;  // in the test's folder
  int status = 0;
  Verbosity verbosity = Verbosity::Normal;
};
void PrintTo(const PromptCase& c, std::ostream* os) { *os << c.name; }

class PromptTest : public ::testing::TestWithParam<PromptCase> {
 protected:
  void SetUp() override {
    static std::atomic<int> counter{0};
    dir_ = std::filesystem::temp_directory_path() /
           ("tessaly-prompt-" + std::to_string(::getpid()) + "-" + std::to_string(++counter));
    std::filesystem::create_directories(dir_);
  }
  void TearDown() override { std::filesystem::remove_all(dir_); }

  std::filesystem::path dir_;
  forms::testing::FixedFonts fonts_{{u"Arial"}};
  testing::ScriptedFrontend frontend_;
};

TEST_P(PromptTest, PrintsWhatHappened) {
  const PromptCase& c = GetParam();
  std::istringstream in(c.input);
  std::ostringstream out;
  PromptOptions options;
  options.session.settings_file = dir_ / "settings.json";
  options.session.base_dir = dir_;
  options.session.fonts = &fonts_;
  options.session.frontend = &frontend_;
  options.session.addin = [](forms::Runtime& runtime) -> ide::AddInFactory {
    return [&runtime] { return std::make_unique<AskingAddIn>(runtime); };
  };
  options.session.addin_listing.load_behavior = c.load_behavior;
  if (c.project) options.project = (dir_ / c.project).string();
  options.in = &in;
  options.out = &out;
  options.verbosity = c.verbosity;
  frontend_.answers = {forms::vbNo};
  EXPECT_EQ(RunPrompt(std::move(options)), c.status);
  const std::string text = out.str();
  std::istringstream parts(c.parts);
  for (std::string part; std::getline(parts, part, '|');) {
    if (part.starts_with('-')) {
      EXPECT_EQ(text.find(part.substr(1)), std::string::npos) << part << " in\n" << text;
    } else {
      EXPECT_NE(text.find(part), std::string::npos) << part << " not in\n" << text;
    }
  }
  int prompts = 0;
  for (auto at = text.find("tessaly> "); at != std::string::npos;
       at = text.find("tessaly> ", at + 1)) {
    ++prompts;
  }
  EXPECT_EQ(prompts, c.prompts) << text;
  EXPECT_NE(text.substr(0, text.find("tessaly> ")).find(c.before_prompt), std::string::npos);
  EXPECT_EQ(frontend_.prompts,
            *c.asked ? std::vector<std::string>{c.asked} : std::vector<std::string>{});
}

INSTANTIATE_TEST_SUITE_P(
    Inputs, PromptTest,
    ::testing::Values(
        // The end of input ends the prompt; the line typed is not echoed.
        PromptCase{"RunsIdeActions", "new-project P\nnew-form Form1\ndrop CheckBox\ndump\n",
                   "IDE: added \"CheckBox\"|CheckBox Check1:|-> drop CheckBox", 5},
        PromptCase{"AMistakeIsReportedAndThePromptGoesOn",
                   "drop\nfrobnicate now\ntype \"x\"\necho \"unclosed\nnew-project P\n"
                   "drop CheckBox\necho \"\\u12zz\"\necho \"\\u-001\"\ndump\n",
                   "usage: drop CLASS|unknown action 'frobnicate' (help lists the actions)|"
                   "'type' is a user action|text not closed by a double quote|"
                   "no form is selected|bad \\u escape '\\u12zz'|bad \\u escape '\\u-001'|"
                   "project P",
                   10},
        PromptCase{"HelpListsTheActionsAndQuitEnds", "help\nquit\nnew-project P\ndump\n",
                   "drop CLASS|dump|-project P", 2},
        PromptCase{"DialogsGoToTheGivenFrontEnd", "new-project P\nconnect\n",
                   "message box \"Asking\": \"Ready?\" -> No", 3, "Ready?"},
        PromptCase{"AStartupAddInConnectsBeforeTheFirstPrompt", "quit\n", "", 1, "Ready?", "Ready?",
                   ide::kLoadAtStartup},
        // A missing project is reported and the prompt goes on without it.
        PromptCase{"AProjectThatCannotBeOpenedKeepsThePrompt", "new-project P\ndump\n", "project P",
                   3, "", "FAILED: open (53)", 0, "missing.vbp"},
        // Leaving with changes asks; an answer other than save or discard stays.
        PromptCase{"QuitWithChangesAsksAndMayStay",
                   "new-project P\nnew-form F\nquit\n\necho \"still\"\nexit\nd\n",
                   "has changes that are not saved|still", 5},
        PromptCase{"QuietShowsOnlyAnswersAndFailures",
                   "new-project P\nnew-form F\ndrop CheckBox\ndelete Nothing\ndump\nquit\nd\n",
                   "-IDE: added|FAILED: delete|CheckBox Check1:", 6, "", "", 0, nullptr, 0,
                   Verbosity::Quiet}),
    forms::testing::ByName());

}  // namespace
}  // namespace tui
