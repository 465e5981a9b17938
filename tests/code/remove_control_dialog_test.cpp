// frmRemoveControl beyond what the session tests show: the list in code
// order and afresh on each Show, a form without code, and the chain from a
// control to its module.
#include "code/remove_control_dialog.hpp"

#include <gtest/gtest.h>

#include "code/code_doubles.hpp"
#include "forms/forms_harness.hpp"
#include "workbench/code_module.hpp"
#include "workbench/form_component.hpp"
#include "workbench/project.hpp"

namespace tessaly {
namespace {

using forms::testing::Clicked;
using testing::SplitAtNewlines;

// Text1's members out of alphabetical order; Text10's are not Text1's.
constexpr const char16_t* kCode =
    u"Option Explicit\n"
    u"Private Function Text1_Click() As Long\n"
    u"End Function\n"
    u"Private Sub Text10_Click()\n"
    u"End Sub\n"
    u"Private Sub Text1_Change()\n"
    u"    Caption = Text1.Text\n"
    u"End Sub";

class RemoveControlDialogTest : public ::testing::Test {
 protected:
  forms::testing::Harness h;
  std::shared_ptr<workbench::Project> project = workbench::Project::Create(u"P");
  std::shared_ptr<workbench::CodeModule> module =
      std::make_shared<workbench::CodeModule>(u"Form1", SplitAtNewlines(kCode));
  std::shared_ptr<workbench::Control> control =
      project->LoadForm(u"Form1", module)->AddControl(u"TextBox");
  frmRemoveControl dialog{h.runtime};
};

TEST_F(RemoveControlDialogTest, ListsTheMembersInCodeOrderAfreshOnEachShow) {
  dialog.objControl = control;
  for (int show = 0; show < 2; ++show) {
    dialog.Show(0);  // modeless, so the list can be read while the dialog is up
    const auto& list = dialog.Get<forms::ListBox>("lstMembers");
    ASSERT_EQ(list.ListCount(), 2);
    EXPECT_EQ(list.List(0), u"Text1_Click");
    EXPECT_EQ(list.List(1), u"Text1_Change");
    dialog.Unload();
  }
}

TEST_F(RemoveControlDialogTest, AFormWithoutCodeListsNothingAndOkCloses) {
  dialog.objControl = project->LoadForm(u"Form2", nullptr)->AddControl(u"TextBox");
  h.script.Add(Clicked("cmdOK"));
  dialog.Show(1);
  EXPECT_EQ(h.script.Left(), 0u);
  EXPECT_FALSE(dialog.IsLoaded());
}

TEST_F(RemoveControlDialogTest, FindCodeModuleFollowsTheChainAndFailsOnAMissingLink) {
  EXPECT_EQ(FindCodeModule(*control), module);
  EXPECT_EQ(FindCodeModule(*project->LoadForm(u"Form2", nullptr)->AddControl(u"Label")), nullptr);
  // A control whose form is gone has no collection.
  auto orphan = workbench::Project::Create(u"Q")->AddForm(u"Form1")->AddControl(u"Label");
  EXPECT_THROW(FindCodeModule(*orphan), vb::Failure);
}

}  // namespace
}  // namespace tessaly
