// Remove Code and Rename Code as a user meets them: delete or rename a
// control in the designer, answer the dialog, and find the form's code
// changed exactly where it should be and nowhere else.
#include "sessions/session_harness.hpp"

namespace sessions {
namespace {

// Script text for a form's code: the lines joined with CR LF, escaped.
std::string Code(const Lines& lines) {
  std::string out = "code add \"";
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i) out += "\\r\\n";
    for (char c : lines[i]) {
      if (c == '"' || c == '\\') out.push_back('\\');
      out.push_back(c);
    }
  }
  return out + "\"\n";
}

class CodeMaintenanceTest : public SessionTest {
 protected:
  // A form with text boxes Text1 and Text10 and the given code, the add-in
  // connected only afterwards (so the drops open no dialogs), then `actions`.
  void Given(const Lines& code, const std::string& actions, const std::string& before = "") {
    Run(before + "new-project P\nnew-form Form1\ndrop TextBox\ndrop TextBox\n" +
        "rename Text2 Text10\n" + Code(code) + "connect\n" + actions + "listing\n");
  }
  Lines Listing() const {
    Lines out;
    const auto all = Events("listing");
    if (all.empty()) return out;
    for (const auto& l : all.back()["lines"]) out.push_back(l.get<std::string>());
    return out;
  }
};

const Lines kTwoProcedures = {
    "Option Explicit", "", "Private Sub Text1_Change()",  "    Beep",
    "End Sub",         "", "Private Sub Text1_Helper()",  "    ' Text1 helper",
    "End Sub",         "", "Private Sub Text10_Change()", "    Text10.Text = \"\"",
    "End Sub"};

TEST_F(CodeMaintenanceTest, DeletingListsEveryMemberCheckedAndRemovesThem) {
  Given(kTwoProcedures, "delete Text1\nstate\nclick cmdOK\n");
  EXPECT_EQ(Titles(), Lines{"Remove Code for Control"});
  EXPECT_EQ(Control("Label1")["caption"],
            "The following methods are declared for the control that was just deleted.  "
            "Select the methods that you would like to remove from the code listing.");
  EXPECT_EQ(Control("lblCtlName")["caption"], "Control Name : Text1");
  EXPECT_EQ(Control("cmdOK")["caption"], "&Ok");
  std::string rows;
  const Json list = Control("lstMembers");
  for (const auto& r : list["rows"]) {
    rows += r["text"].get<std::string>() + (r["checked"].get<bool>() ? "[x] " : "[ ] ");
  }
  EXPECT_EQ(rows, "Text1_Change[x] Text1_Helper[x] ");
  // The adjacent members both go; blank lines between procedures stay.
  EXPECT_EQ(Listing(), (Lines{"Option Explicit", "", "", "", "Private Sub Text10_Change()",
                              "    Text10.Text = \"\"", "End Sub"}));
}

TEST_F(CodeMaintenanceTest, AClearedRowIsKept) {
  Given(kTwoProcedures, "delete Text1\ntick lstMembers 0\nclick cmdOK\n");
  EXPECT_EQ(Listing(),
            (Lines{"Option Explicit", "", "Private Sub Text1_Change()", "    Beep", "End Sub", "",
                   "", "Private Sub Text10_Change()", "    Text10.Text = \"\"", "End Sub"}));
}

TEST_F(CodeMaintenanceTest, NothingCheckedChangesNoByte) {
  Given(kTwoProcedures, "delete Text1\ntick lstMembers 0\ntick lstMembers 1\nkey Enter\n");
  EXPECT_EQ(Events("form_closed").size(), 1u);
  EXPECT_EQ(Listing(), kTwoProcedures);
  EXPECT_TRUE(Events("code_edit").size() == 1u) << "only the code added by the script";
}

TEST_F(CodeMaintenanceTest, WithRemoveCodeOffOrNoMemberNothingOpens) {
  Given(kTwoProcedures, "delete Text1\n", "store Vorrel Options RemoveCode 0\n");
  EXPECT_TRUE(Titles().empty());
  EXPECT_EQ(Listing(), kTwoProcedures);
  // A longer name is no member of the control.
  Given({"Private Sub Text10_Change()", "End Sub"}, "delete Text1\n");
  EXPECT_TRUE(Titles().empty());
}

const Lines kRenamed = {"' Text1 feeds Text10", "Private Sub Text1_Change()",
                        "    MsgBox \"Text1 changed\": text1.Refresh", "End Sub"};

TEST_F(CodeMaintenanceTest, RenamingCarriesTheNameEverywhereButOtherCase) {
  Given(kRenamed, "rename Text1 Text2\nstate\nclick cmdReplace\n");
  EXPECT_EQ(Titles(), Lines{"Rename Code for Control"});
  EXPECT_EQ(Control("Label1")["caption"],
            "You have just changed the name of a control.  Do you want to change all references "
            "in the code for the current Form/Control to reflect the new name for the control?");
  EXPECT_EQ(Control("cmdReplace")["caption"], "&Replace");
  EXPECT_EQ(Control("cmdCancel")["caption"], "&Cancel");
  EXPECT_EQ(Control("lblOldName")["caption"], "Old Control Name : Text1");
  EXPECT_EQ(Control("lblNewName")["caption"], "New Control Name : Text2");
  EXPECT_EQ(Listing(), (Lines{"' Text2 feeds Text20", "Private Sub Text2_Change()",
                              "    MsgBox \"Text2 changed\": text1.Refresh", "End Sub"}));
}

TEST_F(CodeMaintenanceTest, CancelLeavesTheCode) {
  Given(kRenamed, "rename Text1 Text2\nkey Esc\n");
  EXPECT_EQ(Listing(), kRenamed);
}

TEST_F(CodeMaintenanceTest, WithRenameCodeOffOrTheNameAbsentNothingOpens) {
  Given(kRenamed, "rename Text1 Text2\n", "store Vorrel Options RenameCode 0\n");
  EXPECT_TRUE(Titles().empty());
  Given({"Private Sub Form_Load()", "End Sub"}, "rename Text1 Text2\n");
  EXPECT_TRUE(Titles().empty());
}

TEST_F(CodeMaintenanceTest, RenamingToAnUnusedNameAndBackChangesNoByte) {
  for (const Lines& code : {kTwoProcedures, kRenamed}) {
    Given(code, "rename Text1 Zq9\nkey Enter\nrename Zq9 Text1\nkey Enter\n");
    EXPECT_EQ(Titles().size(), 2u);
    EXPECT_EQ(Listing(), code);
  }
}

}  // namespace
}  // namespace sessions
