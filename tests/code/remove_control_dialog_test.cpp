#include "code/remove_control_dialog.hpp"

#include <gtest/gtest.h>

#include "code/code_doubles.hpp"
#include "workbench/code_module.hpp"

namespace tessaly {
namespace {

using testing::Click;
using testing::CloseBox;
using testing::DialogHarness;
using testing::Joined;
using testing::Press;
using testing::Tick;

// Text1's members are Change, then Click; Text10's are not Text1's.
constexpr const char16_t* kCode =
    u"Option Explicit\n"
    u"Private Sub Text1_Change()\n"
    u"    Caption = Text1.Text\n"
    u"End Sub\n"
    u"Private Sub Text10_Click()\n"
    u"End Sub\n"
    u"Private Function Text1_Click() As Long\n"
    u"End Function\n"
    u"Private Sub Form_Load()\n"
    u"End Sub";

class RemoveControlDialogTest : public ::testing::Test {
 protected:
  // Shows the dialog for Text1 as the handler does, runs the script, and
  // returns the module's text afterwards.
  std::string Run(std::vector<forms::UserAction> actions) {
    h.Script(std::move(actions));
    frmRemoveControl dialog(h.runtime);
    dialog.objControl = control;
    dialog.Show(1);
    EXPECT_TRUE(h.ScriptUsedUp());
    EXPECT_FALSE(dialog.IsLoaded());
    return Joined(module->AllLines());
  }

  DialogHarness h;
  std::shared_ptr<workbench::CodeModule> module =
      std::make_shared<workbench::CodeModule>(u"Form1", testing::SplitAtNewlines(kCode));
  std::shared_ptr<testing::FakeControl> control = testing::ControlOnForm(u"Text1", module);
};

TEST_F(RemoveControlDialogTest, DesignAsTheDeveloperSeesIt) {
  frmRemoveControl dialog(h.runtime);
  EXPECT_EQ(dialog.Caption(), u"Remove Code for Control");
  EXPECT_EQ(dialog.Position(), forms::StartUpPosition::CenterScreen);
  std::vector<std::string> order;
  for (forms::Control* c : dialog.TabOrder()) order.push_back(c->Name());
  EXPECT_EQ(order, (std::vector<std::string>{"Label1", "lblCtlName", "lstMembers", "cmdOK"}));
  EXPECT_EQ(dialog.Get<forms::Label>("Label1").Caption(),
            u"The following methods are declared for the control that was just deleted.  Select "
            u"the methods that you would like to remove from the code listing.");
  const auto& name = dialog.Get<forms::Label>("lblCtlName");
  EXPECT_EQ(name.Caption(), u"Control Name : ");
  EXPECT_EQ(name.Tag(), u"Control Name : ");
  EXPECT_TRUE(name.Bold());
  const auto& list = dialog.Get<forms::ListBox>("lstMembers");
  EXPECT_FALSE(list.Sorted());
  EXPECT_TRUE(list.CheckBoxStyle());
  const auto& ok = dialog.Get<forms::CommandButton>("cmdOK");
  EXPECT_EQ(ok.Caption(), u"&Ok");
  EXPECT_TRUE(ok.Default());
  EXPECT_EQ(dialog.CancelButton(), nullptr);
}

TEST_F(RemoveControlDialogTest, ListsTheControlsMembersAllChecked) {
  frmRemoveControl dialog(h.runtime);
  dialog.objControl = control;
  // Shown modeless, so the list can be read while the dialog is up.
  dialog.Show(0);
  const auto& list = dialog.Get<forms::ListBox>("lstMembers");
  std::vector<std::pair<std::string, bool>> rows;
  for (std::int32_t i = 0; i < list.ListCount(); ++i) {
    rows.emplace_back(vb::ToUtf8(list.List(i)), list.Selected(i));
  }
  EXPECT_EQ(rows, (std::vector<std::pair<std::string, bool>>{{"Text1_Change", true},
                                                             {"Text1_Click", true}}));
  EXPECT_EQ(dialog.Get<forms::Label>("lblCtlName").Caption(), u"Control Name : Text1");
}

TEST_F(RemoveControlDialogTest, OkRemovesEveryCheckedMember) {
  EXPECT_EQ(Run({Click("cmdOK")}),
            "Option Explicit\n"
            "Private Sub Text10_Click()\n"
            "End Sub\n"
            "Private Sub Form_Load()\n"
            "End Sub");
}

TEST_F(RemoveControlDialogTest, AnUncheckedMemberStays) {
  EXPECT_EQ(Run({Tick("lstMembers", 0), Click("cmdOK")}),
            "Option Explicit\n"
            "Private Sub Text1_Change()\n"
            "    Caption = Text1.Text\n"
            "End Sub\n"
            "Private Sub Text10_Click()\n"
            "End Sub\n"
            "Private Sub Form_Load()\n"
            "End Sub");
}

TEST_F(RemoveControlDialogTest, EnterPressesOk) {
  EXPECT_EQ(Run({Press(forms::Key::Enter)}).find("Text1_"), std::string::npos);
}

TEST_F(RemoveControlDialogTest, TheCloseBoxLeavesTheCode) {
  EXPECT_EQ(Run({CloseBox()}), Joined(testing::SplitAtNewlines(kCode)));
}

TEST_F(RemoveControlDialogTest, EachShowStartsFromAnEmptyList) {
  h.Script({Tick("lstMembers", 1), CloseBox(), Tick("lstMembers", 1), Tick("lstMembers", 0),
            Click("cmdOK")});
  frmRemoveControl dialog(h.runtime);
  dialog.objControl = control;
  dialog.Show(1);
  // The second Show lists both rows again, both checked: ticking row 1 and
  // row 0 leaves none checked, so nothing goes.
  dialog.Show(1);
  EXPECT_TRUE(h.ScriptUsedUp());
  EXPECT_EQ(Joined(module->AllLines()), Joined(testing::SplitAtNewlines(kCode)));
}

TEST_F(RemoveControlDialogTest, AFormWithoutCodeListsNothing) {
  control = testing::ControlOnForm(u"Text1", nullptr);
  h.Script({Click("cmdOK")});
  frmRemoveControl dialog(h.runtime);
  dialog.objControl = control;
  dialog.Show(1);
  EXPECT_TRUE(h.ScriptUsedUp());
}

TEST(FindCodeModule, FollowsTheChainAndFailsOnAMissingLink) {
  auto module = std::make_shared<testing::LinesModule>(std::vector<vb::Text>{});
  EXPECT_EQ(FindCodeModule(*testing::ControlOnForm(u"Text1", module)), module);
  EXPECT_EQ(FindCodeModule(*testing::ControlOnForm(u"Text1", nullptr)), nullptr);

  testing::FakeControl orphan(nullptr, u"Text1");
  try {
    FindCodeModule(orphan);
    FAIL() << "no failure";
  } catch (const vb::Failure& f) {
    EXPECT_EQ(f.Number(), vb::kObjectNotSet);
  }
}

}  // namespace
}  // namespace tessaly
