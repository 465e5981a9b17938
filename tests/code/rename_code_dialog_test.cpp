#include "code/rename_code_dialog.hpp"

#include <gtest/gtest.h>

#include "code/code_doubles.hpp"
#include "workbench/code_module.hpp"

namespace tessaly {
namespace {

using testing::Answer;
using testing::Click;
using testing::DialogHarness;
using testing::Joined;
using testing::LinesModule;
using testing::Press;

const std::vector<vb::Text> kLines = {u"Private Sub Text1_Click()", u"    Text1.SetFocus",
                                      u"End Sub"};

class RenameCodeDialogTest : public ::testing::Test {
 protected:
  // Shows the dialog for Text1 -> txtName over `module`, runs the script, and
  // returns the module's lines afterwards.
  std::string Run(const std::shared_ptr<ide::CodeModule>& code,
                  std::vector<forms::UserAction> actions) {
    h.Script(std::move(actions));
    frmRenameCode dialog(h.runtime);
    dialog.objCode = code;
    dialog.OldName = u"Text1";
    dialog.NewName = u"txtName";
    dialog.Show(1);
    EXPECT_TRUE(h.ScriptUsedUp());
    EXPECT_FALSE(dialog.IsLoaded());
    return Joined(testing::SplitAtNewlines(
        vb::Replace(code->Lines(1, code->CountOfLines()), u"\r\n", u"\n")));
  }

  DialogHarness h;
  std::shared_ptr<workbench::CodeModule> module =
      std::make_shared<workbench::CodeModule>(u"Form1", kLines);
};

TEST_F(RenameCodeDialogTest, DesignAsTheDeveloperSeesIt) {
  frmRenameCode dialog(h.runtime);
  EXPECT_EQ(dialog.Caption(), u"Rename Code for Control");
  EXPECT_EQ(dialog.Position(), forms::StartUpPosition::CenterScreen);
  std::vector<std::string> order;
  for (forms::Control* c : dialog.TabOrder()) order.push_back(c->Name());
  EXPECT_EQ(order, (std::vector<std::string>{"Label1", "lblOldName", "lblNewName", "cmdReplace",
                                             "cmdCancel"}));
  EXPECT_EQ(dialog.Get<forms::Label>("Label1").Caption(),
            u"You have just changed the name of a control.  Do you want to change all references "
            u"in the code for the current Form/Control to reflect the new name for the control?");
  for (const auto& [name, text] : {std::pair{"lblOldName", u"Old Control Name : "},
                                   std::pair{"lblNewName", u"New Control Name : "}}) {
    const auto& label = dialog.Get<forms::Label>(name);
    EXPECT_EQ(label.Caption(), text) << name;
    EXPECT_EQ(label.Tag(), text) << name;
    EXPECT_TRUE(label.Bold()) << name;
  }
  EXPECT_EQ(dialog.Get<forms::CommandButton>("cmdReplace").Caption(), u"&Replace");
  EXPECT_EQ(dialog.DefaultButton()->Name(), "cmdReplace");
  EXPECT_EQ(dialog.Get<forms::CommandButton>("cmdCancel").Caption(), u"&Cancel");
  EXPECT_EQ(dialog.CancelButton()->Name(), "cmdCancel");
}

TEST_F(RenameCodeDialogTest, ShowsBothNames) {
  frmRenameCode dialog(h.runtime);
  dialog.OldName = u"Text1";
  dialog.NewName = u"txtName";
  dialog.Show(0);
  EXPECT_EQ(dialog.Get<forms::Label>("lblOldName").Caption(), u"Old Control Name : Text1");
  EXPECT_EQ(dialog.Get<forms::Label>("lblNewName").Caption(), u"New Control Name : txtName");
}

TEST_F(RenameCodeDialogTest, ReplaceRenamesThroughoutTheModule) {
  const std::string renamed =
      "Private Sub txtName_Click()\n"
      "    txtName.SetFocus\n"
      "End Sub";
  EXPECT_EQ(Run(module, {Click("cmdReplace")}), renamed);
  EXPECT_EQ(Joined(module->AllLines()), renamed);
}

TEST_F(RenameCodeDialogTest, EnterReplacesEscapeCancels) {
  EXPECT_EQ(Run(module, {Press(forms::Key::Escape)}), Joined(kLines));
  EXPECT_EQ(Run(module, {Press(forms::Key::Enter)}).find("Text1"), std::string::npos);
}

TEST_F(RenameCodeDialogTest, CancelLeavesTheCode) {
  EXPECT_EQ(Run(module, {Click("cmdCancel")}), Joined(kLines));
  EXPECT_TRUE(h.log.boxes.empty());
}

TEST_F(RenameCodeDialogTest, AFailedAddKeepsTheCodeAndSaysWhy) {
  auto failing = std::make_shared<LinesModule>(kLines);
  failing->FailNextAdd(vb::Failure(7, u"Out of memory"), 1);

  EXPECT_EQ(Run(failing, {Click("cmdReplace"), Answer(forms::vbOK)}), Joined(kLines));

  ASSERT_EQ(h.log.boxes.size(), 1u);
  const forms::MessageBox& box = h.log.boxes.front();
  EXPECT_EQ(box.prompt,
            u"The code could not be renamed: Out of memory. The code was left as it was.");
  EXPECT_EQ(box.title, u"Rename Code for Control");
  EXPECT_EQ(box.buttons, forms::vbExclamation);
}

}  // namespace
}  // namespace tessaly
