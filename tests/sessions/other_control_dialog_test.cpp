// The general dialog as a user meets it with controls of classes that have no
// dialog of their own: what the control offers decides which fields stay
// enabled and which properties a save writes.
#include "sessions/session_harness.hpp"

namespace sessions {
namespace {

// One class: the name typed, which offered fields stay enabled ("caption",
// "text", "enabled", "font" for the caption and text fields, the Enabled box
// and the font button), and what saving with the rest untouched writes.
struct ClassCase {
  const char* what;
  const char* name;
  const char* offered;
  const char* writes;
};

void PrintTo(const ClassCase& c, std::ostream* os) { *os << c.what; }

class OtherControlTest : public SessionTest, public ::testing::WithParamInterface<ClassCase> {
 protected:
  bool Enabled(const std::string& path) const { return Control(path)["enabled"].get<bool>(); }
};

TEST_P(OtherControlTest, OffersOnlyWhatTheControlHasAndWritesOnlyThat) {
  const ClassCase& c = GetParam();
  Drop(c.what, std::string("state\ntype \"") + c.name + "\"\nkey Enter\n");
  EXPECT_EQ(Titles(), Lines{"New Misc Control"});
  // A missing property greys its label with its field; nothing is hidden.
  std::string offered;
  for (const auto& [label, field, word] :
       {std::tuple{"lblControlCaption", "txtControlCaption", " caption"},
        std::tuple{"lblControlText", "txtControlText", " text"},
        std::tuple{"chkEnabled", "chkEnabled", " enabled"},
        std::tuple{"cmdFont", "cmdFont", " font"}}) {
    EXPECT_EQ(Enabled(label), Enabled(field)) << field;
    EXPECT_TRUE(Control(field)["visible"].get<bool>()) << field;
    if (Enabled(field)) offered += word;
  }
  EXPECT_EQ(offered.empty() ? offered : offered.substr(1), c.offered);
  EXPECT_EQ(Control("chkEnabled")["value"], 1) << "a disabled check box keeps its tick";
  EXPECT_TRUE(Enabled("lblName") && Enabled("txtName") && Enabled("chkVisible") &&
              Enabled("txtIndex") && Enabled("txtTag") && Enabled("Label6"));
  EXPECT_EQ(Control("txtFont")["text"], Enabled("cmdFont") ? "Times New Roman" : "");
  EXPECT_EQ(Writes(), c.writes);
  EXPECT_EQ(Events("form_closed").size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(
    EveryOtherClass, OtherControlTest,
    ::testing::Values(
        ClassCase{"PictureBox", "picLogo", "enabled font",
                  "Picture1.Name=picLogo:text, Enabled=true:boolean, Visible=true:boolean, font"},
        ClassCase{"Image", "imgLogo", "enabled",
                  "Image1.Name=imgLogo:text, Enabled=true:boolean, Visible=true:boolean"},
        ClassCase{"Shape", "shpBox", "", "Shape1.Name=shpBox:text, Visible=true:boolean"},
        ClassCase{"Line", "linRule", "", "Line1.Name=linRule:text, Visible=true:boolean"},
        // The font stage stands before Caption, and an empty Caption is written.
        ClassCase{"Data", "datMain", "caption enabled font",
                  "Data1.Name=datMain:text, Enabled=true:boolean, Visible=true:boolean, font, "
                  "Caption=:text"},
        ClassCase{"DriveListBox", "drvMain", "enabled font",
                  "Drive1.Name=drvMain:text, Enabled=true:boolean, Visible=true:boolean, font"},
        ClassCase{"MSComCtl2.DTPicker dtpWhen", "dtpDue", "enabled",
                  "dtpWhen.Name=dtpDue:text, Enabled=true:boolean, Visible=true:boolean"},
        // The dispatch compares class names with their case: these are no
        // check box and no text box to it, though the IDE knows their tables.
        ClassCase{"checkbox chkLower", "chkLower", "caption enabled font",
                  "chkLower.Name=chkLower:text, Enabled=true:boolean, Visible=true:boolean, font, "
                  "Caption=:text"},
        ClassCase{"textbox txtLower", "txtLower", "text enabled font",
                  "txtLower.Name=txtLower:text, Enabled=true:boolean, Visible=true:boolean, font, "
                  "Text=:text"}));

const SaveCase kSaves[] = {
    // Caption and Text lose their blanks; Tag keeps them.
    {"CaptionTrimmedTagNot", "Data",
     "type \"datMain\"\nclick txtControlCaption\ntype \"  Main  \"\nclick txtTag\n"
     "type \" keep \"\nkey Enter\n",
     "Data1.Name=datMain:text, Enabled=true:boolean, Visible=true:boolean, font, "
     "Caption=Main:text, Tag= keep :text"},
    {"TextTrimmed", "textbox txtLower",
     "type \"txtNote\"\nclick txtControlText\ntype \" a b \"\nkey Enter\n",
     "txtLower.Name=txtNote:text, Enabled=true:boolean, Visible=true:boolean, font, "
     "Text=a b:text"},
    // The name starts empty, and the IDE refuses that.
    {"EmptyName", "PictureBox", "key Enter\nanswer OK\n", "Picture1.Name!=:text; open at txtName"},
    // An Index beyond 16 bits ends the save in silence, Tag behind it unwritten.
    {"IndexTooLarge", "Data",
     "type \"datMain\"\nclick txtIndex\ntype \"32768\"\nclick txtTag\ntype \"t\"\nkey Enter\n",
     "Data1.Name=datMain:text, Enabled=true:boolean, Visible=true:boolean, font, "
     "Caption=:text; open at txtTag"},
    // A disabled check box takes no click: only Visible is written.
    {"NoEnabled", "Shape", "type \"shpBox\"\nclick chkEnabled\nclick chkVisible\nkey Enter\n",
     "Shape1.Name=shpBox:text, Visible=false:boolean"},
    // Asking the IDE fails for every property: all count as missing, which
    // is no error, and a save with nothing to write closes.
    {"NoPropertiesAtAll", "MSComCtl2.DTPicker dtpWhen", "key Enter\n", "",
     "refuse dtpWhen Properties \"Method 'Properties' of object failed\" always\n"},
};
SAVE_CASES(OtherControl, kSaves);

TEST_F(SessionTest, AnActivationThatCannotFocusTheNameReportsAndCloses) {
  // The IDE fails to answer once, so the name field is greyed. Saving an
  // Index renames the control; the Rename Code prompt opens over the dialog,
  // and when it closes the dialog is activated again and cannot put the
  // focus into its name.
  Run("new-project P\nnew-form Form1\ncode add \"Private Sub dtpDue_Change()\"\n"
      "code add \"End Sub\"\nconnect\n"
      "refuse dtpDue Properties \"Method 'Properties' of object failed\"\n"
      "drop-exact MSComCtl2.DTPicker dtpDue\nstate\n"
      "click txtIndex\ntype \"1\"\nkey Enter\nkey Esc\nanswer OK\n");
  EXPECT_FALSE(Control("txtName")["enabled"].get<bool>());
  EXPECT_FALSE(Control("lblName")["enabled"].get<bool>());
  EXPECT_EQ(MessageBoxes(),
            "(Vorrel) [0]: The following error occurred : Invalid procedure call or argument");
  EXPECT_EQ(Titles(), (Lines{"New Misc Control", "Rename Code for Control"}));
  EXPECT_EQ(Writes(), "dtpDue.Enabled=true:boolean, Visible=true:boolean, Index=1:integer16");
  EXPECT_EQ(Events("form_closed").size(), 2u) << "both dialogs are closed";
}

}  // namespace
}  // namespace sessions
