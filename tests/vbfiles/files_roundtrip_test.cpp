// The first promise of the file readers: what nobody changed is written back
// byte for byte -- each form on its own, each project file, and whole
// projects through the workbench's model.
#include <gtest/gtest.h>

#include "files_test_support.hpp"
#include "workbench/frm_file.hpp"
#include "workbench/project_io.hpp"
#include "workbench/vbp_file.hpp"

namespace workbench {
namespace {

using testing::FixturesDir;
using testing::ReadBytes;
using testing::SampleDir;
using testing::TempDir;

std::vector<std::filesystem::path> FilesEndingIn(const std::string& extension) {
  std::vector<std::filesystem::path> files;
  for (const auto& folder : {FixturesDir(), SampleDir()}) {
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      if (entry.path().extension() == extension) files.push_back(entry.path());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::string NameOf(const ::testing::TestParamInfo<std::filesystem::path>& info) {
  std::string name = info.param.stem().string();
  for (auto& c : name) {
    if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
  }
  return name;
}

class FormRoundTrip : public ::testing::TestWithParam<std::filesystem::path> {};

TEST_P(FormRoundTrip, WritesTheBytesItRead) {
  const std::string bytes = ReadBytes(GetParam());
  const auto document = FrmDocument::Parse(bytes, u"fixture");
  EXPECT_EQ(document.Write(), bytes);
}

INSTANTIATE_TEST_SUITE_P(EveryForm, FormRoundTrip, ::testing::ValuesIn(FilesEndingIn(".frm")),
                         NameOf);

class ProjectFileRoundTrip : public ::testing::TestWithParam<std::filesystem::path> {};

TEST_P(ProjectFileRoundTrip, WritesTheBytesItRead) {
  const std::string bytes = ReadBytes(GetParam());
  EXPECT_EQ(VbpFile::Parse(bytes, u"fixture").Write(), bytes);
}

INSTANTIATE_TEST_SUITE_P(EveryProject, ProjectFileRoundTrip,
                         ::testing::ValuesIn(FilesEndingIn(".vbp")), NameOf);

class WholeProjectRoundTrip : public ::testing::TestWithParam<std::filesystem::path> {};

// Through the model: every form, control, property and code line read and
// written again.
TEST_P(WholeProjectRoundTrip, EveryFileComesBackUnchanged) {
  const auto project = OpenProject(GetParam());
  const auto files = ProjectFileBytes(*project);
  EXPECT_FALSE(files.empty());
  for (const auto& [relative, bytes] : files) {
    EXPECT_EQ(bytes, ReadBytes(GetParam().parent_path() / relative)) << relative;
  }
}

TEST_P(WholeProjectRoundTrip, SavedCopyIsIdentical) {
  TempDir temp;
  const auto copy = temp.Path() / GetParam().filename();
  SaveProject(*OpenProject(GetParam()), copy);
  std::size_t compared = 0;
  for (const auto& entry : std::filesystem::directory_iterator(temp.Path())) {
    EXPECT_EQ(ReadBytes(entry.path()),
              ReadBytes(GetParam().parent_path() / entry.path().filename()))
        << entry.path().filename();
    ++compared;
  }
  // The project file, every form, the one .frx, and the sample's module.
  EXPECT_GE(compared, 3U);
}

INSTANTIATE_TEST_SUITE_P(Projects, WholeProjectRoundTrip,
                         ::testing::Values(SampleDir() / "Sample.vbp",
                                           FixturesDir() / "Fixtures.vbp"),
                         NameOf);

}  // namespace
}  // namespace workbench
