// Text boxes: KeyPress filtering, Change on every change, MaxLength, the
// selection and the editing keys.
#include <gtest/gtest.h>

#include "forms_harness.hpp"
#include "vb/failure.hpp"

namespace forms::testing {
namespace {

const ControlSpec kEditor[] = {
    {ControlKind::TextBox, "txtValue"},
    {ControlKind::TextBox, "txtCode", -1, u"", nullptr, 0, u"", 5},
};

class TextBoxTest : public ::testing::Test {
 protected:
  TextBoxTest() {
    for (TextBox* t : {&value, &code}) t->Change = [this](Control&) { ++changes; };
    form.Show(0);
  }
  Harness h;
  TableForm form{h.runtime, "frmEditor", u"Editor", kEditor};
  TextBox& value = form.Get<TextBox>("txtValue");
  TextBox& code = form.Get<TextBox>("txtCode");
  int changes = 0;
};

// A KeyPress routine sees each typed key first: setting KeyAscii to 0 drops
// it, another code types that instead. Backspace edits; Tab and Enter type
// nothing into a one-line box.
struct FilterCase {
  const char* name;
  void (*filter)(Control&, KeyPressArgs&);
  std::u16string typed;
  std::u16string text;
  int changes;
};

void DigitsOnly(Control&, KeyPressArgs& args) {
  const bool digit = args.KeyAscii >= '0' && args.KeyAscii <= '9';
  if (!digit && args.KeyAscii != 8) args.KeyAscii = 0;
}
void Upper(Control&, KeyPressArgs& args) {
  if (args.KeyAscii >= 'a' && args.KeyAscii <= 'z') args.KeyAscii -= 32;
}

class KeyPressTest : public TextBoxTest, public ::testing::WithParamInterface<FilterCase> {};

TEST_P(KeyPressTest, TypesWhatThePressRoutineLetsThrough) {
  value.KeyPress = GetParam().filter;
  for (char16_t ch : GetParam().typed) form.UserChar(ch);
  EXPECT_EQ(value.Text(), GetParam().text);
  EXPECT_EQ(changes, GetParam().changes);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, KeyPressTest,
    ::testing::Values(FilterCase{"DroppedKeys", DigitsOnly, u"1a2-b", u"12", 2},
                      FilterCase{"BackspacePasses", DigitsOnly, u"12\b3", u"13", 4},
                      FilterCase{"BackspaceOnNothing", DigitsOnly, u"\b\b", u"", 0},
                      FilterCase{"TabAndEnterTypeNothing", Upper, u"4\t\r5", u"45", 2},
                      FilterCase{"ReplacedKeys", Upper, u"ab1", u"AB1", 3}),
    ByName());

TEST_F(TextBoxTest, ChangeComesWithEveryChangeIncludingCode) {
  value.SetText(u"hello");
  value.SetText(u"hello");
  EXPECT_EQ(changes, 1) << "assigning the same text is no change";
  EXPECT_EQ(value.SelStart(), 0);
  value.MoveCaret(5, false);
  form.UserKey(Key::Delete);  // nothing after the caret
  form.UserKey(Key::Backspace);
  form.UserPaste(u"p!");
  EXPECT_EQ(value.Text(), u"hellp!");
  EXPECT_EQ(changes, 3);
}

TEST_F(TextBoxTest, EditingKeysWorkOnTheSelection) {
  value.SetText(u"abcdef");
  value.SetSelStart(1);
  value.SetSelLength(3);
  EXPECT_EQ(value.SelText(), u"bcd");
  form.UserKey(Key::Right);
  EXPECT_EQ(value.SelStart(), 4) << "Right collapses the selection to its end";
  value.MoveCaret(2, true);
  EXPECT_EQ(value.SelText(), u"cd") << "Shift extends from the caret";
  value.MoveCaret(5, true);
  EXPECT_EQ(value.SelText(), u"e") << "the anchor stays put";
  form.UserKey(Key::Delete);
  EXPECT_EQ(value.Text(), u"abcdf");
  form.UserKey(Key::Home);
  form.UserChar(u'>');
  form.UserKey(Key::End);
  form.UserKey(Key::Left);
  form.UserKey(Key::Backspace);
  EXPECT_EQ(value.Text(), u">abcf");
}

TEST_F(TextBoxTest, SelectionIsClampedToTheTextAndADisabledBoxTakesNoInput) {
  value.SetText(u"abc");
  value.SetSelStart(10);
  EXPECT_EQ(value.SelStart(), 3);
  value.SetSelLength(1);
  EXPECT_EQ(value.SelLength(), 0) << "at the end there is nothing to select";
  value.SetSelStart(1);
  value.SetSelLength(10);
  EXPECT_EQ(value.SelLength(), 2);
  value.SetSelStart(2);
  EXPECT_EQ(value.SelLength(), 0) << "a new start is an insertion point";
  EXPECT_THROW(value.SetSelStart(-1), vb::Failure);
  value.SetEnabled(false);
  value.TypeChar(u'x');
  value.Paste(u"y");
  EXPECT_EQ(value.Text(), u"abc") << "a disabled box takes no input";
}

struct LimitCase {
  const char* name;
  std::u16string text;  // set by code, so it may exceed the limit
  std::int32_t sel_start, sel_length;
  bool paste;
  std::u16string input;
  std::u16string expected;
};

class MaxLengthTest : public TextBoxTest, public ::testing::WithParamInterface<LimitCase> {};

TEST_P(MaxLengthTest, InsertsOnlyWhatFits) {
  const LimitCase& c = GetParam();
  code.SetFocus();
  code.SetText(c.text);
  code.SetSelStart(c.sel_start);
  code.SetSelLength(c.sel_length);
  if (c.paste) {
    form.UserPaste(c.input);
  } else {
    for (char16_t ch : c.input) form.UserChar(ch);
  }
  EXPECT_EQ(code.Text(), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, MaxLengthTest,
    ::testing::Values(LimitCase{"TypingStopsAtTheLimit", u"", 0, 0, false, u"abcdefg", u"abcde"},
                      LimitCase{"TypingIntoAFullBox", u"abcde", 2, 0, false, u"x", u"abcde"},
                      LimitCase{"TypingOverASelection", u"abcde", 1, 2, false, u"x", u"axde"},
                      LimitCase{"PasteIsCutToTheRoom", u"ab", 1, 0, true, u"123456", u"a123b"},
                      LimitCase{"PasteOverEverything", u"abcde", 0, 5, true, u"1234567", u"12345"},
                      LimitCase{"CodeMayExceedTheLimit", u"abcdefg", 7, 0, true, u"x", u"abcdefg"},
                      LimitCase{"TypingWhenCodeExceeded", u"abcdefg", 7, 0, false, u"x",
                                u"abcdefg"}),
    ByName());

}  // namespace
}  // namespace forms::testing
