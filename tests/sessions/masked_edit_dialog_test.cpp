// The masked edit dialog as a user meets it: mask and prompt character go as
// typed, also when empty, and the two options are written on every save.
#include "sessions/session_harness.hpp"

namespace sessions {
namespace {

using Lines = std::vector<std::string>;

class MaskedEditDialogTest : public SessionTest {
 protected:
  void Drop(const std::string& user) { Run(std::string(kConnected) + "drop MaskEdBox\n" + user); }
};

TEST_F(MaskedEditDialogTest, SavingTheDefaultsWritesEveryOptionAndAnEmptyMask) {
  Drop("state\nkey Enter\n");
  EXPECT_EQ(Events("form_shown")[0]["caption"], "New Masked Edit Control");
  EXPECT_EQ(Control("txtPrompt")["text"], "_");
  EXPECT_EQ(Control("txtFont")["text"], "Times New Roman");
  EXPECT_EQ(Writes(),
            (Lines{"msk.Name=msk:text", "msk.Enabled=true:boolean", "msk.Visible=true:boolean",
                   "msk.AllowPrompt=false:boolean", "msk.CausesValidation=true:boolean",
                   "msk.Mask=:text", "msk.PromptChar=_:text", "font"}));
  EXPECT_EQ(Events("form_closed").size(), 1u);
}

TEST_F(MaskedEditDialogTest, MaskAndOptionsGoAsTheUserLeftThem) {
  Drop(
      "type \"Phone\"\nclick txtMask\ntype \"(###) ###-####\"\n"
      "click chkAllowPrompt\nclick chkCausesValidate\nclick txtTag\ntype \"t\"\nkey Enter\n");
  EXPECT_EQ(Writes(),
            (Lines{"mskPhone.Name=mskPhone:text", "mskPhone.Enabled=true:boolean",
                   "mskPhone.Visible=true:boolean", "mskPhone.AllowPrompt=true:boolean",
                   "mskPhone.CausesValidation=false:boolean", "mskPhone.Mask=(###) ###-####:text",
                   "mskPhone.PromptChar=_:text", "font", "mskPhone.Tag=t:text"}));
}

TEST_F(MaskedEditDialogTest, ThePromptTakesOneCharacter) {
  Drop("click txtPrompt\nkey Home\nkey Delete\ntype \"#*\"\nstate\nkey Enter\n");
  EXPECT_EQ(Control("txtPrompt")["text"], "#");
  EXPECT_EQ(Writes()[6], "msk.PromptChar=#:text");
}

TEST_F(MaskedEditDialogTest, AnEmptyPromptIsSentAndItsRefusalFocusesThePrompt) {
  Drop("click txtPrompt\nkey Home\nkey Delete\nkey Enter\nanswer OK\nstate\nkey Esc\n");
  ASSERT_EQ(Events("msgbox").size(), 1u);
  EXPECT_EQ(Writes(),
            (Lines{"msk.Name=msk:text", "msk.Enabled=true:boolean", "msk.Visible=true:boolean",
                   "msk.AllowPrompt=false:boolean", "msk.CausesValidation=true:boolean",
                   "msk.Mask=:text", "msk.PromptChar!=:text"}));
  EXPECT_TRUE(Control("txtPrompt")["focus"].get<bool>());
}

TEST_F(MaskedEditDialogTest, IndexGoesAsTextAndTheIdeJudgesItsSize) {
  Drop("click txtIndex\ntype \"99999\"\nkey Enter\nanswer OK\nstate\nkey Esc\n");
  ASSERT_EQ(Events("msgbox").size(), 1u) << "no conversion of the dialog's own stops it";
  EXPECT_EQ(Writes().back(), "msk.Index!=99999:text");
  EXPECT_TRUE(Control("txtIndex")["focus"].get<bool>());
}

}  // namespace
}  // namespace sessions
