// The general dialog as a user meets it with controls of classes that have no
// dialog of their own: what the control offers decides which fields stay
// enabled and which properties a save writes.
#include "sessions/session_harness.hpp"

namespace sessions {
namespace {

using Lines = std::vector<std::string>;

class OtherControlDialogTest : public SessionTest {
 protected:
  // Adds a control by `drop` and runs `user` in its dialog, then `after`.
  void Drop(const std::string& drop, const std::string& user, const std::string& after = "") {
    Run(std::string(kConnected) + drop + "\n" + user + after);
  }
  bool Enabled(const std::string& path) const { return Control(path)["enabled"].get<bool>(); }
};

// A property's value in a dumped control.
Json PropertyValue(const Json& control, const std::string& name) {
  for (const auto& property : control["properties"]) {
    if (property["name"] == name) return property["value"];
  }
  return Json();
}

// One class: the drop, the name typed, which offered fields stay enabled, and
// exactly what saving with everything else at its default writes.
struct ClassCase {
  const char* drop;
  const char* name;
  bool caption;
  bool text;
  bool enabled;
  bool font;
  Lines writes;
};

void PrintTo(const ClassCase& c, std::ostream* os) { *os << c.drop; }

class OtherControlClassTest : public OtherControlDialogTest,
                              public ::testing::WithParamInterface<ClassCase> {};

TEST_P(OtherControlClassTest, OffersOnlyWhatTheControlHasAndWritesOnlyThat) {
  const ClassCase& c = GetParam();
  Drop(c.drop, std::string("state\ntype \"") + c.name + "\"\nkey Enter\n");
  const auto shown = Events("form_shown");
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_EQ(shown[0]["caption"], "New Misc Control");
  EXPECT_EQ(Control("txtName")["text"], "") << "no prefix here";
  EXPECT_TRUE(Control("txtName")["focus"].get<bool>());
  // A missing property greys its label with its field; nothing is hidden.
  for (const auto& [label, field, offered] :
       {std::tuple{"lblControlCaption", "txtControlCaption", c.caption},
        std::tuple{"lblControlText", "txtControlText", c.text}}) {
    EXPECT_EQ(Enabled(label), offered) << label;
    EXPECT_EQ(Enabled(field), offered) << field;
    EXPECT_TRUE(Control(field)["visible"].get<bool>()) << field;
  }
  EXPECT_EQ(Enabled("chkEnabled"), c.enabled);
  EXPECT_EQ(Control("chkEnabled")["value"], 1) << "a disabled check box keeps its tick";
  EXPECT_TRUE(Enabled("lblName") && Enabled("txtName") && Enabled("chkVisible") &&
              Enabled("txtIndex") && Enabled("txtTag"));
  EXPECT_EQ(Enabled("cmdFont"), c.font);
  EXPECT_EQ(Control("txtFont")["text"], c.font ? "Times New Roman" : "");
  EXPECT_TRUE(Enabled("Label6")) << "the font label is never greyed";

  EXPECT_EQ(Writes(), c.writes);
  EXPECT_EQ(Events("font_write").size(), c.font ? 6u : 0u);
  if (c.font) {
    EXPECT_EQ(Events("font_write")[0]["value"], "Times New Roman");
  }
  EXPECT_EQ(Events("form_closed").size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(
    EveryOtherClass, OtherControlClassTest,
    ::testing::Values(ClassCase{"drop PictureBox",
                                "picLogo",
                                false,
                                false,
                                true,
                                true,
                                {"picLogo.Name=picLogo:text", "picLogo.Enabled=true:boolean",
                                 "picLogo.Visible=true:boolean", "font"}},
                      ClassCase{"drop Image",
                                "imgLogo",
                                false,
                                false,
                                true,
                                false,
                                {"imgLogo.Name=imgLogo:text", "imgLogo.Enabled=true:boolean",
                                 "imgLogo.Visible=true:boolean"}},
                      ClassCase{"drop Shape",
                                "shpBox",
                                false,
                                false,
                                false,
                                false,
                                {"shpBox.Name=shpBox:text", "shpBox.Visible=true:boolean"}},
                      ClassCase{"drop Line",
                                "linRule",
                                false,
                                false,
                                false,
                                false,
                                {"linRule.Name=linRule:text", "linRule.Visible=true:boolean"}},
                      // The font stage stands before Caption, and an empty Caption is written.
                      ClassCase{"drop Data",
                                "datMain",
                                true,
                                false,
                                true,
                                true,
                                {"datMain.Name=datMain:text", "datMain.Enabled=true:boolean",
                                 "datMain.Visible=true:boolean", "font", "datMain.Caption=:text"}},
                      ClassCase{"drop DriveListBox",
                                "drvMain",
                                false,
                                false,
                                true,
                                true,
                                {"drvMain.Name=drvMain:text", "drvMain.Enabled=true:boolean",
                                 "drvMain.Visible=true:boolean", "font"}},
                      ClassCase{"drop-exact MSComCtl2.DTPicker dtpWhen",
                                "dtpDue",
                                false,
                                false,
                                true,
                                false,
                                {"dtpDue.Name=dtpDue:text", "dtpDue.Enabled=true:boolean",
                                 "dtpDue.Visible=true:boolean"}},
                      // The dispatch compares class names with their case: these are no
                      // check box and no text box to it, though the IDE knows their tables.
                      ClassCase{
                          "drop-exact checkbox chkLower",
                          "chkLower",
                          true,
                          false,
                          true,
                          true,
                          {"chkLower.Name=chkLower:text", "chkLower.Enabled=true:boolean",
                           "chkLower.Visible=true:boolean", "font", "chkLower.Caption=:text"}},
                      ClassCase{"drop-exact textbox txtLower",
                                "txtLower",
                                false,
                                true,
                                true,
                                true,
                                {"txtLower.Name=txtLower:text", "txtLower.Enabled=true:boolean",
                                 "txtLower.Visible=true:boolean", "font", "txtLower.Text=:text"}}));

TEST_F(OtherControlDialogTest, EmptyCaptionAndTextReplaceWhatTheDesignerGave) {
  Drop("drop Data", "type \"datMain\"\nkey Enter\n", "dump\n");
  EXPECT_EQ(PropertyValue(Dumped("datMain"), "Caption"), "");
  Drop("drop-exact textbox txtLower", "type \"txtNote\"\nkey Enter\n", "dump\n");
  const Json note = Dumped("txtNote");
  EXPECT_EQ(PropertyValue(note, "Text"), "");
  EXPECT_EQ(note["class"], "textbox") << "the class as it was given";
}

TEST_F(OtherControlDialogTest, CaptionAndTextLoseTheirBlanksButTagKeepsThem) {
  Drop("drop Data",
       "type \"datMain\"\nclick txtControlCaption\ntype \"  Main  \"\nclick txtTag\n"
       "type \" keep \"\nkey Enter\n");
  EXPECT_EQ(Writes(), (Lines{"datMain.Name=datMain:text", "datMain.Enabled=true:boolean",
                             "datMain.Visible=true:boolean", "font", "datMain.Caption=Main:text",
                             "datMain.Tag= keep :text"}));
  Drop("drop-exact textbox txtLower",
       "type \"txtNote\"\nclick txtControlText\ntype \" a b \"\nkey Enter\n");
  EXPECT_EQ(Writes().back(), "txtNote.Text=a b:text");
}

TEST_F(OtherControlDialogTest, TheNameStartsEmptyAndTheIdeRefusesIt) {
  Drop("drop PictureBox", "key Enter\nanswer OK\nstate\n", "key Esc\n");
  const auto boxes = Events("msgbox");
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0]["title"], "Invalid Property Value");
  EXPECT_EQ(Writes(), (Lines{"Picture1.Name!=:text"})) << "nothing behind the name";
  EXPECT_TRUE(Control("txtName")["focus"].get<bool>());
}

TEST_F(OtherControlDialogTest, TheNameTakesFortyCharactersAndNoSpacesOrDots) {
  Drop("drop PictureBox", "type \"pic.Logo Main" + std::string(40, 'x') + "\"\nstate\n",
       "key Esc\n");
  EXPECT_EQ(Control("txtName")["text"], "picLogoMain" + std::string(29, 'x'));
}

TEST_F(OtherControlDialogTest, TheIndexGoesAsAnIntegerAndOneTooLargeEndsTheSaveSilently) {
  Drop("drop PictureBox", "type \"picA\"\nclick txtIndex\ntype \"0\"\nkey Enter\n");
  EXPECT_EQ(Writes().back(), "picA(0).Index=0:integer16");
  EXPECT_EQ(Events("form_closed").size(), 1u);

  Drop("drop Data",
       "type \"datMain\"\nclick txtIndex\ntype \"32768\"\nclick txtTag\ntype \"t\"\nkey Enter\n"
       "state\n",
       "key Esc\n");
  EXPECT_TRUE(Events("msgbox").empty());
  // Everything before Index is written; Tag behind it is not.
  EXPECT_EQ(Writes(), (Lines{"datMain.Name=datMain:text", "datMain.Enabled=true:boolean",
                             "datMain.Visible=true:boolean", "font", "datMain.Caption=:text"}));
  EXPECT_TRUE(Control("txtTag")["focus"].get<bool>()) << "the dialog stayed open, focus kept";
}

TEST_F(OtherControlDialogTest, WithoutEnabledTheTickStaysAndOnlyVisibleIsWritten) {
  Drop("drop Shape", "type \"shpBox\"\nclick chkEnabled\nclick chkVisible\nstate\nkey Enter\n");
  // A disabled check box takes no click: it keeps its tick.
  EXPECT_EQ(Control("chkEnabled")["value"], 1);
  EXPECT_EQ(Control("chkVisible")["value"], 0);
  EXPECT_EQ(Writes(), (Lines{"shpBox.Name=shpBox:text", "shpBox.Visible=false:boolean"}));
}

TEST_F(OtherControlDialogTest, AChosenFontReachesTheControl) {
  Drop("drop PictureBox",
       "type \"picLogo\"\nclick cmdFont\nfont choose name=Arial size=12 italic\nclick OKButton\n");
  const auto service = Events("font_service");
  ASSERT_EQ(service.size(), 1u);
  EXPECT_EQ(service[0]["given"]["name"], "Times New Roman");
  const auto fonts = Events("font_write");
  ASSERT_EQ(fonts.size(), 6u);
  EXPECT_EQ(fonts[0]["value"], "Arial");
  EXPECT_EQ(fonts[2]["value"], true);
  EXPECT_EQ(fonts[3]["value"], 12);
}

TEST_F(OtherControlDialogTest, WithRowSixteenOffOnlyClassesInTheTablePrompt) {
  Run("store Vorrel Options UseCtl16 0\n" + std::string(kConnected) +
      "drop PictureBox\ndrop Line\ndrop-exact MSComCtl2.DTPicker dtpWhen\n"
      "drop-exact checkbox chkLower\ndrop CheckBox\nkey Esc\n");
  const auto shown = Events("form_shown");
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_EQ(shown[0]["caption"], "New CheckBox Control");
  EXPECT_EQ(Events("control_added").size(), 5u);
}

TEST_F(OtherControlDialogTest, APropertyCollectionThatFailsMeansNothingIsOffered) {
  // Asking the IDE fails for every property: all of them count as missing,
  // which is no error.
  Run(std::string(kConnected) +
      "refuse dtpWhen Properties \"Method 'Properties' of object failed\" always\n"
      "drop-exact MSComCtl2.DTPicker dtpWhen\nstate\nkey Enter\n");
  EXPECT_TRUE(Events("msgbox").empty());
  for (const char* field : {"txtName", "txtControlCaption", "txtControlText", "chkEnabled",
                            "chkVisible", "txtIndex", "txtTag", "cmdFont"}) {
    EXPECT_FALSE(Enabled(field)) << field;
  }
  EXPECT_TRUE(Writes().empty());
  EXPECT_EQ(Events("form_closed").size(), 1u) << "a save with nothing to write closes";
}

TEST_F(OtherControlDialogTest, AnActivationThatCannotFocusTheNameReportsAndCloses) {
  // The IDE fails to answer once, so the name field is greyed. Saving an
  // Index renames the control; the Rename Code prompt opens over the dialog,
  // and when it closes the dialog is activated again and cannot put the
  // focus into its name.
  Run("new-project P\nnew-form Form1\ncode add \"Private Sub dtpDue_Change()\"\n"
      "code add \"End Sub\"\nconnect\n"
      "refuse dtpDue Properties \"Method 'Properties' of object failed\"\n"
      "drop-exact MSComCtl2.DTPicker dtpDue\nstate\n"
      "click txtIndex\ntype \"1\"\nkey Enter\nkey Esc\nanswer OK\n");
  EXPECT_FALSE(Enabled("txtName"));
  EXPECT_FALSE(Enabled("lblName"));
  EXPECT_TRUE(Enabled("txtIndex"));
  const auto boxes = Events("msgbox");
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0]["text"], "The following error occurred : Invalid procedure call or argument");
  EXPECT_FALSE(boxes[0]["title_given"].get<bool>());
  EXPECT_EQ(boxes[0]["buttons"], 0);
  const auto shown = Events("form_shown");
  ASSERT_EQ(shown.size(), 2u);
  EXPECT_EQ(shown[1]["caption"], "Rename Code for Control");
  EXPECT_EQ(Writes(), (Lines{"dtpDue.Enabled=true:boolean", "dtpDue.Visible=true:boolean",
                             "dtpDue(1).Index=1:integer16"}));
  EXPECT_EQ(Events("form_closed").size(), 2u) << "both dialogs are closed";
}

}  // namespace
}  // namespace sessions
