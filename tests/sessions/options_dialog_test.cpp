// The options dialog behind the menu entry: what it shows, what it stores,
// and that the settings survive a restart.
#include "sessions/session_harness.hpp"

namespace sessions {
namespace {

class OptionsDialogTest : public SessionTest {
 protected:
  static constexpr const char* kOpen = "menu \"&Tessaly Options\"\n";
  std::vector<Json> Written(const std::string& key) const {
    std::vector<Json> out;
    for (const auto& e : Events("setting_written")) {
      if (e["key"] == key) out.push_back(e);
    }
    return out;
  }
};

TEST_F(OptionsDialogTest, AnEmptyStoreShowsEveryRowChecked) {
  Run(std::string(kConnected) + kOpen + "state\nclose\n");
  const Json rows = Control("lstControls")["rows"];
  ASSERT_EQ(rows.size(), 17u);
  // Sorted by the list; ItemData links each row to its table row.
  EXPECT_EQ(rows[0]["text"], "CheckBox");
  EXPECT_EQ(rows[4]["text"], "HScrollBar");
  EXPECT_EQ(rows[4]["item_data"], 15);
  EXPECT_EQ(rows[13]["text"], "TextBox");
  EXPECT_EQ(rows[13]["item_data"], 8);
  EXPECT_EQ(rows[16]["text"], "VScrollBar");
  EXPECT_EQ(rows[16]["item_data"], 14);
  for (const auto& r : rows) EXPECT_TRUE(r["checked"].get<bool>()) << r["text"];
  EXPECT_EQ(Control("chkRemove")["value"], 1);
  EXPECT_EQ(Control("chkRename")["value"], 1);
  EXPECT_EQ(Control("txtFont")["text"], "Times New Roman");
  EXPECT_TRUE(Events("setting_written").empty());
  const std::vector<std::pair<const char*, const char*>> captions = {
      {"lblInstructions", "Select the controls to prompt for:"},
      {"fraOptions", "Options"},
      {"chkRemove", "&Remove Code"},
      {"chkRename", "Rename &Code"},
      {"cmdOK", "&Ok"},
      {"cmdPromtAll", "&Promt All"},
      {"cmdPromptNone", "Prompt &None"},
      {"Frame1", "Default F&ont"},
      {"Label1", "Font :"},
      {"cmdFont", "..."}};
  for (const auto& [control, caption] : captions) {
    EXPECT_EQ(Control(control)["caption"], caption) << control;
  }
  EXPECT_FALSE(Control("txtFont")["enabled"].get<bool>());
}

TEST_F(OptionsDialogTest, UncheckingTextBoxStoresItsTableRowAndSurvivesARestart) {
  Run(std::string(kConnected) + kOpen + "tick lstControls 13\nclick cmdOK\n");
  const auto writes = Events("setting_written");
  ASSERT_EQ(writes.size(), 17u);
  ASSERT_EQ(Written("UseCtl8").size(), 1u);
  EXPECT_EQ(Written("UseCtl8")[0]["text"], "0");
  EXPECT_EQ(Written("UseCtl0")[0]["text"], "-1");
  // A new session: the flag is read back and the row comes up unchecked.
  Run(std::string(kConnected) + kOpen + "state\nclose\n");
  for (const auto& r : Events("setting_read")) {
    if (r["key"] == "UseCtl8") {
      EXPECT_EQ(r["text"], "0");
    }
  }
  EXPECT_FALSE(Control("lstControls")["rows"][13]["checked"].get<bool>());
  EXPECT_TRUE(Control("lstControls")["rows"][12]["checked"].get<bool>());
}

TEST_F(OptionsDialogTest, PromptNoneThenClosingChangesNothing) {
  Run(std::string(kConnected) + kOpen + "click cmdPromptNone\nstate\nclose\n" + kOpen +
      "state\nclose\n");
  EXPECT_TRUE(Events("setting_written").empty());
  EXPECT_TRUE(Control("lstControls")["rows"][0]["checked"].get<bool>());
}

TEST_F(OptionsDialogTest, PromptAllAndNoneChangeEveryRow) {
  Run(std::string(kConnected) + kOpen + "click cmdPromptNone\ntick lstControls 2\nclick cmdOK\n");
  int on = 0;
  for (const auto& w : Events("setting_written")) on += w["text"] == "-1";
  EXPECT_EQ(on, 1);
  EXPECT_EQ(Written("UseCtl2")[0]["text"], "-1");
  Run(std::string(kConnected) + "drop CheckBox\n" + kOpen + "click cmdPromtAll\nclick cmdOK\n");
  EXPECT_TRUE(Events("form_shown")[0]["caption"] == "Tessaly Options")
      << "the check box flag was off";
  for (const auto& w : Events("setting_written")) EXPECT_EQ(w["text"], "-1");
}

TEST_F(OptionsDialogTest, TheCodeFlagsAreStoredAtOnceAndKeptWhenClosed) {
  Run(std::string(kConnected) + kOpen + "click chkRename\nclose\n");
  ASSERT_EQ(Written("RenameCode").size(), 1u);
  EXPECT_EQ(Written("RenameCode")[0]["text"], "0");
  // Next time the box comes up clear; setting it to 0 stores "0" again.
  Run(std::string(kConnected) + kOpen + "state\nclose\n");
  EXPECT_EQ(Control("chkRename")["value"], 0);
  ASSERT_EQ(Written("RenameCode").size(), 1u);
  EXPECT_EQ(Written("RenameCode")[0]["text"], "0");
  EXPECT_TRUE(Written("RemoveCode").empty());
}

TEST_F(OptionsDialogTest, CancellingTheFontServiceStoresTheDefaults) {
  Run(std::string(kConnected) + kOpen + "click cmdFont\nfont cancel\nclose\n");
  const std::vector<std::pair<std::string, std::string>> expected = {
      {"FontName", "Times New Roman"}, {"FontSize", "10"},         {"FontBold", "False"},
      {"FontItalic", "False"},         {"FontUnderline", "False"}, {"FontStrikeThru", "False"}};
  const auto writes = Events("setting_written");
  ASSERT_EQ(writes.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(writes[i]["key"], expected[i].first);
    EXPECT_EQ(writes[i]["text"], expected[i].second);
  }
}

TEST_F(OptionsDialogTest, AChosenFontKeepsItsFractionAndPropertyDialogsRoundIt) {
  Run(std::string(kConnected) + kOpen +
      "click cmdFont\nfont choose name=Arial size=10.5 italic\nstate\nclose\n"
      "drop CheckBox\nkey Enter\n" +
      kOpen + "click cmdFont\nfont cancel\nclose\n");
  EXPECT_EQ(Written("FontSize")[0]["text"], "10.5");
  EXPECT_EQ(Written("FontItalic")[0]["text"], "True");
  EXPECT_EQ(Control("txtFont")["text"], "Arial");
  const auto fonts = Events("font_write");
  ASSERT_EQ(fonts.size(), 6u);
  EXPECT_EQ(fonts[0]["value"], "Arial");
  EXPECT_EQ(fonts[2]["value"], true);
  EXPECT_EQ(fonts[3]["value"], 10) << "10.5 rounds to the even 10";
  // The service gets the stored fraction, unrounded.
  EXPECT_EQ(Events("font_service")[1]["given"]["size"], 10.5);
}

}  // namespace
}  // namespace sessions
