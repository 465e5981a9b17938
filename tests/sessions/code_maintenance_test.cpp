// Remove Code and Rename Code as a user meets them: delete or rename a
// control in the designer, answer the dialog, and find the form's code
// changed exactly where it should be and nowhere else.
#include "sessions/session_harness.hpp"

namespace sessions {
namespace {

using Lines = std::vector<std::string>;

// Script text for a form's code: the lines joined with CR LF, escaped.
std::string Code(const Lines& lines) {
  std::string out = "code add \"";
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i) out += "\\r\\n";
    for (char c : lines[i]) {
      if (c == '"' || c == '\\') out.push_back('\\');
      if (c == '\t') {
        out += "\\t";
        continue;
      }
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
  std::vector<Json> Shown() const { return Events("form_shown"); }
};

const Lines kTwoProcedures = {
    "Option Explicit", "", "Private Sub Text1_Change()",  "    Beep",
    "End Sub",         "", "Private Sub Text1_Helper()",  "    ' Text1 helper",
    "End Sub",         "", "Private Sub Text10_Change()", "    Text10.Text = \"\"",
    "End Sub"};

TEST_F(CodeMaintenanceTest, ALongerNameIsNoMemberOfTheControl) {
  const Lines code = {"Private Sub Text10_Change()", "End Sub"};
  Given(code, "delete Text1\n");
  EXPECT_TRUE(Shown().empty());
  EXPECT_EQ(Listing(), code);
}

TEST_F(CodeMaintenanceTest, DeletingListsEveryMemberCheckedAndRemovesThem) {
  Given(kTwoProcedures, "delete Text1\nstate\nclick cmdOK\n");
  ASSERT_EQ(Shown().size(), 1u);
  EXPECT_EQ(Shown()[0]["caption"], "Remove Code for Control");
  EXPECT_EQ(Control("Label1")["caption"],
            "The following methods are declared for the control that was just deleted.  "
            "Select the methods that you would like to remove from the code listing.");
  EXPECT_EQ(Control("lblCtlName")["caption"], "Control Name : Text1");
  EXPECT_EQ(Control("cmdOK")["caption"], "&Ok");
  const Json rows = Control("lstMembers")["rows"];
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0]["text"], "Text1_Change");
  EXPECT_EQ(rows[1]["text"], "Text1_Helper");
  EXPECT_TRUE(rows[0]["checked"].get<bool>());
  EXPECT_TRUE(rows[1]["checked"].get<bool>());
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

TEST_F(CodeMaintenanceTest, AClosingLineWithBlanksOrACommentEndsTheProcedure) {
  const Lines code = {"Private Sub Text1_Click()",  "    x = 1", "   End Sub ' done",
                      "Private Sub Text1_Change()", "End Sub",   "' after"};
  Given(code, "delete Text1\nclick cmdOK\n");
  EXPECT_EQ(Listing(), (Lines{"' after"}));
}

TEST_F(CodeMaintenanceTest, AnEndSubIndentedWithATabTakesNoOtherMembersText) {
  const Lines code = {"Private Sub Text1_Click()", "    x = 1", "\tEnd Sub", "",
                      "Private Sub Form_Load()",   "    y = 2", "End Sub"};
  Given(code, "delete Text1\nclick cmdOK\n");
  EXPECT_EQ(Listing(), (Lines{"", "Private Sub Form_Load()", "    y = 2", "End Sub"}));
}

TEST_F(CodeMaintenanceTest, AFunctionOfTheControlGoesByItsOwnClosingLine) {
  const Lines code = {"Private Function Text1_Valid() As Boolean", "    Text1_Valid = True",
                      "End Function", "Private Sub Form_Load()", "End Sub"};
  Given(code, "delete Text1\nclick cmdOK\n");
  EXPECT_EQ(Listing(), (Lines{"Private Sub Form_Load()", "End Sub"}));
}

TEST_F(CodeMaintenanceTest, WithRemoveCodeOffNothingOpens) {
  Given(kTwoProcedures, "delete Text1\n", "store Vorrel Options RemoveCode 0\n");
  EXPECT_TRUE(Shown().empty());
  EXPECT_EQ(Listing(), kTwoProcedures);
}

const Lines kRenamed = {"' Text1 feeds Text10", "Private Sub Text1_Change()",
                        "    MsgBox \"Text1 changed\": text1.Refresh", "End Sub"};

TEST_F(CodeMaintenanceTest, RenamingCarriesTheNameEverywhereButOtherCase) {
  Given(kRenamed, "rename Text1 Text2\nstate\nclick cmdReplace\n");
  ASSERT_EQ(Shown().size(), 1u);
  EXPECT_EQ(Shown()[0]["caption"], "Rename Code for Control");
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

TEST_F(CodeMaintenanceTest, CancelLeavesTheCodeAndTheNewName) {
  Given(kRenamed, "rename Text1 Text2\nkey Esc\ndump\n");
  EXPECT_EQ(Listing(), kRenamed);
  EXPECT_FALSE(Dumped("Text2").is_null());
}

TEST_F(CodeMaintenanceTest, WithRenameCodeOffOrTheNameAbsentNothingOpens) {
  Given(kRenamed, "rename Text1 Text2\n", "store Vorrel Options RenameCode 0\n");
  EXPECT_TRUE(Shown().empty());
  Given({"Private Sub Form_Load()", "End Sub"}, "rename Text1 Text2\n");
  EXPECT_TRUE(Shown().empty());
}

TEST_F(CodeMaintenanceTest, RenamingToAnUnusedNameAndBackChangesNoByte) {
  for (const Lines& code : {kTwoProcedures, kRenamed}) {
    Given(code, "rename Text1 Zq9\nkey Enter\nrename Zq9 Text1\nkey Enter\n");
    EXPECT_EQ(Shown().size(), 2u);
    EXPECT_EQ(Listing(), code);
  }
}

}  // namespace
}  // namespace sessions
