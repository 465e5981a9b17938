// Check boxes and list boxes: Click on programmatic changes, sorted rows that
// carry their data. Option groups show in the session tests.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "forms_harness.hpp"
#include "vb/failure.hpp"

namespace forms::testing {
namespace {

using ::testing::ElementsAre;

const ControlSpec kChoices[] = {
    {ControlKind::CheckBox, "chkBold", -1, u"", nullptr, 2},
    {ControlKind::ListBox, "lstSorted", -1, u"", nullptr, 0, u"", 0, kSorted},
    {ControlKind::ListBox, "lstPlain"},
};

class ValueControlsTest : public ::testing::Test {
 protected:
  ValueControlsTest() {
    check.Click = [this](Control& c) { clicks.push_back(c.Path()); };
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
  auto& plain = form.Get<ListBox>("lstPlain");
  plain.AddItem(u"b");
  plain.AddItem(u"a");
  EXPECT_EQ(plain.NewIndex(), 1) << "an unsorted list appends";
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
    EXPECT_THAT(call,
                ::testing::Throws<vb::Failure>(::testing::Property(&vb::Failure::Number, 381)));
  }
}

}  // namespace
}  // namespace forms::testing
