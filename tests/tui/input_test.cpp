#include "tui/input.hpp"

#include <array>

#include <gtest/gtest.h>

#include "tui_harness.hpp"

namespace tui {
namespace {

using forms::ControlSpec;
using K = forms::ControlKind;
using testing::Alt;
using testing::Char;
using testing::Key;
using testing::Shown;

constexpr std::array<ControlSpec, 4> kDesign = {{
    {K::ListBox, "lstTicks", -1, u"", nullptr, 0, u"", 0, forms::kCheckBoxStyle},
    {K::ListBox, "lstPlain"},
    {K::CheckBox, "chkOn", -1, u"&On"},
    {K::TextBox, "txtName"},
}};

class Presses : public ::testing::Test {
 protected:
  Presses() {
    for (const char16_t* row : {u"first", u"second", u"third"}) Ticks().AddItem(row);
    for (const char16_t* row : {u"apple", u"Banana", u"avocado"}) Plain().AddItem(row);
  }
  // Shows the form, hands it the presses, and hides it.
  void Run(std::vector<Input> presses) {
    shown_.frontend.presses.assign(presses.begin(), presses.end());
    form_.Show();
  }
  forms::ListBox& Ticks() { return form_.Get<forms::ListBox>("lstTicks"); }
  forms::ListBox& Plain() { return form_.Get<forms::ListBox>("lstPlain"); }

  Shown shown_;
  forms::Form form_{shown_.runtime, "frmT", u"T", kDesign};
};

TEST_F(Presses, SpaceTicksTheCaretRowAndArrowsMoveTheCaretFromWhereItStands) {
  // Nothing selected: the caret is on the first row, and Down goes on to
  // the second, selecting it; End and Up then select as they move.
  Run({Key(forms::Key::Space), Key(forms::Key::Down), Key(forms::Key::Space), Key(forms::Key::End),
       Key(forms::Key::Up), Char(u' ')});
  EXPECT_TRUE(Ticks().Selected(0));
  EXPECT_FALSE(Ticks().Selected(1));
  EXPECT_FALSE(Ticks().Selected(2));
  EXPECT_EQ(Ticks().ListIndex(), 1);
}

TEST_F(Presses, SpaceOnACheckBoxTogglesIt) {
  Run({Key(forms::Key::Tab), Key(forms::Key::Tab), Char(u' ')});
  EXPECT_EQ(form_.Get<forms::CheckBox>("chkOn").Value(), 1);
}

TEST_F(Presses, ALetterInAListMovesToTheNextRowStartingWithIt) {
  std::vector<std::int32_t> seen;
  Plain().Click = [&](forms::Control&) { seen.push_back(Plain().ListIndex()); };
  Run({Key(forms::Key::Tab), Char(u'a'), Char(u'A'), Char(u'a'), Char(u'b'), Char(u'z')});
  EXPECT_EQ(seen, (std::vector<std::int32_t>{0, 2, 0, 1}));
}

struct ChoiceCase {
  const char* name;
  std::int32_t style;
  std::vector<Input> presses;
  std::optional<std::int32_t> answer;  // after the last press
  std::size_t chosen;
};

class Choices : public ::testing::TestWithParam<ChoiceCase> {};

TEST_P(Choices, PressesMoveTheChoiceOrAnswer) {
  const ChoiceCase& c = GetParam();
  ButtonChoice choice(c.style);
  std::optional<std::int32_t> answer;
  for (const Input& press : c.presses) {
    ASSERT_FALSE(answer.has_value()) << "answered before the last press";
    answer = choice.Press(press);
  }
  EXPECT_EQ(answer, c.answer);
  EXPECT_EQ(choice.Chosen(), c.chosen);
}

const Input kEnter = Input::Pressed(forms::Key::Enter), kEsc = Input::Pressed(forms::Key::Escape),
            kTab = Input::Pressed(forms::Key::Tab), kLeft = Input::Pressed(forms::Key::Left),
            kRight = Input::Pressed(forms::Key::Right);

INSTANTIATE_TEST_SUITE_P(
    Keys, Choices,
    ::testing::Values(
        ChoiceCase{"EnterAnswers", forms::vbOKCancel, {kEnter}, forms::vbOK, 0},
        ChoiceCase{"RightMoves", forms::vbYesNoCancel, {kRight, kEnter}, forms::vbNo, 1},
        ChoiceCase{"LeftWraps", forms::vbYesNo, {kLeft}, std::nullopt, 1},
        ChoiceCase{"TabWalksRound", forms::vbYesNoCancel, {kTab, kTab, kTab}, std::nullopt, 0},
        ChoiceCase{
            "EscCancels", forms::vbYesNoCancel | forms::vbQuestion, {kEsc}, forms::vbCancel, 0},
        // Esc has nothing to answer with Yes and No alone.
        ChoiceCase{"EscWithoutCancel", forms::vbYesNo, {kEsc}, std::nullopt, 0},
        ChoiceCase{"EscOnOkOnly", forms::vbOKOnly, {kEsc}, forms::vbOK, 0},
        ChoiceCase{
            "LetterAnswers", forms::vbAbortRetryIgnore, {Input::Typed(u'i')}, forms::vbIgnore, 0},
        ChoiceCase{"AltLetterAnswers", forms::vbYesNo, {Input::AltLetter(u'N')}, forms::vbNo, 0},
        ChoiceCase{"SpacePresses", forms::vbRetryCancel, {Input::Typed(u' ')}, forms::vbRetry, 0},
        // The default-button bits choose the second or third button first.
        ChoiceCase{"SecondDefault", forms::vbYesNoCancel | 256, {kEnter}, forms::vbNo, 1},
        ChoiceCase{"ThirdDefault", forms::vbYesNoCancel | 512, {}, std::nullopt, 2},
        ChoiceCase{"NoThirdButton", forms::vbOKOnly | 512, {}, std::nullopt, 0}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace tui
