// Whole projects through the workbench's model: every form, control,
// property and code line read and written again comes back byte for byte.
#include <gtest/gtest.h>

#include "vbfiles/files_test_support.hpp"
#include "workbench/project_loader.hpp"
#include "workbench/project_saver.hpp"

namespace workbench {
namespace {

using vbfiles::testing::ReadBytes;

class WholeProjectRoundTrip : public ::testing::TestWithParam<std::filesystem::path> {};

TEST_P(WholeProjectRoundTrip, SavedCopyIsIdentical) {
  vbfiles::testing::TempDir temp;
  const auto project = OpenProject(GetParam());
  const auto files = ProjectFileBytes(*project);
  SaveProject(*project, temp.Path() / GetParam().filename());
  std::size_t saved = 0;
  for (const auto& entry : std::filesystem::directory_iterator(temp.Path())) {
    const auto name = entry.path().filename();
    EXPECT_EQ(ReadBytes(entry.path()), ReadBytes(GetParam().parent_path() / name)) << name;
    EXPECT_EQ(files.at(name.string()), ReadBytes(entry.path())) << name;
    ++saved;
  }
  EXPECT_GE(saved, 3U);  // the project file, every form, the .frx, the module
}

INSTANTIATE_TEST_SUITE_P(Projects, WholeProjectRoundTrip,
                         ::testing::Values(vbfiles::testing::SampleDir() / "Sample.vbp",
                                           vbfiles::testing::FixturesDir() / "Fixtures.vbp"),
                         vbfiles::testing::NameOf);

}  // namespace
}  // namespace workbench
