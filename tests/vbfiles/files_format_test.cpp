// The pieces of the file formats one by one: lines and their ends, value
// texts, property lines as the IDE writes them, the .frx layouts, the .vbp,
// and the failures a malformed form file gives.
#include <gtest/gtest.h>

#include "files_test_support.hpp"
#include "vb/failure.hpp"
#include "vbfiles/file_lines.hpp"
#include "vbfiles/frm_enum_names.hpp"
#include "vbfiles/frm_file.hpp"
#include "vbfiles/frm_value.hpp"
#include "vbfiles/frx_file.hpp"
#include "vbfiles/vbp_file.hpp"

namespace vbfiles {
namespace {

// --- lines ---

class SplitLinesTest
    : public ::testing::TestWithParam<std::pair<std::string, std::vector<SourceLine>>> {};

TEST_P(SplitLinesTest, KeepsEachLinesEnd) {
  EXPECT_EQ(SplitLines(GetParam().first), GetParam().second);
  EXPECT_EQ(JoinLines(GetParam().second), GetParam().first);
}

using Lines = std::vector<SourceLine>;
INSTANTIATE_TEST_SUITE_P(
    Ends, SplitLinesTest,
    ::testing::Values(std::pair("", Lines{}), std::pair("\r\n", Lines{{u"", "\r\n"}}),
                      std::pair("a\r\nb", Lines{{u"a", "\r\n"}, {u"b", ""}}),
                      std::pair("a\nb\n", Lines{{u"a", "\n"}, {u"b", "\n"}}),
                      std::pair("a\rb", Lines{{u"a", "\r"}, {u"b", ""}}),
                      std::pair("a\r\r\n\n", Lines{{u"a", "\r"}, {u"", "\r\n"}, {u"", "\n"}}),
                      std::pair("\x80\x81\xe9", Lines{{u"\u20ac\u0081\u00e9", ""}})));

TEST(CommonLineEnd, MostLinesDecideAndCrLfWinsTies) {
  EXPECT_EQ(CommonLineEnd(SplitLines("a\nb\nc\r\n")), "\n");
  EXPECT_EQ(CommonLineEnd(SplitLines("a\nb\r\n")), "\r\n");
  EXPECT_EQ(CommonLineEnd(SplitLines("no end")), "\r\n");
}

// --- values ---

// "quoted Check1", "frx $Form1.frx@0", "bare -1 'True": the form, then what
// it holds.
std::string Describe(const FrmValue& v) {
  const std::string held =
      v.form == FrmValue::Form::Frx
          ? "frx " + std::string(v.frx.is_string ? "$" : "") + vb::ToUtf8(v.frx.file) + "@" +
                std::to_string(v.frx.offset)
          : (v.form == FrmValue::Form::Quoted ? "quoted " : "bare ") + vb::ToUtf8(v.text);
  return v.comment.empty() ? held : held + " '" + vb::ToUtf8(v.comment);
}

class ParseValueTest : public ::testing::TestWithParam<std::pair<std::u16string, std::string>> {};

TEST_P(ParseValueTest, ReadsTheForm) {
  EXPECT_EQ(Describe(ParseFrmValue(GetParam().first)), GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(
    Values, ParseValueTest,
    ::testing::Values(std::pair(u"\"Check1\"", "quoted Check1"),
                      std::pair(u"\"Say \"\"hi\"\"\"", "quoted Say \"hi\""),
                      std::pair(u"\"it's 'quoted'\"", "quoted it's 'quoted'"),
                      std::pair(u"\"no end", "quoted no end"),
                      std::pair(u"$\"Form1.frx\":0000", "frx $Form1.frx@0"),
                      std::pair(u"\"Form1.frx\":10A4", "frx Form1.frx@4260" /* 0x10A4 */),
                      std::pair(u"-1  'True", "bare -1 'True"),
                      std::pair(u"3  'Windows Default", "bare 3 'Windows Default"),
                      std::pair(u"&H8000000F&", "bare &H8000000F&"), std::pair(u"^O", "bare ^O"),
                      std::pair(u"   8.25   ", "bare 8.25")));

struct LineCase {
  int depth;
  std::u16string name;
  vb::Value value;
  std::u16string enum_name;
  std::u16string line;
};

class FormatLineTest : public ::testing::TestWithParam<LineCase> {};

TEST_P(FormatLineTest, WritesAsTheIde) {
  const auto& c = GetParam();
  EXPECT_EQ(FormatPropertyLine(c.depth, c.name, FormatFrmValue(c.value, c.enum_name)), c.line);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, FormatLineTest,
    ::testing::Values(
        LineCase{1, u"Caption", u"Form1", u"", u"   Caption         =   \"Form1\""},
        LineCase{2, u"Caption", u"A \"B\"", u"", u"      Caption         =   \"A \"\"B\"\"\""},
        LineCase{2, u"Enabled", vb::Boolean::False, u"", u"      Enabled         =   0   'False"},
        LineCase{3, u"Value", vb::Boolean::True, u"", u"         Value           =   -1  'True"},
        LineCase{1, u"StartUpPosition", vb::Integer{3}, u"Windows Default",
                 u"   StartUpPosition =   3  'Windows Default"},
        LineCase{2, u"CausesValidation", vb::Boolean::False, u"",
                 u"      CausesValidation=   0   'False"},
        LineCase{2, u"Width", vb::Long{-1215}, u"", u"      Width           =   -1215"}));

TEST(EnumValueName, ClassRowsWinAndOtherLibrariesGetNone) {
  EXPECT_EQ(EnumValueName(u"VB.Form", u"BorderStyle", 3), u"Fixed Dialog");
  EXPECT_EQ(EnumValueName(u"VB.Label", u"BorderStyle", 1), u"Fixed Single");
  EXPECT_EQ(EnumValueName(u"VB.Form", u"BorderStyle", 9), u"");
  EXPECT_EQ(EnumValueName(u"MSComctlLib.ListView", u"Appearance", 1), u"");
}

// --- the .frx ---

std::string Le(std::uint32_t value, int bytes) {
  std::string out;
  for (int i = 0; i < bytes; ++i) out.push_back(static_cast<char>((value >> (8 * i)) & 0xFF));
  return out;
}

TEST(FrxFile, ReadsEachLayoutAtItsOffset) {
  const std::string bytes = "pad" + Le(3, 4) + "a\x80z" +              // string at 3
                            Le(2, 1) + "hi" +                          // short string at 10
                            Le(2, 2) + Le(1, 2) + "x" + Le(0, 2) +     // list at 13
                            Le(2, 2) + Le(7, 4) + Le(0xFFFFFFFF, 4) +  // item data at 20
                            Le(2, 4) + "BM";                           // blob at 30
  const FrxFile frx(bytes);
  EXPECT_EQ(frx.ReadString(3), u"a\u20acz");
  EXPECT_EQ(frx.ReadShortString(10), u"hi");
  EXPECT_EQ(frx.ReadList(13), (std::vector<vb::Text>{u"x", u""}));
  EXPECT_EQ(frx.ReadItemData(20), (std::vector<vb::Long>{7, -1}));
  EXPECT_EQ(frx.ReadBlob(30), "BM");
}

TEST(FrxFile, CountsPastTheEndReadAsNothing) {
  const FrxFile frx(Le(100, 4) + "short" + Le(5, 2));
  EXPECT_EQ(frx.ReadString(0), std::nullopt);
  EXPECT_EQ(frx.ReadBlob(0), std::nullopt);
  EXPECT_EQ(frx.ReadList(9), std::nullopt);
  EXPECT_EQ(frx.ReadItemData(9), std::nullopt);
  EXPECT_EQ(frx.ReadShortString(1000), std::nullopt);
  EXPECT_EQ(FrxFile().ReadString(0), std::nullopt);
}

// --- the .vbp ---

TEST(VbpFile, ReadsMembersAndSettings) {
  const auto vbp = VbpFile::Parse(testing::ReadBytes(testing::SampleDir() / "Sample.vbp"), u"x");
  EXPECT_EQ(vbp.ProjectName(), u"Sample");
  EXPECT_EQ(vbp.Get(u"startup"), u"\"frmMain\"");
  // Keys of a tool's section are not the project's.
  EXPECT_EQ(vbp.Get(u"AutoRefresh"), std::nullopt);
  std::vector<std::u16string> members;
  for (const auto& m : vbp.Members()) members.push_back(m.key + u" " + m.name + u" " + m.path);
  EXPECT_EQ(members,
            (std::vector<std::u16string>{u"Form  frmMain.frm", u"Module modUtil modUtil.bas"}));
  EXPECT_EQ(MemberPathToGeneric(u"..\\lib\\x.bas"), "../lib/x.bas");
}

TEST(VbpFile, SetAndAddChangeOnlyTheirLines) {
  auto vbp = VbpFile::Parse("Type=Exe\nForm=a.frm\nName=\"P\"\n\n[Tool]\nKey=1\n", u"x");
  vbp.Set(u"Name", u"\"P\"");
  EXPECT_EQ(vbp.Write(), "Type=Exe\nForm=a.frm\nName=\"P\"\n\n[Tool]\nKey=1\n");
  vbp.Set(u"Name", u"\"Q\"");
  vbp.Add(u"Form", u"b.frm");
  vbp.Add(u"Startup", u"\"a\"");
  EXPECT_EQ(vbp.Write(),
            "Type=Exe\nForm=a.frm\nForm=b.frm\nName=\"Q\"\nStartup=\"a\"\n\n[Tool]\nKey=1\n");
}

TEST(VbpFile, LineWithoutKeyIsNamed) {
  EXPECT_EQ(testing::FailureText([] { VbpFile::Parse("Type=Exe\r\njunk\r\n", u"P.vbp"); }),
            "321: P.vbp line 2: expected Key=Value");
}

// --- form documents ---

struct MalformedCase {
  std::string bytes;
  const char* description;
};

void PrintTo(const MalformedCase& c, std::ostream* os) { *os << c.description; }

class MalformedForm : public ::testing::TestWithParam<MalformedCase> {};

TEST_P(MalformedForm, FailsNamingFileAndLine) {
  EXPECT_EQ(testing::FailureText([] { FrmDocument::Parse(GetParam().bytes, u"bad.frm"); }),
            std::string("321: bad.frm") + GetParam().description);
}

std::string DeepNesting() {
  std::string text;
  for (int i = 0; i < 150; ++i) text += "Begin VB.Frame F" + std::to_string(i) + "\r\n";
  return text;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, MalformedForm,
    ::testing::Values(
        MalformedCase{"", ": no form block (Begin ... End) in the file"},
        MalformedCase{"VERSION 5.00\r\nBegin VB.Form F \r\n   Caption = \"x\"\r\n",
                      " line 2: Begin without End"},
        MalformedCase{
            "Begin VB.Form F\r\n   Begin VB.Label L\r\n   End\r\n   Begin VB.Label M\r\nEnd\r\n",
            " line 1: Begin without End"},
        MalformedCase{"VERSION 5.00\r\nEnd\r\n", " line 2: End without Begin"},
        MalformedCase{"VERSION 5.00\r\nCaption = \"x\"\r\nBegin VB.Form F\r\nEnd\r\n",
                      " line 2: property line outside a Begin block"},
        MalformedCase{"hello\r\nBegin VB.Form F\r\nEnd\r\n",
                      " line 1: unexpected line before the form's Begin block"},
        MalformedCase{"Begin VB.Form F\r\n   what is this\r\nEnd\r\n",
                      " line 2: expected a property line (Name = value), Begin or End"},
        MalformedCase{"Begin VB.Form F\r\n   = 3\r\nEnd\r\n",
                      " line 2: property line without a name"},
        MalformedCase{"Begin VB.Form\r\nEnd\r\n", " line 1: Begin needs a class and a name"},
        MalformedCase{"Begin VB.Form F\n BeginProperty Font\n Name = \"x\"\nEnd\n",
                      " line 4: End where EndProperty was expected"},
        MalformedCase{"Begin VB.Form F\n BeginProperty Font\n",
                      " line 2: BeginProperty without EndProperty"},
        MalformedCase{"Begin VB.Form F\n EndProperty\nEnd\n",
                      " line 2: EndProperty without BeginProperty"},
        MalformedCase{"BeginProperty Font\nEndProperty\n",
                      " line 1: BeginProperty outside a Begin block"},
        MalformedCase{"Begin VB.Form F\n BeginProperty Font\n Begin VB.Label L\n",
                      " line 3: Begin inside a BeginProperty group"},
        MalformedCase{DeepNesting(), " line 101: blocks nested too deeply"}));

TEST(FrmDocument, EveryByteSurvivesARoundTrip) {
  std::string caption, code;
  for (int b = 0x20; b <= 0xFF; ++b) {
    if (b != '"') caption.push_back(static_cast<char>(b));
    code.push_back(static_cast<char>(b));
  }
  const std::string bytes = "Begin VB.Form F \r\n   Caption         =   \"" + caption +
                            "\"\r\nEnd\r\nAttribute VB_Name = \"F\"\r\n' " + code + "\r\n";
  const auto document = FrmDocument::Parse(bytes, u"x");
  EXPECT_EQ(document.Write(), bytes);
  EXPECT_EQ(ParseFrmValue(*document.Form().PropertyValue(u"caption")).text,
            vb::FromCp1252(caption));
  EXPECT_EQ(vb::ToCp1252(document.CodeLines().at(0)), "' " + code);
}

TEST(FrmDocument, ReadsTheParts) {
  const auto document = FrmDocument::Parse(
      testing::ReadBytes(testing::FixturesDir() / "control_array.frm"), u"control_array.frm");
  EXPECT_EQ(document.Header().size(), 1U);
  EXPECT_EQ(document.Form().type, u"VB.Form");
  EXPECT_EQ(document.Form().name, u"frmArray");
  EXPECT_EQ(document.Attribute(u"VB_Name"), u"frmArray");
  EXPECT_EQ(document.Attribute(u"VB_PredeclaredId"), u"True");
  EXPECT_EQ(document.CodeLines().front(), u"Option Explicit");
  auto form = document.Form();
  ASSERT_NE(form.FindObject(u"txtField", 0), nullptr);
  EXPECT_EQ(form.FindObject(u"TXTFIELD", 0)->line_number, 21U);
  EXPECT_EQ(form.FindObject(u"txtField", 1)->PropertyValue(u"Text"), u"\"second\"");
  EXPECT_EQ(form.FindObject(u"txtField"), nullptr);  // every one is in the array
}

TEST(FrmDocument, NodeEditsKeepWhatDidNotChange) {
  auto document = FrmDocument::Parse(
      "Begin VB.Form F \r\n   Caption         =   \"F\"\r\n   Begin VB.Label L \r\n"
      "      Caption         =   \"L\"\r\n      BeginProperty Font \r\n      EndProperty\r\n"
      "   End\r\nEnd\r\n",
      u"x");
  FrmNode* label = document.Form().FindObject(u"L");
  ASSERT_NE(label, nullptr);
  label->SetProperty(u"Caption", u"\"L\"");  // unchanged
  label->SetProperty(u"Height", u"255");     // new: after the last property
  label->SetProperty(u"Width", u"975");
  EXPECT_TRUE(label->RemoveProperty(u"width"));
  EXPECT_FALSE(label->RemoveProperty(u"Width"));
  document.Form().SetProperty(u"caption", u"\"G\"");  // changed: written anew
  document.SetAttribute(u"VB_Name", u"\"F\"");
  EXPECT_EQ(document.Write(),
            "Begin VB.Form F \r\n   Caption         =   \"G\"\r\n   Begin VB.Label L \r\n"
            "      Caption         =   \"L\"\r\n      Height          =   255\r\n"
            "      BeginProperty Font \r\n      EndProperty\r\n   End\r\nEnd\r\n"
            "Attribute VB_Name = \"F\"\r\n");
}

}  // namespace
}  // namespace vbfiles
