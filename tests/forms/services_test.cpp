// The runtime's services -- message boxes and the font service -- and the
// script errors of the headless front end. Settings go through the runtime
// to the store as the session tests show.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "forms_harness.hpp"

namespace forms::testing {
namespace {

using ::testing::HasSubstr;

const ControlSpec kFontForm[] = {
    {.kind = ControlKind::ListBox, .name = "lstRows"},
    {.kind = ControlKind::CommandButton, .name = "cmdOK", .caption = u"OK"},
    {.kind = ControlKind::CommonDialog, .name = "dlgFont"},
};

class ServicesTest : public ::testing::Test {
 protected:
  // Runs the form with `actions` and returns the script error's words.
  std::string ScriptErrorOf(std::initializer_list<UserAction> actions) {
    for (const auto& a : actions) h.script.Add(a);
    try {
      form.Show();
    } catch (const ScriptError& e) {
      form.Unload();  // the failed script leaves it shown
      return e.what();
    }
    return "no error";
  }
  Harness h;
  TableForm form{h.runtime, "frmFont", u"Font", kFontForm};
  CommonDialog& dialog = form.Get<CommonDialog>("dlgFont");
};

// Titles of message boxes are in the session tests; here, what a script may
// answer, and that the box is named by its prompt's first line.
TEST_F(ServicesTest, AnAnswerMustBeAButtonOfTheBox) {
  h.script.Add(Answered(vbNo)).Add(Answered(vbYes));
  EXPECT_EQ(h.runtime.MsgBox(u"Sure?", vbYesNo), vbNo);
  EXPECT_THAT([&] { h.runtime.MsgBox(u"Go on?\nAll of it.", vbOKCancel); },
              ::testing::ThrowsMessage<ScriptError>(
                  "script:2: answer 'Yes' is no button of message box 'Go on?' (OK, Cancel)"));
  h.script.Add(Clicked("cmdOK"));
  EXPECT_THROW(h.runtime.MsgBox(u"Done"), ScriptError) << "a click while a message box waits";
}

TEST_F(ServicesTest, FontChoiceSetsOnlyTheGivenFields) {
  dialog.FontName = u"Arial";
  dialog.FontSize = 10;
  dialog.FontBold = true;
  form.Get<CommandButton>("cmdOK").Click = [this](Control&) {
    dialog.ShowFont();
    dialog.ShowFont();
    form.Hide();
  };
  h.script.Add(Clicked("cmdOK"))
      .Add(Make(Act::FontChoose,
                [](auto& a) { a.font_name = u"Courier New", a.font_italic = true; }))
      .Add(Make(Act::FontCancel));
  form.Show();
  EXPECT_EQ(dialog.FontName, u"Courier New");
  EXPECT_EQ(dialog.FontSize, 10.0F);
  EXPECT_TRUE(dialog.FontBold);
  EXPECT_TRUE(dialog.FontItalic);
  EXPECT_THAT(h.log.lines,
              ::testing::IsSupersetOf({"font ok Courier New", "font cancel Courier New"}));
}

TEST_F(ServicesTest, AFontTheSystemLacksIsAScriptError) {
  form.Get<CommandButton>("cmdOK").Click = [this](Control&) { dialog.ShowFont(); };
  const std::string error = ScriptErrorOf(
      {Clicked("cmdOK"), Make(Act::FontChoose, [](auto& a) { a.font_name = u"Dejavu Sanz"; })});
  EXPECT_THAT(error, HasSubstr("script:2: no font family 'Dejavu Sanz'"));
  EXPECT_THAT(error, HasSubstr("'DejaVu Sans', 'DejaVu Serif'"));
  EXPECT_EQ(dialog.FontName, u"");
}

TEST_F(ServicesTest, ScriptErrorsNameWhatWasWrongAndWhere) {
  EXPECT_EQ(ScriptErrorOf({Clicked("cmdNope")}), "script:1: no control 'cmdNope' on frmFont");
  EXPECT_THAT(ScriptErrorOf({Ticked("cmdOK", 0)}), HasSubstr("no list box 'cmdOK'"));
  EXPECT_THAT(ScriptErrorOf({Ticked("lstRows", 0)}), HasSubstr("row 0 is not in frmFont/lstRows"));
  EXPECT_EQ(ScriptErrorOf({Answered(vbOK)}),
            "script:4: an answer does not fit: dialog 'Font' waits for the user");
}

}  // namespace
}  // namespace forms::testing
