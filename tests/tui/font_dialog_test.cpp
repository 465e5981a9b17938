#include "tui/font_dialog.hpp"

#include <gtest/gtest.h>

#include "tui_harness.hpp"

namespace tui {
namespace {

using testing::Alt;
using testing::Char;
using testing::Key;
using testing::Shown;

// Arial shows in another family here, as fontconfig's aliases do it.
class Fonts : public forms::testing::FixedFonts {
 public:
  Fonts() : FixedFonts({u"Arial", u"Courier New", u"DejaVu Sans", u"Times New Roman"}) {}
  vb::Text DisplayFamily(const vb::Text& family) override {
    return family == u"Arial" ? u"Liberation Sans" : family;
  }
};

class FontDialogTest : public ::testing::Test {
 protected:
  // Shows the dialog on `given`, hands it the presses, and returns the font
  // chosen, or nothing when the dialog was left without OK.
  std::optional<forms::FontChoice> Run(std::vector<Input> presses) {
    FontDialog dialog(shown_.runtime, fonts_, given_);
    shown_.frontend.presses.assign(presses.begin(), presses.end());
    dialog.Show();
    if (!dialog.Chosen()) return std::nullopt;
    return dialog.Choice();
  }

  forms::FontChoice given_{u"courier new", 10.0F, true, false, false, false, 1};
  Fonts fonts_;
  Shown shown_;
};

TEST_F(FontDialogTest, EnterKeepsTheGivenFontInTheSystemsSpelling) {
  const auto font = Run({Key(forms::Key::Enter)});
  ASSERT_TRUE(font.has_value());
  forms::FontChoice expected = given_;
  expected.name = u"Courier New";
  EXPECT_EQ(*font, expected);
}

TEST_F(FontDialogTest, AFamilyTheSystemLacksStaysUntilAnotherIsPicked) {
  given_.name = u"Nowhere Sans";
  EXPECT_EQ(Run({Key(forms::Key::Enter)})->name, u"Nowhere Sans");
  EXPECT_EQ(Run({Key(forms::Key::Tab), Char(u't'), Key(forms::Key::Enter)})->name,
            u"Times New Roman");
  // Typed, any family goes: the list only helps to fill the box.
  EXPECT_EQ(Run({Char(u'T'), Char(u'a'), Key(forms::Key::Enter)})->name, u"Ta");
}

TEST_F(FontDialogTest, ListSizeAndTogglesMakeTheChoice) {
  const auto font = Run({Key(forms::Key::Tab), Key(forms::Key::Down), Key(forms::Key::Tab),
                         Char(u'1'), Char(u'x'), Char(u'2'), Char(u'.'), Char(u'5'), Alt(u'b'),
                         Alt(u't'), Key(forms::Key::Enter)});
  ASSERT_TRUE(font.has_value());
  EXPECT_EQ(font->name, u"DejaVu Sans");
  // The given size was selected whole, so typing replaced it; the letter
  // was refused.
  EXPECT_EQ(font->size, 12.5F);
  EXPECT_FALSE(font->bold);
  EXPECT_TRUE(font->strike_thru);
  EXPECT_EQ(font->flags, 1);
}

TEST_F(FontDialogTest, AFamilyShownInAnotherSaysSoAndKeepsItsName) {
  FontDialog dialog(shown_.runtime, fonts_, {.name = u"Arial"});
  dialog.Load();
  EXPECT_EQ(dialog.Get<forms::Label>("lblShown").Caption(),
            u"Shown here in Liberation Sans; the form keeps Arial.");
  dialog.Get<forms::TextBox>("txtFont").SetText(u"Courier New");
  EXPECT_EQ(dialog.Get<forms::Label>("lblShown").Caption(), u"");
  EXPECT_EQ(dialog.Choice().name, u"Courier New");
}

TEST_F(FontDialogTest, ABadSizeIsRefusedAndTheDialogStaysOpen) {
  const auto font = Run({Key(forms::Key::Tab), Key(forms::Key::Tab), Key(forms::Key::Backspace),
                         Key(forms::Key::Enter), Char(u'9'), Char(u'9'), Char(u'9'), Char(u'9'),
                         Key(forms::Key::Enter), Char(u'9'), Key(forms::Key::Enter)});
  EXPECT_EQ(shown_.frontend.prompts.size(), 2U);
  ASSERT_TRUE(font.has_value());
  // After each refusal the size is selected again, so the 9 replaced 9999.
  EXPECT_EQ(font->size, 9.0F);
}

TEST_F(FontDialogTest, EscAndTheCloseBoxCancel) {
  EXPECT_FALSE(Run({Key(forms::Key::Down), Key(forms::Key::Escape)}).has_value());
  EXPECT_FALSE(Run({Alt(u'b'), Input::CloseBox()}).has_value());
  EXPECT_TRUE(shown_.frontend.presses.empty());
}

}  // namespace
}  // namespace tui
