// The timer dialog as a user meets it: no font, no Visible, and an interval
// that must fit a 16-bit integer before anything is sent for it.
#include "sessions/session_harness.hpp"

namespace sessions {
namespace {

using Lines = std::vector<std::string>;

// Clears the default "500" the way a user must: Backspace is filtered.
const std::string kClearInterval = "click txtInterval\nkey Home\nkey Delete 3\n";

class TimerDialogTest : public SessionTest {
 protected:
  void Drop(const std::string& user) { Run(std::string(kConnected) + "drop Timer\n" + user); }
};

TEST_F(TimerDialogTest, OpensWithTheFocusInTheNameAndNoFontFields) {
  Drop("state\nkey Esc\n");
  ASSERT_EQ(Events("form_shown").size(), 1u);
  EXPECT_EQ(Events("form_shown")[0]["caption"], "New Timer Control");
  EXPECT_TRUE(Control("txtName")["focus"].get<bool>());
  EXPECT_EQ(Control("txtName")["sel_start"], 3);
  EXPECT_EQ(Control("txtInterval")["text"], "500");
  EXPECT_TRUE(Control("txtFont").is_null());
  EXPECT_TRUE(Control("chkVisible").is_null());
}

TEST_F(TimerDialogTest, SavingTheDefaultsWritesNameEnabledAndInterval) {
  Drop("key Enter\n");
  EXPECT_EQ(Writes(),
            (Lines{"tmr.Name=tmr:text", "tmr.Enabled=true:boolean", "tmr.Interval=500:integer16"}));
  EXPECT_TRUE(Events("font_write").empty());
  EXPECT_EQ(Events("form_closed").size(), 1u);
}

struct IntervalCase {
  const char* typed;
  const char* written;  // null: the save ends in silence before the interval
};

void PrintTo(const IntervalCase& c, std::ostream* os) { *os << "Interval=\"" << c.typed << "\""; }

class TimerIntervalTest : public TimerDialogTest,
                          public ::testing::WithParamInterface<IntervalCase> {};

TEST_P(TimerIntervalTest, IsConvertedToA16BitIntegerBeforeItIsSent) {
  const IntervalCase& c = GetParam();
  const std::string typed = kClearInterval + "type \"" + c.typed + "\"\nkey Enter\n";
  if (c.written) {
    Drop(typed);
    EXPECT_EQ(Writes(), (Lines{"tmr.Name=tmr:text", "tmr.Enabled=true:boolean",
                               std::string("tmr.Interval=") + c.written + ":integer16"}));
    return;
  }
  // OK twice: a silent stop leaves the dialog open and ends the same way again.
  Drop(typed + "state\nkey Enter\nkey Esc\n");
  EXPECT_TRUE(Events("msgbox").empty());
  EXPECT_TRUE(Control("txtInterval")["focus"].get<bool>()) << "the focus stays where it was";
  EXPECT_EQ(Control("txtInterval")["text"], c.typed);
  EXPECT_EQ(Writes(), (Lines{"tmr.Name=tmr:text", "tmr.Enabled=true:boolean", "tmr.Name=tmr:text",
                             "tmr.Enabled=true:boolean"}));
}

INSTANTIATE_TEST_SUITE_P(Intervals, TimerIntervalTest,
                         ::testing::Values(IntervalCase{"32767", "32767"}, IntervalCase{"0", "0"},
                                           IntervalCase{"32768", nullptr},
                                           IntervalCase{"", nullptr}));

TEST_F(TimerDialogTest, BackspaceDoesNothingInTheIntervalButDeleteDoes) {
  Drop(
      "click txtInterval\nkey End\nkey Backspace\nstate\nkey Home\nkey Delete\ntype \"7x\"\n"
      "click txtIndex\ntype \"4\"\nkey Enter\n");
  EXPECT_EQ(Control("txtInterval")["text"], "500");
  // Index goes as text.
  EXPECT_EQ(Writes(), (Lines{"tmr.Name=tmr:text", "tmr.Enabled=true:boolean",
                             "tmr.Interval=700:integer16", "tmr(4).Index=4:text"}));
}

TEST_F(TimerDialogTest, AnEarlierRefusalTakesTheFocusBackAtASilentStop) {
  Run(std::string(kConnected) + "refuse tmr Enabled \"Not now\"\ndrop Timer\n" +
      "key Enter\nanswer OK\n" + kClearInterval + "key Enter\nstate\nkey Esc\n");
  ASSERT_EQ(Events("msgbox").size(), 1u);
  EXPECT_TRUE(Control("chkEnabled")["focus"].get<bool>())
      << "objFailed keeps the refused field after the second, silent stop";
}

}  // namespace
}  // namespace sessions
