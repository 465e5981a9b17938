// Focus, tab order and the keys that act across controls.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "forms_harness.hpp"
#include "vb/failure.hpp"

namespace forms::testing {
namespace {

using ::testing::ElementsAre;
using K = ControlKind;

const ControlSpec kDialog[] = {
    {K::Label, "lblName", -1, u"&Name:"},
    {K::TextBox, "txtName", -1, u"Text1"},
    {K::TextBox, "txtOff", -1, u"", nullptr, 0, u"", 0, kDisabled},
    {K::Frame, "fraSize", -1, u"Size"},
    {K::OptionButton, "optSize", 0, u"&Small", "fraSize"},
    {K::OptionButton, "optSize", 1, u"&Large", "fraSize", 1},
    {K::OptionButton, "optSize", 2, u"&Huge", "fraSize"},
    {K::Frame, "fraMore", -1, u"More", nullptr, 0, u"", 0, kHidden},
    {K::CheckBox, "chkInside", -1, u"&Inside", "fraMore"},
    {K::CheckBox, "chkBold", -1, u"&Bold"},
    {K::CommandButton, "cmdOK", -1, u"OK", nullptr, 0, u"", 0, kDefault},
    {K::CommandButton, "cmdCancel", -1, u"&Cancel", nullptr, 0, u"", 0, kCancel},
    {K::CommonDialog, "dlgFont"},
};

class FocusTest : public ::testing::Test {
 protected:
  FocusTest() {
    for (const char* button : {"cmdOK", "cmdCancel"}) {
      form.Get<CommandButton>(button).Click = [this](Control& c) { clicks.push_back(c.Path()); };
    }
    form.Get<OptionButton>("optSize", 0).Click = [this](Control& c) { clicks.push_back(c.Path()); };
    form.Show(0);
  }
  std::string Focus() const { return form.ActiveControl() ? form.ActiveControl()->Path() : "-"; }

