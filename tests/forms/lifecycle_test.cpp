// Load, modal Show, Hide and Unload, driven by scripts through the headless
// front end. Which form is active again after another closes shows in the
// session tests.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "forms_harness.hpp"
#include "vb/failure.hpp"

namespace forms::testing {
namespace {

using K = ControlKind;

const ControlSpec kMain[] = {
    {K::TextBox, "txtName", -1, u"Text1", nullptr, 0, u"", 8},
    {K::CheckBox, "chkBold", -1, u"&Bold", nullptr, 0, u"t"},
    {K::OptionButton, "optA", -1, u"", nullptr, 1},
    {K::OptionButton, "optB"},
    {K::ListBox, "lstItems"},
    {K::CommandButton, "cmdOK", -1, u"OK", nullptr, 0, u"", 0, kDefault},
};

class LifecycleTest : public ::testing::Test {
 protected:
  LifecycleTest() {
    main.Get<CommandButton>("cmdOK").Click = [this](Control&) { main.Hide(); };
  }
  Harness h;
  TableForm main{h.runtime, "frmMain", u"Main", kMain};
};

TEST_F(LifecycleTest, ModalShowReturnsWhenTheFormIsHidden) {
  int loads = 0;
  main.on_load = [&] { ++loads; };
  h.script.Add(Typed(u"x")).Add(Pressed(Key::Enter)).Add(Pressed(Key::Enter));
  main.Show();
  EXPECT_FALSE(main.IsShown());
  EXPECT_EQ(main.Get<TextBox>("txtName").Text(), u"xText1") << "Hide keeps what the user typed";
  EXPECT_EQ(h.runtime.ActiveForm(), nullptr);
  main.Show();
  EXPECT_EQ(loads, 1) << "a hidden form is still loaded";
  EXPECT_EQ(h.script.Left(), 0u);
  main.Show(0);
  EXPECT_THROW(main.Show(), vb::Failure) << "shown modally while shown";
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

TEST_F(LifecycleTest, RunningOutOfInputClosesTheForm) {
  EXPECT_THROW(main.Show(), InputExhausted);
  EXPECT_FALSE(main.IsLoaded());
  EXPECT_TRUE(h.runtime.ShownForms().empty());
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
