#include "code/control_members.hpp"

#include <gtest/gtest.h>

#include "code/code_doubles.hpp"
#include "workbench/code_module.hpp"

namespace tessaly {
namespace {

struct BelongsCase {
  const char16_t* member;
  const char16_t* control;
  bool belongs;
};

class BelongsTest : public ::testing::TestWithParam<BelongsCase> {};

TEST_P(BelongsTest, NameThenUnderscoreThenAnything) {
  const BelongsCase& c = GetParam();
  EXPECT_EQ(BelongsToControl(c.member, c.control), c.belongs)
      << vb::ToUtf8(c.member) << " of " << vb::ToUtf8(c.control);
}

INSTANTIATE_TEST_SUITE_P(
    Names, BelongsTest,
    ::testing::Values(
        BelongsCase{u"Text1_Click", u"Text1", true}, BelongsCase{u"Text10_Click", u"Text1", false},
        BelongsCase{u"Text1_Click", u"Text10", false}, BelongsCase{u"Text1_", u"Text1", true},
        BelongsCase{u"Text1", u"Text1", false}, BelongsCase{u"Text1_Sub_Part", u"Text1", true},
        BelongsCase{u"text1_Click", u"Text1", false}, BelongsCase{u"Form_Load", u"Text1", false},
        // '*' is the only wildcard: '#' and '?' stand for themselves.
        BelongsCase{u"A#_Click", u"A#", true}, BelongsCase{u"A1_Click", u"A#", false},
        BelongsCase{u"AB_Click", u"A?", false}));

std::shared_ptr<workbench::CodeModule> Module(const char16_t* text) {
  return workbench::CodeModule::FromText(u"Form1", text);
}

TEST(HasMemberOfControl, FindsOnlyTheControlsOwnMembers) {
  auto module = Module(
      u"Option Explicit\r\n"
      u"Private Text10_Count As Long\r\n"
      u"Private Sub Text10_Click()\r\n"
      u"    Text1.Text = \"\"  ' Text1_Click is mentioned, not declared\r\n"
      u"End Sub\r\n");
  EXPECT_FALSE(HasMemberOfControl(*module->Members(), u"Text1"));
  EXPECT_TRUE(HasMemberOfControl(*module->Members(), u"Text10"));
  EXPECT_FALSE(HasMemberOfControl(*Module(u"")->Members(), u"Text1"));
}

TEST(CodeMentions, PlainAndCaseSensitiveAcrossTheWholeText) {
  auto module = Module(
      u"Private Sub Form_Load()\r\n"
      u"    Caption = \"txtName\"\r\n"
      u"End Sub\r\n"
      u"' last line mentions Command1");
  EXPECT_TRUE(CodeMentions(*module, u"txtName"));
  EXPECT_TRUE(CodeMentions(*module, u"Command1"));
  EXPECT_TRUE(CodeMentions(*module, u"Load"));
  EXPECT_FALSE(CodeMentions(*module, u"TXTNAME"));
  EXPECT_FALSE(CodeMentions(*module, u"Text1"));
  EXPECT_FALSE(CodeMentions(*Module(u""), u"Text1"));
}

}  // namespace
}  // namespace tessaly
