#include "code/code_edits.hpp"

#include <gtest/gtest.h>

#include "code/code_doubles.hpp"
#include "workbench/code_module.hpp"

namespace tessaly {
namespace {

using testing::FailingModule;
using testing::Joined;
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
    {"EndSubInAnotherCase", u"Text1_Click",
     u"[[Private Sub Text1_Click()\n"
     u"end sub]]\n"
     u"Private Sub Form_Load()\n"
     u"End Sub"},
    // The usual rule does not test the declaration line; "End Sub" there is
    // no end of a block.
    // Blanks before "End Sub" and a comment behind it still close the Sub.
    {"EndSubWithBlanksAndComment", u"Text1_Click",
     u"[[Private Sub Text1_Click()\n"
     u"    x = 1\n"
     u"   End Sub ' done]]\n"
     u"' after"},
    // A tab is no blank to the usual rule; the member's own end is found instead.
    {"EndSubAfterATab", u"Text1_Click",
     u"[[Private Sub Text1_Click()\n"
     u"\tEnd Sub]]\n"
     u"\n"
     u"Private Sub Form_Load()\n"
     u"    y = 2\n"
     u"End Sub"},
    {"FunctionGoesByItsOwnClosingLine", u"Text1_Valid",
     u"[[Private Function Text1_Valid() As Boolean\n"
     u"    Text1_Valid = True\n"
     u"End Function]]\n"
     u"Private Sub Form_Load()\n"
     u"End Sub"},
    {"OneLineSubWithComment", u"Text1_Click",
     u"[[Private Sub Text1_Click(): Beep: End Sub ' quick]]\n"
     u"' a note about Form_Load\n"
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
    // Only a blank and "_" at the end continue a line, not a name ending in "_".
    {"NameEndingInUnderscore", u"Text1_Tmp_",
     u"[[Private Text1_Tmp_]]\n"
     u"' a note\n"
     u"Private Sub Form_Load()\n"
     u"End Sub"},
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
                         [](const auto& row) { return std::string(row.param.label); });

// --- Renaming: the text is vb::Replace's; what is checked here is the module --------

// A failed add leaves the module cleared and part of the renamed text in; the
// original comes back whole, with no DeleteLines when nothing was added.
TEST(RenameInModule, AFailedAddPutsTheOriginalBack) {
  const std::vector<vb::Text> lines = {u"Private Sub Text1_Click()", u"    Text1.SetFocus",
                                       u"End Sub"};
  const std::pair<std::size_t, std::vector<std::string>> cases[] = {
      {2, {"DeleteLines 1 3", "AddFromString 2", "DeleteLines 1 2", "AddFromString 3"}},
      {0, {"DeleteLines 1 3", "AddFromString 3"}}};
  for (const auto& [added_first, calls] : cases) {
    FailingModule module(lines);
    module.FailNextAdd(vb::Failure(7, u"Out of memory"), added_first);
    const std::optional<vb::Failure> failure = RenameInModule(module, u"Text1", u"txtName");
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->Number(), 7);
    EXPECT_EQ(module.AllLines(), lines);
    EXPECT_EQ(module.calls, calls);
  }
}

TEST(RenameInModule, AnEmptyModuleIsLeftAlone) {
  FailingModule module({});
  EXPECT_FALSE(RenameInModule(module, u"Text1", u"x"));
  EXPECT_TRUE(module.calls.empty());
  EXPECT_EQ(module.CountOfLines(), 0);
}

}  // namespace
}  // namespace tessaly
