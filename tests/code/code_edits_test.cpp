#include "code/code_edits.hpp"

#include <gtest/gtest.h>

#include "code/code_doubles.hpp"
#include "workbench/code_module.hpp"

namespace tessaly {
namespace {

using testing::Joined;
using testing::LinesModule;
using testing::MarkedModule;
using testing::ParseMarked;

std::shared_ptr<workbench::CodeModule> ModuleOf(std::vector<vb::Text> lines) {
  return std::make_shared<workbench::CodeModule>(u"Form1", std::move(lines));
}

// --- Which lines one member's removal takes -----------------------------------------

struct PlanCase {
  const char* label;
  const char16_t* member;
  // The module; the member's lines marked "[[ ... ]]", or none marked when
  // nothing goes and `reason` says why.
  const char16_t* markup;
  std::optional<NoRemoval> reason = std::nullopt;
};

class PlanTest : public ::testing::TestWithParam<PlanCase> {};

TEST_P(PlanTest, PlansTheMarkedLines) {
  const PlanCase& c = GetParam();
  const MarkedModule marked = ParseMarked(c.markup);
  auto module = ModuleOf(marked.original);

  const RemovalPlan plan = PlanMemberRemoval(*module, c.member);

  if (c.reason) {
    ASSERT_TRUE(std::holds_alternative<NoRemoval>(plan));
    EXPECT_EQ(std::get<NoRemoval>(plan), *c.reason);
    EXPECT_FALSE(ApplyRemoval(*module, plan));
  } else {
    ASSERT_EQ(marked.marked.size(), 1u) << "one marked range per case";
    ASSERT_TRUE(std::holds_alternative<LineRange>(plan))
        << vb::ToUtf8(DescribeNoRemoval(std::get<NoRemoval>(plan)));
    EXPECT_EQ(std::get<LineRange>(plan), marked.marked.front());
    EXPECT_TRUE(ApplyRemoval(*module, plan));
  }
  EXPECT_EQ(Joined(module->AllLines()), Joined(marked.expected));
}

const PlanCase kPlanCases[] = {
    {"UsualSub", u"Text1_Click",
     u"Option Explicit\n"
     u"[[Private Sub Text1_Click()\n"
     u"    MsgBox \"hi\"\n"
     u"End Sub]]\n"
     u"\n"
     u"Private Sub Form_Load()\n"
     u"End Sub"},
    {"CommentAfterEndSub", u"Text1_Change",
     u"[[Private Sub Text1_Change()\n"
     u"    x = 1\n"
     u"End Sub ' Text1_Change]]\n"
     u"Private Sub Form_Load()\n"
     u"End Sub"},
    {"BlankIndentedEndSub", u"Text1_Change",
     u"Private Sub Form_Load()\n"
     u"End Sub\n"
     u"[[    Private Sub Text1_Change()\n"
     u"        x = 1\n"
     u"    End Sub]]\n"
     u"Private Sub Form_Unload(Cancel As Integer)\n"
     u"End Sub"},
    // Tabs are no blanks to the usual rule, which would run on into the next
    // procedure's End Sub; the member's own closing line ends it instead.
    {"TabIndentedEndSub", u"Text1_Click",
     u"[[\tPrivate Sub Text1_Click()\n"
     u"\t\tBeep\n"
     u"\tEnd Sub]]\n"
     u"Private Sub Form_Load()\n"
     u"    Beep\n"
     u"End Sub"},
    {"EndSubInAnotherCase", u"Text1_Click",
     u"[[Private Sub Text1_Click()\n"
     u"end sub]]\n"
     u"Private Sub Form_Load()\n"
     u"End Sub"},
    // The usual rule does not test the declaration line; "End Sub" there is
    // no end of a block.
    {"OneLineSub", u"Text1_Click",
     u"[[Private Sub Text1_Click(): End Sub]]\n"
     u"Private Sub Form_Load()\n"
     u"End Sub"},
    {"OneLineSubWithComment", u"Text1_Click",
     u"[[Private Sub Text1_Click(): Beep: End Sub ' quick]]\n"
     u"' a note about Form_Load\n"
     u"Private Sub Form_Load()\n"
     u"End Sub"},
    {"Function", u"Text1_Valid",
     u"[[Private Function Text1_Valid() As Boolean\n"
     u"    Text1_Valid = True\n"
     u"End Function]]\n"
     u"Private Sub Form_Load()\n"
     u"End Sub"},
    {"PropertyGet", u"Text1_Value",
     u"[[Public Property Get Text1_Value() As String\n"
     u"    Text1_Value = Text1.Text\n"
     u"End Property]]\n"
     u"Private Sub Form_Load()\n"
     u"End Sub"},
    // The IDE lists a Get and a Let of one name as one member.
    {"PropertyGetAndLet", u"Text1_Value",
     u"[[Public Property Get Text1_Value() As String\n"
     u"    Text1_Value = Text1.Text\n"
     u"End Property\n"
     u"\n"
     u"Public Property Let Text1_Value(ByVal s As String)\n"
     u"    Text1.Text = s\n"
     u"End Property]]\n"
     u"Private Sub Form_Load()\n"
     u"End Sub"},
    {"Variable", u"Text1_Count",
     u"Option Explicit\n"
     u"[[Private Text1_Count As Long]]\n"
     u"Private mDirty As Boolean\n"
     u"Private Sub Form_Load()\n"
     u"End Sub"},
    {"ContinuedConstantLastInModule", u"Text1_Limit",
     u"Option Explicit\n"
     u"[[Private Const Text1_Limit As Long = _\n"
     u"    10]]"},
    {"ContinuedDeclare", u"Text1_Beep",
     u"[[Private Declare Function Text1_Beep Lib \"user32\" _\n"
     u"    Alias \"MessageBeep\" (ByVal wType As Long) As Long]]\n"
     u"\n"
     u"Private Sub Form_Load()\n"
     u"End Sub"},
    {"TypeBlock", u"Text1_Rec",
     u"[[Private Type Text1_Rec\n"
     u"    Name As String\n"
     u"End Type]]\n"
     u"Private Sub Form_Load()\n"
     u"End Sub"},
    {"LastInModule", u"Text1_Click",
     u"Private Sub Form_Load()\n"
     u"End Sub\n"
     u"[[Private Sub Text1_Click()\n"
     u"End Sub]]"},
    // Lines between the End Sub and the next member stay.
    {"TrailingCommentStays", u"Text1_Click",
     u"[[Private Sub Text1_Click()\n"
     u"End Sub]]\n"
     u"' Form events\n"
     u"Private Sub Form_Load()\n"
     u"End Sub"},
    {"MemberGone", u"Text1_Click",
     u"Private Sub Form_Load()\n"
     u"End Sub",
     NoRemoval::MemberGone},
    {"ScanReachesTheEnd", u"Text1_Click",
     u"Private Sub Form_Load()\n"
     u"End Sub\n"
     u"Private Sub Text1_Click()\n"
     u"    Beep",
     NoRemoval::NoClosingLine},
    {"ScanReachesTheNextMember", u"Text1_Click",
     u"Private Sub Text1_Click()\n"
     u"    Beep\n"
     u"Private Sub Form_Load()\n"
     u"End Sub",
     NoRemoval::NoClosingLine},
    {"LineSharedWithAnotherMember", u"Text1_Count",
     u"Private Text1_Count As Long, Text1_Max As Long\n"
     u"Private Sub Form_Load()\n"
     u"End Sub",
     NoRemoval::SharedLine},
};

INSTANTIATE_TEST_SUITE_P(Members, PlanTest, ::testing::ValuesIn(kPlanCases),
                         [](const auto& test) { return std::string(test.param.label); });

// Removals in list order: each member is looked up afresh after the ones
// before it went, so the second is found at its new place.
TEST(RemoveInOrder, AdjacentMembersBothGo) {
  const MarkedModule marked = ParseMarked(
      u"Option Explicit\n"
      u"Private Sub Form_Load()\n"
      u"End Sub\n"
      u"[[Private Sub Text1_Change()\n"
      u"    mDirty = True\n"
      u"End Sub]]\n"
      u"[[Private Sub Text1_Click()\n"
      u"End Sub]]\n"
      u"Private Sub Text10_Click()\n"
      u"End Sub");
  auto module = ModuleOf(marked.original);
  for (const vb::Text name : {u"Text1_Change", u"Text1_Click"}) {
    const RemovalPlan plan = PlanMemberRemoval(*module, name);
    ASSERT_TRUE(std::holds_alternative<LineRange>(plan)) << vb::ToUtf8(name);
    ApplyRemoval(*module, plan);
  }
  EXPECT_EQ(Joined(module->AllLines()), Joined(marked.expected));
}

// --- Renaming -----------------------------------------------------------------------

struct RenameCase {
  const char16_t* text;
  const char16_t* old_name;
  const char16_t* new_name;
  const char16_t* expected;
};

class RenamedTextTest : public ::testing::TestWithParam<RenameCase> {};

TEST_P(RenamedTextTest, ReplacesPlainly) {
  const RenameCase& c = GetParam();
  EXPECT_EQ(vb::ToUtf8(RenamedText(c.text, c.old_name, c.new_name)), vb::ToUtf8(c.expected));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, RenamedTextTest,
    ::testing::Values(
        RenameCase{u"Private Sub Text1_Click()\r\n    Text1.Text = \"\"\r\nEnd Sub", u"Text1",
                   u"txtName",
                   u"Private Sub txtName_Click()\r\n    txtName.Text = \"\"\r\nEnd Sub"},
        // Inside longer words, comments and strings; case matters.
        RenameCase{u"Text10 = \"Text1\" ' Text1 and TEXT1", u"Text1", u"T",
                   u"T0 = \"T\" ' T and TEXT1"},
        // Left to right, no overlaps, no second pass over what was put in.
        RenameCase{u"aaa", u"aa", u"b", u"ba"}, RenameCase{u"ab", u"a", u"aa", u"aab"},
        RenameCase{u"no mention", u"Text1", u"x", u"no mention"}));

TEST(RenameInModule, RoundTripThroughAnUnusedNameIsByteIdentical) {
  const std::vector<vb::Text> lines = {u"Option Explicit",
                                       u"Private Sub Text1_Click()",
                                       u"\tText1.Text = \"Text1\"  ",
                                       u"End Sub",
                                       u"",
                                       u"' Text1 again",
                                       u""};
  auto module = ModuleOf(lines);
  const vb::Text before = module->Lines(1, module->CountOfLines());

  ASSERT_FALSE(RenameInModule(*module, u"Text1", u"Qz7_unused"));
  EXPECT_EQ(vb::InStr(1, module->Lines(1, module->CountOfLines()), u"Text1"), 0u);
  ASSERT_FALSE(RenameInModule(*module, u"Qz7_unused", u"Text1"));

  EXPECT_EQ(module->AllLines(), lines);
  EXPECT_EQ(module->Lines(1, module->CountOfLines()), before);
}

TEST(RenameInModule, AFailedAddPutsTheOriginalBack) {
  const std::vector<vb::Text> lines = {u"Private Sub Text1_Click()", u"    Text1.SetFocus",
                                       u"End Sub"};
  LinesModule module(lines);
  module.FailNextAdd(vb::Failure(7, u"Out of memory"), 2);

  const std::optional<vb::Failure> failure = RenameInModule(module, u"Text1", u"txtName");

  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->Number(), 7);
  EXPECT_EQ(module.AllLines(), lines);
  EXPECT_EQ(module.calls,
            (std::vector<std::string>{"DeleteLines 1 3", "AddFromString failed after 2",
                                      "DeleteLines 1 2", "AddFromString 3"}));
}

TEST(RenameInModule, AFailedAddOnAClearedModuleAddsTheOriginalOnly) {
  LinesModule module({u"Text1 = 1"});
  module.FailNextAdd(vb::Failure(7, u"Out of memory"), 0);
  ASSERT_TRUE(RenameInModule(module, u"Text1", u"x"));
  EXPECT_EQ(module.AllLines(), std::vector<vb::Text>{u"Text1 = 1"});
  EXPECT_EQ(module.calls,
            (std::vector<std::string>{"DeleteLines 1 1", "AddFromString failed after 0",
                                      "AddFromString 1"}));
}

TEST(RenameInModule, AnEmptyModuleIsLeftAlone) {
  LinesModule module({});
  EXPECT_FALSE(RenameInModule(module, u"Text1", u"x"));
  EXPECT_TRUE(module.calls.empty());
  EXPECT_EQ(module.CountOfLines(), 0);
}

}  // namespace
}  // namespace tessaly
