// The four list dialogs as a user meets them -- combo box, list box, list
// view and tree view: their option groups, what sets each apart, and which
// field a refusal focuses.
#include "sessions/session_harness.hpp"

namespace sessions {
namespace {

const SaveCase kSaves[] = {
    // Dropdown List writes no Text, whatever the field holds.
    {"ComboBoxDropdownList", "ComboBox",
     "click txtText\ntype \"x\"\nclick optDDList\nclick OKButton\n",
     "Combo1.Name=cbo:text, Visible=true:boolean, Enabled=true:boolean, Sorted=true:boolean, font, "
     "Style=2:integer16"},
    {"ComboBoxSimpleAfterDropdownList", "ComboBox",
     "click txtText\ntype \"Pick one\"\nclick optDDList\nclick optSimple\nclick OKButton\n",
     "Combo1.Name=cbo:text, Text=Pick one:text, Visible=true:boolean, Enabled=true:boolean, "
     "Sorted=true:boolean, font, Style=1:integer16"},
    // A refused group focuses the button that is on.
    {"ComboBoxRefusedStyle", "ComboBox", "click optDDList\nclick OKButton\nanswer OK\n",
     "Combo1.Name=cbo:text, Visible=true:boolean, Enabled=true:boolean, Sorted=true:boolean, font, "
     "Style!=2:integer16; open at optDDList",
     "refuse cbo Style \"Not allowed\"\n"},
    // Two groups, MultiSelect before Style; the combination is the IDE's business.
    {"ListBoxRefusedStyle", "ListBox",
     "click optExtended\nclick optCheckBox\nclick OKButton\nanswer OK\n",
     "List1.Name=lst:text, Enabled=true:boolean, Visible=true:boolean, Sorted=true:boolean, font, "
     "MultiSelect=2:integer16, Style!=1:integer16; open at optCheckBox",
     "refuse lst Style \"Not allowed\"\n"},
    // Boolean MultiSelect before HideColumnHeaders.
    {"ListViewEverythingChanged", "ListView",
     "click chkHideHdrs\nclick chkMulti\nclick chkSorted\nclick optIcon\nclick OKButton\n",
     "ListView1.Name=lv:text, Enabled=true:boolean, Visible=true:boolean, Sorted=false:boolean, "
     "MultiSelect=true:boolean, HideColumnHeaders=true:boolean, font, View=0:integer16"},
    {"ListViewRefusedView", "ListView", "click optList\nclick OKButton\nanswer OK\n",
     "ListView1.Name=lv:text, Enabled=true:boolean, Visible=true:boolean, Sorted=true:boolean, "
     "MultiSelect=false:boolean, HideColumnHeaders=false:boolean, font, View!=2:integer16; "
     "open at optList",
     "refuse lv View \"Not allowed\"\n"},
    // The line style is the element's place in its control array.
    {"TreeViewRefusedLineStyle", "TreeView", "click optLineStyle(1)\nclick OKButton\nanswer OK\n",
     "TreeView1.Name=tv:text, Enabled=true:boolean, Visible=true:boolean, Sorted=false:boolean, "
     "FullRowSelect=false:boolean, HideSelection=true:boolean, font, LineStyle!=1:integer16; "
     "open at optLineStyle(1)",
     "refuse tv LineStyle \"Not allowed\"\n"},
    // Alt+O ticks Sorted, Alt+H clears Hide Selection, Alt+F ticks Full Row
    // Select, Alt+A goes to the Tag field.
    {"TreeViewAccessKeys", "TreeView", "alt o\nalt h\nalt f\nalt a\ntype \"node\"\nkey Enter\n",
     "TreeView1.Name=tv:text, Enabled=true:boolean, Visible=true:boolean, Sorted=true:boolean, "
     "FullRowSelect=true:boolean, HideSelection=false:boolean, font, LineStyle=0:integer16, "
     "Tag=node:text"},
};
SAVE_CASES(ListDialogs, kSaves);

TEST_F(SessionTest, DropdownListDisablesTheComboBoxTextAndKeepsWhatItHolds) {
  Drop("ComboBox",
       "click txtText\ntype \"Pick one\"\nclick optDDList\nstate\nclick optDDCombo\nstate\n"
       "click optDDList\nclick optSimple\nstate\nkey Esc\n");
  // Per state: whether the label and the field are enabled, and the field's text.
  Lines seen;
  for (const auto& e : Events("state")) {
    std::string line;
    for (const auto& c : e["state"]["controls"]) {
      if (c["control"] == "lblText") line += c["enabled"].get<bool>() ? "on " : "off ";
      if (c["control"] == "txtText") {
        line += (c["enabled"].get<bool>() ? "on " : "off ") + c["text"].get<std::string>();
      }
    }
    seen.push_back(line);
  }
  EXPECT_EQ(seen, (Lines{"off off Pick one", "on on Pick one", "on on Pick one"}))
      << "Dropdown List, then Dropdown Combo, then Simple Combo";
  EXPECT_EQ(Control("lblText")["caption"], "Combo Box Te&xt:");
}

}  // namespace
}  // namespace sessions
