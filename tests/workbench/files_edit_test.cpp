// Edits made through the model reach the files as exactly the lines the IDE
// would write, and nothing else changes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "vbfiles/files_test_support.hpp"
#include "workbench/model_test_support.hpp"
#include "workbench/project_loader.hpp"
#include "workbench/project_saver.hpp"

namespace workbench {
namespace {

using ::testing::HasSubstr;
using vbfiles::testing::Edited;
using vbfiles::testing::FixturesDir;
using vbfiles::testing::ReadBytes;
using vbfiles::testing::SampleDir;
using vbfiles::testing::TempDir;
using vbfiles::testing::WriteOneFormProject;
namespace fs = std::filesystem;

std::shared_ptr<Control> ControlOn(const Project& project, vb::TextView form, vb::TextView name,
                                   std::optional<vb::Integer> index = std::nullopt) {
  auto found = project.FindForm(form)->FindControl(name, index);
  EXPECT_NE(found, nullptr) << vb::ToUtf8(name);
  return found;
}

// A value typed into the property sheet; the sample's form unless named.
void Sheet(Project& project, vb::TextView control, vb::TextView property, const vb::Text& text,
           vb::TextView form = u"frmMain") {
  auto component = project.FindForm(form);
  component->SetPropertyFromSheet(*component->FindControl(control), property, text);
}

// The text without the control block that opens with `begin` (a whole
// "Begin" line without its line end) and ends at the "End" indented as it is.
std::string WithoutBlock(std::string text, const std::string& begin) {
  const auto at = text.find(begin + "\r\n");
  EXPECT_NE(at, std::string::npos) << begin;
  if (at == std::string::npos) return text;
  const std::string end = "\r\n" + begin.substr(0, begin.find('B')) + "End\r\n";
  text.erase(at, text.find(end, at) + end.size() - at);
  return text;
}

const std::string kAppend = "";     // as `from`: `to` is added at the end
const std::string kBlock = "\x01";  // as `to`: the block `from` opens goes

// One edit of a project (the sample's frmMain.frm, else the fixtures), the
// file it changes, and the changes that turn that file as read into the file
// expected.
struct FileEdit {
  const char* name;
  std::function<void(Project&)> edit;
  std::vector<std::pair<std::string, std::string>> changes;
  std::string file = "frmMain.frm";
};

// The edit that types `text` into the sheet.
std::function<void(Project&)> Typed(vb::Text control, vb::Text property, vb::Text text,
                                    vb::Text form = u"frmMain") {
  return [=](Project& p) { Sheet(p, control, property, text, form); };
}

void PrintTo(const FileEdit& c, std::ostream* os) { *os << c.name; }

class FileEdits : public ::testing::TestWithParam<FileEdit> {};

TEST_P(FileEdits, ChangeExactlyTheExpectedLines) {
  const FileEdit& c = GetParam();
  const bool sample = c.file == "frmMain.frm";
  const fs::path dir = sample ? SampleDir() : FixturesDir();
  auto project = OpenProject(dir / (sample ? "Sample.vbp" : "Fixtures.vbp"));
  c.edit(*project);
  std::string expected = ReadBytes(dir / c.file);
  for (const auto& [from, to] : c.changes) {
    expected = from == kAppend ? expected + to
               : to == kBlock  ? WithoutBlock(expected, from)
                               : Edited(expected, from, to);
  }
  for (const auto& [file, bytes] : ProjectFileBytes(*project)) {
    EXPECT_EQ(bytes, file == c.file ? expected : ReadBytes(dir / file)) << file;
  }
}

const std::string kCommand2Block =
    "   Begin VB.CommandButton Command2 \r\n"
    "      Caption         =   \"Command2\"\r\n"
    "      Height          =   495\r\n"
    "      Left            =   120\r\n"
    "      TabIndex        =   6\r\n"
    "      Top             =   480\r\n"  // the first free row: Label1 stands at 120
    "      Width           =   1215\r\n"
    "   End\r\n";

INSTANTIATE_TEST_SUITE_P(
    Sample, FileEdits,
    ::testing::Values(
        FileEdit{"ChangedTextReplacesItsLine",
                 Typed(u"Check1", u"Caption", u"Keep \"it\""),
                 {{"\"Remember the name\"", "\"Keep \"\"it\"\"\""}}},
        FileEdit{"NewBooleanGoesInAlphabeticalPlace",
                 Typed(u"Text1", u"Enabled", u"False"),
                 {{"Text1 \r\n      Height",
                   "Text1 \r\n      Enabled         =   0   'False\r\n      Height"}}},
        FileEdit{"ValueBackToDefaultLosesItsLine",
                 Typed(u"Command1", u"Enabled", u"True"),
                 {{"      Enabled         =   0   'False\r\n", ""}}},
        FileEdit{"EnumerationGetsItsName",
                 Typed(u"Label1", u"Alignment", u"2"),
                 {{"Label1 \r\n      Caption",
                   "Label1 \r\n      Alignment       =   2  'Center\r\n      Caption"}}},
        FileEdit{"CheckBoxValueGetsItsName",
                 Typed(u"Check1", u"Value", u"1"),
                 {{"      Top             =   1080\r\n",
                   "      Top             =   1080\r\n      Value           =   1  'Checked\r\n"}}},
        FileEdit{"DeletedContainerTakesItsControls",
                 [](Project& p) { p.Forms().front()->DeleteControl(u"Frame1"); },
                 {{"   Begin VB.Frame Frame1 ", kBlock}}},
        FileEdit{"RenamedControlGetsANewBeginLine",
                 [](Project& p) { p.Forms().front()->RenameControl(u"Text1", u"txtName"); },
                 {{"   Begin VB.TextBox Text1 \r\n", "   Begin VB.TextBox txtName \r\n"}}},
        FileEdit{
            "NewControlGoesLastInItsContainer",
            [](Project& p) { p.Forms().front()->AddControl(u"CommandButton"); },
            {{"   End\r\nEnd\r\nAttribute", "   End\r\n" + kCommand2Block + "End\r\nAttribute"}}},
        FileEdit{"ChangedFontGetsAFullBlock",
                 [](Project& p) {
                   ControlOn(p, u"frmMain", u"Label1")
                       ->WriteFont(ide::FontDispId::Bold, vb::Value(vb::Boolean::True));
                 },
                 {{"      Caption         =   \"&Name:\"\r\n",
                   "      Caption         =   \"&Name:\"\r\n"
                   "      BeginProperty Font \r\n"
                   "         Name            =   \"MS Sans Serif\"\r\n"
                   "         Size            =   8.25\r\n"
                   "         Charset         =   0\r\n"
                   "         Weight          =   700\r\n"
                   "         Underline       =   0   'False\r\n"
                   "         Italic          =   0   'False\r\n"
                   "         Strikethrough   =   0   'False\r\n"
                   "      EndProperty\r\n"}}},
        FileEdit{
            "AddedCodeUsesTheFileLineEnds",
            [](Project& p) {
              p.Forms().front()->Module()->AddFromString(
                  u"\r\nPrivate Sub Form_Load()\r\n    Text1.Text = \"\"\r\nEnd Sub");
            },
            {{kAppend, "\r\nPrivate Sub Form_Load()\r\n    Text1.Text = \"\"\r\nEnd Sub\r\n"}}},
        FileEdit{"DeletedCodeLinesAreGone",
                 [](Project& p) { p.Forms().front()->Module()->DeleteLines(1, 2); },
                 {{"Attribute VB_Exposed = False\r\nOption Explicit\r\n\r\n",
                   "Attribute VB_Exposed = False\r\n"}}}));

// Edits of the other fixtures, each about one way a file can be.
INSTANTIATE_TEST_SUITE_P(
    Fixtures, FileEdits,
    ::testing::Values(
        FileEdit{"LfOnlyFileGetsLfLines",
                 [](Project& p) {
                   Sheet(p, u"cmdGo", u"Caption", u"Run", u"frmUnix");
                   p.FindForm(u"frmUnix")->Module()->AddFromString(u"' more");
                 },
                 {{"\"Go\"", "\"Run\""}, {kAppend, "' more\n"}},
                 "lf_only.frm"},
        FileEdit{"FileWithoutFinalLineEndStaysWithout",
                 [](Project& p) {
                   p.FindForm(u"frmOpenEnd")->Module()->AddFromString(u"' and now here");
                 },
                 {{kAppend, "\r\n' and now here"}},
                 "no_final_eol.frm"},
        FileEdit{"CodeAddedToAFormWithNoCodeFollowsTheAttributes",
                 [](Project& p) {
                   p.FindForm(u"frmEmpty")->Module()->AddFromString(u"Option Explicit");
                 },
                 {{kAppend, "Option Explicit\r\n"}},
                 "no_code.frm"},
        // A new line takes the end most lines have; the lines around keep theirs.
        FileEdit{"MixedLineEndsKeepEachLinesOwnEnd",
                 [](Project& p) {
                   Sheet(p, u"txtOne", u"TabIndex", u"1", u"frmMixed");
                   Sheet(p, u"txtOne", u"Text", u"uno", u"frmMixed");
                   p.FindForm(u"frmMixed")->Module()->AddFromString(u"' added");
                   p.FindForm(u"frmMixed")->Module()->DeleteLines(2, 1);
                 },
                 {{"TabIndex        =   0\n", "TabIndex        =   1\n"},
                  {"\"one\"\r\n", "\"uno\"\r\n"},
                  {"Option Explicit\r\n\n", "Option Explicit\r\n"},
                  {kAppend, "' added\r\n"}},
                 "mixed_line_ends.frm"},
        FileEdit{"ArrayMemberDeletedByIndex",
                 [](Project& p) { p.FindForm(u"frmArray")->DeleteControl(u"optChoice", 2); },
                 {{"   Begin VB.OptionButton optChoice ", kBlock}},
                 "control_array.frm"},
        FileEdit{"RenameKeepsTheClassAsSpelt",
                 [](Project& p) { p.FindForm(u"frmNested")->RenameControl(u"optB", u"optBee"); },
                 {{"vb.optionbutton optB ", "vb.optionbutton optBee "}},
                 "nested_frames.frm"},
        FileEdit{"InnerContainerDeletedWithItsControlsOnly",
                 [](Project& p) { p.FindForm(u"frmNested")->DeleteControl(u"fraInner"); },
                 {{"         Begin VB.Frame fraInner ", kBlock}},
                 "nested_frames.frm"},
        FileEdit{"UnknownClassKeepsItsProperties",
                 Typed(u"dtpWhen", u"Left", u"240", u"frmPicker"),
                 {{"Left            =   120\r\n      TabIndex",
                   "Left            =   240\r\n      TabIndex"}},
                 "unknown_class.frm"},
        FileEdit{"OtherLibrariesGroupsAndFontsSurviveAnEdit",
                 Typed(u"lvwItems", u"Top", u"1440", u"frmFonts"),
                 {{"Top             =   1320", "Top             =   1440"}},
                 "font_blocks.frm"},
        FileEdit{"ChangedSideFileStringGoesInline",
                 Typed(u"txtNotes", u"Text", u"one line", u"frmFrx"),
                 {{"$\"frx_refs.frx\":0000", "\"one line\""}},
                 "frx_refs.frm"},
        FileEdit{"WindowsCodePageText",
                 Typed(u"lblPrice", u"Caption", u"\u00c4rger \u2013 5 \u20ac", u"frmAccents"),
                 {{"Preis: 10 \x80 \x84netto\x93", "\xc4rger \x96 5 \x80"}},
                 "cp1252.frm"}));

// --- Values as read into the model ------------------------------------------

struct ReadCase {
  const char16_t* form;
  const char16_t* control;
  const char16_t* property;
  vb::Value value;
};

class ReadValues : public ::testing::TestWithParam<ReadCase> {};

TEST_P(ReadValues, AreWhatTheFileSays) {
  const ReadCase& c = GetParam();
  const fs::path vbp =
      c.form == vb::Text(u"frmMain") ? SampleDir() / "Sample.vbp" : FixturesDir() / "Fixtures.vbp";
  EXPECT_EQ(ControlOn(*OpenProject(vbp), c.form, c.control)->Get(c.property), c.value);
}

INSTANTIATE_TEST_SUITE_P(
    Table, ReadValues,
    ::testing::Values(
        // The sample's Text1 has no Text line: its text is empty, not its name.
        ReadCase{u"frmMain", u"Text1", u"Text", vb::Value(u"")},
        ReadCase{u"frmMain", u"Label1", u"Caption", vb::Value(u"&Name:")},
        ReadCase{u"frmPicker", u"dtpWhen", u"CustomFormat", vb::Value(u"dd.MM.yyyy")},
        ReadCase{u"frmPicker", u"dtpWhen", u"Format", vb::Value(vb::Long{61669379})},
        ReadCase{u"frmFrx", u"txtNotes", u"Text", vb::Value(u"First line\r\nSecond line")},
        ReadCase{u"frmFrx", u"txtNotes", u"ToolTipText", vb::Value(u"Short")},
        ReadCase{u"frmAccents", u"lblPrice", u"Caption",
                 vb::Value(u"Preis: 10 \u20ac \u201enetto\u201c")},
        ReadCase{u"frmAccents", u"chkCafe", u"Caption", vb::Value(u"Caf\u00e9 \"sp\u00e9cial\"")}));

class FixtureEdits : public ::testing::Test {
 protected:
  std::shared_ptr<Project> project_ = OpenProject(FixturesDir() / "Fixtures.vbp");

