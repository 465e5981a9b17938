#include "code/control_members.hpp"

#include <gtest/gtest.h>

#include "workbench/code_module.hpp"

namespace tessaly {
namespace {

TEST(CodeMentions, CaseSensitiveAndAnEmptyModuleMentionsNothing) {
  auto module = workbench::CodeModule::FromText(
      u"Form1", u"Private Sub Form_Load()\r\n    Caption = \"txtName\"\r\nEnd Sub");
  EXPECT_TRUE(CodeMentions(*module, u"txtName"));
  EXPECT_FALSE(CodeMentions(*module, u"TXTNAME"));
  EXPECT_FALSE(CodeMentions(*workbench::CodeModule::FromText(u"Form1", u""), u"Text1"));
}

}  // namespace
}  // namespace tessaly
