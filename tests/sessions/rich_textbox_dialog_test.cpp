// The rich text box dialog as a user meets it: the scroll bars come from the
// option clicks, and Index goes as a 16-bit integer.
#include "sessions/session_harness.hpp"

namespace sessions {
namespace {

using Lines = std::vector<std::string>;

const Lines kFirstSix = {"rtf.Name=rtf:text",          "rtf.Enabled=true:boolean",
                         "rtf.Visible=true:boolean",   "rtf.MultiLine=true:boolean",
                         "rtf.ScrollBars=3:integer16", "font"};

class RichTextBoxDialogTest : public SessionTest {
 protected:
  void Drop(const std::string& user, const std::string& before = "") {
    Run(std::string(kConnected) + before + "drop RichTextBox\n" + user);
  }
};

TEST_F(RichTextBoxDialogTest, SavingTheDefaultsWritesBothScrollBars) {
  Drop("state\nkey Enter\n");
  EXPECT_EQ(Events("form_shown")[0]["caption"], "New Rich Text Box Control");
  EXPECT_TRUE(Control("optSB(3)")["value"].get<bool>());
  EXPECT_EQ(Control("txtFont")["text"], "Times New Roman");
  EXPECT_EQ(Writes(), kFirstSix);
}

TEST_F(RichTextBoxDialogTest, TheNameTakesFortyCharacters) {
  Drop("type \"abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyz\"\nstate\nkey Esc\n");
  EXPECT_EQ(Control("txtName")["text"], "rtfabcdefghijklmnopqrstuvwxyzabcdefghijk");
}

struct ScrollBarsCase {
  const char* user;
  int written;
};

// "ScrollBars2 after optSB(2) optSB(0) optSB(2)": the value and the user's actions.
void PrintTo(const ScrollBarsCase& c, std::ostream* os) {
  std::string actions = c.user;
  for (auto& ch : actions) {
    if (ch == '\n') ch = ';';
  }
  *os << "ScrollBars" << c.written << " after " << actions;
}

class RichTextBoxScrollBarsTest : public RichTextBoxDialogTest,
                                  public ::testing::WithParamInterface<ScrollBarsCase> {};

TEST_P(RichTextBoxScrollBarsTest, TheLastClickedButtonIsWritten) {
  Drop(std::string(GetParam().user) + "click OKButton\n");
  ASSERT_GE(Writes().size(), 5u);
  EXPECT_EQ(Writes()[4], "rtf.ScrollBars=" + std::to_string(GetParam().written) + ":integer16");
}

INSTANTIATE_TEST_SUITE_P(
    Clicks, RichTextBoxScrollBarsTest,
    ::testing::Values(ScrollBarsCase{"click optSB(1)\n", 1}, ScrollBarsCase{"click optSB(0)\n", 0},
                      ScrollBarsCase{"click optSB(2)\nclick optSB(0)\nclick optSB(2)\n", 2},
                      ScrollBarsCase{"click optSB(1)\nclick optSB(3)\n", 3},
                      // Arrows select as they go: Down from Both wraps round to None.
                      ScrollBarsCase{"click optSB(3)\nkey Down\n", 0},
                      ScrollBarsCase{"click optSB(0)\nkey Down 2\n", 2}));

TEST_F(RichTextBoxDialogTest, ARefusedScrollBarsFocusesTheFirstButtonWhicheverIsSelected) {
  Drop("click optSB(2)\nclick OKButton\nanswer OK\nstate\nkey Esc\n",
       "refuse rtf ScrollBars \"Not with MultiLine\"\n");
  ASSERT_EQ(Events("msgbox").size(), 1u);
  EXPECT_EQ(Writes().back(), "rtf.ScrollBars!=2:integer16");
  EXPECT_TRUE(Control("optSB(0)")["focus"].get<bool>());
  EXPECT_TRUE(Control("optSB(2)")["value"].get<bool>()) << "the selection is left alone";
}

TEST_F(RichTextBoxDialogTest, IndexGoesAsA16BitInteger) {
  Drop("click txtIndex\ntype \"32767\"\nkey Enter\n");
  Lines expected = kFirstSix;
  expected.push_back("rtf(32767).Index=32767:integer16");
  EXPECT_EQ(Writes(), expected);
}

TEST_F(RichTextBoxDialogTest, AnIndexBeyond16BitsEndsTheSaveInSilence) {
  Drop("click txtIndex\ntype \"32768\"\nkey Enter\nstate\nkey Esc\n");
  EXPECT_TRUE(Events("msgbox").empty());
  EXPECT_EQ(Writes(), kFirstSix);
  EXPECT_TRUE(Control("txtIndex")["focus"].get<bool>());
}

}  // namespace
}  // namespace sessions
