// The text box dialog as a user meets it: Text written first and even when
// empty, MultiLine before Name, a single-line text field, its own tab order,
// no link from the name, and an index that takes digits only.
#include "sessions/session_harness.hpp"

namespace sessions {
namespace {

using Lines = std::vector<std::string>;

Json PropertyOf(const Json& control, const std::string& name) {
  for (const auto& p : control["properties"]) {
    if (p["name"] == name) return p;
  }
  return Json();
}

class TextBoxDialogTest : public SessionTest {
 protected:
  // Drops a text box (Text1) and runs `user` in its dialog, then `after`.
  void Drop(const std::string& user, const std::string& after = "dump\n") {
    Run(std::string(kConnected) + "drop TextBox\n" + user + after);
  }
};

TEST_F(TextBoxDialogTest, SavingTheDefaultsEmptiesTheTextFirst) {
  Drop("state\nkey Enter\n");
  EXPECT_EQ(Events("form_shown")[0]["caption"], "New TextBox Control");
  EXPECT_EQ(Control("txtName")["text"], "txt");
  EXPECT_TRUE(Control("txtName")["focus"].get<bool>());
  // The control is still Text1 when its text and flag are written.
  EXPECT_EQ(Writes(),
            (Lines{"Text1.Text=:text", "Text1.MultiLine=false:boolean", "txt.Name=txt:text",
                   "txt.Enabled=true:boolean", "txt.Visible=true:boolean", "font"}));
  EXPECT_EQ(PropertyOf(Dumped("txt"), "Text")["value"], "")
      << "the IDE's default text \"Text1\" is gone";
  EXPECT_EQ(Dumped("txt")["font"]["name"], "Times New Roman");
}

TEST_F(TextBoxDialogTest, TheTextFieldIsSingleLineSoEnterSaves) {
  Drop("click chkMulti\nclick txtText\ntype \"Hello\"\nkey Enter\n");
  ASSERT_EQ(Events("form_closed").size(), 1u) << "Enter in txtText pressed Save";
  EXPECT_EQ(Writes(),
            (Lines{"Text1.Text=Hello:text", "Text1.MultiLine=true:boolean", "txt.Name=txt:text",
                   "txt.Enabled=true:boolean", "txt.Visible=true:boolean", "font"}));
}

TEST_F(TextBoxDialogTest, ARefusedNameLeavesTheTextAndMultiLineWritten) {
  Run(std::string(kConnected) +
      "refuse Text1 Name \"Name in use\"\n"
      "drop TextBox\ntype \"Body\"\nclick txtText\ntype \"Hi\"\nclick chkMulti\n"
      "click OKButton\nanswer OK\nstate\nkey Esc\ndump\n");
  EXPECT_EQ(Writes(), (Lines{"Text1.Text=Hi:text", "Text1.MultiLine=true:boolean",
                             "Text1.Name!=txtBody:text"}));
  EXPECT_TRUE(Control("txtName")["focus"].get<bool>());
  const Json control = Dumped("Text1");
  ASSERT_FALSE(control.is_null()) << "the control keeps the IDE's name";
  EXPECT_EQ(PropertyOf(control, "Text")["value"], "Hi");
  EXPECT_EQ(PropertyOf(control, "MultiLine")["value"], true);
}

TEST_F(TextBoxDialogTest, VisibleComesBeforeEnabledInTheTabOrder) {
  Drop("key Tab 3\nstate\nkey Tab\nstate\n", "key Esc\n");
  Lines focused;
  for (const auto& e : Events("state")) {
    for (const auto& c : e["state"]["controls"]) {
      if (c["focus"].get<bool>()) focused.push_back(c["control"].get<std::string>());
    }
  }
  EXPECT_EQ(focused, (Lines{"chkVisible", "chkEnabled"}));
}

TEST_F(TextBoxDialogTest, TheNameFeedsNothingAndDropsSpacesAndDots) {
  Drop("type \"Body.Text x\"\nstate\n", "key Esc\n");
  EXPECT_EQ(Control("txtName")["text"], "txtBodyTextx");
  EXPECT_EQ(Control("txtText")["text"], "");
}

// Unlike a bare text field, the index takes digits only, as in the other
// dialogs; a letter never reaches the IDE.
TEST_F(TextBoxDialogTest, TheIndexTakesDigitsOnly) {
  Drop(
      "click txtIndex\ntype \"a1b2\"\nkey Backspace\nstate\nclick txtTag\ntype \" k \"\n"
      "key Enter\n");
  EXPECT_EQ(Control("txtIndex")["text"], "12") << "Backspace is filtered too";
  const Lines writes = Writes();
  ASSERT_EQ(writes.size(), 8u);
  EXPECT_EQ(writes[6], "txt(12).Index=12:text");
  EXPECT_EQ(writes[7], "txt(12).Tag= k :text") << "blanks at the ends are kept";
}

}  // namespace
}  // namespace sessions
