// Load, modal Show, Hide, Unload and which form is active, driven by scripts
// through the headless front end.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "forms_harness.hpp"
#include "vb/failure.hpp"

namespace forms::testing {
namespace {

using ::testing::ElementsAre;

const ControlSpec kMain[] = {
    {.kind = ControlKind::TextBox, .name = "txtName", .caption = u"Text1", .max_length = 8},
    {.kind = ControlKind::CheckBox, .name = "chkBold", .caption = u"&Bold", .tag = u"t"},
    {.kind = ControlKind::OptionButton, .name = "optA", .value = 1},
    {.kind = ControlKind::OptionButton, .name = "optB"},
    {.kind = ControlKind::ListBox, .name = "lstItems"},
    {.kind = ControlKind::CommandButton, .name = "cmdOpen", .caption = u"&Open"},
    {.kind = ControlKind::CommandButton, .name = "cmdOK", .caption = u"OK", .flags = kDefault},
    {.kind = ControlKind::CommandButton,
     .name = "cmdCancel",
     .caption = u"Cancel",
     .flags = kCancel},
};

class LifecycleTest : public ::testing::Test {
 protected:
  LifecycleTest() {
    main.Get<CommandButton>("cmdOK").Click = [this](Control&) { main.Hide(); };
    main.Get<CommandButton>("cmdCancel").Click = [this](Control&) {
      h.log.lines.push_back("cancel clicked");
      main.Unload();
    };
    main.Get<CommandButton>("cmdOpen").Click = [this](Control&) { second.Show(); };
    main.on_activate = [this] { h.log.lines.push_back("activate frmMain"); };
    second.on_activate = [this] { h.log.lines.push_back("activate frmSecond"); };
    second.Get<CommandButton>("cmdOK").Click = [this](Control&) {
      h.runtime.MsgBox(u"Saved");
      second.Hide();
    };
  }
  Harness h;
  TableForm main{h.runtime, "frmMain", u"Main", kMain};
  TableForm second{h.runtime, "frmSecond", u"Second", kMain};
};

TEST_F(LifecycleTest, ModalShowReturnsWhenTheFormIsHidden) {
  int loads = 0;
  main.on_load = [&] { ++loads; };
  h.script.Add(Typed(u"x")).Add(Pressed(Key::Enter));
  main.Show();
  EXPECT_FALSE(main.IsShown());
  EXPECT_TRUE(main.IsLoaded());
  EXPECT_EQ(main.Get<TextBox>("txtName").Text(), u"xText1") << "Hide keeps what the user typed";
  EXPECT_EQ(h.runtime.ActiveForm(), nullptr);

  h.script.Add(Pressed(Key::Enter));
  main.Show();
  EXPECT_EQ(loads, 1) << "a hidden form is still loaded";
  EXPECT_EQ(h.script.Left(), 0u);
}

TEST_F(LifecycleTest, ShowingAShownFormModallyFails) {
  main.Show(0);
  try {
    main.Show();
    ADD_FAILURE() << "shown twice";
  } catch (const vb::Failure& f) {
    EXPECT_EQ(f.Number(), vb::kFormAlreadyDisplayed);
  }
}

TEST_F(LifecycleTest, TheFormUnderneathIsActivatedAgainButNotAfterAMessageBox) {
  h.script.Add(Clicked("cmdOpen"))
      .Add(Clicked("cmdOK"))  // on the second form: a message box, then Hide
      .Add(Answered(vbOK))
      .Add(Pressed(Key::Escape));  // back on the first form
  main.Show();
  EXPECT_THAT(
      h.log.lines,
      ElementsAre("shown frmMain", "focus frmMain txtName", "activate frmMain",
                  "focus frmMain cmdOpen", "shown frmSecond", "focus frmSecond txtName",
                  "activate frmSecond", "focus frmSecond cmdOK", "msgbox 'Saved' OK",
                  "closed frmSecond", "activate frmMain", "cancel clicked", "closed frmMain"));
  EXPECT_THAT(h.script.Asked(), ElementsAre("dialog 'Main'", "dialog 'Second'",
                                            "message box 'Saved'", "dialog 'Main'"));
}

TEST_F(LifecycleTest, ActivateMayCloseTheFormBeforeTheLoopStarts) {
  main.on_activate = [this] { main.Unload(); };
  main.Show();
  EXPECT_FALSE(main.IsLoaded());
  EXPECT_TRUE(h.script.Asked().empty());
}

TEST_F(LifecycleTest, UnloadBringsBackTheDesign) {
  main.SetCaption(u"Changed");
  main.Show(0);
  auto& text = main.Get<TextBox>("txtName");
  text.SetText(u"changed");
  text.SetMaxLength(2);
  auto& check = main.Get<CheckBox>("chkBold");
  check.SetValue(1);
  check.SetCaption(u"x");
  check.SetTag(u"x");
  check.SetEnabled(false);
  main.Get<OptionButton>("optB").SetValue(true);
  main.Get<ListBox>("lstItems").AddItem(u"row");
  main.Get<CommandButton>("cmdOK").SetFocus();

  main.Unload();
  EXPECT_FALSE(main.IsLoaded());
  EXPECT_EQ(main.ActiveControl(), nullptr);
  EXPECT_EQ(main.Caption(), u"Main");
  EXPECT_EQ(text.Text(), u"Text1");
  EXPECT_EQ(text.MaxLength(), 8);
  EXPECT_EQ(check.Value(), 0);
  EXPECT_EQ(check.Caption(), u"&Bold");
  EXPECT_EQ(check.Tag(), u"t");
  EXPECT_TRUE(check.Enabled());
  EXPECT_TRUE(main.Get<OptionButton>("optA").Value());
  EXPECT_FALSE(main.Get<OptionButton>("optB").Value());
  EXPECT_EQ(main.Get<ListBox>("lstItems").ListCount(), 0);

  main.Show(0);
  EXPECT_EQ(main.ActiveControl()->Path(), "txtName") << "a fresh form starts at the first stop";
}

TEST_F(LifecycleTest, TheCloseBoxUnloadsWithoutRunningTheFormsCode) {
  h.script.Add(Typed(u"abc")).Add(Closed());
  main.Show();
  EXPECT_FALSE(main.IsLoaded());
  EXPECT_EQ(main.Get<TextBox>("txtName").Text(), u"Text1");
  EXPECT_THAT(h.log.lines, ::testing::Not(::testing::Contains("cancel clicked")));
}

TEST_F(LifecycleTest, RunningOutOfInputClosesTheFormAndEndsTheSession) {
  {
    TableForm lonely{h.runtime, "frmLonely", u"Lonely", kMain};
    try {
      lonely.Show();
      ADD_FAILURE() << "no failure";
    } catch (const InputExhausted& e) {
      EXPECT_STREQ(e.what(), "script ended while dialog 'Lonely' waits for the user");
    }
    // The failure closed the form on its way out of Show.
    EXPECT_FALSE(lonely.IsShown());
    EXPECT_FALSE(lonely.IsLoaded());
    EXPECT_TRUE(h.runtime.ShownForms().empty());
  }
}

TEST_F(LifecycleTest, ControlsAreFoundByPath) {
  EXPECT_EQ(main.FindByPath("txtname"), &main.Get<TextBox>("txtName"));
  EXPECT_EQ(main.FindByPath("frmMain/cmdOK"), &main.Get<CommandButton>("cmdOK"));
  for (const char* bad : {"frmOther/cmdOK", "cmdOK(0)", "cmdOK(", "cmdOK(x)", "nothing"}) {
    EXPECT_EQ(main.FindByPath(bad), nullptr) << bad;
  }
}

}  // namespace
}  // namespace forms::testing
