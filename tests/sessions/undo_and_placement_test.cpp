// Undo and redo, drops into containers, and the backup a save keeps, as a
// user meets them: the files a save writes before, after and between.
#include <fstream>
#include <map>

#include "sessions/session_harness.hpp"
#include "vbfiles/files_test_support.hpp"

namespace sessions {
namespace {

namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;
using vbfiles::testing::ReadBytes;
using vbfiles::testing::SampleDir;

class UndoTest : public SessionTest {
 protected:
  Files Saved(const std::string& folder) const {
    Files files;
    for (const auto& entry : fs::recursive_directory_iterator(dir_ / folder)) {
      std::ifstream in(entry.path(), std::ios::binary);
      files[entry.path().filename().string()] = std::string(std::istreambuf_iterator<char>(in), {});
    }
    return files;
  }
};

struct UndoCase {
  const char* label;
  const char* setup;
  const char* action;  // one IDE line and the dialog it opens
};

class UndoSteps : public UndoTest, public ::testing::WithParamInterface<UndoCase> {};

TEST_P(UndoSteps, UndoGivesBackTheFilesBeforeAndRedoThoseAfter) {
  Run(std::string("new-project P\nnew-form Form1\n") + GetParam().setup + "save a/P.vbp\n" +
      GetParam().action + "save b/P.vbp\nundo\nsave c/P.vbp\nredo\nsave d/P.vbp\n");
  EXPECT_NE(Saved("a"), Saved("b"));
  EXPECT_EQ(Saved("a"), Saved("c"));
  EXPECT_EQ(Saved("b"), Saved("d"));
}

constexpr const char* kCoded =
    "drop TextBox\ncode add \"Private Sub Text1_Change()\\r\\nEnd Sub\"\nconnect\n";
const UndoCase kUndoCases[] = {
    {"DropWithItsDialog", "connect\n", "drop CheckBox\ntype \"chkOn\"\nclick OKButton\n"},
    {"DeleteWithRemoveCode", kCoded, "delete Text1\nclick cmdOK\n"},
    {"RenameWithRenameCode", kCoded, "rename Text1 txtName\nclick cmdReplace\n"},
    {"DeleteAFrameAndWhatItHolds", "drop Frame\ndrop CheckBox in Frame1\ndrop Label\n",
     "delete Frame1\n"},
};
INSTANTIATE_TEST_SUITE_P(Steps, UndoSteps, ::testing::ValuesIn(kUndoCases), ByLabel());

TEST_F(UndoTest, NothingToTakeBackIsSaidAndANewStepDropsTheRedoList) {
  Run("new-project P\nundo\nnew-form Form1\ndrop TextBox\nundo\ndrop Label\nredo\n");
  Lines said;
  for (const auto& e : Events("failure")) said.push_back(e["description"]);
  EXPECT_EQ(said, (Lines{"Nothing to undo", "Nothing to redo"}));
  EXPECT_EQ(Events("undo").at(0)["step"], "drop TextBox");
}

TEST_F(UndoTest, DropsGoToFreePlacesInsideTheirContainers) {
  Run("new-project P\nnew-form Form1\ndrop Frame\ndrop CheckBox in Frame1\ndrop CheckBox\n"
      "drop SSTab\ndrop CommandButton in SSTab1 tab 1\ndrop Label in Check1\nsave P.vbp\n");
  const std::string frm = Saved(".").at("Form1.frm");
  // Check1 below the caption inside Frame1's block; Check2 beside Frame1, not on it.
  for (const char* part : {"Width           =   1815\r\n      Begin VB.CheckBox Check1 ",
                           "Left            =   120\r\n         TabIndex        =   1\r\n"
                           "         Top             =   240\r\n",
                           "Check2 \r\n      Caption         =   \"Check2\"\r\n      Height"
                           "          =   495\r\n      Left            =   2040\r\n",
                           // On a tab other than the current one: 75000 twips to the left.
                           "Height          =   495\r\n         Left            =   -74880\r\n"}) {
    EXPECT_NE(frm.find(part), std::string::npos) << part << "\n" << frm;
  }
  EXPECT_EQ(Events("failure").at(0)["description"],
            "Invalid procedure call or argument: cannot drop into Check1: a CheckBox holds no "
            "controls");
}

TEST_F(UndoTest, EverySaveKeepsWhatItReplacedInANewBackup) {
  fs::copy(SampleDir(), dir_ / "s");
  Run("open s/Sample.vbp\nset Label1 Caption \"One\"\nsave\nset Label1 Caption \"Two\"\nsave\n");
  EXPECT_EQ(Saved("s/Sample.vbp.bak/1").at("frmMain.frm"), ReadBytes(SampleDir() / "frmMain.frm"));
  EXPECT_NE(Saved("s/Sample.vbp.bak/2").at("frmMain.frm").find("\"One\""), std::string::npos);
  EXPECT_EQ(Events("saved").at(1)["backup"], (dir_ / "s/Sample.vbp.bak/2/").string());
}

}  // namespace
}  // namespace sessions
