// The dialogs with number fields -- timer, tabbed dialog, scroll bars -- as a
// user meets them: which numbers are converted before they are sent (a
// failed conversion ends the save in silence) and which go as typed for the
// IDE to judge. The number fields take digits only; Backspace is filtered.
#include "sessions/session_harness.hpp"

namespace sessions {
namespace {

const SaveCase kSaves[] = {
    // The interval must fit a 16-bit integer before anything is sent for it.
    {"TimerIntervalLargest", "Timer",
     "click txtInterval\nkey Home\nkey Delete 3\ntype \"32767\"\nkey Enter\n",
     "Timer1.Name=tmr:text, Enabled=true:boolean, Interval=32767:integer16"},
    {"TimerIntervalTooLarge", "Timer",
     "click txtInterval\nkey Home\nkey Delete 3\ntype \"32768\"\nkey Enter\n",
     "Timer1.Name=tmr:text, Enabled=true:boolean; open at txtInterval"},
    {"TimerBackspaceIsFilteredDeleteIsNot", "Timer",
     "click txtInterval\nkey End\nkey Backspace\nkey Home\nkey Delete\ntype \"7x\"\nkey Enter\n",
     "Timer1.Name=tmr:text, Enabled=true:boolean, Interval=700:integer16"},
    // The refused field keeps the focus through a later, silent stop.
    {"TimerEarlierRefusalTakesTheFocus", "Timer",
     "key Enter\nanswer OK\nclick txtInterval\nkey Home\nkey Delete 3\nkey Enter\n",
     "Timer1.Name=tmr:text, Enabled!=true:boolean, Name=tmr:text, Enabled=true:boolean; "
     "open at chkEnabled",
     "refuse tmr Enabled \"Not now\"\n"},
    // Down from Top selects Left: the orientations stand Top, Left, Bottom,
    // Right in the tab order, numbered 0, 2, 1, 3.
    {"SSTabOrientationByArrow", "SSTab", "click optTO(0)\nkey Down\nclick OKButton\n",
     "SSTab1.Name=tab:text, Enabled=true:boolean, Visible=true:boolean, Tabs=3:text, "
     "TabsPerRow=3:text, Style=0:integer16, TabOrientation=2:integer16, font"},
    // Tab from the style group enters the orientations at the selected one.
    {"SSTabTabEntersTheGroupAtItsSelection", "SSTab",
     "click optStyle(1)\nkey Tab\nkey Down 2\nclick OKButton\n",
     "SSTab1.Name=tab:text, Enabled=true:boolean, Visible=true:boolean, Tabs=3:text, "
     "TabsPerRow=3:text, Style=1:integer16, TabOrientation=1:integer16, font"},
    // Two digits; TabsPerRow above Tabs is passed on without comment.
    {"SSTabTabsAsTyped", "SSTab",
     "click txtTabs\nkey Home\nkey Delete 2\ntype \"1a23\"\nclick txtTabsPerRow\nkey Home\n"
     "key Delete 2\ntype \"9\"\nkey Enter\n",
     "SSTab1.Name=tab:text, Enabled=true:boolean, Visible=true:boolean, Tabs=12:text, "
     "TabsPerRow=9:text, Style=0:integer16, TabOrientation=0:integer16, font"},
    // Zero and empty are sent unchanged for the IDE to refuse.
    {"SSTabZeroTabs", "SSTab",
     "click txtTabs\nkey Home\nkey Delete 2\ntype \"0\"\nkey Enter\nanswer OK\n",
     "SSTab1.Name=tab:text, Enabled=true:boolean, Visible=true:boolean, Tabs!=0:text; open at "
     "txtTabs"},
    {"SSTabZeroTabsPerRow", "SSTab",
     "click txtTabsPerRow\nkey Home\nkey Delete 2\ntype \"00\"\nkey Enter\nanswer OK\n",
     "SSTab1.Name=tab:text, Enabled=true:boolean, Visible=true:boolean, Tabs=3:text, "
     "TabsPerRow!=00:text; open at txtTabsPerRow"},
    // A refused group focuses its element zero, the selection left alone.
    {"SSTabRefusedStyle", "SSTab", "click optStyle(1)\nclick OKButton\nanswer OK\n",
     "SSTab1.Name=tab:text, Enabled=true:boolean, Visible=true:boolean, Tabs=3:text, "
     "TabsPerRow=3:text, Style!=1:integer16; open at optStyle(0)",
     "refuse tab Style \"No\"\n"},
    {"SSTabRefusedOrientation", "SSTab", "click optTO(3)\nclick OKButton\nanswer OK\n",
     "SSTab1.Name=tab:text, Enabled=true:boolean, Visible=true:boolean, Tabs=3:text, "
     "TabsPerRow=3:text, Style=0:integer16, TabOrientation!=3:integer16; open at optTO(0)",
     "refuse tab TabOrientation \"No\"\n"},
    // The range goes as 32-bit integers: no range test, no minus sign.
    {"ScrollBarRangeAsTyped", "HScrollBar",
     "click txtMin\nkey Home\nkey Delete 5\ntype \"-100\"\nclick txtMax\nkey Home\nkey Delete 5\n"
     "type \"50\"\nclick txtSmall\nkey Home\nkey Delete 5\ntype \"9\"\nkey Enter\n",
     "HScroll1.Name=hsb:text, Enabled=true:boolean, Visible=true:boolean, Min=100:integer32, "
     "Max=50:integer32, SmallChange=9:integer32, LargeChange=1:integer32"},
    {"ScrollBarEmptyMinimum", "VScrollBar", "click txtMin\nkey Home\nkey Delete 5\nkey Enter\n",
     "VScroll1.Name=vsb:text, Enabled=true:boolean, Visible=true:boolean; open at txtMin"},
    {"ScrollBarMaximumFor32Bits", "HScrollBar",
     "click txtMax\nkey Home\nkey Delete 5\ntype \"40000\"\nkey Enter\nanswer OK\n",
     "HScroll1.Name=hsb:text, Enabled=true:boolean, Visible=true:boolean, Min=0:integer32, "
     "Max!=40000:integer32; open at txtMax"},
    {"ScrollBarMaximumBeyond32Bits", "HScrollBar",
     "click txtMax\nkey Home\nkey Delete 5\ntype \"2147483648\"\nkey Enter\n",
     "HScroll1.Name=hsb:text, Enabled=true:boolean, Visible=true:boolean, Min=0:integer32; "
     "open at txtMax"},
};
SAVE_CASES(NumberDialogs, kSaves);

// Each scroll bar has its own texts.
TEST_F(SessionTest, EachScrollBarDialogHasItsOwnTexts) {
  Drop("HScrollBar", "state\nkey Esc\n");
  EXPECT_EQ(Control("Label1")["caption"], "Horizontal Scroll Bar &Name:");
  EXPECT_EQ(Control("Label6")["caption"], "Small Chan&ge:");
  EXPECT_EQ(Control("Label7")["caption"], "La&rge Change:");
  Drop("VScrollBar", "state\nkey Esc\n");
  EXPECT_EQ(Control("Label1")["caption"], "Vertical Scroll Bar &Name:");
  EXPECT_EQ(Control("Label6")["caption"], "Sm&all Change:");
  EXPECT_EQ(Control("Label7")["caption"], "Large C&hange:");
}

}  // namespace
}  // namespace sessions
