// Check boxes, option groups and list boxes: Click on programmatic changes,
// one selected option per container, sorted rows that carry their data.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "forms_harness.hpp"
#include "vb/failure.hpp"

namespace forms::testing {
namespace {

using ::testing::ElementsAre;

// One array of option buttons spread over the form and two frames: the
// container, not the name, makes the group.
const ControlSpec kChoices[] = {
    {.kind = ControlKind::CheckBox, .name = "chkBold", .value = 2},
    {.kind = ControlKind::OptionButton, .name = "opt", .index = 0, .value = 1},
    {.kind = ControlKind::OptionButton, .name = "opt", .index = 1},
    {.kind = ControlKind::OptionButton, .name = "opt", .index = 2, .container = "fraA", .value = 1},
    {.kind = ControlKind::OptionButton, .name = "opt", .index = 3, .container = "fraA"},
    {.kind = ControlKind::OptionButton, .name = "opt", .index = 4, .container = "fraB", .value = 1},
    {.kind = ControlKind::OptionButton, .name = "opt", .index = 5, .container = "fraB"},
    {.kind = ControlKind::Frame, .name = "fraA"},
    {.kind = ControlKind::Frame, .name = "fraB"},
    {.kind = ControlKind::ListBox, .name = "lstSorted", .flags = kSorted | kCheckBoxStyle},
    {.kind = ControlKind::ListBox, .name = "lstPlain"},
};

class ValueControlsTest : public ::testing::Test {
 protected:
  ValueControlsTest() {
    check.Click = [this](Control& c) { clicks.push_back(c.Path()); };
    for (std::int16_t i = 0; i < 6; ++i) {
      form.Get<OptionButton>("opt", i).Click = [this](Control& c) { clicks.push_back(c.Path()); };
    }
  }
  std::string Selected() const {
    std::string s;
    for (std::int16_t i = 0; i < 6; ++i) s += form.Get<OptionButton>("opt", i).Value() ? '1' : '0';
    return s;
  }
  Harness h;
  TableForm form{h.runtime, "frmChoices", u"Choices", kChoices};
  CheckBox& check = form.Get<CheckBox>("chkBold");
  std::vector<std::string> clicks;
};

TEST_F(ValueControlsTest, CheckBoxClicksOnEveryValueChange) {
  check.SetValue(2);  // as designed: no change
  check.UserClick();  // grayed clears
  check.SetValue(1);
  check.UserClick();
  EXPECT_EQ(check.Value(), 0);
  EXPECT_THAT(clicks, ElementsAre("chkBold", "chkBold", "chkBold"));
  EXPECT_THROW(check.SetValue(3), vb::Failure);
}

TEST_F(ValueControlsTest, OptionsAreExclusivePerContainer) {
  EXPECT_EQ(Selected(), "101010") << "design values, one per container";
  form.Get<OptionButton>("opt", 3).SetValue(true);
  EXPECT_EQ(Selected(), "100110");
  form.Get<OptionButton>("opt", 1).SetValue(true);
  form.Get<OptionButton>("opt", 1).SetValue(true);
  EXPECT_EQ(Selected(), "010110");
  form.Get<OptionButton>("opt", 1).SetValue(false);
  EXPECT_EQ(Selected(), "000110");
  form.Get<OptionButton>("opt", 4).UserClick();
  EXPECT_THAT(clicks, ElementsAre("opt(3)", "opt(1)", "opt(4)"))
      << "Click on the button set, none on those cleared; a user click on a selected one "
         "still clicks";
}

TEST_F(ValueControlsTest, SortedListKeepsDataAndSelectionWithTheirRows) {
  auto& list = form.Get<ListBox>("lstSorted");
  const std::u16string inserts[] = {u"delta", u"Alpha", u"charlie", u"alpha", u"Bravo", u"ALPHA"};
  std::vector<std::int32_t> new_index;
  for (std::int32_t i = 0; i < 6; ++i) {
    list.AddItem(inserts[i]);
    new_index.push_back(list.NewIndex());
    list.SetItemData(list.NewIndex(), i);
    if (inserts[i] == u"charlie") list.SetSelected(list.NewIndex(), true);
  }
  EXPECT_THAT(new_index, ElementsAre(0, 0, 1, 1, 2, 2)) << "equal rows go after their equals";
  std::vector<std::u16string> rows;
  std::vector<std::int32_t> data;
  std::vector<bool> selected;
  for (std::int32_t i = 0; i < list.ListCount(); ++i) {
    rows.push_back(list.List(i));
    data.push_back(list.ItemData(i));
    selected.push_back(list.Selected(i));
  }
  EXPECT_THAT(rows, ElementsAre(u"Alpha", u"alpha", u"ALPHA", u"Bravo", u"charlie", u"delta"));
  EXPECT_THAT(data, ElementsAre(1, 3, 5, 4, 2, 0));
  EXPECT_THAT(selected, ElementsAre(false, false, false, false, true, false));
}

TEST_F(ValueControlsTest, UnsortedListAppends) {
  auto& list = form.Get<ListBox>("lstPlain");
  list.AddItem(u"b");
  list.AddItem(u"a");
  EXPECT_EQ(list.NewIndex(), 1);
  EXPECT_EQ(list.List(1), u"a");
}

TEST_F(ValueControlsTest, RowsOutsideTheListFailWith381) {
  auto& list = form.Get<ListBox>("lstPlain");
  list.AddItem(u"only");
  const std::function<void()> calls[] = {
      [&] { (void)list.List(1); },     [&] { (void)list.Selected(-1); },
      [&] { list.SetItemData(1, 0); }, [&] { list.SetSelected(5, true); },
      [&] { list.UserToggleRow(1); },
  };
  for (const auto& call : calls) {
    try {
      call();
      ADD_FAILURE() << "no failure";
    } catch (const vb::Failure& f) {
      EXPECT_EQ(f.Number(), 381);
    }
  }
}

TEST_F(ValueControlsTest, TickingARowTogglesItAndRaisesItemCheck) {
  auto& list = form.Get<ListBox>("lstSorted");
  std::vector<std::string> checked;
  list.ItemCheck = [&](Control&, std::int32_t row) {
    checked.push_back(std::to_string(row) + (list.Selected(row) ? " on" : " off"));
  };
  form.on_load = [&] {
    list.AddItem(u"one");
    list.AddItem(u"two");
  };
  h.script.Add(Ticked("lstSorted", 1)).Add(Ticked("lstSorted", 1)).Add(Ticked("lstSorted", 0));
  h.script.Add(Closed());
  form.Show();
  EXPECT_THAT(checked, ElementsAre("1 on", "1 off", "0 on"));
  EXPECT_THAT(h.log.lines, ::testing::Contains("focus frmChoices lstSorted"));
}

}  // namespace
}  // namespace forms::testing
