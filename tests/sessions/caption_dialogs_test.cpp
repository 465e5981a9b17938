// The dialogs whose name feeds a caption -- check box, option button, command
// button, frame and label -- as a user meets them: the caption following the
// name, what sets each dialog apart, refusals, and the font chooser.
#include "sessions/session_harness.hpp"

namespace sessions {
namespace {

// Name and caption after typing: "txtName | txtCaption", the caption's
// selection in brackets, "-" for a dialog without a caption field.
struct LinkCase {
  const char* label;
  const char* what;
  const char* user;
  const char* fields;
};

class NameLinkTest : public SessionTest, public ::testing::WithParamInterface<LinkCase> {};

TEST_P(NameLinkTest, TheCaptionFollowsTheName) {
  Drop(GetParam().what, std::string(GetParam().user) + "state\nkey Esc\n");
  std::string caption = "-";
  if (const Json field = Control("txtCaption"); !field.is_null()) {
    caption = field["text"];
    const std::size_t start = field["sel_start"], length = field["sel_length"];
    if (length > 0) caption = caption.insert(start + length, "]").insert(start, "[");
  }
  EXPECT_EQ(Control("txtName")["text"].get<std::string>() + " | " + caption, GetParam().fields);
}

INSTANTIATE_TEST_SUITE_P(
    Dialogs, NameLinkTest,
    ::testing::Values(
        // A typed space or dot goes to the caption; the next letter rebuilds it.
        LinkCase{"SpacesAndDotsFeedTheCaption", "CheckBox", "type \"Save\"\n", "chkSave | [&Save]"},
        LinkCase{"ASpaceStaysInTheCaption", "OptionButton", "type \"Go \"\n", "optGo | &Go "},
        LinkCase{"TheNextLetterRebuildsIt", "CheckBox", "type \"Save as.\"\n",
                 "chkSaveas | &Saveas."},
        LinkCase{"CommandButton", "CommandButton", "type \"Go\"\n", "cmdGo | [&Go]"},
        LinkCase{"Frame", "Frame", "type \"Go\"\n", "fraGo | [&Go]"},
        // The first three characters are cut whatever they are.
        LinkCase{"TheCutIgnoresThePrefix", "CheckBox", "key Home\nkey Delete 3\ntype \"OK\"\n",
                 "OK | [&]"},
        // A label's caption has no access key, and no lone "&" for a short name.
        LinkCase{"LabelPlain", "Label", "type \"Total\"\n", "lblTotal | [Total]"},
        LinkCase{"LabelShortName", "Label", "key Backspace\n", "lb | "},
        LinkCase{"TextBoxFeedsNothing", "TextBox", "type \"Body.Text x\"\n", "txtBodyTextx | -"},
        // Forty characters at most: the last 11 x are cut.
        LinkCase{"OtherTakesFortyCharacters", "PictureBox",
                 "type \"pic.Logo Mainxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx\"\n",
                 "picLogoMainxxxxxxxxxxxxxxxxxxxxxxxxxxxxx | -"}),
    ByLabel());

const SaveCase kSaves[] = {
    {"CheckBoxOptionsAndTag", "CheckBox",
     "type \"Done\"\nclick chkEnabled\nclick chkVisible\nclick chkChecked\nclick txtTag\n"
     "type \" keep \"\nkey Enter\n",
     "Check1.Name=chkDone:text, Enabled=false:boolean, Visible=false:boolean, "
     "Caption=&Done:text, Value=1:integer16, font, Tag= keep :text"},
    {"CheckBoxRefusedCaption", "CheckBox", "type \"Done\"\nkey Enter\nanswer OK\n",
     "Check1.Name=chkDone:text, Enabled=true:boolean, Visible=true:boolean, "
     "Caption!=&Done:text; open at txtCaption",
     "refuse chkDone Caption \"Caption too long\"\n"},
    // An empty name is passed on for the IDE to refuse.
    {"CheckBoxEmptyName", "CheckBox", "key Backspace 3\nkey Enter\nanswer OK\n",
     "Check1.Name!=:text; open at txtName"},
    {"CheckBoxCancel", "CheckBox", "type \"Done\"\nclick CancelButton\n", ""},
    {"CheckBoxCloseBox", "CheckBox", "type \"Done\"\nclose\n", ""},
    // A refused font stops the save in silence, the focus where it was.
    {"CheckBoxRefusedFont", "CheckBox", "click txtTag\ntype \"t\"\nkey Enter\n",
     "Check1.Name=chk:text, Enabled=true:boolean, Visible=true:boolean, Caption=:text, "
     "Value=0:integer16, font; open at txtTag",
     "refuse chk Font \"No fonts today\"\n"},
    // An option button's Value is a Boolean.
    {"OptionButtonSelected", "OptionButton", "type \"Yes\"\nclick chkChecked\nkey Enter\n",
     "Option1.Name=optYes:text, Enabled=true:boolean, Visible=true:boolean, "
     "Caption=&Yes:text, Value=true:boolean, font"},
    // Default then Cancel, unrelated to each other.
    {"CommandButtonDefaultAndCancel", "CommandButton",
     "type \"OK\"\nclick chkCancel\nclick chkDefault\nkey Enter\n",
     "Command1.Name=cmdOK:text, Enabled=true:boolean, Visible=true:boolean, Caption=&OK:text, "
     "Default=true:boolean, Cancel=true:boolean, font"},
    {"FrameEverythingChanged", "Frame",
     "type \"Main\"\nclick chkEnabled\nclick chkVisible\nclick txtIndex\ntype \"x3\"\n"
     "click txtTag\ntype \" t \"\nkey Enter\n",
     "Frame1.Name=fraMain:text, Enabled=false:boolean, Visible=false:boolean, "
     "Caption=&Main:text, font, Index=3:text, Tag= t :text"},
    // The buttons stand left, centre, right; Alignment numbers them 0, 2, 1.
    // One box set: each write reads its own box.
    {"LabelRightAutoSize", "Label", "click chkAutoSize\nclick optRight\nclick OKButton\n",
     "Label1.Name=lbl:text, Enabled=true:boolean, Visible=true:boolean, Caption=:text, "
     "AutoSize=true:boolean, WordWrap=false:boolean, font, Alignment=1:integer16"},
    {"LabelRefusedAlignment", "Label", "type \"Sum\"\nclick optRight\nclick OKButton\nanswer OK\n",
     "Label1.Name=lblSum:text, Enabled=true:boolean, Visible=true:boolean, Caption=Sum:text, "
     "AutoSize=false:boolean, WordWrap=false:boolean, font, Alignment!=1:integer16; "
     "open at optRight",
     "refuse lblSum Alignment \"Not here\"\n"},
};
SAVE_CASES(CaptionDialogs, kSaves);

class CaptionDialogTest : public SessionTest {
 protected:
  // The six writes of the font stage.
  std::string FontWrites() const {
    std::string out;
    for (const auto& e : Events("font_write")) {
      out += (out.empty() ? "" : ", ") + e["property"].get<std::string>() + "=" +
             (e["value"].is_string() ? e["value"].get<std::string>() : e["value"].dump()) + ":" +
             e["kind"].get<std::string>();
    }
    return out;
  }
};

TEST_F(CaptionDialogTest, TheDefaultFontIsShownAndAChosenOneReachesTheControl) {
  // Enter would press the focused font button again: the user clicks Save.
  Drop("CheckBox", "state\nclick cmdFont\nfont choose name=Arial size=12 bold\nclick OKButton\n");
  EXPECT_EQ(Control("txtFont")["text"], "Times New Roman");
  EXPECT_FALSE(Control("txtFont")["enabled"].get<bool>());
  const auto service = Events("font_service");
  ASSERT_EQ(service.size(), 1u);
  EXPECT_EQ(service[0]["given"]["name"], "Times New Roman");
  EXPECT_EQ(service[0]["given"]["size"], 10.0);
  EXPECT_EQ(FontWrites(),
            "Name=Arial:text, Bold=true:boolean, Italic=false:boolean, Size=12:integer16, "
            "Strikethrough=false:boolean, Underline=false:boolean");
  Drop("CheckBox", "click cmdFont\nfont choose name=Arial\nstate\nkey Esc\n");
  EXPECT_EQ(Control("txtFont")["text"], "Arial");
}

TEST_F(CaptionDialogTest, AFractionalSizeIsRoundedHalfToEven) {
  Drop("CheckBox",
       "click cmdFont\nfont choose size=9.75\nclick cmdFont\nfont cancel\nclick OKButton\n");
  const auto service = Events("font_service");
  ASSERT_EQ(service.size(), 2u);
  EXPECT_EQ(service[1]["given"]["size"], 10.0) << "the record holds 10 after 9.75";
  EXPECT_EQ(Events("font_write")[3]["value"], 10);
}

TEST_F(CaptionDialogTest, TheLabelTabsFromTheCaptionStraightToSave) {
  Drop("Label", "key Tab\nstate\nkey Tab\nstate\nkey Tab\nstate\nkey Tab\nstate\nkey Esc\n");
  EXPECT_EQ(FocusTrail(), (Lines{"txtCaption", "OKButton", "optLeft", "chkEnabled"}));
}

}  // namespace
}  // namespace sessions
