// The tabbed dialog control's dialog as a user meets it: two option groups
// kept in members, Tabs and TabsPerRow as text, Index as a 16-bit integer.
#include "sessions/session_harness.hpp"

namespace sessions {
namespace {

using Lines = std::vector<std::string>;

const Lines kDefaults = {"tab.Name=tab:text",
                         "tab.Enabled=true:boolean",
                         "tab.Visible=true:boolean",
                         "tab.Tabs=3:text",
                         "tab.TabsPerRow=3:text",
                         "tab.Style=0:integer16",
                         "tab.TabOrientation=0:integer16",
                         "font"};

class SSTabDialogTest : public SessionTest {
 protected:
  void Drop(const std::string& user, const std::string& before = "") {
    Run(std::string(kConnected) + before + "drop SSTab\n" + user);
  }
  // Replaces the text of a two-digit field (Backspace is filtered).
  static std::string Retype(const std::string& field, const std::string& text) {
    return "click " + field + "\nkey Home\nkey Delete 2\ntype \"" + text + "\"\n";
  }
};

TEST_F(SSTabDialogTest, SavingTheDefaultsWritesTabsAsTextAndBothGroupsAsZero) {
  Drop("state\nkey Enter\n");
  EXPECT_EQ(Events("form_shown")[0]["caption"], "New Tabbed Dialog Control");
  EXPECT_TRUE(Control("optStyle(0)")["value"].get<bool>());
  EXPECT_TRUE(Control("optTO(0)")["value"].get<bool>());
  EXPECT_EQ(Writes(), kDefaults);
}

TEST_F(SSTabDialogTest, TheOrientationsStandTopLeftBottomRightInTheTabOrder) {
  // Arrows walk the group in tab order: Down from Top selects Left (2).
  Drop("click optTO(0)\nkey Down\nstate\nclick OKButton\n");
  EXPECT_TRUE(Control("optTO(2)")["focus"].get<bool>());
  EXPECT_EQ(Writes()[6], "tab.TabOrientation=2:integer16");
  // Tab from Frame2's group enters Frame3's group at its selected button.
  Drop("click optStyle(1)\nkey Tab\nstate\nkey Down 2\nclick OKButton\n");
  EXPECT_TRUE(Control("optTO(0)")["focus"].get<bool>());
  EXPECT_EQ(Writes()[5], "tab.Style=1:integer16");
  EXPECT_EQ(Writes()[6], "tab.TabOrientation=1:integer16");
}

TEST_F(SSTabDialogTest, TabsTakeTwoDigitsAndGoAsTyped) {
  Drop(Retype("txtTabs", "1a23") + Retype("txtTabsPerRow", "9") + "state\nkey Enter\n");
  EXPECT_EQ(Control("txtTabs")["text"], "12");
  // TabsPerRow above Tabs is passed on without comment.
  EXPECT_EQ(Writes()[3], "tab.Tabs=12:text");
  EXPECT_EQ(Writes()[4], "tab.TabsPerRow=9:text");
  EXPECT_EQ(Events("form_closed").size(), 1u);
}

struct TabsCase {
  const char* field;
  const char* typed;
  const char* refused;  // the write the IDE refuses
  std::size_t written;  // writes before it
};

void PrintTo(const TabsCase& c, std::ostream* os) { *os << c.field << "=\"" << c.typed << "\""; }

class SSTabTabsTest : public SSTabDialogTest, public ::testing::WithParamInterface<TabsCase> {};

TEST_P(SSTabTabsTest, ZeroAndEmptyAreSentUnchangedForTheIdeToRefuse) {
  const TabsCase& c = GetParam();
  Drop(Retype(c.field, c.typed) + "key Enter\nanswer OK\nstate\nkey Esc\n");
  ASSERT_EQ(Events("msgbox").size(), 1u);
  const Lines writes = Writes();
  ASSERT_EQ(writes.size(), c.written + 1);
  EXPECT_TRUE(std::equal(writes.begin(), writes.end() - 1, kDefaults.begin()));
  EXPECT_EQ(writes.back(), c.refused);
  EXPECT_TRUE(Control(c.field)["focus"].get<bool>());
}

INSTANTIATE_TEST_SUITE_P(Values, SSTabTabsTest,
                         ::testing::Values(TabsCase{"txtTabs", "0", "tab.Tabs!=0:text", 3},
                                           TabsCase{"txtTabs", "00", "tab.Tabs!=00:text", 3},
                                           TabsCase{"txtTabs", "", "tab.Tabs!=:text", 3},
                                           TabsCase{"txtTabsPerRow", "00",
                                                    "tab.TabsPerRow!=00:text", 4}));

struct GroupRefusalCase {
  const char* property;
  const char* click;
  const char* refused;
  const char* focused;
};

void PrintTo(const GroupRefusalCase& c, std::ostream* os) { *os << c.property << " " << c.click; }

class SSTabGroupRefusalTest : public SSTabDialogTest,
                              public ::testing::WithParamInterface<GroupRefusalCase> {};

TEST_P(SSTabGroupRefusalTest, FocusesElementZeroOfTheGroup) {
  const GroupRefusalCase& c = GetParam();
  Drop(std::string("click ") + c.click + "\nclick OKButton\nanswer OK\nstate\nkey Esc\n",
       std::string("refuse tab ") + c.property + " \"No\"\n");
  ASSERT_EQ(Events("msgbox").size(), 1u);
  EXPECT_EQ(Writes().back(), c.refused);
  EXPECT_TRUE(Control(c.focused)["focus"].get<bool>());
  EXPECT_TRUE(Control(c.click)["value"].get<bool>());
}

INSTANTIATE_TEST_SUITE_P(
    Groups, SSTabGroupRefusalTest,
    ::testing::Values(GroupRefusalCase{"Style", "optStyle(1)", "tab.Style!=1:integer16",
                                       "optStyle(0)"},
                      GroupRefusalCase{"TabOrientation", "optTO(3)",
                                       "tab.TabOrientation!=3:integer16", "optTO(0)"}));

TEST_F(SSTabDialogTest, IndexGoesAsA16BitIntegerAndBeyondItEndsInSilence) {
  Drop("click txtIndex\ntype \"2\"\nkey Enter\n");
  EXPECT_EQ(Writes().back(), "tab(2).Index=2:integer16");
  Drop("click txtIndex\ntype \"40000\"\nkey Enter\nstate\nkey Esc\n");
  EXPECT_TRUE(Events("msgbox").empty());
  EXPECT_EQ(Writes(), kDefaults);
  EXPECT_TRUE(Control("txtIndex")["focus"].get<bool>());
}

}  // namespace
}  // namespace sessions
