// The first promise of the file readers: what nobody changed is written back
// byte for byte -- each form on its own and each project file.
#include <gtest/gtest.h>

#include "files_test_support.hpp"
#include "vbfiles/frm_file.hpp"
#include "vbfiles/vbp_file.hpp"

namespace vbfiles {
namespace {

using testing::FixturesDir;
using testing::NameOf;
using testing::ReadBytes;
using testing::SampleDir;

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

class FileRoundTrip : public ::testing::TestWithParam<std::filesystem::path> {};

TEST_P(FileRoundTrip, WritesTheBytesItRead) {
  const std::string bytes = ReadBytes(GetParam());
  EXPECT_EQ(GetParam().extension() == ".frm" ? FrmDocument::Parse(bytes, u"fixture").Write()
                                             : VbpFile::Parse(bytes, u"fixture").Write(),
            bytes);
}

INSTANTIATE_TEST_SUITE_P(EveryForm, FileRoundTrip, ::testing::ValuesIn(FilesEndingIn(".frm")),
                         NameOf);
INSTANTIATE_TEST_SUITE_P(EveryProject, FileRoundTrip, ::testing::ValuesIn(FilesEndingIn(".vbp")),
                         NameOf);

}  // namespace
}  // namespace vbfiles
