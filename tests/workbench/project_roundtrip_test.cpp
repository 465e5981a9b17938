// Whole projects through the workbench's model: every form, control,
// property and code line read and written again comes back byte for byte.
#include <gtest/gtest.h>

#include "vbfiles/files_test_support.hpp"
#include "workbench/project_loader.hpp"
#include "workbench/project_saver.hpp"

namespace workbench {
namespace {

using vbfiles::testing::FixturesDir;
using vbfiles::testing::NameOf;
using vbfiles::testing::ReadBytes;
using vbfiles::testing::SampleDir;
using vbfiles::testing::TempDir;

class WholeProjectRoundTrip : public ::testing::TestWithParam<std::filesystem::path> {};

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
