#include "tui/layout.hpp"

#include <array>
#include <functional>

#include <gtest/gtest.h>

#include "tui_harness.hpp"

namespace tui {
namespace {

using forms::ControlSpec;
using K = forms::ControlKind;
using testing::Shown;

// The rows' texts, "|" between them.
std::string Texts(const std::vector<Row>& rows) {
  std::string out;
  for (const Row& row : rows) out += (out.empty() ? "" : "|") + vb::ToUtf8(RowText(row));
  return out;
}

// The layout of `form` while it is shown, after `prepare` has run.
FormLayout LayoutShown(
    Shown& shown, forms::Form& form, LayoutOptions options,
    const std::function<void(forms::Form&)>& prepare = [](forms::Form&) {}) {
  FormLayout layout;
  shown.frontend.at_end = [&](forms::Form& f) {
    prepare(f);
    layout = LayoutForm(f, options);
  };
  form.Show();
  return layout;
}

// The attributes of the span of `row` that holds `text`; fails the test when
// no span does.
unsigned AttrsOf(const Row& row, vb::TextView text) {
  for (const Span& s : row.spans) {
    if (s.text.find(text) != vb::Text::npos) return s.attrs;
  }
  ADD_FAILURE() << "no span holds " << vb::ToUtf8(text);
  return ~0u;
}

constexpr std::array<ControlSpec, 10> kDialog = {{
    {K::Label, "lblName", -1, u"&Name:"},
    {K::TextBox, "txtName", -1, u"abc"},
    {K::Frame, "fraOpts", -1, u"Options"},
    {K::CheckBox, "chkOn", -1, u"&On", "fraOpts", 1},
    {K::OptionButton, "optA", -1, u"&A", "fraOpts", 1},
    {K::OptionButton, "optB", -1, u"&B", "fraOpts"},
    {K::CheckBox, "chkHidden", -1, u"Hidden", nullptr, 0, u"", 0, forms::kHidden},
    {K::CommandButton, "cmdOK", -1, u"OK", nullptr, 0, u"", 0, forms::kDefault},
    {K::CommandButton, "cmdOff", -1, u"Off", nullptr, 0, u"", 0, forms::kDisabled},
    {K::CommonDialog, "cdlgFont"},
}};

TEST(FormLayout, OneRowPerVisibleControlWithFramesIndented) {
  Shown shown;
  forms::Form form(shown.runtime, "frmT", u"New Thing", kDialog);
  const FormLayout layout = LayoutShown(shown, form, {.width = 20, .indent = 2});
  EXPECT_EQ(layout.title, u"New Thing");
  EXPECT_EQ(
      Texts(layout.rows),
      "Name:|[abc_______________]|Options ------------|  [x] On|  (o) A|  ( ) B|< OK >|< Off >");
  EXPECT_EQ(layout.rows[1].control, form.Find("txtName"));
  EXPECT_EQ(layout.focus_row, 1);
  ASSERT_TRUE(layout.caret.has_value());
  EXPECT_EQ(layout.caret->row, 1);
  EXPECT_EQ(layout.caret->column, 1);
}

TEST(FormLayout, TheNaturalWidthIsTheWidestRowWhenNothingStretches) {
  Shown shown;
  forms::Form form(shown.runtime, "frmT", u"T", kDialog);
  form.Load();
  // The text box: its field of 20 and the brackets.
  EXPECT_EQ(NaturalWidth(form, {.min_field = 20}), 22);
  form.Get<forms::CheckBox>("chkOn").SetCaption(u"A rather long caption here");
  // The check box in its frame: indent, box, blank, caption.
  EXPECT_EQ(NaturalWidth(form, {.indent = 3, .min_field = 20}), 3 + 4 + 26);
}

TEST(FormLayout, AttributesShowKeysFocusDefaultAndDisabled) {
  Shown shown;
  forms::Form form(shown.runtime, "frmT", u"T", kDialog);
  const FormLayout layout = LayoutShown(shown, form, {.width = 20}, [](forms::Form& f) {
    f.UserKey(forms::Key::Tab);  // to chkOn
  });
  EXPECT_EQ(layout.focus_row, 3);
  EXPECT_FALSE(layout.caret.has_value());
  EXPECT_EQ(layout.rows[0].spans, (std::vector<Span>{{u"N", kUnderline}, {u"ame:", kPlain}}));
  // The focused check box is reversed, its access key underlined as well.
  EXPECT_EQ(
      layout.rows[3].spans,
      (std::vector<Span>{
          {u"  ", kPlain}, {u"[x] ", kReverse}, {u"O", kReverse | kUnderline}, {u"n", kReverse}}));
  // The text box without the focus shows its field plainly.
  EXPECT_EQ(layout.rows[1].spans.size(), 1U);
  EXPECT_EQ(layout.rows[2].spans.front(), (Span{u"Options", kBold}));
  EXPECT_EQ(layout.rows[6].spans, (std::vector<Span>{{u"< OK >", kBold}}));
  EXPECT_EQ(layout.rows[7].spans, (std::vector<Span>{{u"< Off >", kDim}}));
}

TEST(FormLayout, AFrameHoldsItsControlsWhereverTheyStandInTheTabOrder) {
  // chkIn comes before its frame; fraInner sits in fraLate; a hidden frame
  // hides what it holds.
  constexpr std::array<ControlSpec, 7> nested = {{
      {K::CheckBox, "chkIn", -1, u"In", "fraLate"},
      {K::CommandButton, "cmdTop", -1, u"Top"},
      {K::Frame, "fraLate", -1, u"Group"},
      {K::Frame, "fraInner", -1, u"Inner", "fraLate"},
      {K::Label, "lblInner", -1, u"Deep", "fraInner"},
      {K::Frame, "fraGone", -1, u"Gone", nullptr, 0, u"", 0, forms::kHidden},
      {K::CheckBox, "chkGone", -1, u"Gone", "fraGone"},
  }};
  Shown shown;
  forms::Form form(shown.runtime, "frmT", u"T", nested);
  const FormLayout layout = LayoutShown(shown, form, {.width = 12, .indent = 2});
  EXPECT_EQ(Texts(layout.rows), "< Top >|Group ------|  [ ] In|  Inner ----|    Deep");
}

TEST(FormLayout, LabelsAlignWithinTheirRoom) {
  constexpr std::array<ControlSpec, 3> design = {{
      {K::Label, "lblL", -1, u"ab"},
      {K::Label, "lblC", -1, u"ab", nullptr, 0, u"", 0, forms::kAlignCenter},
      {K::Label, "lblR", -1, u"ab", nullptr, 0, u"", 0, forms::kAlignRight | forms::kBold},
  }};
  Shown shown;
  forms::Form form(shown.runtime, "frmT", u"T", design);
  const FormLayout layout = LayoutShown(shown, form, {.width = 10});
  EXPECT_EQ(Texts(layout.rows), "ab|    ab|        ab");
  EXPECT_EQ(layout.rows[2].spans.back(), (Span{u"ab", kBold}));
  // No control takes the focus: no row shows it.
  EXPECT_EQ(layout.focus_row, -1);
}

struct TextCase {
  const char* name;
  const char16_t* text;
  std::int32_t sel_start;
  std::int32_t sel_length;
  const char* row;
  int caret_column;
};

void PrintTo(const TextCase& c, std::ostream* os) { *os << c.name; }

class TextBoxLayout : public ::testing::TestWithParam<TextCase> {};

// A field of 8 cells (width 10 less the brackets) that scrolls with the caret.
TEST_P(TextBoxLayout, FieldShowsTheTextAroundTheCaret) {
  static constexpr std::array<ControlSpec, 1> design = {{{K::TextBox, "txt"}}};
  const TextCase& c = GetParam();
  Shown shown;
  forms::Form form(shown.runtime, "frmT", u"T", design);
  const FormLayout layout = LayoutShown(shown, form, {.width = 10}, [&](forms::Form& f) {
    auto& box = f.Get<forms::TextBox>("txt");
    box.SetText(c.text);
    box.SetSelStart(c.sel_start);
    box.SetSelLength(c.sel_length);
  });
  ASSERT_EQ(layout.rows.size(), 1U);
  EXPECT_EQ(vb::ToUtf8(RowText(layout.rows[0])), c.row);
  ASSERT_TRUE(layout.caret.has_value());
  EXPECT_EQ(layout.caret->column, c.caret_column);
}

INSTANTIATE_TEST_SUITE_P(
    Carets, TextBoxLayout,
    ::testing::Values(TextCase{"Empty", u"", 0, 0, "[________]", 1},
                      TextCase{"CaretAtTheEnd", u"hello", 5, 0, "[hello___]", 6},
                      TextCase{"CaretAtTheSelectionsEnd", u"hello", 0, 5, "[hello___]", 6},
                      TextCase{"FullField", u"abcdefgh", 8, 0, "[bcdefgh_]", 8},
                      TextCase{"ScrolledToTheCaret", u"abcdefghij", 10, 0, "[defghij_]", 8},
                      TextCase{"CaretNearTheStart", u"abcdefghij", 2, 0, "[abcdefgh]", 3},
                      TextCase{"LineBreaksAsDots", u"a\r\nb", 0, 0, "[a\u00B7\u00B7b____]", 1}));

TEST(TextBoxLayout, ASelectionShowsTheFieldColoursTurnedRound) {
  static constexpr std::array<ControlSpec, 1> design = {{{K::TextBox, "txt", -1, u"hello"}}};
  Shown shown;
  forms::Form form(shown.runtime, "frmT", u"T", design);
  const FormLayout layout = LayoutShown(shown, form, {.width = 10}, [](forms::Form& f) {
    auto& box = f.Get<forms::TextBox>("txt");
    box.SetSelStart(1);
    box.SetSelLength(3);
  });
  EXPECT_EQ(layout.rows[0].spans, (std::vector<Span>{{u"[", kPlain},
                                                     {u"h", kReverse},
                                                     {u"ell", kPlain},
                                                     {u"o___", kReverse},
                                                     {u"]", kPlain}}));
}

constexpr std::array<ControlSpec, 2> kListDesign = {{
    {K::ListBox, "lst", -1, u"", nullptr, 0, u"", 0, forms::kCheckBoxStyle},
    {K::CommandButton, "cmdOK", -1, u"OK"},
}};

// A check list of `rows` rows; `index` is its ListIndex (-1: none), `tab`
// moves the focus on to the button.
struct ListCase {
  const char* name;
  int rows, index;
  bool tab;
  const char* texts;
  int focus_row, marked_row;  // the row of the cursor or ListIndex
  unsigned marked_attrs;
};
void PrintTo(const ListCase& c, std::ostream* os) { *os << c.name; }

class ListLayout : public ::testing::TestWithParam<ListCase> {};

TEST_P(ListLayout, AWindowOfRowsAroundTheCursor) {
  const ListCase& c = GetParam();
  Shown shown;
  forms::Form form(shown.runtime, "frmT", u"T", kListDesign);
  const FormLayout layout =
      LayoutShown(shown, form, {.width = 10, .list_rows = 4}, [&](forms::Form& f) {
        auto& list = f.Get<forms::ListBox>("lst");
        for (int i = 0; i < c.rows; ++i) list.AddItem(vb::Text(1, static_cast<char16_t>(u'a' + i)));
        if (c.index == 5) list.SetSelected(5, true);
        if (c.index >= 0) list.SetListIndex(c.index);
        if (c.tab) f.UserKey(forms::Key::Tab);
      });
  EXPECT_EQ(Texts(layout.rows), c.texts);
  EXPECT_EQ(layout.focus_row, c.focus_row);
  if (c.marked_row < 0) return;
  EXPECT_EQ(AttrsOf(layout.rows[c.marked_row], u"["), c.marked_attrs);
  if (c.marked_row > 0) {
    EXPECT_EQ(AttrsOf(layout.rows[c.marked_row - 1], u"["), kPlain);
  }
}

// The cursor's row is reversed while the list has the focus, the ListIndex
// row bold without it; an empty list still has a row for the focus.
INSTANTIATE_TEST_SUITE_P(
    Lists, ListLayout,
    ::testing::Values(ListCase{"CursorInTheMiddle", 10, 5, false,
                               "^[ ] d| [ ] e| [x] f|v[ ] g|< OK >", 2, 2, kReverse},
                      ListCase{"NoListIndexFocusesTheFirstRow", 2, -1, false,
                               " [ ] a| [ ] b|< OK >", 0, 0, kReverse},
                      ListCase{"WithoutTheFocusTheListIndexIsBold", 3, 1, true,
                               " [ ] a| [ ] b| [ ] c|< OK >", 3, 1, kBold},
                      ListCase{"Empty", 0, -1, false, " (empty)|< OK >", 0, -1, 0}),
    forms::testing::ByName());

struct CaptionCase {
  const char* name;
  const char16_t* caption;
  std::vector<Span> spans;
};

void PrintTo(const CaptionCase& c, std::ostream* os) { *os << c.name; }

class Captions : public ::testing::TestWithParam<CaptionCase> {};

TEST_P(Captions, TheAccessKeyIsUnderlinedAndItsMarkDropped) {
  EXPECT_EQ(CaptionSpans(GetParam().caption, kBold), GetParam().spans);
}

INSTANTIATE_TEST_SUITE_P(
    Marks, Captions,
    ::testing::Values(
        CaptionCase{"First", u"&Save", {{u"S", kBold | kUnderline}, {u"ave", kBold}}},
        CaptionCase{
            "Inside", u"Sa&ve", {{u"Sa", kBold}, {u"v", kBold | kUnderline}, {u"e", kBold}}},
        CaptionCase{"Doubled", u"A&&B", {{u"A&B", kBold}}},
        CaptionCase{"DoubledThenKey", u"&&&X", {{u"&", kBold}, {u"X", kBold | kUnderline}}},
        CaptionCase{"OnlyTheFirstKey", u"&a&b", {{u"a", kBold | kUnderline}, {u"b", kBold}}},
        CaptionCase{"MarkAtTheEnd", u"Tail&", {{u"Tail&", kBold}}}, CaptionCase{"Empty", u"", {}}));

TEST(MessageBoxLayout, PromptLinesWrappedThenTheButtonsCentred) {
  forms::MessageBox box{u"Line one\r\nLine two", forms::vbYesNoCancel, u"Tessaly", true};
  const auto buttons = forms::MsgBoxButtons(box.buttons);
  const BoxLayout layout = LayoutMessageBox(box, buttons, 1, 40);
  EXPECT_EQ(layout.title, u"Tessaly");
  EXPECT_EQ(layout.width, 29);
  EXPECT_EQ(Texts(layout.rows), " Line one| Line two|| < Yes >  < No >  < Cancel >");
  EXPECT_EQ(AttrsOf(layout.rows[3], u"< No >"), kReverse);
  EXPECT_EQ(AttrsOf(layout.rows[3], u"< Cancel >"), kPlain);
  // Long lines wrap at blanks, or hard at the width.
  box = forms::MessageBox{u"aaaa bbbb cccc\nabcdefghij", forms::vbOKOnly, u"T", false};
  const auto ok = forms::MsgBoxButtons(box.buttons);
  EXPECT_EQ(LayoutMessageBox(box, ok, 0, 8).width, 8);
  EXPECT_EQ(Texts(LayoutMessageBox(box, ok, 0, 8).rows),
            " aaaa| bbbb| cccc| abcdef| ghij|| < OK >");
  // A long title widens the box.
  box = forms::MessageBox{u"Hi", forms::vbOKOnly, u"A rather long title", true};
  EXPECT_EQ(LayoutMessageBox(box, ok, 0, 60).width, 23);
}

}  // namespace
}  // namespace tui
