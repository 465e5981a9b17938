#include "code/control_members.hpp"

#include <gtest/gtest.h>

#include "workbench/code_module.hpp"

namespace tessaly {
namespace {

// The pattern itself is vb::Like's (tests/vb); what matters here is the
// underscore that ends the control's name.
TEST(BelongsToControl, NameThenUnderscoreThenAnything) {
  EXPECT_TRUE(BelongsToControl(u"Text1_Click", u"Text1"));
  EXPECT_TRUE(BelongsToControl(u"Text1_", u"Text1"));
  EXPECT_FALSE(BelongsToControl(u"Text1", u"Text1"));
  EXPECT_FALSE(BelongsToControl(u"Text10_Click", u"Text1"));
  EXPECT_FALSE(BelongsToControl(u"Text1_Click", u"Text10"));
}

TEST(CodeMentions, CaseSensitiveAndAnEmptyModuleMentionsNothing) {
  auto module = workbench::CodeModule::FromText(
      u"Form1", u"Private Sub Form_Load()\r\n    Caption = \"txtName\"\r\nEnd Sub");
  EXPECT_TRUE(CodeMentions(*module, u"txtName"));
  EXPECT_FALSE(CodeMentions(*module, u"TXTNAME"));
  EXPECT_FALSE(CodeMentions(*workbench::CodeModule::FromText(u"Form1", u""), u"Text1"));
}

}  // namespace
}  // namespace tessaly
