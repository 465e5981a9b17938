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

// Saved into a folder that does not exist yet.
TEST_P(WholeProjectRoundTrip, SavedCopyIsIdentical) {
  TempDir temp;
  const auto folder = temp.Path() / "new" / "dir";
  SaveProject(*OpenProject(GetParam()), folder / GetParam().filename());
  std::size_t compared = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    const auto relative = entry.path().lexically_relative(folder);
    EXPECT_EQ(ReadBytes(entry.path()), ReadBytes(GetParam().parent_path() / relative)) << relative;
    ++compared;
  }
  // The project file, every form, the one .frx, and the sample's module.
  EXPECT_GE(compared, 3U);
}

INSTANTIATE_TEST_SUITE_P(Projects, WholeProjectRoundTrip,
                         ::testing::Values(SampleDir() / "Sample.vbp",
                                           FixturesDir() / "Fixtures.vbp",
                                           // without Name=, as many are
                                           FixturesDir() / "cp932" / "Japanese.vbp"),
                         NameOf);

}  // namespace
}  // namespace workbench
