#include "workbench/member_scan.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "workbench/code_module.hpp"

namespace workbench {
namespace {

std::vector<vb::Text> LinesOf(const vb::Text& text) {
  return CodeModule::FromText(u"Module1", text)->AllLines();
}

// "Sub Foo 3-5": kind, name, declaration line and closing line ("?" when the
// module ends first); "+6-8" for each further Property procedure.
std::string Describe(const ScannedMember& m) {
  std::string out =
      std::string(MemberKindName(m.kind)) + " " + vb::ToUtf8(m.name) + " " + std::to_string(m.line);
  const bool has_body =
      IsProcedure(m.kind) || m.kind == MemberKind::Type || m.kind == MemberKind::Enum;
  if (m.end_line) {
    out += "-" + std::to_string(*m.end_line);
  } else if (has_body) {
    out += "-?";
  }
  for (const CodeExtent& part : m.more_parts) {
    out += " +" + std::to_string(part.line) + "-" +
           (part.end_line ? std::to_string(*part.end_line) : "?");
  }
  return out;
}

std::vector<std::string> Scan(const vb::Text& text) {
  std::vector<std::string> out;
  for (const ScannedMember& m : ScanMembers(LinesOf(text))) out.push_back(Describe(m));
  return out;
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
                 u"Option Explicit\n"
                 u"\n"
                 u"Private Sub Form_Load()\n"
                 u"    x = 1\n"
                 u"End Sub\n"
                 u"public function Area(ByVal w As Long) As Long\n"
                 u"  Area = w * w\n"
                 u"end function\n"
                 u"Friend Static Sub Tick()\n"
                 u"End Sub\n"
                 u"Static Private Function Twice%(n%)\n"
                 u"End Function\n"
                 u"Sub Main\n"
                 u"End Sub\n",
                 {"Sub Form_Load 3-5", "Function Area 6-8", "Sub Tick 9-10", "Function Twice 11-12",
                  "Sub Main 13-14"}},
        ScanCase{"PropertyProceduresOfOneNameAreOneMember",
                 u"Private m_value As Long\n"
                 u"Public Property Get Value() As Long\n"
                 u"  Value = m_value\n"
                 u"End Property\n"
                 u"Public Property Let Value(ByVal v As Long)\n"
                 u"  m_value = v\n"
                 u"End Property\n"
                 u"Public Property Set Font(ByVal f As StdFont)\n"
                 u"End Property\n"
                 u"Property Let FONT(ByVal f)\n"
                 u"End Property\n",
                 {"Variable m_value 1", "Property Value 2-4 +5-7", "Property Font 8-9 +10-11"}},
        ScanCase{"SeveralVariablesPerLine",
                 u"Dim a, b As Long\n"
                 u"Private c As String * 10, d(1 To 3, 2) As Integer\n"
                 u"Public WithEvents cmd As CommandButton\n"
                 u"Global g$\n"
                 u"Dim WithEvents frm As Form, h\n"
                 u"Dim i: Dim j As New Collection\n"
                 u"Dim [Option] As Long\n"
                 u"Dim r#: Dim s#\n",
                 {"Variable a 1", "Variable b 1", "Variable c 2", "Variable d 2", "Variable cmd 3",
                  "Variable g 4", "Variable frm 5", "Variable h 5", "Variable i 6", "Variable j 6",
                  "Variable Option 7", "Variable r 8", "Variable s 8"}},
        ScanCase{
            "SeveralConstantsPerLine",
            u"Const kA = 1, kB = \"x, y\"\n"
            u"Private Const kC As Long = (1 + 2), kD = #1/2/2000#\n"
            u"Public Const kE = \"it's: here\": Global Const kF = 2\n"
            u"Const kNoon = #12:00:00 PM#, kLate = 3\n"
            u"Const kText = \"Sub Fake()\"\n",
            {"Constant kA 1", "Constant kB 1", "Constant kC 2", "Constant kD 2", "Constant kE 3",
             "Constant kF 3", "Constant kNoon 4", "Constant kLate 4", "Constant kText 5"}},
        ScanCase{"DeclaresAndEvents",
                 u"Private Declare Function GetTickCount Lib \"kernel32\" () As Long\n"
                 u"Declare Sub Sleep Lib \"kernel32\" (ByVal ms As Long)\n"
                 u"Public Declare Function SendMessage Lib \"user32\" Alias \"SendMessageA\" _\n"
                 u"    (ByVal hWnd As Long, ByVal msg As Long) As Long\n"
                 u"Public Event Changed(ByVal what As String)\n"
                 u"Event Closed()\n",
                 {"Declare GetTickCount 1", "Declare Sleep 2", "Declare SendMessage 3",
                  "Event Changed 5", "Event Closed 6"}},
        ScanCase{"TypeAndEnumBlocksButNotTheirInnerLines",
                 u"Private Type Point\n"
                 u"    X As Long\n"
                 u"    Y As Long\n"
                 u"End Type\n"
                 u"Public Enum Colors\n"
                 u"    Red = 1\n"
                 u"    Green\n"
                 u"End Enum\n"
                 u"Dim p As Point\n",
                 {"Type Point 1-4", "Enum Colors 5-8", "Variable p 9"}},
        ScanCase{"CommentsOptionsAttributesLabelsAndBodiesGiveNothing",
                 u"Attribute VB_Name = \"Module1\"\n"
                 u"Option Explicit\n"
                 u"' Private Sub Commented()\n"
                 u"Rem Private Sub AlsoCommented()\n"
                 u"  REM Dim x\n"
                 u"Rem see: Dim NotAVariable\n"
                 u"#If Win32 Then\n"
                 u"#End If\n"
                 u"Implements IThing\n"
                 u"DefInt A-Z\n"
                 u"Sub Main()\n"
                 u"Start:\n"
                 u"    Dim local As Long\n"
                 u"    Const kLocal = 1\n"
                 u"    Static count As Long\n"
                 u"    GoTo Start\n"
                 u"End Sub\n"
                 u"Attribute Main.VB_Description = \"Entry\"\n",
                 {"Sub Main 11-17"}},
        ScanCase{"ContinuedDeclarationsStartAtTheirFirstLine",
                 u"Private Function Join3(ByVal a As String, _\n"
                 u"                       ByVal b As String, _\n"
                 u"                       ByVal c As String) As String\n"
                 u"    Join3 = a & _\n"
                 u"        b & c\n"
                 u"End Function\n"
                 u"Dim x As Long, _\n"
                 u"    y As Long\n"
                 u"Private _\n"
                 u"  Sub Split()\n"
                 u"End Sub\n",
                 {"Function Join3 1-6", "Variable x 7", "Variable y 7", "Sub Split 9-11"}},
        ScanCase{"ContinuedCommentSwallowsTheNextLine",
                 u"' first part of a comment _\n"
                 u"Sub NotAMember()\n"
                 u"Sub Real()\n"
                 u"End Sub\n",
                 {"Sub Real 3-4"}},
        ScanCase{"UnderscoreInsideAStringDoesNotContinue",
                 u"Const kA = \"a _\n"
                 u"Const kB = 2\n",
                 {"Constant kA 1", "Constant kB 2"}},
        ScanCase{"StringsDoNotConfuseTheScan",
                 u"Sub Show()\n"
                 u"    MsgBox \"Sub Fake()\": x = 1\n"
                 u"    s = \"End Sub\"\n"
                 u"    t = \"it's ' not a comment\": End Sub\n"
                 u"Function After() ' End Function\n"
                 u"End Function\n",
                 {"Sub Show 1-4", "Function After 5-6"}},
        ScanCase{"EndSubInACommentDoesNotClose",
                 u"Sub A()\n"
                 u"    ' End Sub\n"
                 u"    Rem End Sub\n"
                 u"    Rem later: End Sub\n"
                 u"    x = 1 ' End Sub\n"
                 u"End Sub ' closes here\n"
                 u"Sub B(): End Sub\n"
                 u"Private Sub C(): x = 1: End Sub ' one line\n",
                 {"Sub A 1-6", "Sub B 7-7", "Sub C 8-8"}},
        ScanCase{"ClosingLineWithTabsAndOddSpacing",
                 u"Sub A()\n"
                 u"\tx = 1\n"
                 u"\tEnd Sub\n"
                 u"Sub B()\n"
                 u"  END   SUB\n"
                 u"Sub C()\n"
                 u"    End Subroutine\n"
                 u"End Sub\n"
                 u"Sub D()\n"
                 u"10  x = 1\n"
                 u"20  End Sub\n",
                 {"Sub A 1-3", "Sub B 4-5", "Sub C 6-8", "Sub D 9-11"}},
        ScanCase{"EventProcedureNamesStayApart",
                 u"Private Sub Text1_Change()\n"
                 u"End Sub\n"
                 u"Private Sub Text10_Change()\n"
                 u"End Sub\n"
                 u"Private Sub Text1_KeyPress(KeyAscii As Integer)\n"
                 u"End Sub\n",
                 {"Sub Text1_Change 1-2", "Sub Text10_Change 3-4", "Sub Text1_KeyPress 5-6"}},
        ScanCase{"OnlyTheMatchingEndCloses",
                 u"Function F()\n"
                 u"End Sub\n"
                 u"End Function\n",
                 {"Function F 1-3"}},
        ScanCase{"ModuleEndsInsideABody",
                 u"Dim a\n"
                 u"Sub Open()\n"
                 u"    x = 1\n",
                 {"Variable a 1", "Sub Open 2-?"}},
        ScanCase{"ProcedureWithoutEndBeforeTheNext",
                 u"Sub A()\n"
                 u"Sub B()\n"
                 u"End Sub\n",
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
    const vb::Text name = vb::FromUtf8("P" + std::to_string(i));
    lines.push_back(u"Private Sub " + name + u"(ByVal a As Long, _");
    lines.push_back(u"    ByVal b As String)");
    lines.push_back(u"    s = \"End Sub\": x = a ' End Sub");
    lines.push_back(u"    Dim local As Long");
    lines.push_back(u"End Sub");
  }
  lines.insert(lines.end(), {u"Dim a", u"Dim b", u"Dim c", u"Dim d"});
  ASSERT_EQ(lines.size(), 65534u);
  const MemberTable table(lines);
  ASSERT_EQ(table.All().size(), static_cast<std::size_t>(procedures + 4));
  const ScannedMember& last_sub = table.All()[procedures - 1];
  EXPECT_EQ(Describe(last_sub), "Sub P13105 65526-65530");
  EXPECT_EQ(Describe(table.All().back()), "Variable d 65534");
  EXPECT_EQ(table.Find(u"p6000")->line, 6000 * 5 + 1);
}

}  // namespace
}  // namespace workbench
