// The check box dialog as a user meets it: dropped, typed into, saved,
// refused, cancelled, and its font chosen.
#include "sessions/session_harness.hpp"

namespace sessions {
namespace {

using Lines = std::vector<std::string>;

class CheckBoxDialogTest : public SessionTest {
 protected:
  // Drops a check box (Check1) and runs `user` in its dialog, then `after`.
  void Drop(const std::string& user, const std::string& after = "dump\n") {
    Run(std::string(kConnected) + "drop CheckBox\n" + user + after);
  }
};

const Lines kDefaultFont = {"font"};

TEST_F(CheckBoxDialogTest, OpensWithTheFocusInTheNameAndTheDefaultFont) {
  Drop("state\nkey Esc\n");
  const auto shown = Events("form_shown");
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_EQ(shown[0]["caption"], "New CheckBox Control");
  EXPECT_TRUE(Control("txtName")["focus"].get<bool>());
  EXPECT_EQ(Control("txtName")["text"], "chk");
  EXPECT_EQ(Control("txtName")["sel_start"], 3) << "the caret stands behind the prefix";
  EXPECT_EQ(Control("txtCaption")["text"], "") << "the default name is no change";
  EXPECT_EQ(Control("txtFont")["text"], "Times New Roman");
  EXPECT_FALSE(Control("txtFont")["enabled"].get<bool>());
}

TEST_F(CheckBoxDialogTest, WithItsFlagOffNothingOpens) {
  Run("store Vorrel Options UseCtl0 0\n" + std::string(kConnected) +
      "drop CheckBox\ndrop Label\nkey Esc\n");
  // Only the label's dialog opens.
  ASSERT_EQ(Events("form_shown").size(), 1u);
  EXPECT_EQ(Events("form_shown")[0]["caption"], "New Label Control");
  EXPECT_EQ(Events("control_added").size(), 2u);
}

TEST_F(CheckBoxDialogTest, SavingTheDefaultsWritesEachPropertyInOrderWithItsKind) {
  Drop("key Enter\n");
  EXPECT_EQ(Writes(),
            (Lines{"chk.Name=chk:text", "chk.Enabled=true:boolean", "chk.Visible=true:boolean",
                   "chk.Caption=:text", "chk.Value=0:integer16", "font"}));
  const auto fonts = Events("font_write");
  ASSERT_EQ(fonts.size(), 6u);
  const Lines order = {"Name", "Bold", "Italic", "Size", "Strikethrough", "Underline"};
  for (std::size_t i = 0; i < 6; ++i) EXPECT_EQ(fonts[i]["property"], order[i]);
  EXPECT_EQ(fonts[0]["value"], "Times New Roman");
  EXPECT_EQ(fonts[3]["value"], 10);
  EXPECT_EQ(fonts[3]["kind"], "integer16");
  EXPECT_EQ(fonts[1]["kind"], "boolean");
  EXPECT_EQ(Events("form_closed").size(), 1u);
}

TEST_F(CheckBoxDialogTest, TheCaptionFollowsTheNameAndTakesSpacesAndDots) {
  Drop("type \"Save\"\nstate\ntype \" \"\nstate\n", "key Esc\n");
  EXPECT_EQ(Control("txtName")["text"], "chkSave");
  EXPECT_EQ(Control("txtCaption")["text"], "&Save ") << "the space went to the caption";
  Drop("type \"Save as.\"\nstate\n", "key Esc\n");
  // The space and dot reached the caption; "as" rebuilt it from the name.
  EXPECT_EQ(Control("txtName")["text"], "chkSaveas");
  EXPECT_EQ(Control("txtCaption")["text"], "&Saveas.");
}

TEST_F(CheckBoxDialogTest, TheCutIgnoresWhatTheFirstThreeCharactersAre) {
  Drop("key Home\nkey Delete 3\nstate\ntype \"OK\"\nstate\n", "key Esc\n");
  // Deleting the prefix leaves an empty name, and a caption of "&" alone.
  EXPECT_EQ(Control("txtName")["text"], "OK");
  EXPECT_EQ(Control("txtCaption")["text"], "&");
}

TEST_F(CheckBoxDialogTest, TheIndexTakesDigitsOnly) {
  Drop(
      "click txtIndex\ntype \"1a-2.\"\nkey Backspace\nstate\nclick txtTag\ntype \"  \"\nkey "
      "Enter\n");
  EXPECT_EQ(Control("txtIndex")["text"], "12") << "Backspace is filtered too";
  // Index goes as text; a Tag of blanks alone is not written.
  EXPECT_EQ(Writes().back(), "chk(12).Index=12:text");
}

TEST_F(CheckBoxDialogTest, OptionsAndTagReachTheControl) {
  Drop(
      "type \"Done\"\nclick chkEnabled\nclick chkVisible\nclick chkChecked\n"
      "click txtTag\ntype \" keep \"\nkey Enter\n");
  EXPECT_EQ(Writes(), (Lines{"chkDone.Name=chkDone:text", "chkDone.Enabled=false:boolean",
                             "chkDone.Visible=false:boolean", "chkDone.Caption=&Done:text",
                             "chkDone.Value=1:integer16", "font", "chkDone.Tag= keep :text"}));
}

TEST_F(CheckBoxDialogTest, ARefusedWriteReportsKeepsEarlierWritesAndStaysOpen) {
  Run(std::string(kConnected) +
      "refuse chkDone Caption \"Caption too long\"\n"
      "drop CheckBox\n"
      "type \"Done\"\nkey Enter\nanswer OK\nstate\n"
      "key Esc\ndump\n");
  const auto boxes = Events("msgbox");
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0]["text"],
            "An error occurred trying to set the property value for Caption.\r\n"
            "The error was: Caption too long");
  EXPECT_EQ(boxes[0]["title"], "Invalid Property Value");
  EXPECT_EQ(boxes[0]["buttons"], 64);
  EXPECT_EQ(Writes(), (Lines{"chkDone.Name=chkDone:text", "chkDone.Enabled=true:boolean",
                             "chkDone.Visible=true:boolean", "chkDone.Caption!=&Done:text"}));
  EXPECT_TRUE(Control("txtCaption")["focus"].get<bool>());
  EXPECT_EQ(Control("txtName")["text"], "chkDone") << "what the user typed stays";
  // Cancel keeps what was written; Value and the font stay as the IDE made them.
  const Json dumped = Dumped("chkDone");
  ASSERT_FALSE(dumped.is_null());
  EXPECT_EQ(dumped["font"]["name"], "MS Sans Serif");
}

