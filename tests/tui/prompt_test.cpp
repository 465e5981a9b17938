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

class PromptTest : public ::testing::Test {
 protected:
  void SetUp() override {
    static std::atomic<int> counter{0};
    dir_ = std::filesystem::temp_directory_path() /
           ("tessaly-prompt-" + std::to_string(::getpid()) + "-" + std::to_string(++counter));
    std::filesystem::create_directories(dir_);
  }
  void TearDown() override { std::filesystem::remove_all(dir_); }

  // Runs the prompt on `input`; returns what it printed.
  std::string Run(const std::string& input, const std::string& project = {}) {
    std::istringstream in(input);
    std::ostringstream out;
    PromptOptions options;
    options.session.settings_file = dir_ / "settings.json";
    options.session.base_dir = dir_;
    options.session.fonts = &fonts_;
    options.session.frontend = &frontend_;
    options.session.addin = [](forms::Runtime& runtime) -> ide::AddInFactory {
      return [&runtime] { return std::make_unique<AskingAddIn>(runtime); };
    };
    options.session.addin_listing.load_behavior = load_behavior_;
    options.project = project;
    options.in = &in;
    options.out = &out;
    status_ = RunPrompt(std::move(options));
    return out.str();
  }

  static int Count(const std::string& text, const std::string& part) {
    int n = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++n;
    return n;
  }

  std::filesystem::path dir_;
  forms::testing::FixedFonts fonts_{{u"Arial"}};
  testing::ScriptedFrontend frontend_;
  int status_ = -1;
  std::uint32_t load_behavior_ = 0;
};

TEST_F(PromptTest, RunsIdeActionsAndPrintsWhatHappenedWithoutEchoingTheLine) {
  const std::string out = Run("new-project P\nnew-form Form1\ndrop CheckBox\ndump\n");
  EXPECT_EQ(status_, 0);
  EXPECT_NE(out.find("tessaly> "), std::string::npos);
  EXPECT_NE(out.find("IDE: added \"CheckBox\""), std::string::npos);
  EXPECT_NE(out.find("CheckBox Check1:"), std::string::npos);
  EXPECT_EQ(out.find("> drop CheckBox"), std::string::npos);
  // The end of input ends the prompt: four lines, five prompts.
  EXPECT_EQ(Count(out, "tessaly> "), 5);
}

TEST_F(PromptTest, AMistakeIsReportedAndThePromptGoesOn) {
  const std::string out =
      Run("drop\n"
          "frobnicate now\n"
          "type \"x\"\n"
          "echo \"unclosed\n"
          "new-project P\n"
          "drop CheckBox\n"
          "dump\n");
  EXPECT_NE(out.find("usage: drop CLASS"), std::string::npos);
  EXPECT_NE(out.find("unknown action 'frobnicate' (help lists the actions)"), std::string::npos);
  EXPECT_NE(out.find("'type' is a user action"), std::string::npos);
  EXPECT_NE(out.find("text not closed by a double quote"), std::string::npos);
  EXPECT_NE(out.find("no form is selected"), std::string::npos);
  EXPECT_NE(out.find("project P"), std::string::npos);
}

TEST_F(PromptTest, HelpListsTheActionsAndQuitEnds) {
  const std::string out = Run("help\nquit\nnew-project P\ndump\n");
  EXPECT_NE(out.find("drop CLASS"), std::string::npos);
  EXPECT_NE(out.find("dump"), std::string::npos);
  EXPECT_EQ(out.find("project P"), std::string::npos);
  EXPECT_EQ(Count(out, "tessaly> "), 2);
}

TEST_F(PromptTest, DialogsGoToTheFrontEndTheSessionWasGiven) {
  frontend_.answers.push_back(forms::vbNo);
  const std::string out = Run("new-project P\nconnect\n");
  EXPECT_EQ(frontend_.prompts, (std::vector<std::string>{"Ready?"}));
  EXPECT_NE(out.find("message box \"Asking\": \"Ready?\" -> No"), std::string::npos);
}

TEST_F(PromptTest, AnAddInRegisteredForStartupConnectsBeforeTheFirstPrompt) {
  load_behavior_ = ide::kLoadAtStartup;
  frontend_.answers.push_back(forms::vbYes);
  const std::string out = Run("quit\n");
  EXPECT_EQ(frontend_.prompts, (std::vector<std::string>{"Ready?"}));
  EXPECT_LT(out.find("Ready?"), out.find("tessaly> ")) << out;
}

TEST_F(PromptTest, AProjectThatCannotBeOpenedEndsThePromptAtOnce) {
  const std::string out = Run("new-project P\n", (dir_ / "missing.vbp").string());
  EXPECT_EQ(status_, 1);
  EXPECT_NE(out.find("FAILED: open (53)"), std::string::npos) << out;
  EXPECT_EQ(out.find("tessaly> "), std::string::npos);
}

}  // namespace
}  // namespace tui
