// Where the list dialogs open: the list view centred on the screen, its
// siblings where the system puts them.
#include <gtest/gtest.h>

#include "dialogs/dialog_factory.hpp"
#include "forms/forms_harness.hpp"

namespace {

using tessaly::DialogKind;

TEST(ListDialogPositionTest, OnlyTheListViewOpensCentred) {
  forms::testing::Harness harness;
  for (const DialogKind kind :
       {DialogKind::ListView, DialogKind::TreeView, DialogKind::ListBox, DialogKind::ComboBox}) {
    const auto dialog = tessaly::CreateDialog(kind, harness.runtime);
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->Position() == forms::StartUpPosition::CenterScreen,
              kind == DialogKind::ListView);
  }
}

}  // namespace
