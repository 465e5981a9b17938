// Focus, tab order and the keys that act across controls.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "forms_harness.hpp"
#include "vb/failure.hpp"

namespace forms::testing {
namespace {

using ::testing::ElementsAre;

const ControlSpec kDialog[] = {
    {.kind = ControlKind::Label, .name = "lblName", .caption = u"&Name:"},
    {.kind = ControlKind::TextBox, .name = "txtName", .caption = u"Text1"},
    {.kind = ControlKind::TextBox, .name = "txtOff", .flags = kDisabled},
    {.kind = ControlKind::Frame, .name = "fraSize", .caption = u"Size"},
    {.kind = ControlKind::OptionButton,
     .name = "optSize",
     .index = 0,
     .caption = u"&Small",
     .container = "fraSize"},
    {.kind = ControlKind::OptionButton,
     .name = "optSize",
     .index = 1,
     .caption = u"&Large",
     .container = "fraSize",
     .value = 1},
    {.kind = ControlKind::OptionButton,
     .name = "optSize",
     .index = 2,
     .caption = u"&Huge",
     .container = "fraSize"},
    {.kind = ControlKind::Frame, .name = "fraMore", .caption = u"More", .flags = kHidden},
    {.kind = ControlKind::CheckBox,
     .name = "chkInside",
     .caption = u"&Inside",
     .container = "fraMore"},
    {.kind = ControlKind::CheckBox, .name = "chkBold", .caption = u"&Bold"},
    {.kind = ControlKind::CommandButton, .name = "cmdOK", .caption = u"OK", .flags = kDefault},
    {.kind = ControlKind::CommandButton,
     .name = "cmdCancel",
     .caption = u"&Cancel",
     .flags = kCancel},
    {.kind = ControlKind::CommonDialog, .name = "dlgFont"},
};

class FocusTest : public ::testing::Test {
 protected:
  FocusTest() {
    form.Get<CommandButton>("cmdOK").Click = [this](Control&) { clicks.push_back("cmdOK"); };
    form.Get<CommandButton>("cmdCancel").Click = [this](Control&) {
      clicks.push_back("cmdCancel");
    };
    for (std::int16_t i = 0; i < 3; ++i) {
      form.Get<OptionButton>("optSize", i).Click = [this](Control& c) {
        clicks.push_back(c.Path());
      };
    }
  }
  std::string Focus() const { return form.ActiveControl() ? form.ActiveControl()->Path() : "-"; }

  Harness h;
  TableForm form{h.runtime, "frmDialog", u"Dialog", kDialog};
  std::vector<std::string> clicks;
};

TEST_F(FocusTest, ShowFocusesTheFirstControlThatCanTakeIt) {
  form.Show(0);
  EXPECT_THAT(h.log.lines, ElementsAre("shown frmDialog", "focus frmDialog txtName"));
  EXPECT_EQ(form.Get<CommonDialog>("dlgFont").TabIndex(), -1);
  EXPECT_EQ(form.Get<CheckBox>("chkBold").TabIndex(), 9);
}

TEST_F(FocusTest, FocusChangeIsReportedOnlyWhenItMoves) {
  form.Show(0);
  form.Get<TextBox>("txtName").SetFocus();
  form.Get<CheckBox>("chkBold").SetFocus();
  form.Get<CheckBox>("chkBold").SetFocus();
  EXPECT_THAT(h.log.lines,
              ElementsAre("shown frmDialog", "focus frmDialog txtName", "focus frmDialog chkBold"));
}

TEST_F(FocusTest, SetFocusFailsWhereTheFocusCannotGo) {
  EXPECT_THROW(form.Get<TextBox>("txtName").SetFocus(), vb::Failure) << "form not shown";
  form.Show(0);
  for (const char* name : {"txtOff", "chkInside", "lblName", "fraSize"}) {
    try {
      form.Find(name)->SetFocus();
      ADD_FAILURE() << name << " took the focus";
    } catch (const vb::Failure& f) {
      EXPECT_EQ(f.Number(), vb::kInvalidProcedureCall) << name;
    }
  }
  EXPECT_EQ(Focus(), "txtName");
}

struct TabCase {
  const char* name;
  std::function<void(Form&)> prepare;
  std::vector<Key> keys;
  std::vector<std::string> focus_after_each;
};
void PrintTo(const TabCase& c, std::ostream* os) { *os << c.name; }

class TabOrderTest : public FocusTest, public ::testing::WithParamInterface<TabCase> {};

TEST_P(TabOrderTest, WalksToTheExpectedControls) {
  form.Show(0);
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
                {"optSize(1)", "chkInside"}}));

