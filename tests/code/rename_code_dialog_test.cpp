// frmRenameCode when the IDE fails part-way; Replace, Cancel and the keys are
// in tests/sessions/code_maintenance_test.cpp.
#include "code/rename_code_dialog.hpp"

#include <gtest/gtest.h>

#include "code/code_doubles.hpp"
#include "forms/forms_harness.hpp"

namespace tessaly {
namespace {

struct Boxes : forms::Observer {
  std::vector<forms::MessageBox> shown;
  void MessageBoxShown(const forms::MessageBox& box, std::int32_t) override {
    shown.push_back(box);
  }
};

TEST(RenameCodeDialogTest, AFailedAddKeepsTheCodeAndSaysWhy) {
  const std::vector<vb::Text> lines = {u"Private Sub Text1_Click()", u"    Text1.SetFocus",
                                       u"End Sub"};
  auto module = std::make_shared<testing::FailingModule>(lines);
  module->FailNextAdd(vb::Failure(7, u"Out of memory"), 1);
  forms::testing::Harness h;
  Boxes boxes;
  h.runtime.SetObserver(&boxes);
  h.script.Add(forms::testing::Clicked("cmdReplace")).Add(forms::testing::Answered(forms::vbOK));

  frmRenameCode dialog(h.runtime);
  dialog.objCode = module;
  dialog.OldName = u"Text1";
  dialog.NewName = u"txtName";
  dialog.Show(1);

  EXPECT_EQ(h.script.Left(), 0u);
  EXPECT_FALSE(dialog.IsLoaded());
  EXPECT_EQ(module->AllLines(), lines);
  ASSERT_EQ(boxes.shown.size(), 1u);
  EXPECT_EQ(boxes.shown[0].prompt,
            u"The code could not be renamed: Out of memory. The code was left as it was.");
  EXPECT_EQ(boxes.shown[0].title, u"Rename Code for Control");
  EXPECT_EQ(boxes.shown[0].buttons, forms::vbExclamation);
}

}  // namespace
}  // namespace tessaly
