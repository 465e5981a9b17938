// The options dialog behind the menu entry: what it shows, what it stores,
// that the settings survive a restart, and what each stored flag does.
#include "sessions/session_harness.hpp"

namespace sessions {
namespace {

class OptionsDialogTest : public SessionTest {
 protected:
  static constexpr const char* kOpen = "menu \"&Tessaly Options\"\n";
  // The settings written in the last run: "key=text" each, those ending in
  // `end` if given.
  Lines Written(const std::string& end = "") const {
    Lines out;
    for (const auto& e : Events("setting_written")) {
      const std::string line = e["key"].get<std::string>() + "=" + e["text"].get<std::string>();
      if (line.ends_with(end)) out.push_back(line);
    }
    return out;
  }
  bool Checked(int row) const { return Control("lstControls")["rows"][row]["checked"]; }
};

TEST_F(OptionsDialogTest, AnEmptyStoreShowsEveryRowChecked) {
  Run(std::string(kConnected) + kOpen + "state\nclose\n");
  const Json rows = Control("lstControls")["rows"];
  ASSERT_EQ(rows.size(), 17u);
  // Sorted by the list; ItemData links each row to its table row.
  std::string shown;
  for (const auto& r : rows) {
    shown += r["text"].get<std::string>() + "=" + r["item_data"].dump() + " ";
    EXPECT_TRUE(r["checked"].get<bool>()) << r["text"];
  }
  EXPECT_EQ(shown,
            "CheckBox=0 ComboBox=1 CommandButton=2 Frame=3 HScrollBar=15 Label=4 ListBox=5 "
            "ListView=6 Masked Edit Box=11 OptionButton=7 Other Controls=16 RichTextBox=12 "
            "SSTab (Tabbed Dialog)=13 TextBox=8 Timer=9 TreeView=10 VScrollBar=14 ");
  EXPECT_EQ(Control("chkRemove")["value"], 1);
  EXPECT_EQ(Control("chkRename")["value"], 1);
  EXPECT_EQ(Control("txtFont")["text"], "Times New Roman");
  EXPECT_FALSE(Control("txtFont")["enabled"].get<bool>());
  EXPECT_TRUE(Events("setting_written").empty());
  for (const auto& [control, caption] :
       {std::pair{"lblInstructions", "Select the controls to prompt for:"},
        std::pair{"fraOptions", "Options"}, std::pair{"chkRemove", "&Remove Code"},
        std::pair{"chkRename", "Rename &Code"}, std::pair{"cmdOK", "&Ok"},
        std::pair{"cmdPromtAll", "&Promt All"}, std::pair{"cmdPromptNone", "Prompt &None"},
        std::pair{"Frame1", "Default F&ont"}, std::pair{"Label1", "Font :"},
        std::pair{"cmdFont", "..."}}) {
    EXPECT_EQ(Control(control)["caption"], caption) << control;
  }
}

TEST_F(OptionsDialogTest, UncheckingTextBoxStoresItsTableRowAndSurvivesARestart) {
  Run(std::string(kConnected) + kOpen + "tick lstControls 13\nclick cmdOK\n");
  EXPECT_EQ(Written("=-1").size(), 16u);
  EXPECT_EQ(Written("=0"), Lines{"UseCtl8=0"});
  // A new session: the row comes up unchecked.
  Run(std::string(kConnected) + kOpen + "state\nclose\n");
  EXPECT_FALSE(Checked(13));
  EXPECT_TRUE(Checked(12));
}

TEST_F(OptionsDialogTest, PromptAllAndNoneChangeEveryRowButOnlyOkStores) {
  Run(std::string(kConnected) + kOpen + "click cmdPromptNone\nclose\n" + kOpen +
      "state\nclick cmdPromptNone\ntick lstControls 2\nclick cmdOK\n");
  EXPECT_TRUE(Checked(0)) << "closing stored nothing";
  EXPECT_EQ(Written("=0").size(), 16u);
  EXPECT_EQ(Written("=-1"), Lines{"UseCtl2=-1"}) << "row 2 is CommandButton";
  Run(std::string(kConnected) + kOpen + "click cmdPromtAll\nclick cmdOK\n");
  EXPECT_EQ(Written("=-1").size(), 17u);
}

TEST_F(OptionsDialogTest, TheCodeFlagsAreStoredAtOnceAndKeptWhenClosed) {
  Run(std::string(kConnected) + kOpen + "click chkRename\nclose\n");
  EXPECT_EQ(Written(), Lines{"RenameCode=0"});
  // Next time the box comes up clear, and setting it so stores "0" again.
  Run(std::string(kConnected) + kOpen + "state\nclose\n");
  EXPECT_EQ(Control("chkRename")["value"], 0);
  EXPECT_EQ(Written(), Lines{"RenameCode=0"});
}

TEST_F(OptionsDialogTest, CancellingTheFontServiceStoresTheDefaults) {
  Run(std::string(kConnected) + kOpen + "click cmdFont\nfont cancel\nclose\n");
  EXPECT_EQ(Written(), (Lines{"FontName=Times New Roman", "FontSize=10", "FontBold=False",
                              "FontItalic=False", "FontUnderline=False", "FontStrikeThru=False"}));
}

TEST_F(OptionsDialogTest, AChosenFontKeepsItsFractionAndPropertyDialogsRoundIt) {
  Run(std::string(kConnected) + kOpen +
      "click cmdFont\nfont choose name=Arial size=10.5 italic\nstate\nclose\n"
      "drop CheckBox\nkey Enter\n" +
      kOpen + "click cmdFont\nfont cancel\nclose\n");
  EXPECT_EQ(Control("txtFont")["text"], "Arial");
  const Lines written = Written();
  ASSERT_EQ(written.size(), 12u);
  EXPECT_EQ(written[1], "FontSize=10.5");
  EXPECT_EQ(written[3], "FontItalic=True");
  const auto fonts = Events("font_write");
  ASSERT_EQ(fonts.size(), 6u);
  EXPECT_EQ(fonts[0]["value"], "Arial");
  EXPECT_EQ(fonts[2]["value"], true);
  EXPECT_EQ(fonts[3]["value"], 10) << "10.5 rounds to the even 10";
  // The service gets the stored fraction, unrounded.
  EXPECT_EQ(Events("font_service")[1]["given"]["size"], 10.5);
}

// A flag stored off: of the controls dropped, only the last opens its dialog.
struct FlagCase {
  const char* flag;
  const char* drops;
  const char* shown;
};

void PrintTo(const FlagCase& c, std::ostream* os) { *os << c.flag; }

class PromptFlagTest : public SessionTest, public ::testing::WithParamInterface<FlagCase> {};

TEST_P(PromptFlagTest, AFlagOffKeepsItsDialogsClosed) {
  const FlagCase& c = GetParam();
  Run(std::string("store Vorrel Options ") + c.flag + " 0\n" + kConnected + c.drops + "key Esc\n");
  EXPECT_EQ(Titles(), Lines{c.shown});
}

INSTANTIATE_TEST_SUITE_P(
    Flags, PromptFlagTest,
    ::testing::Values(
        FlagCase{"UseCtl0", "drop CheckBox\ndrop Label\n", "New Label Control"},
        // The scroll bars' rows stand crossed over: HScrollBar 15, VScrollBar 14.
        FlagCase{"UseCtl15", "drop HScrollBar\ndrop VScrollBar\n", "New Vertical Scroll Bar"},
        FlagCase{"UseCtl14", "drop VScrollBar\ndrop HScrollBar\n", "New Horizontal Scroll Bar"},
        FlagCase{"UseCtl16",
                 "drop PictureBox\ndrop Line\ndrop-exact MSComCtl2.DTPicker dtpWhen\n"
                 "drop-exact checkbox chkLower\ndrop CheckBox\n",
                 "New CheckBox Control"}));

}  // namespace
}  // namespace sessions
