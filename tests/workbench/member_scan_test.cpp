#include "workbench/member_scan.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "workbench/code_module.hpp"
#include "workbench/model_test_support.hpp"

namespace workbench {
namespace {

std::vector<vb::Text> LinesOf(const vb::Text& text) {
  return CodeModule::FromText(u"Module1", text)->AllLines();
}

std::vector<std::string> Scan(const vb::Text& text) {
  return testing::Describe(ScanMembers(LinesOf(text)));
}

struct ScanCase {
  const char* label;
  const char16_t* text;
  std::vector<std::string> members;
};

class MemberScanTest : public ::testing::TestWithParam<ScanCase> {};

TEST_P(MemberScanTest, ListsMembersAsTheIdeDoes) {
  EXPECT_EQ(Scan(GetParam().text), GetParam().members) << vb::ToUtf8(GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Table, MemberScanTest,
    ::testing::Values(
        ScanCase{"ProceduresWithModifiersInAnyCase",
                 u"Option Explicit\n\nPrivate Sub Form_Load()\n    x = 1\nEnd Sub\n"
                 u"public function Area(ByVal w As Long) As Long\n  Area = w * w\nend function\n"
                 u"Friend Static Sub Tick()\nEnd Sub\nStatic Private Function Twice%(n%)\n"
                 u"End Function\nSub Main\nEnd Sub\n",
                 {"Sub Form_Load 3-5", "Function Area 6-8", "Sub Tick 9-10", "Function Twice 11-12",
                  "Sub Main 13-14"}},
        ScanCase{"PropertyProceduresOfOneNameAreOneMember",
                 u"Private m_value As Long\nPublic Property Get Value() As Long\n"
                 u"  Value = m_value\nEnd Property\nPublic Property Let Value(ByVal v As Long)\n"
                 u"  m_value = v\nEnd Property\nPublic Property Set Font(ByVal f As StdFont)\n"
                 u"End Property\nProperty Let FONT(ByVal f)\nEnd Property\n",
                 {"Variable m_value 1", "Property Value 2-4 +5-7", "Property Font 8-9 +10-11"}},
        ScanCase{"SeveralVariablesPerLine",
                 u"Dim a, b As Long\nPrivate c As String * 10, d(1 To 3, 2) As Integer\n"
                 u"Public WithEvents cmd As CommandButton\nGlobal g$\n"
                 u"Dim WithEvents frm As Form, h\nDim i: Dim j As New Collection\n"
                 u"Dim [Option] As Long\nDim r#: Dim s#\n",
                 {"Variable a 1", "Variable b 1", "Variable c 2", "Variable d 2", "Variable cmd 3",
                  "Variable g 4", "Variable frm 5", "Variable h 5", "Variable i 6", "Variable j 6",
                  "Variable Option 7", "Variable r 8", "Variable s 8"}},
        ScanCase{
            "SeveralConstantsPerLine",
            u"Const kA = 1, kB = \"x, y\"\nPrivate Const kC As Long = (1 + 2), kD = #1/2/2000#\n"
            u"Public Const kE = \"it's: here\": Global Const kF = 2\n"
            u"Const kNoon = #12:00:00 PM#, kLate = 3\nConst kText = \"Sub Fake()\"\n",
            {"Constant kA 1", "Constant kB 1", "Constant kC 2", "Constant kD 2", "Constant kE 3",
             "Constant kF 3", "Constant kNoon 4", "Constant kLate 4", "Constant kText 5"}},
        ScanCase{"DeclaresAndEvents",
                 u"Private Declare Function GetTickCount Lib \"kernel32\" () As Long\n"
                 u"Declare Sub Sleep Lib \"kernel32\" (ByVal ms As Long)\n"
                 u"Public Declare Function SendMessage Lib \"user32\" Alias \"SendMessageA\" _\n"
                 u"    (ByVal hWnd As Long, ByVal msg As Long) As Long\n"
                 u"Public Event Changed(ByVal what As String)\nEvent Closed()\n",
                 {"Declare GetTickCount 1", "Declare Sleep 2", "Declare SendMessage 3",
                  "Event Changed 5", "Event Closed 6"}},
        ScanCase{"TypeAndEnumBlocksButNotTheirInnerLines",
                 u"Private Type Point\n    X As Long\n    Y As Long\nEnd Type\n"
                 u"Public Enum Colors\n    Red = 1\n    Green\nEnd Enum\nDim p As Point\n",
                 {"Type Point 1-4", "Enum Colors 5-8", "Variable p 9"}},
        ScanCase{"CommentsOptionsAttributesLabelsAndBodiesGiveNothing",
                 u"Attribute VB_Name = \"Module1\"\nOption Explicit\n' Private Sub Commented()\n"
                 u"Rem Private Sub AlsoCommented()\n  REM Dim x\nRem see: Dim NotAVariable\n"
                 u"#If Win32 Then\n#End If\nImplements IThing\nDefInt A-Z\nSub Main()\nStart:\n"
                 u"    Dim local As Long\n    Const kLocal = 1\n    Static count As Long\n"
                 u"    GoTo Start\nEnd Sub\nAttribute Main.VB_Description = \"Entry\"\n",
                 {"Sub Main 11-17"}},
        ScanCase{"ContinuedDeclarationsStartAtTheirFirstLine",
                 u"Private Function Join3(ByVal a As String, _\n"
                 u"                       ByVal b As String, _\n"
                 u"                       ByVal c As String) As String\n    Join3 = a & _\n"
                 u"        b & c\nEnd Function\nDim x As Long, _\n    y As Long\nPrivate _\n"
                 u"  Sub Split()\nEnd Sub\n",
                 {"Function Join3 1-6", "Variable x 7", "Variable y 7", "Sub Split 9-11"}},
        ScanCase{"ContinuedCommentSwallowsTheNextLine",
                 u"' first part of a comment _\nSub NotAMember()\nSub Real()\nEnd Sub\n",
                 {"Sub Real 3-4"}},
        ScanCase{"UnderscoreInsideAStringDoesNotContinue",
                 u"Const kA = \"a _\nConst kB = 2\n",
                 {"Constant kA 1", "Constant kB 2"}},
        ScanCase{"StringsDoNotConfuseTheScan",
                 u"Sub Show()\n    MsgBox \"Sub Fake()\": x = 1\n    s = \"End Sub\"\n"
                 u"    t = \"it's ' not a comment\": End Sub\nFunction After() ' End Function\n"
                 u"End Function\n",
                 {"Sub Show 1-4", "Function After 5-6"}},
        ScanCase{"EndSubInACommentDoesNotClose",
                 u"Sub A()\n    ' End Sub\n    Rem End Sub\n    Rem later: End Sub\n"
                 u"    x = 1 ' End Sub\nEnd Sub ' closes here\nSub B(): End Sub\n"
                 u"Private Sub C(): x = 1: End Sub ' one line\n",
                 {"Sub A 1-6", "Sub B 7-7", "Sub C 8-8"}},
        ScanCase{"ClosingLineWithTabsAndOddSpacing",
                 u"Sub A()\n\tx = 1\n\tEnd Sub\nSub B()\n  END   SUB\nSub C()\n"
                 u"    End Subroutine\nEnd Sub\nSub D()\n10  x = 1\n20  End Sub\n",
                 {"Sub A 1-3", "Sub B 4-5", "Sub C 6-8", "Sub D 9-11"}},
        ScanCase{"OnlyTheMatchingEndCloses",
                 u"Function F()\nEnd Sub\nEnd Function\n",
                 {"Function F 1-3"}},
        ScanCase{"ModuleEndsInsideABody",
                 u"Dim a\nSub Open()\n    x = 1\n",
                 {"Variable a 1", "Sub Open 2-?"}},
        ScanCase{"ProcedureWithoutEndBeforeTheNext",
                 u"Sub A()\nSub B()\nEnd Sub\n",
                 {"Sub A 1-?", "Sub B 2-3"}},
        ScanCase{"EmptyModule", u"", {}}),
    [](const ::testing::TestParamInfo<ScanCase>& param_info) { return param_info.param.label; });

TEST(MemberTableTest, FindIgnoresCaseAndMatchesWholeNames) {
  const MemberTable table(
      LinesOf(u"Private Sub Text1_Change()\nEnd Sub\nPrivate Sub Text10_Change()\nEnd Sub\n"
              u"Dim \u00C4rger As Long\n"));
  const ScannedMember* found = table.Find(u"TEXT10_change");
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->name, u"Text10_Change");
  EXPECT_EQ(found->line, 3);
  ASSERT_NE(table.Find(u"text1_change"), nullptr);
  EXPECT_EQ(table.Find(u"text1_change")->line, 1);
  EXPECT_EQ(table.Find(u"Text1_Chang"), nullptr);
  EXPECT_EQ(table.Find(u"Text1"), nullptr);
  ASSERT_NE(table.Find(u"\u00E4RGER"), nullptr);
}

TEST(MemberScanLargeTest, LargestModuleScansToTheLastLine) {
  // 65,534 lines, the IDE's largest module: 13,106 procedures of five lines,
  // then four variables.
  std::vector<vb::Text> lines;
  const int procedures = 13106;
  for (int i = 0; i < procedures; ++i) {
    lines.insert(lines.end(),
                 {u"Private Sub P" + vb::FromUtf8(std::to_string(i)) + u"(ByVal a As Long, _",
                  u"    ByVal b As String)", u"    s = \"End Sub\": x = a ' End Sub",
                  u"    Dim local As Long", u"End Sub"});
  }
  lines.insert(lines.end(), {u"Dim a", u"Dim b", u"Dim c", u"Dim d"});
  ASSERT_EQ(lines.size(), 65534u);
  const MemberTable table(lines);
  ASSERT_EQ(table.All().size(), static_cast<std::size_t>(procedures + 4));
  EXPECT_EQ(testing::Describe(table.All()[procedures - 1]), "Sub P13105 65526-65530");
  EXPECT_EQ(testing::Describe(table.All().back()), "Variable d 65534");
  EXPECT_EQ(table.Find(u"p6000")->line, 6000 * 5 + 1);
}

}  // namespace
}  // namespace workbench