TEST_F(FocusTest, EnterPressesTheDefaultUnlessAButtonHasTheFocus) {
  form.Show(0);
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

TEST_F(FocusTest, AltKeyOnALabelFocusesTheControlAfterIt) {
  form.Show(0);
  form.Get<CheckBox>("chkBold").SetFocus();
  form.UserAltKey(u'n');
  EXPECT_EQ(Focus(), "txtName");
}

TEST_F(FocusTest, AltKeyActsOnButtonsAndSkipsWhatCannotTakeIt) {
  form.Show(0);
  form.UserAltKey(u'S');
  EXPECT_EQ(Focus(), "optSize(0)");
  EXPECT_TRUE(form.Get<OptionButton>("optSize", 0).Value());
  form.UserAltKey(u'B');
  EXPECT_EQ(form.Get<CheckBox>("chkBold").Value(), 1);
  form.UserAltKey(u'C');
  EXPECT_EQ(Focus(), "chkBold") << "a command button's access key presses it in place";
  form.UserAltKey(u'I');  // inside a hidden frame
  form.UserAltKey(u'Z');  // no such key
  EXPECT_EQ(form.Get<CheckBox>("chkInside").Value(), 0);
  EXPECT_EQ(Focus(), "chkBold");
  EXPECT_THAT(clicks, ElementsAre("optSize(0)", "cmdCancel"));
}

TEST_F(FocusTest, ArrowsMoveRoundTheOptionGroupSelectingAsTheyGo) {
  form.Show(0);
  form.Get<OptionButton>("optSize", 1).SetFocus();
  form.UserKey(Key::Down);
  form.UserKey(Key::Down);
  form.UserKey(Key::Up);
  EXPECT_EQ(Focus(), "optSize(2)");
  EXPECT_THAT(clicks, ElementsAre("optSize(2)", "optSize(0)", "optSize(2)"));
  EXPECT_FALSE(form.Get<OptionButton>("optSize", 0).Value());
}

TEST_F(FocusTest, ClickFocusesThenActsAndDisabledControlsTakeNothing) {
  form.Show(0);
  form.UserClick(form.Get<CheckBox>("chkBold"));
  EXPECT_EQ(Focus(), "chkBold");
  EXPECT_EQ(form.Get<CheckBox>("chkBold").Value(), 1);
  form.UserClick(form.Get<TextBox>("txtOff"));
  form.UserClick(form.Get<Label>("lblName"));
  EXPECT_EQ(Focus(), "chkBold");
  form.UserKey(Key::Space);
  EXPECT_EQ(form.Get<CheckBox>("chkBold").Value(), 0);
  form.UserClick(form.Get<TextBox>("txtName"));
  EXPECT_EQ(form.Get<TextBox>("txtName").SelStart(), 5) << "a click puts the caret at the end";
}

TEST_F(FocusTest, AFormThatIsNotShownTakesNoInput) {
  form.Show(0);
  form.Hide();
  form.UserChar(u'x');
  form.UserKey(Key::Enter);
  form.UserClick(form.Get<CheckBox>("chkBold"));
  EXPECT_EQ(form.Get<TextBox>("txtName").Text(), u"Text1");
  EXPECT_EQ(form.Get<CheckBox>("chkBold").Value(), 0);
  EXPECT_TRUE(clicks.empty());
}

}  // namespace
}  // namespace forms::testing