  std::string Saved(const std::string& file) const { return ProjectFileBytes(*project_).at(file); }
  static std::string Original(const std::string& file) { return ReadBytes(FixturesDir() / file); }
};

TEST_F(FixtureEdits, FontReadIntoTheModel) {
  const Font* title = ControlOn(*project_, u"frmFonts", u"lblTitle")->GetFont();
  ASSERT_NE(title, nullptr);
  EXPECT_EQ(title->Name(), u"Tahoma");
  EXPECT_EQ(title->Size(), 12.0F);
  EXPECT_TRUE(title->Bold() && title->Underline() && !title->Italic());
  EXPECT_EQ(project_->FindForm(u"frmFonts")->FormFont().Size(), 9.75F);
}

TEST_F(FixtureEdits, StringWithLineBreaksIsAddedToTheSideFile) {
  auto notes = ControlOn(*project_, u"frmFrx", u"txtNotes");
  notes->Write(u"ToolTipText", vb::Value(u"a\r\nb"), WriteSource::AddIn);
  const std::string frx = Original("frx_refs.frx");
  EXPECT_EQ(Saved("frx_refs.frx"), frx + std::string("\x04\0\0\0a\r\nb", 8));
  EXPECT_EQ(Saved("frx_refs.frm"),
            Edited(Original("frx_refs.frm"), "\"frx_refs.frx\":004F", "$\"frx_refs.frx\":0055"));
  // The same text again is found, not added twice.
  ControlOn(*project_, u"frmFrx", u"lstColors")
      ->Write(u"ToolTipText", vb::Value(u"a\r\nb"), WriteSource::AddIn);
  EXPECT_EQ(Saved("frx_refs.frx").size(), frx.size() + 8);
}

TEST_F(FixtureEdits, NewControlOfAnotherLibraryLoadsIt) {
  project_->FindForm(u"frmPicker")->AddControl(u"RichTextBox");
  const std::string frm = Saved("unknown_class.frm");
  EXPECT_THAT(
      frm,
      HasSubstr("Object = \"{86CF1D34-0C5F-11D2-A9FC-0000F8754DA1}#2.0#0\"; \"MSCOMCT2.OCX\"\r\n"
                "Object = \"{3B7C8863-D78F-101B-B9B5-04021C009402}#1.2#0\"; \"RICHTX32.OCX\"\r\n"
                "Begin VB.Form frmPicker \r\n"));
  EXPECT_THAT(frm, HasSubstr("   Begin RichTextLib.RichTextBox RichTextBox1 \r\n"));
  EXPECT_THAT(Saved("Fixtures.vbp"),
              HasSubstr("Object={3B7C8863-D78F-101B-B9B5-04021C009402}#1.2#0; "
                        "RICHTX32.OCX\r\nForm=nested_frames.frm"));
}

TEST_F(FixtureEdits, NewFormGetsAFileAndAProjectLine) {
  project_->AddForm(u"frmNew")->AddControl(u"Label");
  const auto files = ProjectFileBytes(*project_);
  EXPECT_THAT(files.at("Fixtures.vbp"), HasSubstr("Form=unknown_class.frm\r\nForm=frmNew.frm\r\n"));
  const std::string frm = files.at("frmNew.frm");
  EXPECT_EQ(frm.rfind("VERSION 5.00\r\nBegin VB.Form frmNew \r\n", 0), 0U);
  EXPECT_THAT(frm,
              HasSubstr("   Begin VB.Label Label1 \r\n      Caption         =   \"Label1\"\r\n"));
  EXPECT_THAT(frm, HasSubstr("End\r\nAttribute VB_Name = \"frmNew\"\r\n"));
  // What is written reads back as the same form.
  TempDir temp;
  SaveProject(*project_, temp.Path() / "Fixtures.vbp");
  auto reopened = OpenProject(temp.Path() / "Fixtures.vbp");
  EXPECT_NE(ControlOn(*reopened, u"frmNew", u"Label1"), nullptr);
  EXPECT_EQ(ProjectFileBytes(*reopened), files);
}

TEST(SaveProject, ReplacesOnlyWhatChangedAndLeavesNoTemporaryFile) {
  TempDir temp;
  fs::copy(SampleDir(), temp.Path());
  auto project = OpenProject(temp.Path() / "Sample.vbp");
  const auto module_time = fs::last_write_time(temp.Path() / "modUtil.bas");
  Sheet(*project, u"Label1", u"Caption", u"Your name:");
  SaveProject(*project);
  EXPECT_THAT(ReadBytes(temp.Path() / "frmMain.frm"), HasSubstr("\"Your name:\""));
  EXPECT_EQ(fs::last_write_time(temp.Path() / "modUtil.bas"), module_time);
  const auto entries = fs::directory_iterator(temp.Path());
  // The three files and the backup of the one replaced.
  EXPECT_EQ(std::distance(fs::begin(entries), fs::end(entries)), 4);
  EXPECT_EQ(ReadBytes(temp.Path() / "Sample.vbp.bak/1/frmMain.frm"),
            ReadBytes(SampleDir() / "frmMain.frm"));
}

TEST(SaveProject, RepeatedPropertyLineStaysUntilWritten) {
  TempDir temp;
  const std::string form =
      "VERSION 5.00\r\nBegin VB.Form F \r\n   Begin VB.Label L \r\n"
      "      Caption         =   \"one\"\r\n      Caption         =   \"two\"\r\n"
      "   End\r\nEnd\r\nAttribute VB_Name = \"F\"\r\n";
  auto project = OpenProject(WriteOneFormProject(temp.Path(), form));
  EXPECT_EQ(ProjectFileBytes(*project).at("F.frm"), form);
  Sheet(*project, u"L", u"Caption", u"three", u"F");
  EXPECT_EQ(ProjectFileBytes(*project).at("F.frm"),
            Edited(form, "\"one\"\r\n      Caption         =   \"two\"", "\"three\""));
}

TEST(OpenProject, FindsMembersWhoseNameDiffersInCase) {
  TempDir temp;
  fs::copy(SampleDir(), temp.Path());
  fs::rename(temp.Path() / "frmMain.frm", temp.Path() / "FRMMAIN.FRM");
  auto project = OpenProject(temp.Path() / "Sample.vbp");
  EXPECT_NE(project->FindForm(u"frmMain"), nullptr);
  EXPECT_EQ(ProjectFileBytes(*project).count("FRMMAIN.FRM"), 1U);
}

TEST(OpenProject, MissingMemberNamesTheFile) {
  TempDir temp;
  vbfiles::testing::WriteBytes(temp.Path() / "P.vbp", "Type=Exe\r\nForm=Gone.frm\r\n");
  const auto open = [&] { OpenProject(temp.Path() / "P.vbp"); };
  EXPECT_THAT(vbfiles::testing::FailureText(open), ::testing::MatchesRegex("53: .*Gone.frm.*"));
}

// The VB_Name line stays exactly as read, whatever its spelling, until the
// form is renamed; the lines after a control's block stay after it.
struct NameLineCase {
  const char* name;
  std::string attribute;  // the VB_Name line, or none
};

class VbNameLine : public ::testing::TestWithParam<NameLineCase> {};

TEST_P(VbNameLine, StaysAsReadUntilTheFormIsRenamed) {
  TempDir temp;
  const std::string form =
      "VERSION 5.00\r\nBegin VB.Form Form3 \r\n   Begin VB.Label L \r\n   End\r\n"
      "   Caption = \"after the block\"\r\nEnd\r\n" +
      GetParam().attribute + "Attribute VB_Exposed = False\r\n";
  auto project = OpenProject(WriteOneFormProject(temp.Path(), form));
  EXPECT_EQ(ProjectFileBytes(*project).at("F.frm"), form);
  project->FindForm(u"Form3")->SetFormName(u"Form4");
  const auto renamed = ProjectFileBytes(*project).at("F.frm");
  EXPECT_THAT(renamed, HasSubstr("Attribute VB_Name = \"Form4\"\r\n")) << renamed;
  EXPECT_THAT(renamed, ::testing::Not(HasSubstr("orm3\""))) << renamed;
}

INSTANTIATE_TEST_SUITE_P(
    Spellings, VbNameLine,
    ::testing::Values(NameLineCase{"OtherCase", "Attribute VB_Name = \"form3\"\r\n"},
                      NameLineCase{"Comment", "Attribute VB_Name = \"Form3\" ' main\r\n"},
                      NameLineCase{"Missing", ""}),
    [](const auto& param_info) { return std::string(param_info.param.name); });

TEST(OpenProject, Cp932NamesAndTextBothWays) {
  const auto vbp = FixturesDir() / "cp932" / "Japanese.vbp";
  auto project = OpenProject(vbp);
  auto form = project->FindForm(u"frmShow");
  ASSERT_NE(form, nullptr);
  EXPECT_EQ(form->FindControl(u"lblName")->Get(u"Caption").AsText(), u"\u30bd\\\u8868");
  form->SetPropertyFromSheet(*form->FindControl(u"lblName"), u"Caption", u"\u65b0\u8868");
  EXPECT_EQ(ProjectFileBytes(*project).at("\u8868\u793a.frm"),
            Edited(ReadBytes(vbp.parent_path() / "\u8868\u793a.frm"), "\"\x83\x5c\\\x95\x5c\"",
                   "\"\x90\x56\x95\x5c\""));
}

TEST(OpenProject, BadSideFileReferenceNamesFormPropertyAndOffset) {
  TempDir temp;
  vbfiles::testing::WriteBytes(temp.Path() / "F.frx", std::string("\x02\0\0\0ab", 6));
  const auto vbp = WriteOneFormProject(
      temp.Path(), "VERSION 5.00\r\nBegin VB.Form F \r\n   Caption = $\"F.frx\":0004\r\nEnd\r\n");
  EXPECT_EQ(vbfiles::testing::FailureText([&] { OpenProject(vbp); }),
            "321: F.frm line 3: Caption points at offset 0004 of F.frx, which ends before the "
            "text there (6 bytes)");
}

}  // namespace
}  // namespace workbench
