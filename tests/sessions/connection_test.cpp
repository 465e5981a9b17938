// Connecting the add-in to the IDE, as a user sees it: the menu entry, the
// settings, and what stands after each way a connection can fail.
#include "sessions/session_harness.hpp"

namespace sessions {
namespace {

class ConnectionTest : public SessionTest {
 protected:
  // The settings read, "key=text" each, all from the add-in's own section.
  Lines Reads() const {
    Lines reads;
    for (const auto& r : Events("setting_read")) {
      EXPECT_EQ(r["app"].get<std::string>() + "/" + r["section"].get<std::string>(),
                "Vorrel/Options");
      reads.push_back(r["key"].get<std::string>() + "=" + r["text"].get<std::string>());
    }
    return reads;
  }
};

TEST_F(ConnectionTest, EmptyStoreTurnsEveryFlagOn) {
  Run(std::string(kConnected) + "disconnect\n");
  ASSERT_EQ(Events("menu_caption").size(), 1u);
  EXPECT_EQ(Events("menu_caption")[0]["caption"], "&Tessaly Options");
  EXPECT_EQ(Events("menu_removed").size(), 1u);
  Lines expected;
  for (int i = 0; i < 17; ++i) expected.push_back("UseCtl" + std::to_string(i) + "=1");
  expected.insert(expected.end(), {"RemoveCode=1", "RenameCode=1"});
  EXPECT_EQ(Reads(), expected);
}

TEST_F(ConnectionTest, ABadStoredFlagIsReportedAndNoControlEventsArrive) {
  Run("store Vorrel Options UseCtl3 \"perhaps\"\n"
      "new-project P\nnew-form Form1\nconnect\n"
      "answer OK\n"
      "drop CheckBox\n"
      // The menu still works; the list is empty since the names were never built.
      "menu \"&Tessaly Options\"\n"
      "state\n"
      "click cmdOK\n");
  EXPECT_EQ(MessageBoxes(), "(Vorrel) [0]: Type mismatch");
  // The load stops at the bad flag: UseCtl4 and the code flags are never read.
  EXPECT_EQ(Reads(), (Lines{"UseCtl0=1", "UseCtl1=1", "UseCtl2=1", "UseCtl3=perhaps",
                            "FontName=Times New Roman"}));
  EXPECT_EQ(Titles(), Lines{"Tessaly Options"}) << "only the options dialog opens";
  EXPECT_TRUE(Control("lstControls")["rows"].empty());
  EXPECT_TRUE(Events("setting_written").empty());
}

TEST_F(ConnectionTest, AnApplicationThatIsNoIdeLeavesNothing) {
  Run("new-project P\nnew-form Form1\nconnect non-vbe\nanswer OK\ndrop CheckBox\ndisconnect\n");
  EXPECT_EQ(MessageBoxes(), "(Vorrel) [0]: Type mismatch");
  EXPECT_TRUE(Events("menu_added").empty());
  EXPECT_TRUE(Events("setting_read").empty());
  EXPECT_TRUE(Events("form_shown").empty());
  EXPECT_TRUE(Events("failure").empty()) << "disconnection reports nothing";
}

TEST_F(ConnectionTest, WithoutAnAddInsBarTheRefusedSubscriptionIsReported) {
  ide_options_.add_ins_bar = false;
  Run(std::string(kConnected) + "answer OK\ndrop CheckBox\ndisconnect\n");
  EXPECT_EQ(MessageBoxes(), "(Vorrel) [0]: Object variable or With block variable not set")
      << "the missing bar itself is silent";
  EXPECT_TRUE(Events("setting_read").empty()) << "settings are not loaded";
  EXPECT_TRUE(Events("form_shown").empty());
}

TEST_F(ConnectionTest, NoProjectOpenLeavesTheMenuWorking) {
  Run("connect\nanswer OK\nmenu \"&Tessaly Options\"\nclose\n");
  EXPECT_EQ(MessageBoxes(), "(Vorrel) [0]: Object variable or With block variable not set");
  EXPECT_EQ(Events("setting_read").size(), 19u + 1u) << "settings loaded, then the font name";
  EXPECT_EQ(Titles(), Lines{"Tessaly Options"});
}

TEST_F(ConnectionTest, EveryConnectModeRunsTheSameSteps) {
  for (const char* mode : {"startup", "external", "command-line"}) {
    Run(std::string("new-project P\nnew-form Form1\nconnect ") + mode + "\n");
    EXPECT_EQ(Events("menu_caption").size(), 1u) << mode;
    EXPECT_EQ(Events("setting_read").size(), 19u) << mode;
  }
}

TEST_F(ConnectionTest, AProjectOpenedLaterGetsNoSubscription) {
  Run(std::string(kConnected) +
      "new-project Second\nnew-form Form2\ndrop CheckBox\n"
      "form Form2\n");
  EXPECT_TRUE(Events("form_shown").empty());
  EXPECT_EQ(Events("control_added").size(), 1u);
}

TEST_F(ConnectionTest, AScriptThatLeavesADialogOpenEndsWithAClearError) {
  std::string error;
  Run(std::string(kConnected) + "drop CheckBox\ntype \"x\"\n", &error);
  EXPECT_NE(error.find("dialog 'New CheckBox Control'"), std::string::npos) << error;
  Run(std::string(kConnected) + "drop CheckBox\ndrop CheckBox\n", &error);
  EXPECT_NE(error.find("test:5: 'drop' is an IDE action"), std::string::npos) << error;
  Run(std::string(kConnected) + "type \"x\"\n", &error);
  EXPECT_NE(error.find("no dialog, message box or font service is open"), std::string::npos)
      << error;
}

}  // namespace
}  // namespace sessions
