// What every property dialog shares, one case a dialog: a refused write shows
// the message box, stops the save with the earlier writes kept, puts the focus
// on the field named for it, leaves the dialog open, and a second OK starts
// again from the first write.
#include "sessions/session_harness.hpp"

namespace sessions {
namespace {

struct DialogCase {
  const char* drop;      // the drop line
  const char* title;     // the dialog's title
  const char* prelude;   // user actions before saving
  const char* renamed;   // the control's name when the refused write comes
  const char* property;  // the second write, refused once
  const char* field;     // the field that takes the focus
  const char* first;     // the first write's property
};

void PrintTo(const DialogCase& c, std::ostream* os) { *os << c.title; }

class EveryDialogTest : public SessionTest, public ::testing::WithParamInterface<DialogCase> {};

TEST_P(EveryDialogTest, ARefusedWriteStopsTheSaveAndASecondSaveStartsOver) {
  const DialogCase& c = GetParam();
  Run(std::string(kConnected) + "refuse " + c.renamed + " " + c.property + " \"Not today\"\n" +
      c.drop + "\n" + c.prelude + "key Enter\nanswer OK\nstate\nkey Enter\n");

  const auto shown = Events("form_shown");
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_EQ(shown[0]["caption"], c.title);
  const auto boxes = Events("msgbox");
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0]["text"],
            std::string("An error occurred trying to set the property value for ") + c.property +
                ".\r\nThe error was: Not today");
  EXPECT_EQ(boxes[0]["title"], "Invalid Property Value");
  EXPECT_EQ(boxes[0]["buttons"], 64);
  EXPECT_TRUE(Control(c.field)["focus"].get<bool>()) << "focus on " << c.field;

  // First attempt: one write, then the refused one; second attempt from the top.
  std::vector<Json> writes;
  for (const auto& e : Events("property_write")) {
    if (e["source"] == "add-in") writes.push_back(e);
  }
  ASSERT_GE(writes.size(), 4u);
  EXPECT_EQ(writes[0]["property"], c.first);
  EXPECT_EQ(writes[0]["outcome"], "ok");
  EXPECT_EQ(writes[1]["property"], c.property);
  EXPECT_EQ(writes[1]["outcome"], "refused");
  EXPECT_EQ(writes[2]["property"], c.first);
  EXPECT_EQ(writes[3]["property"], c.property);
  EXPECT_EQ(writes[3]["outcome"], "ok");
  EXPECT_EQ(Events("form_closed").size(), 1u) << "the second save closes the dialog";
}

INSTANTIATE_TEST_SUITE_P(
    AllDialogs, EveryDialogTest,
    ::testing::Values(
        DialogCase{"drop CheckBox", "New CheckBox Control", "", "chk", "Enabled", "chkEnabled",
                   "Name"},
        DialogCase{"drop OptionButton", "New OptionButton Control", "", "opt", "Enabled",
                   "chkEnabled", "Name"},
        DialogCase{"drop CommandButton", "New CommandButton Control", "", "cmd", "Enabled",
                   "chkEnabled", "Name"},
        DialogCase{"drop Frame", "New Frame Control", "", "fra", "Enabled", "chkEnabled", "Name"},
        DialogCase{"drop Label", "New Label Control", "", "lbl", "Enabled", "chkEnabled", "Name"},
        DialogCase{"drop TextBox", "New TextBox Control", "", "Text1", "MultiLine", "chkMulti",
                   "Text"},
        DialogCase{"drop ComboBox", "New ComboBox Control", "", "cbo", "Text", "txtText", "Name"},
        DialogCase{"drop ListBox", "New ListBox Control", "", "lst", "Enabled", "chkEnabled",
                   "Name"},
        DialogCase{"drop ListView", "New ListView Control", "", "lv", "Enabled", "chkEnabled",
                   "Name"},
        DialogCase{"drop TreeView", "New TreeView Control", "", "tv", "Enabled", "chkEnabled",
                   "Name"},
        DialogCase{"drop Timer", "New Timer Control", "", "tmr", "Enabled", "chkEnabled", "Name"},
        DialogCase{"drop MaskEdBox", "New Masked Edit Control", "", "msk", "Enabled", "chkEnabled",
                   "Name"},
        DialogCase{"drop RichTextBox", "New Rich Text Box Control", "", "rtf", "Enabled",
                   "chkEnabled", "Name"},
        DialogCase{"drop SSTab", "New Tabbed Dialog Control", "", "tab", "Enabled", "chkEnabled",
                   "Name"},
        DialogCase{"drop HScrollBar", "New Horizontal Scroll Bar", "", "hsb", "Enabled",
                   "chkEnabled", "Name"},
        DialogCase{"drop VScrollBar", "New Vertical Scroll Bar", "", "vsb", "Enabled", "chkEnabled",
                   "Name"},
        DialogCase{"drop PictureBox", "New Misc Control", "type \"picLogo\"\n", "picLogo",
                   "Enabled", "chkEnabled", "Name"}));

}  // namespace
}  // namespace sessions
