// Edits made through the model reach the files as exactly the lines the IDE
// would write, and nothing else changes.
#include <gtest/gtest.h>

#include <functional>

#include "vbfiles/files_test_support.hpp"
#include "workbench/project_loader.hpp"
#include "workbench/project_saver.hpp"

namespace workbench {
namespace {

using vbfiles::testing::Edited;
using vbfiles::testing::FixturesDir;
using vbfiles::testing::ReadBytes;
using vbfiles::testing::SampleDir;
using vbfiles::testing::TempDir;

std::shared_ptr<Control> ControlOn(const Project& project, vb::TextView form, vb::TextView name,
                                   std::optional<vb::Integer> index = std::nullopt) {
  auto found = project.FindForm(form)->FindControl(name, index);
  EXPECT_NE(found, nullptr) << vb::ToUtf8(name);
  return found;
}

void Sheet(Project& project, vb::TextView control, vb::TextView property, const vb::Text& text) {
  auto form = project.Forms().front();
  form->SetPropertyFromSheet(*form->FindControl(control), property, text);
}

// One edit of the sample's form and the replacements that turn the form file
// as read into the file expected after it.
struct SampleEdit {
  const char* name;
  std::function<void(Project&)> edit;
  std::vector<std::pair<std::string, std::string>> replacements;
};

void PrintTo(const SampleEdit& c, std::ostream* os) { *os << c.name; }

class SampleEdits : public ::testing::TestWithParam<SampleEdit> {};

TEST_P(SampleEdits, ChangeExactlyTheExpectedLines) {
  auto project = OpenProject(SampleDir() / "Sample.vbp");
  GetParam().edit(*project);
  const auto files = ProjectFileBytes(*project);

  std::string expected = ReadBytes(SampleDir() / "frmMain.frm");
  for (const auto& [from, to] : GetParam().replacements) expected = Edited(expected, from, to);
  EXPECT_EQ(files.at("frmMain.frm"), expected);
  // The other files are untouched by any of these edits.
  EXPECT_EQ(files.at("Sample.vbp"), ReadBytes(SampleDir() / "Sample.vbp"));
  EXPECT_EQ(files.at("modUtil.bas"), ReadBytes(SampleDir() / "modUtil.bas"));
}

const std::string kCommand2Block =
    "   Begin VB.CommandButton Command2 \r\n"
    "      Caption         =   \"Command2\"\r\n"
    "      Height          =   495\r\n"
    "      Left            =   120\r\n"
    "      TabIndex        =   6\r\n"
    "      Top             =   120\r\n"
    "      Width           =   1215\r\n"
    "   End\r\n";

INSTANTIATE_TEST_SUITE_P(
    Edits, SampleEdits,
    ::testing::Values(
        SampleEdit{"ChangedTextReplacesItsLine",
                   [](Project& p) { Sheet(p, u"Check1", u"Caption", u"Keep \"it\""); },
                   {{"\"Remember the name\"", "\"Keep \"\"it\"\"\""}}},
        SampleEdit{"NewBooleanGoesInAlphabeticalPlace",
                   [](Project& p) { Sheet(p, u"Text1", u"Enabled", u"False"); },
                   {{"Text1 \r\n      Height",
                     "Text1 \r\n      Enabled         =   0   'False\r\n      Height"}}},
        SampleEdit{"ValueBackToDefaultLosesItsLine",
                   [](Project& p) { Sheet(p, u"Command1", u"Enabled", u"True"); },
                   {{"      Enabled         =   0   'False\r\n", ""}}},
        SampleEdit{"EnumerationGetsItsName",
                   [](Project& p) { Sheet(p, u"Label1", u"Alignment", u"2"); },
                   {{"Label1 \r\n      Caption",
                     "Label1 \r\n      Alignment       =   2  'Center\r\n      Caption"}}},
        SampleEdit{
            "CheckBoxValueGetsItsName",
            [](Project& p) { Sheet(p, u"Check1", u"Value", u"1"); },
            {{"      Top             =   1080\r\n",
              "      Top             =   1080\r\n      Value           =   1  'Checked\r\n"}}},
        SampleEdit{"DeletedContainerTakesItsControls",
                   [](Project& p) { p.Forms().front()->DeleteControl(u"Frame1"); },
                   {{"   Begin VB.Frame Frame1 \r\n"
                     "      Caption         =   \"Greeting\"\r\n"
                     "      Height          =   1215\r\n"
                     "      Left            =   120\r\n"
                     "      TabIndex        =   4\r\n"
                     "      Top             =   1560\r\n"
                     "      Width           =   3615\r\n"
                     "      Begin VB.OptionButton Option1 \r\n"
                     "         Caption         =   \"Formal\"\r\n"
                     "         Height          =   255\r\n"
                     "         Left            =   240\r\n"
                     "         TabIndex        =   5\r\n"
                     "         Top             =   360\r\n"
                     "         Value           =   -1  'True\r\n"
                     "         Width           =   3135\r\n"
                     "      End\r\n"
                     "   End\r\n",
                     ""}}},
        SampleEdit{"RenamedControlGetsANewBeginLine",
                   [](Project& p) { p.Forms().front()->RenameControl(u"Text1", u"txtName"); },
                   {{"   Begin VB.TextBox Text1 \r\n", "   Begin VB.TextBox txtName \r\n"}}},
        SampleEdit{
            "NewControlGoesLastInItsContainer",
            [](Project& p) { p.Forms().front()->AddControl(u"CommandButton"); },
            {{"   End\r\nEnd\r\nAttribute", "   End\r\n" + kCommand2Block + "End\r\nAttribute"}}},
        SampleEdit{"ChangedFontGetsAFullBlock",
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
        SampleEdit{"AddedCodeUsesTheFileLineEnds",
                   [](Project& p) {
                     p.Forms().front()->Module()->AddFromString(
                         u"\r\nPrivate Sub Form_Load()\r\n    Text1.Text = \"\"\r\nEnd Sub");
                   },
                   {{"    End If\r\nEnd Function\r\n",
                     "    End If\r\nEnd Function\r\n\r\nPrivate Sub Form_Load()\r\n"
                     "    Text1.Text = \"\"\r\nEnd Sub\r\n"}}},
        SampleEdit{"DeletedCodeLinesAreGone",
                   [](Project& p) { p.Forms().front()->Module()->DeleteLines(1, 2); },
                   {{"Attribute VB_Exposed = False\r\nOption Explicit\r\n\r\n",
                     "Attribute VB_Exposed = False\r\n"}}}));

// --- edits of the other fixtures, each about one way a file can be ---

class FixtureEdits : public ::testing::Test {
 protected:
  std::shared_ptr<Project> project_ = OpenProject(FixturesDir() / "Fixtures.vbp");

  std::string Saved(const std::string& file) const { return ProjectFileBytes(*project_).at(file); }
  static std::string Original(const std::string& file) { return ReadBytes(FixturesDir() / file); }
};

TEST_F(FixtureEdits, LfOnlyFileGetsLfLines) {
  auto form = project_->FindForm(u"frmUnix");
  form->SetPropertyFromSheet(*form->FindControl(u"cmdGo"), u"Caption", u"Run");
  form->Module()->AddFromString(u"' more");
  std::string expected = Edited(Original("lf_only.frm"), "\"Go\"", "\"Run\"");
  expected += "' more\n";
  EXPECT_EQ(Saved("lf_only.frm"), expected);
}

TEST_F(FixtureEdits, FileWithoutFinalLineEndStaysWithout) {
  auto form = project_->FindForm(u"frmOpenEnd");
  form->Module()->AddFromString(u"' and now here");
  EXPECT_EQ(Saved("no_final_eol.frm"), Original("no_final_eol.frm") + "\r\n' and now here");
}

TEST_F(FixtureEdits, CodeAddedToAFormWithNoCodeFollowsTheAttributes) {
  auto form = project_->FindForm(u"frmEmpty");
  ASSERT_NE(form->Module(), nullptr);
  EXPECT_EQ(form->Module()->CountOfLines(), 0);
  form->Module()->AddFromString(u"Option Explicit");
  EXPECT_EQ(Saved("no_code.frm"), Original("no_code.frm") + "Option Explicit\r\n");
}

TEST_F(FixtureEdits, MixedLineEndsKeepEachLinesOwnEnd) {
  auto form = project_->FindForm(u"frmMixed");
  form->SetPropertyFromSheet(*form->FindControl(u"txtOne"), u"TabIndex", u"1");
  form->SetPropertyFromSheet(*form->FindControl(u"txtOne"), u"Text", u"uno");
  std::string expected = Original("mixed_line_ends.frm");
  expected = Edited(expected, "TabIndex        =   0\n", "TabIndex        =   1\n");
  expected = Edited(expected, "\"one\"\r\n", "\"uno\"\r\n");
  // A new line takes the end most lines have; the lines around keep theirs.
  form->Module()->AddFromString(u"' added");
  EXPECT_EQ(Saved("mixed_line_ends.frm"), expected + "' added\r\n");
  form->Module()->DeleteLines(2, 1);
  EXPECT_EQ(Saved("mixed_line_ends.frm"),
            Edited(expected, "Option Explicit\r\n\n", "Option Explicit\r\n") + "' added\r\n");
}

TEST_F(FixtureEdits, ArrayMemberDeletedByIndex) {
  project_->FindForm(u"frmArray")->DeleteControl(u"optChoice", 2);
  const std::string saved = Saved("control_array.frm");
  EXPECT_EQ(saved.find("\"Two\""), std::string::npos);
  EXPECT_NE(saved.find("\"One\""), std::string::npos);
  EXPECT_NE(ControlOn(*project_, u"frmArray", u"optChoice", 1), nullptr);
}

TEST_F(FixtureEdits, InnerContainerDeletedWithItsControlsOnly) {
  project_->FindForm(u"frmNested")->DeleteControl(u"fraInner");
  const std::string saved = Saved("nested_frames.frm");
  for (const char* gone : {"fraInner", "optA", "optB"}) {
    EXPECT_EQ(saved.find(gone), std::string::npos) << gone;
  }
  for (const char* kept : {"picHolder", "chkOuter", "mnuFileExit", "Shortcut        =   ^O"}) {
    EXPECT_NE(saved.find(kept), std::string::npos) << kept;
  }
}

TEST_F(FixtureEdits, UnknownClassKeepsItsProperties) {
  auto picker = ControlOn(*project_, u"frmPicker", u"dtpWhen");
  EXPECT_EQ(picker->FileClass(), u"MSComCtl2.DTPicker");
  EXPECT_EQ(picker->Get(u"CustomFormat"), vb::Value(u"dd.MM.yyyy"));
  EXPECT_EQ(picker->Get(u"Format"), vb::Value(vb::Long{61669379}));
  project_->FindForm(u"frmPicker")->SetPropertyFromSheet(*picker, u"Left", u"240");
  EXPECT_EQ(Saved("unknown_class.frm"),
            Edited(Original("unknown_class.frm"), "Left            =   120\r\n      TabIndex",
                   "Left            =   240\r\n      TabIndex"));
}

TEST_F(FixtureEdits, OtherLibrariesGroupsAndFontsSurviveAnEdit) {
  auto form = project_->FindForm(u"frmFonts");
  form->SetPropertyFromSheet(*form->FindControl(u"lvwItems"), u"Top", u"1440");
  EXPECT_EQ(
      Saved("font_blocks.frm"),
      Edited(Original("font_blocks.frm"), "Top             =   1320", "Top             =   1440"));
}

TEST_F(FixtureEdits, CaptionMissingFromTheFileIsEmpty) {
  // The sample's Text1 has no Text line: its text is empty, not its name.
  auto sample = OpenProject(SampleDir() / "Sample.vbp");
  EXPECT_EQ(ControlOn(*sample, u"frmMain", u"Text1")->Get(u"Text"), vb::Value(u""));
  EXPECT_EQ(ControlOn(*sample, u"frmMain", u"Label1")->Get(u"Caption"), vb::Value(u"&Name:"));
}

TEST_F(FixtureEdits, FontReadIntoTheModel) {
  const Font* title = ControlOn(*project_, u"frmFonts", u"lblTitle")->GetFont();
  ASSERT_NE(title, nullptr);
  EXPECT_EQ(title->Name(), u"Tahoma");
  EXPECT_EQ(title->Size(), 12.0F);
  EXPECT_TRUE(title->Bold());
  EXPECT_TRUE(title->Underline());
  EXPECT_FALSE(title->Italic());
  EXPECT_EQ(project_->FindForm(u"frmFonts")->FormFont().Size(), 9.75F);
}

TEST_F(FixtureEdits, StringsInTheSideFileShowTheirText) {
  EXPECT_EQ(ControlOn(*project_, u"frmFrx", u"txtNotes")->Get(u"Text"),
            vb::Value(u"First line\r\nSecond line"));
  EXPECT_EQ(ControlOn(*project_, u"frmFrx", u"txtNotes")->Get(u"ToolTipText"), vb::Value(u"Short"));
}

TEST_F(FixtureEdits, ChangedSideFileStringGoesInline) {
  auto form = project_->FindForm(u"frmFrx");
  form->SetPropertyFromSheet(*form->FindControl(u"txtNotes"), u"Text", u"one line");
  EXPECT_EQ(Saved("frx_refs.frm"),
            Edited(Original("frx_refs.frm"), "$\"frx_refs.frx\":0000", "\"one line\""));
  EXPECT_EQ(Saved("frx_refs.frx"), Original("frx_refs.frx"));
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

TEST_F(FixtureEdits, WindowsCodePageTextBothWays) {
  auto price = ControlOn(*project_, u"frmAccents", u"lblPrice");
  EXPECT_EQ(price->Get(u"Caption"), vb::Value(u"Preis: 10 \u20ac \u201enetto\u201c"));
  EXPECT_EQ(ControlOn(*project_, u"frmAccents", u"chkCafe")->Get(u"Caption"),
            vb::Value(u"Caf\u00e9 \"sp\u00e9cial\""));
  project_->FindForm(u"frmAccents")
      ->SetPropertyFromSheet(*price, u"Caption", u"\u00c4rger \u2013 5 \u20ac");
  EXPECT_EQ(Saved("cp1252.frm"),
            Edited(Original("cp1252.frm"), "Preis: 10 \x80 \x84netto\x93", "\xc4rger \x96 5 \x80"));
}

TEST_F(FixtureEdits, NewControlOfAnotherLibraryLoadsIt) {
  auto form = project_->FindForm(u"frmPicker");
  form->AddControl(u"RichTextBox");
  const std::string frm = Saved("unknown_class.frm");
  EXPECT_NE(
      frm.find("Object = \"{86CF1D34-0C5F-11D2-A9FC-0000F8754DA1}#2.0#0\"; \"MSCOMCT2.OCX\"\r\n"
               "Object = \"{3B7C8863-D78F-101B-B9B5-04021C009402}#1.2#0\"; \"RICHTX32.OCX\"\r\n"
               "Begin VB.Form frmPicker \r\n"),
      std::string::npos);
  EXPECT_NE(frm.find("   Begin RichTextLib.RichTextBox RichTextBox1 \r\n"), std::string::npos);
  EXPECT_NE(Saved("Fixtures.vbp")
                .find("Object={3B7C8863-D78F-101B-B9B5-04021C009402}#1.2#0; "
                      "RICHTX32.OCX\r\nForm=nested_frames.frm"),
            std::string::npos);
}

TEST_F(FixtureEdits, NewFormGetsAFileAndAProjectLine) {
  auto form = project_->AddForm(u"frmNew");
  form->AddControl(u"Label");
  const auto files = ProjectFileBytes(*project_);
  EXPECT_NE(files.at("Fixtures.vbp").find("Form=unknown_class.frm\r\nForm=frmNew.frm\r\n"),
            std::string::npos);
  const std::string frm = files.at("frmNew.frm");
  EXPECT_EQ(frm.rfind("VERSION 5.00\r\nBegin VB.Form frmNew \r\n", 0), 0U);
  EXPECT_NE(frm.find("   Begin VB.Label Label1 \r\n      Caption         =   \"Label1\"\r\n"),
            std::string::npos);
  EXPECT_NE(frm.find("End\r\nAttribute VB_Name = \"frmNew\"\r\n"), std::string::npos);
  // What is written reads back as the same form.
  TempDir temp;
  SaveProject(*project_, temp.Path() / "Fixtures.vbp");
  auto reopened = OpenProject(temp.Path() / "Fixtures.vbp");
  ASSERT_NE(reopened->FindForm(u"frmNew"), nullptr);
  EXPECT_NE(reopened->FindForm(u"frmNew")->FindControl(u"Label1"), nullptr);
  EXPECT_EQ(ProjectFileBytes(*reopened), files);
}

TEST(SaveProject, ReplacesOnlyWhatChanged) {
  TempDir temp;
  vbfiles::testing::CopyFolder(SampleDir(), temp.Path());
  const auto vbp = temp.Path() / "Sample.vbp";
  auto project = OpenProject(vbp);
  const auto module_time = std::filesystem::last_write_time(temp.Path() / "modUtil.bas");
  project->Forms().front()->SetPropertyFromSheet(*project->Forms().front()->FindControl(u"Label1"),
                                                 u"Caption", u"Your name:");
  SaveProject(*project);
  EXPECT_NE(ReadBytes(temp.Path() / "frmMain.frm").find("\"Your name:\""), std::string::npos);
  EXPECT_EQ(std::filesystem::last_write_time(temp.Path() / "modUtil.bas"), module_time);
  EXPECT_EQ(ReadBytes(temp.Path() / "modUtil.bas"), ReadBytes(SampleDir() / "modUtil.bas"));
  // No temporary file is left behind.
  std::size_t files = 0;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(temp.Path())) {
    ++files;
  }
  EXPECT_EQ(files, 3U);
}

TEST(SaveProject, RepeatedPropertyLineStaysUntilWritten) {
  TempDir temp;
  const std::string label =
      "   Begin VB.Label L \r\n"
      "      Caption         =   \"one\"\r\n"
      "      Caption         =   \"two\"\r\n"
      "   End\r\n";
  const std::string form =
      "VERSION 5.00\r\nBegin VB.Form F \r\n" + label + "End\r\nAttribute VB_Name = \"F\"\r\n";
  vbfiles::testing::WriteBytes(temp.Path() / "P.vbp", "Type=Exe\r\nForm=F.frm\r\n");
  vbfiles::testing::WriteBytes(temp.Path() / "F.frm", form);
  auto project = OpenProject(temp.Path() / "P.vbp");
  EXPECT_EQ(ProjectFileBytes(*project).at("F.frm"), form);
  auto f = project->FindForm(u"F");
  f->SetPropertyFromSheet(*f->FindControl(u"L"), u"Caption", u"three");
  EXPECT_EQ(ProjectFileBytes(*project).at("F.frm"),
            Edited(form, "\"one\"\r\n      Caption         =   \"two\"", "\"three\""));
}

TEST(OpenProject, FindsMembersWhoseNameDiffersInCase) {
  TempDir temp;
  vbfiles::testing::CopyFolder(SampleDir(), temp.Path());
  std::filesystem::rename(temp.Path() / "frmMain.frm", temp.Path() / "FRMMAIN.FRM");
  auto project = OpenProject(temp.Path() / "Sample.vbp");
  EXPECT_NE(project->FindForm(u"frmMain"), nullptr);
  EXPECT_EQ(ProjectFileBytes(*project).count("FRMMAIN.FRM"), 1U);
}

TEST(OpenProject, MissingMemberNamesTheFile) {
  TempDir temp;
  vbfiles::testing::WriteBytes(temp.Path() / "P.vbp", "Type=Exe\r\nForm=Gone.frm\r\n");
  try {
    OpenProject(temp.Path() / "P.vbp");
    FAIL() << "opened a project with a missing form";
  } catch (const vb::Failure& failure) {
    EXPECT_EQ(failure.Number(), vb::kFileNotFound);
    EXPECT_NE(failure.Description().find(u"Gone.frm"), vb::Text::npos);
  }
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
  vbfiles::testing::WriteBytes(temp.Path() / "P.vbp", "Type=Exe\r\nForm=F.frm\r\n");
  vbfiles::testing::WriteBytes(temp.Path() / "F.frm", form);
  auto project = OpenProject(temp.Path() / "P.vbp");
  EXPECT_EQ(ProjectFileBytes(*project).at("F.frm"), form);
  project->FindForm(u"Form3")->SetFormName(u"Form4");
  const auto renamed = ProjectFileBytes(*project).at("F.frm");
  EXPECT_NE(renamed.find("Attribute VB_Name = \"Form4\"\r\n"), std::string::npos) << renamed;
  EXPECT_EQ(renamed.find("orm3\""), std::string::npos) << renamed;
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
  vbfiles::testing::WriteBytes(temp.Path() / "P.vbp", "Type=Exe\r\nForm=F.frm\r\n");
  vbfiles::testing::WriteBytes(temp.Path() / "F.frx", std::string("\x02\0\0\0ab", 6));
  vbfiles::testing::WriteBytes(temp.Path() / "F.frm",
                               "VERSION 5.00\r\nBegin VB.Form F \r\n"
                               "   Caption = $\"F.frx\":0004\r\nEnd\r\n");
  try {
    OpenProject(temp.Path() / "P.vbp");
    FAIL() << "opened a form pointing past its .frx";
  } catch (const vb::Failure& failure) {
    EXPECT_EQ(failure.Number(), vb::kBadFileFormat);
    EXPECT_EQ(failure.Description(),
              u"F.frm line 3: Caption points at offset 0004 of F.frx, which ends before the "
              u"text there (6 bytes)");
  }
}

}  // namespace
}  // namespace workbench
