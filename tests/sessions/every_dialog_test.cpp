// What every property dialog does, one row a dialog: its title and name
// prefix, the writes of a save with every field untouched, and how a refused
// write stops the save -- the message box, the earlier writes kept, the focus
// on the field named for it, the dialog left open, and a second OK starting
// again from the first write. The index field takes digits only everywhere,
// and a Tag of blanks is not written.
#include <algorithm>

#include "sessions/session_harness.hpp"

namespace sessions {
namespace {

struct DialogCase {
  const char* what;
  const char* title;
  const char* prefix;      // txtName when the dialog opens
  const char* defaults;    // the writes of a save with every field untouched
  const char* index;       // the kind Index goes in
  const char* typed = "";  // typed into the name before saving
};

class EveryDialogTest : public SessionTest, public ::testing::WithParamInterface<DialogCase> {
 protected:
  std::string TypeName() const { return std::string("type \"") + GetParam().typed + "\"\n"; }
};

TEST_P(EveryDialogTest, OpensOnTheNameAndSavesTheDefaults) {
  const DialogCase& c = GetParam();
  Drop(c.what, "state\n" + TypeName() + "key Enter\n");
  EXPECT_EQ(Titles(), Lines{c.title});
  EXPECT_EQ(Control("txtName")["text"], c.prefix);
  EXPECT_EQ(Control("txtName")["sel_start"], std::string(c.prefix).size()) << "caret at the end";
  EXPECT_EQ(Focused(), "txtName");
  EXPECT_EQ(Writes(), c.defaults) << "no Index and no Tag when their fields are empty";
  EXPECT_EQ(Events("form_closed").size(), 1u);
}

TEST_P(EveryDialogTest, ARefusedWriteStopsTheSaveAndASecondSaveStartsOver) {
  const DialogCase& c = GetParam();
  Drop(c.what,
       TypeName() + "click txtTag\ntype \"  \"\nclick txtIndex\ntype \"x1-\"\nkey Enter\n" +
           "answer OK\nstate\nkey Enter\n",
       std::string("refuse ") + c.prefix + c.typed + " Enabled \"Not today\"\n");
  EXPECT_EQ(MessageBoxes(),
            "Invalid Property Value [64]: An error occurred trying to set the property value for "
            "Enabled.\r\nThe error was: Not today");
  EXPECT_EQ(Focused(), "chkEnabled");
  EXPECT_EQ(Control("txtIndex")["text"], "1");

  // The properties written, "!" for the refusal: the second save repeats the
  // first up to the refused write, which then goes through.
  Lines writes;
  for (const auto& e : Events("property_write")) {
    if (e["source"] != "add-in") continue;
    writes.push_back(e["property"].get<std::string>() + (e["outcome"] == "ok" ? "" : "!"));
  }
  const auto refused = std::ranges::find(writes, "Enabled!") - writes.begin();
  ASSERT_LT(2 * refused + 1, std::ssize(writes)) << "a second save";
  EXPECT_EQ(Lines(writes.begin(), writes.begin() + refused),
            Lines(writes.begin() + refused + 1, writes.begin() + 2 * refused + 1));
  EXPECT_EQ(writes[2 * refused + 1], "Enabled");
  EXPECT_TRUE(Writes().ends_with(std::string(", Index=1:") + c.index))
      << Writes() << "\nIndex last: a Tag of blanks is not written";
  EXPECT_EQ(Events("form_closed").size(), 1u) << "the second save closes the dialog";
}

INSTANTIATE_TEST_SUITE_P(
    AllDialogs, EveryDialogTest,
    ::testing::Values(
        DialogCase{
            "CheckBox", "New CheckBox Control", "chk",
            "Check1.Name=chk:text, Enabled=true:boolean, Visible=true:boolean, Caption=:text, "
            "Value=0:integer16, font",
            "text"},
        DialogCase{
            "OptionButton", "New OptionButton Control", "opt",
            "Option1.Name=opt:text, Enabled=true:boolean, Visible=true:boolean, Caption=:text, "
            "Value=false:boolean, font",
            "text"},
        DialogCase{
            "CommandButton", "New CommandButton Control", "cmd",
            "Command1.Name=cmd:text, Enabled=true:boolean, Visible=true:boolean, Caption=:text, "
            "Default=false:boolean, Cancel=false:boolean, font",
            "text"},
        // A frame has no Value: none is written.
        DialogCase{
            "Frame", "New Frame Control", "fra",
            "Frame1.Name=fra:text, Enabled=true:boolean, Visible=true:boolean, Caption=:text, "
            "font",
            "text"},
        // The label's alignment is written even untouched, after the font.
        DialogCase{
            "Label", "New Label Control", "lbl",
            "Label1.Name=lbl:text, Enabled=true:boolean, Visible=true:boolean, Caption=:text, "
            "AutoSize=false:boolean, WordWrap=false:boolean, font, Alignment=0:integer16",
            "text"},
        // Text goes first, even empty, while the control still has the IDE's name.
        DialogCase{"TextBox", "New TextBox Control", "txt",
                   "Text1.Text=:text, MultiLine=false:boolean, Name=txt:text, "
                   "Enabled=true:boolean, Visible=true:boolean, font",
                   "text"},
        // Visible before Enabled; Text goes also when empty.
        DialogCase{"ComboBox", "New ComboBox Control", "cbo",
                   "Combo1.Name=cbo:text, Text=:text, Visible=true:boolean, Enabled=true:boolean, "
                   "Sorted=true:boolean, font, Style=0:integer16",
                   "text"},
        // Both groups are written also at their defaults.
        DialogCase{"ListBox", "New ListBox Control", "lst",
                   "List1.Name=lst:text, Enabled=true:boolean, Visible=true:boolean, "
                   "Sorted=true:boolean, font, MultiSelect=0:integer16, Style=0:integer16",
                   "text"},
        DialogCase{"ListView", "New ListView Control", "lv",
                   "ListView1.Name=lv:text, Enabled=true:boolean, Visible=true:boolean, "
                   "Sorted=true:boolean, MultiSelect=false:boolean, "
                   "HideColumnHeaders=false:boolean, font, View=3:integer16",
                   "text"},
        // Sorted starts off here, HideSelection on.
        DialogCase{"TreeView", "New TreeView Control", "tv",
                   "TreeView1.Name=tv:text, Enabled=true:boolean, Visible=true:boolean, "
                   "Sorted=false:boolean, FullRowSelect=false:boolean, HideSelection=true:boolean, "
                   "font, LineStyle=0:integer16",
                   "text"},
        // No font and no Visible.
        DialogCase{"Timer", "New Timer Control", "tmr",
                   "Timer1.Name=tmr:text, Enabled=true:boolean, Interval=500:integer16", "text"},
        DialogCase{"MaskEdBox", "New Masked Edit Control", "msk",
                   "MaskEdBox1.Name=msk:text, Enabled=true:boolean, Visible=true:boolean, "
                   "AllowPrompt=false:boolean, CausesValidation=true:boolean, Mask=:text, "
                   "PromptChar=_:text, font",
                   "text"},
        DialogCase{"RichTextBox", "New Rich Text Box Control", "rtf",
                   "RichTextBox1.Name=rtf:text, Enabled=true:boolean, Visible=true:boolean, "
                   "MultiLine=true:boolean, ScrollBars=3:integer16, font",
                   "integer16"},
        // Tabs and TabsPerRow go as text.
        DialogCase{"SSTab", "New Tabbed Dialog Control", "tab",
                   "SSTab1.Name=tab:text, Enabled=true:boolean, Visible=true:boolean, Tabs=3:text, "
                   "TabsPerRow=3:text, Style=0:integer16, TabOrientation=0:integer16, font",
                   "integer16"},
        DialogCase{"HScrollBar", "New Horizontal Scroll Bar", "hsb",
                   "HScroll1.Name=hsb:text, Enabled=true:boolean, Visible=true:boolean, "
                   "Min=0:integer32, Max=32767:integer32, SmallChange=1:integer32, "
                   "LargeChange=1:integer32",
                   "integer16"},
        DialogCase{"VScrollBar", "New Vertical Scroll Bar", "vsb",
                   "VScroll1.Name=vsb:text, Enabled=true:boolean, Visible=true:boolean, "
                   "Min=0:integer32, Max=32767:integer32, SmallChange=1:integer32, "
                   "LargeChange=1:integer32",
                   "integer16"},
        // The general dialog's name starts empty.
        DialogCase{"PictureBox", "New Misc Control", "",
                   "Picture1.Name=picLogo:text, Enabled=true:boolean, Visible=true:boolean, font",
                   "integer16", "picLogo"}),
    [](const auto& row) { return std::string(row.param.what); });

}  // namespace
}  // namespace sessions
