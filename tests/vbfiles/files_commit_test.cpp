// A project save is all or nothing: whatever step of the file system fails,
// every file is as it was and nothing new is left behind; when none fails,
// links, modes and missing folders are taken care of.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "files_test_support.hpp"
#include "vbfiles/file_commit.hpp"
#include "vbfiles/file_lines.hpp"

namespace vbfiles {
namespace {

namespace fs = std::filesystem;
using testing::FailureText;
using testing::ReadBytes;
using testing::TempDir;
using testing::WriteBytes;

// The disk, but the `fail_at`-th step that writes or renames a file fails.
class FailingDisk final : public FileSystem {
 public:
  explicit FailingDisk(int fail_at) : fail_at_(fail_at) {}

  bool Exists(const fs::path& p) override { return disk_.Exists(p); }
  fs::path Target(const fs::path& p) override { return disk_.Target(p); }
  void CreateFolder(const fs::path& p) override { disk_.CreateFolder(p); }
  void RemoveEmptyFolder(const fs::path& p) noexcept override { disk_.RemoveEmptyFolder(p); }
  fs::path WriteTemporary(const fs::path& target, std::string_view bytes) override {
    Count(target);
    return disk_.WriteTemporary(target, bytes);
  }
  fs::path KeepBackup(const fs::path& p) override { return disk_.KeepBackup(p); }
  void Rename(const fs::path& from, const fs::path& to) override {
    Count(to);
    disk_.Rename(from, to);
  }
  void Remove(const fs::path& p) noexcept override { disk_.Remove(p); }
  void SyncFolder(const fs::path& p) noexcept override { disk_.SyncFolder(p); }

 private:
  void Count(const fs::path& path) {
    if (++calls_ == fail_at_) {
      throw FileFailure("write", path, std::make_error_code(std::errc::no_space_on_device));
    }
  }
  FileSystem& disk_ = DiskFileSystem();
  int fail_at_;
  int calls_ = 0;
};

// Every file under `folder` (links as links) with its bytes.
std::map<std::string, std::string> Snapshot(const fs::path& folder) {
  std::map<std::string, std::string> files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    const auto name = entry.path().lexically_relative(folder).generic_string();
    files[name] = entry.is_symlink()     ? "-> " + fs::read_symlink(entry.path()).string()
                  : entry.is_directory() ? "(folder)"
                                         : ReadBytes(entry.path());
  }
  return files;
}

class ProjectFolder : public ::testing::Test {
 protected:
  ProjectFolder() {
    WriteBytes(temp_.Path() / "A.frm", "old A");
    WriteBytes(temp_.Path() / "P.vbp", "old P");
  }
  // A changed form, a new module in a new folder, the project file last.
  std::vector<FileWrite> Writes() const {
    return {{temp_.Path() / "A.frm", "new A"},
            {temp_.Path() / "new/dir/B.bas", "new B"},
            {temp_.Path() / "P.vbp", "new P"}};
  }
  TempDir temp_;
};

class FailedCommit : public ProjectFolder, public ::testing::WithParamInterface<int> {};

TEST_P(FailedCommit, LeavesEveryFileAsItWas) {
  const auto before = Snapshot(temp_.Path());
  FailingDisk disk(GetParam());
  EXPECT_THAT(FailureText([&] { CommitFiles(Writes(), disk); }),
              ::testing::MatchesRegex("75: Cannot write .*: No space left on device"));
  EXPECT_EQ(Snapshot(temp_.Path()), before);
}

// Three writes of temporary files, then three renames.
INSTANTIATE_TEST_SUITE_P(EveryStep, FailedCommit, ::testing::Range(1, 7));

TEST_F(ProjectFolder, ReplacesTheLinksTargetKeepsModeAndMakesFolders) {
  WriteBytes(temp_.Path() / "shared.frm", "old A");
  fs::remove(temp_.Path() / "A.frm");
  fs::create_symlink("shared.frm", temp_.Path() / "A.frm");
  fs::permissions(temp_.Path() / "P.vbp", fs::perms(0640));
  CommitFiles(Writes());
  EXPECT_TRUE(fs::is_symlink(temp_.Path() / "A.frm"));
  EXPECT_EQ(ReadBytes(temp_.Path() / "shared.frm"), "new A");
  EXPECT_EQ(fs::status(temp_.Path() / "P.vbp").permissions(), fs::perms(0640));
  EXPECT_EQ(Snapshot(temp_.Path()), (std::map<std::string, std::string>{{"A.frm", "-> shared.frm"},
                                                                        {"P.vbp", "new P"},
                                                                        {"new", "(folder)"},
                                                                        {"new/dir", "(folder)"},
                                                                        {"new/dir/B.bas", "new B"},
                                                                        {"shared.frm", "new A"}}));
}

TEST_F(ProjectFolder, FailuresNameTheFileAndTheReason) {
  const std::string folder = temp_.Path().generic_string();
  fs::create_directory(temp_.Path() / "F.frm");
  EXPECT_EQ(FailureText([&] {
              CommitFiles({{temp_.Path() / "A.frm/x.frm", "x"}});
            }),
            "75: Cannot write " + folder + "/A.frm/x.frm: Not a directory");
  EXPECT_EQ(FailureText([&] { ReadWholeFile(temp_.Path() / "F.frm"); }),
            "75: Cannot read " + folder + "/F.frm: Is a directory");
  EXPECT_EQ(FailureText([&] { ReadWholeFile(temp_.Path() / "G.frm"); }),
            "53: File not found: " + folder + "/G.frm");
}

}  // namespace
}  // namespace vbfiles
