// The four list dialogs as a user meets them: combo box, list box, list view
// and tree view. What they share with every dialog is tested elsewhere; here
// are their defaults, their option groups and what sets each apart.
#include <algorithm>

#include "sessions/session_harness.hpp"

namespace sessions {
namespace {

using Lines = std::vector<std::string>;

// The value of one property in a dumped control, or null.
Json DumpedValue(const Json& control, const std::string& property) {
  for (const auto& p : control["properties"]) {
    if (p["name"] == property) return p["value"];
  }
  return Json();
}

class ListDialogsTest : public SessionTest {
 protected:
  // Drops a control of `cls` and runs `user` in its dialog, then `after`.
  void Drop(const std::string& cls, const std::string& user, const std::string& after = "dump\n") {
    Run(std::string(kConnected) + "drop " + cls + "\n" + user + after);
  }
  // As Drop, with the IDE refusing the next write of `property` on `name`.
  void DropRefusing(const std::string& cls, const std::string& name, const std::string& property,
                    const std::string& user) {
    Run(std::string(kConnected) + "refuse " + name + " " + property + " \"Not allowed\"\n" +
        "drop " + cls + "\n" + user + "answer OK\nstate\nkey Esc\ndump\n");
  }
};

// ---------------------------------------------------------------------------
// Shared by the four: defaults, and the name and index filters.

struct DefaultsCase {
  const char* cls;
  const char* title;
  const char* prefix;
  Lines writes;
};

void PrintTo(const DefaultsCase& c, std::ostream* os) { *os << c.cls; }

class ListDialogDefaultsTest : public ListDialogsTest,
                               public ::testing::WithParamInterface<DefaultsCase> {};

TEST_P(ListDialogDefaultsTest, SavingTheDefaultsWritesTheDefaultsInOrderWithTheirKinds) {
  const DefaultsCase& c = GetParam();
  Drop(c.cls, "state\nkey Enter\n");
  const auto shown = Events("form_shown");
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_EQ(shown[0]["caption"], c.title);
  EXPECT_EQ(Control("txtName")["text"], c.prefix);
  EXPECT_TRUE(Control("txtName")["focus"].get<bool>());
  EXPECT_EQ(Control("txtFont")["text"], "Times New Roman");
  EXPECT_EQ(Writes(), c.writes) << "no Index and no Tag";
  EXPECT_EQ(Events("font_write").size(), 6u);
  EXPECT_EQ(Events("form_closed").size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(
    Dialogs, ListDialogDefaultsTest,
    ::testing::Values(
        DefaultsCase{"ComboBox",
                     "New ComboBox Control",
                     "cbo",
                     // Visible before Enabled; Text goes also when empty.
                     {"cbo.Name=cbo:text", "cbo.Text=:text", "cbo.Visible=true:boolean",
                      "cbo.Enabled=true:boolean", "cbo.Sorted=true:boolean", "font",
                      "cbo.Style=0:integer16"}},
        DefaultsCase{"ListBox",
                     "New ListBox Control",
                     "lst",
                     // Both groups are written also at their defaults.
                     {"lst.Name=lst:text", "lst.Enabled=true:boolean", "lst.Visible=true:boolean",
                      "lst.Sorted=true:boolean", "font", "lst.MultiSelect=0:integer16",
                      "lst.Style=0:integer16"}},
        DefaultsCase{"ListView",
                     "New ListView Control",
                     "lv",
                     {"lv.Name=lv:text", "lv.Enabled=true:boolean", "lv.Visible=true:boolean",
                      "lv.Sorted=true:boolean", "lv.MultiSelect=false:boolean",
                      "lv.HideColumnHeaders=false:boolean", "font", "lv.View=3:integer16"}},
        DefaultsCase{"TreeView",
                     "New TreeView Control",
                     "tv",
                     // Sorted starts off here, HideSelection on.
                     {"tv.Name=tv:text", "tv.Enabled=true:boolean", "tv.Visible=true:boolean",
                      "tv.Sorted=false:boolean", "tv.FullRowSelect=false:boolean",
                      "tv.HideSelection=true:boolean", "font", "tv.LineStyle=0:integer16"}}));

struct FiltersCase {
  const char* cls;
  const char* name;  // the name after typing " My.List" behind the prefix
};

void PrintTo(const FiltersCase& c, std::ostream* os) { *os << c.cls; }

class ListDialogFiltersTest : public ListDialogsTest,
                              public ::testing::WithParamInterface<FiltersCase> {};

TEST_P(ListDialogFiltersTest, TheNameDropsSpacesAndDotsAndTheIndexTakesDigits) {
  const FiltersCase& c = GetParam();
  Drop(c.cls,
       "type \" My.List\"\nclick txtIndex\ntype \"1x2\"\nkey Backspace\n"
       "click txtTag\ntype \" t \"\nkey Enter\n");
  const Lines writes = Writes();
  ASSERT_GE(writes.size(), 3u);
  const std::string name = c.name;
  EXPECT_EQ(writes.front(), name + "." + "Name=" + name + ":text");
  // Index and Tag come last, as typed text, under the control's new name.
  EXPECT_EQ(writes[writes.size() - 2], name + "(12).Index=12:text");
  EXPECT_EQ(writes.back(), name + "(12).Tag= t :text");
}

INSTANTIATE_TEST_SUITE_P(Dialogs, ListDialogFiltersTest,
                         ::testing::Values(FiltersCase{"ComboBox", "cboMyList"},
                                           FiltersCase{"ListBox", "lstMyList"},
                                           FiltersCase{"ListView", "lvMyList"},
                                           FiltersCase{"TreeView", "tvMyList"}));

// ---------------------------------------------------------------------------
// Combo box: the style governs the text field.

TEST_F(ListDialogsTest, DropdownListDisablesTheTextFieldAndTheOtherStylesEnableIt) {
  Drop("ComboBox",
       "click txtText\ntype \"Pick one\"\nclick optDDList\nstate\n"
       "click optSimple\nstate\nclick OKButton\n");
  // The last state: Simple Combo chosen after Dropdown List.
  EXPECT_TRUE(Control("txtText")["enabled"].get<bool>());
  EXPECT_TRUE(Control("lblText")["enabled"].get<bool>());
  EXPECT_EQ(Control("txtText")["text"], "Pick one") << "the text outlives the disabled spell";
  EXPECT_EQ(Writes(), (Lines{"cbo.Name=cbo:text", "cbo.Text=Pick one:text",
                             "cbo.Visible=true:boolean", "cbo.Enabled=true:boolean",
                             "cbo.Sorted=true:boolean", "font", "cbo.Style=1:integer16"}));

  // The state while Dropdown List was on.
  const auto states = Events("state");
  ASSERT_EQ(states.size(), 2u);
  for (const auto& c : states[0]["state"]["controls"]) {
    if (c["control"] == "txtText") {
      EXPECT_FALSE(c["enabled"].get<bool>());
      EXPECT_EQ(c["text"], "Pick one");
    }
    if (c["control"] == "lblText") {
      EXPECT_FALSE(c["enabled"].get<bool>());
      EXPECT_EQ(c["caption"], "Combo Box Te&xt:");
    }
  }
}

TEST_F(ListDialogsTest, DropdownComboEnablesTheTextFieldAgain) {
  Drop("ComboBox", "click optDDList\nclick optDDCombo\nstate\nkey Esc\n");
  EXPECT_TRUE(Control("txtText")["enabled"].get<bool>());
  EXPECT_TRUE(Control("lblText")["enabled"].get<bool>());
  EXPECT_TRUE(Control("optDDCombo")["value"].get<bool>());
}

TEST_F(ListDialogsTest, DropdownListWritesNoTextWhateverTheFieldHolds) {
  Drop("ComboBox", "click txtText\ntype \"ignored\"\nclick optDDList\nclick OKButton\n");
  EXPECT_EQ(Writes(),
            (Lines{"cbo.Name=cbo:text", "cbo.Visible=true:boolean", "cbo.Enabled=true:boolean",
                   "cbo.Sorted=true:boolean", "font", "cbo.Style=2:integer16"}));
}

TEST_F(ListDialogsTest, ARefusedComboStyleFocusesTheStyleThatIsOn) {
  DropRefusing("ComboBox", "cbo", "Style", "click optDDList\nclick OKButton\n");
  ASSERT_EQ(Events("msgbox").size(), 1u);
  EXPECT_TRUE(Control("optDDList")["focus"].get<bool>());
  EXPECT_EQ(Writes().back(), "cbo.Style!=2:integer16");
  const Json dumped = Dumped("cbo");
  ASSERT_FALSE(dumped.is_null()) << "the name written before stays";
  EXPECT_EQ(dumped["font"]["name"], "Times New Roman") << "so does the font";
}

// ---------------------------------------------------------------------------
// List box: two groups, MultiSelect before Style.

TEST_F(ListDialogsTest, ExtendedWithCheckBoxesWritesBothAndLeavesTheAnswerToTheIde) {
  Drop("ListBox", "click optExtended\nclick optCheckBox\nclick OKButton\n");
  const Lines writes = Writes();
  ASSERT_GE(writes.size(), 2u);
  EXPECT_EQ(writes[writes.size() - 2], "lst.MultiSelect=2:integer16");
  EXPECT_EQ(writes.back(), "lst.Style=1:integer16");
}

TEST_F(ListDialogsTest, ARefusedListStyleKeepsMultiSelectAndFocusesCheckBox) {
  DropRefusing("ListBox", "lst", "Style", "click optExtended\nclick optCheckBox\nclick OKButton\n");
  ASSERT_EQ(Events("msgbox").size(), 1u);
  EXPECT_TRUE(Control("optCheckBox")["focus"].get<bool>());
  EXPECT_TRUE(Control("optExtended")["value"].get<bool>()) << "the choices stay";
  EXPECT_EQ(Writes().back(), "lst.Style!=1:integer16");
  const Json dumped = Dumped("lst");
  ASSERT_FALSE(dumped.is_null());
  EXPECT_EQ(DumpedValue(dumped, "MultiSelect"), 2);
}

// ---------------------------------------------------------------------------
// List view: Boolean MultiSelect before HideColumnHeaders; Report by default.

TEST_F(ListDialogsTest, ListViewFlagsAndViewReachTheControl) {
  Drop("ListView",
       "click chkHideHdrs\nclick chkMulti\nclick chkSorted\nclick optIcon\nclick OKButton\n");
  EXPECT_EQ(Writes(),
            (Lines{"lv.Name=lv:text", "lv.Enabled=true:boolean", "lv.Visible=true:boolean",
                   "lv.Sorted=false:boolean", "lv.MultiSelect=true:boolean",
                   "lv.HideColumnHeaders=true:boolean", "font", "lv.View=0:integer16"}));
}

TEST_F(ListDialogsTest, ARefusedViewKeepsTheFontAndFocusesTheViewThatIsOn) {
  DropRefusing("ListView", "lv", "View", "click optList\nclick OKButton\n");
  ASSERT_EQ(Events("msgbox").size(), 1u);
  EXPECT_TRUE(Control("optList")["focus"].get<bool>());
  EXPECT_EQ(Writes().back(), "lv.View!=2:integer16");
  EXPECT_EQ(Dumped("lv")["font"]["name"], "Times New Roman");
}

// ---------------------------------------------------------------------------
// Tree view: the line style is the element's place; its own access keys.

TEST_F(ListDialogsTest, RootLinesWriteLineStyleOneOnce) {
  Drop("TreeView", "click optLineStyle(1)\nstate\nclick OKButton\n");
  EXPECT_FALSE(Control("optLineStyle(0)")["value"].get<bool>());
  EXPECT_TRUE(Control("optLineStyle(0)")["tag"].is_null()) << "the elements carry no Tag";
  const Lines writes = Writes();
  EXPECT_EQ(writes.back(), "tv.LineStyle=1:integer16");
  EXPECT_EQ(std::count_if(writes.begin(), writes.end(),
                          [](const std::string& w) { return w.find("LineStyle") != w.npos; }),
            1);
}

TEST_F(ListDialogsTest, ARefusedLineStyleFocusesTheElementThatIsOn) {
  DropRefusing("TreeView", "tv", "LineStyle", "click optLineStyle(1)\nclick OKButton\n");
  ASSERT_EQ(Events("msgbox").size(), 1u);
  EXPECT_TRUE(Control("optLineStyle(1)")["focus"].get<bool>());
  EXPECT_EQ(Writes().back(), "tv.LineStyle!=1:integer16");
}

TEST_F(ListDialogsTest, TreeViewAccessKeysReachSortedAndTag) {
  // Alt+O ticks Sorted; Alt+A goes to the Tag field; Alt+H clears Hide Selection.
  Drop("TreeView", "alt o\nalt h\nalt f\nalt a\ntype \"node\"\nstate\nkey Enter\n");
  EXPECT_TRUE(Control("txtTag")["focus"].get<bool>());
  EXPECT_EQ(Writes(), (Lines{"tv.Name=tv:text", "tv.Enabled=true:boolean",
                             "tv.Visible=true:boolean", "tv.Sorted=true:boolean",
                             "tv.FullRowSelect=true:boolean", "tv.HideSelection=false:boolean",
                             "font", "tv.LineStyle=0:integer16", "tv.Tag=node:text"}));
}

}  // namespace
}  // namespace sessions
