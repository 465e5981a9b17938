// The dialogs whose name feeds a caption -- option button, command button,
// frame and label -- as a user meets them: the defaults saved, the caption
// following the name, and what sets each dialog apart (the kind of Value, the
// default and cancel flags, the label's alignment, plain caption and tab order).
#include "sessions/session_harness.hpp"

namespace sessions {
namespace {

using Lines = std::vector<std::string>;

// The value of one property in a dumped control, or null.
Json PropertyOf(const Json& control, const std::string& name) {
  for (const auto& p : control["properties"]) {
    if (p["name"] == name) return p;
  }
  return Json();
}

class CaptionDialogTest : public SessionTest {
 protected:
  // The focused control of every state in the last run, in order.
  Lines FocusTrail() const {
    Lines trail;
    for (const auto& e : Events("state")) {
      for (const auto& c : e["state"]["controls"]) {
        if (c["focus"].get<bool>()) trail.push_back(c["control"].get<std::string>());
      }
    }
    return trail;
  }

  // Drops a control of `cls` on Form1 and runs `user` in its dialog.
  void Drop(const std::string& cls, const std::string& user, const std::string& after = "") {
    Run(std::string(kConnected) + "drop " + cls + "\n" + user + after);
  }
};

// ---------------------------------------------------------------------------
// Shared by the four: the title, the prefix, the defaults written in order and
// kind, and the caption built from the name.

struct CaptionCase {
  const char* cls;
  const char* title;
  const char* prefix;
  Lines defaults;       // the writes of a save with every field untouched
  const char* caption;  // txtCaption after typing "Go" and a space into the name
};

void PrintTo(const CaptionCase& c, std::ostream* os) { *os << c.cls; }

class CaptionFamilyTest : public CaptionDialogTest,
                          public ::testing::WithParamInterface<CaptionCase> {};

TEST_P(CaptionFamilyTest, SavingTheDefaultsWritesEachPropertyInOrderWithItsKind) {
  const CaptionCase& c = GetParam();
  Drop(c.cls, "state\nkey Enter\n");
  const auto shown = Events("form_shown");
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_EQ(shown[0]["caption"], c.title);
  EXPECT_EQ(Control("txtName")["text"], c.prefix);
  EXPECT_TRUE(Control("txtName")["focus"].get<bool>());
  EXPECT_EQ(Control("txtCaption")["text"], "") << "the default name is no change";
  EXPECT_EQ(Writes(), c.defaults) << "no Index and no Tag when their fields are empty";
  EXPECT_EQ(Events("font_write").size(), 6u);
  EXPECT_EQ(Events("form_closed").size(), 1u);
}

TEST_P(CaptionFamilyTest, TheCaptionFollowsTheNameAndTakesItsSpaces) {
  const CaptionCase& c = GetParam();
  Drop(c.cls, "type \"Go \"\nstate\nkey Esc\n");
  EXPECT_EQ(Control("txtName")["text"], std::string(c.prefix) + "Go");
  EXPECT_EQ(Control("txtCaption")["text"], c.caption);
  EXPECT_TRUE(Writes().empty()) << "Esc writes nothing";
}

INSTANTIATE_TEST_SUITE_P(
    CaptionDialogs, CaptionFamilyTest,
    ::testing::Values(
        CaptionCase{"OptionButton",
                    "New OptionButton Control",
                    "opt",
                    {"opt.Name=opt:text", "opt.Enabled=true:boolean", "opt.Visible=true:boolean",
                     "opt.Caption=:text", "opt.Value=false:boolean", "font"},
                    "&Go "},
        CaptionCase{
            "CommandButton",
            "New CommandButton Control",
            "cmd",
            {"cmd.Name=cmd:text", "cmd.Enabled=true:boolean", "cmd.Visible=true:boolean",
             "cmd.Caption=:text", "cmd.Default=false:boolean", "cmd.Cancel=false:boolean", "font"},
            "&Go "},
        // A frame has no Value: none is written.
        CaptionCase{"Frame",
                    "New Frame Control",
                    "fra",
                    {"fra.Name=fra:text", "fra.Enabled=true:boolean", "fra.Visible=true:boolean",
                     "fra.Caption=:text", "font"},
                    "&Go "},
        // The label's alignment is written even untouched, after the font.
        CaptionCase{"Label",
                    "New Label Control",
                    "lbl",
                    {"lbl.Name=lbl:text", "lbl.Enabled=true:boolean", "lbl.Visible=true:boolean",
                     "lbl.Caption=:text", "lbl.AutoSize=false:boolean",
                     "lbl.WordWrap=false:boolean", "font", "lbl.Alignment=0:integer16"},
                    "Go "}));

// ---------------------------------------------------------------------------
// Option button: Value is a Boolean.

TEST_F(CaptionDialogTest, ASelectedOptionButtonIsWrittenTrueNotOne) {
  Drop("OptionButton", "type \"Yes\"\nclick chkChecked\nkey Enter\n", "dump\n");
  EXPECT_EQ(Writes(), (Lines{"optYes.Name=optYes:text", "optYes.Enabled=true:boolean",
                             "optYes.Visible=true:boolean", "optYes.Caption=&Yes:text",
                             "optYes.Value=true:boolean", "font"}));
  const Json value = PropertyOf(Dumped("optYes"), "Value");
  EXPECT_EQ(value["kind"], "boolean");
  EXPECT_EQ(value["value"], true);
}

// ---------------------------------------------------------------------------
// Command button: Default then Cancel, unrelated to each other.

TEST_F(CaptionDialogTest, DefaultAndCancelMayBothBeSetAndGoInThatOrder) {
  Drop("CommandButton", "type \"OK\"\nclick chkCancel\nclick chkDefault\nkey Enter\n", "dump\n");
  EXPECT_EQ(Writes(), (Lines{"cmdOK.Name=cmdOK:text", "cmdOK.Enabled=true:boolean",
                             "cmdOK.Visible=true:boolean", "cmdOK.Caption=&OK:text",
                             "cmdOK.Default=true:boolean", "cmdOK.Cancel=true:boolean", "font"}));
  EXPECT_EQ(PropertyOf(Dumped("cmdOK"), "Default")["value"], true);
  EXPECT_EQ(PropertyOf(Dumped("cmdOK"), "Cancel")["value"], true);
}

// ---------------------------------------------------------------------------
// Frame: the whole set with every option changed.

TEST_F(CaptionDialogTest, AFrameWritesItsOptionsIndexAndTagButNoValue) {
  Drop("Frame",
       "type \"Main\"\nclick chkEnabled\nclick chkVisible\nclick txtIndex\ntype \"x3\"\n"
       "click txtTag\ntype \" t \"\nkey Enter\n");
  EXPECT_EQ(Writes(), (Lines{"fraMain.Name=fraMain:text", "fraMain.Enabled=false:boolean",
                             "fraMain.Visible=false:boolean", "fraMain.Caption=&Main:text", "font",
                             "fraMain(3).Index=3:text", "fraMain(3).Tag= t :text"}));
}

// ---------------------------------------------------------------------------
// Label: plain caption, alignment from the selected button's Tag, tab order.

TEST_F(CaptionDialogTest, TheLabelCaptionHasNoAccessKeyAndIsEmptyForShortNames) {
  Drop("Label", "type \"Total\"\nstate\n", "key Esc\n");
  EXPECT_EQ(Control("txtCaption")["text"], "Total");
  EXPECT_EQ(Control("txtCaption")["sel_length"], 5) << "the whole caption is selected";
  Drop("Label", "key Backspace\nstate\n", "key Esc\n");
  EXPECT_EQ(Control("txtName")["text"], "lb");
  EXPECT_EQ(Control("txtCaption")["text"], "") << "no lone \"&\" as in the other three";
}

TEST_F(CaptionDialogTest, AlignmentComesFromTheSelectedButtonsTag) {
  // The buttons stand left, centre, right; Alignment numbers them 0, 2, 1.
  for (const auto& [button, written] :
       {std::pair{"optLeft", "0"}, std::pair{"optCenter", "2"}, std::pair{"optRight", "1"}}) {
    Drop("Label", std::string("click ") + button + "\nclick OKButton\n");
    const Lines writes = Writes();
    ASSERT_EQ(writes.size(), 8u) << button;
    EXPECT_EQ(writes[6], "font") << button;
    EXPECT_EQ(writes[7], std::string("lbl.Alignment=") + written + ":integer16") << button;
  }
}

TEST_F(CaptionDialogTest, AutoSizeAndWordWrapAreWrittenInThatOrder) {
  // One box set: each write must read its own box.
  Drop("Label", "click chkAutoSize\nclick OKButton\n");
  const Lines writes = Writes();
  ASSERT_GE(writes.size(), 6u);
  EXPECT_EQ(writes[4], "lbl.AutoSize=true:boolean");
  EXPECT_EQ(writes[5], "lbl.WordWrap=false:boolean");
}

TEST_F(CaptionDialogTest, ARefusedAlignmentKeepsTheFontAndFocusesTheSelectedButton) {
  Run(std::string(kConnected) +
      "refuse lblSum Alignment \"Not here\"\n"
      "drop Label\ntype \"Sum\"\nclick optRight\nclick OKButton\nanswer OK\nstate\n"
      "key Esc\ndump\n");
  ASSERT_EQ(Events("msgbox").size(), 1u);
  EXPECT_EQ(Writes(), (Lines{"lblSum.Name=lblSum:text", "lblSum.Enabled=true:boolean",
                             "lblSum.Visible=true:boolean", "lblSum.Caption=Sum:text",
                             "lblSum.AutoSize=false:boolean", "lblSum.WordWrap=false:boolean",
                             "font", "lblSum.Alignment!=1:integer16"}));
  EXPECT_TRUE(Control("optRight")["focus"].get<bool>());
  EXPECT_TRUE(Control("optRight")["value"].get<bool>()) << "the choice survives the refusal";
  const Json label = Dumped("lblSum");
  EXPECT_EQ(label["font"]["name"], "Times New Roman") << "the font stage came before";
  EXPECT_EQ(PropertyOf(label, "Alignment")["value"], 0) << "as the IDE made it";
}

TEST_F(CaptionDialogTest, TheLabelTabsFromTheCaptionStraightToSave) {
  Drop("Label", "key Tab\nstate\nkey Tab\nstate\nkey Tab\nstate\nkey Tab\nstate\n", "key Esc\n");
  EXPECT_EQ(FocusTrail(), (Lines{"txtCaption", "OKButton", "optLeft", "chkEnabled"}));
}

}  // namespace
}  // namespace sessions
