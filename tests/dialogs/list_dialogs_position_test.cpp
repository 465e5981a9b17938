// Where the list dialogs open: the list view centred on the screen, its
// siblings where the system puts them.
#include <gtest/gtest.h>

#include "dialogs/dialog_factory.hpp"
#include "forms/forms_harness.hpp"

namespace {

using tessaly::DialogKind;

struct PositionCase {
  DialogKind kind;
  forms::StartUpPosition position;
};

class ListDialogPositionTest : public ::testing::TestWithParam<PositionCase> {};

TEST_P(ListDialogPositionTest, OpensWhereItsDesignSays) {
  forms::testing::Harness harness;
  auto dialog = tessaly::CreateDialog(GetParam().kind, harness.runtime);
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(dialog->Position(), GetParam().position);
}

INSTANTIATE_TEST_SUITE_P(
    Table, ListDialogPositionTest,
    ::testing::Values(PositionCase{DialogKind::ListView, forms::StartUpPosition::CenterScreen},
                      PositionCase{DialogKind::TreeView, forms::StartUpPosition::WindowsDefault},
                      PositionCase{DialogKind::ListBox, forms::StartUpPosition::WindowsDefault},
                      PositionCase{DialogKind::ComboBox, forms::StartUpPosition::WindowsDefault}));

}  // namespace