TEST_F(CheckBoxDialogTest, ASecondSaveStartsFromTheFirstWrite) {
  Run(std::string(kConnected) +
      "refuse chk Value \"No\"\n"
      "drop CheckBox\nkey Enter\nanswer OK\nkey Enter\n");
  EXPECT_EQ(Writes(),
            (Lines{"chk.Name=chk:text", "chk.Enabled=true:boolean", "chk.Visible=true:boolean",
                   "chk.Caption=:text", "chk.Value!=0:integer16", "chk.Name=chk:text",
                   "chk.Enabled=true:boolean", "chk.Visible=true:boolean", "chk.Caption=:text",
                   "chk.Value=0:integer16", "font"}));
  EXPECT_EQ(Events("form_closed").size(), 1u);
}

TEST_F(CheckBoxDialogTest, AnEmptyNameIsPassedOnAndRefusedByTheIde) {
  Drop("key Backspace 3\nkey Enter\nanswer OK\nstate\nkey Esc\n");
  ASSERT_EQ(Events("msgbox").size(), 1u);
  EXPECT_EQ(Writes().front().substr(0, 12), "Check1.Name!");
  EXPECT_TRUE(Control("txtName")["focus"].get<bool>());
}

TEST_F(CheckBoxDialogTest, CancelWritesNothing) {
  Drop("type \"Done\"\nclick CancelButton\n");
  EXPECT_TRUE(Writes().empty());
  EXPECT_FALSE(Dumped("Check1").is_null()) << "the control keeps the IDE's name";
}

TEST_F(CheckBoxDialogTest, TheCloseBoxWritesNothing) {
  Drop("type \"Done\"\nclose\n");
  EXPECT_TRUE(Writes().empty());
  EXPECT_EQ(Events("form_closed").size(), 1u);
}

TEST_F(CheckBoxDialogTest, AChosenFontReachesTheControlAndTheField) {
  // Enter would press the focused font button again: the user clicks Save.
  Drop("click cmdFont\nfont choose name=Arial size=12 bold\nstate\nclick OKButton\n");
  const auto service = Events("font_service");
  ASSERT_EQ(service.size(), 1u);
  EXPECT_EQ(service[0]["given"]["name"], "Times New Roman");
  EXPECT_EQ(service[0]["given"]["size"], 10.0);
  EXPECT_EQ(Control("txtFont")["text"], "Arial");
  const auto fonts = Events("font_write");
  ASSERT_EQ(fonts.size(), 6u);
  EXPECT_EQ(fonts[0]["value"], "Arial");
  EXPECT_EQ(fonts[1]["value"], true);
  EXPECT_EQ(fonts[3]["value"], 12);
}

TEST_F(CheckBoxDialogTest, AFractionalSizeFromTheServiceIsRoundedHalfToEven) {
  Drop("click cmdFont\nfont choose size=9.75\nclick cmdFont\nfont cancel\nclick OKButton\n");
  const auto service = Events("font_service");
  ASSERT_EQ(service.size(), 2u);
  EXPECT_EQ(service[1]["given"]["size"], 10.0) << "the record holds 10 after 9.75";
  EXPECT_EQ(Events("font_write")[3]["value"], 10);
}

TEST_F(CheckBoxDialogTest, StoredFontSizesRoundHalfToEven) {
  for (const auto& [stored, size] : {std::pair{"10.5", 10}, std::pair{"11.5", 12}}) {
    Run(std::string("store Vorrel Options FontSize ") + stored + "\n" + kConnected +
        "drop CheckBox\nkey Enter\n");
    ASSERT_EQ(Events("font_write").size(), 6u);
    EXPECT_EQ(Events("font_write")[3]["value"], size) << stored;
  }
}

TEST_F(CheckBoxDialogTest, ARefusedFontStopsTheSaveWithoutAMessage) {
  Run(std::string(kConnected) +
      "refuse chk Font \"No fonts today\"\n"
      "drop CheckBox\nclick txtTag\ntype \"t\"\nkey Enter\nstate\nkey Esc\n");
  EXPECT_TRUE(Events("msgbox").empty());
  EXPECT_TRUE(Control("txtTag")["focus"].get<bool>()) << "the focus stays where it was";
  EXPECT_EQ(Writes().back(), "font") << "nothing behind the font stage is written";
}

}  // namespace
}  // namespace sessions