  Harness h;
  TableForm form{h.runtime, "frmDialog", u"Dialog", kDialog};
  std::vector<std::string> clicks;
};

TEST_F(FocusTest, ShowFocusesTheFirstStopAndFocusMovesAreReportedOnce) {
  form.Get<TextBox>("txtName").SetFocus();
  form.Get<CheckBox>("chkBold").SetFocus();
  form.Get<CheckBox>("chkBold").SetFocus();
  EXPECT_THAT(h.log.lines,
              ElementsAre("shown frmDialog", "focus frmDialog txtName", "focus frmDialog chkBold"));
  EXPECT_EQ(form.Get<CommonDialog>("dlgFont").TabIndex(), -1);
  EXPECT_EQ(form.Get<CheckBox>("chkBold").TabIndex(), 9);
}

TEST_F(FocusTest, SetFocusFailsWhereTheFocusCannotGo) {
  for (const char* name : {"txtOff", "chkInside", "lblName", "fraSize"}) {
    EXPECT_THAT([&] { form.Find(name)->SetFocus(); },
                ::testing::Throws<vb::Failure>(
                    ::testing::Property(&vb::Failure::Number, vb::kInvalidProcedureCall)))
        << name;
  }
  EXPECT_EQ(Focus(), "txtName");
  form.Hide();
  EXPECT_THROW(form.Get<TextBox>("txtName").SetFocus(), vb::Failure) << "form not shown";
}

struct TabCase {
  const char* name;
  std::function<void(Form&)> prepare;
  std::vector<Key> keys;
  std::vector<std::string> focus_after_each;
};

class TabOrderTest : public FocusTest, public ::testing::WithParamInterface<TabCase> {};

TEST_P(TabOrderTest, WalksToTheExpectedControls) {
  GetParam().prepare(form);
  std::vector<std::string> seen;
  for (Key k : GetParam().keys) {
    form.UserKey(k);
    seen.push_back(Focus());
  }
  EXPECT_EQ(seen, GetParam().focus_after_each);
}

const Key kTab = Key::Tab;
const Key kBack = Key::ShiftTab;

INSTANTIATE_TEST_SUITE_P(
    Cases, TabOrderTest,
    ::testing::Values(
        TabCase{"SkipsDisabledHiddenAndUnselectedOptions",
                [](Form&) {},
                {kTab, kTab, kTab, kTab, kTab},
                {"optSize(1)", "chkBold", "cmdOK", "cmdCancel", "txtName"}},
        TabCase{"ShiftTabWrapsBackwards", [](Form&) {}, {kBack, kBack}, {"cmdCancel", "cmdOK"}},
        TabCase{"ShiftTabEntersGroupAtSelected",
                [](Form& f) { f.Get<CheckBox>("chkBold").SetFocus(); },
                {kBack, kBack},
                {"optSize(1)", "txtName"}},
        TabCase{"NoOptionSelectedEveryOptionIsAStop",
                [](Form& f) { f.Get<OptionButton>("optSize", 1).SetValue(false); },
                {kTab, kTab, kTab, kTab},
                {"optSize(0)", "optSize(1)", "optSize(2)", "chkBold"}},
        TabCase{"SelectedOptionDisabledOthersAreStops",
                [](Form& f) { f.Get<OptionButton>("optSize", 1).SetEnabled(false); },
                {kTab, kTab, kTab},
                {"optSize(0)", "optSize(2)", "chkBold"}},
        TabCase{"DisabledFrameTakesItsControlsOut",
                [](Form& f) { f.Get<Frame>("fraSize").SetEnabled(false); },
                {kTab},
                {"chkBold"}},
        TabCase{"ShownFrameBringsItsControlsIn",
                [](Form& f) { f.Get<Frame>("fraMore").SetVisible(true); },
                {kTab, kTab},
                {"optSize(1)", "chkInside"}},
        // Up from the first wraps round to the last, selecting as it goes.
        TabCase{"ArrowsGoRoundTheGroup",
                [](Form& f) { f.Get<OptionButton>("optSize", 0).SetFocus(); },
                {Key::Up, Key::Down},
                {"optSize(2)", "optSize(0)"}}),
    ByName());

TEST_F(FocusTest, EnterAndEscPressTheirButtonsUnlessAButtonHasTheFocus) {
  form.UserKey(Key::Enter);
  EXPECT_EQ(Focus(), "txtName") << "Enter moves no focus";
  form.Get<CommandButton>("cmdCancel").SetFocus();
  form.UserKey(Key::Enter);
  form.UserKey(Key::Escape);
  form.Get<CommandButton>("cmdOK").SetEnabled(false);
  form.Get<TextBox>("txtName").SetFocus();
  form.UserKey(Key::Enter);
  EXPECT_THAT(clicks, ElementsAre("cmdOK", "cmdCancel", "cmdCancel"));
}

TEST(SharedAccessKey, MovesTheFocusAmongItsControlsAndPressesNothing) {
  const ControlSpec design[] = {
      {K::CommandButton, "cmdOK", -1, u"&Ok"},
      {K::Frame, "fraFont", -1, u"F&ont"},
      {K::TextBox, "txtFont", -1, u"", "fraFont"},
      {K::CheckBox, "chkOn", -1, u"&On"},
  };
  Harness h;
  TableForm form(h.runtime, "frmT", u"T", design);
  int clicks = 0;
  form.Get<CommandButton>("cmdOK").Click = [&](Control&) { ++clicks; };
  form.Show(0);
  std::vector<std::string> focus;
  for (int i = 0; i < 3; ++i) {
    form.UserAltKey(u'o');
    focus.push_back(form.ActiveControl()->Path());
  }
  // The frame's key goes on to what it holds, as a label's does.
  EXPECT_THAT(focus, ElementsAre("txtFont", "chkOn", "cmdOK"));
  EXPECT_EQ(clicks, 0);
  EXPECT_EQ(form.Get<CheckBox>("chkOn").Value(), 0);
}

TEST_F(FocusTest, AltKeyActsOnButtonsAndSkipsWhatCannotTakeIt) {
  form.UserAltKey(u'S');
  EXPECT_EQ(Focus(), "optSize(0)");
  EXPECT_TRUE(form.Get<OptionButton>("optSize", 0).Value());
  form.UserAltKey(u'b');
  EXPECT_EQ(form.Get<CheckBox>("chkBold").Value(), 1);
  form.UserAltKey(u'C');
  EXPECT_EQ(Focus(), "chkBold") << "a command button's access key presses it in place";
  form.UserAltKey(u'I');  // inside a hidden frame
  form.UserAltKey(u'Z');  // no such key
  EXPECT_EQ(form.Get<CheckBox>("chkInside").Value(), 0);
  EXPECT_EQ(Focus(), "chkBold");
  EXPECT_THAT(clicks, ElementsAre("optSize(0)", "cmdCancel"));
}

TEST_F(FocusTest, ClickFocusesThenActsAndDisabledOrHiddenFormsTakeNothing) {
  form.UserClick(form.Get<TextBox>("txtOff"));
  form.UserClick(form.Get<Label>("lblName"));
  EXPECT_EQ(Focus(), "txtName");
  form.Get<TextBox>("txtName").SetSelStart(0);
  form.UserClick(form.Get<TextBox>("txtName"));
  EXPECT_EQ(form.Get<TextBox>("txtName").SelStart(), 5) << "a click puts the caret at the end";
  form.UserClick(form.Get<CheckBox>("chkBold"));
  EXPECT_EQ(Focus(), "chkBold");
  EXPECT_EQ(form.Get<CheckBox>("chkBold").Value(), 1);
  form.Hide();
  form.UserChar(u'x');
  form.UserKey(Key::Enter);
  form.UserClick(form.Get<CheckBox>("chkBold"));
  EXPECT_EQ(form.Get<CheckBox>("chkBold").Value(), 1);
  EXPECT_TRUE(clicks.empty());
}

}  // namespace
}  // namespace forms::testing
