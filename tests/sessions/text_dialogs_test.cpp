// The text box, masked edit and rich text box dialogs as a user meets them:
// what each writes beyond the defaults, in order, and how each refusal or
// failed conversion leaves the dialog.
#include "sessions/session_harness.hpp"

namespace sessions {
namespace {

const SaveCase kSaves[] = {
    // A single-line text field: Enter there presses Save.
    {"TextBoxTextAndMultiLine", "TextBox",
     "click chkMulti\nclick txtText\ntype \"Hello\"\nkey Enter\n",
     "Text1.Text=Hello:text, MultiLine=true:boolean, Name=txt:text, Enabled=true:boolean, "
     "Visible=true:boolean, font"},
    {"TextBoxRefusedName", "TextBox",
     "type \"Body\"\nclick txtText\ntype \"Hi\"\nclick chkMulti\nclick OKButton\nanswer OK\n",
     "Text1.Text=Hi:text, MultiLine=true:boolean, Name!=txtBody:text; open at txtName",
     "refuse Text1 Name \"Name in use\"\n"},
    // Mask and prompt character go as typed; the prompt takes one character.
    {"MaskedEditEverythingChanged", "MaskEdBox",
     "type \"Phone\"\nclick txtMask\ntype \"(###) ###-####\"\nclick chkAllowPrompt\n"
     "click chkCausesValidate\nclick txtPrompt\nkey Home\nkey Delete\ntype \"#*\"\n"
     "click txtTag\ntype \"t\"\nkey Enter\n",
     "MaskEdBox1.Name=mskPhone:text, Enabled=true:boolean, Visible=true:boolean, "
     "AllowPrompt=true:boolean, CausesValidation=false:boolean, Mask=(###) ###-####:text, "
     "PromptChar=#:text, font, Tag=t:text"},
    {"MaskedEditEmptyPrompt", "MaskEdBox",
     "click txtPrompt\nkey Home\nkey Delete\nkey Enter\nanswer OK\n",
     "MaskEdBox1.Name=msk:text, Enabled=true:boolean, Visible=true:boolean, "
     "AllowPrompt=false:boolean, "
     "CausesValidation=true:boolean, Mask=:text, PromptChar!=:text; open at txtPrompt"},
    // Index goes as text: the IDE judges its size.
    {"MaskedEditIndexTooLarge", "MaskEdBox",
     "click txtIndex\ntype \"99999\"\nkey Enter\nanswer OK\n",
     "MaskEdBox1.Name=msk:text, Enabled=true:boolean, Visible=true:boolean, "
     "AllowPrompt=false:boolean, "
     "CausesValidation=true:boolean, Mask=:text, PromptChar=_:text, font, "
     "Index!=99999:text; open at txtIndex"},
    // ScrollBars is the last button clicked; arrows select as they go.
    {"RichTextBoxScrollBarsClicked", "RichTextBox",
     "click optSB(2)\nclick optSB(0)\nclick optSB(2)\nclick OKButton\n",
     "RichTextBox1.Name=rtf:text, Enabled=true:boolean, Visible=true:boolean, "
     "MultiLine=true:boolean, "
     "ScrollBars=2:integer16, font"},
    {"RichTextBoxScrollBarsByArrow", "RichTextBox", "click optSB(3)\nkey Down\nclick OKButton\n",
     "RichTextBox1.Name=rtf:text, Enabled=true:boolean, Visible=true:boolean, "
     "MultiLine=true:boolean, "
     "ScrollBars=0:integer16, font"},
    // The first button takes the focus whichever is selected.
    {"RichTextBoxRefusedScrollBars", "RichTextBox", "click optSB(2)\nclick OKButton\nanswer OK\n",
     "RichTextBox1.Name=rtf:text, Enabled=true:boolean, Visible=true:boolean, "
     "MultiLine=true:boolean, "
     "ScrollBars!=2:integer16; open at optSB(0)",
     "refuse rtf ScrollBars \"Not with MultiLine\"\n"},
    // Index goes as a 16-bit integer: beyond it the save ends in silence.
    {"RichTextBoxIndexTooLarge", "RichTextBox", "click txtIndex\ntype \"32768\"\nkey Enter\n",
     "RichTextBox1.Name=rtf:text, Enabled=true:boolean, Visible=true:boolean, "
     "MultiLine=true:boolean, "
     "ScrollBars=3:integer16, font; open at txtIndex"},
};
SAVE_CASES(TextDialogs, kSaves);

TEST_F(SessionTest, TheTextBoxTabsToVisibleBeforeEnabled) {
  Drop("TextBox", "key Tab 3\nstate\nkey Tab\nstate\nkey Esc\n");
  EXPECT_EQ(FocusTrail(), (Lines{"chkVisible", "chkEnabled"}));
}

}  // namespace
}  // namespace sessions
