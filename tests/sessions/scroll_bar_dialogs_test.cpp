// The two scroll bar dialogs as a user meets them: one behaviour, two sets of
// texts, four numbers sent as 32-bit integers and judged by the IDE.
#include "sessions/session_harness.hpp"

namespace sessions {
namespace {

using Lines = std::vector<std::string>;

struct ScrollBar {
  const char* class_name;
  const char* prefix;
  const char* title;
  const char* name_label;
  const char* small_label;
  const char* large_label;
  int flag_row;  // its prompt flag in the settings store
};

void PrintTo(const ScrollBar& c, std::ostream* os) { *os << c.class_name; }

const ScrollBar kHorizontal = {"HScrollBar",
                               "hsb",
                               "New Horizontal Scroll Bar",
                               "Horizontal Scroll Bar &Name:",
                               "Small Chan&ge:",
                               "La&rge Change:",
                               15};
const ScrollBar kVertical = {"VScrollBar",
                             "vsb",
                             "New Vertical Scroll Bar",
                             "Vertical Scroll Bar &Name:",
                             "Sm&all Change:",
                             "Large C&hange:",
                             14};

class ScrollBarDialogTest : public SessionTest, public ::testing::WithParamInterface<ScrollBar> {
 protected:
  void Drop(const std::string& user, const std::string& before = "") {
    Run(std::string(kConnected) + before + "drop " + GetParam().class_name + "\n" + user);
  }
  // "hsb.Min=0:integer32" for the dialog's default name.
  std::string W(const std::string& rest) const { return GetParam().prefix + ("." + rest); }
  // Replaces the text of a number field (Backspace is filtered).
  static std::string Retype(const std::string& field, const std::string& text) {
    return "click " + field + "\nkey Home\nkey Delete 5\ntype \"" + text + "\"\n";
  }
  // The value of a property of a control in the last dump.
  Json Property(const std::string& control, const std::string& name) const {
    const Json dumped = Dumped(control);
    for (const auto& p : dumped["properties"]) {
      if (p["name"] == name) return p["value"];
    }
    return Json();
  }
  Lines FirstThree() const {
    return {W("Name=") + GetParam().prefix + ":text", W("Enabled=true:boolean"),
            W("Visible=true:boolean")};
  }
};

TEST_P(ScrollBarDialogTest, OpensWithItsOwnTextsAndNoFontFields) {
  Drop("state\nkey Esc\n");
  ASSERT_EQ(Events("form_shown").size(), 1u);
  EXPECT_EQ(Events("form_shown")[0]["caption"], GetParam().title);
  EXPECT_EQ(Control("Label1")["caption"], GetParam().name_label);
  EXPECT_EQ(Control("Label6")["caption"], GetParam().small_label);
  EXPECT_EQ(Control("Label7")["caption"], GetParam().large_label);
  EXPECT_EQ(Control("txtName")["text"], GetParam().prefix);
  EXPECT_TRUE(Control("txtName")["focus"].get<bool>());
  EXPECT_TRUE(Control("txtFont").is_null());
}

TEST_P(ScrollBarDialogTest, SavingTheDefaultsWritesTheRangeAs32BitIntegers) {
  Drop("key Enter\ndump\n");
  Lines expected = FirstThree();
  for (const char* w : {"Min=0:integer32", "Max=32767:integer32", "SmallChange=1:integer32",
                        "LargeChange=1:integer32"}) {
    expected.push_back(W(w));
  }
  EXPECT_EQ(Writes(), expected);
  EXPECT_TRUE(Events("font_write").empty());
  EXPECT_EQ(Property(GetParam().prefix, "Max"), 32767);
}

TEST_P(ScrollBarDialogTest, ItsOwnFlagRowDecidesWhetherItOpens) {
  // The rows stand crossed over: HScrollBar 15, VScrollBar 14.
  const ScrollBar& other = GetParam().flag_row == 15 ? kVertical : kHorizontal;
  Run("store Vorrel Options UseCtl" + std::to_string(GetParam().flag_row) + " 0\n" + kConnected +
      "drop " + GetParam().class_name + "\ndrop " + other.class_name + "\nkey Esc\n");
  const auto shown = Events("form_shown");
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_EQ(shown[0]["caption"], other.title);
}

TEST_P(ScrollBarDialogTest, AnEmptyMinimumEndsTheSaveInSilence) {
  Drop(Retype("txtMin", "") + "key Enter\nstate\nkey Esc\n");
  EXPECT_TRUE(Events("msgbox").empty());
  EXPECT_EQ(Writes(), FirstThree());
  EXPECT_TRUE(Control("txtMin")["focus"].get<bool>());
}

TEST_P(ScrollBarDialogTest, AMaximumAbove32767GoesToTheIdeAndItsRefusalFocusesTheField) {
  Drop(Retype("txtMax", "40000") + "key Enter\nanswer OK\nstate\nkey Esc\n");
  ASSERT_EQ(Events("msgbox").size(), 1u);
  EXPECT_EQ(Writes().back(), W("Max!=40000:integer32"));
  EXPECT_TRUE(Control("txtMax")["focus"].get<bool>());
}

TEST_P(ScrollBarDialogTest, AMaximumBeyond32BitsEndsTheSaveInSilence) {
  Drop(Retype("txtMax", "2147483648") + "key Enter\nstate\nkey Esc\n");
  EXPECT_TRUE(Events("msgbox").empty());
  Lines expected = FirstThree();
  expected.push_back(W("Min=0:integer32"));
  EXPECT_EQ(Writes(), expected);
}

TEST_P(ScrollBarDialogTest, NoRangeTestAndNoMinusSign) {
  Drop(Retype("txtMin", "-100") + Retype("txtMax", "50") + Retype("txtLarge", "1") +
       Retype("txtSmall", "9") + "click txtIndex\ntype \"3\"\nkey Enter\ndump\n");
  Lines expected = FirstThree();
  for (const char* w : {"Min=100:integer32", "Max=50:integer32", "SmallChange=9:integer32",
                        "LargeChange=1:integer32"}) {
    expected.push_back(W(w));
  }
  expected.push_back(GetParam().prefix + std::string("(3).Index=3:integer16"));
  EXPECT_EQ(Writes(), expected);
  EXPECT_EQ(Property(GetParam().prefix, "Min"), 100) << "Min above Max is the IDE's business";
}

INSTANTIATE_TEST_SUITE_P(Both, ScrollBarDialogTest, ::testing::Values(kHorizontal, kVertical),
                         [](const auto& param_info) {
                           return std::string(param_info.param.class_name);
                         });

}  // namespace
}  // namespace sessions
